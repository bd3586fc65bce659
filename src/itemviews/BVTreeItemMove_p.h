// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QSet>
#include <QVector>

class QTreeWidget;
class QTreeWidgetItem;

/// Moves rows with their branches within a tree or into another one. Rows that stand below others
/// of the list go with those.
class BVTreeItemMove
{
public:
    /// Leaves out null and items that are in no tree.
    explicit BVTreeItemMove(const QList<QTreeWidgetItem *> &items);

    /// The rows to be moved, in the order in which their tree shows them.
    const QList<QTreeWidgetItem *> &rows() const { return m_rows; }
    /// Whether the rows can become children of @p parent: it is none of them nor below one.
    bool isAllowed(const QTreeWidgetItem *parent) const;
    /// Moves the rows in front of the child of @p parent (the tree's invisible root item for the
    /// top level) that stands in @p row; to the end for -1 or a row too large. False if nothing has
    /// changed.
    bool execute(QTreeWidgetItem *parent, int row) const;

private:
    /// What the trees know of an item and forget with it.
    struct State
    {
        QTreeWidgetItem *item;
        bool isExpanded;
        bool isSelected;
        bool isSpanned;
    };

    bool isBelowAny(const QTreeWidgetItem *item) const;
    QTreeWidgetItem *follower(const QTreeWidgetItem *parent, int row) const;
    bool isInPlace(const QTreeWidgetItem *parent, const QTreeWidgetItem *follower) const;
    QVector<State> states(const QTreeWidget *target) const;
    void take() const;
    static void restore(const QVector<State> &states);

    QList<QTreeWidgetItem *> m_rows;
    QSet<const QTreeWidgetItem *> m_lookup; // the rows
};
