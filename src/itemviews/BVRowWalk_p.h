// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemModel>
#include <QVector>

#include <vector>

/// Depth-first walks over the rows of a model.
namespace BVRowWalk {

enum Step {
    Descend, ///< go on with the row's children
    Skip,    ///< go on behind them
    Stop,
};

/// Visits the first cell of each row below @p parent, parents before children, which @p visit
/// answers with a Step. Rows without columns are left out. The model must not change meanwhile.
template <typename Visit>
void visit(const QAbstractItemModel &model, const QModelIndex &parent, Visit &&visit)
{
    struct Level
    {
        QModelIndex parent;
        int row;
        int count;
    };
    std::vector<Level> path{{parent, 0, model.rowCount(parent)}};
    while (!path.empty()) {
        Level &level = path.back();
        if (level.row >= level.count) {
            path.pop_back();
            continue;
        }
        const QModelIndex index = model.index(level.row++, 0, level.parent);
        if (!index.isValid())
            continue;
        const Step step = visit(index);
        if (step == Stop)
            return;
        if (step == Descend && model.hasChildren(index))
            path.push_back({index, 0, model.rowCount(index)});
    }
}

/// The rows that lead from the top level to the index: a row with a lesser path stands above
/// another one when all branches are open.
QVector<int> pathTo(QModelIndex index);
/// The position of the index's row among all rows of its model, or -1.
int positionOf(const QModelIndex &index);
/// The first cell of the row at a position; invalid if there is none.
QModelIndex rowAt(const QAbstractItemModel *model, int position);

} // namespace BVRowWalk
