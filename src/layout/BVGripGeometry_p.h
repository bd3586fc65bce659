// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// What happens to the geometry of a window whose edges are dragged.
namespace BVGripGeometry {

/// A grip: the edges that it moves, and those that end the drag instead of making the window
/// smaller than it may be. Not every edge that is moved does so.
struct Grip
{
    Qt::Edges edges;
    Qt::Edges stops;
};

/// The window's geometry with the edges of the grip at the cursor. It may be empty or inside out.
inline QRect moved(Qt::Edges edges, const QRect &window, const QPoint &cursor)
{
    QRect result = window;
    if (edges & Qt::LeftEdge)
        result.setLeft(cursor.x());
    if (edges & Qt::TopEdge)
        result.setTop(cursor.y());
    if (edges & Qt::RightEdge)
        result.setWidth(cursor.x() - window.x());
    if (edges & Qt::BottomEdge)
        result.setHeight(cursor.y() - window.y());
    return result;
}

/// Whether the step of the cursor ends the drag: the window is as small as it may be, and the step
/// goes inward. For the upper edge a step that stays at its height goes inward, too.
inline bool stops(Qt::Edges edges, const QSize &window, const QSize &minimum, const QPoint &step)
{
    const bool left = (edges & Qt::LeftEdge) && window.width() == minimum.width() && step.x() > 0;
    const bool top = (edges & Qt::TopEdge) && window.height() == minimum.height() && step.y() >= 0;
    return left || top;
}

/// The geometry with its left and upper edges, as far as they are among the edges, moved to where
/// the size is within the limits; so that the other side of the window stays where it is.
inline QRect bounded(Qt::Edges edges, const QRect &geometry, const QSize &minimum,
                     const QSize &maximum)
{
    const QSize size = geometry.size().boundedTo(maximum).expandedTo(minimum);
    QRect result = geometry;
    if (edges & Qt::LeftEdge)
        result.setLeft(geometry.right() - size.width() + 1);
    if (edges & Qt::TopEdge)
        result.setTop(geometry.bottom() - size.height() + 1);
    return result;
}

} // namespace BVGripGeometry
