// SPDX-License-Identifier: MIT
#include "TestSupport.h"
#include "platform/PropertyChangeFilter.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProxyStyle>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// Counts how often each widget is polished.
class CountingStyle : public QProxyStyle
{
public:
    using QProxyStyle::polish;
    using QProxyStyle::QProxyStyle;
    void polish(QWidget *widget) override
    {
        ++counts[widget];
        QProxyStyle::polish(widget);
    }

    QHash<QWidget *, int> counts;
};

/// Runs an action at the first StyleChange of a widget.
class OnStyleChange : public QObject
{
public:
    OnStyleChange(QWidget *widget, std::function<void()> action)
        : m_action(std::move(action))
    {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange && m_action)
            std::exchange(m_action, nullptr)();
        return false;
    }

private:
    std::function<void()> m_action;
};

/// A form with a label and a box that holds a line edit.
struct Form
{
    QWidget window;
    QLabel *label = new QLabel("label", &window);
    QWidget *box = new QWidget(&window);
    QLineEdit *edit = new QLineEdit(box);
};

} // namespace

class tst_PropertyChangeFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void attributeSelectorTakesEffect();
    void rulesReachInside();
    void sizeFollows();
    void withoutWidgetOrSheet();
    void requestsBecomeOne();
    void directOneServesPostedOne();
    void deletedWidgetsAreDropped();
    void whileChildrenAreDeleted();
    void requestWhileServedWaits();
    void filterFollowsNamedProperties();

private:
    /// How often the widget has been polished since the last call.
    int polished(QWidget *widget) { return m_style->counts.take(widget); }

    CountingStyle *m_style = nullptr; // belongs to the application
    std::unique_ptr<Form> m_form;
};

void tst_PropertyChangeFilter::initTestCase()
{
    muteOffscreenWarnings();
    m_style = new CountingStyle("fusion");
    QApplication::setStyle(m_style);
}

void tst_PropertyChangeFilter::init()
{
    qApp->setStyleSheet("QLineEdit[alarm=\"true\"] { color: #ff0000; }"
                        "QWidget[alarm=\"true\"] QLineEdit { color: #0000ff; }"
                        "QLabel[wide=\"true\"] { min-width: 400px; }");
    m_form = std::make_unique<Form>();
    m_form->window.show();
    QCoreApplication::sendPostedEvents();
    m_style->counts.clear();
}

void tst_PropertyChangeFilter::cleanup()
{
    m_form.reset();
    qApp->setStyleSheet(QString());
}

void tst_PropertyChangeFilter::attributeSelectorTakesEffect()
{
    QLineEdit *edit = m_form->edit;
    const QColor plain = edit->palette().color(QPalette::Text);
    const EventCounter styleChanges(edit, QEvent::StyleChange);
    edit->setProperty("alarm", true);
    PropertyChangeFilter::repolish(edit);
    QCOMPARE(edit->palette().color(QPalette::Text), QColor("#ff0000"));
    QCOMPARE(polished(edit), 1);
    QCOMPARE(styleChanges.count(), 1);

    edit->setProperty("alarm", false);
    PropertyChangeFilter::repolish(edit);
    QCOMPARE(edit->palette().color(QPalette::Text), plain);
}

void tst_PropertyChangeFilter::rulesReachInside()
{
    auto *popup = new QFrame(m_form->box, Qt::Popup); // closed, as that of a combo box
    auto *inner = new QLineEdit(popup);
    popup->show();
    popup->hide();
    m_form->box->setProperty("alarm", true);
    PropertyChangeFilter::repolish(m_form->box, false);
    QCOMPARE(polished(m_form->edit), 0);

    const QColor blue(QStringLiteral("#0000ff"));
    PropertyChangeFilter::repolish(m_form->box, true);
    PropertyChangeFilter::repolish(m_form->box, true);
    QCOMPARE(m_form->edit->palette().color(QPalette::Text), blue);
    QCOMPARE(polished(m_form->edit), 2);
    QCOMPARE(polished(m_form->label), 0);
    QVERIFY(inner->palette().color(QPalette::Text) != blue); // nobody sees it
    popup->show();
    QCOMPARE(inner->palette().color(QPalette::Text), blue);
}

void tst_PropertyChangeFilter::sizeFollows()
{
    auto *layout = new QVBoxLayout(m_form->box);
    layout->addWidget(m_form->label);
    m_form->label->show();
    QCoreApplication::sendPostedEvents();
    const EventCounter layouts(m_form->box, QEvent::LayoutRequest);
    m_form->label->setProperty("wide", true);
    PropertyChangeFilter::repolish(m_form->label);
    QCoreApplication::sendPostedEvents();
    QVERIFY(layouts.count() > 0);
    QVERIFY(m_form->box->sizeHint().width() >= 400);
}

void tst_PropertyChangeFilter::withoutWidgetOrSheet()
{
    PropertyChangeFilter::repolish(nullptr, true);
    PropertyChangeFilter::repolishPost(nullptr, true);
    QCOMPARE(PropertyChangeFilter::installFilter(nullptr, {"alarm"}), nullptr);
    QCoreApplication::sendPostedEvents();
    QVERIFY(m_style->counts.isEmpty());

    // The style may go by properties of its own accord, without a sheet.
    qApp->setStyleSheet(QString());
    m_style->counts.clear();
    PropertyChangeFilter::repolish(m_form->box, true);
    QCOMPARE(polished(m_form->box), 1);
    QCOMPARE(polished(m_form->edit), 1);
}

void tst_PropertyChangeFilter::requestsBecomeOne()
{
    for (int i = 0; i < 3; ++i) {
        PropertyChangeFilter::repolishPost(m_form->edit, i == 1);
        PropertyChangeFilter::repolishPost(m_form->box, i == 0);
        PropertyChangeFilter::repolishPost(m_form->label);
    }
    QVERIFY(m_style->counts.isEmpty());
    QCoreApplication::sendPostedEvents();
    QCOMPARE(polished(m_form->box), 1);
    QCOMPARE(polished(m_form->edit), 1); // with the box, not once more of its own
    QCOMPARE(polished(m_form->label), 1);
    QCOMPARE(polished(&m_form->window), 0);
    QCoreApplication::sendPostedEvents();
    QVERIFY(m_style->counts.isEmpty());
}

void tst_PropertyChangeFilter::directOneServesPostedOne()
{
    PropertyChangeFilter::repolishPost(m_form->edit);
    PropertyChangeFilter::repolishPost(m_form->box, true);
    PropertyChangeFilter::repolish(m_form->edit);
    PropertyChangeFilter::repolish(m_form->box, false); // less than was asked for
    m_style->counts.clear();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(polished(m_form->box), 1);
    QCOMPARE(polished(m_form->edit), 1);

    PropertyChangeFilter::repolishPost(m_form->edit);
    PropertyChangeFilter::repolish(m_form->box, true);
    PropertyChangeFilter::repolishPost(m_form->label);
    PropertyChangeFilter::repolish(m_form->label);
    PropertyChangeFilter::repolishPost(m_form->label); // comes after
    m_style->counts.clear();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(polished(m_form->edit), 0);
    QCOMPARE(polished(m_form->label), 1);
}

void tst_PropertyChangeFilter::deletedWidgetsAreDropped()
{
    PropertyChangeFilter::repolishPost(m_form->label);
    PropertyChangeFilter::repolishPost(&m_form->window, true);
    PropertyChangeFilter::repolishPost(m_form->box, true);
    delete m_form->box;
    const OnStyleChange deleter(&m_form->window, [this] { delete m_form->label; });
    QCoreApplication::sendPostedEvents();
    QCOMPARE(polished(&m_form->window), 1);
    QCOMPARE(m_style->counts.size(), 0);
}

/// As when a child's status goes with it while the form that shows it stays.
void tst_PropertyChangeFilter::whileChildrenAreDeleted()
{
    auto *last = new QLineEdit(m_form->box);
    connect(m_form->edit, &QObject::destroyed, this, [this] { PropertyChangeFilter::repolish(&m_form->window, true); });
    connect(last, &QObject::destroyed, this, [this] { PropertyChangeFilter::repolish(&m_form->window, true); });
    delete m_form->box;
    QVERIFY(polished(m_form->label) > 0);
}

void tst_PropertyChangeFilter::requestWhileServedWaits()
{
    const OnStyleChange asker(m_form->label, [this] { PropertyChangeFilter::repolishPost(m_form->label); });
    PropertyChangeFilter::repolishPost(m_form->label);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(polished(m_form->label), 1);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(polished(m_form->label), 1);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(polished(m_form->label), 0);
}

void tst_PropertyChangeFilter::filterFollowsNamedProperties()
{
    PropertyChangeFilter *filter = PropertyChangeFilter::installFilter(m_form->box, {"alarm", "other"}, true);
    QCOMPARE(filter->parent(), m_form->box);
    m_form->box->setProperty("alarm", true);
    m_form->box->setProperty("other", 1);
    m_form->edit->setProperty("alarm", true); // not on the box itself
    QVERIFY(m_style->counts.isEmpty());
    QCoreApplication::sendPostedEvents();
    QCOMPARE(polished(m_form->box), 1);
    QCOMPARE(polished(m_form->edit), 1);

    m_form->box->setProperty("unnamed", true);
    m_form->box->setProperty("alarm", true); // no change
    QCoreApplication::sendPostedEvents();
    QVERIFY(m_style->counts.isEmpty());
}

QTEST_MAIN(tst_PropertyChangeFilter)

#include "tst_propertychangefilter.moc"
