// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>

/// The notations of BVFormatter as pure functions.
///
/// Decimals and precision are expected within [0, s_maxDecimals]. Every double, infinities, NaN and
/// denormal ones included, gives a text. Field width and fill are those of QString::arg().
namespace BVNumberNotation {

constexpr int s_maxDecimals = 300;

/// The nearest number of decimals that is within the limits.
int boundedDecimals(int decimals);

/// 10^exponent, exact for exponents within [0, 22].
double powerOfTen(int exponent);

/// Moves values above 1e-9 in magnitude away from zero by 1e-14.
double nudged(double value);
/// The same by no more than 1e-14 of the value where @p relative, and not at all with so many
/// decimals that it would show.
double nudgedUnseen(double value, int decimals, bool relative);

/// What QString::arg() makes of the value in format "f".
QString fixed(double value, int fieldWidth, int decimals, char fill);
/// fixed() without its obsolete decimals if @p cut.
QString fixedCut(double value, int fieldWidth, int decimals, bool cut, char fill);
QString scientific(double value, int fieldWidth, int decimals, char fill);
QString general(double value, int decimals);
QString automatic(double value, int fieldWidth, int precision, int decimals, bool cut, char fill);
QString adaptedEngineering(double value, int fieldWidth, int decimals, char fill);
std::string engineering(double value, int decimals, bool cut);
QString engineering(double value, int fieldWidth, int decimals, bool cut, char fill);

/// The number of trailing zero decimals, at most @p decimals, of @p value rounded to @p decimals
/// decimals. The value must not be negative.
int obsoleteDecimals(double value, int decimals);

/// Whether the text has no digit but zeros before an exponent, and has one.
bool isZero(const QString &text);

} // namespace BVNumberNotation
