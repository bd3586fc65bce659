// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeStructure_p.h"

#include "itemviews/BVItemIdMap_p.h"
#include "itemviews/BVTreeViewModel.h"
#include "itemviews/BVTreeVisit_p.h"

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

QVector<BVTreeViewItem *> BVTreeStructure::takeRows(BVTreeViewItem *parent, int row, int count)
{
    m_model->beginRemoveItems(parent, row, count);
    const QVector<BVTreeViewItem *> items = parent->release(row, count);
    depart(items);
    m_model->endRemoveItems();
    return items;
}
