// SPDX-License-Identifier: MIT
#include "navigation/BVStackGroups_p.h"

#include "navigation/BVStackTreeItem_p.h"

#include "itemviews/BVTreeItemMove_p.h"

#include <QSet>
#include <QTreeWidget>

namespace {

int rowBefore(const QTreeWidgetItem *parent, const QSet<QTreeWidgetItem *> &moved, int index)
{
    const int count = BVStackTreeItem::entryCount(parent);
    int position = 0;
    for (int i = 0; i < count; ++i)
        if (!moved.contains(parent->child(i)) && position++ == index)
            return i;
    return count;
}

} // namespace

void BVStackGroups::move(const QList<QTreeWidgetItem *> &rows, QTreeWidgetItem *parent, int index)
{
    const QSet<QTreeWidgetItem *> moved(rows.cbegin(), rows.cend());
    BVTreeItemMove(rows).execute(parent, rowBefore(parent, moved, index));
}

int BVStackGroups::topLevelPlaceOf(const QTreeWidget *tree, const QList<QTreeWidgetItem *> &rows)
{
    int place = -1;
    for (QTreeWidgetItem *row : rows) {
        while (row->parent())
            row = row->parent();
        const int topLevel = tree->indexOfTopLevelItem(row);
        place = place < 0 ? topLevel : qMin(place, topLevel);
    }
    return place;
}
