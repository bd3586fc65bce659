// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/DragDropInfo.h"

/// Where drops go and what the pointer does on its way: the rules of drag and drop that need no
/// state.
namespace BVDropRules {

constexpr int s_hintBandHeight = 42; // px, at the bottom of the viewport

/// The place within the cell under the pointer: its edges are for the rows before and behind it,
/// the middle is the cell itself if it takes drops.
DropIndicatorPosition dropIndicatorPosition(const QPoint &pos, const QRect &rect,
                                            const QModelIndex &index);
/// The place within the whole row, in wide bands that leave nothing out: quarters at the edges of a
/// row that takes drops, halves of others. On the viewport only without a row.
DropIndicatorPosition advancedDropIndicatorPosition(const QPoint &pos, const QRect &rect,
                                                    const QModelIndex &index);

/// Where a cell is in the viewport, or all of its row; null for no cell.
QRect targetRect(const QTreeView *view, const QModelIndex &index, bool wholeRow);
/// The place of a drop within what targetRect() says or, with wide bands, within the whole row.
DropIndicatorPosition positionAt(const QTreeView *view, const QPoint &pos, const QModelIndex &index,
                                 bool wholeRow, bool wideBands);

/// As DragDropInfo has it.
int dropRow(const QModelIndex &target, DropIndicatorPosition position);
QModelIndex dropParent(const QModelIndex &target, DropIndicatorPosition position,
                       const QModelIndex &root);

/// Whether a position is in the band that the hint covers.
bool isInHintBand(const QPoint &pos, int viewportHeight);
/// Whether a position is near enough to an edge of the area in sight to scroll.
bool isInScrollMargin(const QPoint &pos, const QRect &area, int margin);

/// The indexes in the order of a depth-first walk.
QModelIndexList inTreeOrder(const QModelIndexList &indexes);
/// Without those whose parents are among them, too; in the order of the tree.
QModelIndexList topmost(const QModelIndexList &indexes);

/// The selected rows that may be dragged, in the order of the tree; also those of which only cells
/// are selected if rows are taken as a whole.
QModelIndexList draggableRows(const QTreeView *view, bool wholeRow);

/// The cell of the row that the user sees first in it; that of the first column if there is none.
QModelIndex firstCellInSight(const QTreeView *view, const QModelIndex &row);

/// The row, or the last one in sight of those below it; for no row that of the whole tree.
QModelIndex lastInSight(const QTreeView *view, QModelIndex row);

/// A place for rows that are moved with the keyboard.
struct Target
{
    QPersistentModelIndex index;
    DropIndicatorPosition position = DropIndicatorPosition::OnViewport;
    bool isValid = false; // there is such a place
};

enum class Direction {
    Up,
    Down,
    Outwards, // to the level of the parent
    Inwards,  // to the level of the children
};

/// The place next to the rows that the user sees: before the row above them, behind the one below,
/// behind their parent, or below the row above as its children if it takes drops.
Target keyTarget(const QTreeView *view, const QModelIndexList &rows, Direction direction);

} // namespace BVDropRules
