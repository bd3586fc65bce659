// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVCursorOverride_p.h"

#include <QObject>
#include <QPoint>

class BVDoubleSpinBox;
class QLineEdit;
class QMouseEvent;
class QWidget;

/// Slides the value of a spin box while its step buttons or its prefix are dragged, and shows by
/// the cursor where that is possible.
///
/// Filters the events of the box and of its line edit. A press without movement is left to them.
class BVSpinBoxDrag : public QObject
{
public:
    BVSpinBoxDrag(BVDoubleSpinBox *box, QLineEdit *edit);

    /// Ends what is no longer possible, and shows by the cursors what is.
    void update();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum State {
        Idle,
        Pressed, // not yet moved far enough
        Dragging,
        Cancelled, // the button is still down
    };

    bool handleMouse(QObject *watched, QMouseEvent *event);
    void press(QObject *watched, const QMouseEvent &event);
    bool move(const QMouseEvent &event);
    void start(int offset);
    void slide(int offset);
    void cancel();
    void abort();
    void end();
    bool isOnButton(const QPoint &position) const;
    bool isOnPrefix(const QPoint &position) const;
    int offsetOf(const QMouseEvent &event) const;
    void stopAutoRepeat();
    void updateCursors();

    BVDoubleSpinBox *m_box; // parent of this
    QLineEdit *m_edit;      // child of the box
    BVCursorOverride m_boxCursor;
    BVCursorOverride m_editCursor;
    State m_state = Idle;
    bool m_onPrefix = false;     // what was pressed; else a button
    bool m_isOverPrefix = false; // where the pointer is
    bool m_wasTracking = false;  // the mouse
    double m_startValue = 0.0;   // when pressed
    bool m_startEmpty = false;
    QPoint m_pressedAt; // on the screen
    int m_origin = 0;   // px, from the press to where the drag has started
    int m_steps = 0;    // made since then
};
