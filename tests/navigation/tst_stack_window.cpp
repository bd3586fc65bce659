// SPDX-License-Identifier: MIT
#include "controls/BVLineEdit.h"
#include "itemviews/BVContainerListControl.h"
#include "itemviews/BVDragTreeWidget.h"
#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVStackControllerWidget.h"
#include "navigation/BVStackedWidget.h"
#include "style/StyleSheetHandler.h"

#include "XdoTool.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QTest>
#include <QToolButton>

#include <memory>

using Entry = BVControlledStackItem;
using Stack = BVControlledStackWidget;
using Controller = BVStackControllerWidget;

namespace {

/// A window with the entries a, b (with b1 and b2 below) and c, each with a page that is a line to
/// type in. What the stack tells is noted.
class Scene
{
public:
    Scene();

    Entry *entry(const QString &name) const { return m_stack->getItemByText(name); }
    BVDragTreeWidget *tree() const { return m_controller->tree(); }
    /// The entries in sight, with those below: "a,b(b1,b2),c".
    QString order() const { return orderBelow(tree()->invisibleRootItem()); }
    QString page() const { return m_stack->stackedWidget()->currentWidget()->objectName(); }
    /// The name of the page that has the keyboard, or of the tree.
    QString focus() const { return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString(); }
    QString log() const { return m_log.join(' '); }

    QRect row(const QString &name) const { return tree()->visualItemRect(entry(name)->treeItem()); }
    QPoint at(const QString &name, double height = 0.5) const
    {
        const QRect rect = row(name);
        return QPoint(rect.center().x(), rect.top() + qRound(height * (rect.height() - 1)));
    }
    QPoint checkBox(const QString &name) const { return QPoint(row(name).right() - 10, at(name).y()); }
    bool click(const QString &name, int button = 1) const { return XdoTool::clickAt(tree()->viewport(), at(name), button); }

    QWidget m_window;
    Controller *m_controller = new Controller(&m_window);
    Stack *m_stack = new Stack(m_controller, &m_window);
    QStringList m_log;
    QString m_refused; // the entry that takes no others
    int m_refusals = 0;

private:
    void watch();
    static QString orderBelow(const QTreeWidgetItem *row);
};

Scene::Scene()
{
    auto *layout = new QHBoxLayout(&m_window);
    layout->addWidget(m_controller);
    layout->addWidget(m_stack);
    const auto add = [this](const QString &name, Entry *parent) {
        auto *page = new BVLineEdit;
        page->setObjectName(name);
        Entry *entry = m_stack->addItem(page, parent, -1);
        entry->setText(name);
        entry->setEditable(true);
        return entry;
    };
    add("a", nullptr);
    Entry *group = add("b", nullptr);
    add("b1", group);
    add("b2", group);
    add("c", nullptr);
    group->setExpandedAll(true);
    m_stack->setCurrentIndex(0);
    tree()->setObjectName("tree");
    m_controller->listControl()->setDragAndDropEnabled(true);
    m_window.resize(500, 300);
    watch();
}

void Scene::watch()
{
    const auto note = [this](const QString &what, const Entry *entry) { m_log += what + (entry ? entry->getText() : "-"); };
    QObject::connect(m_stack, QOverload<Entry *, Entry *>::of(&Stack::currentChanged), [note](Entry *entry) { note("", entry); });
    QObject::connect(m_stack, &Stack::itemToggled, [note](Entry *entry, int state) {
        note(QStringList{"unchecked ", "partly ", "checked "}.at(state), entry);
    });
    QObject::connect(m_stack, &Stack::itemTextChanged, [note](Entry *entry) { note("text ", entry); });
    QObject::connect(m_stack, &Stack::itemDropped, [note](Entry *entry) { note("dropped ", entry); });
    QObject::connect(m_stack, &Stack::itemDragEnter, [this](Entry *entry, bool *mayDrop) {
        *mayDrop = !entry || entry->getText() != m_refused;
        m_refusals += !*mayDrop;
    });
    QObject::connect(m_controller, &Controller::onCustomActionTriggeredOnTree,
                     [note](Entry *entry, QAction *action) { note(QString("menu %1 ").arg(action->data().toInt()), entry); });
}

QString Scene::orderBelow(const QTreeWidgetItem *row)
{
    QStringList names;
    for (int i = 0; i < row->childCount(); ++i) {
        const QTreeWidgetItem *child = row->child(i);
        if (!child->isHidden())
            names += child->text(0) + (child->childCount() ? '(' + orderBelow(child) + ')' : QString());
    }
    return names.join(',');
}

} // namespace

/// A stack of pages with its navigation, worked with the pointer and keys from outside.
class tst_StackWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_scene.reset(); }
    void drag_data();
    void drag();
    void check_data();
    void check();
    void keys_data();
    void keys();
    void focus();
    void menu_data();
    void menu();
    void filter();

private:
    bool press(const QString &keys);

    std::unique_ptr<Scene> m_scene;
};

void tst_StackWindow::initTestCase()
{
    qApp->setStyle("Fusion");
    qApp->setStyleSheet(Brimvale::StyleSheetHandler::load());
}

void tst_StackWindow::init()
{
    m_scene = std::make_unique<Scene>();
    QVERIFY(XdoTool::showActive(&m_scene->m_window));
    QVERIFY(XdoTool::click(m_scene->m_stack)); // the next click makes no double click of the last one
    QTRY_COMPARE(m_scene->focus(), QString("a"));
}

/// Presses the keys one after the other: "Down F2".
bool tst_StackWindow::press(const QString &keys)
{
    const QStringList list = keys.split(' ', Qt::SkipEmptyParts);
    return std::all_of(list.begin(), list.end(), &XdoTool::pressKey);
}

void tst_StackWindow::drag_data()
{
    QTest::addColumn<QString>("dragged");
    QTest::addColumn<QString>("target");
    QTest::addColumn<double>("height");
    QTest::addColumn<QString>("order");
    QTest::addColumn<QString>("log");
    QTest::newRow("behind the last") << "a"
                                     << "c" << 0.95 << "b(b1,b2),c,a"
                                     << "dropped -";
    QTest::newRow("to the front") << "c"
                                  << "a" << 0.05 << "c,a,b(b1,b2)"
                                  << "dropped -";
    QTest::newRow("onto another") << "a"
                                  << "c" << 0.5 << "b(b1,b2),c(a)"
                                  << "dropped c";
    QTest::newRow("within a group") << "b2"
                                    << "b1" << 0.05 << "a,b(b2,b1),c"
                                    << "dropped b";
    QTest::newRow("with those below") << "b"
                                      << "a" << 0.05 << "b(b1,b2),a,c"
                                      << "dropped -";
    QTest::newRow("to a refused place") << "c"
                                        << "b2" << 0.05 << "a,b(b1,b2),c"
                                        << "";
}

void tst_StackWindow::drag()
{
    QFETCH(const QString, dragged);
    QFETCH(const QString, target);
    QFETCH(const double, height);
    m_scene->entry(dragged)->setCurrent();
    m_scene->m_log.clear();
    if (qstrcmp(QTest::currentDataTag(), "to a refused place") == 0)
        m_scene->m_refused = "b";
    const BVDragAndDropManager *manager = m_scene->tree()->getDragAndDropManager();
    const QModelIndex place = m_scene->tree()->indexFromItem(m_scene->entry(target)->treeItem());
    const auto inWindow = [this](const QPoint &point) { return m_scene->tree()->viewport()->mapTo(&m_scene->m_window, point); };
    const auto isThere = [&] { return m_scene->m_refused.isEmpty() ? manager->getDropIndex() == place : m_scene->m_refusals > 0; };
    QVERIFY(XdoTool::dragNatively(&m_scene->m_window, inWindow(m_scene->at(dragged)), inWindow(m_scene->at(target, height)), isThere));

    QFETCH(const QString, order);
    QFETCH(const QString, log);
    QTRY_COMPARE(m_scene->order(), order);
    QCOMPARE(m_scene->log(), log); // the current entry is the same
    QCOMPARE(m_scene->page(), dragged);
    QCOMPARE(m_scene->m_stack->getCurrentItem(), m_scene->entry(dragged));
    QVERIFY(m_scene->entry(dragged)->isSelected());
    QCOMPARE(m_scene->entry(dragged)->getContainerWidget()->objectName(), dragged);
    QVERIFY(m_scene->click("a")); // the pointer works as before
    QTRY_COMPARE(m_scene->page(), QString("a"));
}

void tst_StackWindow::check_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("click") << true;
    QTest::newRow("space bar") << false;
}

void tst_StackWindow::check()
{
    QFETCH(const bool, byMouse);
    m_scene->m_stack->setCheckableItems(Stack::AllItemsCheckable);
    QVERIFY(m_scene->click("c"));
    QTRY_COMPARE(m_scene->log(), QString("c"));
    const QPoint box = m_scene->checkBox("c");
    const auto toggle = [&] { return byMouse ? XdoTool::clickAt(m_scene->tree()->viewport(), box) : XdoTool::pressKey("space"); };
    QVERIFY(toggle());
    QTRY_COMPARE(m_scene->log(), QString("c checked c"));
    QVERIFY(m_scene->entry("c")->checked());
    QVERIFY(m_scene->click("a")); // so that the next is no double click
    QTRY_COMPARE(m_scene->log(), QString("c checked c a"));
    QVERIFY(m_scene->click("c"));
    QTRY_COMPARE(m_scene->log(), QString("c checked c a c"));
    QVERIFY(toggle());
    QTRY_COMPARE(m_scene->log(), QString("c checked c a c unchecked c"));
    QVERIFY(!m_scene->entry("c")->checked());
}

void tst_StackWindow::keys_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("pressed");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("page");
    QTest::newRow("down") << "a"
                          << "Down Down"
                          << "b b1"
                          << "b1";
    QTest::newRow("up to the first and no further") << "b"
                                                    << "Up Up"
                                                    << "a"
                                                    << "a";
    QTest::newRow("home and end") << "b"
                                  << "End Home"
                                  << "c a"
                                  << "a";
    QTest::newRow("left to the parent") << "b2"
                                        << "Left"
                                        << "b"
                                        << "b";
    QTest::newRow("type-ahead") << "a"
                                << "c"
                                << "c"
                                << "c";
    QTest::newRow("type-ahead, two letters") << "a"
                                             << "b 2"
                                             << "b b2"
                                             << "b2";
    QTest::newRow("rename") << "c"
                            << "F2 n e w Return"
                            << "text new"
                            << "c";
    QTest::newRow("rename, given up") << "c"
                                      << "F2 n e w Escape"
                                      << ""
                                      << "c";
    QTest::newRow("move up") << "c"
                             << "alt+Up"
                             << "dropped -"
                             << "c";
    QTest::newRow("next that needs input") << "a"
                                           << "F8"
                                           << "b2"
                                           << "b2";
    QTest::newRow("next that needs input, around the end") << "b2"
                                                           << "F8 F8"
                                                           << "c b2"
                                                           << "b2";
}

void tst_StackWindow::keys()
{
    QFETCH(const QString, start);
    QFETCH(const QString, pressed);
    for (const char *name : {"b2", "c"})
        m_scene->entry(name)->setBVWidgetStatus(BVWidgetStatus::NeedInput);
    m_scene->m_stack->setNeedInputShortcutEnabled(true);
    QVERIFY(m_scene->click(start));
    QTRY_COMPARE(m_scene->page(), start);
    m_scene->m_log.clear();
    QVERIFY(press(pressed));
    QFETCH(const QString, log);
    QFETCH(const QString, page);
    QTRY_COMPARE(m_scene->log(), log);
    QTRY_COMPARE(m_scene->focus(), QString("tree"));
    QCOMPARE(m_scene->page(), page);
    QVERIFY(press("Home"));
    QTRY_COMPARE(m_scene->page(), QString("a")); // what else would come has come
    QCOMPARE(m_scene->log(), (log + (page == "a" ? "" : " a")).trimmed());
}

void tst_StackWindow::focus()
{
    m_scene->m_stack->setNeedInputShortcutEnabled(true);
    m_scene->entry("c")->setBVWidgetStatus(BVWidgetStatus::NeedInput);
    QVERIFY(m_scene->click("b"));
    QTRY_COMPARE(m_scene->page(), QString("b"));
    QCOMPARE(m_scene->focus(), QString("tree"));
    QVERIFY(press("Tab"));
    QTRY_COMPARE(m_scene->focus(), QString("b"));
    QVERIFY(press("F8"));
    QTRY_COMPARE(m_scene->page(), QString("c"));
    QTRY_COMPARE(m_scene->focus(), QString("c"));
    QVERIFY(XdoTool::typeText("7"));
    QTRY_COMPARE(static_cast<BVLineEdit *>(m_scene->entry("c")->getContainerWidget())->text(), QString("7"));
    QVERIFY(press("shift+Tab"));
    QTRY_COMPARE(m_scene->focus(), QString("tree"));
    QVERIFY(press("Tab"));
    QTRY_COMPARE(m_scene->focus(), QString("c"));
    QVERIFY(m_scene->click("a"));
    QTRY_COMPARE(m_scene->page(), QString("a"));
    QCOMPARE(m_scene->focus(), QString("tree"));
}

void tst_StackWindow::menu_data()
{
    QTest::addColumn<bool>("byKey"); // the menu is opened, at b2, and the entry chosen
    QTest::addColumn<int>("option"); // 0 to give up
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("typed"); // afterwards
    QTest::addColumn<QString>("log");
    const auto row = [](const char *name, int option, const QString &text, const QString &typed, const QString &log) {
        QTest::addRow("%s by mouse", name) << false << option << text << typed << log;
        QTest::addRow("%s by key", name) << true << option << text << typed << log;
    };
    row("rename", 16, "Rename", "n e w Return", "menu 16 b2 text new");
    row("show", 32, "Show b2", "", "checked b2 partly b menu 32 b2");
    row("show current", 2048, "Show Only b2", "", "unchecked a checked b2 partly b menu 2048 b2");
    row("give up", 0, "", "Up", "b1");
}

void tst_StackWindow::menu()
{
    QFETCH(const bool, byKey);
    QFETCH(const int, option);
    m_scene->m_stack->setCheckableItems(Stack::AllItemsCheckable);
    for (const char *name : {"a", "b1", "b2", "c"})
        m_scene->entry(name)->setChecked(*name == 'a');
    m_scene->m_controller->createCustomContextMenu(Controller::Rename | Controller::ShowCurrent | Controller::Show, true);
    QVERIFY(m_scene->click("b2"));
    QTRY_COMPARE(m_scene->page(), QString("b2"));
    m_scene->m_log.clear();

    QAction *action = m_scene->m_controller->menuAction(Controller::MenuOptions(option));
    QString text;
    const auto choose = [&](QMenu *menu) {
        text = action ? action->text() : QString();
        const QPoint corner = m_scene->tree()->viewport()->mapFromGlobal(menu->geometry().topLeft());
        if (!m_scene->row("b2").adjusted(0, 0, 2, 2).contains(corner))
            return false;
        if (!action)
            return XdoTool::pressKey("Escape");
        if (!byKey)
            return XdoTool::clickAt(menu, menu->actionGeometry(action).center());
        while (menu->activeAction() != action) {
            const QAction *before = menu->activeAction();
            if (!XdoTool::pressKey("Down") || !QTest::qWaitFor([&] { return menu->activeAction() != before; }))
                return false;
        }
        return XdoTool::pressKey("Return");
    };
    QVERIFY(XdoTool::inMenu([&] { return byKey ? XdoTool::pressKey("Menu") : m_scene->click("b2", 3); }, choose));
    QTEST(text, "text");
    if (const auto *editor = m_scene->tree()->viewport()->findChild<QLineEdit *>()) {
        const QRect row = m_scene->row("b2");
        QVERIFY(editor->x() < row.left() + 10 && editor->geometry().right() < m_scene->checkBox("b2").x());
    }
    QFETCH(const QString, typed);
    QVERIFY(press(typed));
    QFETCH(const QString, log);
    QTRY_COMPARE(m_scene->log(), log);
    QTRY_COMPARE(m_scene->focus(), QString("tree"));
}

void tst_StackWindow::filter()
{
    m_scene->m_controller->setFilterLineShown(true);
    m_scene->entry("b")->setExpandedAll(false);
    auto *line = m_scene->m_controller->findChild<BVLineEdit *>();
    QTRY_VERIFY(line->isVisible());
    QVERIFY(XdoTool::click(line));
    QTRY_VERIFY(line->hasFocus());
    QVERIFY(XdoTool::typeText("B2"));
    QTRY_COMPARE(m_scene->order(), QString("b(b2)"));
    QVERIFY(m_scene->entry("b")->treeItem()->isExpanded());
    QCOMPARE(m_scene->page(), QString("a"));
    QVERIFY(press("BackSpace"));
    QTRY_COMPARE(m_scene->order(), QString("b(b1,b2)"));
    QVERIFY(press("Return End"));
    QTRY_COMPARE(m_scene->page(), QString("b2"));
    QCOMPARE(m_scene->focus(), QString("tree"));
    QVERIFY(press("shift+Tab shift+Tab")); // past the button for those that need input
    QTRY_VERIFY(line->hasFocus());
    // The toolkit forgets about the button's animation when it is cut short.
    const auto *clearButton = line->findChild<QToolButton *>();
    QTRY_COMPARE(clearButton->property("opacity").toDouble(), 1.0);
    QVERIFY(press("Escape"));
    QTRY_COMPARE(m_scene->order(), QString("a,b(b1,b2),c"));
    QCOMPARE(m_scene->page(), QString("b2"));
    QTRY_COMPARE(clearButton->property("opacity").toDouble(), 0.0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QTEST_MAIN(tst_StackWindow)

#include "tst_stack_window.moc"
