// SPDX-License-Identifier: MIT
#include "units/BVSliderLimits_p.h"

bool BVSliderLimits::operator==(const BVSliderLimits &other) const
{
    return m_minimum == other.m_minimum && m_maximum == other.m_maximum;
}

BVSliderLimits BVSliderLimits::changedTo(int minimum, int maximum) const
{
    BVSliderLimits limits;
    limits.m_minimum = minimum;
    limits.m_maximum = maximum;
    if (minimum <= maximum)
        return limits;
    if (minimum == m_minimum && maximum != m_maximum)
        limits.m_maximum = minimum;
    else
        limits.m_minimum = maximum;
    return limits;
}

BVSliderLimits BVSliderLimits::within(int lowest, int highest) const
{
    BVSliderLimits limits;
    limits.m_minimum = qBound(lowest, m_minimum, highest);
    limits.m_maximum = qBound(lowest, m_maximum, highest);
    return limits;
}

bool BVSliderLimits::narrow(int lowest, int highest) const
{
    return m_minimum > lowest || m_maximum < highest;
}

int BVSliderLimits::bound(qint64 position, int lowest, int highest) const
{
    const BVSliderLimits limits = within(lowest, highest);
    return static_cast<int>(qBound<qint64>(limits.m_minimum, position, limits.m_maximum));
}
