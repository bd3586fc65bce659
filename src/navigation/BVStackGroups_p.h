// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class BVControlledStackItem;
class QTreeWidget;
class QTreeWidgetItem;

/// Moves rows of a controlled stack to other places.
namespace BVStackGroups {

/// Moves rows in front of the child of @p parent that is in position @p index when the rows
/// themselves are not counted; behind all entries for -1 and an index too large.
void move(const QList<QTreeWidgetItem *> &rows, QTreeWidgetItem *parent, int index);
/// The position on the top level at or above the first of the rows in the tree; -1 without rows.
int topLevelPlaceOf(const QTreeWidget *tree, const QList<QTreeWidgetItem *> &rows);

} // namespace BVStackGroups
