// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

class BVItemSpan;
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
    /// Null when a slot has been faster.
    BVTreeViewItem *take(BVTreeViewItem *parent, int row);
    Items takeAll(BVTreeViewItem *parent);
    /// From the first to the last, as when their parent is deleted. Until it is its turn each has
    /// an owner, since slots and the destructors of others may delete it.
    void deleteAll(BVTreeViewItem *parent);

    /// These do not look for pending changes. The items are free, the rows exist. Below a disabled
    /// row, insert() disables the items.
    void insert(BVTreeViewItem *parent, int row, const BVItemSpan &items);
    void insertFree(BVTreeViewItem *parent, int row, const BVItemSpan &items);
    Items takeRows(BVTreeViewItem *parent, int row, int count);
    /// As deleteAll(), from the last to the first.
    void deleteRows(BVTreeViewItem *parent, int row, int count);

private:
    Items release(BVTreeViewItem *parent, int row, int count);
    void enter(const BVItemSpan &items);
    void depart(const BVItemSpan &items);

    BVTreeViewModel *m_model;
};
