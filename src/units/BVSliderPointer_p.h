// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVSliderDrag_p.h"

class QHoverEvent;
class QMouseEvent;

/// What the pointer does with a slider: clicks, drags, and how they end.
///
/// Each of these functions may lead to the slider's end.
class BVSliderPointer
{
public:
    explicit BVSliderPointer(BVSlider &slider);

    BVSliderDrag &drag() { return m_drag; }

    void press(QMouseEvent *event);
    void move(QMouseEvent *event);
    void release(QMouseEvent *event);
    void hover(const QHoverEvent &event);
    /// Brings back a limit that is held.
    void cancel();
    /// Ends what the user does, as if it had ended before the last move.
    void abandon();
    /// Does so if the user could not have begun it now.
    void abandonIfInactive();

private:
    BVSlider::Handle limitAt(const QPoint &position) const;
    void pressLimit(BVSlider::Handle limit, const QMouseEvent &event);
    void pressValue(QMouseEvent *event);
    void dragValue(QMouseEvent *event);
    void handleMove();
    int limitPositionAt(BVSlider::Handle limit, const QPoint &place) const;
    void finishDrag(QMouseEvent *event);
    void passRelease(QMouseEvent *event);
    void letGoOfValue();
    void showToolTip();
    void hideToolTip() const;

    BVSlider &m_slider;
    BVSliderDrag m_drag;
};
