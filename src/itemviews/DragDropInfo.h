// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QModelIndex>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QRect>
#include <QTreeView>

#include <Qt>

/// Where a drop is to go relative to the cell that it hits.
enum class DropIndicatorPosition {
    OnItem = 0,
    AboveItem = 1,
    BelowItem = 2,
    OnViewport = 3, // on no item
};

/// The running drag, or the drop that has just been made, as its view's drag-and-drop manager sees
/// it.
///
/// Rows that are dropped go to dropRow() below dropParent(); both are of the model of the view that
/// they are dropped on.
struct BVWIDGETS_EXPORT DragDropInfo
{
    QPointer<QTreeView> source;      // where the rows come from; null for a foreign drag
    QModelIndexList draggedIndexes;  // as their owner has noted them; of the source's model
    QPersistentModelIndex dropIndex; // the target; invalid on the viewport
    QRect dropRect;                  // of the target, in the viewport
    DropIndicatorPosition position = DropIndicatorPosition::OnViewport;
    Qt::DropAction action = Qt::IgnoreAction; // the proposed one

    /// The row below dropParent() before which dropped rows are to be inserted; -1 for the end.
    int dropRow() const;
    /// The row that takes the dropped rows as its children: the target itself or its parent.
    /// Invalid for the top level.
    QModelIndex dropParent() const;
};
