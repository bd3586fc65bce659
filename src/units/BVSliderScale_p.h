// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVSlider.h"

/// What the positions of a slider stand for.
class BVSliderScale
{
public:
    /// See BVSlider::setUserRange().
    bool setRange(double atMinimum, double atMaximum, BVSlider::Scale scale);
    void clear() { *this = BVSliderScale(); }
    BVSlider::Scale scale() const { return m_scale; }

    /// The value of a position between @p minimum and @p maximum.
    double valueAt(int position, int minimum, int maximum) const;
    /// The nearest position to a value.
    int positionOf(double value, int minimum, int maximum) const;

private:
    bool m_isSet = false;
    double m_atMinimum = 0.0;
    double m_atMaximum = 0.0;
    BVSlider::Scale m_scale = BVSlider::Linear;
};
