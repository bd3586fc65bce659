// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVSlider.h"

#include <limits>

/// The admissible range of a slider, in positions. It may lie beyond the slider's range.
class BVSliderLimits
{
public:
    int minimum() const { return m_minimum; }
    int maximum() const { return m_maximum; }
    bool operator==(const BVSliderLimits &other) const;

    /// What asking for two limits leads to: crossed, the one that changes gives way, or the
    /// minimum.
    BVSliderLimits changedTo(int minimum, int maximum) const;
    /// Both limits moved into a range.
    BVSliderLimits within(int lowest, int highest) const;
    /// Whether part of a range is not admissible.
    bool narrow(int lowest, int highest) const;
    /// The nearest admissible position in a range; its nearer end if none is.
    int bound(qint64 position, int lowest, int highest) const;

private:
    int m_minimum = std::numeric_limits<int>::min();
    int m_maximum = std::numeric_limits<int>::max();
};
