// SPDX-License-Identifier: MIT
// Copying all rows of a tree view, beside joining string lists, over the same model.
#include "RatioTable.h"
#include "Trees.h"
#include "itemviews/BVTreeView.h"
#include "itemviews/TreeViewCopyHandler.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>

namespace {

constexpr int s_copied = 5; // columns

struct CopiedTree
{
    CopiedTree()
    {
        model.setColumnCount(s_copied);
        QVector<BVTreeViewItem *> items;
        for (int row = 0; row < s_rows; ++row) {
            auto *item = new BVTreeViewItem;
            for (int column = 0; column < s_copied; ++column)
                item->setText(column, text(row, column));
            items << item;
        }
        for (int column = 0; column < s_copied; ++column)
            model.setHeaderData(column, Qt::Horizontal, QStringLiteral("Column %1").arg(column));
        model.appendTopLevelItems(items);
        view.setModel(&model);
        view.enableCopyAllAction(true);
        view.getCopyHandler()->addCopyActionsToMenu(menu);
    }

    BVTreeViewModel model;
    BVTreeView view;
    QMenu menu;
};

QString joinedLists(const QAbstractItemModel &model)
{
    QStringList lines;
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column)
        cells << model.headerData(column, Qt::Horizontal).toString();
    lines << cells.join(QLatin1Char('\t'));
    for (int row = 0; row < model.rowCount(); ++row) {
        cells.clear();
        for (int column = 0; column < model.columnCount(); ++column)
            cells << model.index(row, column).data().toString();
        lines << cells.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n'));
}

void copyAllOurs(benchmark::State &state)
{
    CopiedTree tree;
    QAction *copyAll = tree.menu.actions().constFirst();
    for (auto _ : state)
        copyAll->trigger();
    if (QApplication::clipboard()->text() != joinedLists(tree.model))
        state.SkipWithError("the texts differ");
}

void copyAllJoinedLists(benchmark::State &state)
{
    const CopiedTree tree;
    for (auto _ : state)
        QApplication::clipboard()->setText(joinedLists(tree.model));
}

} // namespace

void addCopyRows()
{
    RatioTable::add("copy all, 100,000 x 5 (joined string lists)", 0.45, copyAllOurs,
                    copyAllJoinedLists);
}
