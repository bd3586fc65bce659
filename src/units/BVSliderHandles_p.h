// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVSlider.h"

#include <QCursor>

/// Which handle of a slider keys and pointer mean, and the cursor that tells so.
class BVSliderHandles
{
public:
    explicit BVSliderHandles(BVSlider &slider)
        : m_slider(slider)
    {
    }

    BVSlider::Handle focused() const { return m_focused; }
    BVSlider::Handle hovered() const { return m_hovered; }

    /// Gives a handle the focus within the slider, and says so if the slider has the focus.
    void focus(BVSlider::Handle handle);
    /// Moves the focus from a handle that is not active to one that is.
    void ensureFocused();
    /// False, with nothing changed, behind the last active handle and in front of the first.
    bool focusNext(bool forward);
    /// The focus comes to the slider, from in front of the first handle or from behind the last.
    void enter(bool forward);

    /// What is left of the wheel's turns over the limit that has the focus; see BVSliderSteps.
    double &wheelRest() { return m_wheelRest; }

    /// Takes down what is under the pointer. False if it is as before.
    bool hover(BVSlider::Handle handle);
    /// Shows what the pointer can do; elsewhere the cursor is the application's.
    void updateCursor(bool isDraggingLimit);

private:
    void takeCursor(const QCursor &cursor);
    void giveCursorBack();

    BVSlider &m_slider;
    BVSlider::Handle m_focused = BVSlider::ValueHandle;
    BVSlider::Handle m_hovered = BVSlider::NoHandle;
    double m_wheelRest = 0.0; // positions
    bool m_hasTakenCursor = false;
    bool m_hadCursor = false; // the slider, one of its own
    QCursor m_cursor;         // which we have set
    QCursor m_cursorBefore;
};
