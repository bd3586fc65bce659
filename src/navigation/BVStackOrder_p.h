// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QList>
#include <QVector>

class BVControlledStackItem;
class QTreeWidget;
class QTreeWidgetItem;

/// The entries of a tree in depth-first order: each before those below it. Walks through the tree
/// as far as it is asked, and from the start again when it was invalidated.
class BVStackOrder
{
public:
    void invalidate();

    const QList<BVControlledStackItem *> &items(const QTreeWidget *tree);
    /// Null for none.
    BVControlledStackItem *at(const QTreeWidget *tree, int index);
    /// -1 for none.
    int indexOf(const QTreeWidget *tree, const BVControlledStackItem *item);

private:
    /// A row whose children are being walked through.
    struct Level
    {
        const QTreeWidgetItem *m_row;
        int m_nextChild;
    };

    /// False at the end.
    bool step(const QTreeWidget *tree);

    QList<BVControlledStackItem *> m_items;
    QHash<const BVControlledStackItem *, int> m_indexes;
    QVector<Level> m_levels; // from the top
    bool m_isStarted = false;
};
