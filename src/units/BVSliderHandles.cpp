// SPDX-License-Identifier: MIT
#include "units/BVSliderHandles_p.h"

#include "units/BVSliderAccessible_p.h"
#include "units/BVSliderSteps_p.h"

#include <QPointer>

void BVSliderHandles::focus(BVSlider::Handle handle)
{
    if (handle == m_focused)
        return;
    m_focused = handle;
    m_wheelRest = 0.0;
    m_slider.update();
    if (m_slider.hasFocus())
        BVSliderAccessible::announceFocus(&m_slider, handle);
}

void BVSliderHandles::ensureFocused()
{
    if (!m_slider.isHandleActive(m_focused))
        focus(firstActive(true));
}

bool BVSliderHandles::focusNext(bool forward)
{
    const BVSlider::Handle next = nextActive(m_focused, forward);
    if (next == BVSlider::NoHandle)
        return false;
    focus(next);
    return true;
}

void BVSliderHandles::enter(bool forward)
{
    m_focused = firstActive(forward); // the slider announces it once it has the focus itself
}

/// The next active handle from one, or from a place outside all; NoHandle if there is none.
BVSlider::Handle BVSliderHandles::nextActive(int from, bool forward) const
{
    const int step = forward ? 1 : -1;
    for (int next = from + step;
         next >= BVSlider::ValueHandle && next <= BVSlider::UpperLimitHandle; next += step) {
        const auto handle = static_cast<BVSlider::Handle>(next);
        if (m_slider.isHandleActive(handle))
            return handle;
    }
    return BVSlider::NoHandle;
}

/// The first active handle, or the last; the value's if none is active.
BVSlider::Handle BVSliderHandles::firstActive(bool forward) const
{
    const int outside = forward ? BVSlider::ValueHandle - 1 : BVSlider::UpperLimitHandle + 1;
    return qMax(BVSlider::ValueHandle, nextActive(outside, forward));
}

void BVSliderHandles::moveFocused(qint64 distance)
{
    const qint64 target = m_slider.handlePosition(m_focused) + distance;
    m_slider.moveHandle(m_focused, static_cast<int>(qBound<qint64>(m_slider.minimum(), target,
                                                                   m_slider.maximum())));
}

bool BVSliderHandles::pressKey(int key)
{
    qint64 distance = 0;
    if (!BVSliderSteps(m_slider).ofKey(key, distance))
        return false;
    moveFocused(distance);
    return true;
}

bool BVSliderHandles::turnWheel(const QWheelEvent &event)
{
    const QPointer<BVSlider> slider(&m_slider);
    const BVSlider::Handle handle = m_focused;
    const int before = m_slider.handlePosition(handle);
    const qint64 distance = BVSliderSteps(m_slider).ofWheel(event, m_wheelRest);
    moveFocused(distance);
    return !slider || distance == 0 || slider->handlePosition(handle) != before;
}

bool BVSliderHandles::hover(BVSlider::Handle handle)
{
    if (handle == m_hovered)
        return false;
    m_hovered = handle;
    return true;
}

void BVSliderHandles::updateCursor(bool isDraggingLimit)
{
    if (!m_slider.isEnabled() || m_slider.isLocked()) {
        m_cursor.set(BVCursorTable::Cursor::Locked);
    } else if (isDraggingLimit || m_hovered > BVSlider::ValueHandle) {
        const bool isHorizontal = m_slider.orientation() == Qt::Horizontal;
        m_cursor.set(isHorizontal ? BVCursorTable::Cursor::SlideHorizontal
                                  : BVCursorTable::Cursor::SlideVertical);
    } else {
        m_cursor.reset();
    }
}
