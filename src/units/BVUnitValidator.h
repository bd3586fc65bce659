// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "units/BVDoubleValidator.h"

/// Accepts a number with or without a unit behind it and checks the range in the base unit.
///
/// A number with a unit other than the base unit is converted before its range is checked; without
/// a base unit no unit is accepted. Units may be typed as they are shown ("5 dm²", "20.00°C"), and
/// while the typed text may still become a unit it is Intermediate. So it is when a unit is
/// followed by anything else ("1 m 50 cm"), and when an exponent, a fraction or "inf" is begun in
/// front of a unit ("5e mm", "1/ mm"). A number without a unit is checked as it stands.
class BVWIDGETS_EXPORT BVUnitValidator : public BVDoubleValidator
{
    Q_OBJECT

public:
    explicit BVUnitValidator(QObject *parent = nullptr);
    BVUnitValidator(double bottom, double top, int decimals, QObject *parent = nullptr);

    /// Whether a text with neither number nor unit is Acceptable instead of Intermediate; off at
    /// first.
    bool acceptEmpty() const { return m_acceptEmpty; }
    void setAcceptEmpty(bool accept);

    /// The unit of the range; empty for none.
    QString baseUnit() const { return m_baseUnit; }
    void setBaseUnit(const QString &unit);

    /// Takes over range, decimals, notation, base unit and whether empty texts are accepted. Emits
    /// changed() at most once, when all is taken over, and none of the signals of the single
    /// settings.
    void copyFrom(const BVUnitValidator &other);

    using BVDoubleValidator::validate;
    QValidator::State validate(QString &text, int &pos) const override;

    /// Divides @p text into number and unit, both without white space around them and either empty
    /// if it is missing.
    ///
    /// The number is what starts like one: a sign, digits with any points and commas, an exponent
    /// ("5e3", and "5e-" at the end of the text), a fraction ("1/4"), or "inf". A rate may be typed
    /// without its one: "5/min" is 5 and "1/min"; "1/min" alone is a unit.
    static void split(const QString &text, QString &number, QString &unit);
    /// Appends the unit as it is shown behind numbers; an empty unit appends nothing.
    static void appendUnit(QString &text, const QString &unit);
    /// Does so only if @p text has no unit yet. An empty text stays empty.
    static void appendUnitIfNone(QString &text, const QString &unit);
    /// Whether @p text ends in a unit; then sets @p unit, as typed, if it is asked for.
    static bool hasUnitPostFix(const QString &text, QString *unit = nullptr);

private:
    QValidator::State validateParts(QString &number, const QString &typedUnit, int &pos) const;
    bool isSameAs(const BVUnitValidator &other) const;
    bool isBegunBeforeUnit(const QString &text) const;
    QValidator::State validateConverted(const QString &number, const QString &unit,
                                        bool &converts) const;

    bool m_acceptEmpty = false;
    QString m_baseUnit;
};
