// SPDX-License-Identifier: MIT
#include "navigation/BVStackSelection_p.h"

#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVStackTreeItem_p.h"

#include "itemviews/BVDragTreeWidget.h"

#include <QItemSelection>

#include <algorithm>

QList<int> BVStackSelection::selected(const BVControlledStackWidget &stack)
{
    QList<int> indexes;
    if (!stack.tree())
        return indexes;
    const QList<QTreeWidgetItem *> rows = stack.tree()->selectedItems();
    for (const QTreeWidgetItem *row : rows)
        if (const BVControlledStackItem *item = BVStackTreeItem::entryOf(row))
            indexes.append(stack.getDFSIndex(item));
    std::sort(indexes.begin(), indexes.end());
    return indexes;
}

void BVStackSelection::select(const BVControlledStackWidget &stack,
                              const QList<QTreeWidgetItem *> &rows)
{
    const BVDragTreeWidget *tree = stack.tree();
    if (!tree)
        return;
    QItemSelection selection;
    for (QTreeWidgetItem *row : rows) {
        const QModelIndex index = tree->indexFromItem(row);
        selection.select(index, index);
        if (tree->selectionMode() == QAbstractItemView::SingleSelection)
            break;
    }
    tree->selectionModel()->select(selection,
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void BVStackSelection::clearMarks(const BVControlledStackWidget &stack)
{
    const QList<BVControlledStackItem *> items = stack.getDFSItems();
    for (BVControlledStackItem *item : items)
        if (item->isMarked())
            item->setMarked(false);
}
