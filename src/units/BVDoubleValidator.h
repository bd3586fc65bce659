// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QDoubleValidator>

/// Accepts numbers with "." or the decimal point of the application's locale, simple fractions such
/// as "1/3", and the words "inf" and "-inf" where the range has no end.
///
/// The locale is the application's default (QLocale::setDefault()) at each call; the one of
/// QValidator::setLocale() is ignored. Group separators are refused: "1,500" is no number in an
/// English locale, and in a German one it is 1.5. Digits and signs are those of ASCII.
///
/// Range, decimals and notation are those of QDoubleValidator. Surplus decimals do not make a text
/// invalid; they are left out when the text is checked, so that with no decimals ".5" is as
/// unfinished as ".". A negative number of decimals sets no limit. Where the range has no end, "i"
/// and "in" are Intermediate. Texts are never altered.
class BVWIDGETS_EXPORT BVDoubleValidator : public QDoubleValidator
{
    Q_OBJECT

public:
    explicit BVDoubleValidator(QObject *parent = nullptr);
    BVDoubleValidator(double bottom, double top, int decimals, QObject *parent = nullptr);

    /// Turns the first "." into the locale's decimal point, or the first locale's point into ".".
    static void convertDecimalPoint(QString &text, bool toLocale);
    /// The index of the first "." at or behind @p from, else of the locale's decimal point, else
    /// -1.
    static int indexOfDecimalPoint(const QString &text, int from = 0);
    static bool isDecimalPoint(const QChar &character);
    /// Whether @p text has exactly one "/"; then sets the parts around it, white space removed,
    /// where they are asked for.
    static bool isFractionExpr(const QString &text, QString *numerator = nullptr,
                               QString *denominator = nullptr);
    /// How a validator with no limits judges @p text.
    static QValidator::State isValidNumber(const QString &text);
    /// Reads a number or a fraction; 0.0 with @p ok false if there is none. A fraction with a zero
    /// in either place does not read, nor does a text for "not a number" or a number too large for
    /// a double; "inf/2" is infinite. White space around the numbers is passed over.
    static double toDoubleValue(const QString &text, bool &ok);

    QValidator::State validate(QString &text, int &pos) const override;
    QValidator::State validate(const QString &text) const;
    /// Judges a text that is no fraction.
    QValidator::State validateDecimal(QString &text) const;
    /// Judges a fraction by its quotient. A part that is still missing, and a zero below, are
    /// Intermediate.
    QValidator::State validateFraction(QString &numerator, QString &denominator) const;

protected:
    /// Whether @p text is the start of a word for infinity that the range admits.
    bool mayBecomeInfinity(const QString &text) const;
};
