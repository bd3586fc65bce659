// SPDX-License-Identifier: MIT
#include "units/BVFormatter.h"

#include "units/BVNumberNotation_p.h"
#include "units/BVUnitSymbols.h"
#include "units/BVUnitValidator.h"
#include "units/UnitChecks_p.h"
#include "units/UnitsConfiguration.h"

#include <QFontMetrics>
#include <QLocale>

#include <cmath>

namespace {

constexpr int s_fullDecimals = 9;

using BVNumberNotation::boundedDecimals;
static_assert(BVNumberNotation::s_maxDecimals == BVFormatter::s_maxDecimals);

int boundedWidth(int width)
{
    return qBound(-BVFormatter::s_maxFieldWidth, width, BVFormatter::s_maxFieldWidth);
}

/// Everything about the text of a number but its value.
struct Shape
{
    BVFormatter::OutputNotation notation = BVFormatter::Fixed;
    int decimals = 3;
    bool cut = false;
    int precision = 9;
    int fieldWidth = 0;
    char fill = '0';
};

/// The value as it stands, in one of the notations. Expects settings within the limits.
QString written(double value, const Shape &shape)
{
    switch (shape.notation) {
    case BVFormatter::Fixed:
        return BVNumberNotation::fixedCut(value, shape.fieldWidth, shape.decimals, shape.cut,
                                          shape.fill);
    case BVFormatter::Scientific:
        return BVNumberNotation::scientific(value, shape.fieldWidth, shape.decimals, shape.fill);
    case BVFormatter::Engineering:
        return BVNumberNotation::engineering(value, shape.fieldWidth, shape.decimals, shape.cut,
                                             shape.fill);
    case BVFormatter::General:
        return BVNumberNotation::general(value, shape.decimals);
    case BVFormatter::Automatic:
        break;
    }
    return BVNumberNotation::automatic(value, shape.fieldWidth, shape.precision, shape.decimals,
                                       shape.cut, shape.fill);
}

/// Halves round away from zero as far as the text still reads back as the value.
QString writtenToRead(double value, const Shape &shape)
{
    const bool relative = shape.notation != BVFormatter::Fixed;
    return written(BVNumberNotation::nudgedUnseen(value, shape.decimals, relative), shape);
}

QString fromSymbols(QString unit)
{
    BVUnitSymbols::replaceSymbols(unit, true);
    return unit;
}

void dropSignOfZero(QString &text)
{
    if (!text.startsWith(QLatin1Char('-')) || !BVNumberNotation::isZero(text))
        return;
    bool ok = false;
    if (QLocale(QLocale::English).toDouble(text, &ok) == 0.0 && ok)
        text.remove(0, 1);
}

/// The notation by whose rules the zeros of a full text are cut.
BVFormatter::OutputNotation cuttingNotation(BVFormatter::OutputNotation notation, double value)
{
    const double magnitude = std::fabs(value);
    const bool hasExponent = magnitude >= 100000.0 || (magnitude > 1e-9 && magnitude < 1.0);
    return notation == BVFormatter::Automatic && hasExponent ? BVFormatter::Engineering : notation;
}

void cutZeros(QString &mantissa, int minDecimals)
{
    const int point = mantissa.indexOf(QLatin1Char('.'));
    if (point < 0)
        return;
    int size = mantissa.size();
    while (size - point - 1 > minDecimals && mantissa.at(size - 1) == QLatin1Char('0'))
        --size;
    mantissa.truncate(size);
    if (mantissa.endsWith(QLatin1Char('.')))
        mantissa.chop(1);
}

struct OneShot
{
    BVFormatter::OutputNotation notation = BVFormatter::Fixed;
    int decimals = -1; // those of the unit
    bool cut = false;
};

QString textInUnit(double value, const QString &unit, const OneShot &shape)
{
    const int decimals =
        shape.decimals >= 0 ? shape.decimals : UnitsConfiguration::instance().precisionOfUnit(unit);
    QString text = writtenToRead(value, {shape.notation, boundedDecimals(decimals), shape.cut});
    dropSignOfZero(text);
    BVUnitSymbols::appendUnit(text, unit);
    return text;
}

QString textInUserUnit(double value, const QString &valueUnit, const OneShot &shape)
{
    const QString chosen = UnitsConfiguration::instance().currentUnit(valueUnit);
    double shown = value;
    const bool converted = UnitConverter::convert(shown, valueUnit, chosen);
    return textInUnit(shown, converted ? chosen : valueUnit, shape);
}

} // namespace

const QString BVFormatter::s_emptySign = BVUnitSymbols::emptySign();

BVFormatter::BVFormatter(QObject *parent)
    : QObject(parent)
    , m_validator(new BVUnitValidator(this))
    , m_unitsConfiguration(&UnitsConfiguration::instance())
{
    m_validator->setDecimals(m_precision);
    m_validator->setNotation(QDoubleValidator::ScientificNotation);
    m_connection = m_unitsConfiguration->connectChanged([this] { unitConfChanged(); });
}

BVFormatter::~BVFormatter() = default;

QString BVFormatter::valueAsString(double value, int fieldWidth, int decimals,
                                   OutputNotation notation, int precision, bool cut, char fill)
{
    return written(BVNumberNotation::nudged(value),
                   {notation, boundedDecimals(decimals), cut, boundedDecimals(precision),
                    boundedWidth(fieldWidth), fill});
}

QString BVFormatter::getAutomaticRepresentation(double value, int fieldWidth, int precision,
                                                int decimals, bool cut, char fill)
{
    return BVNumberNotation::automatic(value, boundedWidth(fieldWidth), boundedDecimals(precision),
                                       boundedDecimals(decimals), cut, fill);
}

QString BVFormatter::convertToAdaptedEngineeringNotation(double value, int fieldWidth, int decimals,
                                                         char fill)
{
    return BVNumberNotation::adaptedEngineering(value, boundedWidth(fieldWidth),
                                                boundedDecimals(decimals), fill);
}

QString BVFormatter::convertToEngineeringNotation(double value, int fieldWidth, int decimals,
                                                  bool cut, char fill)
{
    return BVNumberNotation::engineering(value, boundedWidth(fieldWidth), boundedDecimals(decimals),
                                         cut, fill);
}

std::string BVFormatter::convertValueToEngineeringNotation(double value, int decimals, bool cut)
{
    return BVNumberNotation::engineering(value, boundedDecimals(decimals), cut);
}

std::string BVFormatter::convertValueToEngineeringNotation(double value)
{
    constexpr int decimals = 3;
    return BVNumberNotation::engineering(value, decimals, false);
}

int BVFormatter::countObsoleteDecimalDigits(double value, int decimals, bool cut)
{
    return cut ? BVNumberNotation::obsoleteDecimals(value, boundedDecimals(decimals)) : 0;
}

bool BVFormatter::truncTextToDecimals(QString &text, int minDecimals, OutputNotation notation)
{
    if (minDecimals < 0)
        return false;
    const int exponent = text.indexOf(QLatin1Char('E'));
    if (exponent >= 0 && notation != Scientific && notation != Engineering)
        return false; // the zeros at the end are the exponent's
    QString mantissa = text.left(exponent);
    cutZeros(mantissa, minDecimals);
    const int oldSize = text.size();
    text = exponent < 0 ? mantissa : mantissa + text.midRef(exponent);
    return text.size() != oldSize;
}

bool BVFormatter::replaceSymbols(QString &text, bool reverse)
{
    return BVUnitSymbols::replaceSymbols(text, reverse);
}

UnitConverter::UnitCheck BVFormatter::isUnit(const QString &text)
{
    return UnitConverter::isUnit(text);
}

bool BVFormatter::isConvertable(const QString &from, const QString &to)
{
    return UnitConverter::isConvertable(from, to);
}

QString BVFormatter::toString(double value, const QString &valueUnit, int decimals)
{
    return textInUserUnit(value, valueUnit, {Fixed, decimals, false});
}

QString BVFormatter::toStringMeasurement(double value, const QString &valueUnit)
{
    return textInUserUnit(value, valueUnit, {Automatic, -1, true});
}

QString BVFormatter::toStringRuvixLabel(double value, const QString &valueUnit)
{
    if (!std::isnan(value) && value != std::numeric_limits<double>::min())
        return toStringMeasurement(value, valueUnit);
    QString text = BVUnitSymbols::emptySign();
    BVUnitSymbols::appendUnit(text, UnitsConfiguration::instance().currentUnit(valueUnit));
    return text;
}

QString BVFormatter::toStringWithoutConversion(double value, const QString &unit, int decimals)
{
    return textInUnit(value, unit, {Fixed, decimals, false});
}

QString BVFormatter::toEngineeringString(double value, const QString &valueUnit, int decimals)
{
    return textInUserUnit(value, valueUnit, {Engineering, decimals, false});
}

std::string BVFormatter::toStdString(double value, const QString &valueUnit, int decimals)
{
    return toString(value, valueUnit, decimals).toStdString();
}

QString BVFormatter::textFromValue(double value, bool full) const
{
    if (isNoValue(value))
        return textOfNoValue();
    const double shown = valueToDisplayValue(value);
    QString text = full ? fullNumberText(shown) : numberText(shown);
    appendUnitAndSuffix(text);
    return text;
}

QString BVFormatter::textFromValueEng(double value) const
{
    if (isNoValue(value))
        return textOfNoValue();
    QString text = convertToEngineeringNotation(valueToDisplayValue(value), m_fieldWidth,
                                                m_decimals, m_cutUnnecessaryDigits, m_fillChar);
    appendUnitAndSuffix(text);
    return text;
}

bool BVFormatter::isNoValue(double value) const
{
    return m_empty || (m_checkForEmptyValue && value == m_emptyValue);
}

QString BVFormatter::textOfNoValue() const
{
    QString text;
    if (m_formatEmptyForLabels)
        text = s_emptySign;
    appendUnit(text);
    return text;
}

QString BVFormatter::numberText(double displayValue) const
{
    QString text = writtenToRead(displayValue, {m_notation, m_decimals, m_cutUnnecessaryDigits,
                                                m_precision, m_fieldWidth, m_fillChar});
    dropSignOfZero(text);
    return text;
}

QString BVFormatter::fullNumberText(double displayValue) const
{
    QString text = writtenToRead(
        displayValue, {m_notation, s_fullDecimals, false, m_precision, m_fieldWidth, m_fillChar});
    truncTextToDecimals(text, m_decimals, cuttingNotation(m_notation, displayValue));
    dropSignOfZero(text);
    return text;
}

void BVFormatter::appendUnit(QString &text) const
{
    if (hasUnit())
        text += text.isEmpty() ? m_unitSymbol : m_unitBehindNumber;
}

void BVFormatter::appendUnitAndSuffix(QString &text) const
{
    appendUnit(text);
    text += m_suffix;
}

double BVFormatter::valueFromText(const QString &text) const
{
    bool ok = false;
    return valueFromText(text, ok);
}

double BVFormatter::valueFromText(const QString &text, bool &ok) const
{
    QString unit;
    const double typed = pureValueFromText(text, unit, ok);
    if (!isValueUnitSet() || unit.isEmpty())
        return typed;
    double value = typed;
    if (!valueFromUnit(typed, unit, value) || (std::isfinite(typed) && !std::isfinite(value)))
        ok = false;
    return value;
}

double BVFormatter::pureValueFromText(const QString &text, QString &unit, bool &ok) const
{
    QString checked = withoutSuffix(text);
    ok = makeAcceptable(checked);
    QString number;
    BVUnitValidator::split(checked, number, unit);
    BVUnitSymbols::replaceSymbols(unit, true);
    if (unit.isEmpty())
        unit = m_displayUnit;
    bool reads = false;
    const double value = BVDoubleValidator::toDoubleValue(number, reads);
    ok = ok && reads;
    return value;
}

QString BVFormatter::withoutSuffix(const QString &text) const
{
    const int start = m_suffix.isEmpty() ? -1 : text.lastIndexOf(m_suffix);
    return start < 0 ? text : text.left(start);
}

bool BVFormatter::makeAcceptable(QString &text) const
{
    int pos = text.size();
    if (m_validator->validate(text, pos) == QValidator::Acceptable)
        return true;
    const QString before = text;
    m_validator->fixup(text);
    pos = text.size();
    return text != before && m_validator->validate(text, pos) == QValidator::Acceptable;
}

double BVFormatter::valueToDisplayValue(double value) const
{
    if (isValueUnitSet() && isDisplayUnitSet())
        UnitConverter::convert(value, m_valueUnit, m_displayUnit);
    return value;
}

double BVFormatter::displayValueToValue(double value) const
{
    if (isValueUnitSet() && isDisplayUnitSet())
        UnitConverter::convert(value, m_displayUnit, m_valueUnit);
    return value;
}

bool BVFormatter::valueToUnit(double value, const QString &unit, double &result) const
{
    if (!UnitConverter::convert(value, m_valueUnit, unit))
        return false;
    result = value;
    return true;
}

bool BVFormatter::valueFromUnit(double value, const QString &unit, double &result) const
{
    if (!UnitConverter::convert(value, unit, m_valueUnit))
        return false;
    result = value;
    return true;
}

bool BVFormatter::elideText(QString &text, int width, const QFontMetrics &metrics) const
{
    const QString elided = metrics.elidedText(text, Qt::ElideRight, width);
    if (elided == text)
        return false;
    text = elided;
    return true;
}

int BVFormatter::getUselessDigits(double value) const
{
    const bool relative = m_notation != Fixed;
    const double shown =
        BVNumberNotation::nudgedUnseen(valueToDisplayValue(value), m_decimals, relative);
    return countObsoleteDecimalDigits(std::fabs(shown), m_decimals, true);
}

bool BVFormatter::setValueUnit(const QString &unitOrSymbol)
{
    const QString unit = fromSymbols(unitOrSymbol);
    if (unit == m_valueUnit)
        return true;
    if (!unit.isEmpty() && !UnitChecks::isWholeUnit(unit))
        return false;
    m_valueUnit = unit;
    const bool keepsDisplay =
        !m_globalOn && isDisplayUnitSet() && isConvertable(unit, m_displayUnit);
    if (m_globalOn)
        showIn(configuredUnit());
    else if (!keepsDisplay)
        showIn(unit);
    m_validator->setBaseUnit(unit);
    Q_EMIT settingsChanged();
    return true;
}

bool BVFormatter::setGlobalOff(const QString &unitOrSymbol)
{
    const QString displayUnit = fromSymbols(unitOrSymbol);
    if (displayUnit != m_displayUnit && !UnitChecks::isWholeUnit(displayUnit))
        return false;
    if (!isConvertable(m_valueUnit, displayUnit))
        return false;
    m_globalOn = false;
    showIn(displayUnit);
    Q_EMIT settingsChanged();
    return true;
}

void BVFormatter::setGlobalOn()
{
    m_globalOn = true;
    const QString unit = configuredUnit();
    if (unit == m_displayUnit)
        return;
    showIn(unit);
    Q_EMIT settingsChanged();
}

void BVFormatter::unitConfChanged()
{
    if (!m_globalOn || !isValueUnitSet())
        return;
    const QString unit = configuredUnit();
    if (unit == m_displayUnit)
        return;
    showIn(unit);
    Q_EMIT unitChanged();
    Q_EMIT settingsChanged();
}

QString BVFormatter::configuredUnit() const
{
    return m_unitsConfiguration->currentUnit(m_valueUnit);
}

void BVFormatter::showIn(const QString &unit)
{
    m_displayUnit = unit;
    updateUnitTexts();
    if (!m_decimalsExplicit)
        m_decimals = decimalsOfDisplayUnit();
}

void BVFormatter::updateUnitTexts()
{
    const QString unit = isDisplayUnitSet() ? m_displayUnit : m_valueUnit;
    m_unitSymbol.clear();
    BVUnitSymbols::appendUnit(m_unitSymbol, unit);
    const bool hasSpace = BVUnitSymbols::hasSpaceBefore(unit);
    m_unitBehindNumber = hasSpace ? QLatin1Char(' ') + m_unitSymbol : m_unitSymbol;
}

int BVFormatter::decimalsOfDisplayUnit() const
{
    const int precision = m_unitsConfiguration->precisionOfUnit(m_displayUnit);
    return boundedDecimals(precision + m_additionalDecimals);
}

template <typename T>
void BVFormatter::change(T &setting, const T &value)
{
    if (setting == value)
        return;
    setting = value;
    Q_EMIT settingsChanged();
}

void BVFormatter::setDecimals(int decimals)
{
    const int bounded = boundedDecimals(decimals);
    m_decimalsExplicit = bounded != m_unitsConfiguration->precisionOfUnit(m_displayUnit);
    change(m_decimals, bounded);
}

void BVFormatter::setAdditionalDecimals(int decimals)
{
    m_additionalDecimals = qBound(-s_maxDecimals, decimals, s_maxDecimals);
    if (!m_decimalsExplicit)
        change(m_decimals, decimalsOfDisplayUnit());
}

void BVFormatter::setPrecision(int precision)
{
    m_precisionSet = true;
    const int bounded = boundedDecimals(precision);
    if (bounded == m_precision)
        return;
    m_precision = bounded;
    m_validator->setDecimals(bounded);
    Q_EMIT settingsChanged();
}

void BVFormatter::setFieldWidth(int width)
{
    change(m_fieldWidth, boundedWidth(width));
}

void BVFormatter::setFillChar(char fill)
{
    change(m_fillChar, fill);
}

void BVFormatter::setNotation(OutputNotation notation)
{
    change(m_notation, notation);
}

void BVFormatter::setCutUnnecessaryDigits(bool cut)
{
    change(m_cutUnnecessaryDigits, cut);
}

void BVFormatter::setSuffix(const QString &suffix)
{
    change(m_suffix, suffix);
}

void BVFormatter::includeUnit(bool on)
{
    change(m_includeUnit, on);
}

void BVFormatter::setEmpty(bool empty, bool announce)
{
    if (announce)
        change(m_empty, empty);
    else
        m_empty = empty;
}

void BVFormatter::formatEmptyForLabels(bool on)
{
    change(m_formatEmptyForLabels, on);
}

void BVFormatter::checkForEmptyValue(bool on, double emptyValue)
{
    if (on && std::isnan(emptyValue))
        return;
    const double value = std::isnan(emptyValue) ? m_emptyValue : emptyValue;
    if (on == m_checkForEmptyValue && value == m_emptyValue)
        return;
    m_checkForEmptyValue = on;
    m_emptyValue = value;
    Q_EMIT settingsChanged();
}

void BVFormatter::copyFrom(const BVFormatter *other)
{
    if (!other || other == this)
        return;
    copyUnits(*other);
    copyNumberSettings(*other);
    m_empty = other->m_empty;
    m_formatEmptyForLabels = other->m_formatEmptyForLabels;
    m_checkForEmptyValue = other->m_checkForEmptyValue;
    m_emptyValue = other->m_emptyValue;
    m_suffix = other->m_suffix;
    m_validator->copyFrom(*other->m_validator);
    Q_EMIT settingsChanged();
}

void BVFormatter::copyUnits(const BVFormatter &other)
{
    m_valueUnit = other.m_valueUnit;
    m_displayUnit = other.m_displayUnit;
    m_unitSymbol = other.m_unitSymbol;
    m_unitBehindNumber = other.m_unitBehindNumber;
    m_globalOn = other.m_globalOn;
    m_includeUnit = other.m_includeUnit;
}

void BVFormatter::copyNumberSettings(const BVFormatter &other)
{
    m_precision = other.m_precision;
    m_precisionSet = other.m_precisionSet;
    m_decimals = other.m_decimals;
    m_additionalDecimals = other.m_additionalDecimals;
    m_decimalsExplicit = other.m_decimalsExplicit;
    m_fieldWidth = other.m_fieldWidth;
    m_fillChar = other.m_fillChar;
    m_notation = other.m_notation;
    m_cutUnnecessaryDigits = other.m_cutUnnecessaryDigits;
}
