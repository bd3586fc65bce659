// SPDX-License-Identifier: MIT
#include "style/StyleSheetHandler.h"
#include "units/BVDoubleSpinBox.h"
#include "units/BVSlider.h"
#include "units/UnitsConfiguration.h"

#include "TestRows.h"
#include "TestSupport.h"
#include "XdoTool.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyleOptionSpinBox>
#include <QVBoxLayout>

#include <memory>

/// Spin box and slider on a page that scrolls, moved with wheel, pointer and keys from outside.
class tst_Sliding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void wheel_data();
    void wheel();
    void keys_data();
    void keys();
    void typing_data();
    void typing();
    void boxDrag_data();
    void boxDrag();
    void sliderDrag();
    void limitDrag_data();
    void limitDrag();

private:
    QWidget *widget(const QString &name) const { return m_window->findChild<QWidget *>(name); }
    QString shown() const;
    QPoint grip(const QString &name) const;

    std::unique_ptr<QScrollArea> m_window;
    QLineEdit *m_other = nullptr;
    BVDoubleSpinBox *m_box = nullptr;
    BVSlider *m_slider = nullptr;
};

void tst_Sliding::initTestCase()
{
    qApp->setStyle(QStringLiteral("Fusion"));
    qApp->setStyleSheet(Brimvale::StyleSheetHandler::load());
}

void tst_Sliding::init()
{
    m_window = std::make_unique<QScrollArea>();
    auto *page = new QWidget;
    m_other = new QLineEdit;
    m_box = new BVDoubleSpinBox;
    m_slider = new BVSlider(Qt::Horizontal);
    auto *layout = new QVBoxLayout(page);
    for (QWidget *widget : {static_cast<QWidget *>(m_other), static_cast<QWidget *>(m_box), static_cast<QWidget *>(m_slider)})
        layout->addWidget(widget);
    layout->addStretch();
    page->setMinimumHeight(2000);
    m_window->setWidgetResizable(true);
    m_window->setWidget(page);
    m_window->resize(400, 300);

    m_box->setObjectName(QStringLiteral("box"));
    m_box->setPrefix(QStringLiteral("L = "));
    m_box->setUnitString(QStringLiteral("mm"));
    m_box->setRange(0.0, 100.0);
    m_box->setValue(50.0);
    m_slider->setObjectName(QStringLiteral("slider"));
    m_slider->setRange(0, 1000);
    m_slider->setValue(500);
    m_slider->setAdmissibleRange(200, 800, true);
    m_other->setFocus();
    QVERIFY(XdoTool::showActive(m_window.get()));
    QVERIFY(XdoTool::movePointer(m_other, QPoint(1, 1)));
    QTRY_VERIFY(m_other->hasFocus());
}

void tst_Sliding::cleanup()
{
    m_window.reset();
    UnitsConfiguration::instance().setDefaultValues();
}

/// Both inputs: the text of the box, the limits of the slider around its value.
QString tst_Sliding::shown() const
{
    return QStringLiteral("%1, %2 [%3] %4")
        .arg(m_box->text())
        .arg(m_slider->admissibleMinimum())
        .arg(m_slider->value())
        .arg(m_slider->admissibleMaximum());
}

/// Where the box is taken hold of.
QPoint tst_Sliding::grip(const QString &name) const
{
    if (name == QLatin1String("prefix"))
        return m_box->getPaintingRect().topLeft() + QPoint(8, m_box->getPaintingRect().height() / 2);
    QStyleOptionSpinBox option;
    option.initFrom(m_box);
    option.subControls = QStyle::SC_All;
    const auto button = name == QLatin1String("up") ? QStyle::SC_SpinBoxUp : QStyle::SC_SpinBoxDown;
    return m_box->style()->subControlRect(QStyle::CC_SpinBox, &option, button, m_box).center();
}

void tst_Sliding::wheel_data()
{
    const Table<QString, QString, QString, QString, bool> row("input", "state", "held", "expected", "pageScrolls");
    const QString unchanged = QStringLiteral("L = 50.00 mm, 200 [500] 800");
    row("box without focus", "box", "unfocused", "", unchanged, true);
    row("box", "box", "", "", "L = 49.00 mm, 200 [500] 800", false);
    row("box, Ctrl", "box", "", "Control_L", "L = 40.00 mm, 200 [500] 800", false);
    row("box, Shift", "box", "", "Shift_L", "L = 49.90 mm, 200 [500] 800", false);
    row("read-only box", "box", "readOnly", "", unchanged, false);
    row("locked box", "box", "standardLocked", "", unchanged, false);
    row("slider without focus", "slider", "unfocused", "", unchanged, true);
    row("slider", "slider", "", "", "L = 50.00 mm, 200 [497] 800", false);
    row("locked slider", "slider", "standardLocked", "", unchanged, true);
}

void tst_Sliding::wheel()
{
    QFETCH(const QString, state);
    QFETCH(const QString, held);
    QFETCH(const QString, input);
    QFETCH(const QString, expected);
    QWidget *widget = this->widget(input);
    if (state == QLatin1String("standardLocked"))
        BVWidgetStatus::setStatus(widget, BVWidgetStatus::StandardLocked, true);
    else if (!state.isEmpty())
        m_box->setReadOnly(state == QLatin1String("readOnly"));
    if (state != QLatin1String("unfocused"))
        widget->setFocus();
    const QPointer<QWidget> focus = QApplication::focusWidget();

    const EventCounter notches(widget, QEvent::Wheel);
    {
        const XdoTool::HeldKey key(held);
        QVERIFY(key.isHeld());
        QVERIFY(XdoTool::scroll(widget, -1));
        QTRY_COMPARE(notches.count(), 1);
    }
    QTRY_COMPARE(shown(), expected);
    QTEST(m_window->verticalScrollBar()->value() > 0, "pageScrolls");
    QCOMPARE(QApplication::focusWidget(), focus.data());
}

void tst_Sliding::keys_data()
{
    const Table<QString, QString, QString> row("input", "keys", "expected");
    row("arrow", "box", "Up", "L = 51.00 mm, 200 [500] 800");
    row("arrow down, with Shift", "box", "shift+Down", "L = 49.90 mm, 200 [500] 800");
    row("page keys", "box", "Prior Prior Next", "L = 60.00 mm, 200 [500] 800");
    row("value", "slider", "Right Prior", "L = 50.00 mm, 200 [511] 800");
    row("lower limit", "slider", "Tab Right Prior", "L = 50.00 mm, 211 [500] 800");
    row("upper limit", "slider", "Tab Tab Left", "L = 50.00 mm, 200 [500] 799");
    row("back to the box", "slider", "shift+Tab Up", "L = 51.00 mm, 200 [500] 800");
}

void tst_Sliding::keys()
{
    QFETCH(const QString, input);
    QFETCH(const QString, keys);
    QFETCH(const QString, expected);
    widget(input)->setFocus();
    for (const QString &key : keys.split(QLatin1Char(' ')))
        QVERIFY(XdoTool::pressKey(key));
    QTRY_COMPARE(shown(), expected);
    QCOMPARE(m_window->verticalScrollBar()->value(), 0);
}

void tst_Sliding::typing_data()
{
    const Table<QString, QString, double, QString> row("unit", "typed", "value", "text");
    row("in another unit", "inch", "25.4mm", 1.0, "L = 1.000 inch");
    row("in a unit of another quantity", "mm", "12kg", 50.0, "L = 50.00 mm");
    row("in the unit of the box", "mm", "7.5", 7.5, "L = 7.50 mm");
}

void tst_Sliding::typing()
{
    QFETCH(const QString, unit);
    QFETCH(const QString, typed);
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, unit);
    m_box->setUnitString(unit);
    QVERIFY(XdoTool::click(m_box));
    QTRY_VERIFY(m_box->hasFocus());
    QVERIFY(XdoTool::pressKey(QStringLiteral("ctrl+a")));
    QVERIFY(XdoTool::typeText(typed));
    QTRY_COMPARE(m_box->text(), QStringLiteral("L = ") + typed);
    QVERIFY(XdoTool::pressKey(QStringLiteral("Tab")));
    QTRY_VERIFY(m_slider->hasFocus());
    QTEST(m_box->text(), "text");
    QTEST(m_box->value(), "value");
}

void tst_Sliding::boxDrag_data()
{
    // The first ten pixels only start the drag, and the press on a button has made a step.
    const Table<QString, QPoint, QString, double> row("grip", "way", "key", "value");
    row("click", "up", QPoint(), "", 51.0);
    row("click on the lower button", "down", QPoint(), "", 49.0);
    row("button upwards", "up", QPoint(0, -50), "", 61.0);
    row("button downwards", "down", QPoint(0, 30), "", 44.0);
    row("prefix", "prefix", QPoint(30, 0), "", 55.0);
    row("Escape, button", "up", QPoint(0, -50), "Escape", 50.0);
    row("Escape, prefix", "prefix", QPoint(-30, 0), "Escape", 50.0);
}

void tst_Sliding::boxDrag()
{
    QFETCH(const QString, grip);
    QFETCH(const QPoint, way);
    QFETCH(const QString, key);
    QFETCH(const double, value);
    m_box->setFocus();
    const QPoint start = this->grip(grip);
    const auto giveUp = [this, &key] {
        const auto hasSlid = [this] { return m_box->isSliding() && m_box->value() != 50.0; };
        return key.isEmpty() || (QTest::qWaitFor(hasSlid) && XdoTool::pressKey(key));
    };
    QVERIFY(XdoTool::drag(m_box, way.isNull() ? QVector<QPoint>{start} : QVector<QPoint>{start, start + way}, giveUp));
    QTRY_COMPARE(m_box->value(), value);
    QTRY_VERIFY(!m_box->isSliding());
}

void tst_Sliding::sliderDrag()
{
    const QRect handle = m_slider->handleRect(BVSlider::ValueHandle);
    const QPoint start(handle.center().x(), handle.bottom() - 1);
    QVERIFY(XdoTool::drag(m_slider, {start, start + QPoint(60, 0), start + QPoint(-33, 5)}));
    QTRY_COMPARE(m_slider->handleRect(BVSlider::ValueHandle).x(), handle.x() - 33);
    QCOMPARE(m_slider->admissibleMinimum(), 200);

    // The admissible range stops it.
    QVERIFY(XdoTool::drag(m_slider, {start + QPoint(-33, 0), start + QPoint(500, 0)}));
    QTRY_COMPARE(shown(), QStringLiteral("L = 50.00 mm, 200 [800] 800"));
}

void tst_Sliding::limitDrag_data()
{
    const Table<BVSlider::Handle, QString> row("handle", "end");
    row("lower, let go in the move", BVSlider::LowerLimitHandle, "");
    row("upper, let go in the move", BVSlider::UpperLimitHandle, "");
    row("lower, let go after a rest", BVSlider::LowerLimitHandle, "rest");
}

void tst_Sliding::limitDrag()
{
    QFETCH(const BVSlider::Handle, handle);
    QFETCH(const QString, end);
    const int sign = handle == BVSlider::LowerLimitHandle ? 1 : -1;
    const QPoint start = m_slider->handleRect(handle).center();
    const QPoint target = start + QPoint(sign * 137, 2); // takes the value along
    const int reached = m_slider->pixelPosToValue(target.x());
    QSignalSpy announced(m_slider, &BVSlider::admissibleRangeChanged);
    const auto beforeRelease = [&] {
        if (end.isEmpty())
            return true;
        if (!QTest::qWaitFor([&] { return m_slider->handlePosition(handle) == reached; }))
            return false;
        announced.clear();
        return true;
    };
    QVERIFY(XdoTool::drag(m_slider, {start, start + QPoint(sign * 100, -3), start + QPoint(sign * 20, 0), target}, beforeRelease));

    const QString limits = sign > 0 ? QStringLiteral("%1 [%1] 800") : QStringLiteral("200 [%1] %1");
    QTRY_COMPARE(shown(), QStringLiteral("L = 50.00 mm, ") + limits.arg(reached));
    QTRY_COMPARE(announced.value(announced.size() - 1), (QVariantList{m_slider->admissibleMinimum(), m_slider->admissibleMaximum()}));
    if (end == QLatin1String("rest"))
        QCOMPARE(announced.count(), 1);
}

QTEST_MAIN(tst_Sliding)

#include "tst_sliding.moc"
