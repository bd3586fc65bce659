// SPDX-License-Identifier: MIT
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVTreeView.h"
#include "itemviews/BVTreeViewModel.h"
#include "itemviews/TreeViewContextMenu.h"

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

const QPoint s_onRow(40, 5);

/// Acts on the next menu when it is open, and closes it if it still is afterwards.
void onMenu(const std::function<void(QMenu *)> &act)
{
    QTimer::singleShot(0, [act] {
        if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget()))
            act(menu);
        while (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
    });
}

/// Presses keys in the next menu: d(own), u(p), r(ight), s(elect) and e(scape).
void pressInMenu(const QString &keys)
{
    static const QHash<QChar, Qt::Key> s_keys{
        {'d', Qt::Key_Down}, {'u', Qt::Key_Up}, {'r', Qt::Key_Right}, {'s', Qt::Key_Return}, {'e', Qt::Key_Escape}};
    onMenu([keys](QMenu *) {
        for (const QChar key : keys)
            QTest::keyClick(QApplication::activePopupWidget(), s_keys[key]);
        QVERIFY(!QApplication::activePopupWidget());
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
        menu->addAction("Of " + index.data().toString())->setData(98); // also the id of another entry
    }
};

/// A menu with an entry and a submenu of its own.
class Menu : public TreeViewContextMenu
{
public:
    using TreeViewContextMenu::TreeViewContextMenu;

    QString actionText(int id) const override { return id == 5 ? "Five" : id == 98 ? QString() : TreeViewContextMenu::actionText(id); }
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
    void deletedWhileOpen();
};

void tst_TreeViewContextMenu::entries_data()
{
    QTest::addColumn<QString>("entries");
    QTest::newRow("flat list") << "";
    QTest::newRow("tree") << "Expand All,Collapse All,Collapse Other";
    QTest::newRow("tree, beside the rows") << "Expand All,Collapse All,Collapse Other!";
    QTest::newRow("tree, copy, all") << "Copy!,Copy all,-,Expand All,Collapse All,Collapse Other";
    QTest::newRow("copy, current row") << "Copy,-";
    QTest::newRow("tree, delegate, all") << "Copy all,-,Of a,Expand All,Collapse All,Collapse Other";
    QTest::newRow("delegate, current row by key") << "Of a";
    QTest::newRow("delegate, current row far by key") << "Of z";
    QTest::newRow("tree, none by key") << "Expand All,Collapse All,Collapse Other!";
}

void tst_TreeViewContextMenu::entries()
{
    const QString options = QTest::currentDataTag();
    const bool isKey = options.contains("key");
    BVTreeViewModel model;
    model.setColumnCount(1);
    auto *item = new BVTreeViewItem({{{Qt::DisplayRole, "a"}}}, model.invisibleRootItem());
    if (options.contains("tree"))
        new BVTreeViewItem(item);
    Delegate delegate;
    BVTreeView view;
    view.setModel(&model);
    view.enableCopyAllAction(options.contains("all"));
    view.enableCopySelectedAction(options.contains("copy"));
    if (options.contains("delegate"))
        view.setItemDelegate(&delegate);
    for (int i = 0; options.contains("far") && i < 99; ++i)
        new BVTreeViewItem({{{Qt::DisplayRole, "z"}}}, model.invisibleRootItem());
    if (options.contains("current"))
        view.setCurrentIndex(model.index(model.rowCount() - 1, 0));
    view.scrollToTop();
    QString entries;
    onMenu([&](const QMenu *menu) { entries = textsOf(menu); });
    QContextMenuEvent event(isKey ? QContextMenuEvent::Keyboard : QContextMenuEvent::Mouse, options.contains("beside") ? QPoint(5, 150) : s_onRow);
    QApplication::sendEvent(isKey ? &view : view.viewport(), &event);
    QCoreApplication::processEvents(); // also if there was no menu
    QTEST(entries, "entries");
}

void tst_TreeViewContextMenu::chosen_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text"); // "" if no entry was chosen
    QTest::newRow("own entry") << "ds" << 5 << "Five";
    QTest::newRow("in a submenu") << "ddrs" << 6 << "UNKNOWN";
    QTest::newRow("without an id") << "uuuus" << -1 << "Plain";
    QTest::newRow("standard entry") << "uuus" << 97 << "Expand All";
    QTest::newRow("closed") << "de" << -1 << "";
    QTest::newRow("disabled") << "dse" << -1 << "";
}

void tst_TreeViewContextMenu::chosen()
{
    QFETCH(QString, keys);
    QTreeWidget widget;
    auto *item = new QTreeWidgetItem(&widget, {"a"});
    new QTreeWidgetItem(item, {"b"});
    Menu menu(&widget, s_onRow);
    menu.setDisabled(QTest::currentDataTag() == QString("disabled"));
    QAction *action = nullptr;
    pressInMenu(keys);
    QTEST(menu.show(&action), "id");
    QTEST(action ? action->text() : QString(), "text");
    QCOMPARE(item->isExpanded(), action && action == menu.actionAt(97));
    QCOMPARE(textsOf(menu.getMenu()), "Five,More,Plain,-,Expand All,Collapse All,Collapse Other"); // all enabled
}

void tst_TreeViewContextMenu::collapseOther_data()
{
    QTest::addColumn<QString>("before"); // the expanded ones of a(b(c(d)),e(f)) and g(h)
    QTest::addColumn<bool>("hasRoot");
    QTest::addColumn<QString>("log"); // "+" with animation
    QTest::newRow("collapsed row") << "aceg" << false << "+b +a";
    QTest::newRow("expanded row") << "abceg" << false << "b c a";
    QTest::newRow("below a root") << "abceg" << true << "b c";
}

void tst_TreeViewContextMenu::collapseOther()
{
    QFETCH(QString, before);
    QFETCH(bool, hasRoot);
    QTreeWidget widget;
    QHash<QString, QTreeWidgetItem *> items{{"", widget.invisibleRootItem()}};
    for (const QString &pair : QString("a ba cb dc ea fe g hg").split(' '))
        items[pair.left(1)] = new QTreeWidgetItem(items[pair.mid(1)], {pair.left(1)});
    for (const QChar name : before)
        items[name]->setExpanded(true);
    const QModelIndex a = widget.model()->index(0, 0);
    if (hasRoot)
        widget.setRootIndex(a);
    TreeViewContextMenu menu(&widget, widget.visualRect(widget.model()->index(0, 0, a)).center());
    QString log;
    connect(&widget, &QTreeWidget::itemExpanded, &widget,
            [&](const QTreeWidgetItem *item) { log += (widget.isAnimated() ? " +" : " ") + item->text(0); });
    pressInMenu("us");
    QCOMPARE(menu.show(), 99);
    QTEST(log.mid(1), "log");
    QVERIFY(!widget.isAnimated() && !items["e"]->isExpanded() && !items["g"]->isExpanded());
}

void tst_TreeViewContextMenu::deletedWhileOpen()
{
    for (const QString &what : {QString("view"), QString("model"), QString("menu"), QString("entry")}) {
        auto model = std::make_unique<BVTreeViewModel>();
        model->setColumnCount(1);
        new BVTreeViewItem(new BVTreeViewItem(model->invisibleRootItem()));
        auto view = std::make_unique<BVTreeView>();
        view->setModel(model.get());
        auto menu = std::make_unique<TreeViewContextMenu>(view.get(), s_onRow);
        auto *entry = new QAction("Goes");
        menu->appendAction(entry, true);
        connect(entry, &QAction::triggered, this, [&] {
            if (what == "view")
                view.reset();
            if (what == "model")
                model.reset();
            if (what == "menu")
                menu.reset();
            else
                QMetaObject::invokeMethod(menu.get(), "onCollapseOther");
            delete entry;
        });
        pressInMenu("ds");
        QAction *chosen = entry;
        QCOMPARE(menu->show(&chosen), -1);
        QVERIFY(!chosen);
    }
}

QTEST_MAIN(tst_TreeViewContextMenu)
#include "tst_treeviewcontextmenu.moc"
