// SPDX-License-Identifier: MIT
#pragma once

class BVStackControllerWidget;
class QTreeWidget;

/// How the tree of a controlled stack follows its settings and entries.
namespace BVStackLooks {

/// The marks that open and close top-level rows.
void decorateRoot(QTreeWidget *tree, bool topLevelAsHeader);
/// The text above the tree stands at the right, above the check boxes, or where it wants to be.
void alignHeader(const BVStackControllerWidget &controller, bool hasCheckBoxes);

} // namespace BVStackLooks
