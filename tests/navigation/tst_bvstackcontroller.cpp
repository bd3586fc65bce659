// SPDX-License-Identifier: MIT
#include "TestSupport.h"
#include "controls/BVTabBar.h"
#include "itemviews/BVContainerListControl.h"
#include "itemviews/BVDragTreeWidget.h"
#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVControlledTabWidget.h"
#include "navigation/BVStackContextHandler.h"
#include "navigation/BVStackControllerWidget.h"

#include <QAction>
#include <QApplication>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTranslator>

#include <functional>

namespace {

using Controller = BVStackControllerWidget;
using Entry = BVControlledStackItem;

/// A stack with the entries a, b (with b1 and b2 below) and c.
struct Scene
{
    Scene()
    {
        for (const char *name : {"a", "b", "c"})
            m_stack.addItem(new QWidget, -1)->setText(name);
        for (const char *name : {"b1", "b2"})
            m_stack.itemAt(1)->addItem(new QWidget)->setText(name);
        QObject::connect(&m_stack, &BVControlledStackWidget::itemToggled, [this](Entry *item) { m_toggled += item->getText() + " "; });
    }
    Entry *entry(const QString &name) const { return m_stack.getItemByText(name); }
    /// The names of what is checked, in capitals, or not; "-" for some below.
    QString states() const
    {
        QString states;
        const QList<Entry *> entries = m_stack.getDFSItems();
        for (const Entry *entry : entries)
            states +=
                (entry->checked() ? entry->getText().toUpper() : entry->getText()) + (entry->getCheckState() == Qt::PartiallyChecked ? "- " : " ");
        return states.trimmed();
    }
    void check(BVControlledStackWidget::CheckableItems mode, const QStringList &checked)
    {
        m_stack.setCheckableItems(mode);
        const QList<Entry *> entries = m_stack.getDFSItems();
        for (Entry *entry : entries)
            if (entry->isCheckable() && entry->itemCount() == 0)
                entry->setChecked(checked.contains(entry->getText()));
        m_toggled.clear();
    }

    Controller m_controller;
    BVControlledStackWidget m_stack{&m_controller};
    QString m_toggled;
};

/// Runs when a menu has been opened, and closes it.
void whenMenuOpens(const std::function<void(QMenu *)> &run)
{
    QTimer::singleShot(0, [run] {
        QPointer<QMenu> menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        run(menu);
        if (menu)
            menu->close();
    });
}

/// The entries, "|" for a separator, "(text)" for a disabled one.
QString contents(const QMenu *menu)
{
    QStringList texts;
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions)
        texts += action->isSeparator() ? QString("|") : action->isEnabled() ? action->text() : '(' + action->text() + ')';
    return texts.join(' ');
}

struct Handler : BVStackContextHandler
{
    bool showContextMenu(Entry *item, const QPoint &) override
    {
        m_item = item;
        return m_shows;
    }
    void addActions(Entry *, QMenu *menu) override { menu->addAction("More")->setObjectName("more"); }

    bool m_shows = false;
    Entry *m_item = nullptr;
};

struct Translator : QTranslator
{
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *text, const char *comment, int) const override
    {
        const QString note = comment ? QString("|") + QString(comment).remove("%1") : QString();
        return QString("[%1%2]").arg(QString(text), note);
    }
};

constexpr int s_allOptions = 16 | 2048 | 32 | 64 | 128 | 256 | 512 | 1024 | 4096;

} // namespace

class tst_BVStackController : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        muteOffscreenWarnings();
        qRegisterMetaType<QAction *>();
    }
    void place();
    void minimumWidth();
    void additions();
    void menuActions();
    void effects_data();
    void effects();
    void openMenu_data();
    void openMenu();
    void applicationsActions();
    void menuByKey();
    void handler();
    void deletion();
    void filter();
    void tabs();
};

void tst_BVStackController::place()
{
    Scene scene;
    Controller &controller = scene.m_controller;
    QCOMPARE(controller.property("leftRight").toBool(), true);
    QCOMPARE(controller.minimumWidth(), 130);
    QCOMPARE(controller.maximumWidth(), 130);
    QCOMPARE(controller.tree()->minimumWidth(), 130);
    QCOMPARE(controller.layout()->contentsMargins(), QMargins(0, 6, 0, 0));
    controller.setControllerOnTop(true, -1);
    QCOMPARE(controller.maximumHeight(), QWIDGETSIZE_MAX);
    QCOMPARE(controller.property("leftRight"), QVariant(false));
    QCOMPARE(controller.minimumWidth(), 0);
    QCOMPARE(controller.maximumWidth(), QWIDGETSIZE_MAX);
    QCOMPARE(scene.m_stack.layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QVERIFY(controller.listControl()->isAutoResize());
    controller.setControllerOnTop(true, 40);
    QCOMPARE(controller.minimumHeight(), 48);
    QCOMPARE(controller.listControl()->height(), 40);
    QVERIFY(!controller.listControl()->isAutoResize());
    QCOMPARE(controller.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(controller.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    controller.setControllerOnTop(false);
    QCOMPARE(controller.property("leftRight"), QVariant(false));
    QCOMPARE(scene.m_stack.layout()->contentsMargins(), QMargins(3, 6, 0, 0));
    controller.setMainLayoutMargins(1, -1, 3, -1);
    QCOMPARE(controller.layout()->contentsMargins(), QMargins(1, 6, 3, 0));
    controller.setListOnTop();
    QCOMPARE(controller.layout()->contentsMargins(), QMargins());
}

void tst_BVStackController::minimumWidth()
{
    Scene scene;
    Controller &controller = scene.m_controller;
    for (int i = 0; i < 30; ++i)
        scene.m_stack.addItem(nullptr);
    controller.resize(130, 200); // less than the rows
    controller.show();
    QVERIFY(controller.tree()->sizeHint().height() > controller.tree()->height());
    QCOMPARE(controller.minimumWidth(), 130); // fixed
    controller.setControllerOnTop(true, -1);
    controller.resize(200, 200);
    QCOMPARE(controller.minimumWidth(), 145);
    controller.resize(200, 4000);
    QCOMPARE(controller.minimumWidth(), 130);
    controller.listControl()->setAutoResize(false);
    controller.resize(200, 200);
    QCOMPARE(controller.minimumWidth(), 130);
}

void tst_BVStackController::additions()
{
    Controller controller;
    const QLayout *layout = controller.layout();
    const auto last = [layout] { return layout->itemAt(layout->count() - 1)->spacerItem(); };
    QCOMPARE(last()->sizeHint(), QSize(0, 3));
    auto *first = new QWidget;
    controller.addAdditional(first, 4, 5);
    controller.addAdditionalCentered(new QWidget);
    controller.addAdditional(nullptr, 1, 1);
    QCOMPARE(layout->count(), 4);
    QCOMPARE(layout->itemAt(1)->layout()->contentsMargins(), QMargins(4, 5, 4, 5));
    QCOMPARE(layout->itemAt(2)->layout()->count(), 3);
    QVERIFY(last());
    controller.setBottomSpacer(-1);
    QCOMPARE(last()->sizeHint(), QSize(10, 10));
    QCOMPARE(last()->expandingDirections(), Qt::Horizontal | Qt::Vertical);
    controller.setBottomSpacer(0);
    QCOMPARE(last()->sizeHint(), QSize(10, 0));
    QCOMPARE(last()->expandingDirections(), Qt::Horizontal);
    controller.setBottomSpacer(-1);
    controller.resize(130, 400);
    controller.stretchVertical();
    controller.show();
    QCOMPARE(controller.listControl()->geometry().bottom() + 1 + 10 + 10, 400); // margins and spacer
    delete first;
    QTRY_COMPARE(layout->count(), 3);
}

void tst_BVStackController::menuActions()
{
    Controller controller;
    QCOMPARE(controller.menuArgument(), -1);
    controller.createCustomContextMenu(s_allOptions, true, 7);
    QStringList made;
    const QList<QAction *> actions = controller.menuActions();
    for (const QAction *action : actions)
        made += QString::number(action->data().toInt()) + action->text();
    QCOMPARE(made.join(','),
             QString("16Rename,2048Show Current,32Show,64Don't Show,128Show all Neighbors,256Don't Show any Neighbor,512Show All,1024Hide All,4096"));
    QCOMPARE(controller.menuArgument(), 7);
    QCOMPARE(controller.tree()->contextMenuPolicy(), Qt::CustomContextMenu);
    controller.enableMenuOption(Controller::Show, false);
    QVERIFY(!controller.menuAction(Controller::Show)->isEnabled() && controller.menuAction(Controller::ShowAll)->isEnabled());
    controller.createCustomContextMenu(32 | 1, false, 0);
    QCOMPARE(controller.menuActions().size(), 1);
    QCOMPARE(controller.tree()->contextMenuPolicy(), Qt::DefaultContextMenu);
}

void tst_BVStackController::effects_data()
{
    using Stack = BVControlledStackWidget;
    QTest::addColumn<int>("option");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("states");
    QTest::addColumn<QString>("toggled");
    // At first a and b1 are checked, where they are checkable.
    const int all = Stack::AllItemsCheckable;
    QTest::newRow("current") << 2048 << all << "c"
                             << "a b b1 b2 C"
                             << "a b1 b c ";
    QTest::newRow("current below a group") << 2048 << all << "b1"
                                           << "a b- B1 b2 c"
                                           << "a ";
    QTest::newRow("current in a group that stays as it is") << 2048 << all << "b2"
                                                            << "a b- b1 B2 c"
                                                            << "a b1 b2 ";
    QTest::newRow("current group") << 2048 << all << "b"
                                   << "a B B1 B2 c"
                                   << "a b b2 ";
    QTest::newRow("current without a check box") << 2048 << int(Stack::TopLevelItemsCheckable) << "b1"
                                                 << "a b b1 b2 c"
                                                 << "a ";
    QTest::newRow("show") << 32 << all << "c"
                          << "A b- B1 b2 C"
                          << "c ";
    QTest::newRow("show what is shown") << 32 << all << "a"
                                        << "A b- B1 b2 c"
                                        << "";
    QTest::newRow("show the group around") << 32 << int(Stack::TopLevelItemsCheckable) << "b2"
                                           << "A B b1 b2 c"
                                           << "b ";
    QTest::newRow("don't show") << 64 << all << "b1"
                                << "A b b1 b2 c"
                                << "b1 b ";
    QTest::newRow("neighbors") << 128 << all << "b1"
                               << "A B B1 B2 c"
                               << "b b2 ";
    QTest::newRow("neighbors of a plain row's entry") << 128 << all << "a+"
                                                      << "A b- B1 b2 c"
                                                      << "";
    QTest::newRow("no neighbors") << 256 << all << "b2"
                                  << "A b b1 b2 c"
                                  << "b b1 ";
    QTest::newRow("neighbors on the top level") << 128 << all << "a"
                                                << "A b- B1 b2 c"
                                                << "";
    QTest::newRow("all") << 512 << all << "a"
                         << "A B B1 B2 C"
                         << "b b2 c ";
    QTest::newRow("none") << 1024 << all << "a"
                          << "a b b1 b2 c"
                          << "a b b1 ";
    QTest::newRow("only those with a check box") << 512 << int(Stack::ChildItemsCheckable) << "a"
                                                 << "a b B1 B2 c"
                                                 << "b2 ";
    QTest::newRow("the application's own") << 4096 << all << "a"
                                           << "A b- B1 b2 c"
                                           << "";
}

void tst_BVStackController::effects()
{
    QFETCH(int, option);
    QFETCH(int, mode);
    QFETCH(QString, current);
    QFETCH(QString, states);
    QFETCH(QString, toggled);
    Scene scene;
    scene.check(BVControlledStackWidget::CheckableItems(mode), {"a", "b1"});
    scene.m_controller.createCustomContextMenu(s_allOptions, true);
    Entry *entry = scene.entry(current.left(current.size() - current.count('+')));
    entry->setCurrent();
    if (current.contains('+'))
        scene.m_controller.tree()->setCurrentItem(entry->addChildItem(nullptr, "note"));
    QSignalSpy spy(&scene.m_controller, &Controller::onCustomActionTriggeredOnTree);
    QAction *action = scene.m_controller.menuAction(Controller::MenuOptions(option));
    action->trigger();
    QCOMPARE(scene.states(), states);
    const auto sorted = [](const QString &names) {
        QStringList list = names.split(' ');
        list.sort();
        return list.join(' ');
    };
    QCOMPARE(sorted(scene.m_toggled), sorted(toggled));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy[0][0].value<Entry *>(), entry);
    QCOMPARE(spy[0][1].value<QAction *>(), action);
}

void tst_BVStackController::openMenu_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QStringList>("checked");
    QTest::addColumn<QString>("menu");
    QTest::newRow("entry") << "a" << QStringList{"a", "b1"}
                           << "(Rename) | Show Only a (Show a) Don't Show a | (Show all Neighbors) (Don't Show any Neighbor) | Show All Hide All";
    QTest::newRow("entry of a group")
        << "b2" << QStringList{"b1"}
        << "(Rename) | Show Only b2 Show b2 (Don't Show b2) | Show all Neighbors Don't Show any Neighbor | Show All Hide All";
    QTest::newRow("the only one")
        << "a" << QStringList{"a"}
        << "(Rename) | (Show Only a) (Show a) Don't Show a | (Show all Neighbors) (Don't Show any Neighbor) | Show All Hide All";
    QTest::newRow("beside the entries")
        << QString() << QStringList{}
        << "(Rename) | Show Only a (Show) (Don't Show) | (Show all Neighbors) (Don't Show any Neighbor) | Show All (Hide All)";
}

void tst_BVStackController::openMenu()
{
    QFETCH(QString, item);
    QFETCH(QStringList, checked);
    QFETCH(QString, menu);
    Scene scene;
    scene.check(BVControlledStackWidget::AllItemsCheckable, checked);
    scene.m_controller.createCustomContextMenu(s_allOptions, true);
    scene.entry(item.isNull() ? "a" : item)->setCurrent();
    Entry *entry = item.isNull() ? nullptr : scene.entry(item);
    if (entry)
        entry->setEditable(false);
    scene.m_controller.show();
    QString shown;
    whenMenuOpens([&](QMenu *opened) { shown = contents(opened).section(" | Expand", 0, 0); });
    scene.m_controller.showCustomContextMenu(scene.m_controller.tree(), entry ? entry->treeItem() : nullptr, QPoint(5, 5));
    QCOMPARE(shown, menu);
    QCOMPARE(scene.m_controller.menuAction(Controller::Show)->text(), QString("Show")); // as before
    QVERIFY(scene.m_controller.menuAction(Controller::Rename)->isEnabled());
}

/// What the application makes of the actions stays, also while the menu is open.
void tst_BVStackController::applicationsActions()
{
    Scene scene;
    scene.check(BVControlledStackWidget::AllItemsCheckable, {"a"});
    scene.m_controller.createCustomContextMenu(s_allOptions, true);
    const auto action = [&](Controller::MenuOptions option) { return scene.m_controller.menuAction(option); };
    action(Controller::DontShow)->setText("Skip");
    action(Controller::ShowAll)->setEnabled(false);
    scene.entry("a")->setCurrent();
    scene.m_controller.show();
    QString shown;
    whenMenuOpens([&](QMenu *menu) {
        shown = contents(menu).section(" | ", 1, 1);
        action(Controller::HideAll)->setEnabled(false);
        action(Controller::ShowCurrent)->setText("Alone");
    });
    scene.m_controller.showCustomContextMenu(scene.m_controller.tree(), scene.entry("a")->treeItem(), QPoint(5, 5));
    QCOMPARE(shown, QString("(Show Only a) (Show a) Skip"));
    QVERIFY(!action(Controller::ShowAll)->isEnabled() && !action(Controller::HideAll)->isEnabled());
    QVERIFY(action(Controller::Show)->isEnabled());

    Translator translator;
    QCoreApplication::installTranslator(&translator);
    QTRY_COMPARE(action(Controller::Show)->text(), QString("[Show]"));
    QCOMPARE(action(Controller::DontShow)->text() + action(Controller::ShowCurrent)->text(), QString("SkipAlone"));
    scene.m_stack.setCheckableItems(BVControlledStackWidget::TopLevelItemsCheckable);
    for (const auto &[name, menu] : {std::pair{"b", "[Show b| is name of the item]"}, {"b1", "[Show b| is name of the parent item]"}}) {
        whenMenuOpens([&](QMenu *) { shown = action(Controller::Show)->text(); });
        scene.m_controller.showCustomContextMenu(scene.m_controller.tree(), scene.entry(name)->treeItem(), QPoint(5, 5));
        QCOMPARE(shown, QString(menu));
    }
}

void tst_BVStackController::menuByKey()
{
    Scene scene;
    scene.m_controller.createCustomContextMenu(16, true);
    scene.m_controller.show();
    QApplication::setActiveWindow(&scene.m_controller);
    Entry *entry = scene.entry("c");
    entry->setText("c & d");
    entry->setEditable(true);
    entry->setCurrent();
    QSignalSpy spy(&scene.m_controller, &Controller::onCustomActionTriggeredOnTree);
    BVDragTreeWidget *tree = scene.m_controller.tree();
    QPoint place;
    whenMenuOpens([&](QMenu *menu) {
        place = menu->pos();
        menu->actions().constFirst()->trigger();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), tree->mapToGlobal(QPoint()));
    QApplication::sendEvent(tree, &event);
    QVERIFY(tree->visualItemRect(entry->treeItem()).contains(tree->viewport()->mapFromGlobal(place)));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy[0][0].value<Entry *>(), entry);
    QVERIFY(tree->findChild<QLineEdit *>()); // the editor

    const auto keyPlace = [&](Entry *current) {
        current->setCurrent();
        tree->collapseAll();
        whenMenuOpens([&](QMenu *menu) { place = menu->pos(); });
        QApplication::sendEvent(tree, &event);
        return tree->viewport()->mapFromGlobal(place);
    };
    QVERIFY(tree->visualItemRect(scene.entry("b")->treeItem()).contains(keyPlace(scene.entry("b2"))));
    QVERIFY(!scene.entry("b")->isExpanded());
    scene.entry("a")->treeItem()->setHidden(true);
    QCOMPARE(keyPlace(scene.entry("a")), QPoint());

    tree->setCurrentItem(nullptr);
    whenMenuOpens([&](QMenu *) { place = QPoint(); });
    QApplication::sendEvent(tree, &event);
    QVERIFY(place.isNull());
}

void tst_BVStackController::handler()
{
    Scene scene;
    scene.m_controller.createCustomContextMenu(16 | 32, true);
    delete scene.m_controller.menuAction(Controller::Show);
    QCOMPARE(scene.m_controller.menuActions().size(), 1);
    auto handler = std::make_unique<Handler>();
    scene.m_controller.setCustomContextMenuHandler(handler.get());
    QSignalSpy spy(&scene.m_controller, &Controller::onCustomActionTriggeredOnTree);
    const auto open = [&] { scene.m_controller.showCustomContextMenu(scene.m_controller.tree(), scene.entry("b1")->treeItem(), QPoint(5, 5)); };
    scene.m_controller.show();
    whenMenuOpens([&](QMenu *menu) {
        menu->setActiveAction(menu->actions().constLast());
        for (QAction *action : menu->actions())
            if (action->objectName() == "more")
                menu->setActiveAction(action);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    open();
    QCOMPARE(handler->m_item, scene.entry("b1"));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy[0][0].value<Entry *>(), scene.entry("b1"));
    handler->m_shows = true;
    open(); // no menu
    handler.reset();
    QVERIFY(!scene.m_controller.customContextMenuHandler());
}

void tst_BVStackController::deletion()
{
    auto scene = std::make_unique<Scene>();
    scene->check(BVControlledStackWidget::AllItemsCheckable, {"a", "b1"});
    Controller &controller = scene->m_controller;
    controller.createCustomContextMenu(s_allOptions, true);
    QSignalSpy spy(&controller, &Controller::onCustomActionTriggeredOnTree);
    const auto connection = connect(&scene->m_stack, &BVControlledStackWidget::itemToggled, [&](Entry *item) { scene->m_stack.removeItem(item); });
    scene->entry("a")->setCurrent();
    controller.menuAction(Controller::HideAll)->trigger(); // a and b1 are removed on the way
    QVERIFY(!scene->entry("a") && !scene->entry("b1") && scene->entry("c"));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy[0][0].value<Entry *>(), nullptr);
    disconnect(connection);

    controller.show();
    QAction *action = controller.menuAction(Controller::ShowAll);
    connect(action, &QAction::triggered, &controller, [&] { controller.createCustomContextMenu(16, true); }); // anew, from within
    connect(&controller, &Controller::onCustomActionTriggeredOnTree, this, [&] { controller.createCustomContextMenu(16, true); });
    spy.clear();
    whenMenuOpens([&](QMenu *menu) {
        menu->setActiveAction(action);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    controller.showCustomContextMenu(controller.tree(), scene->entry("c")->treeItem(), QPoint(5, 5));
    QCOMPARE(controller.menuActions().size(), 1);
    QCOMPARE(spy.size(), 1);

    for (const char *name : {"c", "b1", "b"}) { // all go, from within a slot
        for (bool isControllerOnly : {false, true}) {
            auto owner = std::make_unique<Controller>();
            auto going = std::make_unique<BVControlledStackWidget>(owner.get());
            for (const char *text : {"b", "c"})
                going->addItem(new QWidget, -1)->setText(text);
            going->itemAt(0)->addItem(new QWidget)->setText("b1");
            going->setCheckableItems(BVControlledStackWidget::AllItemsCheckable);
            connect(going.get(), &BVControlledStackWidget::itemToggled, this, [&] {
                if (!isControllerOnly)
                    going.reset();
                owner.reset();
            });
            owner->createCustomContextMenu(32, true);
            going->getItemByText(name)->setCurrent();
            owner->menuAction(Controller::Show)->trigger();
            QVERIFY(!owner && (!going || going->itemCount(true) == 0));
        }
    }

    auto *mortal = new Controller(nullptr, nullptr, true); // goes while its menu is open, before its stack
    BVControlledStackWidget stack(mortal);
    stack.addItem(nullptr)->addItem(nullptr)->setChecked(true);
    mortal->createCustomContextMenu(512, true);
    mortal->show();
    whenMenuOpens([&](QMenu *) { delete mortal; });
    mortal->showCustomContextMenu(mortal->tree(), nullptr, QPoint(5, 5));
}

void tst_BVStackController::filter()
{
    Scene scene;
    Controller &controller = scene.m_controller;
    BVDragTreeWidget *tree = controller.tree();
    const auto shown = [&] {
        QString names;
        for (const Entry *entry : scene.m_stack.getDFSItems())
            names += entry->treeItem()->isHidden() ? QString() : entry->getText() + ' ';
        return names;
    };
    scene.entry("c")->treeItem()->setHidden(true); // by the application
    controller.setFilterLineShown(true);
    auto *edit = controller.findChild<QLineEdit *>();
    auto *needInput = controller.findChild<QToolButton *>();
    const auto *clearButton = edit->findChild<QToolButton *>();
    edit->setText("B2");
    QTRY_COMPARE(clearButton->property("opacity").toDouble(), 1.0);
    QCOMPARE(shown(), QString("b b2 "));
    QVERIFY(scene.entry("b")->isExpanded());
    scene.entry("b1")->setText("xb2");
    QTRY_COMPARE(shown(), QString("b xb2 b2 "));
    QTest::keyClick(edit, Qt::Key_Escape);
    QCOMPARE(shown(), QString("a b xb2 b2 "));
    QVERIFY(!scene.entry("b")->isExpanded());
    needInput->setChecked(true);
    QCOMPARE(shown(), QString());
    scene.entry("a")->setBVWidgetStatus(BVWidgetStatus::NeedInput);
    QTRY_COMPARE(shown(), QString("a "));
    QTRY_COMPARE(clearButton->property("opacity").toDouble(), 0.0); // the toolkit forgets about an animation that is cut short
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    controller.setFilterLineShown(false);
    QCOMPARE(shown(), QString("a b xb2 b2 "));
    QVERIFY(tree->topLevelItem(2)->isHidden());
}

void tst_BVStackController::tabs()
{
    auto *stack = new BVControlledStackWidget(new Controller);
    for (const char *name : {"a & b", "group", "c"})
        stack->addItem(name == QByteArray("group") ? nullptr : new QWidget, -1)->setText(name);
    Entry *below = stack->itemAt(1)->addItem(new QWidget);
    BVControlledTabWidget tabs(stack, nullptr);
    QCOMPARE(tabs.count(), 3);
    QCOMPARE(tabs.tabBar()->tabText(0), QString("a && b"));
    QTRY_COMPARE(stack->getCurrentItem(), stack->itemAt(0)); // one is always chosen
    QSignalSpy spy(&tabs, &BVControlledTabWidget::currentChanged);
    tabs.setCurrentIndex(1);
    QCOMPARE(stack->getCurrentItem(), below);
    stack->itemAt(2)->setCurrent();
    QCOMPARE(tabs.currentIndex(), 2);
    QCOMPARE(spy.size(), 2);
    below->setBVWidgetStatus(BVWidgetStatus::NeedInput);
    QCOMPARE(tabs.tabBar()->tabStatus(1), BVWidgetStatus::Stati(BVWidgetStatus::NeedInput));
    stack->itemAt(2)->setText("d");
    QCOMPARE(tabs.tabBar()->tabText(2), QString("d"));
    below->setEnabled(false);
    tabs.setCurrentIndex(1);
    QCOMPARE(stack->getCurrentItem(), stack->itemAt(1)); // enabled, though its page is not
    stack->itemAt(0)->setEnabled(false);
    tabs.setCurrentIndex(0);
    QCOMPARE(tabs.currentIndex(), 1);
    stack->itemAt(0)->setEnabled(true);
    stack->itemAt(2)->setCurrent();
    stack->removeItem(stack->itemAt(2));
    QCOMPARE(tabs.count(), 2);
    QTRY_VERIFY(stack->getCurrentItem());
    QCOMPARE(stack->getCurrentItem()->isTopLevelItem() ? stack->getCurrentItem()->getIndex() : 1, tabs.currentIndex());
    delete stack->controller(); // with the rows
    QCOMPARE(tabs.count(), 0);
    delete stack;
}

QTEST_MAIN(tst_BVStackController)
#include "tst_bvstackcontroller.moc"
