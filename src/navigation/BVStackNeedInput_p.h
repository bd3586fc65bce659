// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class BVControlledStackItem;
class BVControlledStackWidget;
class QAction;

/// The entries of a controlled stack that need input.
namespace BVStackNeedInput {

QList<BVControlledStackItem *> items(const BVControlledStackWidget &stack);
/// Makes the next one behind the current entry current; false if there is no other that is enabled.
bool goToNext(const BVControlledStackWidget &stack);
/// An action of the stack with a key that does so, there and in the controller.
QAction *makeAction(BVControlledStackWidget *stack);

} // namespace BVStackNeedInput
