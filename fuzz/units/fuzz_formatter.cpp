// SPDX-License-Identifier: MIT
//
// Random texts are judged and read, random values shown with random settings and read back, in an
// English and in a comma locale.
#include "LastDigit.h"
#include "units/BVFormatter.h"
#include "units/BVUnitSymbols.h"
#include "units/BVUnitValidator.h"
#include "units/UnitConverter.h"
#include "units/UnitsConfiguration.h"

#include <QCoreApplication>
#include <QLocale>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

void check(bool holds)
{
    if (!holds)
        std::abort();
}

/// Takes settings from the front of the input; zeros when it has run out.
class Input
{
public:
    Input(const std::uint8_t *data, std::size_t size)
        : m_data(data)
        , m_size(size)
    {
    }

    template <typename T>
    T take()
    {
        T value{};
        const std::size_t size = qMin(sizeof value, m_size);
        std::memcpy(&value, m_data, size);
        m_data += size;
        m_size -= size;
        return value;
    }

    QString takeText()
    {
        const int size = static_cast<int>(m_size / sizeof(ushort));
        QString text(size, Qt::Uninitialized);
        std::memcpy(text.data(), m_data, static_cast<std::size_t>(size) * sizeof(ushort));
        return text;
    }

    QString takeUtf8()
    {
        return QString::fromUtf8(reinterpret_cast<const char *>(m_data), static_cast<int>(m_size));
    }

private:
    const std::uint8_t *m_data;
    std::size_t m_size;
};

QString unitOf(std::uint8_t choice)
{
    static const QStringList units =
        QStringList{QString(), QStringLiteral("1/min"), QStringLiteral("dm^2"),
                    QStringLiteral("um"), QStringLiteral("deg/s")} +
        UnitConverter::getUnits();
    return units.at(choice % units.size());
}

void readTyped(BVFormatter &formatter, QString text)
{
    BVUnitValidator *const validator = formatter.getValidator();
    int pos = text.size();
    const QString before = text;
    const QValidator::State state = validator->validate(text, pos);
    check(text == before);
    validator->fixup(text);

    bool ok = false;
    const double value = formatter.valueFromText(text, ok);
    check(!std::isnan(value));
    check(!ok || state == QValidator::Acceptable || text != before);

    QString number;
    QString unit;
    BVUnitValidator::split(text, number, unit);
    BVUnitValidator::appendUnitIfNone(text, formatter.displayUnit());
    QString symbols = unit;
    BVFormatter::replaceSymbols(symbols, false);
    BVFormatter::replaceSymbols(symbols, true);
    BVFormatter::truncTextToDecimals(text, pos % 8, formatter.notation());
}

void roundTrip(const BVFormatter &formatter, double value, bool full)
{
    const QString text = formatter.textFromValue(value, full);
    const double display = formatter.valueToDisplayValue(value);
    if (!std::isfinite(display) || formatter.fieldWidth() != 0)
        return;
    QString unit;
    bool ok = false;
    const double read = formatter.pureValueFromText(text, unit, ok);
    if (std::fabs(display) > 1e307) // rounded up, it may exceed the doubles
        return;
    check(ok);
    const double halves = 0.002; // share of the last digit by which halves are moved at most
    const double slack = 1e-15 * std::fabs(display); // of reading and of pow()
    check(std::fabs(read - display) <= 0.5 * lastDigit(text) * (1.0 + halves) + slack);
}

void configure(BVFormatter &formatter, Input &input)
{
    const QString unit = unitOf(input.take<std::uint8_t>());
    check(formatter.setValueUnit(unit));
    formatter.setNotation(static_cast<BVFormatter::OutputNotation>(input.take<std::int8_t>() % 6));
    formatter.setPrecision(input.take<std::int8_t>());
    formatter.setDecimals(input.take<std::uint8_t>() % 18);
    const std::uint8_t flags = input.take<std::uint8_t>();
    formatter.setCutUnnecessaryDigits(flags & 1);
    formatter.includeUnit(flags & 2);
    formatter.setFieldWidth(flags & 4 ? input.take<std::int16_t>() : 0);
    QLocale::setDefault(QLocale(flags & 8 ? QLocale::German : QLocale::English));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    BVFormatter formatter;
    configure(formatter, input);
    const double value = input.take<double>();
    formatter.textFromValueEng(value);
    roundTrip(formatter, value, false);
    roundTrip(formatter, value, true);
    const bool wide = input.take<std::uint8_t>() & 1;
    readTyped(formatter, wide ? input.takeText() : input.takeUtf8());
    return 0;
}
