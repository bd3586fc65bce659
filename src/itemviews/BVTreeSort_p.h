// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class BVTreeViewItem;
class BVTreeViewModel;

/// Sorts what stands below an item of a model at every depth, and tells of it as one layout change.
class BVTreeSort
{
public:
    explicit BVTreeSort(BVTreeViewModel *model)
        : m_model(model)
    {
    }
    void sort(BVTreeViewItem *parent, int column, Qt::SortOrder order) const;

private:
    static void sortLists(BVTreeViewItem *parent, int column, Qt::SortOrder order);

    BVTreeViewModel *m_model;
};
