// SPDX-License-Identifier: MIT
#include "units/BVFormatter.h"
#include "units/BVSlider.h"

BVSlider::ValueToStringConverter::~ValueToStringConverter() = default;

BVSlider::MultiplierBasedConverter::MultiplierBasedConverter(double multiplier, int decimals)
    : m_multiplier(multiplier)
    , m_decimals(qBound(0, decimals, BVFormatter::s_maxDecimals))
{
}

QString BVSlider::MultiplierBasedConverter::getStringTo(int position) const
{
    return QString::number(position * m_multiplier, 'f', m_decimals);
}

BVSlider::ValueToStringConverter *BVSlider::MultiplierBasedConverter::clone() const
{
    return new MultiplierBasedConverter(*this);
}
