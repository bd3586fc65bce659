// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class BVControlledStackWidget;
class QTreeWidgetItem;

/// The selected and the marked entries of a controlled stack.
namespace BVStackSelection {

/// The depth-first indexes, in order.
QList<int> selected(const BVControlledStackWidget &stack);
/// Selects these rows and no others; the first of them where only one can be.
void select(const BVControlledStackWidget &stack, const QList<QTreeWidgetItem *> &rows);
void clearMarks(const BVControlledStackWidget &stack);

} // namespace BVStackSelection
