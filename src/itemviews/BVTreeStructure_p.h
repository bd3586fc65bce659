// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

class BVTreeViewItem;
class BVTreeViewModel;

/// Puts items into a model and takes them out, with all that the model has to know and tell of it.
///
/// What is pending is told first, and slots may change the tree then.
class BVTreeStructure
{
public:
    using Items = QVector<BVTreeViewItem *>;

    explicit BVTreeStructure(BVTreeViewModel *model)
        : m_model(model)
    {
    }
    /// Inserts those of the items that are free.
    void insert(BVTreeViewItem *parent, int row, const Items &items);
    /// Null when a slot has been faster.
    BVTreeViewItem *take(BVTreeViewItem *parent, int row);
    Items takeAll(BVTreeViewItem *parent);

    /// These do not look for pending changes. The items are free, the rows exist.
    void insertFree(BVTreeViewItem *parent, int row, const Items &items);
    Items takeRows(BVTreeViewItem *parent, int row, int count);

private:
    void enter(const Items &items);
    void depart(const Items &items);

    BVTreeViewModel *m_model;
};
