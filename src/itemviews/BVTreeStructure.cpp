// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeStructure_p.h"

#include "itemviews/BVItemIdMap_p.h"
#include "itemviews/BVTreeViewModel.h"
#include "itemviews/BVTreeVisit_p.h"

#include <algorithm>

void BVTreeStructure::enter(const BVItemSpan &items)
{
    visitTree(items, [this](BVTreeViewItem *item) {
        item->m_model = m_model;
        m_model->m_itemsById->insert(item->m_id, item);
    });
}

void BVTreeStructure::depart(const BVItemSpan &items)
{
    visitTree(items, [this](BVTreeViewItem *item) {
        item->m_model = nullptr;
        m_model->m_itemsById->remove(item->m_id);
    });
}

void BVTreeStructure::insert(BVTreeViewItem *parent, int row, const BVItemSpan &items)
{
    if (parent->isDisabled() && !parent->isRoot())
        visitTree(items, [](BVTreeViewItem *item) { item->m_flags &= ~Qt::ItemIsEnabled; });
    insertFree(parent, row, items);
}

void BVTreeStructure::insertFree(BVTreeViewItem *parent, int row, const BVItemSpan &items)
{
    m_model->beginInsertItems(parent, row, items.size());
    parent->adopt(row, items);
    enter(items);
    m_model->endInsertItems();
}

BVTreeViewItem *BVTreeStructure::take(BVTreeViewItem *parent, int row)
{
    const BVTreeViewItem *item = parent->child(row);
    const quint64 structure = m_model->m_structure;
    if (!m_model->flushFor(item))
        return nullptr;
    if (structure != m_model->m_structure) {
        parent = item->holder();
        row = item->row();
    }
    return takeRows(parent, row, 1).value(0);
}

QVector<BVTreeViewItem *> BVTreeStructure::takeAll(BVTreeViewItem *parent)
{
    if (!m_model->flushFor(parent) || parent->childCount() == 0)
        return {};
    return takeRows(parent, 0, parent->childCount());
}

void BVTreeStructure::deleteAll(BVTreeViewItem *parent)
{
    if (!m_model->flushFor(parent) || parent->childCount() == 0)
        return;
    BVTreeViewItem doomed;
    doomed.adopt(0, release(parent, 0, parent->childCount()));
    m_model->endRemoveItems();
}

QVector<BVTreeViewItem *> BVTreeStructure::takeRows(BVTreeViewItem *parent, int row, int count)
{
    const Items items = release(parent, row, count);
    m_model->endRemoveItems();
    return items;
}

void BVTreeStructure::deleteRows(BVTreeViewItem *parent, int row, int count)
{
    Items items = release(parent, row, count);
    std::reverse(items.begin(), items.end());
    BVTreeViewItem doomed;
    doomed.adopt(0, items);
    m_model->endRemoveItems();
}

QVector<BVTreeViewItem *> BVTreeStructure::release(BVTreeViewItem *parent, int row, int count)
{
    m_model->beginRemoveItems(parent, row, count);
    const Items items = parent->release(row, count);
    depart(items);
    return items;
}
