// SPDX-License-Identifier: MIT
#include "itemviews/BVSelectedRows_p.h"

#include <QHash>
#include <QItemSelection>
#include <QTreeView>
#include <QVector>

#include <algorithm>
#include <tuple>
#include <vector>

namespace {

/// A row that is selected or leads to selected ones.
struct Row
{
    int row;
    bool isSelected;
};

using RowsByParent = QHash<QModelIndex, QVector<Row>>;

QItemSelection selectionOf(const QTreeView &view)
{
    const QItemSelectionModel *selection = view.selectionModel();
    return view.model() && selection && selection->hasSelection() ? selection->selection()
                                                                  : QItemSelection();
}

/// Ranges also cover cells that cannot be selected.
bool isSelected(const QItemSelectionRange &range, int row)
{
    constexpr Qt::ItemFlags needed = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    for (int column = range.left(); column <= range.right(); ++column) {
        if ((range.model()->index(row, column, range.parent()).flags() & needed) == needed)
            return true;
    }
    return false;
}

/// Whether the view shows the rows below @p parent when all branches are open.
bool showsChildren(const QTreeView &view, QModelIndex parent)
{
    while (parent.isValid() && parent != view.rootIndex()) {
        const QModelIndex above = parent.parent();
        if (parent.column() > 0 || view.isRowHidden(parent.row(), above))
            return false;
        parent = above;
    }
    return parent == view.rootIndex();
}

/// The selected rows, below each parent as the selection has them.
RowsByParent selectedRows(const QItemSelection &selection)
{
    RowsByParent rows;
    for (const QItemSelectionRange &range : selection) {
        if (!range.isValid())
            continue;
        QVector<Row> &siblings = rows[range.parent()];
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (isSelected(range, row))
                siblings.append({row, true});
        }
    }
    return rows;
}

/// Adds the rows that lead to the selected ones.
void addWays(RowsByParent &rows)
{
    const QList<QModelIndex> parents = rows.keys();
    for (QModelIndex parent : parents) {
        bool isKnown = false;
        while (parent.isValid() && !isKnown) {
            const QModelIndex above = parent.parent();
            isKnown = rows.contains(above); // its own way is added with it
            rows[above].append({parent.row(), false});
            parent = above;
        }
    }
}

/// From top to bottom, each row once.
void arrange(QVector<Row> &rows)
{
    const auto isAbove = [](const Row &left, const Row &right) {
        return std::make_tuple(left.row, !left.isSelected) <
               std::make_tuple(right.row, !right.isSelected);
    };
    const auto isSame = [](const Row &left, const Row &right) { return left.row == right.row; };
    std::sort(rows.begin(), rows.end(), isAbove);
    rows.erase(std::unique(rows.begin(), rows.end(), isSame), rows.end());
}

struct Level
{
    QModelIndex parent;
    QVector<Row> rows;
    int next = 0;
};

Level takeLevel(RowsByParent &rows, const QModelIndex &parent)
{
    Level level{parent, rows.take(parent)};
    arrange(level.rows);
    return level;
}

} // namespace

bool BVSelectedRows::isAny(const QTreeView &view)
{
    const QItemSelection selection = selectionOf(view);
    return std::any_of(selection.cbegin(), selection.cend(), [&](const QItemSelectionRange &range) {
        if (!range.isValid() || !showsChildren(view, range.parent()))
            return false;
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (isSelected(range, row) && !view.isRowHidden(row, range.parent()))
                return true;
        }
        return false;
    });
}

QModelIndexList BVSelectedRows::sorted(const QTreeView &view)
{
    QModelIndexList indexes;
    RowsByParent rows = selectedRows(selectionOf(view));
    addWays(rows);
    std::vector<Level> path{takeLevel(rows, view.rootIndex())};
    while (!path.empty()) {
        Level &level = path.back();
        if (level.next == level.rows.size()) {
            path.pop_back();
            continue;
        }
        const Row row = level.rows.at(level.next++);
        if (view.isRowHidden(row.row, level.parent))
            continue;
        const QModelIndex index = view.model()->index(row.row, 0, level.parent);
        if (row.isSelected)
            indexes.append(index);
        if (rows.contains(index))
            path.push_back(takeLevel(rows, index)); // level dangles
    }
    return indexes;
}
