// SPDX-License-Identifier: MIT
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVTreeView.h"
#include "itemviews/BVTreeViewModel.h"
#include "itemviews/TreeViewContextMenu.h"
#include "itemviews/TreeViewCopyHandler.h"

#include "TestSupport.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <functional>
#include <memory>

namespace {

QMenu *openMenu()
{
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

/// Acts on the next menu when it is open, and closes it if it still is afterwards.
void onMenu(const std::function<void(QMenu *)> &act)
{
    QTimer::singleShot(0, [act] {
        if (QMenu *menu = openMenu())
            act(menu);
        while (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
    });
}

/// "Copy!,-,Expand All": "!" for disabled ones, "-" for separators.
QString textsOf(const QMenu *menu)
{
    QStringList texts;
    for (const QAction *action : menu->actions())
        texts << (action->isSeparator() ? QString("-") : action->text() + (action->isEnabled() ? "" : "!"));
    return texts.join(',');
}

class Delegate : public BVItemDelegate
{
public:
    void provideContextMenuActions(const QModelIndex &index, const QPoint &, QAbstractItemView *, QMenu *menu) override
    {
        menu->addAction("Of " + index.data().toString());
    }
};

/// A menu with an entry and a submenu of its own.
class Menu : public TreeViewContextMenu
{
public:
    using TreeViewContextMenu::TreeViewContextMenu;

    QString actionText(int id) const override { return id == 5 ? "Five" : TreeViewContextMenu::actionText(id); }
    void adjustMenu() override
    {
        appendAction(5, true);
        appendAction(5, true);
        QMenu *more = appendSubMenu("More");
        more->addAction(createAction(6, more));
        getMenu()->addAction("Plain");
    }
};

} // namespace

class tst_TreeViewContextMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void entries_data();
    void entries();
    void chosen_data();
    void chosen();
    void collapseOther_data();
    void collapseOther();
    void deletedWhileOpen_data();
    void deletedWhileOpen();
};

void tst_TreeViewContextMenu::entries_data()
{
    QTest::addColumn<bool>("hasBranches");
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("entries");

    QTest::newRow("flat list") << false << "" << "";
    QTest::newRow("branches") << true << "" << "Expand All,Collapse All,Collapse Other";
    QTest::newRow("beside the rows") << true << "beside" << "Expand All,Collapse All,Collapse Other!";
    QTest::newRow("copying") << true << "copy all" << "Copy!,Copy all,-,Expand All,Collapse All,Collapse Other";
    QTest::newRow("copying a selected row") << false << "copy select" << "Copy,-";
    QTest::newRow("delegate") << true << "delegate all" << "Copy all,-,Of a,Expand All,Collapse All,Collapse Other";
    QTest::newRow("delegate, by keyboard") << false << "delegate key" << "Of a";
}

void tst_TreeViewContextMenu::entries()
{
    QFETCH(bool, hasBranches);
    QFETCH(QString, options);
    BVTreeViewModel model;
    model.setColumnCount(1);
    auto *item = new BVTreeViewItem(model.invisibleRootItem());
    item->setText(0, "a");
    if (hasBranches)
        new BVTreeViewItem(item);
    BVTreeView view;
    Delegate delegate;
    view.setModel(&model);
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    view.enableCopyAllAction(options.contains("all"));
    view.enableCopySelectedAction(options.contains("copy"));
    if (options.contains("delegate"))
        view.setItemDelegate(&delegate);
    if (options.contains("select"))
        view.selectAll();
    if (options.contains("key"))
        view.setCurrentIndex(model.index(0, 0));
    QString entries;
    onMenu([&](const QMenu *menu) { entries = textsOf(menu); });
    const QPoint position = options.contains("beside") || options.contains("key") ? QPoint(5, 150) : QPoint(40, 5);
    QContextMenuEvent event(options.contains("key") ? QContextMenuEvent::Keyboard : QContextMenuEvent::Mouse, position);
    QApplication::sendEvent(view.viewport(), &event);
    QCoreApplication::processEvents(); // also if there was no menu
    QTEST(entries, "entries");
}

void tst_TreeViewContextMenu::chosen_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<bool>("disabled");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text"); // "" if no entry was chosen

    using Keys = QList<int>;
    QTest::newRow("own entry") << Keys{Qt::Key_Down, Qt::Key_Return} << false << 5 << "Five";
    QTest::newRow("in a submenu") << Keys{Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Return} << false << 6 << "UNKNOWN";
    QTest::newRow("no id") << Keys{Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Return} << false << -1 << "Plain";
    QTest::newRow("standard") << Keys{Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Return} << false << 97 << "Expand All";
    QTest::newRow("closed") << Keys{Qt::Key_Down, Qt::Key_Escape} << false << -1 << "";
    QTest::newRow("disabled") << Keys{Qt::Key_Down, Qt::Key_Return} << true << -1 << "";
}

void tst_TreeViewContextMenu::chosen()
{
    QFETCH(QList<int>, keys);
    QFETCH(bool, disabled);
    QTreeWidget widget;
    new QTreeWidgetItem(new QTreeWidgetItem(&widget, {"a"}), {"b"});
    Menu menu(&widget, QPoint(40, 5));
    menu.setDisabled(disabled);
    QAction *action = nullptr;
    onMenu([&](QMenu *) {
        for (const int key : keys)
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key(key));
    });
    QTEST(menu.show(&action), "id");
    QTEST(action ? action->text() : QString(), "text");
    QCOMPARE(widget.isExpanded(widget.model()->index(0, 0)), action == menu.actionAt(97) && action);
    QCOMPARE(textsOf(menu.getMenu()), "Five,More,Plain,-,Expand All,Collapse All,Collapse Other"); // enabled again
    QCOMPARE(menu.actionText(97) + menu.actionText(98) + menu.actionText(1), "Expand AllCollapse AllUNKNOWN");
}

void tst_TreeViewContextMenu::collapseOther_data()
{
    QTest::addColumn<QString>("expanded");
    QTest::addColumn<QString>("root");
    QTest::addColumn<QString>("log"); // "+" with animation

    // a(b(c(d)),e(f)) and g(h)
    QTest::newRow("collapsed row") << "aceg" << "" << "+b +a";
    QTest::newRow("expanded row") << "abceg" << "" << "b c a";
    QTest::newRow("below a root") << "abceg" << "a" << "b c";
}

void tst_TreeViewContextMenu::collapseOther()
{
    QFETCH(QString, expanded);
    QFETCH(QString, root);
    QTreeWidget widget;
    QHash<QString, QTreeWidgetItem *> items{{"", widget.invisibleRootItem()}};
    for (const char *pair : {"a", "ba", "cb", "dc", "ea", "fe", "g", "hg"})
        items[QString(pair[0])] = new QTreeWidgetItem(items[QString(pair).mid(1)], {QString(pair[0])});
    for (const QChar name : QString("abc"))
        items[name]->setExpanded(true);
    if (!root.isEmpty())
        widget.setRootIndex(widget.model()->index(0, 0));
    widget.resize(300, 300);
    widget.scrollTo(widget.model()->index(0, 0, widget.model()->index(0, 0)));
    TreeViewContextMenu menu(&widget, widget.visualItemRect(items["b"]).center());
    for (auto item = items.cbegin(); item != items.cend(); ++item)
        item.value()->setExpanded(expanded.contains(item.key()) && !item.key().isEmpty());
    QStringList log;
    connect(&widget, &QTreeWidget::itemExpanded, &widget, [&](const QTreeWidgetItem *item) {
        log << (widget.isAnimated() ? "+" : "") + item->text(0);
    });
    onMenu([](QMenu *) { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Up); QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return); });
    QCOMPARE(menu.show(), 99);
    QTEST(log.join(' '), "log");
    QVERIFY(!widget.isAnimated() && !items["e"]->isExpanded() && !items["g"]->isExpanded());
}

void tst_TreeViewContextMenu::deletedWhileOpen_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what : {"view", "model", "menu", "entry"})
        QTest::newRow(what) << what;
}

void tst_TreeViewContextMenu::deletedWhileOpen()
{
    QFETCH(QString, what);
    auto model = std::make_unique<BVTreeViewModel>();
    model->setColumnCount(1);
    new BVTreeViewItem(new BVTreeViewItem(model->invisibleRootItem()));
    auto view = std::make_unique<BVTreeView>();
    view->setModel(model.get());
    auto menu = std::make_unique<TreeViewContextMenu>(view.get(), QPoint(40, 5));
    auto *entry = new QAction("Goes");
    menu->appendAction(entry, true);
    connect(entry, &QAction::triggered, this, [&] {
        if (what == "view")
            view.reset();
        else if (what == "model")
            model.reset();
        else if (what == "menu")
            menu.reset();
        if (what != "menu" && menu) // chosen together, by a slot
            QMetaObject::invokeMethod(menu.get(), "onCollapseOther");
        delete entry;
    });
    onMenu([&](QMenu *) { entry->trigger(); });
    QAction *chosen = entry;
    QCOMPARE(menu->show(&chosen), -1);
    QVERIFY(!chosen);
}

QTEST_MAIN(tst_TreeViewContextMenu)
#include "tst_treeviewcontextmenu.moc"
