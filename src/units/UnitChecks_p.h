// SPDX-License-Identifier: MIT
#pragma once

#include "units/UnitConverter.h"

/// What is taken where a unit is asked for.
namespace UnitChecks {

/// Whether the tag stands for a unit, or for none.
inline bool isKnown(UnitConverter::Unit unit)
{
    return unit == UnitConverter::Unit_None || !UnitConverter::UnitFromTag(unit).isEmpty();
}

/// Whether the text as a whole is a unit or the name of one; the converter reads the start of what
/// is none, too.
inline bool isWholeUnit(const QString &text)
{
    const UnitConverter::UnitCheck check = UnitConverter::isUnit(text);
    return check == UnitConverter::CompleteUnit || check == UnitConverter::UnitName;
}

} // namespace UnitChecks
