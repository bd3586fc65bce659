// SPDX-License-Identifier: MIT
#include "navigation/BVStackOrder_p.h"

#include "navigation/BVStackTreeItem_p.h"

#include <QTreeWidget>

#include <utility>

void BVStackOrder::invalidate()
{
    m_items.clear();
    m_indexes.clear();
    m_levels.clear();
    m_isStarted = false;
}

const QList<BVControlledStackItem *> &BVStackOrder::items(const QTreeWidget *tree)
{
    while (step(tree)) {
    }
    return m_items;
}

BVControlledStackItem *BVStackOrder::at(const QTreeWidget *tree, int index)
{
    while (m_items.size() <= index && step(tree)) {
    }
    return m_items.value(index);
}

int BVStackOrder::indexOf(const QTreeWidget *tree, const BVControlledStackItem *item)
{
    while (!m_indexes.contains(item) && step(tree)) {
    }
    return m_indexes.value(item, -1);
}

/// Goes on to the next row.
bool BVStackOrder::step(const QTreeWidget *tree)
{
    if (!std::exchange(m_isStarted, true) && tree)
        m_levels.append({tree->invisibleRootItem(), 0});
    while (!m_levels.isEmpty() &&
           m_levels.last().m_nextChild == m_levels.last().m_row->childCount())
        m_levels.removeLast();
    if (m_levels.isEmpty())
        return false;
    Level &level = m_levels.last();
    const QTreeWidgetItem *row = level.m_row->child(level.m_nextChild++);
    if (BVControlledStackItem *item = BVStackTreeItem::entryOf(row)) {
        m_indexes.insert(item, m_items.size());
        m_items.append(item);
    }
    if (row->childCount() > 0)
        m_levels.append({row, 0});
    return true;
}
