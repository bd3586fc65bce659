// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>
#include <QPoint>

/// What the keyboard and assistive technology drag a handle or grip by.
namespace BVHandleStep {

constexpr int s_length = 10; // px; Shift makes it one

/// The way of an arrow key. Null for other keys, and with modifiers other than Shift.
inline QPoint of(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers & ~Qt::ShiftModifier)
        return QPoint();
    const int length = modifiers & Qt::ShiftModifier ? 1 : s_length;
    switch (event.key()) {
    case Qt::Key_Left:
        return QPoint(-length, 0);
    case Qt::Key_Right:
        return QPoint(length, 0);
    case Qt::Key_Up:
        return QPoint(0, -length);
    case Qt::Key_Down:
        return QPoint(0, length);
    default:
        return QPoint();
    }
}

} // namespace BVHandleStep
