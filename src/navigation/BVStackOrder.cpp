// SPDX-License-Identifier: MIT
#include "navigation/BVStackOrder_p.h"

#include "navigation/BVStackTreeItem_p.h"

#include <QTreeWidget>
#include <QVector>

const QList<BVControlledStackItem *> &BVStackOrder::items(const QTreeWidget *tree)
{
    if (!m_isValid)
        rebuild(tree);
    return m_items;
}

int BVStackOrder::indexOf(const QTreeWidget *tree, const BVControlledStackItem *item)
{
    if (!m_isValid)
        rebuild(tree);
    return m_indexes.value(item, -1);
}

void BVStackOrder::rebuild(const QTreeWidget *tree)
{
    m_items.clear();
    m_indexes.clear();
    m_isValid = true;
    QVector<const QTreeWidgetItem *> pending; // the next one at the end
    if (tree)
        pending.append(tree->invisibleRootItem());
    while (!pending.isEmpty()) {
        const QTreeWidgetItem *row = pending.takeLast();
        if (BVControlledStackItem *item = BVStackTreeItem::entryOf(row)) {
            m_indexes.insert(item, m_items.size());
            m_items.append(item);
        }
        for (int i = row->childCount() - 1; i >= 0; --i)
            pending.append(row->child(i));
    }
}
