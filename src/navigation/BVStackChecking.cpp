// SPDX-License-Identifier: MIT
#include "navigation/BVStackChecking_p.h"

#include "itemviews/BVDragTreeWidget.h"
#include "itemviews/BVTreeItems_p.h"
#include "navigation/BVControlledStackItem.h"
#include "navigation/BVStackNavigation_p.h"

#include <QList>
#include <QPersistentModelIndex>
#include <QTreeWidgetItemIterator>

namespace {

int columnOf(const QTreeWidgetItem *row)
{
    const BVControlledStackItem *item = BVControlledStackItem::itemFromTreeItem(row);
    return item ? item->checkColumn() : 0;
}

/// Slots may delete rows while others are checked.
template <typename Wanted>
QList<QPersistentModelIndex> rows(BVDragTreeWidget *tree, const Wanted &isWanted)
{
    QList<QPersistentModelIndex> rows;
    for (QTreeWidgetItemIterator i(tree); *i; ++i)
        if (BVStackChecking::isCheckable(*i) && isWanted(*i))
            rows.append(BVTreeItems::indexOf(*i));
    return rows;
}

bool isBelow(const QTreeWidgetItem *row, const QTreeWidgetItem *above)
{
    while (row && row != above)
        row = row->parent();
    return row;
}

/// Whether the states of both follow each other.
bool isLinked(const QTreeWidgetItem *row, const QTreeWidgetItem *other)
{
    return (isBelow(row, other) && other->flags() & Qt::ItemIsAutoTristate) ||
           (isBelow(other, row) && row->flags() & Qt::ItemIsAutoTristate);
}

void checkEach(const QList<QPersistentModelIndex> &rows, Qt::CheckState state)
{
    for (const QModelIndex &row : rows)
        BVStackChecking::check(BVTreeItems::itemOf(row), state);
}

} // namespace

bool BVStackChecking::isCheckable(const QTreeWidgetItem *row)
{
    const BVControlledStackItem *item = BVControlledStackItem::itemFromTreeItem(row);
    return item && item->isCheckable();
}

QTreeWidgetItem *BVStackChecking::checkableAround(QTreeWidgetItem *row)
{
    while (row && !isCheckable(row))
        row = row->parent();
    return row;
}

bool BVStackChecking::differs(const QTreeWidgetItem *row, Qt::CheckState state)
{
    return row && isCheckable(row) && row->checkState(columnOf(row)) != state;
}

bool BVStackChecking::anyDiffers(BVDragTreeWidget *tree, Qt::CheckState state,
                                 const QTreeWidgetItem *except)
{
    for (QTreeWidgetItemIterator i(tree); *i; ++i)
        if (*i != except && differs(*i, state) && !(except && isLinked(*i, except)))
            return true;
    return false;
}

/// The row is written directly, which the stack takes for a click of the user.
void BVStackChecking::check(QTreeWidgetItem *row, Qt::CheckState state)
{
    if (differs(row, state))
        row->setCheckState(columnOf(row), state);
}

void BVStackChecking::checkAll(BVDragTreeWidget *tree, Qt::CheckState state)
{
    checkEach(rows(tree, [](const QTreeWidgetItem *) { return true; }), state);
}

void BVStackChecking::checkOnly(QTreeWidgetItem *row)
{
    auto *tree = qobject_cast<BVDragTreeWidget *>(row->treeWidget());
    if (!tree)
        return;
    if (!isCheckable(row)) {
        checkAll(tree, Qt::Unchecked);
        return;
    }
    const BVStackNavigation::NetToggles groups(BVControlledStackItem::itemFromTreeItem(row));
    const QPersistentModelIndex kept = BVTreeItems::indexOf(row);
    const auto isOther = [row](const QTreeWidgetItem *other) {
        return other != row && !isLinked(other, row);
    };
    checkEach(rows(tree, isOther), Qt::Unchecked);
    check(BVTreeItems::itemOf(kept), Qt::Checked);
}
