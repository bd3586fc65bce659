// SPDX-License-Identifier: MIT
#include "units/UnitTable_p.h"

#include <QLatin1String>
#include <QStringView>

#include <algorithm>
#include <array>
#include <iterator>

namespace UnitTable {

namespace {

// clang-format off
constexpr std::array<Row, s_rowCount> s_rows = {{
    {u"%", 0.01, u"perc", "Percentage100"},
    {u"ARS", 1, u"EUR", "ArgentinePeso"},
    {u"AUD", 1, u"EUR", "AustralianDollar"},
    {u"B", 1, {}, "Byte", 0},
    {u"BRL", 1, u"EUR", "BrazilianReal"},
    {u"BYR", 1, u"EUR", "BelarussianRuble"},
    {u"CAD", 1, u"EUR", "CanadianDollar"},
    {u"CHF", 1, u"EUR", "SwissFranc"},
    {u"CNY", 1, u"EUR", "ChineseYuanRenminbi"},
    {u"CZK", 1, u"EUR", "CzechKoruna"},
    {u"EUR", 1, {}, "Euro", 1},
    {u"GB", 1073741824, u"B", "GigaByte"},
    {u"GBP", 1, u"EUR", "BritishPound"},
    {u"HKD", 1, u"EUR", "HongKongSARDollar"},
    {u"HUF", 1, u"EUR", "HungarianForint"},
    {u"Hz", 1, u"s^-1", "Hertz"},
    {u"INR", 1, u"EUR", "IndianRupee"},
    {u"J", 1, u"Kg*m^2/s^2", "Joule"},
    {u"JPY", 1, u"EUR", "JapaneseYen"},
    {u"K", 1, {}, "Kelvin", 2},
    {u"KB", 1024, u"B", "KiloByte"},
    {u"KRW", 1, u"EUR", "SouthKoreanWon"},
    {u"MB", 1048576, u"B", "MegaByte"},
    {u"MXN", 1, u"EUR", "MexicanPeso"},
    {u"MYR", 1, u"EUR", "MalaysianRinggit"},
    {u"N", 1, u"Kg*m/s^2", "Newton"},
    {u"NOK", 1, u"EUR", "NorwegianKroner"},
    {u"Nm", 1, u"Kg*m^2/s^2", "NewtonMeter"},
    {u"P", 0.1, u"Kg/m*s", "Poise"},
    {u"PLN", 1, u"EUR", "PolishZloty"},
    {u"Pa", 1, u"Kg/m*s^2", "Pascal"},
    {u"Pdl", 0.13825495376, u"Kg*m/s^2", "Poundal"},
    {u"Pica", 0.013888888888888888, u"in", "Pica"},
    {u"RUB", 1, u"EUR", "RussianRuble"},
    {u"SEK", 1, u"EUR", "SwedishKrona"},
    {u"St", 0.0001, u"m^2/s", "Stokes"},
    {u"TB", 1099511627776, u"B", "TeraByte"},
    {u"THB", 1, u"EUR", "ThaiBaht"},
    {u"TRY", 1, u"EUR", "TurkishLira"},
    {u"TWD", 1, u"EUR", "TaiwanDollar"},
    {u"U", 1.6605402e-27, u"Kg", "UnifiedAtomicMass"},
    {u"UAH", 1, u"EUR", "UkraineHryvnia"},
    {u"USD", 1, u"EUR", "USDollar"},
    {u"W", 1, u"Kg*m^2/s^3", "Watt"},
    {u"Yen", 1, u"EUR", "Yen"},
    {u"ZAR", 1, u"EUR", "SouthAfricanRand"},
    {u"a", 31556925.9747, u"s", "Year"},
    {u"arcmin", 0.00029088820866, u"rad", "ArcMinute"},
    {u"arcs", 4.848136111e-06, u"rad", "ArcSecond"},
    {u"atm", 101325, u"Kg/m*s^2", "Attmosphere"},
    {u"bar", 100000, u"Kg/m*s^2", "Bar"},
    {u"bbl", 0.158987294928, u"m^3", "Barrel"},
    {u"cal", 4.1868, u"Kg*m^2/s^2", "Calorie"},
    {u"d", 86400, u"s", "day"},
    {u"deg", 0.0174532925199, u"rad", "DegreeAngle"},
    {u"degC", 1, u"K", "DegreeCelsius"},
    {u"degF", 0.5555555555555556, u"K", "DegreesFahrenheit"},
    {u"fermi", 1e-15, u"m", "Fermi"},
    {u"ft", 0.3048, u"m", "Foot"},
    {u"ftUS", 0.304800609601, u"m", "SurveyFoot"},
    {u"g", 1, {}, "Gram", 3},
    {u"ga", 9.80665, u"m/s^2", "StandardFreefall"},
    {u"gal", 0.003785411784, u"m^3", "USGallon"},
    {u"galC", 0.00454609, u"m^3", "CanadianGallon"},
    {u"galUK", 0.004546092, u"m^3", "UKGallon"},
    {u"gf", 0.00980665, u"Kg*m/s^2", "GramForce"},
    {u"grad", 0.0157079632679, u"rad", "Grade"},
    {u"h", 3600, u"s", "Hour"},
    {u"in", 0.0254, u"m", "Inch"},
    {u"inch", 0.0254, u"m", "InchLong"},
    {u"kip", 4448.22161526, u"Kg*m/s^2", "KilopoundForce"},
    {u"kp", 9.80665, u"Kg*m/s^2", "Kilopond"},
    {u"kph", 0.2777777777777778, u"m/s", "KilometersPerHour"},
    {u"l", 0.001, u"m^3", "Liter"},
    {u"lb", 0.45359267, u"Kg", "AvoirdupoisPound"},
    {u"lbf", 4.44822161526, u"Kg*m/s^2", "PoundForce"},
    {u"lbt", 0.3732417216, u"Kg", "TroyPound"},
    {u"m", 1, {}, "Meter", 4},
    {u"mi", 1609.344, u"m", "InternationalMile"},
    {u"miUS", 1609.34721869, u"m", "USStatuteMile"},
    {u"mil", 2.54e-05, u"m", "Mil"},
    {u"min", 60, u"s", "Minute"},
    {u"mmHg", 133.322368421, u"Kg/m*s^2", "MillimeterOfMercury"},
    {u"mph", 0.44704, u"m/s", "MilesPerHour"},
    {u"mps", 1, u"m/s", "MeterPerSecond"},
    {u"oz", 0.028349523125, u"Kg", "Ounce"},
    {u"p", 0.00980665, u"Kg*m/s^2", "Pond"},
    {u"perc", 1, {}, "Percentage", 5},
    {u"psi", 6894.75729317, u"Kg/m*s^2", "PoundsPerSquareInch"},
    {u"rad", 1, {}, "Radian", 6},
    {u"rd", 5.02921005842, u"m", "Rod"},
    {u"s", 1, {}, "Second", 7},
    {u"t", 1000, u"Kg", "MetricTon"},
    {u"tf", 9806.65, u"Kg*m/s^2", "TonneForce"},
    {u"ton", 907.18474, u"Kg", "ShortTon"},
    {u"tonUK", 1016.0469088, u"Kg", "UKLongTon"},
    {u"tonf", 8896.443230521, u"Kg*m/s^2", "USTonForce"},
    {u"yr", 31556925.9747, u"s", "Year2"},
    {u"\u00B0", 0.0174532925199, u"rad", "Degree"},
    {u"\u00B0C", 1, u"K", "DegreeCelsiusChar"},
    {u"\u00B0F", 0.5555555555555556, u"K", "DegreesFahrenheitChar"},
    {u"\u00C5", 1e-10, u"m", "Angstrom"},
    {u"\u03BC", 1e-06, u"m", "Micron"},
}};
// clang-format on

struct Prefix
{
    char16_t character;
    double value;
};

// Deca is the upper-case "D"; there is no lower-case exa.
constexpr Prefix s_prefixes[] = {
    {u'm', 0.001}, {u'k', 1000},  {u'K', 1000},  {u'M', 1e6},   {u'd', 0.1},        {u'c', 0.01},
    {u'u', 1e-06}, {u'n', 1e-09}, {u'G', 1e9},   {u'h', 100},   {u'H', 100},        {u'D', 10},
    {u'T', 1e12},  {u'p', 1e-12}, {u'f', 1e-15}, {u'a', 1e-18}, {u'z', 1e-21},      {u'y', 1e-24},
    {u'P', 1e15},  {u'E', 1e18},  {u'Z', 1e21},  {u'Y', 1e24},  {u'\u03BC', 1e-06},
};

// std::u16string_view compares code units, which is the order that the table needs.
constexpr bool isSorted(const std::array<Row, s_rowCount> &rows)
{
    for (std::size_t row = 1; row < rows.size(); ++row) {
        if (!(rows[row - 1].symbol < rows[row].symbol))
            return false;
    }
    return true;
}

constexpr int longestSymbol(const std::array<Row, s_rowCount> &rows)
{
    std::size_t length = 0;
    for (const Row &row : rows)
        length = std::max(length, row.symbol.size());
    return static_cast<int>(length);
}

static_assert(isSorted(s_rows), "symbols are found by binary search");
static_assert(longestSymbol(s_rows) == s_maxSymbolLength);

QStringView view(std::u16string_view text)
{
    return QStringView(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

const Row &row(int index)
{
    return s_rows[static_cast<std::size_t>(index)];
}

int rowOfSymbol(std::u16string_view symbol)
{
    const auto it =
        std::lower_bound(s_rows.begin(), s_rows.end(), symbol,
                         [](const Row &row, std::u16string_view s) { return row.symbol < s; });
    const bool found = it != s_rows.end() && it->symbol == symbol;
    return found ? static_cast<int>(it - s_rows.begin()) : -1;
}

int rowOfName(std::u16string_view name)
{
    const auto it = std::find_if(s_rows.rbegin(), s_rows.rend(), [name](const Row &row) {
        return QLatin1String(row.name).compare(view(name), Qt::CaseInsensitive) == 0;
    });
    return static_cast<int>(s_rows.rend() - it) - 1;
}

bool startsName(std::u16string_view text)
{
    return std::any_of(s_rows.begin(), s_rows.end(), [text](const Row &row) {
        return QLatin1String(row.name).startsWith(view(text), Qt::CaseInsensitive);
    });
}

double prefixValue(char16_t c)
{
    const auto it = std::find_if(std::begin(s_prefixes), std::end(s_prefixes),
                                 [c](const Prefix &prefix) { return prefix.character == c; });
    return it == std::end(s_prefixes) ? 0.0 : it->value;
}

} // namespace UnitTable
