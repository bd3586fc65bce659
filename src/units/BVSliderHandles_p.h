// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVCursorOverride_p.h"
#include "units/BVSlider.h"

class QWheelEvent;

/// Which handle of a slider keys and pointer mean, and the cursor that tells so.
class BVSliderHandles
{
public:
    explicit BVSliderHandles(BVSlider &slider)
        : m_slider(slider)
        , m_cursor(&slider)
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

    /// Moves the handle that has the focus. False for another key.
    bool pressKey(int key);
    /// Turns the wheel over that handle. False if it is at its end.
    bool turnWheel(const QWheelEvent &event);

    /// Takes down what is under the pointer. False if it is as before.
    bool hover(BVSlider::Handle handle);
    /// Shows what the pointer can do; elsewhere the cursor is the application's.
    void updateCursor(bool isDraggingLimit);

private:
    BVSlider::Handle nextActive(int from, bool forward) const;
    BVSlider::Handle firstActive(bool forward) const;
    void moveFocused(qint64 distance);

    BVSlider &m_slider;
    BVSlider::Handle m_focused = BVSlider::ValueHandle;
    BVSlider::Handle m_hovered = BVSlider::NoHandle;
    double m_wheelRest = 0.0; // positions, that the handle has not moved yet
    BVCursorOverride m_cursor;
};
