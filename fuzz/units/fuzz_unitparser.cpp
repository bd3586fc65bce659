// SPDX-License-Identifier: MIT
// Two unit texts, split at the first line feed of the input's 16-bit text: every operation of the
// converter, and what must hold of its answers.
#include "units/UnitConverter.h"

#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// A text that ends where its memory ends, so that reading past its end is seen.
class ExactText
{
public:
    ExactText(const uint8_t *data, std::size_t size)
        : m_units(new QChar[size])
        , m_text(QString::fromRawData(m_units.get(), static_cast<int>(size)))
    {
        if (size > 0)
            std::memcpy(static_cast<void *>(m_units.get()), data, size * sizeof(QChar));
    }

    const QString &text() const { return m_text; }

private:
    std::unique_ptr<QChar[]> m_units;
    QString m_text; // shares m_units
};

/// The number of 16-bit units before the first line feed.
std::size_t firstLength(const uint8_t *data, std::size_t size)
{
    std::size_t length = 0;
    while (length < size && !(data[2 * length] == '\n' && data[2 * length + 1] == 0))
        ++length;
    return length;
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
    if (check == UnitConverter::CompleteUnit || check == UnitConverter::UnitName) {
        double value = 3.25;
        require(UnitConverter::convert(value, text, unit) && value == 3.25);
        require(UnitConverter::isConvertable(text, unit));
    }
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
    const std::size_t units = size / sizeof(QChar);
    const std::size_t end = firstLength(data, units);
    const std::size_t start = std::min(end + 1, units); // of the second text
    const ExactText first(data, end);
    const ExactText second(data + start * sizeof(QChar), units - start);
    checkText(first.text());
    checkText(second.text());
    checkPair(first.text(), second.text());
    return 0;
}
