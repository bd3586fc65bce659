// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

class QContextMenuEvent;
class QTreeView;

/// Where context menus of tree views open, in coordinates of the viewport.
namespace BVContextMenuPlace {

/// Stands for no cell and no click.
constexpr QPoint s_nowhere(-1, -1);

/// Whether there can be a cell.
bool isSomewhere(const QPoint &place);
/// The place of the click or, for the keys, that of the current cell, which is brought into sight
/// first; nowhere if the view cannot show it or has none. Slots may have deleted the view then.
QPoint of(QTreeView &view, const QContextMenuEvent &event);
/// The place on the screen; for nowhere, that of the viewport's first corner.
QPoint onScreen(const QTreeView &view, const QPoint &place);

} // namespace BVContextMenuPlace
