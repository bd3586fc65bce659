// SPDX-License-Identifier: MIT
#include "units/BVSliderDrag_p.h"

#include <QMouseEvent>

namespace {

constexpr int s_throttleTime = 60; // ms, between two moves

} // namespace

BVSliderDrag::BVSliderDrag(const std::function<void()> &handleMove)
{
    m_throttle.setSingleShot(true);
    m_throttle.setInterval(s_throttleTime);
    QObject::connect(&m_throttle, &QTimer::timeout, &m_throttle, [this, handleMove] {
        if (m_isMovePending)
            handleMove();
    });
}

BVSlider::Handle BVSliderDrag::limit() const
{
    return m_handle == BVSlider::ValueHandle ? BVSlider::NoHandle : m_handle;
}

void BVSliderDrag::begin(BVSlider::Handle handle, const QMouseEvent &press, int grip,
                         const BVSliderLimits &limits)
{
    end();
    m_handle = handle;
    m_button = press.button();
    m_position = press.pos();
    m_grip = grip;
    m_limitsBefore = limits;
    m_hasPushed = false;
}

void BVSliderDrag::end()
{
    m_handle = BVSlider::NoHandle;
    m_isMovePending = false;
    m_throttle.stop();
}

bool BVSliderDrag::isStale(const QMouseEvent &event) const
{
    if (!isActive())
        return false;
    if (event.type() == QEvent::MouseMove)
        return !(event.buttons() & m_button);
    return event.button() == m_button; // pressed again
}

bool BVSliderDrag::isReleasedBy(const QMouseEvent &event) const
{
    return isActive() && !(event.buttons() & m_button);
}

bool BVSliderDrag::moveTo(const QPoint &position)
{
    m_position = position;
    m_isMovePending = m_throttle.isActive();
    return !m_isMovePending;
}

void BVSliderDrag::setHandled(bool throttle)
{
    m_isMovePending = false;
    if (throttle)
        m_throttle.start();
}

bool BVSliderDrag::isMoveOpen(const QPoint &position) const
{
    return m_isMovePending || position != m_position;
}

void BVSliderDrag::notePush(int from, int to)
{
    if (limit() == BVSlider::NoHandle)
        return;
    if (!m_hasPushed || from != m_pushedTo) // someone else has moved it in between
        m_pushedFrom = from;
    m_hasPushed = true;
    m_pushedTo = to;
}

bool BVSliderDrag::hasPushed(int value, int &before) const
{
    if (!m_hasPushed || value != m_pushedTo)
        return false;
    before = m_pushedFrom;
    return true;
}
