// SPDX-License-Identifier: MIT
#include "units/BVNumberNotation_p.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>

namespace {

constexpr std::array<double, 23> s_powersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr double s_integerLimit = 4503599627370496.0; // 2^52; below it a double has halves
constexpr double s_zeroLimit = 1e-9;                  // engineering notation shows "0" below it
constexpr double s_nudge = 1e-14;

constexpr int s_roomForUnit = 14; // characters that can be appended without a second allocation

QString padded(const QString &text, int fieldWidth, char fill)
{
    return fieldWidth == 0 ? text : QStringLiteral("%1").arg(text, fieldWidth, QLatin1Char(fill));
}

/// The magnitude times 10^decimals, rounded to the nearest integer with halves up, exactly; -1 if
/// it is too large for that.
std::int64_t scaledAndRounded(double magnitude, int decimals)
{
    const double power = s_powersOfTen[static_cast<std::size_t>(decimals)];
    const double scaled = magnitude * power;
    if (!(scaled < s_integerLimit)) // NaN as well
        return -1;
    const double whole = std::floor(scaled);
    const double rest = scaled - whole - 0.5;
    const double error = std::fma(magnitude, power, -scaled); // what the product has lost
    const bool up = rest >= -error;
    return static_cast<std::int64_t>(whole) + (up ? 1 : 0);
}

/// Most values in a form are of moderate size; these need no arbitrary precision arithmetic.
bool writeModerate(double value, int decimals, QString &text)
{
    if (decimals >= static_cast<int>(s_powersOfTen.size()))
        return false;
    std::int64_t digits = scaledAndRounded(std::fabs(value), decimals);
    if (digits < 0)
        return false;
    std::array<QChar, 48> buffer;
    const auto end = buffer.end();
    auto first = end;
    const auto put = [&first](char c) { *--first = QLatin1Char(c); };
    for (int i = 0; i < decimals; ++i, digits /= 10)
        put(static_cast<char>('0' + digits % 10));
    if (decimals > 0)
        put('.');
    do {
        put(static_cast<char>('0' + digits % 10));
        digits /= 10;
    } while (digits > 0);
    if (value < 0)
        put('-');
    const int size = static_cast<int>(end - first);
    text = QString(size + s_roomForUnit, Qt::Uninitialized);
    std::copy(first, end, text.begin());
    text.truncate(size); // keeps the room
    return true;
}

/// A magnitude as mantissa times 10^exponent, the exponent a multiple of three.
struct Scaled
{
    double mantissa = 0.0;
    int exponent = 0;
};

Scaled scaledByThousands(double magnitude)
{
    Scaled scaled{magnitude, 0};
    // A hundred steps in double would show in the last digits.
    auto mantissa = static_cast<long double>(magnitude);
    while (magnitude < 1.0 && scaled.mantissa < 0.01) {
        mantissa *= 1000.0L;
        scaled = {static_cast<double>(mantissa), scaled.exponent - 3};
    }
    while (scaled.mantissa >= 1000.0) {
        mantissa /= 1000.0L;
        scaled = {static_cast<double>(mantissa), scaled.exponent + 3};
    }
    return scaled;
}

/// The whole text of a magnitude that has no mantissa; null for others.
const char *wordFor(double magnitude)
{
    if (std::isnan(magnitude))
        return "NaN";
    if (std::isinf(magnitude))
        return "INF";
    return magnitude < s_zeroLimit ? "0" : nullptr;
}

std::string signOf(double value)
{
    return value < 0.0 ? std::string("-") : std::string();
}

// Not printf(), whose decimal point is that of the process locale.
std::string printed(double mantissa, int decimals, int exponent)
{
    std::array<char, 512> buffer;
    char *const begin = buffer.data();
    char *const end = begin + buffer.size();
    const auto number = std::to_chars(begin, end, mantissa, std::chars_format::fixed, decimals);
    std::string text(begin, number.ptr);
    if (exponent == 0)
        return text;
    text += exponent < 0 ? "E" : "E+";
    return text + std::to_string(exponent);
}

struct MantissaDecimals
{
    int plain = 3;        // without an exponent
    int withExponent = 3; // with one
};

MantissaDecimals adaptedDecimals(double mantissa, int decimals)
{
    if (mantissa >= 100.0)
        return {1, std::max(decimals - 3, 0)};
    if (mantissa >= 10.0)
        return {2, std::max(decimals - 2, 0)};
    if (mantissa >= 1.0)
        return {3, std::max(decimals - 1, 0)};
    if (mantissa >= 0.1)
        return {3, std::max(decimals, 2)};
    if (mantissa > 0.01)
        return {3, std::max(decimals, 3)};
    return {2, std::max(decimals - 2, 0)};
}

int engineeringDecimals(double mantissa)
{
    if (mantissa >= 100.0)
        return 1;
    return mantissa >= 10.0 || mantissa <= 0.01 ? 2 : 3;
}

bool isNonZeroDigit(char c)
{
    return c >= '1' && c <= '9';
}

} // namespace

namespace BVNumberNotation {

int boundedDecimals(int decimals)
{
    return std::clamp(decimals, 0, s_maxDecimals);
}

double powerOfTen(int exponent)
{
    if (exponent >= 0 && exponent < static_cast<int>(s_powersOfTen.size()))
        return s_powersOfTen[static_cast<std::size_t>(exponent)];
    if (exponent < 0 && -exponent < static_cast<int>(s_powersOfTen.size()))
        return 1.0 / s_powersOfTen[static_cast<std::size_t>(-exponent)];
    return std::pow(10.0, exponent);
}

double nudged(double value)
{
    return std::fabs(value) > s_zeroLimit ? value + std::copysign(s_nudge, value) : value;
}

double nudgedUnseen(double value, int decimals, bool relative)
{
    constexpr int maxDecimals = 10; // in which the nudge is at most a thousandth of the last digit
    if (decimals > maxDecimals)
        return value;
    if (relative && std::fabs(value) < 1.0)
        return value + s_nudge * value;
    return nudged(value);
}

QString fixed(double value, int fieldWidth, int decimals, char fill)
{
    QString text;
    if (fieldWidth == 0 && writeModerate(value, decimals, text))
        return text;
    return QStringLiteral("%1").arg(value, fieldWidth, 'f', decimals, QLatin1Char(fill));
}

QString fixedCut(double value, int fieldWidth, int decimals, bool cut, char fill)
{
    const int obsolete = cut ? obsoleteDecimals(std::fabs(value), decimals) : 0;
    return fixed(value, fieldWidth, decimals - obsolete, fill);
}

QString scientific(double value, int fieldWidth, int decimals, char fill)
{
    return QStringLiteral("%1").arg(value, fieldWidth, 'E', decimals, QLatin1Char(fill));
}

QString general(double value, int decimals)
{
    return QString::number(value, 'G', decimals);
}

QString automatic(double value, int fieldWidth, int precision, int decimals, bool cut, char fill)
{
    constexpr double largestPlain = 10000.0; // negative values know no such limit
    const double magnitude = std::fabs(value);
    const bool large = magnitude > powerOfTen(precision);
    const bool tiny = magnitude < 1.0 && magnitude < powerOfTen(-decimals);
    if (large || tiny || value >= largestPlain)
        return adaptedEngineering(value, fieldWidth, decimals, fill);
    return fixedCut(value, fieldWidth, decimals, cut, fill);
}

QString adaptedEngineering(double value, int fieldWidth, int decimals, char fill)
{
    const double magnitude = std::fabs(value);
    if (const char *word = wordFor(magnitude)) {
        const bool hasSign = value < 0.0 && magnitude >= s_zeroLimit;
        return QLatin1String(hasSign ? "-" : "") + QLatin1String(word);
    }
    const Scaled scaled = scaledByThousands(magnitude);
    const MantissaDecimals places = adaptedDecimals(scaled.mantissa, decimals);
    const int used = scaled.exponent == 0 ? places.plain : places.withExponent;
    const std::string text = signOf(value) + printed(scaled.mantissa, used, scaled.exponent);
    return padded(QString::fromStdString(text), fieldWidth, fill);
}

std::string engineering(double value, int decimals, bool cut)
{
    const double magnitude = std::fabs(value);
    if (const char *word = wordFor(magnitude))
        return magnitude < s_zeroLimit ? word : signOf(value) + word;
    const Scaled scaled = scaledByThousands(magnitude);
    const bool bySize = cut || scaled.exponent == 0;
    const int used = bySize ? engineeringDecimals(scaled.mantissa) : decimals;
    const std::string text = printed(scaled.mantissa, used, scaled.exponent);
    const auto mantissaEnd = std::find(text.begin(), text.end(), 'E');
    const bool shownAsZero = std::none_of(text.begin(), mantissaEnd, isNonZeroDigit);
    return shownAsZero ? text : signOf(value) + text;
}

QString engineering(double value, int fieldWidth, int decimals, bool cut, char fill)
{
    return padded(QString::fromStdString(engineering(value, decimals, cut)), fieldWidth, fill);
}

int obsoleteDecimals(double value, int decimals)
{
    double digits = std::floor(powerOfTen(decimals + 1) * (value - std::floor(value)));
    if (std::fmod(digits, 10.0) >= 5.0)
        digits += 10.0;
    digits = std::floor(digits * 0.1);
    int count = 0;
    for (; count < decimals && std::fmod(digits, 10.0) == 0.0; ++count)
        digits = std::floor(digits / 10.0);
    return count;
}

bool isZero(const QString &text)
{
    const auto mantissaEnd = std::find(text.cbegin(), text.cend(), QLatin1Char('E'));
    const auto isNonZero = [](QChar c) { return c >= QLatin1Char('1') && c <= QLatin1Char('9'); };
    const auto isDigit = [](QChar c) { return c.unicode() >= '0' && c.unicode() <= '9'; };
    return std::none_of(text.cbegin(), mantissaEnd, isNonZero) &&
           std::any_of(text.cbegin(), mantissaEnd, isDigit);
}

} // namespace BVNumberNotation
