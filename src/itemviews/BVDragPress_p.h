// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

class QEvent;
class QMouseEvent;
class QTreeView;

/// The press of the left mouse button in a tree view of which a drag may come.
class BVDragPress
{
public:
    /// A press that nobody has consumed. It counts if it has hit a row.
    void begin(const QTreeView *view, const QMouseEvent *event);
    /// Until the next press no move begins a drag.
    void end() { m_isPressed = false; }
    /// Whether the move has gone far enough to be a drag. True once only.
    bool becomesDrag(const QMouseEvent *event);
    /// A drag has come of the press.
    void setDragged() { m_wasDragged = true; }
    /// Whether the event is the release of a press that has been a drag.
    bool endsDrag(const QEvent *event);

private:
    QPoint m_position;
    bool m_isPressed = false;  // there is a position
    bool m_wasDragged = false; // and the button has not been seen to go up
};
