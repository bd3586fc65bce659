// SPDX-License-Identifier: MIT
#include "units/BVUnitValidator.h"

#include "units/BVNumberNotation_p.h"
#include "units/BVUnitSymbols.h"
#include "units/UnitChecks_p.h"
#include "units/UnitConverter.h"

#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace {

bool isAsciiDigit(QChar c)
{
    return c.unicode() >= '0' && c.unicode() <= '9';
}

/// Finds the number at the start of a text.
class NumberScanner
{
public:
    explicit NumberScanner(const QString &text)
        : m_text(text)
    {
    }

    /// The index behind the number; 0 if the text starts with none.
    int scan()
    {
        const int number = endOfNumber(0);
        if (number == 0 || !hasDigit(0, number))
            return number;
        const int slash = skipSpaces(number);
        if (at(slash) != QLatin1Char('/'))
            return number;
        return endOfFraction(slash, number);
    }

    /// The index behind a sign and the letters that follow it.
    int endOfWord() const
    {
        int end = skipSign(0);
        while (at(end).isLetter())
            ++end;
        return end;
    }

private:
    QChar at(int index) const { return index < m_text.size() ? m_text.at(index) : QChar(); }

    int skipSpaces(int index) const
    {
        while (at(index).isSpace())
            ++index;
        return index;
    }

    int skipSign(int index) const
    {
        return at(index) == QLatin1Char('-') || at(index) == QLatin1Char('+') ? index + 1 : index;
    }

    bool hasDigit(int from, int to) const
    {
        return std::any_of(m_text.cbegin() + from, m_text.cbegin() + to, isAsciiDigit);
    }

    bool belongsToNumber(QChar c)
    {
        if (isAsciiDigit(c) || c == QLatin1Char('.') || c == QLatin1Char(','))
            return true;
        return c.unicode() > 0x7f && BVDoubleValidator::isDecimalPoint(c);
    }

    int endOfNumber(int from)
    {
        const int start = skipSign(from);
        if (const int word = endOfInfinity(start))
            return word;
        int end = start;
        while (end < m_text.size() && belongsToNumber(m_text.at(end)))
            ++end;
        return hasDigit(start, end) ? endOfExponent(end) : end;
    }

    int endOfInfinity(int start) const
    {
        if (at(start) != QLatin1Char('i'))
            return 0;
        const QLatin1String word("inf");
        const int end = start + word.size();
        const bool found = m_text.midRef(start, word.size()) == word;
        return found && !at(end).isLetterOrNumber() && !isUnitSign(at(end)) ? end : 0;
    }

    static bool isUnitSign(QChar c)
    {
        return c == QLatin1Char('^') || c == QLatin1Char('*') || c == QLatin1Char('/') ||
               c == QLatin1Char('_');
    }

    /// An "e" belongs to the number with digits behind it, or where the text is not yet typed on.
    int endOfExponent(int end) const
    {
        if (at(end) != QLatin1Char('e') && at(end) != QLatin1Char('E'))
            return end;
        const int first = skipSign(end + 1);
        int last = first;
        while (isAsciiDigit(at(last)))
            ++last;
        return last > first || last == m_text.size() ? last : end;
    }

    int endOfFraction(int slash, int number)
    {
        const int denominator = skipSpaces(slash + 1);
        if (denominator == m_text.size())
            return denominator;
        const int end = endOfNumber(denominator);
        return end > denominator ? end : number;
    }

    const QString &m_text;
};

/// "5/min" stands for 5 times "1/min", while "1/min" is what an empty field shows of its unit.
void completeRate(QString &number, QString &unit)
{
    const bool isRate = unit.size() > 1 && unit.startsWith(QLatin1Char('/')) &&
                        !isAsciiDigit(unit.at(1)) && !number.contains(QLatin1Char('/'));
    if (!isRate)
        return;
    if (number == QLatin1String("1"))
        number.clear();
    unit.prepend(QLatin1Char('1'));
}

bool isStartOfKnownUnit(const QString &text)
{
    static const QStringList s_units = UnitConverter::getUnits();
    return std::any_of(s_units.cbegin(), s_units.cend(),
                       [&text](const QString &unit) { return unit.startsWith(text); });
}

bool startsWithPrefix(const QString &text)
{
    return UnitConverter::isUnit(text.left(1) + QLatin1Char('N')) == UnitConverter::CompleteUnit;
}

/// Whether the text is a unit or may become one when more is typed.
bool mayBecomeUnit(const QString &typed, const QString &unit)
{
    if (UnitConverter::isUnit(unit) != UnitConverter::NotAUnit)
        return true;
    if (BVUnitSymbols::isStartOfSymbol(typed) || isStartOfKnownUnit(unit))
        return true;
    return unit.size() > 1 && startsWithPrefix(unit) && isStartOfKnownUnit(unit.mid(1));
}

bool isNoneOrMayBecomeUnit(const QString &text)
{
    QString typed = text.trimmed();
    if (typed.size() > 1 && typed.startsWith(QLatin1Char('/')))
        typed.prepend(QLatin1Char('1'));
    QString unit = typed;
    BVUnitSymbols::replaceSymbols(unit, true);
    return unit.isEmpty() || mayBecomeUnit(typed, unit);
}

/// Whether a text behind a number is the start of an exponent or of a denominator, then nothing or
/// a unit.
bool isBegunExponentOrFraction(const QString &rest)
{
    if (rest.startsWith(QLatin1Char('e')) || rest.startsWith(QLatin1Char('E'))) {
        const QChar sign = rest.size() > 1 ? rest.at(1) : QChar();
        const bool hasSign = sign == QLatin1Char('-') || sign == QLatin1Char('+');
        return isNoneOrMayBecomeUnit(rest.mid(hasSign ? 2 : 1));
    }
    const QString trimmed = rest.trimmed();
    return trimmed.startsWith(QLatin1Char('/')) && isNoneOrMayBecomeUnit(trimmed.mid(1));
}

/// Whether a converted value is zero but for what the conversion has lost, as -273.15 degC in K.
bool isRoundingNoise(double value, const QString &unit, const QString &baseUnit)
{
    constexpr double noise = 1e-12;
    double offset = 0.0;
    UnitConverter::convert(offset, unit, baseUnit);
    return std::fabs(value) <= noise * std::fabs(value - offset);
}

} // namespace

BVUnitValidator::BVUnitValidator(QObject *parent)
    : BVDoubleValidator(parent)
{
}

BVUnitValidator::BVUnitValidator(double bottom, double top, int decimals, QObject *parent)
    : BVDoubleValidator(bottom, top, decimals, parent)
{
}

void BVUnitValidator::setAcceptEmpty(bool accept)
{
    if (accept == m_acceptEmpty)
        return;
    m_acceptEmpty = accept;
    Q_EMIT changed();
}

void BVUnitValidator::setBaseUnit(const QString &unit)
{
    if (unit == m_baseUnit)
        return;
    m_baseUnit = unit;
    Q_EMIT changed();
}

bool BVUnitValidator::isSameAs(const BVUnitValidator &other) const
{
    return bottom() == other.bottom() && top() == other.top() && decimals() == other.decimals() &&
           notation() == other.notation() && m_acceptEmpty == other.m_acceptEmpty &&
           m_baseUnit == other.m_baseUnit;
}

void BVUnitValidator::copyFrom(const BVUnitValidator &other)
{
    if (isSameAs(other))
        return;
    {
        const QSignalBlocker silent(this);
        setRange(other.bottom(), other.top(), other.decimals());
        setNotation(other.notation());
        setAcceptEmpty(other.m_acceptEmpty);
        setBaseUnit(other.m_baseUnit);
    }
    Q_EMIT changed();
}

QValidator::State BVUnitValidator::validate(QString &text, int &pos) const
{
    QString number;
    QString typedUnit;
    split(text, number, typedUnit);
    if (number.isEmpty() && typedUnit.isEmpty())
        return m_acceptEmpty ? Acceptable : Intermediate;
    const State state = validateParts(number, typedUnit, pos);
    return state == Invalid && isBegunBeforeUnit(text.trimmed()) ? Intermediate : state;
}

QValidator::State BVUnitValidator::validateParts(QString &number, const QString &typedUnit,
                                                 int &pos) const
{
    if (!typedUnit.isEmpty() && m_baseUnit.isEmpty())
        return Invalid;
    QString unit = typedUnit;
    BVUnitSymbols::replaceSymbols(unit, true);
    if (number.isEmpty())
        return UnitConverter::isConvertable(unit, m_baseUnit) ? Intermediate : Invalid;
    if (isValidNumber(number) == Invalid)
        return Invalid;
    if (unit.isEmpty() || unit == m_baseUnit)
        return BVDoubleValidator::validate(number, pos);
    bool converts = false;
    const State state = validateConverted(number, unit, converts);
    return converts || !mayBecomeUnit(typedUnit, unit) ? state : Intermediate;
}

bool BVUnitValidator::isBegunBeforeUnit(const QString &text) const
{
    NumberScanner scanner(text);
    const int word = scanner.endOfWord();
    if (mayBecomeInfinity(text.left(word)))
        return word == text.size() ||
               (!m_baseUnit.isEmpty() && isNoneOrMayBecomeUnit(text.mid(word)));
    const int end = scanner.scan();
    const QString number = text.left(end).trimmed();
    if (m_baseUnit.isEmpty() || std::none_of(number.cbegin(), number.cend(), isAsciiDigit))
        return false;
    return isValidNumber(number) != Invalid && isBegunExponentOrFraction(text.mid(end));
}

QValidator::State BVUnitValidator::validateConverted(const QString &number, const QString &unit,
                                                     bool &converts) const
{
    const double typed = toDoubleValue(number, converts);
    if (!converts)
        return Intermediate;
    double value = typed;
    converts = UnitConverter::convert(value, unit, m_baseUnit);
    if (!converts)
        return Invalid;
    if (!UnitChecks::isWholeUnit(unit) || (std::isfinite(typed) && !std::isfinite(value)))
        return Intermediate;
    const int places = BVNumberNotation::boundedDecimals(decimals());
    const double digit = BVNumberNotation::powerOfTen(-places);
    if (value - digit > bottom() && value + digit < top())
        return Acceptable; // however it is rounded
    QString text = BVNumberNotation::fixed(value, 0, places, '0');
    const bool isNegativeZero = text.startsWith(QLatin1Char('-')) && BVNumberNotation::isZero(text);
    if (isNegativeZero && isRoundingNoise(value, unit, m_baseUnit))
        text.remove(0, 1); // a range from zero up takes no "-"
    return validateDecimal(text);
}

void BVUnitValidator::split(const QString &text, QString &number, QString &unit)
{
    const QString trimmed = text.trimmed();
    const int end = NumberScanner(trimmed).scan();
    number = trimmed.left(end).trimmed();
    unit = trimmed.mid(end).trimmed();
    completeRate(number, unit);
}

void BVUnitValidator::appendUnit(QString &text, const QString &unit)
{
    BVUnitSymbols::appendUnit(text, unit);
}

void BVUnitValidator::appendUnitIfNone(QString &text, const QString &unit)
{
    if (!text.trimmed().isEmpty() && !hasUnitPostFix(text))
        appendUnit(text, unit);
}

bool BVUnitValidator::hasUnitPostFix(const QString &text, QString *unit)
{
    QString number;
    QString found;
    split(text, number, found);
    if (found.isEmpty())
        return false;
    if (unit)
        *unit = found;
    return true;
}
