// SPDX-License-Identifier: MIT
#include "foundation/BVCursorTable.h"
#include "units/BVDoubleSpinBox.h"
#include "units/UnitsConfiguration.h"

#include "TestRows.h"
#include "TestSupport.h"

#include <QAbstractItemDelegate>
#include <QDataWidgetMapper>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>
#include <QVBoxLayout>

#include <cfloat>

using Box = BVDoubleSpinBox;
using Length = UnitsConfiguration;

namespace {

/// A box in a window of its own, with a second field to go to.
struct Form
{
    explicit Form(const QString &unit = QString(), const QString &choice = QString())
    {
        if (!choice.isEmpty())
            UnitsConfiguration::instance().setCurrentUnit(Length::Length, choice);
        auto *layout = new QVBoxLayout(&m_window);
        m_box = new Box;
        m_box->setUnitString(unit);
        m_edit = m_box->findChild<QLineEdit *>();
        m_other = new QLineEdit;
        layout->addWidget(m_box);
        layout->addWidget(m_other);
        m_window.show();
    }

    bool start()
    {
        m_box->setFocus();
        return QTest::qWaitForWindowActive(&m_window) && m_box->hasFocus();
    }

    void enter(const QString &text)
    {
        m_box->selectAll();
        QTest::keyClick(m_box, Qt::Key_Delete);
        QTest::keyClicks(m_box, text);
        QTest::keyClick(m_box, Qt::Key_Return);
    }

    QWidget m_window;
    Box *m_box;
    QLineEdit *m_edit;
    QLineEdit *m_other;
};

void moveMouse(QWidget *widget, const QPoint &position, Qt::MouseButtons buttons = Qt::LeftButton)
{
    QMouseEvent event(QEvent::MouseMove, position, widget->mapToGlobal(position), Qt::NoButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
    QCoreApplication::sendPostedEvents();
}

bool isNear(double value, double expected)
{
    return value == expected || qAbs(value - expected) < 1e-9 * qMax(1.0, qAbs(expected));
}

} // namespace

class tst_BVDoubleSpinBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void cleanup();
    void steps_data();
    void steps();
    void pendingSteps();
    void refusesSteps();
    void drag_data();
    void drag();
    void judges_data();
    void judges();
    void types_data();
    void types();
    void comesBack();
    void takesOver();
    void throughToolkitClass();
    void keepsDigits();
    void tolerance();
    void empty();
    void hostileNumbers();
    void unitChoice();
    void look();
};

void tst_BVDoubleSpinBox::cleanup()
{
    UnitsConfiguration::instance().setDefaultValues();
    QLocale::setDefault(QLocale::c());
}

void tst_BVDoubleSpinBox::steps_data()
{
    const Table<double, double, double, double, QString, int, Qt::KeyboardModifiers, double> row("minimum", "maximum", "value", "step", "mode", "key",
                                                                                                 "modifiers", "stepped");
    const Qt::KeyboardModifiers none = Qt::NoModifier;
    row("page down", 0, 100, 25, 1, "", Qt::Key_PageDown, none, 15);
    row("Control once", 0, 100, 5, 1, "", Qt::Key_Up, Qt::ControlModifier, 15);
    row("Shift", 0, 100, 5, 1, "", Qt::Key_Down, Qt::ShiftModifier, 4.9);
    row("rounding near the limit", 0, 0.8, 0.7, 0.1, "", Qt::Key_Up, none, 0.8);
    row("share of the range", 0, 50, 0, 1, "slide", Qt::Key_Up, none, 2);
    row("wraps", 0, 360, 355, 10, "wrap", Qt::Key_Up, none, 5);
    row("wraps by widths", 0, 3, 1, 1, "wrap", Qt::Key_PageDown, none, 3);
    row("stays on the limit", 0, 360, 355, 5, "wrap", Qt::Key_Up, none, 360);
    row("to the grid ahead", 0, 10, 2.7, 1, "snap", Qt::Key_Up, none, 3);
    row("grid behind", 0, 10, 2.3, 1, "snap", Qt::Key_Up, none, 3.3);
    row("logarithmic", 1, 1000, 10, 1, "log slide", Qt::Key_Up, none, 100);
    row("no logarithm of zero", 0, 1000, 0, 1, "log", Qt::Key_Up, none, 1);
}

void tst_BVDoubleSpinBox::steps()
{
    const auto [minimum, maximum, value, step] = fetched<double, double, double, double>("minimum", "maximum", "value", "step");
    const auto [mode, key, modifiers] = fetched<QString, int, Qt::KeyboardModifiers>("mode", "key", "modifiers");
    Box box;
    box.setRange(minimum, maximum);
    box.setValue(value);
    box.setSingleStep(step);
    box.setWrapping(mode.contains("wrap"));
    box.setSnapToSteps(mode.contains("snap"));
    box.setLogarithmic(mode.contains("log"));
    box.setSlideSteps(mode == "slide" ? 25 : -1);
    box.setLogSlideSteps(mode == "log slide" ? 3 : -1);
    QTest::keyClick(&box, Qt::Key(key), modifiers);
    QCOMPARE(box.value(), value);
    QCoreApplication::sendPostedEvents(&box);
    QFETCH(double, stepped);
    QVERIFY2(isNear(box.value(), stepped), qPrintable(QString::number(box.value())));
    QCOMPARE(box.value() == maximum, stepped == maximum);
}

void tst_BVDoubleSpinBox::pendingSteps()
{
    Box box;
    QStringList log;
    connect(&box, QOverload<double>::of(&Box::valueChanged), [&log](double v) { log << QString("changed %1").arg(v); });
    connect(&box, &Box::valueStepped, [&log](double v) { log << QString("stepped %1").arg(v); });
    box.stepBy(1);
    box.stepBy(1);
    QVERIFY(log.isEmpty());
    QCoreApplication::sendPostedEvents(&box);
    QCOMPARE(log, QStringList({"changed 1", "stepped 1", "changed 2", "stepped 2"}));
    box.stepBy(1);
    box.setValue(2.0);
    QCoreApplication::sendPostedEvents(&box);
    QCOMPARE(box.value(), 2.0);
    auto *deletesItself = new Box;
    connect(deletesItself, QOverload<double>::of(&Box::valueChanged), [deletesItself] { delete deletesItself; });
    deletesItself->stepBy(1);
    QCoreApplication::sendPostedEvents(deletesItself);
}

void tst_BVDoubleSpinBox::refusesSteps()
{
    Form form;
    Box *box = form.m_box;
    const auto isFixed = [box] {
        box->stepBy(1);
        box->stepByWheel(1);
        QCoreApplication::sendPostedEvents(box);
        return box->value() == 0.0;
    };
    box->setIsSliding(true);
    QVERIFY(isFixed());
    box->setIsSliding(false);
    box->setCursor(Qt::CrossCursor);
    const Qt::CursorShape locked = BVCursorTable::cursor(BVCursorTable::Cursor::Locked).shape();
    for (void (*setFixed)(Box *, bool) : {+[](Box *b, bool on) { b->setStandardLocked(on); }, +[](Box *b, bool on) { b->setReadOnly(on); }}) {
        box->stepBy(1);
        setFixed(box, true);
        form.enter("5"); // no key does anything
        QVERIFY(isFixed() && !box->isSlidingPossible());
        QVERIFY(form.m_edit->cursor().shape() == locked && box->cursor().shape() == locked);
        setFixed(box, false);
        QVERIFY(box->isSlidingPossible() && box->cursor().shape() == Qt::CrossCursor && !form.m_edit->isReadOnly());
    }
    box->setRuvixEnabled(true);
    box->setReadOnlyAndDisableRuvix(true);
    QVERIFY(!box->isRuvixEnabled());
    box->setReadOnlyAndDisableRuvix(false);
    QVERIFY(box->isRuvixEnabled());
}

void tst_BVDoubleSpinBox::drag_data()
{
    const Table<bool, bool, QPoint, QString, double> row("prefix", "mirrored", "way", "end", "value");
    row("button up", false, false, QPoint(0, -22), "", 54.0); // the press is a step
    row("escaped", false, false, QPoint(0, -22), "escape", 50.0);
    row("locked", false, false, QPoint(0, -22), "lock", 54.0);
    row("right press", false, false, QPoint(0, -22), "right", 54.0);
    row("released elsewhere", false, false, QPoint(0, -22), "elsewhere", 54.0);
    row("prefix escaped", true, false, QPoint(30, 0), "escape", 50.0);
    row("prefix", true, false, QPoint(30, 0), "", 55.0);
    row("prefix mirrored", true, true, QPoint(30, 0), "", 45.0);
}

void tst_BVDoubleSpinBox::drag()
{
    const auto [onPrefix, mirrored, way, end, value] = fetched<bool, bool, QPoint, QString, double>("prefix", "mirrored", "way", "end", "value");
    Form form;
    form.m_window.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    form.m_box->setPrefix("length ");
    form.m_box->setValue(50.0);
    QVERIFY(form.start());
    QWidget *pressed = onPrefix ? static_cast<QWidget *>(form.m_edit) : form.m_box;
    form.m_edit->setCursorPosition(3);
    const QPoint start = onPrefix ? form.m_edit->rect().center() - QPoint(form.m_edit->width() / 2 - 8, 0) : QPoint(form.m_box->width() - 6, 6);
    QTest::mousePress(pressed, Qt::LeftButton, Qt::NoModifier, start);
    moveMouse(pressed, start + way / 2);
    moveMouse(pressed, start + way);
    QCOMPARE(form.m_box->isSliding(), way.manhattanLength() >= QApplication::startDragDistance());
    if (end == "escape")
        QTest::keyClick(form.m_box, Qt::Key_Escape);
    else if (end == "lock")
        form.m_box->setStandardLocked(true);
    else if (end == "right")
        QTest::mousePress(pressed, Qt::RightButton, Qt::NoModifier, start + way);
    else if (end == "elsewhere")
        moveMouse(pressed, start + way, Qt::NoButton);
    else
        QTest::mouseRelease(pressed, Qt::LeftButton, Qt::NoModifier, start + way);
    QVERIFY(!form.m_box->isSliding());
    form.m_edit->deselect();
    moveMouse(pressed, start + 3 * way);
    QVERIFY(!form.m_box->isSliding() && (end.isEmpty() || !form.m_edit->hasSelectedText()));
    QCOMPARE(form.m_box->value(), value);
    QTest::mouseRelease(pressed, Qt::LeftButton);
}

void tst_BVDoubleSpinBox::judges_data()
{
    const Table<QString, QString, int, QValidator::State, QString, QString> row("mode", "typed", "cursor", "state", "text", "mended");
    const auto acceptable = QValidator::Acceptable;
    const auto intermediate = QValidator::Intermediate;
    row("within the tolerance", "nearest", "100.0005", 8, acceptable, "100.0005", "100.000500000 mm");
    row("another quantity", "nearest", "12 kg", 5, intermediate, "12 kg", "12 kg");
    row("prefix and suffix", "affixes", "~50 mm!", 3, acceptable, "~50 mm!", "~50.000000000 mm!");
    row("moved point", "affixes", "~1.2.5!", 3, acceptable, "~1.25!", "~1.250000000 mm!");
    row("point of the denominator", "", "1./2.5", 2, acceptable, "1./2.5", "0.400000000 mm");
    row("wrapped down", "wrap", "215", 3, intermediate, "215", "-5.000000000 mm");
}

void tst_BVDoubleSpinBox::judges()
{
    const auto [mode, typed, cursor, mended] = fetched<QString, QString, int, QString>("mode", "typed", "cursor", "mended");
    Form form("mm", mode == "inch" ? "inch" : "mm");
    form.m_box->setRange(-10.0, 100.0);
    form.m_box->setCorrectionMode(mode == "nearest" ? Box::CorrectToNearestValue : Box::CorrectToPreviousValue);
    form.m_box->setWrapping(mode == "wrap");
    form.m_box->setPrefix(mode == "affixes" ? "~" : "");
    form.m_box->setSuffix(mode == "affixes" ? "!" : "");
    QString text = typed;
    int position = cursor;
    const QValidator::State state = form.m_box->validate(text, position);
    QTEST(state, "state");
    QTEST(text, "text");
    QCOMPARE(position, cursor);
    form.m_box->fixup(text);
    QCOMPARE(text, mended);
}

void tst_BVDoubleSpinBox::types_data()
{
    const Table<QString, QString, QString, double, QString> row("choice", "mode", "typed", "value", "text"); // value unit mm
    row("shown unit", "inch", "", "2", 50.8, "2.000 inch");
    row("typed unit", "inch", "", "5.08cm", 50.8, "2.000 inch");
    row("behind a prefix", "mm", "prefix", "12,5", 12.5, "~ 12.50 mm");
    row("more behind the unit", "mm", "nearest", "10 mm 6", 7.0, "7.00 mm");
    row("out of range", "mm", "", "500", 7.0, "7.00 mm");
    row("nearest maximum", "mm", "nearest", "500", 90.006, "90.01 mm");
    row("nearest minimum", "mm", "nearest", "1", 5.006, "5.01 mm");
    row("nearest in another unit", "inch", "nearest", "500", 90.006, "3.544 inch");
    row("limit without unit", "mm", "", "90.01", 90.006, "90.01 mm");
}

void tst_BVDoubleSpinBox::types()
{
    QLocale::setDefault(QLocale::German);
    const auto [choice, mode, typed, value, text] = fetched<QString, QString, QString, double, QString>("choice", "mode", "typed", "value", "text");
    Form form("mm", choice);
    form.m_box->setRange(5.006, 90.006);
    form.m_box->setValue(7.0);
    form.m_box->setPrefix(mode == "prefix" ? "~ " : "");
    form.m_box->setCorrectionMode(mode == "nearest" ? Box::CorrectToNearestValue : Box::CorrectToPreviousValue);
    QVERIFY(form.start());
    form.enter(typed);
    QCOMPARE(form.m_box->value(), value);
    QCOMPARE(form.m_box->text(), text);
}

/// What an unfinished text makes way for.
void tst_BVDoubleSpinBox::comesBack()
{
    Form form("mm", "mm");
    form.m_box->setRange(0.0, 100.0);
    form.m_box->setValue(50.0);
    form.m_box->setRange(0.0, 10.0);
    form.m_box->setRange(0.0, 100.0);
    QVERIFY(form.start());
    form.enter("5 x");
    QCOMPARE(form.m_box->value(), 10.0);
    QTest::keyClicks(form.m_box, "5 x");
    UnitsConfiguration::instance().setCurrentUnit(Length::Length, "m");
    QCOMPARE(form.m_box->value(), 10.0);

    QStandardItemModel model(1, 1);
    model.setData(model.index(0, 0), 7.0, Qt::EditRole);
    QDataWidgetMapper mapper;
    mapper.setModel(&model);
    mapper.addMapping(form.m_box, 0);
    mapper.toFirst();
    QSignalSpy submitted(mapper.itemDelegate(), &QAbstractItemDelegate::commitData);
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_unknown}) {
        form.start();
        form.m_box->selectAll();
        QTest::keyClicks(form.m_box, "5 x");
        if (key == Qt::Key_unknown)
            form.m_other->setFocus();
        else
            QTest::keyClick(form.m_box, key);
        QTRY_VERIFY(!submitted.isEmpty());
        submitted.clear();
        QCOMPARE(model.index(0, 0).data(Qt::EditRole).toDouble(), 7.0);
    }
}

/// What is settled before others read the value, or nothing more can be typed.
void tst_BVDoubleSpinBox::takesOver()
{
    Form form("mm", "mm");
    Box *box = form.m_box;
    box->setKeyboardTracking(false);
    QVERIFY(form.start());
    const auto type = [box](const QString &text) {
        box->setValue(7.0);
        box->selectAll();
        QTest::keyClicks(box, text);
    };
    type("25");
    box->setDecimals(1);
    QCOMPARE(box->text(), QString("25.0 mm"));
    for (const auto &[text, value] : {std::pair("55", 55.0), std::pair("abc", 7.0)}) {
        type(text);
        box->setStandardLocked(true);
        QCOMPARE(box->value(), value);
        QCOMPARE(box->text(), QString("%1.0 mm").arg(value));
        box->setStandardLocked(false);
    }
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab}) {
        box->setFocus();
        box->setValue(8.0);
        box->stepBy(1);
        box->stepBy(1);
        box->setMaximum(box->maximum());
        QTest::keyClick(box, key);
        QCOMPARE(box->value(), 10.0);
    }
    QSignalSpy changed(box, QOverload<double>::of(&Box::valueChanged));
    box->setRange(0.0, 1e15);
    box->setValue(2e12);
    box->setValue(2e12 + 1.0);
    QCOMPARE(changed.takeLast().at(0).toDouble(), 2e12 + 1.0);
    auto *deleted = new Box;
    deleted->setDecimals(1);
    connect(deleted, &Box::valueUnitChanged, [deleted] { delete deleted; });
    deleted->setUnitString("m");
}

void tst_BVDoubleSpinBox::throughToolkitClass()
{
    Form form("mm", "mm");
    Box *box = form.m_box;
    QDoubleSpinBox *base = box;
    box->setEmpty(true);
    base->setValue(12.3456);
    QCOMPARE(box->text(), QString("12.35 mm"));
    QVERIFY(!box->isEmpty() && !box->isNeedInputStatus());
    base->setDecimals(1);
    QCOMPARE(box->text(), QString("12.3 mm"));
    base->setValue(box->value() + 0.0001);
    QVERIFY(isNear(box->value(), 12.3457) && box->maximum() == 99.99);
    base->setCorrectionMode(Box::CorrectToNearestValue);
    QVERIFY(form.start());
    form.enter("x");
    QVERIFY(isNear(box->value(), 12.3457));
    form.enter("500");
    QCOMPARE(box->value(), 99.99);
    box->setEmpty(true);
    base->setMaximum(50.0);
    QVERIFY(box->isEmpty() && box->value() == 50.0);
}

void tst_BVDoubleSpinBox::keepsDigits()
{
    const double value = 12.3456789012345;
    QLocale::setDefault(QLocale::German);
    for (const char *choice : {"mm", "inch", "m"}) {
        Form form("mm", choice);
        form.m_box->setValue(value);
        QVERIFY(form.start());
        for (int i = 0; i < 50; ++i) {
            form.m_box->setFocus();
            QTest::keyClick(form.m_box, Qt::Key_End);
            QTest::keyClicks(form.m_box, "x\b");
            if (i % 2)
                QTest::keyClick(form.m_box, Qt::Key_Return);
            form.m_other->setFocus();
            QCOMPARE(form.m_box->value(), value);
        }
    }
}

void tst_BVDoubleSpinBox::tolerance()
{
    const auto toleranceOf = [](const QString &unit, const char *display, BVFormatter::OutputNotation notation) {
        Box box;
        box.setUnitString(unit);
        box.setUnitDisplayTag(UnitConverter::TagFromUnit(display));
        box.setDecimals(3);
        box.setNotation(notation);
        return box.tolerance();
    };
    QVERIFY(isNear(1e4 * toleranceOf("K", "degF", BVFormatter::Fixed), 1.0 / 1.8)); // of a difference
    QVERIFY(isNear(1e4 * toleranceOf("degC", "K", BVFormatter::Fixed), 1.0));
    QCOMPARE(toleranceOf("m", "mm", BVFormatter::Automatic), 1e-6);
    Box box;
    QCOMPARE(box.toValidValue(-0.00005), 0.0);
    QCOMPARE(box.toValidValue(-0.0002), -0.0002);
}

void tst_BVDoubleSpinBox::empty()
{
    Form form("mm", "mm");
    Box *box = form.m_box;
    box->setValue(7.0);
    QSignalSpy announced(box, &Box::emptyChanged);
    box->setEmpty(true);
    QCOMPARE(box->text(), QString("mm"));
    QVERIFY(box->isNeedInputStatus() && box->value() == 7.0);
    QVERIFY(form.start());
    form.m_other->setFocus(); // empty stays empty
    QVERIFY(box->isEmpty());
    box->setFocus();
    form.enter("5x");
    QVERIFY(box->isEmpty() && box->value() == 7.0);
    QTest::keyClick(box, Qt::Key_Home);
    QTest::keyClicks(box, "7"); // in front of the unit
    QTest::keyClick(box, Qt::Key_Return);
    QVERIFY(!box->isEmpty() && !box->isNeedInputStatus());
    QCOMPARE(box->text(), QString("7.00 mm"));
    box->setAcceptEmpty(true);
    form.enter("");
    QVERIFY(box->isEmpty() && !box->isNeedInputStatus() && box->value() == 7.0);
    box->stepBy(1);
    QTRY_COMPARE(box->text(), QString("8.00 mm"));
    box->setNeedInputStatus(true); // by the application
    box->setSpecialValueText("none");
    box->setMinimum(8.0);
    box->setEmpty(true);
    form.m_other->setFocus();
    QCOMPARE(box->text(), QString("mm"));
    box->setValue(8.0);
    QCOMPARE(box->text(), QString("none"));
    QVERIFY(box->isNeedInputStatus());
    QCOMPARE(announced.last().first().toBool(), false);
}

void tst_BVDoubleSpinBox::hostileNumbers()
{
    const double numbers[] = {s_nan, s_inf, -s_inf, 0.0, -0.0, 5e-324, 1e-310, DBL_MAX, -DBL_MAX, 1e300, -1.0};
    Box box;
    for (int mode = 0; mode < 8; ++mode) {
        box.setWrapping(mode & 1);
        box.setLogarithmic(mode & 2);
        box.setSnapToSteps(mode & 4);
        for (const double limit : numbers) {
            box.setMaximum(limit);
            for (const double number : numbers) {
                box.setMinimum(number);
                box.setValue(limit);
                box.setSingleStep(number);
                box.setFactor(number);
                box.slideValue(-3, true);
                box.slideValue(2000000000, false);
                QCoreApplication::sendPostedEvents(&box);
                box.setValue(number);
                QVERIFY(box.value() >= box.minimum() && box.value() <= box.maximum());
            }
        }
    }
}

void tst_BVDoubleSpinBox::unitChoice()
{
    Form form("mm", "mm");
    form.m_box->setRange(0.0, 254000.0);
    form.m_box->setValue(25.4);
    QSignalSpy shown(form.m_box, &Box::displayUnitChanged);
    const int width = form.m_box->sizeHint().width();
    UnitsConfiguration::instance().setCurrentUnit(Length::Length, "m");
    QCOMPARE(form.m_box->text(), form.m_box->getFormatter()->textFromValue(25.4, false));
    QCOMPARE(shown.count(), 1);
    QVERIFY(form.m_box->sizeHint().width() != width && form.m_box->isDifferentUnit());
    form.m_box->setUnitString("degC");
    QVERIFY(form.m_box->setUnitDisplayTag(UnitConverter::TagFromUnit("degF")));
    form.m_box->setRangeInDisplayUnit(32.0, 212.0);
    form.m_box->setValue(10.0);
    form.m_box->setSlideSteps(10);
    QVERIFY(isNear(form.m_box->linearSlide(1.0), 68.0));
}

void tst_BVDoubleSpinBox::look()
{
    Form form("mm", "mm");
    Box *box = form.m_box;
    const int width = box->sizeHint().width();
    box->setRange(-1e9, 1e300);
    QVERIFY(box->sizeHint().width() > width && box->sizeHint().width() < 4 * width);
    box->setValue(1e6);
    box->setComboType(Box::ComboInFront);
    QCOMPARE(box->property("comboType").toString(), QString("ComboInFront")); // what sheets select on
    QCOMPARE(box->property("layoutDirection").toString(), QString("LeftToRight"));
    QVERIFY(box->toolTipText().contains("1000 m"));
    box->setPrefix("about ");
    box->setFactor(2.5);
    box->setFactor(s_nan);
    box->setPrefix("near ");
    QCOMPARE(box->prefix(), QStringLiteral("near 2.5 \u00d7 "));
    box->setFactor(1.0);
    QCOMPARE(box->prefix(), QString("near "));
}

QTEST_MAIN(tst_BVDoubleSpinBox)
#include "tst_bvdoublespinbox.moc"
