// SPDX-License-Identifier: MIT
#pragma once

#include <QModelIndexList>

class QTreeView;

/// The rows with a selected cell that a tree view shows, or would show with all branches open.
namespace BVSelectedRows {

/// Whether there is one; stops at the first.
bool isAny(const QTreeView &view);
/// Their first cells from top to bottom.
QModelIndexList sorted(const QTreeView &view);

} // namespace BVSelectedRows
