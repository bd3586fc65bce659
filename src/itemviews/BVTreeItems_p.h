// SPDX-License-Identifier: MIT
#pragma once

#include <QItemSelection>
#include <QList>
#include <QModelIndexList>
#include <QPersistentModelIndex>

class QTreeWidget;
class QTreeWidgetItem;

/// Rows of tree widgets, to be kept while others may delete them.
namespace BVTreeItems {

QTreeWidgetItem *itemOf(const QModelIndex &index);
/// Invalid for an invisible root item.
QModelIndex indexOf(const QTreeWidgetItem *item);
/// The invisible root item for the top level. The item has to be in a tree.
QTreeWidgetItem *parentOf(const QTreeWidgetItem *item);
/// Of those rows that still exist.
QList<QTreeWidgetItem *> itemsOf(const QList<QPersistentModelIndex> &rows);
/// Whether the index is one of the rows or below one.
bool isInBranches(const QModelIndex &index, const QModelIndexList &rows);
/// Deletes those rows that still exist.
void remove(QTreeWidget *tree, QList<QPersistentModelIndex> rows);
QItemSelection selectionOf(const QList<QPersistentModelIndex> &rows);

/// A place among the children of an item.
class Place
{
public:
    /// In front of the child in @p row of an item that is in a tree; at the end for -1 or a row too
    /// large.
    Place(QTreeWidgetItem *parent, int row);

    /// Null once it has been deleted.
    QTreeWidgetItem *parent() const;
    int row() const;

private:
    QPersistentModelIndex m_parent;
    QPersistentModelIndex m_before; // the child behind the place
    QTreeWidgetItem *m_root;        // if it is the parent
    int m_row;                      // at first
};

} // namespace BVTreeItems
