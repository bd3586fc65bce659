// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeItems_p.h"

#include <QPointer>
#include <QTreeWidget>

namespace {

/// Opens what the toolkit keeps for the trees derived from its own.
class TreeAccess : public QTreeWidget
{
public:
    static QTreeWidgetItem *itemAt(const QTreeWidget *tree, const QModelIndex &index)
    {
        return (tree->*&TreeAccess::itemFromIndex)(index);
    }
    static QModelIndex indexOf(const QTreeWidget *tree, const QTreeWidgetItem *item)
    {
        using Find = QModelIndex (QTreeWidget::*)(const QTreeWidgetItem *, int) const;
        return (tree->*static_cast<Find>(&TreeAccess::indexFromItem))(item, 0);
    }
};

} // namespace

QTreeWidgetItem *BVTreeItems::itemOf(const QModelIndex &index)
{
    const QObject *model = index.model();
    const auto *tree = model ? qobject_cast<const QTreeWidget *>(model->parent()) : nullptr;
    return tree ? TreeAccess::itemAt(tree, index) : nullptr;
}

QModelIndex BVTreeItems::indexOf(const QTreeWidgetItem *item)
{
    return item && item->treeWidget() ? TreeAccess::indexOf(item->treeWidget(), item)
                                      : QModelIndex();
}

QTreeWidgetItem *BVTreeItems::parentOf(const QTreeWidgetItem *item)
{
    return item->parent() ? item->parent() : item->treeWidget()->invisibleRootItem();
}

QList<QTreeWidgetItem *> BVTreeItems::itemsOf(const QList<QPersistentModelIndex> &rows)
{
    QList<QTreeWidgetItem *> items;
    for (const QModelIndex &row : rows)
        if (QTreeWidgetItem *item = itemOf(row))
            items.append(item);
    return items;
}

bool BVTreeItems::isInBranches(const QModelIndex &index, const QModelIndexList &rows)
{
    for (QModelIndex row = index.siblingAtColumn(0); row.isValid(); row = row.parent())
        if (rows.contains(row))
            return true;
    return false;
}

/// Neighbours at once.
void BVTreeItems::remove(QTreeWidget *tree, QList<QPersistentModelIndex> rows)
{
    const QPointer<QTreeWidget> guard(tree);
    while (guard && !rows.isEmpty()) {
        const QModelIndex last = rows.takeLast();
        QModelIndex first = last;
        while (first.row() > 0 && !rows.isEmpty() &&
               rows.constLast() == first.siblingAtRow(first.row() - 1))
            first = rows.takeLast();
        if (last.isValid())
            tree->model()->removeRows(first.row(), last.row() - first.row() + 1, last.parent());
    }
}

/// Neighbours share a range; the selection of many ranges is slow.
QItemSelection BVTreeItems::selectionOf(const QList<QPersistentModelIndex> &rows)
{
    QItemSelection selection;
    QModelIndex first;
    QModelIndex last;
    for (const QModelIndex &row : rows) {
        const bool isNext = last.isValid() && row == last.siblingAtRow(last.row() + 1);
        if (!isNext && last.isValid())
            selection.append({first, last});
        if (!isNext)
            first = row;
        last = row;
    }
    if (last.isValid())
        selection.append({first, last});
    return selection;
}

BVTreeItems::Place::Place(QTreeWidgetItem *parent, int row)
    : m_parent(indexOf(parent))
    , m_before(indexOf(parent->child(row)))
    , m_root(m_parent.isValid() ? nullptr : parent)
    , m_row(m_before.isValid() ? row : -1)
{
}

QTreeWidgetItem *BVTreeItems::Place::parent() const
{
    return m_root ? m_root : itemOf(m_parent);
}

int BVTreeItems::Place::row() const
{
    return m_before.isValid() ? m_before.row() : m_row;
}
