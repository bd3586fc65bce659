// SPDX-License-Identifier: MIT
#include "itemviews/BVDelegateManager.h"
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVTreeView.h"
#include "itemviews/BVTreeViewModel.h"
#include "itemviews/TreeViewCopyHandler.h"
#include "units/BVFormatter.h"

#include "TestSupport.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QSortFilterProxyModel>
#include <QTest>
#include <QTreeWidget>

#include <functional>
#include <random>

namespace {

/// The rows a(b(c),d) and e behind a proxy, in columns A with the name, B with a number and C.
struct Tree
{
    Tree();

    QModelIndex row(const QString &name) const
    {
        const auto flags = Qt::MatchExactly | Qt::MatchRecursive;
        return m_proxy.match(m_proxy.index(0, 0), Qt::DisplayRole, name, 1, flags).value(0);
    }
    void step(const QString &step) { m_steps[step.section(':', 0, 0)](step.section(':', 1)); }
    QString clipboard() const { return QApplication::clipboard()->text(); }

    BVTreeViewModel m_model;
    QSortFilterProxyModel m_proxy;
    BVItemDelegate m_delegate;
    BVDelegateManager m_manager;
    BVTreeView m_view;
    TreeViewCopyHandler m_handler; // deleted before its parent
    QHash<QString, std::function<void(const QString &)>> m_steps;
};

Tree::Tree()
    : m_handler(&m_view)
{
    const auto add = [](const QString &name, BVTreeViewItem *parent) {
        auto *item = new BVTreeViewItem({{{Qt::DisplayRole, name}}, {{Qt::DisplayRole, 1.5}}, {{Qt::DisplayRole, name + "2"}}}, parent);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        return item;
    };
    m_model.setColumnCount(3);
    for (int column = 0; column < 3; ++column)
        m_model.setHeaderData(column, Qt::Horizontal, QString(QChar('A' + column)));
    BVTreeViewItem *a = add("a", m_model.invisibleRootItem());
    add("c", add("b", a));
    add("d", a);
    BVTreeViewItem *e = add("e", m_model.invisibleRootItem());
    m_proxy.setSourceModel(&m_model);
    m_delegate.formatter()->setDecimals(3);
    m_manager.setDelegateForColumn(1, &m_delegate);
    m_manager.setDelegateForColumn(2, &m_delegate);
    m_view.setItemDelegate(&m_manager);
    m_view.setModel(&m_proxy);
    m_view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_handler.enableCopySelectedAction(true);
    m_handler.enableCopyAllAction(true);
    QApplication::clipboard()->setText("before");
    QItemSelectionModel::SelectionFlags rows = QItemSelectionModel::Select | QItemSelectionModel::Rows;
    m_steps = {
        {"select", [=](const QString &name) { m_view.selectionModel()->select(row(name), rows); }},
        {"cell", [=](const QString &name) { m_view.selectionModel()->select(row(name).siblingAtColumn(2), QItemSelectionModel::Select); }},
        {"copy", [=](const QString &) { QTest::keyClick(&m_view, Qt::Key_C, Qt::ControlModifier); }},
        {"all", [=](const QString &) { m_handler.findChildren<QAction *>().constLast()->trigger(); }},
        {"menu",
         [=](const QString &hidden) {
             QMenu menu;
             m_handler.addCopyActionsToMenu(menu);
             if (!hidden.isEmpty())
                 step("hide:" + hidden);
             Q_EMIT menu.aboutToShow();
             QStringList texts; // "!" behind those disabled
             for (const QAction *action : menu.actions())
                 texts << action->text() + (action->isEnabled() ? "" : "!");
             QApplication::clipboard()->setText(texts.join(','));
         }},
        {"hide", [=](const QString &name) { m_view.setRowHidden(row(name).row(), row(name).parent(), true); }},
        {"hideColumn", [=](const QString &column) { m_view.setColumnHidden(column.toInt(), true); }},
        {"ignore",
         [=](const QString &column) {
             m_handler.setIgnoredColumns({column.toInt(), 77});
         }},
        {"noHeader", [=](const QString &) { m_view.setHeaderHidden(true); }},
        {"moveColumn", [=](const QString &) { m_view.header()->moveSection(2, 0); }},
        {"format", [=](const QString &) { m_handler.setUseFormattedValues(true); }},
        {"sort", [=](const QString &) { m_proxy.sort(0, Qt::DescendingOrder); }},
        {"filter", [=](const QString &text) { m_proxy.setFilterFixedString(text); }},
        {"root", [=](const QString &name) { m_view.setRootIndex(row(name)); }},
        {"disable", [=](const QString &) { e->setDisabled(true); }},
        {"text", [=](const QString &) { e->setText(2, "x\ty\n<&"); }},
        {"number",
         [=](const QString &) {
             e->setData(2, Qt::DisplayRole, 12345);
             m_view.setLocale(QLocale::German);
         }},
        {"clear", [=](const QString &) { m_model.clear(); }},
        {"unselect", [=](const QString &) { m_view.clearSelection(); }},
        {"never", [=](const QString &) { m_view.setSelectionMode(QAbstractItemView::NoSelection); }},
        {"source", [=](const QString &) { m_view.setModel(&m_model); }},
        {"off", [=](const QString &) { m_handler.enableCopySelectedAction(false); }},
    };
}

} // namespace

class tst_TreeViewCopyHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void steps_data();
    void steps();
    void html();
    void sortedRows();
    void keys();
};

void tst_TreeViewCopyHandler::steps_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("clipboard"); // " " for tabs, "|" for newlines; or the menu

    const char *const rows[][3] = {
        {"a child before its parent's sibling", "select:e select:d select:c copy", "A B C|c 1.5 c2|d 1.5 d2|e 1.5 e2"},
        {"none selected", "copy", "before"},
        {"one cell selected", "cell:e copy", "A B C|e 1.5 e2"},
        {"disabled row", "select:a select:e disable copy", "A B C|a 1.5 a2"},
        {"selected below a hidden row", "select:d select:e hide:a copy", "A B C|e 1.5 e2"},
        {"selected outside the root", "select:d select:e root:a copy", "A B C|d 1.5 d2"},
        {"selected in a sorted proxy", "sort select:a select:d select:e copy", "A B C|e 1.5 e2|a 1.5 a2|d 1.5 d2"},
        {"all", "all", "A B C|a 1.5 a2|b 1.5 b2|c 1.5 c2|d 1.5 d2|e 1.5 e2"},
        {"all, without a proxy", "source all", "A B C|a 1.5 a2|b 1.5 b2|c 1.5 c2|d 1.5 d2|e 1.5 e2"},
        {"all but hidden", "hide:b all", "A B C|a 1.5 a2|d 1.5 d2|e 1.5 e2"},
        {"all below the root", "root:a all", "A B C|b 1.5 b2|c 1.5 c2|d 1.5 d2"},
        {"hidden and ignored columns", "hideColumn:0 ignore:2 select:a select:e copy", "B|1.5|1.5"},
        {"no header", "noHeader ignore:1 select:e copy", "e e2"},
        {"moved column", "moveColumn select:e copy", "C A B|e2 e 1.5"},
        {"formatted", "format ignore:2 select:e copy", "A B|e 1.500"},
        {"formatted, with tabs and newlines", "format ignore:1 text select:e copy", "A C|e x y|<&"},
        {"formatted in the view's locale", "format ignore:1 number select:e copy", "A C|e 12.345"},
        {"no columns", "hideColumn:0 hideColumn:1 ignore:2 select:e copy all", "before"},
        {"no rows to select", "clear copy", "before"},
        {"all rows hidden", "hide:a hide:e all", "A B C"},
        {"all rows hidden, no header", "noHeader hide:a hide:e all", "before"},
        {"menu, selected", "select:a menu", "Copy,Copy all"},
        {"menu, none selected", "select:a unselect menu", "Copy!,Copy all"},
        {"menu, selected row gone", "select:a filter:e menu", "Copy!,Copy all"},
        {"menu, selected row hidden", "select:a menu:a", "Copy!,Copy all"},
        {"menu, other model", "select:a source menu", "Copy!,Copy all"},
        {"menu, nothing can be selected", "never menu", "Copy all"},
        {"menu, copying selected rows off", "select:a off menu", "Copy all"},
        {"menu, no rows", "clear menu", ""},
    };
    for (const auto &row : rows)
        QTest::newRow(row[0]) << QString(row[1]) << QString(row[2]);
}

void tst_TreeViewCopyHandler::steps()
{
    QFETCH(QString, steps);
    QFETCH(QString, clipboard);
    Tree tree;
    for (const QString &step : steps.split(' '))
        tree.step(step);
    if (!steps.contains("menu"))
        clipboard.replace(' ', '\t').replace('|', '\n');
    QCOMPARE(tree.clipboard(), clipboard);
}

void tst_TreeViewCopyHandler::html()
{
    Tree tree;
    tree.m_handler.setHtmlEnabled(true);
    for (const char *step : {"ignore:1", "text", "select:e", "copy", "clear"}) // what was copied stays
        tree.step(step);
    const QMimeData *data = QApplication::clipboard()->mimeData();
    QVERIFY(data->hasHtml() && data->formats().contains("text/html"));
    QCOMPARE(data->text(), QString("A\tC\ne\tx\ty\n<&"));
    QVERIFY(data->html().contains(
        "<tr><th>A</th><th>C</th></tr>\n<tr><td>e</td><td>x&#9;y<br style=\"mso-data-placement:same-cell\">&lt;&amp;</td></tr>\n</table>"));
    QCOMPARE(QString::fromUtf8(data->data("text/html")), data->html());
}

/// Against a walk over all items, in random widgets with random selections and hidden rows.
void tst_TreeViewCopyHandler::sortedRows()
{
    std::mt19937 random(7);
    const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
    for (int round = 0; round < 50; ++round) {
        QTreeWidget widget;
        widget.setSelectionMode(QAbstractItemView::MultiSelection);
        QList<QTreeWidgetItem *> items{widget.invisibleRootItem()};
        for (int i = 1; i < 60; ++i) {
            QTreeWidgetItem *parent = items[i % 4 ? below(i) : 0];
            items << new QTreeWidgetItem({QString::number(i)});
            parent->insertChild(below(parent->childCount() + 1), items[i]);
        }
        for (QTreeWidgetItem *item : items.mid(1)) {
            item->setSelected(below(3) == 0);
            item->setHidden(below(12) == 0);
        }
        QStringList expected;
        const std::function<void(QTreeWidgetItem *)> walk = [&](QTreeWidgetItem *item) {
            if (item->isSelected())
                expected << item->text(0);
            for (int i = 0; i < item->childCount(); ++i) {
                if (!item->child(i)->isHidden())
                    walk(item->child(i));
            }
        };
        walk(items[0]);
        QStringList rows;
        for (const QModelIndex &index : getSortedSelectedRows(&widget))
            rows << index.data().toString();
        QCOMPARE(rows, expected);
    }
}

/// The window has an action with the same keys.
void tst_TreeViewCopyHandler::keys()
{
    QWidget window;
    Tree tree;
    tree.m_view.setParent(&window);
    QAction *copy = new QAction(&window);
    copy->setShortcut(QKeySequence::Copy);
    window.addAction(copy);
    int count = 0;
    connect(copy, &QAction::triggered, &window, [&] { ++count; });
    window.show();
    tree.m_view.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    tree.step("select:e");
    tree.step("copy");
    QCOMPARE(tree.clipboard(), "A\tB\tC\ne\t1.5\te2");
    tree.m_view.setCurrentIndex(tree.row("e").siblingAtColumn(1));
    QTest::keyClick(&tree.m_view, Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(tree.clipboard(), "1.500"); // the editor's
    tree.m_view.setFocus();
    QCOMPARE(count, 0);
    tree.step("off");
    tree.step("copy");
    QCOMPARE(count, 1);
}

QTEST_MAIN(tst_TreeViewCopyHandler)
#include "tst_treeviewcopyhandler.moc"
