// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <qnamespace.h>

class QAbstractSlider;
class QWheelEvent;

/// How far keys move a handle of a slider.
struct BVSliderSteps
{
    explicit BVSliderSteps(const QAbstractSlider &slider);

    int single; // positions, like the next
    int page;
    bool rightToLeft;
    bool inverted; // keys move the other way

    /// Farther than any two positions are apart.
    static constexpr qint64 s_farthest = Q_INT64_C(1) << 33;

    /// In positions, towards larger ones; s_farthest for End, against it for Home. False, with @p
    /// distance unchanged, for a key that moves nothing.
    bool ofKey(int key, qint64 &distance) const;
    /// That of a Brimvale::VirtualSliderEvent. False for the code of such a key.
    bool ofVirtualKey(int key, Qt::KeyboardModifiers modifiers, qint64 &distance) const;
    /// That of a turn of the wheel. @p rest keeps what is less than a position for the next one.
    qint64 ofWheel(const QWheelEvent &event, double &rest) const;
};
