// SPDX-License-Identifier: MIT
#include "units/BVSpinBoxTexts_p.h"

#include "units/BVDoubleSpinBox.h"
#include "units/BVStepping_p.h"
#include "units/BVUnitSymbols.h"
#include "units/BVUnitValidator.h"
#include "units/BVValueTexts_p.h"
#include "units/UnitChecks_p.h"

#include <cfloat>
#include <cmath>

BVSpinBoxTexts::BVSpinBoxTexts(const BVDoubleSpinBox &box)
    : m_box(box)
    , m_formatter(*box.getFormatter())
{
}

QString BVSpinBoxTexts::stripped(const QString &whole, int *prefixLength) const
{
    const QString before = m_box.prefix();
    const QString behind = m_box.suffix();
    const int start = whole.startsWith(before) ? before.size() : 0;
    const bool ends = whole.midRef(start).endsWith(behind);
    const int end = ends ? whole.size() - behind.size() : whole.size();
    if (prefixLength)
        *prefixLength = start;
    return whole.mid(start, end - start);
}

QString BVSpinBoxTexts::withAffixes(const QString &original, const QString &text) const
{
    const QString before = original.startsWith(m_box.prefix()) ? m_box.prefix() : QString();
    const QString behind = original.endsWith(m_box.suffix()) ? m_box.suffix() : QString();
    return before + text + behind;
}

int BVSpinBoxTexts::replacedPoint(const QString &text, int cursor)
{
    if (cursor <= 0 || cursor > text.size() ||
        !BVDoubleValidator::isDecimalPoint(text.at(cursor - 1)))
        return -1;
    const int later = BVDoubleValidator::indexOfDecimalPoint(text, cursor);
    const bool isOfDenominator =
        later >= 0 && text.midRef(cursor, later - cursor).contains(QLatin1Char('/'));
    return isOfDenominator ? -1 : later;
}

double BVSpinBoxTexts::value(const QString &typed, bool &ok) const
{
    QString number;
    QString unit;
    BVUnitValidator::split(BVValueTexts::withDisplayUnit(m_formatter, typed), number, unit);
    const double read = BVDoubleValidator::toDoubleValue(number, ok);
    if (!ok || unit.isEmpty())
        return read;
    BVUnitSymbols::replaceSymbols(unit, true);
    double value = read;
    ok = m_formatter.isValueUnitSet() && UnitChecks::isWholeUnit(unit) &&
         m_formatter.valueFromUnit(read, unit, value) &&
         (std::isfinite(value) || !std::isfinite(read));
    return value;
}

double BVSpinBoxTexts::validValue(const QString &typed, bool &ok) const
{
    const double read = value(typed, ok);
    return ok ? limitOf(read, typed).value_or(read) : read;
}

QValidator::State BVSpinBoxTexts::judge(const QString &typed) const
{
    QString complete = BVValueTexts::withDisplayUnit(m_formatter, typed);
    int end = complete.size();
    const QValidator::State state = m_box.wrapping()
                                        ? judgeWrapping(complete)
                                        : m_formatter.getValidator()->validate(complete, end);
    if (state == QValidator::Acceptable)
        return state;
    bool ok = false;
    const double read = value(typed, ok);
    return ok && limitOf(read, typed) ? QValidator::Acceptable : state;
}

QValidator::State BVSpinBoxTexts::judgeWrapping(const QString &complete) const
{
    BVUnitValidator validator(-DBL_MAX, DBL_MAX, m_formatter.precision());
    validator.setBaseUnit(m_formatter.valueUnit());
    validator.setAcceptEmpty(m_box.acceptEmpty());
    QString text = complete;
    int end = text.size();
    const QValidator::State state = validator.validate(text, end);
    if (state != QValidator::Acceptable || complete.isEmpty())
        return state;
    bool ok = false;
    const double read = value(complete, ok);
    return ok && m_box.isValueInRange(read, m_box.tolerance(), true, true)
               ? QValidator::Acceptable
               : QValidator::Intermediate;
}

/// The limit that a text stands for: it shows the limit, maybe rounded, or misses it by less than
/// the tolerance.
std::optional<double> BVSpinBoxTexts::limitOf(double value, const QString &typed) const
{
    const double minimum = m_box.minimum();
    const double maximum = m_box.maximum();
    for (const double limit : {minimum, maximum}) {
        if (partsOf(typed) == partsOf(m_formatter.textFromValue(limit, false)))
            return limit;
    }
    const double nearest = m_box.toValidValue(value);
    return nearest != value ? std::optional<double>(nearest) : std::nullopt;
}

/// Number and unit, such that texts that say the same have the same.
std::pair<QString, QString> BVSpinBoxTexts::partsOf(const QString &text) const
{
    QString number;
    QString unit;
    BVUnitValidator::split(BVValueTexts::withDisplayUnit(m_formatter, text), number, unit);
    BVDoubleValidator::convertDecimalPoint(number, false);
    BVUnitSymbols::replaceSymbols(unit, true);
    return {number, unit.isEmpty() ? m_formatter.displayUnit() : unit};
}

bool BVSpinBoxTexts::isMendable(const QString &typed) const
{
    return judge(typed) == QValidator::Acceptable || judge(mended(typed)) == QValidator::Acceptable;
}

QString BVSpinBoxTexts::mended(const QString &typed) const
{
    bool ok = false;
    const double read = value(typed, ok);
    if (!ok)
        return typed;
    const QString unit = m_formatter.displayUnit();
    QString complete = typed;
    BVUnitValidator::appendUnitIfNone(complete, unit);
    QString text = textInRange(read, preciseText(read, complete));
    BVUnitValidator::appendUnitIfNone(text, unit);
    return text;
}

/// The value with as many decimals as are read, if that reads as the value.
QString BVSpinBoxTexts::preciseText(double value, const QString &otherwise) const
{
    const int precision = m_formatter.precision();
    BVFormatter formatter;
    formatter.copyFrom(&m_formatter);
    formatter.setEmpty(false);
    formatter.checkForEmptyValue(false);
    formatter.setDecimals(precision);
    const QString text = formatter.textFromValue(value, false);
    bool ok = false;
    const double read = this->value(text, ok);
    return ok && std::fabs(read - value) <= std::pow(10.0, -precision) ? text : otherwise;
}

QString BVSpinBoxTexts::textInRange(double value, const QString &text) const
{
    const double minimum = m_box.minimum();
    const double maximum = m_box.maximum();
    if (m_box.isValueInRange(value, m_box.tolerance(), true, true))
        return text;
    if (m_box.wrapping()) {
        const double inside = BVStepping::wrapped(value, minimum, maximum, m_box.tolerance());
        return inside == value ? text
                               : preciseText(inside, m_formatter.textFromValue(inside, false));
    }
    if (m_box.correctionMode() != QAbstractSpinBox::CorrectToNearestValue)
        return text;
    return m_formatter.textFromValue(value < minimum ? minimum : maximum, false);
}
