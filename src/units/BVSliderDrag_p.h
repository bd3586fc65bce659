// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVSliderLimits_p.h"

#include <QPoint>
#include <QTimer>

#include <functional>

class QMouseEvent;

/// What the user holds of a slider, how its moves get through, and the state before.
class BVSliderDrag
{
public:
    /// Calls @p handleMove when a move has waited long enough.
    explicit BVSliderDrag(const std::function<void()> &handleMove);

    /// NoHandle while nothing is held.
    BVSlider::Handle handle() const { return m_handle; }
    bool isActive() const { return m_handle != BVSlider::NoHandle; }
    /// NoHandle unless it is a limit.
    BVSlider::Handle limit() const;
    /// Of the last press or move.
    QPoint position() const { return m_position; }
    /// Pixels from the begin of the handle to where it is held.
    int grip() const { return m_grip; }
    const BVSliderLimits &limitsBefore() const { return m_limitsBefore; }

    void begin(BVSlider::Handle handle, const QMouseEvent &press, int grip,
               const BVSliderLimits &limits);
    void end();

    /// Whether an event shows that the release has got lost.
    bool isStale(const QMouseEvent &event) const;
    bool isReleasedBy(const QMouseEvent &event) const;

    /// Takes a move down. True if it is to be handled now, false if it waits.
    bool moveTo(const QPoint &position);
    /// The last move is handled; with @p throttle, the next ones wait for a while.
    void setHandled(bool throttle);
    /// Whether a release there brings something new.
    bool isMoveOpen(const QPoint &position) const;

    /// The limit that is held pushes the value.
    void notePush(int from, int to);
    /// Whether @p value is where a push has left it; sets what it was before.
    bool hasPushed(int value, int &before) const;

private:
    QTimer m_throttle; // while it runs, moves wait
    BVSlider::Handle m_handle = BVSlider::NoHandle;
    Qt::MouseButton m_button = Qt::NoButton;
    QPoint m_position;
    int m_grip = 0;
    bool m_isMovePending = false;
    BVSliderLimits m_limitsBefore;
    bool m_hasPushed = false;
    int m_pushedFrom = 0;
    int m_pushedTo = 0;
};
