// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QList>

class BVControlledStackItem;
class QTreeWidget;

/// The entries of a tree in depth-first order: each before those below it. Walks through the tree
/// when it is asked for the first time since it was invalidated.
class BVStackOrder
{
public:
    void invalidate() { m_isValid = false; }

    const QList<BVControlledStackItem *> &items(const QTreeWidget *tree);
    /// -1 for none.
    int indexOf(const QTreeWidget *tree, const BVControlledStackItem *item);

private:
    void rebuild(const QTreeWidget *tree);

    QList<BVControlledStackItem *> m_items;
    QHash<const BVControlledStackItem *, int> m_indexes;
    bool m_isValid = false;
};
