// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVUnitValidator.h"

#include <QString>

#include <cmath>

/// The value of one unit of the last digit of the number at the start of a text.
inline double lastDigit(const QString &text)
{
    QString number;
    QString unit;
    BVUnitValidator::split(text, number, unit);
    const int e = number.indexOf(QLatin1Char('E'));
    const QString mantissa = number.left(e);
    const int point = mantissa.indexOf(QLatin1Char('.'));
    const int decimals = point < 0 ? 0 : mantissa.size() - point - 1;
    return std::pow(10.0, (e < 0 ? 0 : number.mid(e + 1).toInt()) - decimals);
}
