// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class BVDragTreeWidget;
class QTreeWidgetItem;

/// What the user checks in a navigation tree otherwise than by a click. Only entries of stacks that
/// are checkable count. Slots may change the tree meanwhile.
namespace BVStackChecking {

bool isCheckable(const QTreeWidgetItem *row);
/// The row itself or the next one above that is checkable; null for none.
QTreeWidgetItem *checkableAround(QTreeWidgetItem *row);
/// Whether a row (or null) is checkable and has another state.
bool differs(const QTreeWidgetItem *row, Qt::CheckState state);
/// Whether any row but @p except differs.
bool anyDiffers(BVDragTreeWidget *tree, Qt::CheckState state,
                const QTreeWidgetItem *except = nullptr);

/// Checks or unchecks a row (or null) that differs.
void check(QTreeWidgetItem *row, Qt::CheckState state);
/// All of them, each before those below it.
void checkAll(BVDragTreeWidget *tree, Qt::CheckState state);
/// Unchecks all but the row, which is checked.
void checkOnly(QTreeWidgetItem *row);

} // namespace BVStackChecking
