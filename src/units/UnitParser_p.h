// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <array>
#include <string_view>

/// Reads unit expressions, whose grammar UnitConverter describes. Every call parses anew.
namespace UnitParser {

/// Longer texts are no units.
constexpr int s_maxUnitLength = 12;
constexpr int s_baseUnitCount = 8;

/// A unit as a multiple of a product of powers of the base units.
struct ParsedUnit
{
    double factor = 1.0; ///< finite and not 0
    /// In the order information, currency, temperature, mass (g), length (m), ratio, angle, time.
    std::array<qint8, s_baseUnitCount> exponents = {};
};

/// The temperature scale of a unit between which offsets apply.
enum class TemperatureScale : quint8 { None, Kelvin, Celsius, Fahrenheit };

/// What a text is by itself, its brackets aside.
enum class TextKind : quint8 { NoUnit, Expression, Name, Incomplete };

/// Everything the converter needs to know of one text.
struct Resolved
{
    ParsedUnit unit;           ///< of the normalised text, if that is valid
    bool isValid = false;      ///< whether there is a unit that ParsedUnit can hold
    bool isOutOfRange = false; ///< whether there is one that it cannot hold
    TemperatureScale scale = TemperatureScale::None;
    TextKind kind = TextKind::NoUnit;
};

/// A text of at most s_maxUnitLength units, and what normalising may put between them.
struct ShortText
{
    std::array<char16_t, s_maxUnitLength * 3 / 2> units;
    int size = 0;

    void append(char16_t c) { units[static_cast<std::size_t>(size++)] = c; }
    std::u16string_view view() const { return {units.data(), static_cast<std::size_t>(size)}; }
};

/// The length of the longest expression at the start of a text of any length, or 0.
int span(std::u16string_view text);

/// The unit in a row of the unit table.
ParsedUnit rowUnit(int row);

/// The normalised unit of a text of at most s_maxUnitLength units: its leading expression, or the
/// symbol of the unit whose name it is, or nothing.
ShortText normalizedUnit(std::u16string_view text);
/// Whether two such texts have the same normalised unit, white space before it aside.
bool isSameUnit(std::u16string_view a, std::u16string_view b);

/// All about @p text, which may have any length.
Resolved resolve(std::u16string_view text);

} // namespace UnitParser
