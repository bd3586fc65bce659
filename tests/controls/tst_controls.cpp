// SPDX-License-Identifier: MIT
#include "controls/BVButton.h"
#include "controls/BVCheckBox.h"
#include "controls/BVComboBox.h"
#include "controls/BVLabel.h"
#include "controls/BVLineEdit.h"
#include "controls/BVPushButton.h"
#include "controls/BVTabBar.h"
#include "controls/BVTabWidget.h"
#include "controls/BVTextEdit.h"
#include "foundation/BVStatusColor.h"
#include "foundation/BVWidgetStatusChangedEvent.h"

#include "TestSupport.h"

#include <QMenu>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <functional>

using S = BVWidgetStatus;

namespace {

const QStringList s_properties = {"needInputStatus",       "userEditStatus",        "differentStatus",      "ruvixEnabledStatus",
                                  "ruvixStandardChanged",  "ruvixActiveStatus",     "ruvixInvalidStatus",   "standardEnabledStatus",
                                  "standardDefinedStatus", "standardChangedStatus", "defaultChangedStatus", "standardDefaultStatus",
                                  "standardLockedStatus",  "compareDifferentStatus"};

struct Control
{
    QWidget *m_widget;
    BVWidgetInterface *m_interface;
};
using Factory = std::function<Control(QWidget *)>;

/// What the events of the mouse reach.
QWidget *target(const Control &control)
{
    auto *area = qobject_cast<QAbstractScrollArea *>(control.m_widget);
    return area ? area->viewport() : control.m_widget;
}

template <typename Widget>
Factory factory()
{
    return [](QWidget *parent) {
        auto *widget = new Widget(parent);
        return Control{widget, widget};
    };
}

} // namespace

Q_DECLARE_METATYPE(Factory)

class tst_Controls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void declaredProperties_data() { controls(true); }
    void declaredProperties();
    void statusChange_data() { controls(false); }
    void statusChange();
    void menuAndToolTip_data() { controls(false); }
    void menuAndToolTip();
    void wheel();
    void tabStatus();
    void tabDots();
    void tabMenu();
    void ownMenuStays();

private:
    static void controls(bool withTabWidget);
};

void tst_Controls::controls(bool withTabWidget)
{
    QTest::addColumn<Factory>("create");
    QTest::newRow("BVLabel") << factory<BVLabel>();
    QTest::newRow("BVLineEdit") << factory<BVLineEdit>();
    QTest::newRow("BVTextEdit") << factory<BVTextEdit>();
    QTest::newRow("BVCheckBox") << factory<BVCheckBox>();
    QTest::newRow("BVComboBox") << factory<BVComboBox>();
    QTest::newRow("BVPushButton") << factory<BVPushButton>();
    QTest::newRow("BVButton") << factory<BVButton>();
    if (withTabWidget)
        QTest::newRow("BVTabWidget") << factory<BVTabWidget>();
}

void tst_Controls::declaredProperties()
{
    QFETCH(Factory, create);
    QWidget window;
    const Control control = create(&window);
    const QMetaObject *meta = control.m_widget->metaObject();
    QStringList declared;
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i)
        declared << meta->property(i).name();
    QCOMPARE(declared.mid(0, s_properties.size()), s_properties);
    QVERIFY(control.m_widget->dynamicPropertyNames().isEmpty());
}

void tst_Controls::statusChange()
{
    QFETCH(Factory, create);
    QWidget window;
    window.setStyleSheet(QStringLiteral("QWidget[needInputStatus=\"true\"] { color: #ff0000; }"));
    const Control control = create(&window);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    EventCounter events(control.m_widget, BVWidgetStatusChangedEvent::s_eventType);
    EventCounter polishes(control.m_widget, QEvent::StyleChange);

    const auto shown = [&control] { return control.m_widget->palette().color(control.m_widget->foregroundRole()) == QColor(Qt::red); };
    control.m_interface->setNeedInputStatus(true);
    QCOMPARE(events.count(), 1);
    QCOMPARE(polishes.count(), 1);
    QVERIFY(shown());
    control.m_interface->setBvStatus(S::ResetAvailable, true); // no property, nothing to show
    QCOMPARE(events.count(), 2);
    QCOMPARE(polishes.count(), 1);
    control.m_interface->resetBvStatus(); // silent, but seen
    QCOMPARE(events.count(), 2);
    QVERIFY(!shown());
    S::setStatus(control.m_widget, S::NeedInput, true); // the plain form colours a control too
    QVERIFY(shown());
    QCOMPARE(events.count(), 3);
}

void tst_Controls::menuAndToolTip()
{
    QFETCH(Factory, create);
    QWidget window;
    const Control control = create(&window);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QSignalSpy actions(control.m_widget, SIGNAL(standardActionTriggered(int)));
    control.m_interface->setBvStatus(S::StandardChanged | S::ResetAvailable);

    const QPoint position = target(control)->mapToGlobal(QPoint(2, 2));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(2, 2), position);
    QApplication::sendEvent(target(control), &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->actions().constFirst()->text(), QStringLiteral("Reset Value to Standard"));
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QCOMPARE(actions.count(), 1);
    QCOMPARE(actions.first().first().toInt(), int(BVWidgetInterface::ResetValue));
    QTRY_VERIFY(!control.m_widget->findChild<QMenu *>());

    control.m_widget->setProperty("ReferenceValue", QStringLiteral("7"));
    QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), position);
    QApplication::sendEvent(target(control), &help);
    QVERIFY2(QToolTip::text().startsWith(QLatin1String("Reference value: ")), qPrintable(QToolTip::text()));
    QToolTip::hideText();
}

void tst_Controls::wheel()
{
    QScrollArea area;
    auto *page = new QWidget;
    page->setMinimumHeight(2000);
    auto *layout = new QVBoxLayout(page);
    auto *combo = new BVComboBox;
    combo->addItems({"a", "b", "c"});
    auto *tabs = new BVTabBar;
    tabs->addTab(QStringLiteral("a"));
    tabs->addTab(QStringLiteral("b"));
    layout->addWidget(combo);
    layout->addWidget(tabs);
    layout->addStretch();
    area.setWidget(page);
    area.setWidgetResizable(true);
    area.resize(300, 200);
    area.show();
    QVERIFY(QTest::qWaitForWindowActive(&area));
    area.setFocus();

    const auto turn = [](QWidget *widget) {
        const QPointF center = widget->rect().center();
        QWheelEvent event(center, widget->mapToGlobal(center.toPoint()), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(widget, &event);
        return event.isAccepted();
    };
    QVERIFY(!turn(combo)); // left to the page
    QVERIFY(!turn(tabs));
    QCOMPARE(combo->currentIndex(), 0);
    QCOMPARE(tabs->currentIndex(), 0);
    QCOMPARE(combo->focusPolicy(), Qt::StrongFocus);

    combo->setFocus();
    turn(combo);
    QCOMPARE(combo->currentIndex(), 1);
    tabs->setFocus();
    turn(tabs);
    QCOMPARE(tabs->currentIndex(), 1);
}

void tst_Controls::tabStatus()
{
    BVTabWidget tabs;
    auto *first = new QWidget;
    auto *second = new QWidget;
    S::setStatus(second, S::Different);
    tabs.addTab(first, QStringLiteral("first"));
    tabs.addTab(second, QStringLiteral("second"));
    auto *bar = tabs.findChild<BVTabBar *>();
    QCOMPARE(bar->tabStatus(1), S::Stati(S::Different));

    tabs.setNeedInputStatus(true); // the current one
    QCOMPARE(bar->tabStatus(0), S::Stati(S::NeedInput));
    QVERIFY(S::testStatusProperty(first, S::NeedInput));
    bar->moveTab(0, 1);
    QCOMPARE(bar->tabStatus(1), S::Stati(S::NeedInput));
    S::setStatus(second, S::UserEdit);
    QCOMPARE(bar->tabStatus(0), S::Stati(S::UserEdit));
    tabs.removeTab(0);
    QCOMPARE(bar->tabStatus(0), S::Stati(S::NeedInput));
    S::setStatus(second, S::Different); // without a tab
    QCOMPARE(bar->tabStatus(0), S::Stati(S::NeedInput));
    tabs.setItemText(0, QStringLiteral("only"));
    QCOMPARE(tabs.tabText(0), QStringLiteral("only"));
    delete second;
}

void tst_Controls::tabDots()
{
    BVTabBar bar;
    bar.addTab(QStringLiteral("steel"));
    const QImage plain = bar.grab().toImage();
    bar.setTabStatus(0, S::NeedInput);
    const QImage marked = bar.grab().toImage();
    QVERIFY(plain != marked);
    const QColor red = BVStatusColor::colors().forLightBackground(S::NeedInput);
    const QRect tab = bar.tabRect(0);
    QCOMPARE(QColor(marked.pixel(tab.right() - 6, tab.top() + 6)), red);
    bar.setTabStatus(0, S::StandardLocked); // never dominates
    QCOMPARE(bar.grab().toImage(), plain);
}

void tst_Controls::tabMenu()
{
    BVTabWidget tabs;
    tabs.addTab(new BVLineEdit, QStringLiteral("first"));
    auto *second = new BVLineEdit;
    tabs.addTab(second, QStringLiteral("second"));
    tabs.setBvStatus(1, S::StandardChanged | S::ResetAvailable);
    tabs.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tabs));
    auto *bar = tabs.findChild<BVTabBar *>();
    const auto ask = [&tabs, bar] { // a click on the second tab asks for the menu of its page
        const QPoint position = bar->mapTo(&tabs, bar->tabRect(1).center());
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, tabs.mapToGlobal(position));
        QApplication::sendEvent(&tabs, &event);
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    };
    QMenu *menu = ask();
    QVERIFY(menu);
    QCOMPARE(tabs.currentIndex(), 1);
    menu->close();
    tabs.setResetToStandardDisabled(true);
    QVERIFY(!ask());

    tabs.setNeedInputStatus(true);
    second->resetBvStatus(); // silent, but the tab follows
    QCOMPARE(bar->tabStatus(1), S::Stati());
}

void tst_Controls::ownMenuStays()
{
    BVComboBox combo;
    combo.setEditable(true);
    BVLabel label(QStringLiteral("DC04"));
    label.setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (const Control &control : {Control{&combo, &combo}, Control{&label, &label}}) {
        control.m_interface->setBvStatus(S::StandardChanged | S::ResetAvailable);
        control.m_widget->show();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(2, 2));
        QApplication::sendEvent(control.m_widget, &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QStringList texts;
        for (const QAction *action : menu->actions())
            texts << action->text().remove(QLatin1Char('&')).section(QLatin1Char('\t'), 0, 0);
        QCOMPARE(texts.constFirst(), QStringLiteral("Reset Value to Standard"));
        QVERIFY(texts.contains(QStringLiteral("Copy")));
        menu->close();
    }
}

QTEST_MAIN(tst_Controls)

#include "tst_controls.moc"
