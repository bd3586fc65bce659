// SPDX-License-Identifier: MIT
// Two unit texts, split at the first line feed of the input's 16-bit text: every operation of the
// converter, and what must hold of its answers.
#include "units/UnitConverter.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

QString textOf(const uint8_t *data, std::size_t size)
{
    QString text(static_cast<int>(size / 2), Qt::Uninitialized);
    if (!text.isEmpty())
        std::memcpy(text.data(), data, static_cast<std::size_t>(text.size()) * 2);
    return text;
}

void checkText(const QString &text)
{
    const int span = UnitConverter::spanUnitStr(text);
    require(span >= 0 && span <= text.size());
    require(UnitConverter::spanUnitStr(text.left(span)) == span);
    const UnitConverter::UnitCheck check = UnitConverter::isUnit(text);
    const QString unit = UnitConverter::getUnit(text);
    require(text.size() <= 12 || (check == UnitConverter::NotAUnit && unit.isEmpty()));
    require(check != UnitConverter::UnitName || !unit.isEmpty());
    if (check == UnitConverter::CompleteUnit || check == UnitConverter::UnitName)
        require(UnitConverter::isConvertable(text, unit));
    for (const QString &other : UnitConverter::getConversionUnits(text))
        require(UnitConverter::isConvertable(other, text));
    require(UnitConverter::getConversionUnitNames(text).size() <= 103);
    require(UnitConverter::UnitFromTag(UnitConverter::TagFromUnit(text)).isEmpty() ||
            check == UnitConverter::CompleteUnit);
}

void checkPair(const QString &from, const QString &to)
{
    double value = 3.25;
    const bool converts = UnitConverter::convert(value, from, to);
    require(converts || value == 3.25);
    double back = 3.25;
    require(UnitConverter::convert(back, to, from) == converts);
    require(UnitConverter::isConvertable(from, to) || !converts);
    require(UnitConverter::isConvertable(from, to) == UnitConverter::isConvertable(to, from));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, std::size_t size)
{
    const QString text = textOf(data, size);
    const QString first = text.section(QLatin1Char('\n'), 0, 0);
    const QString second = text.section(QLatin1Char('\n'), 1);
    checkText(first);
    checkText(second);
    checkPair(first, second);
    return 0;
}
