// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

#include <vector>

class BVTreeViewItem;
class BVTreeViewModel;
struct BVPendingGroup;

/// Tells of a model's collected changes.
///
/// Slots may change the structure meanwhile: then the rows of all that is still to be told are
/// looked up anew, and what has left the model is not told. Once columns have moved, the rest is
/// told with all columns.
class BVChangeFlush
{
public:
    explicit BVChangeFlush(BVTreeViewModel *model);
    /// One dataChanged() for each range of neighbouring rows and one itemsChanged() for all. False
    /// if a slot has deleted the model.
    bool tell(const BVPendingGroup &group) const;

private:
    using Items = QVector<BVTreeViewItem *>;

    /// Children of one parent and their rows, rising.
    struct Rows
    {
        BVTreeViewItem *parent = nullptr;
        Items items;
        std::vector<int> rows;
    };

    Items itemsOf(const BVPendingGroup &group) const;
    Items left(const Items &items, const BVPendingGroup &group) const;
    Rows byRow(const Items &items, const BVPendingGroup &group) const;
    int tellRanges(const Rows &rows, const BVPendingGroup &group) const;
    void tellRange(int first, int last, BVTreeViewItem *parent, const BVPendingGroup &group) const;

    int columnOf(const BVPendingGroup &group) const;

    BVTreeViewModel *m_model;
    quint64 m_columnShifts; // when the changes were taken from the model
};
