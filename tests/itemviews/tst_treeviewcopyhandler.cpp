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
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QSortFilterProxyModel>
#include <QTest>
#include <QTreeWidget>

#include <random>

namespace {

constexpr char s_before[] = "before";

QString clipboardText()
{
    return QApplication::clipboard()->text();
}

/// The rows a(b(c),d) and e behind a proxy, in columns A with the name, B with a number and C.
struct Tree
{
    Tree()
        : m_handler(&m_view)
    {
        m_model.setColumnCount(3);
        const auto add = [&](const QString &name, BVTreeViewItem *parent) {
            return new BVTreeViewItem(
                {{{Qt::DisplayRole, name}}, {{Qt::DisplayRole, 1.5}}, {{Qt::DisplayRole, name + "2"}}}, parent);
        };
        BVTreeViewItem *a = add("a", m_model.invisibleRootItem());
        add("c", add("b", a));
        add("d", a);
        add("e", m_model.invisibleRootItem())->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
        for (int column = 0; column < 3; ++column)
            m_model.setHeaderData(column, Qt::Horizontal, QString(QChar('A' + column)));
        m_proxy.setSourceModel(&m_model);
        m_view.setModel(&m_proxy);
        m_view.setSelectionMode(QAbstractItemView::ExtendedSelection);
        m_handler.enableCopySelectedAction(true);
        m_handler.enableCopyAllAction(true);
        QApplication::clipboard()->setText(s_before);
    }

    QModelIndex row(const QString &name) const
    {
        return m_proxy.match(m_proxy.index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }

    /// The offered actions, "!" behind those disabled.
    QString actions()
    {
        QMenu menu;
        m_handler.addCopyActionsToMenu(menu);
        QStringList texts;
        for (const QAction *action : menu.actions())
            texts << action->text() + (action->isEnabled() ? "" : "!");
        return texts.join(',');
    }

    void copyAll()
    {
        QMenu menu;
        m_handler.addCopyActionsToMenu(menu);
        if (!menu.isEmpty())
            menu.actions().constLast()->trigger();
    }

    void step(const QString &step);

    BVTreeViewModel m_model;
    QSortFilterProxyModel m_proxy;
    BVTreeView m_view;
    TreeViewCopyHandler m_handler; // deleted before its parent
};

void Tree::step(const QString &step)
{
    const QString word = step.section(':', 0, 0);
    const QString rest = step.section(':', 1);
    if (word == "select") {
        for (const QChar name : rest)
            m_view.selectionModel()->select(row(name), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    } else if (word == "cell") {
        m_view.selectionModel()->select(row(rest).sibling(row(rest).row(), 2), QItemSelectionModel::Select);
    } else if (word == "copy") {
        QTest::keyClick(&m_view, Qt::Key_C, Qt::ControlModifier);
    } else if (word == "all") {
        copyAll();
    } else if (word == "hide") {
        m_view.setRowHidden(row(rest).row(), row(rest).parent(), true);
    } else if (word == "hideColumn") {
        m_view.setColumnHidden(rest.toInt(), true);
    } else if (word == "ignore") {
        m_handler.setIgnoredColumns({rest.toInt(), 77});
    } else if (word == "noHeader") {
        m_view.setHeaderHidden(true);
    } else if (word == "moveColumn") {
        m_view.header()->moveSection(2, 0);
    } else if (word == "sort") {
        m_proxy.sort(0, Qt::DescendingOrder);
    } else if (word == "root") {
        m_view.setRootIndex(row(rest));
    } else if (word == "disable") {
        m_model.getTopLevelItemFromIndex(1)->setDisabled(true);
    } else if (word == "text") {
        m_model.getTopLevelItemFromIndex(1)->setText(2, "x\ty\n<&");
    } else if (word == "clear") {
        m_model.clear();
    } else if (word == "filter") {
        m_proxy.setFilterFixedString("e");
    } else if (word == "model") {
        m_view.setModel(&m_model);
        m_handler.selectionModelChanged();
    } else if (word == "unselect") {
        m_view.clearSelection();
    } else if (word == "none") {
        m_view.setSelectionMode(QAbstractItemView::NoSelection);
    } else if (word == "off") {
        m_handler.enableCopySelectedAction(false);
    }
}

} // namespace

class tst_TreeViewCopyHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void copies_data();
    void copies();
    void formatted();
    void html();
    void sortedRows();
    void actions_data();
    void actions();
    void keys();
};

void tst_TreeViewCopyHandler::copies_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("text"); // " " for tabs, "|" for newlines

    QTest::newRow("selected, as they stand") << "select:ea copy" << "A B C|a 1.5 a2|e 1.5 e2";
    QTest::newRow("a child before its parent's sibling") << "select:edcb copy" << "A B C|b 1.5 b2|c 1.5 c2|d 1.5 d2|e 1.5 e2";
    QTest::newRow("none selected") << "copy" << s_before;
    QTest::newRow("one cell selected") << "cell:e copy" << "A B C|e 1.5 e2";
    QTest::newRow("disabled row") << "select:ae disable copy" << "A B C|a 1.5 a2";
    QTest::newRow("selected, then hidden") << "select:ae hide:a copy" << "A B C|e 1.5 e2";
    QTest::newRow("selected below a hidden row") << "select:de hide:a copy" << "A B C|e 1.5 e2";
    QTest::newRow("selected outside the root") << "select:de root:a copy" << "A B C|d 1.5 d2";
    QTest::newRow("selected through a sorted proxy") << "sort select:ade copy" << "A B C|e 1.5 e2|a 1.5 a2|d 1.5 d2";
    QTest::newRow("all") << "all" << "A B C|a 1.5 a2|b 1.5 b2|c 1.5 c2|d 1.5 d2|e 1.5 e2";
    QTest::newRow("all but hidden") << "hide:b all" << "A B C|a 1.5 a2|d 1.5 d2|e 1.5 e2";
    QTest::newRow("all below the root") << "root:a all" << "A B C|b 1.5 b2|c 1.5 c2|d 1.5 d2";
    QTest::newRow("hidden and ignored columns") << "hideColumn:0 ignore:2 select:ae copy" << "B|1.5|1.5";
    QTest::newRow("no header") << "noHeader ignore:1 select:e copy" << "e e2";
    QTest::newRow("moved column") << "moveColumn select:e copy" << "C A B|e2 e 1.5";
    QTest::newRow("no columns") << "hideColumn:0 hideColumn:1 ignore:2 select:e copy all" << s_before;
    QTest::newRow("all rows hidden") << "hide:a hide:e all" << s_before;
    QTest::newRow("no rows") << "clear all copy" << s_before;
    QTest::newRow("off") << "select:e off all" << "A B C|a 1.5 a2|b 1.5 b2|c 1.5 c2|d 1.5 d2|e 1.5 e2";
}

void tst_TreeViewCopyHandler::copies()
{
    QFETCH(QString, steps);
    QFETCH(QString, text);
    Tree tree;
    for (const QString &step : steps.split(' '))
        tree.step(step);
    QCOMPARE(clipboardText(), text.replace(' ', '\t').replace('|', '\n'));
}

void tst_TreeViewCopyHandler::formatted()
{
    Tree tree;
    tree.step("ignore:2");
    BVItemDelegate delegate;
    delegate.formatter()->setValueUnit("mm");
    delegate.formatter()->setDecimals(2);
    BVDelegateManager manager;
    manager.setDelegateForColumn(1, &delegate);
    tree.m_view.setItemDelegate(&manager);
    tree.m_handler.setUseFormattedValues(true);
    tree.step("select:e");
    tree.step("copy");
    QCOMPARE(clipboardText(), "A\tB\ne\t" + delegate.getDisplayedText(tree.row("e").siblingAtColumn(1)));
    QVERIFY(clipboardText().endsWith("mm"));
}

void tst_TreeViewCopyHandler::html()
{
    Tree tree;
    for (const char *step : {"ignore:1", "text", "select:e", "copy"})
        tree.step(step);
    QVERIFY(!QApplication::clipboard()->mimeData()->hasHtml());
    tree.m_handler.setHtmlEnabled(true);
    tree.step("copy");
    tree.m_model.clear(); // what was copied stays
    const QMimeData *data = QApplication::clipboard()->mimeData();
    QVERIFY(data->hasHtml() && data->formats().contains("text/html"));
    QCOMPARE(data->text(), QString("A\tC\ne\tx\ty\n<&"));
    QVERIFY2(data->html().contains("<tr><th>A</th><th>C</th></tr>\n<tr><td>e</td><td>x&#9;y<br style=\"mso-data-placement:same-cell\">&lt;&amp;</td></tr>\n</table>"),
             qPrintable(data->html()));
    QCOMPARE(QString::fromUtf8(data->data("text/html")), data->html());
}

/// Against a walk over all rows of a widget, in random trees with random selections and hidden rows.
void tst_TreeViewCopyHandler::sortedRows()
{
    std::mt19937 random(7);
    const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
    for (int round = 0; round < 50; ++round) {
        QTreeWidget widget;
        widget.setSelectionMode(QAbstractItemView::MultiSelection);
        QList<QTreeWidgetItem *> items;
        for (int i = 0; i < 60; ++i) {
            QTreeWidgetItem *parent = i % 4 && i > 0 ? items[below(i)] : widget.invisibleRootItem();
            items << new QTreeWidgetItem({QString::number(i)});
            parent->insertChild(below(parent->childCount() + 1), items[i]);
        }
        for (QTreeWidgetItem *item : qAsConst(items)) {
            item->setExpanded(below(2));
            item->setSelected(below(3) == 0);
            item->setHidden(below(12) == 0);
        }
        QStringList expected;
        const std::function<void(QTreeWidgetItem *)> walk = [&](QTreeWidgetItem *item) {
            if (item->isHidden())
                return;
            if (item->isSelected())
                expected << item->text(0);
            for (int i = 0; i < item->childCount(); ++i)
                walk(item->child(i));
        };
        for (int i = 0; i < widget.topLevelItemCount(); ++i)
            walk(widget.topLevelItem(i));
        QStringList rows;
        for (const QModelIndex &index : getSortedSelectedRows(&widget))
            rows << index.data().toString();
        QCOMPARE(rows, expected);
    }
    QVERIFY(getSortedSelectedRows(nullptr).isEmpty());
}

void tst_TreeViewCopyHandler::actions_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("offered");

    QTest::newRow("selected") << "select:a" << "Copy,Copy all";
    QTest::newRow("none selected") << "select:a unselect" << "Copy!,Copy all";
    QTest::newRow("selected rows removed") << "select:a filter" << "Copy!,Copy all";
    QTest::newRow("selected rows hidden") << "select:a hide:a" << "Copy!,Copy all";
    QTest::newRow("other model") << "select:a model" << "Copy!,Copy all";
    QTest::newRow("other model, selected") << "model cell:e select:e" << "Copy,Copy all";
    QTest::newRow("nothing can be selected") << "none" << "Copy all";
    QTest::newRow("copying selected rows off") << "select:a off" << "Copy all";
    QTest::newRow("no rows") << "clear" << "";
}

void tst_TreeViewCopyHandler::actions()
{
    QFETCH(QString, steps);
    Tree tree;
    for (const QString &step : steps.split(' '))
        tree.step(step);
    QTEST(tree.actions(), "offered");
}

/// The window has an action with the same keys.
void tst_TreeViewCopyHandler::keys()
{
    Tree tree;
    QWidget window;
    tree.m_view.setParent(&window);
    QAction copy;
    copy.setShortcut(QKeySequence::Copy);
    window.addAction(&copy);
    int count = 0;
    connect(&copy, &QAction::triggered, &window, [&] { ++count; });
    window.show();
    tree.m_view.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    tree.step("select:e");
    tree.step("copy");
    QCOMPARE(clipboardText(), "A\tB\tC\ne\t1.5\te2");
    tree.m_view.setCurrentIndex(tree.row("e"));
    QTest::keyClick(&tree.m_view, Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboardText(), "e"); // the editor's
    tree.m_view.setFocus();
    QCOMPARE(count, 0);
    tree.m_handler.enableCopySelectedAction(false);
    tree.step("copy");
    QCOMPARE(count, 1);
    QCOMPARE(clipboardText(), "e");
    tree.m_view.setParent(nullptr);
}

QTEST_MAIN(tst_TreeViewCopyHandler)
#include "tst_treeviewcopyhandler.moc"
