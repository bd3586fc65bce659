// SPDX-License-Identifier: MIT
#include "units/BVDoubleValidator.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr QChar s_point = QLatin1Char('.');

QLocale withoutGroups(QLocale locale)
{
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    return locale;
}

bool isDigit(QChar c)
{
    return c.unicode() >= '0' && c.unicode() <= '9';
}

/// A number of plain digits, small enough to be read exactly without the locale's machinery.
struct PlainNumber
{
    double value = 0.0;
    bool isPlain = false;
};

/// Reads "-12.5" and the like; decimals behind the first @p maxDecimals are passed over.
PlainNumber readPlain(const QString &text, int maxDecimals)
{
    constexpr int maxDigits = 15; // integers of so many digits are exact in a double
    static constexpr std::array<double, maxDigits + 1> powers = {
        1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const QChar *it = text.constBegin();
    const QChar *const end = text.constEnd();
    const bool negative = it != end && *it == QLatin1Char('-');
    if (negative)
        ++it;
    if (end - it < 1 || end - it > maxDigits + 1)
        return {};
    qint64 number = 0;
    int digits = 0;
    int kept = 0;
    int decimals = -1; // no point yet
    for (; it != end; ++it) {
        if (*it == s_point && decimals < 0) {
            decimals = 0;
        } else if (!isDigit(*it)) {
            return {};
        } else if (++digits; decimals < maxDecimals) {
            ++kept;
            number = number * 10 + (it->unicode() - '0');
            decimals += decimals < 0 ? 0 : 1;
        }
    }
    if (kept == 0 || digits > maxDigits)
        return {};
    const double magnitude = static_cast<double>(number) / powers[std::max(decimals, 0)];
    return {negative ? -magnitude : magnitude, true};
}

/// Removes the digits behind the first @p decimals ones that follow the point.
void chopDecimals(QString &text, int decimals)
{
    const int point = text.indexOf(s_point);
    if (point < 0 || decimals < 0)
        return;
    int last = point + 1;
    while (last < text.size() && isDigit(text.at(last)))
        ++last;
    const int kept = point + 1 + decimals;
    if (last > kept)
        text.remove(kept, last - kept);
}

/// What the toolkit makes of a text with "." as its point, whatever locale the validator was given.
QValidator::State judgedByToolkit(const QDoubleValidator &limits, QString text)
{
    QDoubleValidator judge(limits.bottom(), limits.top(), limits.decimals());
    judge.setNotation(limits.notation());
    judge.setLocale(withoutGroups(QLocale::c()));
    int pos = text.size();
    return judge.validate(text, pos);
}

double readDecimal(const QString &text, bool &ok)
{
    const PlainNumber plain = readPlain(text, std::numeric_limits<int>::max());
    ok = plain.isPlain;
    if (ok)
        return plain.value;
    static const QLocale s_english = withoutGroups(QLocale(QLocale::English));
    QString english = text;
    BVDoubleValidator::convertDecimalPoint(english, false);
    const double value = s_english.toDouble(english, &ok);
    ok = ok && !std::isnan(value);
    return ok ? value : 0.0;
}

/// Infinity is the quotient of the word for it, not of finite numbers that leave the doubles.
bool isQuotient(double quotient, double dividend)
{
    return std::isfinite(quotient) || (std::isinf(quotient) && std::isinf(dividend));
}

} // namespace

BVDoubleValidator::BVDoubleValidator(QObject *parent)
    : QDoubleValidator(parent)
{
}

BVDoubleValidator::BVDoubleValidator(double bottom, double top, int decimals, QObject *parent)
    : QDoubleValidator(bottom, top, decimals, parent)
{
}

void BVDoubleValidator::convertDecimalPoint(QString &text, bool toLocale)
{
    const QChar localePoint = QLocale().decimalPoint();
    const QChar from = toLocale ? s_point : localePoint;
    const int index = localePoint == s_point ? -1 : text.indexOf(from);
    if (index >= 0)
        text[index] = toLocale ? localePoint : s_point;
}

int BVDoubleValidator::indexOfDecimalPoint(const QString &text, int from)
{
    const int index = text.indexOf(s_point, from);
    return index >= 0 ? index : text.indexOf(QLocale().decimalPoint(), from);
}

bool BVDoubleValidator::isDecimalPoint(const QChar &character)
{
    return character == s_point || character == QLocale().decimalPoint();
}

bool BVDoubleValidator::isFractionExpr(const QString &text, QString *numerator,
                                       QString *denominator)
{
    const int slash = text.indexOf(QLatin1Char('/'));
    if (slash < 0 || text.indexOf(QLatin1Char('/'), slash + 1) >= 0)
        return false;
    if (numerator)
        *numerator = text.left(slash).trimmed();
    if (denominator)
        *denominator = text.mid(slash + 1).trimmed();
    return true;
}

QValidator::State BVDoubleValidator::isValidNumber(const QString &text)
{
    static const BVDoubleValidator s_validator;
    return s_validator.validate(text);
}

double BVDoubleValidator::toDoubleValue(const QString &text, bool &ok)
{
    QString numerator;
    QString denominator;
    if (!isFractionExpr(text, &numerator, &denominator))
        return readDecimal(text, ok);
    bool hasNumerator = false;
    bool hasDenominator = false;
    const double dividend = readDecimal(numerator, hasNumerator);
    const double divisor = readDecimal(denominator, hasDenominator);
    ok = hasNumerator && hasDenominator && dividend != 0.0 && divisor != 0.0;
    const double quotient = ok ? dividend / divisor : 0.0;
    ok = ok && isQuotient(quotient, dividend);
    return ok ? quotient : 0.0;
}

QValidator::State BVDoubleValidator::validate(QString &text, int &pos) const
{
    Q_UNUSED(pos)
    QString numerator;
    QString denominator;
    if (isFractionExpr(text, &numerator, &denominator))
        return validateFraction(numerator, denominator);
    return validateDecimal(text);
}

QValidator::State BVDoubleValidator::validate(const QString &text) const
{
    QString copy = text;
    int pos = copy.size();
    return validate(copy, pos);
}

QValidator::State BVDoubleValidator::validateDecimal(QString &text) const
{
    const int places = decimals() < 0 ? std::numeric_limits<int>::max() : decimals();
    const PlainNumber plain = readPlain(text, places);
    const bool signFits = bottom() < 0.0 || !text.startsWith(QLatin1Char('-'));
    if (plain.isPlain && signFits && plain.value >= bottom() && plain.value <= top())
        return Acceptable;

    if (text == QLatin1String("inf") || text == QLatin1String("-inf")) {
        if (text == QString::number(bottom(), 'g') || text == QString::number(top(), 'g'))
            return Acceptable;
    }
    QString checked = text;
    convertDecimalPoint(checked, false);
    chopDecimals(checked, decimals());
    const State state = judgedByToolkit(*this, checked);
    return state == Invalid && mayBecomeInfinity(text) ? Intermediate : state;
}

bool BVDoubleValidator::mayBecomeInfinity(const QString &text) const
{
    if (!text.endsWith(QLatin1Char('i')) && !text.endsWith(QLatin1String("in")))
        return false;
    return QString::number(bottom(), 'g').startsWith(text) ||
           QString::number(top(), 'g').startsWith(text);
}

QValidator::State BVDoubleValidator::validateFraction(QString &numerator,
                                                      QString &denominator) const
{
    if (numerator.isEmpty() || denominator.isEmpty())
        return Intermediate;
    bool ok = false;
    const double dividend = readDecimal(numerator, ok);
    if (!ok)
        return Invalid;
    const double divisor = readDecimal(denominator, ok);
    if (!ok)
        return validateDecimal(numerator) == Invalid ? Invalid : Intermediate;
    if (divisor == 0.0)
        return validateDecimal(denominator) == Invalid ? Invalid : Intermediate;
    const double quotient = dividend / divisor;
    const bool inRange = quotient >= bottom() && quotient <= top();
    return inRange && isQuotient(quotient, dividend) ? Acceptable : Intermediate;
}
