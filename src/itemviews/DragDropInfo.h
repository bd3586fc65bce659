// SPDX-License-Identifier: MIT
#pragma once

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
struct DragDropInfo
{
    QPointer<QTreeView> source;              // where the rows come from; null for a foreign drag
    QModelIndexList draggedIndexes;          // as their owner has noted them; of the source's model
    QPersistentModelIndex dropIndex;         // the target; invalid on the viewport
    QRect dropRect;                          // of the target, in the viewport
    DropIndicatorPosition position = DropIndicatorPosition::OnViewport;
    Qt::DropAction action = Qt::IgnoreAction; // the proposed one

    /// The row before which dropped rows are to be inserted below dropParent(); -1 for the end.
    int dropRow() const;
    /// The row that takes the dropped rows as its children: the target itself or its parent.
    QModelIndex dropParent() const;
};
