// SPDX-License-Identifier: MIT
#include "layout/BVPanelGeometry_p.h"

#include <QMainWindow>

#include <iterator>

namespace BVPanelGeometry {

namespace {

constexpr int s_thickness = BVResizableWidgetHandle::s_thickness;
constexpr int s_borderMargin = -2;    // the outermost pixels of a handle do not count
constexpr int s_statusBarHeight = 32; // what stays free at the bottom of a window

using Cursor = BVCursorTable::Cursor;

constexpr HandlePlace s_places[] = {
    {s_thickness, 0, Cursor::ResizeHorizontal, -1, 1, true, false},
    {s_thickness, 0, Cursor::ResizeHorizontal, 1, 1, true, false},
    {0, s_thickness, Cursor::ResizeVertical, 1, -1, false, true},
    {0, s_thickness, Cursor::ResizeVertical, 1, 1, false, true},
    {s_thickness, s_thickness, Cursor::ResizeFalling, -1, -1, true, true},
    {s_thickness, s_thickness, Cursor::ResizeRising, 1, -1, true, true},
    {s_thickness, s_thickness, Cursor::ResizeRising, -1, 1, true, true},
    {s_thickness, s_thickness, Cursor::ResizeFalling, 1, 1, true, true},
};
static_assert(std::size(s_places) == BVResizableWidgetHandle::BottomRightCorner + 1);

bool isLeft(Position position)
{
    return handlePlace(position).dragsWidth && handlePlace(position).widthSign < 0;
}

bool isTop(Position position)
{
    return handlePlace(position).dragsHeight && handlePlace(position).heightSign < 0;
}

} // namespace

bool isPosition(int position)
{
    return position >= 0 && position < int(std::size(s_places));
}

const HandlePlace &handlePlace(Position position)
{
    return s_places[position];
}

QSize growth(Position position, const QPoint &moved)
{
    const HandlePlace &place = handlePlace(position);
    const QPoint way = plausible(moved);
    return QSize(place.widthSign * way.x(), place.heightSign * way.y());
}

QSize alongHandle(Position position, const QSize &growth)
{
    const HandlePlace &place = handlePlace(position);
    return QSize(place.dragsWidth ? growth.width() : 0, place.dragsHeight ? growth.height() : 0);
}

bool isOverBorder(Position position, const QRect &frame, const QPoint &point)
{
    const bool isRight = position == BVResizableWidgetHandle::RightEdge;
    const int left = frame.left() - (isRight ? 0 : s_borderMargin);
    const int right = frame.right() + (isRight ? s_borderMargin : 0);
    return point.y() >= frame.top() && point.y() <= frame.bottom() && point.x() >= left &&
           point.x() <= right;
}

QRect handleRect(Position position, const QSize &parent, int thickness)
{
    const HandlePlace &place = handlePlace(position);
    const QSize size(place.width ? thickness : parent.width(),
                     place.height ? thickness : parent.height());
    const int left = isLeft(position) ? 0 : parent.width() - size.width();
    const int top = isTop(position) ? 0 : parent.height() - size.height();
    return QRect(QPoint(left, top), size);
}

Position positionOf(bool dragsWidth, bool dragsHeight, bool keepsRight, bool keepsBottom)
{
    if (dragsWidth && dragsHeight)
        return Position(BVResizableWidgetHandle::TopLeftCorner + (keepsRight ? 0 : 1) +
                        (keepsBottom ? 0 : 2));
    if (dragsHeight)
        return keepsBottom ? BVResizableWidgetHandle::TopEdge : BVResizableWidgetHandle::BottomEdge;
    return keepsRight ? BVResizableWidgetHandle::LeftEdge : BVResizableWidgetHandle::RightEdge;
}

QRect availableArea(const QSize &window, const QMargins &margins)
{
    return QRect(QPoint(0, 0), window)
        .marginsRemoved(margins)
        .adjusted(0, 0, 0, -s_statusBarHeight);
}

QRect availableArea(const QWidget *window)
{
    return availableArea(window->size(), window->contentsMargins());
}

bool fits(const QRect &area, const QRect &rect)
{
    return !rect.isEmpty() && area.contains(rect);
}

QRect resized(const QRect &rect, const QSize &size, bool keepsRight, bool keepsBottom)
{
    QRect result(rect.topLeft(), size);
    if (keepsRight)
        result.moveRight(rect.right());
    if (keepsBottom)
        result.moveBottom(rect.bottom());
    return result;
}

QSize roomFor(const QRect &area, const QRect &rect, bool keepsRight, bool keepsBottom)
{
    return QSize(keepsRight ? rect.right() - area.left() + 1 : area.right() - rect.left() + 1,
                 keepsBottom ? rect.bottom() - area.top() + 1 : area.bottom() - rect.top() + 1);
}

QRect clamped(const QRect &area, const QRect &rect)
{
    QRect result(rect.topLeft(), rect.size().boundedTo(area.size()).expandedTo(QSize(1, 1)));
    const QPoint last = QRect(area.topLeft(), area.size() - result.size()).bottomRight();
    result.moveLeft(qMax(area.left(), qMin(result.left(), last.x() + 1)));
    result.moveTop(qMax(area.top(), qMin(result.top(), last.y() + 1)));
    return result;
}

QRect grown(const Limits &limits, const QRect &rect, const QSize &wanted)
{
    const QSize room = roomFor(limits.area, rect, limits.keepsRight, limits.keepsBottom);
    const QSize size = wanted.boundedTo(room).boundedTo(limits.most).expandedTo(limits.least);
    if (size == rect.size())
        return rect;
    return clamped(limits.area, resized(rect, size, limits.keepsRight, limits.keepsBottom));
}

QSize plausible(const QSize &size)
{
    const QSize largest(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    return size.boundedTo(largest).expandedTo(largest * -1);
}

QPoint plausible(const QPoint &point)
{
    const QSize size = plausible(QSize(point.x(), point.y()));
    return QPoint(size.width(), size.height());
}

bool isLarger(const QSize &size, const QSize &other)
{
    return size.width() > other.width() || size.height() > other.height();
}

QWidget *hostWindow(const QWidget *widget)
{
    auto *window = const_cast<QWidget *>(widget);
    while (window && !window->isWindow() && window->parentWidget()) {
        window = window->parentWidget();
        if (qobject_cast<QMainWindow *>(window))
            break;
    }
    return window;
}

QRect rectInWindow(const QWidget *widget)
{
    const QWidget *window = hostWindow(widget);
    return QRect(widget == window ? QPoint() : widget->mapTo(window, QPoint(0, 0)), widget->size());
}

} // namespace BVPanelGeometry
