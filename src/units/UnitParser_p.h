// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <array>
#include <string_view>

/// Reads unit expressions; UnitConverter describes their grammar. Knows no cache: every call
/// parses.
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

/// Everything the converter needs to know of one text.
struct Resolved
{
    ParsedUnit unit; ///< of the normalised text
    bool isValid = false;
    TemperatureScale scale = TemperatureScale::None;
    quint8 check = 0; ///< a UnitConverter::UnitCheck
};

/// A text of at most s_maxUnitLength units after the rewriting of normalized().
struct ShortText
{
    std::array<char16_t, s_maxUnitLength * 3 / 2> units;
    int size = 0;

    void append(char16_t c) { units[static_cast<std::size_t>(size++)] = c; }
    std::u16string_view view() const { return {units.data(), static_cast<std::size_t>(size)}; }
};

/// The length of the longest expression at the start of @p text, which may have any length; 0 and
/// an untouched @p unit if there is none.
int parse(std::u16string_view text, ParsedUnit &unit);

/// The unit in a row of the unit table.
ParsedUnit rowUnit(int row);

/// The text with "*" put between an exponent and an ASCII letter right behind it, and without
/// brackets.
/// @p text has at most s_maxUnitLength units.
ShortText normalized(std::u16string_view text);
/// The normalised unit of a text of at most s_maxUnitLength units: its leading expression, or the
/// symbol of the unit whose name it is, or nothing.
ShortText normalizedUnit(std::u16string_view text);

/// All about @p text, which may have any length.
Resolved resolve(std::u16string_view text);

} // namespace UnitParser
