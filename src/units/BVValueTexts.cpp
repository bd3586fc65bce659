// SPDX-License-Identifier: MIT
#include "units/BVValueTexts_p.h"

#include "units/BVFormatter.h"
#include "units/BVUnitValidator.h"
#include "units/UnitsConfiguration.h"

#include <QLocale>
#include <QVariant>

#include <cmath>

namespace {

constexpr int s_toolTipDigits = 9; // significant digits of the value in other units
constexpr double s_fullPrecision =
    1e-8; // relative; a text closer than that tells the value in full

} // namespace

QString BVValueTexts::withDisplayUnit(const BVFormatter &formatter, const QString &text)
{
    QString complete = text;
    const QString suffix = formatter.suffix();
    const int end = suffix.isEmpty() ? -1 : text.lastIndexOf(suffix);
    if (end >= 0)
        complete.truncate(end);
    bool isNumber = false;
    BVDoubleValidator::toDoubleValue(complete.trimmed(), isNumber);
    if (isNumber && formatter.isValueUnitSet() && formatter.displayUnit() != formatter.valueUnit())
        BVUnitValidator::appendUnitIfNone(complete, formatter.displayUnit());
    return complete;
}

QString BVValueTexts::fullValueText(const BVFormatter &formatter, double value)
{
    for (const bool full : {false, true}) {
        QString text = formatter.textFromValue(value, full);
        if (std::abs(formatter.valueFromText(text) - value) <= s_fullPrecision * std::abs(value))
            return text;
    }
    QString precise =
        QString::number(formatter.valueToDisplayValue(value), 'g', QLocale::FloatingPointShortest);
    BVUnitValidator::appendUnit(precise, formatter.displayUnit());
    return precise;
}

QStringList BVValueTexts::valueInOtherUnits(const BVFormatter &formatter, double value)
{
    const UnitsConfiguration &configuration = UnitsConfiguration::instance();
    QStringList lines;
    auto dimension = configuration.isSupportedUnitOfAny(formatter.displayUnit());
    if (dimension == UnitsConfiguration::NoDimension)
        dimension = configuration.isSupportedUnitOfAny(formatter.valueUnit());
    const QStringList units = UnitsConfiguration::allowedUnits(dimension);
    for (const QString &unit : units) {
        double converted = value;
        if (unit == formatter.displayUnit() || !formatter.valueToUnit(value, unit, converted))
            continue;
        QString text = QString::number(converted, 'g', s_toolTipDigits);
        BVUnitValidator::appendUnit(text, unit);
        lines << QStringLiteral("= ") + text;
    }
    return lines;
}

QString BVValueTexts::referenceText(const BVFormatter &formatter, const QVariant &reference)
{
    bool ok = false;
    const double value = reference.toDouble(&ok);
    return ok ? formatter.textFromValue(value, true) : reference.toString();
}
