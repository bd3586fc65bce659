// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/BVCursorTable.h"
#include "layout/BVResizableWidgetHandle.h"

#include <QMargins>
#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

/// The rules by which panels and their handles find their rectangles. Pixels throughout.
namespace BVPanelGeometry {

using Position = BVResizableWidgetHandle::Position;

/// What the place of a handle fixes.
struct HandlePlace
{
    int width;  // 0 for as long as the edge
    int height; // likewise
    BVCursorTable::Cursor cursor;
    int widthSign; // of the growth when the pointer goes right
    int heightSign;
    bool dragsWidth;
    bool dragsHeight;
};

bool isPosition(int position);
const HandlePlace &handlePlace(Position position);
/// The growth that a plausible movement of the pointer asks for.
QSize growth(Position position, const QPoint &moved);
/// The growth without what the handle does not drag.
QSize alongHandle(Position position, const QSize &growth);
/// Whether a point is over the frame of a handle, less its outermost pixels.
bool isOverBorder(Position position, const QRect &frame, const QPoint &point);
/// Where a handle of this thickness stands at the edge of a parent.
QRect handleRect(Position position, const QSize &parent, int thickness);
/// The handle that drags width, height or both of a rectangle that keeps its right or bottom.
Position positionOf(bool dragsWidth, bool dragsHeight, bool keepsRight, bool keepsBottom);

/// The room for panels in a window of this size; it leaves out the margins and a status bar.
QRect availableArea(const QSize &window, const QMargins &margins);
QRect availableArea(const QWidget *window);
/// Whether a rectangle that is not empty lies in the area.
bool fits(const QRect &area, const QRect &rect);
/// The rectangle with another size, and with its left or right and its top or bottom as before.
QRect resized(const QRect &rect, const QSize &size, bool keepsRight, bool keepsBottom);
/// The largest size that the rectangle can have in the area if it keeps those sides.
QSize roomFor(const QRect &area, const QRect &rect, bool keepsRight, bool keepsBottom);
/// The rectangle moved into the area, and made smaller only where it is larger than that.
QRect clamped(const QRect &area, const QRect &rect);

/// What bounds the growth of a panel.
struct Limits
{
    QRect area;
    QSize least;
    QSize most;
    bool keepsRight;
    bool keepsBottom;
};
/// The rectangle with another size as far as the limits allow, moved into the area if it grows.
QRect grown(const Limits &limits, const QRect &rect, const QSize &wanted);

/// The same within what a widget can have, so that sums do not overflow.
QSize plausible(const QSize &size);
QPoint plausible(const QPoint &point);
bool isLarger(const QSize &size, const QSize &other);

/// The nearest QMainWindow around the widget, or the window that it is in if that comes first.
QWidget *hostWindow(const QWidget *widget);
/// The widget's rectangle in the coordinates of its host window.
QRect rectInWindow(const QWidget *widget);

} // namespace BVPanelGeometry
