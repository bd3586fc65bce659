// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QFrame>
#include <QPointer>
#include <QSize>

/// A handle at an edge or corner of a widget that tells by how much the user drags it.
///
/// The handle resizes nothing itself. A drag is reported as sigMoveStarted(), any number of
/// sigMoveAbout() with the growth since the last one, and sigMoved() if there was any. Escape ends
/// a drag with sigMoveCanceled(), and so does what keeps the release from the handle: hiding or
/// disabling it, a modal dialog, or a pointer that comes without its button; a move that the
/// program itself delivers counts with and without. The arrow keys move a focused handle by 10
/// pixels, with Shift by one; each key is a drag of its own. A double click, Return and Space ask
/// for sigToggleRequested().
///
/// A handle that no layout manages keeps to its place at the edge of its parent. Positions are
/// edges on the screen, in both layout directions.
class BVWIDGETS_EXPORT BVResizableWidgetHandle : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(Position position READ position WRITE setPosition)
    Q_PROPERTY(bool pressing READ isPressing)

public:
    enum Position {
        LeftEdge = 0,
        RightEdge = 1,
        TopEdge = 2,
        BottomEdge = 3,
        TopLeftCorner = 4,
        TopRightCorner = 5,
        BottomLeftCorner = 6,
        BottomRightCorner = 7,
    };
    Q_ENUM(Position)

    static constexpr int s_thickness = 10; // px, of every handle

    /// Makes a handle; without @p alien it has a native window of its own, which shows above those
    /// of its siblings. A position out of range stands for RightEdge.
    explicit BVResizableWidgetHandle(Position position, QWidget *parent = nullptr,
                                     bool alien = true);
    ~BVResizableWidgetHandle() override;

    Position position() const;
    /// Moves the handle to another place; one out of range is ignored.
    void setPosition(Position position);

    /// Whether the user is dragging the handle with the mouse.
    bool isPressing() const;

    /// Whether a global position is over the handle, less the outermost 2 pixels at its right side
    /// for a handle at the right edge, at its left side for all others. Never while the parent is
    /// hidden.
    bool isMouseOverHandleBorder(const QPoint &global) const;

    /// Takes on size and cursor of the position, goes to its place and re-polishes the style,
    /// posted.
    virtual void updatePosition();

    /// The widget that the handle stands for, whose size it tells; the parent by default.
    virtual QWidget *resizedWidget() const;

    /// Drags the handle by @p growth as the keyboard does.
    void moveBy(const QSize &growth);
    /// Ends a drag with sigMoveCanceled(); nothing without one.
    void cancelMove();

Q_SIGNALS:
    /// A drag begins.
    void sigMoveStarted();
    /// The drag asks for @p delta pixels more width and height since the last time; never null.
    void sigMoveAbout(QSize delta);
    /// A drag that has moved has ended.
    void sigMoved();
    /// The drag is given up; what it has done is to be undone.
    void sigMoveCanceled();
    /// The user asks to switch between the small and the enlarged size.
    void sigToggleRequested();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// Whether a press has been dragged since it began.
    bool hasMoved() const;
    /// Goes to the place at the edge of a parent without a layout.
    void placeAtParent();
    /// Paints what shows that the handle can be dragged.
    virtual void paintGrip(QPainter *painter, const QColor &color);

private:
    void press(const QPoint &global);
    void move(const QPoint &global);
    void release();
    void endPress();
    void cancelIfUnreachable();
    bool splitterEvent(QEvent *event);
    bool escapeEvent(QEvent *event);
    void takePosition();
    void watchParent();
    void watchSplitter();

    Position m_position;
    bool m_pressing = false;
    bool m_moved = false;             // since the press
    bool m_showsFocus = false;        // the keyboard is in use
    bool m_pressedOnSplitter = false; // the moves of this press reach the splitter
    QPoint m_lastGlobal;
    QPointer<QObject> m_splitter;
    QPointer<QWidget> m_watchedParent;
};
