// SPDX-License-Identifier: MIT
#include "units/UnitConverter.h"

#include "units/UnitParser_p.h"
#include "units/UnitTable_p.h"

#include <QHash>
#include <QLatin1String>

#include <array>
#include <cstring>
#include <string_view>

using UnitParser::Resolved;
using UnitParser::TemperatureScale;
using UnitParser::TextKind;

namespace {

struct Tag
{
    const char *unit;
    UnitConverter::Unit tag;
};

// Where two texts share a tag, the first is the text of the tag.
constexpr Tag s_tags[] = {
    {"mm", UnitConverter::Unit_mm},         {"m", UnitConverter::Unit_m},
    {"in", UnitConverter::Unit_in},         {"inch", UnitConverter::Unit_in},
    {"deg", UnitConverter::Unit_deg},       {"rad", UnitConverter::Unit_rad},
    {"N", UnitConverter::Unit_N},           {"kN", UnitConverter::Unit_kN},
    {"lbf", UnitConverter::Unit_lbf},       {"t", UnitConverter::Unit_t},
    {"h", UnitConverter::Unit_h},           {"min", UnitConverter::Unit_min},
    {"s", UnitConverter::Unit_s},           {"N/mm", UnitConverter::Unit_NPerMm},
    {"kg", UnitConverter::Unit_kg},         {"1/min", UnitConverter::Unit_1PerMin},
    {"MPa", UnitConverter::Unit_MPa},       {"N/m^2", UnitConverter::Unit_NPerM2},
    {"bar", UnitConverter::Unit_bar},       {"USD", UnitConverter::Unit_USD},
    {"CHF", UnitConverter::Unit_CHF},       {"EUR", UnitConverter::Unit_EUR},
    {"JPY", UnitConverter::Unit_JPY},       {"degC", UnitConverter::Unit_degC},
    {"degF", UnitConverter::Unit_degF},     {"m/s", UnitConverter::Unit_mPerS},
    {"mm/s", UnitConverter::Unit_mmPerS},   {"Nm", UnitConverter::Unit_Nm},
    {"kNm", UnitConverter::Unit_kNm},       {"deg/s", UnitConverter::Unit_degPerS},
    {"rad/s", UnitConverter::Unit_radPerS},
};

QHash<QString, UnitConverter::Unit> tagsByText()
{
    QHash<QString, UnitConverter::Unit> tags;
    for (const Tag &entry : s_tags)
        tags.insert(QLatin1String(entry.unit), entry.tag);
    return tags;
}

QHash<qint32, QString> textsByTag()
{
    QHash<qint32, QString> texts;
    for (const Tag &entry : s_tags) {
        if (!texts.contains(entry.tag))
            texts.insert(entry.tag, QLatin1String(entry.unit));
    }
    return texts;
}

std::u16string_view view(const QString &text)
{
    // Not utf16(): where no NUL follows the text it changes the object, which threads may share.
    return {reinterpret_cast<const char16_t *>(text.constData()),
            static_cast<std::size_t>(text.size())};
}

QString toString(std::u16string_view text)
{
    return QString(reinterpret_cast<const QChar *>(text.data()), static_cast<int>(text.size()));
}

template <typename Word>
quint64 load(const char16_t *units)
{
    Word word;
    std::memcpy(&word, units, sizeof word);
    return word;
}

/// A text of at most s_maxUnitLength units in words that may overlap: with the size they tell it.
struct CacheKey
{
    std::array<quint64, 3> words = {};
    quint64 size = 0;

    CacheKey() = default;
    explicit CacheKey(std::u16string_view text)
        : size(text.size())
    {
        static_assert(UnitParser::s_maxUnitLength == 3 * sizeof(quint64) / sizeof(char16_t));
        const char16_t *const units = text.data();
        if (size >= 8)
            words = {load<quint64>(units), load<quint64>(units + 4),
                     load<quint64>(units + size - 4)};
        else if (size >= 4)
            words = {load<quint64>(units), load<quint64>(units + size - 4), 0};
        else if (size >= 2)
            words = {load<quint32>(units), load<quint32>(units + size - 2), 0};
        else if (size == 1)
            words = {units[0], 0, 0};
    }

    bool operator==(const CacheKey &other) const
    {
        return words[0] == other.words[0] && words[1] == other.words[1] &&
               words[2] == other.words[2] && size == other.size;
    }

    std::size_t hash() const
    {
        constexpr quint64 s_multiplier = 0x9e3779b97f4a7c15; // odd, bits well mixed
        quint64 hash = words[0] * s_multiplier ^ (words[1] + size);
        hash = (hash ^ words[2]) * s_multiplier;
        return static_cast<std::size_t>(hash >> 32);
    }
};

/// What was parsed last, one result for each hash: texts that share one displace each other.
class Cache
{
public:
    Resolved resolve(const QString &text)
    {
        if (text.size() > UnitParser::s_maxUnitLength)
            return Resolved();
        const CacheKey key(view(text));
        Entry &entry = m_entries[key.hash() % s_size];
        if (!(entry.key == key)) {
            entry.value = UnitParser::resolve(view(text));
            entry.key = key;
        }
        return entry.value;
    }

private:
    struct Entry
    {
        CacheKey key;
        Resolved value; // of the empty text until the entry is first used
    };

    static constexpr std::size_t s_size = 512;

    std::array<Entry, s_size> m_entries;
};

// A unit is looked up whenever a number is shown or checked, nearly always one of a few dozen
// texts. Each thread keeps its own results, so that no look-up waits for another.
Cache &cache()
{
    static thread_local Cache s_cache;
    return s_cache;
}

Resolved resolve(const QString &text)
{
    return cache().resolve(text);
}

double toKelvin(double value, TemperatureScale scale)
{
    if (scale == TemperatureScale::Celsius)
        return value + 273.15;
    return scale == TemperatureScale::Fahrenheit ? (value + 459.67) / 1.8 : value;
}

double fromKelvin(double value, TemperatureScale scale)
{
    if (scale == TemperatureScale::Celsius)
        return value - 273.15;
    return scale == TemperatureScale::Fahrenheit ? value * 1.8 - 459.67 : value;
}

double convertTemperature(double value, TemperatureScale from, TemperatureScale to)
{
    return from == to ? value : fromKelvin(toKelvin(value, from), to);
}

bool convertResolved(double &value, const Resolved &from, const Resolved &to)
{
    if (!from.isValid || !to.isValid)
        return false;
    if (from.scale != TemperatureScale::None && to.scale != TemperatureScale::None) {
        value = convertTemperature(value, from.scale, to.scale);
        return true;
    }
    if (from.unit.exponents != to.unit.exponents)
        return false;
    if (from.unit.factor != to.unit.factor)
        value = value * from.unit.factor / to.unit.factor;
    return true;
}

UnitConverter::UnitCheck checkOf(TextKind kind)
{
    switch (kind) {
    case TextKind::NoUnit:
        return UnitConverter::NotAUnit;
    case TextKind::Expression:
        return UnitConverter::CompleteUnit;
    case TextKind::Name:
        return UnitConverter::UnitName;
    case TextKind::Incomplete:
        return UnitConverter::IncompleteUnit;
    }
    return UnitConverter::NotAUnit;
}

QString withoutBrackets(QString text)
{
    return text.remove(QLatin1Char('(')).remove(QLatin1Char(')'));
}

QString symbolOf(int row)
{
    return toString(UnitTable::row(row).symbol);
}

QString nameOf(int row)
{
    return QLatin1String(UnitTable::row(row).name);
}

/// The texts of all rows, in order.
QStringList texts(QString (*textOfRow)(int))
{
    QStringList texts;
    for (int row = 0; row < UnitTable::s_rowCount; ++row)
        texts.append(textOfRow(row));
    return texts;
}

/// The texts of the rows into which @p unit converts, in order. Units of equal exponents convert,
/// by factor or as temperatures.
QStringList textsConverting(const QString &unit, QString (*textOfRow)(int))
{
    QStringList texts;
    const Resolved from = resolve(unit);
    for (int row = 0; from.isValid && row < UnitTable::s_rowCount; ++row) {
        if (UnitParser::rowUnit(row).exponents == from.unit.exponents)
            texts.append(textOfRow(row));
    }
    return texts;
}

} // namespace

bool UnitConverter::convert(double &value, const QString &from, const QString &to)
{
    if (from == to)
        return true;
    Cache &results = cache();
    const Resolved source = results.resolve(from);
    const Resolved target = results.resolve(to);
    if (source.isOutOfRange && target.isOutOfRange)
        return UnitParser::isSameUnit(view(from), view(to));
    return convertResolved(value, source, target);
}

bool UnitConverter::convert(double &value, Unit from, Unit to)
{
    return convert(value, UnitFromTag(from), UnitFromTag(to));
}

bool UnitConverter::isConvertable(const QString &from, const QString &to)
{
    double value = 1.0;
    return convert(value, from, to) || withoutBrackets(from) == withoutBrackets(to);
}

UnitConverter::UnitCheck UnitConverter::isUnit(const QString &text)
{
    return checkOf(resolve(text).kind);
}

QString UnitConverter::getUnit(const QString &text)
{
    if (text.size() > UnitParser::s_maxUnitLength)
        return QString();
    return toString(UnitParser::normalizedUnit(view(text)).view());
}

int UnitConverter::spanUnitStr(const QString &text)
{
    return UnitParser::span(view(text));
}

QStringList UnitConverter::getUnits()
{
    return texts(symbolOf);
}

QStringList UnitConverter::getUnitNames()
{
    return texts(nameOf);
}

QStringList UnitConverter::getConversionUnits(const QString &unit)
{
    return textsConverting(unit, symbolOf);
}

QStringList UnitConverter::getConversionUnitNames(const QString &unit)
{
    return textsConverting(unit, nameOf);
}

UnitConverter::Unit UnitConverter::TagFromUnit(const QString &unit)
{
    static const QHash<QString, Unit> s_tagsByText = tagsByText();
    return s_tagsByText.value(unit, Unit_None);
}

QString UnitConverter::UnitFromTag(Unit tag)
{
    static const QHash<qint32, QString> s_textsByTag = textsByTag();
    return s_textsByTag.value(tag);
}
