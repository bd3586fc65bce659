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

} // namespace UnitChecks
