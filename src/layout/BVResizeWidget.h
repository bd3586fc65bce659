// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QMainWindow>
#include <QPointer>
#include <QWidget>

/// A grip at an edge or in a corner of a main window without a frame, by which the user resizes the
/// window.
///
/// The dragged edge goes to the cursor. At the window's smallest width, a left edge that is dragged
/// inward ends the drag, until the next press; so does an upper edge at the smallest height, even
/// when it is only dragged sideways. The upper edge of "topRight" never ends a drag. An edge that
/// ends a drag goes no further inward than the smallest size allows and no further outward than the
/// largest one, and the other side of the window stays where it is.
///
/// The grip takes the keyboard with Tab. Arrow keys move its edge by ten pixels, with Shift by one;
/// in a corner each key moves the edge that lies in its direction. It moves nothing without a
/// window, or while that fills the screen. Where only the window system may set the geometry of a
/// window, a press hands the drag over to it.
///
/// The grip shows nothing but its focus, in its text colour; sheets select "BVResizeWidget" and its
/// property "resizeType", by number.
class BVWIDGETS_EXPORT BVResizeWidget : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(ResizeType resizeType READ resizeType WRITE setResizeType)

public:
    enum ResizeType {
        left = 0,
        topLeft = 1,
        top = 2,
        topRight = 3,
        right = 4,
        bottomRight = 5,
        bottom = 6,
        bottomLeft = 7,
    };
    Q_ENUM(ResizeType)

    explicit BVResizeWidget(QWidget *parent = nullptr);

    /// Sets the window that is resized, which may go at any time; null for none. It need not be the
    /// one that the grip lies in.
    void setWindow(QMainWindow *window);

    ResizeType resizeType() const { return m_resizeType; }
    /// Sets the edge or corner, and with it the cursor, the size hint and the size policy: the grip
    /// of an edge is as long as its layout makes it. Other numbers are ignored.
    void setResizeType(ResizeType type);

    /// Move the edges of the window to the cursor, which has come there by a step, as a drag does;
    /// both in global pixels.
    void resizeLeft(const QPoint &cursor, const QPoint &step);
    void resizeTop(const QPoint &cursor, const QPoint &step);
    void resizeTopLeft(const QPoint &cursor, const QPoint &step);
    void resizeBottomLeft(const QPoint &cursor, const QPoint &step);

    /// Moves the edges by a step in pixels, as the keys do; nothing in directions that are none of
    /// the grip's.
    void moveBy(const QPoint &step);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool canResize() const;
    void resizeWindow(ResizeType type, const QPoint &cursor, const QPoint &step);

    QPointer<QMainWindow> m_window;
    QPoint m_lastPosition; // global
    ResizeType m_resizeType = left;
    bool m_isDragging = false;
};
