// SPDX-License-Identifier: MIT
// Copying all rows of a tree view, beside joining string lists, over the same model.
#include "itemviews/BVTreeView.h"
#include "itemviews/BVTreeViewModel.h"
#include "itemviews/TreeViewCopyHandler.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>

#include <benchmark/benchmark.h>

namespace {

constexpr int s_rows = 100000;
constexpr int s_columns = 5;

struct Tree
{
    Tree()
    {
        model.setColumnCount(s_columns);
        QVector<BVTreeViewItem *> items;
        for (int row = 0; row < s_rows; ++row) {
            auto *item = new BVTreeViewItem;
            for (int column = 0; column < s_columns; ++column)
                item->setText(column, QStringLiteral("step %1.%2").arg(row).arg(column));
            items << item;
        }
        for (int column = 0; column < s_columns; ++column)
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

Tree &tree()
{
    static auto *s_tree = new Tree; // outlives the application
    return *s_tree;
}

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
    QAction *copyAll = tree().menu.actions().constFirst();
    for (auto _ : state)
        copyAll->trigger();
    if (QApplication::clipboard()->text() != joinedLists(tree().model))
        state.SkipWithError("the texts differ");
}
BENCHMARK(copyAllOurs)->Unit(benchmark::kMillisecond);

void copyAllJoinedLists(benchmark::State &state)
{
    const BVTreeViewModel &model = tree().model;
    for (auto _ : state)
        QApplication::clipboard()->setText(joinedLists(model));
}
BENCHMARK(copyAllJoinedLists)->Unit(benchmark::kMillisecond);

} // namespace
