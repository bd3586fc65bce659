// SPDX-License-Identifier: MIT
#include "units/UnitParser_p.h"

#include "units/UnitTable_p.h"

#include <QChar>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

namespace UnitParser {

namespace {

constexpr int s_minExponent = -128; // range of qint8
constexpr int s_maxExponent = 127;

bool isSpace(char16_t c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

bool isAsciiDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

bool isAsciiLetter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// Whether a symbol directly before @p c would go on.
bool isWordUnit(char16_t c)
{
    if (c < 0x80)
        return isAsciiLetter(c) || isAsciiDigit(c) || c == u'_';
    return QChar::isLetter(c) || QChar::isDigit(c);
}

/// A unit while it is read, of any size. An exponent grows by a few hundred a term, so that no text
/// is long enough to overflow it. A factor that has become 0, infinite or NaN never gets back.
struct WideUnit
{
    double factor = 1.0;
    std::array<qint64, s_baseUnitCount> exponents = {};
};

using RowUnit = WideUnit (*)(int row);

/// Stores @p wide in @p unit if all its parts are in range.
bool narrow(const WideUnit &wide, ParsedUnit &unit)
{
    const bool inRange =
        std::all_of(wide.exponents.begin(), wide.exponents.end(), [](qint64 exponent) {
            return exponent >= s_minExponent && exponent <= s_maxExponent;
        });
    if (!inRange || !std::isfinite(wide.factor) || wide.factor == 0.0)
        return false;
    unit.factor = wide.factor;
    std::transform(wide.exponents.begin(), wide.exponents.end(), unit.exponents.begin(),
                   [](qint64 exponent) { return static_cast<qint8>(exponent); });
    return true;
}

void multiply(WideUnit &unit, const WideUnit &other)
{
    unit.factor *= other.factor;
    for (std::size_t base = 0; base < s_baseUnitCount; ++base)
        unit.exponents[base] += other.exponents[base];
}

void divide(WideUnit &unit, const WideUnit &other)
{
    unit.factor /= other.factor;
    for (std::size_t base = 0; base < s_baseUnitCount; ++base)
        unit.exponents[base] -= other.exponents[base];
}

double powerOf(double factor, int exponent)
{
    double result = 1.0;
    for (int rest = std::abs(exponent); rest > 0; rest /= 2) {
        if (rest % 2 == 1)
            result *= factor;
        factor *= factor;
    }
    return exponent < 0 ? 1.0 / result : result;
}

void raise(WideUnit &unit, int exponent)
{
    unit.factor = powerOf(unit.factor, exponent);
    for (qint64 &baseExponent : unit.exponents)
        baseExponent *= exponent;
}

/// Recursive descent over one text. A step that fails leaves the position where it was; every token
/// takes the white space behind it along.
class Parser
{
public:
    Parser(std::u16string_view text, RowUnit rowUnit)
        : m_text(text)
        , m_rowUnit(rowUnit)
    {
        skipSpace();
    }

    /// The length of the expression, or 0.
    int quotient(WideUnit &unit);

private:
    bool product(WideUnit &unit);
    bool term(WideUnit &unit);
    bool atom(WideUnit &unit);
    bool symbol(std::size_t at, WideUnit &unit);
    void power(WideUnit &unit);
    int exponent();

    bool at(char16_t c) const { return m_position < m_text.size() && m_text[m_position] == c; }
    bool take(char16_t c);
    void skipSpace();

    std::u16string_view m_text;
    RowUnit m_rowUnit;
    std::size_t m_position = 0;
};

int Parser::quotient(WideUnit &unit)
{
    WideUnit result;
    if (!product(result))
        return 0;
    const std::size_t end = m_position;
    WideUnit denominator;
    if (take(u'/') && product(denominator))
        divide(result, denominator);
    else
        m_position = end;
    unit = result;
    return static_cast<int>(m_position);
}

bool Parser::product(WideUnit &unit)
{
    if (!term(unit))
        return false;
    std::size_t end = m_position;
    WideUnit factor;
    while (take(u'*') && term(factor)) {
        multiply(unit, factor);
        end = m_position;
    }
    m_position = end;
    return true;
}

bool Parser::term(WideUnit &unit)
{
    if (take(u'1'))
        unit = WideUnit();
    else if (!atom(unit))
        return false;
    power(unit);
    return true;
}

bool Parser::atom(WideUnit &unit)
{
    if (symbol(m_position, unit))
        return true;
    const double prefix =
        m_position < m_text.size() ? UnitTable::prefixValue(m_text[m_position]) : 0;
    if (prefix == 0.0 || !symbol(m_position + 1, unit))
        return false;
    unit.factor *= prefix;
    return true;
}

// Only the first unit of a symbol may be something else than a letter ("°C"), so that the one
// symbol that can match ends where the letters end.
bool Parser::symbol(std::size_t at, WideUnit &unit)
{
    if (at >= m_text.size())
        return false;
    const std::size_t limit =
        std::min(m_text.size(), at + std::size_t(UnitTable::s_maxSymbolLength) + 1);
    std::size_t end = at + 1;
    while (end < limit && isWordUnit(m_text[end]))
        ++end;
    const int row = UnitTable::rowOfSymbol(m_text.substr(at, end - at));
    if (row < 0)
        return false;
    unit = m_rowUnit(row);
    m_position = end;
    skipSpace();
    return true;
}

void Parser::power(WideUnit &unit)
{
    const std::size_t start = m_position;
    if (!take(u'^'))
        return;
    const bool negative = take(u'-');
    if (!negative)
        take(u'+');
    const int magnitude = exponent();
    if (magnitude < 0)
        m_position = start;
    else
        raise(unit, negative ? -magnitude : magnitude);
}

/// The number at the position, up to the digit that would overflow; -1 if there is none.
int Parser::exponent()
{
    int value = -1;
    while (m_position < m_text.size() && isAsciiDigit(m_text[m_position])) {
        const int next = std::max(value, 0) * 10 + (m_text[m_position] - u'0');
        if (next > s_maxExponent)
            break;
        value = next;
        ++m_position;
    }
    skipSpace();
    return value;
}

bool Parser::take(char16_t c)
{
    if (!at(c))
        return false;
    ++m_position;
    skipSpace();
    return true;
}

void Parser::skipSpace()
{
    while (m_position < m_text.size() && isSpace(m_text[m_position]))
        ++m_position;
}

/// Works a row out from the definitions of the table.
WideUnit computeRow(int row)
{
    const UnitTable::Row &entry = UnitTable::row(row);
    WideUnit unit;
    if (entry.base >= 0)
        unit.exponents[static_cast<std::size_t>(entry.base)] = 1;
    else
        Parser(entry.definition, computeRow).quotient(unit);
    unit.factor = entry.factor * unit.factor;
    return unit;
}

std::array<WideUnit, UnitTable::s_rowCount> computeRows()
{
    std::array<WideUnit, UnitTable::s_rowCount> units;
    for (int row = 0; row < UnitTable::s_rowCount; ++row)
        units[static_cast<std::size_t>(row)] = computeRow(row);
    return units;
}

WideUnit wideRowUnit(int row)
{
    static const std::array<WideUnit, UnitTable::s_rowCount> s_units = computeRows();
    return s_units[static_cast<std::size_t>(row)];
}

struct Temperature
{
    std::u16string_view symbol;
    TemperatureScale scale;
};

constexpr Temperature s_temperatures[] = {
    {u"K", TemperatureScale::Kelvin},           {u"degC", TemperatureScale::Celsius},
    {u"\u00B0C", TemperatureScale::Celsius},    {u"degF", TemperatureScale::Fahrenheit},
    {u"\u00B0F", TemperatureScale::Fahrenheit},
};

std::u16string_view withoutLeadingSpace(std::u16string_view text)
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    return text;
}

/// Offsets apply between the bare symbols only: "degC " with its white space is a factor like "mK".
TemperatureScale scaleOf(std::u16string_view unit)
{
    const std::u16string_view symbol = withoutLeadingSpace(unit);
    const auto it = std::find_if(std::begin(s_temperatures), std::end(s_temperatures),
                                 [symbol](const auto &entry) { return entry.symbol == symbol; });
    return it == std::end(s_temperatures) ? TemperatureScale::None : it->scale;
}

/// Whether a "*" is missing before @p at: a letter stands there and an unsigned exponent ends.
bool isProductMissing(std::u16string_view text, std::size_t at)
{
    if (!isAsciiLetter(text[at]))
        return false;
    std::size_t digits = at;
    while (digits > 0 && isAsciiDigit(text[digits - 1]))
        --digits;
    return digits < at && digits > 0 && text[digits - 1] == u'^';
}

bool isBracket(char16_t c)
{
    return c == u'(' || c == u')';
}

enum class Products { AsTyped, Completed };

/// The text without brackets. With products completed, a "*" stands between each exponent and an
/// ASCII letter that was typed right behind it.
ShortText rewritten(std::u16string_view text, Products products)
{
    ShortText result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (products == Products::Completed && isProductMissing(text, at))
            result.append(u'*');
        if (!isBracket(text[at]))
            result.append(text[at]);
    }
    return result;
}

/// What one text reads as.
struct Reading
{
    ShortText text;
    WideUnit unit;
    int span = 0;
    int row = -1; ///< of the unit whose name the text is

    bool isUnit() const { return span > 0 || row >= 0; }
};

Reading read(const ShortText &text)
{
    Reading reading;
    reading.text = text;
    reading.span = Parser(text.view(), wideRowUnit).quotient(reading.unit);
    if (reading.span > 0 || text.size == 0)
        return reading;
    reading.row = UnitTable::rowOfName(text.view());
    if (reading.row >= 0)
        reading.unit = wideRowUnit(reading.row);
    return reading;
}

std::u16string_view unitText(const Reading &reading)
{
    if (reading.row >= 0)
        return UnitTable::row(reading.row).symbol;
    return reading.text.view().substr(0, static_cast<std::size_t>(reading.span));
}

TextKind kindOf(const Reading &reading)
{
    if (reading.row >= 0)
        return TextKind::Name;
    if (reading.text.size == 0)
        return TextKind::NoUnit;
    if (reading.span == reading.text.size)
        return TextKind::Expression;
    const bool mayBecomeUnit = reading.span > 0 || UnitTable::startsName(reading.text.view());
    return mayBecomeUnit ? TextKind::Incomplete : TextKind::NoUnit;
}

} // namespace

ParsedUnit rowUnit(int row)
{
    ParsedUnit unit;
    narrow(wideRowUnit(row), unit);
    return unit;
}

int span(std::u16string_view text)
{
    WideUnit unit;
    return Parser(text, wideRowUnit).quotient(unit);
}

ShortText normalizedUnit(std::u16string_view text)
{
    ShortText result;
    const Reading reading = read(rewritten(text, Products::Completed));
    for (const char16_t c : unitText(reading))
        result.append(c);
    return result;
}

bool isSameUnit(std::u16string_view a, std::u16string_view b)
{
    const ShortText unitA = normalizedUnit(a);
    const ShortText unitB = normalizedUnit(b);
    return withoutLeadingSpace(unitA.view()) == withoutLeadingSpace(unitB.view());
}

Resolved resolve(std::u16string_view text)
{
    Resolved result;
    if (text.size() > s_maxUnitLength)
        return result;
    const Reading reading = read(rewritten(text, Products::Completed));
    result.isValid = reading.isUnit() && narrow(reading.unit, result.unit);
    result.isOutOfRange = reading.isUnit() && !result.isValid;
    result.scale = scaleOf(unitText(reading));
    const ShortText plain = rewritten(text, Products::AsTyped);
    const bool isSame = plain.view() == reading.text.view();
    result.kind = kindOf(isSame ? reading : read(plain));
    return result;
}

} // namespace UnitParser
