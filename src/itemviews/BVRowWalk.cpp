// SPDX-License-Identifier: MIT
#include "itemviews/BVRowWalk_p.h"

QVector<int> BVRowWalk::pathTo(QModelIndex index)
{
    QVector<int> path;
    for (; index.isValid(); index = index.parent())
        path.prepend(index.row());
    return path;
}

int BVRowWalk::positionOf(const QModelIndex &index)
{
    if (!index.isValid())
        return -1;
    const QModelIndex row = index.sibling(index.row(), 0);
    int position = -1;
    visit(*index.model(), QModelIndex(), [&](const QModelIndex &visited) {
        ++position;
        return visited == row ? Stop : Descend;
    });
    return position;
}

QModelIndex BVRowWalk::rowAt(const QAbstractItemModel *model, int position)
{
    QModelIndex found;
    if (!model || position < 0)
        return found;
    visit(*model, QModelIndex(), [&](const QModelIndex &visited) {
        if (position-- > 0)
            return Descend;
        found = visited;
        return Stop;
    });
    return found;
}
