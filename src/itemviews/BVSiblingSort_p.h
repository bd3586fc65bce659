// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>
#include <Qt>

class BVTreeViewItem;

/// The order of the rows below one parent.
class BVSiblingSort
{
public:
    /// Whether the item's children can be sorted by the column: the first of them has it.
    static bool isSortable(const BVTreeViewItem &parent, int column);

    /// The items in order, equal ones as they stood. Items that are all of the class BVTreeViewItem
    /// itself are compared by collation keys, one made for each; others by their operator<, which
    /// has to know the column.
    static QVector<BVTreeViewItem *> sorted(const QVector<BVTreeViewItem *> &items, int column,
                                            Qt::SortOrder order);
};
