// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QModelIndexList>
#include <QPersistentModelIndex>
#include <QSet>
#include <QVector>

class QTreeWidget;
class QTreeWidgetItem;

namespace BVTreeItems {
class Place;
}

/// Moves rows with their branches within a tree or into another one. Rows that stand below others
/// of the list go with those. To be used before anything else changes the trees.
class BVTreeItemMove
{
public:
    using Rows = QList<QPersistentModelIndex>;

    /// Leaves out null and items that are in no tree.
    explicit BVTreeItemMove(const QList<QTreeWidgetItem *> &items);

    /// The rows to be moved, in the order in which their tree shows them.
    const QList<QTreeWidgetItem *> &items() const { return m_items; }
    Rows rows() const;
    /// Whether rows come from other trees.
    bool isForeignTo(const QTreeWidget *tree) const;
    /// Whether the rows can become children of @p parent: it is none of them nor below one.
    bool isAllowed(const QTreeWidgetItem *parent) const;
    /// Whether the tree's sorting says where rows stand.
    static bool isSorted(const QTreeWidget *tree);
    /// Moves the rows in front of the child of @p parent (the tree's invisible root item for the
    /// top level) that stands in @p row; to the end for -1 or a row too large. Gives the rows in
    /// their new places, none if nothing has changed.
    ///
    /// Other trees that lose rows tell of their current item and selection when all is done. What
    /// hears of it earlier, from a model, may delete rows that are in a tree.
    Rows execute(QTreeWidgetItem *parent, int row) const;

private:
    using Items = QSet<const QTreeWidgetItem *>;
    class Memory;
    class Source;

    void add(const QModelIndex &row);
    void collect(const QTreeWidgetItem *parent, const QModelIndex &index, const Items &above);
    bool isBelowAny(const QTreeWidgetItem *item) const;
    QTreeWidgetItem *follower(const QTreeWidgetItem *parent, int row) const;
    bool isInPlace(const QTreeWidgetItem *parent, int row) const;
    Rows moveTo(QTreeWidgetItem *parent, int row) const;
    QModelIndexList takeTo(QTreeWidget *tree, const BVTreeItems::Place &place) const;
    QList<QTreeWidgetItem *> take() const;

    QVector<QTreeWidget *> m_trees; // of the rows
    QList<QTreeWidgetItem *> m_items;
    QModelIndexList m_indexes; // of them
    Items m_lookup;            // the items of the list
};
