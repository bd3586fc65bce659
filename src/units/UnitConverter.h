// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QCoreApplication>
#include <QObject>
#include <QString>
#include <QStringList>

/// Parses unit expressions such as "N/mm^2" or "1/min" and converts values between them.
///
/// An expression is a product of terms, optionally divided by a second product: there is one "/" at
/// most, and everything to its right is the denominator ("Kg/m*s^2" is kg/(m·s²)). A term is "1", a
/// symbol, or a one-character prefix directly before a symbol, and may carry an exponent ("mm^-2").
/// What is a symbol as it stands is never split into prefix and symbol ("min" is minutes). White
/// space (the ASCII kinds) may stand around every token. A symbol ends where the next UTF-16 unit
/// is neither a letter nor a decimal digit of any script nor "_"; halves of surrogate pairs count
/// as none of these.
///
/// An exponent is at most 127 in magnitude: a digit that would exceed it is left unread, which
/// makes the expression incomplete. A unit as a whole may be of any size. One in which an exponent
/// of a base unit is outside [-128, 127] ("N^100"), or whose factor is not a finite, non-zero
/// double, converts into no unit but itself.
///
/// Texts longer than 12 UTF-16 units are no units. Currencies convert 1 : 1. Between "degC", "°C",
/// "degF", "°F" and "K" offsets apply; any other unit of temperature converts by factor only: "mK",
/// "K^1", and also "K " with white space behind it. White space before a unit changes nothing.
///
/// convert(), isConvertable(), isUnit(), getUnit() and the lists of conversion units ignore
/// brackets: "(mm)" is "mm". For spanUnitStr() an expression ends at a bracket, and TagFromUnit()
/// takes the text as it is.
///
/// Every text is accepted, nothing throws, and all functions may be called from any thread.
class BVWIDGETS_EXPORT UnitConverter
{
    Q_GADGET
    Q_DECLARE_TR_FUNCTIONS(UnitConverter)

public:
    /// Tags of frequently used units, by which widgets declare their units. A list of the
    /// enumerators has Unit_None, too.
    enum Unit : qint32 {
        Unit_None = -1, ///< no tag
        Unit_mm = 0,
        Unit_m = 1,
        Unit_in = 2, ///< "in" and "inch"
        Unit_deg = 3,
        Unit_rad = 4,
        Unit_N = 5,
        Unit_kN = 6,
        Unit_lbf = 7,
        Unit_t = 8,
        Unit_h = 9,
        Unit_min = 10,
        Unit_s = 11,
        Unit_NPerMm = 12,
        Unit_kg = 13,
        Unit_1PerMin = 14,
        Unit_MPa = 15,
        Unit_NPerM2 = 16,
        Unit_bar = 17,
        Unit_USD = 18,
        Unit_CHF = 19,
        Unit_EUR = 20,
        Unit_JPY = 21,
        Unit_degC = 22,
        Unit_degF = 23,
        Unit_mPerS = 24,
        Unit_mmPerS = 25,
        Unit_Nm = 26,
        Unit_kNm = 27,
        Unit_degPerS = 28,
        Unit_radPerS = 29,
    };
    Q_ENUM(Unit)

    /// What a typed text is.
    enum UnitCheck : qint32 {
        NotAUnit = 0,
        CompleteUnit = 1,   ///< a whole unit expression
        UnitName = 2,       ///< the name of a unit, in any case ("meter")
        IncompleteUnit = 3, ///< may still become a unit
    };
    Q_ENUM(UnitCheck)

    UnitConverter() = delete;

    /// Converts @p value. False, with the value unchanged, when the units do not convert. Identical
    /// texts always convert, units or not; units of equal size leave the value as it is.
    static bool convert(double &value, const QString &from, const QString &to);
    /// The same on the texts of the tags.
    static bool convert(double &value, Unit from, Unit to);
    /// Whether the two convert into each other; so do texts that differ in brackets only.
    static bool isConvertable(const QString &from, const QString &to);

    /// What the text is, its brackets ignored; NotAUnit if it has over 12 UTF-16 units with them.
    static UnitCheck isUnit(const QString &text);
    /// The normalised unit: the leading expression with brackets removed and "*" put between an
    /// exponent and a letter behind it, or the symbol of a unit name. Empty if the text is neither,
    /// or longer than 12 UTF-16 units.
    static QString getUnit(const QString &text);
    /// The number of leading UTF-16 units that form an expression, white space behind it included;
    /// 0 if there is none. Texts of any length are read.
    static int spanUnitStr(const QString &text);

    /// The symbols of all known units, in the code-unit order of the symbols.
    static QStringList getUnits();
    /// The names of all known units, in the same order.
    static QStringList getUnitNames();
    /// The symbols of all known units into which @p unit converts; empty if it is no unit.
    static QStringList getConversionUnits(const QString &unit);
    /// The names of the same units.
    static QStringList getConversionUnitNames(const QString &unit);

    /// The tag of exactly this text, or Unit_None (-1).
    static Unit TagFromUnit(const QString &unit);
    /// The text of the tag, or an empty text.
    static QString UnitFromTag(Unit tag);
};
