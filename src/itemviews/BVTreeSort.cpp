// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeSort_p.h"

#include "itemviews/BVCheckCounters_p.h"
#include "itemviews/BVItemBranch_p.h"
#include "itemviews/BVSiblingSort_p.h"
#include "itemviews/BVTreeViewModel.h"
#include "itemviews/BVTreeVisit_p.h"

void BVTreeSort::sort(BVTreeViewItem *parent, int column, Qt::SortOrder order) const
{
    if (!m_model->flushFor(parent) || !BVSiblingSort::isSortable(*parent, column))
        return;
    m_model->m_sortColumn = column;
    // The list would have to name every parent below; an empty one stands for the whole model.
    QList<QPersistentModelIndex> parents;
    if (isFlat(*parent))
        parents.append(m_model->cell(parent, 0));
    Q_EMIT m_model->layoutAboutToBeChanged(parents, QAbstractItemModel::VerticalSortHint);
    ++m_model->m_structure;
    const QModelIndexList before =
        m_model->m_keepSelectedAfterSorting ? m_model->persistentIndexList() : QModelIndexList();
    QVector<const BVTreeViewItem *> items;
    items.reserve(before.size());
    for (const QModelIndex &index : before)
        items.append(m_model->item(index));
    sortLists(parent, column, order);
    QModelIndexList after;
    after.reserve(before.size());
    for (int i = 0; i < before.size(); ++i)
        after.append(m_model->index(items[i], before[i].column())); // invalid for rows long gone
    m_model->changePersistentIndexList(before, after);
    Q_EMIT m_model->layoutChanged(parents, QAbstractItemModel::VerticalSortHint);
}

/// Sorts the children of all depths, without a word to anyone.
void BVTreeSort::sortLists(BVTreeViewItem *parent, int column, Qt::SortOrder order)
{
    QVector<BVTreeViewItem *> toSort{parent};
    while (!toSort.isEmpty()) {
        BVTreeViewItem *next = toSort.takeLast();
        if (!BVSiblingSort::isSortable(*next, column))
            continue;
        next->m_branch->children = BVSiblingSort::sorted(next->children(), column, order);
        next->numberChildren(0);
        BVCheckCounters::forget(next); // which state stands first may decide
        for (BVTreeViewItem *child : next->children()) {
            if (child->childCount() > 0)
                toSort.append(child);
        }
    }
}
