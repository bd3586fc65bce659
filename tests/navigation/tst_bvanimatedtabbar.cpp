// SPDX-License-Identifier: MIT
#include "navigation/BVAnimatedOPTabBar.h"
#include "platform/WidgetTrackerSingleton.h"
#include "style/StyleSheetHandler.h"

#include "TestSupport.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QWheelEvent>

#include <functional>

namespace {

/// Shows or forbids animations; tool tips come soon.
class MotionStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget, QStyleHintReturn *data) const override
    {
        if (hint == SH_Widget_Animate)
            return int(m_animates);
        if (hint == SH_ToolTip_WakeUpDelay)
            return 5;
        return hint == SH_Widget_Animation_Duration ? 100 : QProxyStyle::styleHint(hint, option, widget, data);
    }
    bool m_animates = false;
};

MotionStyle *motionStyle()
{
    return static_cast<MotionStyle *>(QApplication::style());
}

/// A bar with the tabs a, b, c, d, of which c is disabled; what it tells is noted.
struct Scene
{
    Scene()
        : m_bar(new BVAnimatedTabBar(&m_window))
    {
        m_window.resize(800, 100);
        m_bar->resize(800, m_bar->sizeHint().height());
        m_bar->addTabs(QList<QString>{"aaaa", "bbbb", "cccc", "dddd"});
        m_bar->useCloseButtons(true);
        for (int i = 0; i < 4; ++i)
            m_bar->useMenuButton(i, true);
        m_bar->setTabEnabled(2, false);
        note("current", &BVAnimatedTabBar::currentChanged);
        note("marked", &BVAnimatedTabBar::markedChanged);
        note("double", &BVAnimatedTabBar::doubleClicked);
        note("close", &BVAnimatedTabBar::closeButtonClicked);
        note("menu", &BVAnimatedTabBar::menuButtonClicked);
        m_window.show();
        QApplication::setActiveWindow(&m_window);
        m_bar->setFocus();
    }
    void note(const char *name, void (BVAnimatedTabBar::*signal)(int))
    {
        QObject::connect(m_bar, signal, [this, name](int index) { m_log += QStringLiteral("%1 %2 ").arg(name).arg(index); });
    }
    /// A tab's text (""), its close button ("x"), its menu button ("v") or a place beside the tabs.
    QPoint place(const QString &name) const
    {
        const int index = name.at(0).unicode() - 'a';
        const QRect tab = m_bar->getTabRect(index);
        if (tab.isEmpty())
            return QPoint(790, 20);
        if (name.endsWith('x') || name.endsWith('v'))
            return QPoint(tab.right() - (name.endsWith('x') ? 15 : 31), tab.center().y());
        return QPoint(tab.left() + 20, tab.center().y());
    }
    /// Steps such as "press bx", "release b", "click a", "double a", "key Home", "remove b".
    void run(const QString &steps)
    {
        for (const QString &step : steps.split(", ", Qt::SkipEmptyParts)) {
            const QString what = step.section(' ', 0, 0);
            const QString on = step.section(' ', 1);
            if (what == "press" || what == "click")
                QTest::mousePress(m_bar, Qt::LeftButton, {}, place(on));
            if (what == "double") // as the toolkit delivers it: the second press is another event
                QTest::mouseDClick(m_bar, Qt::LeftButton, {}, place(on));
            if (m_bar && (what == "release" || what == "click" || what == "double"))
                QTest::mouseRelease(m_bar, Qt::LeftButton, {}, place(on));
            if (what == "right")
                QTest::mouseClick(m_bar, Qt::RightButton, {}, place(on));
            if (what == "key")
                QTest::keySequence(m_bar, QKeySequence(on));
            if (what == "remove")
                m_bar->removeTab(on.at(0).unicode() - 'a');
            if (what == "disable")
                on.isEmpty() ? m_bar->setEnabled(false) : m_bar->setTabEnabled(0, false);
            if (what == "hide" || what == "show")
                m_bar->setVisible(what == "show");
            if (what == "delete")
                delete m_bar.data();
            if (what == "leave")
                m_window.hide();
            if (what == "lonely")
                m_bar->setHideTabBarForOne(true);
            if (what == "nomenu")
                m_bar->useMenuButton(0, false);
            if (what == "block") // by a dialog
                send(QEvent(QEvent::WindowBlocked));
            if (what == "repeat")
                send(QKeyEvent(QEvent::KeyPress, Qt::Key_Delete, {}, QString(), true));
            if (what == "move")
                send(QMouseEvent(QEvent::MouseMove, place(on), Qt::NoButton, {}, {}));
            if (what == "choose")
                QAccessible::queryAccessibleInterface(m_bar)->child(1)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
            if (what == "settle") // longer than a menu keeps one waiting
                QTest::qWait(150);
            if (what == "wait")
                QTRY_VERIFY_WITH_TIMEOUT(m_log.contains("menu"), 2000);
        }
    }
    template <typename Event>
    void send(Event event)
    {
        QApplication::sendEvent(m_bar, &event);
    }

    QWidget m_window;
    QPointer<BVAnimatedTabBar> m_bar;
    QString m_log;
};

QString urlName(const QString &url)
{
    return url.section("op_tab_icon_", 1).section('.', 0, 0);
}

} // namespace

class tst_BVAnimatedTabBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void input_data();
    void input();
    void clickRecords_data();
    void clickRecords();
    void menus();
    void slotsThatDelete();
    void nothingStaysPressed();
    void menusAmongChanges();
    void menusThatClose_data();
    void menusThatClose();
    void menuActionGoesOn();
    void releaseKeepsView();
    void changes();
    void wheel();
    void rightToLeftKeys();
    void lookUps();
    void hidesForOne();
    void toolButtons();
    void followsStyle();
    void toolTips();
    void layoutIsLazy();
    void motion();
    void accessibility();
    void operationIcons_data();
    void operationIcons();
    void textReducing_data();
    void textReducing();
    void reducedTogether();
};

void tst_BVAnimatedTabBar::initTestCase()
{
    muteOffscreenWarnings();
    QApplication::setStyle(new MotionStyle);
}

void tst_BVAnimatedTabBar::input_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("log");
    QTest::newRow("a tab") << "click b"
                           << "current 1 ";
    QTest::newRow("the current tab") << "click a"
                                     << "";
    QTest::newRow("a disabled tab") << "click c"
                                    << "";
    QTest::newRow("its close button") << "click cx"
                                      << "";
    QTest::newRow("beside the tabs") << "click z"
                                     << "";
    QTest::newRow("another button") << "right b"
                                    << "";
    QTest::newRow("close the current") << "click ax"
                                       << "close 0 ";
    QTest::newRow("close another") << "click bx"
                                   << "current 1 close 1 ";
    QTest::newRow("close and think better") << "press ax, release a"
                                            << "";
    QTest::newRow("close and leave") << "press ax, release z"
                                     << "";
    QTest::newRow("press elsewhere") << "press cx, release ax"
                                     << "";
    QTest::newRow("closed by a slot's removal") << "press ax, remove a, release bx"
                                                << "current 0 ";
    QTest::newRow("menu") << "press av, wait"
                          << "menu 0 ";
    QTest::newRow("short click on the menu") << "click av, wait"
                                             << "menu 0 ";
    QTest::newRow("menu of another only selects") << "click bv"
                                                  << "current 1 ";
    QTest::newRow("menu of a tab that goes") << "press av, remove a"
                                             << "current 0 ";
    QTest::newRow("double click") << "double b"
                                  << "current 1 double 1 ";
    QTest::newRow("double click on a button") << "click bx, double bx"
                                              << "current 1 close 1 close 1 ";
    QTest::newRow("keys skip the disabled") << "key Right, key Right, key Right"
                                            << "current 1 current 3 ";
    QTest::newRow("back and end") << "key End, key Left, key Home"
                                  << "current 3 current 1 current 0 ";
    QTest::newRow("close by key") << "key Right, key Del"
                                  << "current 1 close 1 ";
    QTest::newRow("one press does one thing") << "press av, release ax, settle"
                                              << "close 0 ";
    QTest::newRow("menu button goes") << "click av, nomenu, settle"
                                      << "";
    QTest::newRow("tab gets disabled") << "click av, disable a, settle"
                                       << "menu 0 "; // is current
    QTest::newRow("bar gets disabled") << "click av, disable, settle"
                                       << "";
    QTest::newRow("bar gets hidden") << "click av, hide, settle"
                                     << "";
    QTest::newRow("held key closes once") << "key Del, repeat, repeat"
                                          << "close 0 ";
    QTest::newRow("menu by key") << "key Alt+Down"
                                 << "menu 0 ";
}

void tst_BVAnimatedTabBar::input()
{
    QFETCH(QString, steps);
    Scene scene;
    scene.run(steps);
    if (steps.contains("remove"))
        QTest::qWait(0);
    QTEST(scene.m_log, "log");
}

void tst_BVAnimatedTabBar::clickRecords_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("records");
    QTest::newRow("tab") << "click b"
                         << "TAB CLICKED\n\nTab: bbbb\nIndex: 1|";
    QTest::newRow("close") << "click bx"
                           << "TAB CLICKED\n\nTab: bbbb\nIndex: 1\nCloseButton: Pressed|";
    QTest::newRow("menu") << "click av"
                          << "TAB CLICKED\n\nTab: aaaa\nIndex: 0\nMenuButton: Pressed|";
    QTest::newRow("menu of another") << "click bv"
                                     << "TAB CLICKED\n\nTab: bbbb\nIndex: 1|";
    QTest::newRow("disabled") << "click c"
                              << "";
    QTest::newRow("no tab") << "click z"
                            << "";
    QTest::newRow("key") << "key Right"
                         << "";
}

void tst_BVAnimatedTabBar::clickRecords()
{
    QFETCH(QString, steps);
    QString records;
    const auto listening = WidgetTrackerSingleton::getInstance().listen([&](const QString &record) { records += record + '|'; });
    Scene scene;
    connect(scene.m_bar, &BVAnimatedTabBar::closeButtonClicked, scene.m_bar, &BVAnimatedTabBar::removeTab);
    scene.run(steps);
    QTEST(records, "records");
}

void tst_BVAnimatedTabBar::menus()
{
    for (const bool removed : {false, true}) {
        Scene scene;
        QMenu menu;
        menu.addAction("action");
        QPoint corner;
        connect(scene.m_bar, &BVAnimatedTabBar::menuButtonClicked, [&](int index) {
            QTimer::singleShot(0, &menu, [&] {
                corner = menu.pos();
                scene.m_bar->showMenu(1, menu); // one at a time
                if (removed)
                    scene.m_bar->removeTab(0);
                else
                    menu.close();
            });
            scene.m_bar->showMenu(index, menu);
        });
        scene.run("press av, wait");
        QTRY_VERIFY(!menu.isVisible());
        const QPoint button = scene.m_bar->mapToGlobal(scene.place("av"));
        if (!removed)
            QVERIFY((corner - button).manhattanLength() < 20 && corner.y() > button.y());
        QCOMPARE(scene.m_log, removed ? "menu 0 current 0 " : "menu 0 ");
        scene.m_log.clear();
        scene.run("click av, wait"); // the next press asks again
        QCOMPARE(scene.m_log.left(6), QString("menu 0"));
    }
}

void tst_BVAnimatedTabBar::slotsThatDelete()
{
    using Signal = void (BVAnimatedTabBar::*)(int);
    const QPair<Signal, QString> cases[] = {{&BVAnimatedTabBar::currentChanged, "click bx"},
                                            {&BVAnimatedTabBar::closeButtonClicked, "click ax"},
                                            {&BVAnimatedTabBar::menuButtonClicked, "key Alt+Down"},
                                            {&BVAnimatedTabBar::doubleClicked, "double a"},
                                            {&BVAnimatedTabBar::currentChanged, "choose b"}};
    for (const auto &one : cases) {
        Scene scene;
        const QString steps = one.second.startsWith("click") ? "press" + one.second.mid(5) : one.second;
        connect(scene.m_bar, one.first, [&] { delete scene.m_bar; });
        scene.run(steps);
        if (scene.m_bar)
            scene.run("release" + one.second.mid(5));
        QVERIFY(!scene.m_bar);
    }
    QPointer<BVAnimatedTabBar> bar = new BVAnimatedTabBar;
    connect(bar, &BVAnimatedTabBar::currentChanged, [&] { delete bar; });
    bar->addTabs({"a", "b"}, {1, 2});
    QVERIFY(!bar);
}

/// However a press ends, no button stays pressed.
void tst_BVAnimatedTabBar::nothingStaysPressed()
{
    const QPair<QString, int> cases[] = {{"click av, click b, click bv, settle", 1},
                                         {"press ax, block", 0},
                                         {"press ax, move z", 0},
                                         {"press ax, press b, release b", 1},
                                         {"click av, hide, show", 0}};
    for (const auto &one : cases) {
        Scene scene;
        scene.run(one.first);
        Scene other;
        other.m_bar->setCurrentIndex(one.second);
        for (Scene *each : {&scene, &other}) {
            each->m_bar->clearFocus();
            each->m_bar->onHoveredIndexChanged(-1);
        }
        QVERIFY2(scene.m_bar->grab().toImage() == other.m_bar->grab().toImage(), qPrintable(one.first));
    }
}

/// Those who hear of the click or of the closing menu find the tabs as they are.
void tst_BVAnimatedTabBar::menusAmongChanges()
{
    for (const bool atRecord : {true, false}) {
        Scene scene;
        QMenu menu;
        menu.addAction("action");
        QPair<int, int> found(-2, -2);
        connect(&menu, &QMenu::aboutToHide, [&] { found = {scene.m_bar->currentIndex(), scene.m_bar->count()}; });
        connect(scene.m_bar, &BVAnimatedTabBar::menuButtonClicked, [&](int index) {
            QTimer::singleShot(0, scene.m_bar, [&] { scene.m_bar->clearTabs(); });
            scene.m_bar->showMenu(index, menu);
        });
        const auto listening = WidgetTrackerSingleton::getInstance().listen([&](const QString &) {
            if (atRecord)
                scene.m_bar->clearTabs();
        });
        scene.run("press av, wait");
        QTRY_COMPARE(scene.m_bar->count(), 0);
        QCOMPARE(found, atRecord ? qMakePair(-2, -2) : qMakePair(-1, 0));
    }
    QMenu menu;
    menu.addAction("action");
    Scene scene;
    QTimer::singleShot(0, scene.m_bar, [&] { delete scene.m_bar; });
    scene.m_bar->showMenu(0, menu); // closes with the bar
    QVERIFY(!menu.isVisible() && !scene.m_bar);
}

void tst_BVAnimatedTabBar::menusThatClose_data()
{
    QTest::addColumn<QString>("atShow");
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("atHide");
    QTest::addColumn<QString>("log");
    QTest::newRow("bar gets hidden") << ""
                                     << "hide"
                                     << "delete"
                                     << "";
    QTest::newRow("window gets hidden") << ""
                                        << "leave"
                                        << "delete"
                                        << "";
    QTest::newRow("one tab left") << ""
                                  << "lonely, remove d, remove c, remove b"
                                  << "delete"
                                  << "";
    QTest::newRow("bar goes") << ""
                              << "delete"
                              << "delete"
                              << "";
    QTest::newRow("tab goes before it shows") << "remove a"
                                              << ""
                                              << ""
                                              << "current 0 ";
    QTest::newRow("next tab goes as well") << ""
                                           << "remove a"
                                           << "remove a"
                                           << "current 0 current 1 ";
}

/// Whatever closes a menu, its slots may do what they like.
void tst_BVAnimatedTabBar::menusThatClose()
{
    QFETCH(QString, atShow);
    QFETCH(QString, steps);
    QFETCH(QString, atHide);
    Scene scene;
    QMenu menu;
    menu.addAction("action");
    connect(&menu, &QMenu::aboutToShow, [&] { scene.run(atShow); });
    connect(&menu, &QMenu::aboutToHide, [&] { scene.run(atHide); });
    QTimer::singleShot(0, &menu, [&] { scene.run(steps); });
    QTimer::singleShot(3000, &menu, [&] {
        scene.m_log += "stayed open ";
        menu.close();
    });
    scene.m_bar->showMenu(0, menu);
    QCOMPARE(scene.m_bar.isNull(), atHide == "delete");
    QTEST(scene.m_log, "log");
}

/// The menu button is pressed no longer than the menu is open, though its action may show a dialog.
void tst_BVAnimatedTabBar::menuActionGoesOn()
{
    Scene scene;
    scene.m_bar->clearFocus();
    const QImage idle = scene.m_bar->grab().toImage();
    QImage meanwhile;
    QMenu menu;
    QAction *action = menu.addAction("action", [&] {
        scene.run("block");
        meanwhile = scene.m_bar->grab().toImage();
    });
    QTimer::singleShot(0, &menu, [&] { QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center()); });
    scene.m_bar->showMenu(0, menu);
    QVERIFY(meanwhile == idle);
}

void tst_BVAnimatedTabBar::releaseKeepsView()
{
    Scene scene;
    scene.m_bar->setFixedWidth(200);
    scene.m_bar->setCurrentIndex(3);
    const QPoint arrow(9, 20);
    QTest::mouseClick(scene.m_bar, Qt::LeftButton, {}, arrow);
    const QRect scrolled = scene.m_bar->getTabRect(3);
    QVERIFY(scrolled.right() >= 200);
    QTest::mouseClick(scene.m_bar, Qt::LeftButton, {}, QPoint(100, 1)); // above the tabs
    QCOMPARE(scene.m_bar->getTabRect(3), scrolled);
    QTest::mousePress(scene.m_bar, Qt::LeftButton, {}, QPoint(100, 20));
    QMouseEvent move(QEvent::MouseMove, QPoint(196, 20), Qt::NoButton, Qt::LeftButton, {}); // over the other arrow
    QApplication::sendEvent(scene.m_bar, &move);
    QTRY_VERIFY(scene.m_bar->getTabRect(3).right() < 200);
    QTest::mouseRelease(scene.m_bar, Qt::LeftButton, {}, QPoint(196, 20));
    scene.m_log.clear();
    QTest::mouseDClick(scene.m_bar, Qt::LeftButton, {}, arrow);
    QTest::mouseRelease(scene.m_bar, Qt::LeftButton, {}, arrow);
    QCOMPARE(scene.m_log, QString());
}

void tst_BVAnimatedTabBar::changes()
{
    Scene scene;
    BVAnimatedTabBar &bar = *scene.m_bar;
    bar.setMarkedIndex(1);
    QCOMPARE(bar.insertTab(0, "new", "tip"), 0);
    QCOMPARE(QPoint(bar.currentIndex(), bar.markedIndex()), QPoint(1, 2));
    QCOMPARE(bar.insertTab(99, "last"), 5);
    bar.removeTab(0);
    QCOMPARE(scene.m_log, QString("marked 1 "));
    bar.setCurrentIndex(1);
    bar.removeTab(1); // the next one is disabled
    QCOMPARE(scene.m_log, QString("marked 1 current 1 current 2 marked -1 "));
    QCOMPARE(bar.getItemText(bar.currentIndex()), QString("dddd"));
    bar.setData(0, 7);
    QCOMPARE(bar.tabData(0).toInt() + bar.data(0, Qt::UserRole).toInt(), 14);
    for (const int index : {-2, 4}) { // no such tab
        bar.setCurrentIndex(index);
        bar.setMarkedIndex(index);
        bar.removeTab(index);
        bar.setItemText(index, "x");
        bar.setDarkStyle(index, true);
        QVERIFY(!bar.data(index, Qt::UserRole).isValid() && bar.getTabRect(index).isNull());
    }
    scene.m_log.clear();
    bar.clearTabs();
    QCOMPARE(scene.m_log, QString("current -1 "));
    QCOMPARE(bar.count(), 0);
    bar.addTabs({"x", "y"}, {5});
    QCOMPARE(bar.tabData(0), QVariant(5));
    QVERIFY(!bar.tabData(1).isValid());
    QCOMPARE(scene.m_log, QString("current -1 current 0 "));
}

void tst_BVAnimatedTabBar::wheel()
{
    Scene scene;
    const auto turn = [&](int delta) {
        QWheelEvent event({9, 9}, scene.m_bar->mapToGlobal(QPoint(9, 9)), {}, {0, delta}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(scene.m_bar, &event);
        return event.isAccepted();
    };
    scene.m_bar->clearFocus();
    QVERIFY(!turn(-120));
    scene.m_bar->setFocus();
    QVERIFY(turn(-60) && turn(-60)); // one step
    turn(-240);                      // skips the disabled and does not wrap
    turn(120);
    turn(360);
    QCOMPARE(scene.m_log, QString("current 1 current 3 current 1 current 0 "));
}

void tst_BVAnimatedTabBar::rightToLeftKeys()
{
    Scene scene;
    scene.m_bar->setLayoutDirection(Qt::RightToLeft);
    QVERIFY(scene.m_bar->getTabRect(0).left() > scene.m_bar->getTabRect(1).right());
    scene.run("key Left, key Right");
    QCOMPARE(scene.m_log, QString("current 1 current 0 "));
}

void tst_BVAnimatedTabBar::lookUps()
{
    Scene scene;
    BVAnimatedTabBar &bar = *scene.m_bar;
    QCOMPARE(bar.getTabCoordinates(1), bar.getTabRect(1).center());
    QCOMPARE(bar.getTabCoordinates("bbbb"), bar.getTabRect(1).center());
    QCOMPARE(bar.getIndexAtPosition(bar.getTabCoordinatesMappedToGlobal("bbbb")), 1);
    QCOMPARE(bar.getIndexAtPosition(bar.mapToGlobal(QPoint(790, 20))), -1);
    QVERIFY(bar.getTabCoordinates("none").isNull() && bar.getTabCoordinatesMappedToGlobal("none").isNull());
    bar.setFixedWidth(150); // tabs out of sight are not under the pointer, the current one is in sight
    bar.setCurrentIndex(3);
    QVERIFY(bar.rect().contains(bar.getTabRect(3)));
    QVERIFY(!bar.rect().intersects(bar.getTabRect(0)));
    QCOMPARE(bar.getIndexAtPosition(bar.mapToGlobal(bar.getTabCoordinates(0))), -1);
}

void tst_BVAnimatedTabBar::hidesForOne()
{
    QWidget window;
    BVAnimatedTabBar bar(&window);
    window.show();
    bar.show();
    bar.addTab("a");
    bar.setHideTabBarForOne(true);
    QVERIFY(!bar.isVisible());
    bar.show();
    QVERIFY(!bar.isVisible());
    bar.addTab("b");
    QVERIFY(bar.isVisible());
    bar.hide();
    bar.removeTab(0);
    bar.addTab("c");
    QVERIFY(!bar.isVisible());
}

void tst_BVAnimatedTabBar::toolButtons()
{
    Scene scene;
    BVAnimatedTabBar &bar = *scene.m_bar;
    const int width = bar.sizeHint().width();
    QToolButton *button = bar.addButton(QIcon(), "Add");
    QToolButton *second = bar.addButton(QIcon(), "More");
    QVERIFY(button->inherits("BVButton")); // for which the sheets read the properties
    QVERIFY(button->autoRaise() && button->property("flatIcon").toBool() && button->property("tabBar").toBool());
    QCOMPARE(button->minimumHeight(), 22);
    QCOMPARE(bar.layout()->contentsMargins(), QMargins(1, 3, 2, 0));
    QCOMPARE(bar.layout()->spacing(), 3);
    QVERIFY(qobject_cast<QHBoxLayout *>(bar.layout())->itemAt(0)->spacerItem());
    QVERIFY(bar.sizeHint().width() > width);
    QApplication::processEvents();
    QCOMPARE(second->geometry().right() + 1, bar.width() - 2);
    QVERIFY(button->geometry().right() < second->x());
}

void tst_BVAnimatedTabBar::followsStyle()
{
    Brimvale::StyleSheetHandler sheets(true);
    sheets.load(":/Style/General/BVSimpleApplication.css");
    Scene scene;
    const auto sizeFor = [&](int points) {
        sheets.setDefinedFontSize(points);
        scene.m_window.setStyleSheet(sheets.getStyleSheet());
        return scene.m_bar->sizeHint();
    };
    const QSize small = sizeFor(11);
    const QSize large = sizeFor(22);
    QCOMPARE(scene.m_bar->font().pointSize(), 22);
    QVERIFY(large.width() > small.width() && large.height() > small.height());
}

void tst_BVAnimatedTabBar::toolTips()
{
    Scene scene;
    BVAnimatedTabBar &bar = *scene.m_bar;
    const auto tip = [&] {
        QToolTip::hideText();
        bar.onHoveredIndexChanged(-1);
        bar.onHoveredIndexChanged(0);
        bar.onShowToolTip();
        return QToolTip::text();
    };
    QCOMPARE(tip(), QString());
    bar.setItemToolTip(0, "tip");
    QCOMPARE(tip(), QString("tip"));
    bar.setItemText(0, "a text that is far too long for the bar");
    bar.setFixedWidth(300);
    QCOMPARE(tip(), QString("a text that is far too long for the bar\ntip"));
    bar.setItemToolTip(0, QString());
    bar.setItemText(0, "<b>a plain text</b> that is far too long");
    QVERIFY(tip().contains("&lt;b&gt;a plain text"));
    QToolTip::hideText();
    scene.run("move b, move a");
    QTRY_VERIFY(QToolTip::text().contains("plain"));
    for (const QString &step : {QString("press a"), QString("key Left")}) {
        scene.run("move z, move a, " + step);
        QTest::qWait(50);
        QVERIFY2(QToolTip::text().isEmpty(), qPrintable(step));
    }
}

void tst_BVAnimatedTabBar::layoutIsLazy()
{
    QWidget window;
    auto *layout = new QHBoxLayout(&window);
    auto *bar = new BVAnimatedTabBar(&window);
    layout->addWidget(bar);
    window.show();
    QApplication::processEvents();
    EventCounter layouts(&window, QEvent::LayoutRequest);
    EventCounter paints(bar, QEvent::Paint);
    for (int i = 0; i < 500; ++i)
        bar->addTab(QString::number(i));
    QCOMPARE(layouts.count() + paints.count(), 0);
    QApplication::processEvents();
    QCOMPARE(layouts.count(), 1);
    QTRY_COMPARE(paints.count(), 1);
}

void tst_BVAnimatedTabBar::motion()
{
    for (const bool animates : {true, false}) {
        motionStyle()->m_animates = animates;
        Scene scene;
        QApplication::processEvents();
        EventCounter paints(scene.m_bar, QEvent::Paint);
        EventCounter timers(scene.m_bar, QEvent::Timer);
        scene.m_bar->setCurrentIndex(1);
        QTest::qWait(250);
        QCOMPARE(paints.count() > 1, animates);
        paints.reset();
        QTest::qWait(50); // at rest
        QCOMPARE(paints.count(), 0);
    }
    motionStyle()->m_animates = false;
}

void tst_BVAnimatedTabBar::accessibility()
{
    Scene scene;
    BVAnimatedTabBar &bar = *scene.m_bar;
    bar.setWidgetStatus(1, BVWidgetStatus::NeedInput);
    bar.setItemToolTip(1, "tip");
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(&bar);
    QCOMPARE(list->role(), QAccessible::PageTabList);
    QCOMPARE(list->childCount(), 4);
    QAccessibleInterface *tab = list->child(1);
    QCOMPARE(tab->role(), QAccessible::PageTab);
    QCOMPARE(tab->text(QAccessible::Name), QString("bbbb"));
    bar.setMarkedIndex(1);
    QCOMPARE(tab->text(QAccessible::Description), QString("needs input, marked"));
    QCOMPARE(tab->text(QAccessible::Help), QString("tip"));
    QVERIFY(!tab->state().selected && list->child(2)->state().disabled);
    const QRect place = tab->rect();
    QCOMPARE(list->childAt(place.center().x(), place.center().y()), tab);
    const auto act = [](QAccessibleInterface *on, const QString &action) { on->actionInterface()->doAction(action); };
    act(tab, QAccessibleActionInterface::pressAction());
    QVERIFY(tab->state().selected && tab->state().focused);
    QCOMPARE(list->focusChild(), tab);
    act(list->child(2), QAccessibleActionInterface::pressAction()); // disabled
    act(tab, "Close");
    act(tab, QAccessibleActionInterface::showMenuAction());
    QCOMPARE(scene.m_log, QString("marked 1 current 1 close 1 menu 1 "));
    QVERIFY(list->child(2)->actionInterface()->actionNames().isEmpty());
    bar.setTabEnabled(1, false); // current, so that its buttons work
    QVERIFY(tab->actionInterface()->actionNames().contains("Close"));
    bar.removeTab(0);
    QCOMPARE(list->indexOfChild(tab), 0);
    bar.removeTab(0);
    QVERIFY(!tab->isValid() && tab->state().invalid && !tab->actionInterface()->actionNames().size());
    QCOMPARE(list->childCount(), 2);
    QCOMPARE(list->child(1)->text(QAccessible::Name), QString("dddd"));
}

void tst_BVAnimatedTabBar::operationIcons_data()
{
    QTest::addColumn<QVector<int>>("roles");
    QTest::addColumn<bool>("dark");
    QTest::addColumn<QString>("icon");
    QTest::newRow("none") << QVector<int>() << false << "";
    QTest::newRow("skipped before all") << QVector<int>{270, 271, 272, 273} << false << "jump";
    QTest::newRow("locked and cycled") << QVector<int>{271, 273} << false << "lock";
    QTest::newRow("locked and dark") << QVector<int>{271, 273} << true << "lock_bright";
    QTest::newRow("semi-locked") << QVector<int>{272, 273} << false << "semi_locked";
    QTest::newRow("cycled") << QVector<int>{273} << true << "cycled";
}

void tst_BVAnimatedTabBar::operationIcons()
{
    QFETCH(QVector<int>, roles);
    QFETCH(bool, dark);
    using Setter = void (BVAnimatedOPTabBar::*)(int, bool);
    const Setter setters[] = {&BVAnimatedOPTabBar::setOperationSkipped, &BVAnimatedOPTabBar::setOperationLocked,
                              &BVAnimatedOPTabBar::setOperationSemiLocked, &BVAnimatedOPTabBar::setOperationCycled};
    BVAnimatedOPTabBar bar;
    bar.addTab("Drawing-20");
    for (const int role : roles) {
        (bar.*setters[role - 270])(0, true);
        QCOMPARE(bar.data(0, role), QVariant(true));
    }
    bar.setDarkStyle(0, dark);
    QTEST(urlName(bar.iconUrl(0)), "icon");
    QAccessibleInterface *tab = QAccessible::queryAccessibleInterface(&bar)->child(0);
    QCOMPARE(tab->text(QAccessible::Description).isEmpty(), roles.isEmpty());
    if (roles.contains(271)) {
        bar.setOperationSkipped(0, false);
        bar.setOperationLocked(0, false);
        QCOMPARE(urlName(bar.iconUrl(0)), roles.contains(272) ? "semi_locked" : "cycled");
    }
    bar.removeAllOperations();
    QCOMPARE(bar.count(), 0);
}

void tst_BVAnimatedTabBar::textReducing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("forms");
    QTest::newRow("operation") << "D-20--x" << QStringList{"D-20--x", "D20x", "20", "D"};
    QTest::newRow("numbering") << "Trim (2.1)" << QStringList{"Trim (2.1)", "Trim (2.1)", "(2.1)", "T"};
    QTest::newRow("enclosed") << "(Draw-2)" << QStringList{"(Draw-2)", "(Draw2)", "(2)", "(Dr"};
    QTest::newRow("enclosed letter") << "(D) 2" << QStringList{"(D) 2", "(D) 2", "()2", "(D)"};
    QTest::newRow("not letters") << QString::fromUtf8("-\u00e4 ") << QStringList{QString::fromUtf8("-\u00e4 "), QString::fromUtf8("\u00e4 "), "", ""};
    QTest::newRow("empty") << "" << QStringList{"", "", "", ""};
}

void tst_BVAnimatedTabBar::textReducing()
{
    QFETCH(QString, text);
    QFETCH(QStringList, forms);
    QMap<int, QString> map = {{9, "of another text"}};
    BVAnimatedOPTabBar::fillTextReducingMap(map, text);
    QCOMPARE(map.keys(), (QList<int>{0, 1, 2, 3}));
    QCOMPARE(QStringList(map.values()), forms);
}

void tst_BVAnimatedTabBar::reducedTogether()
{
    struct : BVAnimatedTabBar
    {
        using BVAnimatedTabBar::setTextReducing;
    } own;
    own.setTextReducing([](QMap<int, QString> &map, const QString &text) {
        map = text.size() > 5 ? QMap<int, QString>{{0, text}, {1, "x"}} : QMap<int, QString>{{0, text}};
    });
    own.addTabs(QList<QString>{"one\nmore", "short"});
    own.resize(own.sizeHint());
    const int shortWidth = own.getTabRect(1).width();
    own.setItemText(0, "one more");
    QCOMPARE(own.sizeHint().width(), own.width());
    own.resize(own.width() - 10, own.height());
    QCOMPARE(own.getTabRect(1).width(), shortWidth); // has no shorter form
    BVAnimatedOPTabBar bar;
    for (int i = 0; i < 6; ++i)
        bar.addTab(QStringLiteral("Drawing-%1").arg(i));
    bar.resize(bar.sizeHint());
    const int full = bar.getTabRect(5).width();
    bar.resize(bar.width() - 1, bar.height()); // hyphens go first, everywhere
    QVERIFY(bar.getTabRect(0).width() < full && bar.getTabRect(5).width() < full);
    const int shorter = bar.getTabRect(0).width();
    bar.resize(bar.getTabRect(5).right() - 20, bar.height());
    QVERIFY(bar.getTabRect(0).width() < shorter && bar.getTabRect(5).right() < bar.width());
    bar.reverseSequence(true);
    QVERIFY(bar.isImageAfterTabsMirrored() && bar.getTabRect(0).left() < bar.getTabRect(5).left());
}

QTEST_MAIN(tst_BVAnimatedTabBar)
#include "tst_bvanimatedtabbar.moc"
