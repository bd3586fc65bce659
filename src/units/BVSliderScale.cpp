// SPDX-License-Identifier: MIT
#include "units/BVSliderScale_p.h"

#include <cmath>

namespace {

/// A value between two others, without overflow on the way.
double between(double first, double second, double part)
{
    return first * (1.0 - part) + second * part;
}

double partBetween(double first, double second, double value)
{
    return (value / 2 - first / 2) / (second / 2 - first / 2);
}

} // namespace

bool BVSliderScale::setRange(double atMinimum, double atMaximum, BVSlider::Scale scale)
{
    const bool isRange =
        std::isfinite(atMinimum) && std::isfinite(atMaximum) && atMinimum != atMaximum;
    const bool isScale = scale == BVSlider::Linear ||
                         (scale == BVSlider::Logarithmic && atMinimum > 0 && atMaximum > 0);
    if (!isRange || !isScale)
        return false;
    m_isSet = true;
    m_atMinimum = atMinimum;
    m_atMaximum = atMaximum;
    m_scale = scale;
    return true;
}

double BVSliderScale::valueAt(int position, int minimum, int maximum) const
{
    if (!m_isSet)
        return position;
    const double width = double(maximum) - minimum;
    const double bounded = qBound(minimum, position, maximum);
    const double part = width > 0 ? (bounded - minimum) / width : 0.0;
    if (part == 0.0 || part == 1.0) // exactly, whatever the scale
        return part == 0.0 ? m_atMinimum : m_atMaximum;
    if (m_scale == BVSlider::Linear)
        return between(m_atMinimum, m_atMaximum, part);
    return std::exp(between(std::log(m_atMinimum), std::log(m_atMaximum), part));
}

int BVSliderScale::positionOf(double value, int minimum, int maximum) const
{
    double position = value;
    if (m_isSet) {
        const bool isLinear = m_scale == BVSlider::Linear;
        double part = m_atMinimum < m_atMaximum ? 0.0 : 1.0; // of what a logarithm does not reach
        if (isLinear)
            part = partBetween(m_atMinimum, m_atMaximum, value);
        else if (value > 0)
            part = partBetween(std::log(m_atMinimum), std::log(m_atMaximum), std::log(value));
        position = std::isnan(part) ? part : between(minimum, maximum, qBound(0.0, part, 1.0));
    }
    if (std::isnan(value) || std::isnan(position))
        return minimum;
    return static_cast<int>(std::round(qBound(double(minimum), position, double(maximum))));
}
