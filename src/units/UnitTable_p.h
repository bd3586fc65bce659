// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// The known units and prefixes: plain facts, which the unit parser gives their meaning.
namespace UnitTable {

/// One known unit. Its size is factor × definition, or 1 of the base unit of the given index.
struct Row
{
    std::u16string_view symbol;
    double factor;
    std::u16string_view definition; ///< a unit expression; empty for a base unit
    const char *name;
    int base = -1; ///< index of the exponent that a base unit counts in
};

constexpr int s_rowCount = 103;

/// The length of the longest symbol.
constexpr int s_maxSymbolLength = 6;

/// The row at @p index in the code-unit order of the symbols; @p index is in [0, s_rowCount).
const Row &row(int index);
/// The row of exactly this symbol, or -1.
int rowOfSymbol(std::u16string_view symbol);
/// The last row whose name is @p name ignoring case, or -1.
int rowOfName(std::u16string_view name);
/// Whether the name of any row starts with @p text ignoring case.
bool startsName(std::u16string_view text);

/// The value of a prefix, or 0 if @p c is none.
double prefixValue(char16_t c);

} // namespace UnitTable
