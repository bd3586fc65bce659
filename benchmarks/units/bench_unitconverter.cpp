// SPDX-License-Identifier: MIT
// Unit text to unit text, beside a hash look-up of the two texts, KUnitConversion and UDUNITS-2.
//
//   BM_Convert_Warm    / BM_Convert_HashLookup      goal: at most 2
//   BM_Convert_Warm    / BM_Convert_KUnitConversion goal: at most 0.06
//   BM_ParseBoth_Cold  / BM_ParseBoth_Udunits       goal: at most 0.1
#include "units/UnitConverter.h"
#include "units/UnitParser_p.h"

#include <KUnitConversion/Converter>
#include <KUnitConversion/Value>
#include <QHash>
#include <QString>
#include <benchmark/benchmark.h>
#include <udunits2.h>

#include <array>
#include <string>
#include <string_view>

namespace {

struct Pair
{
    QString from;
    QString to;
};

// Known under these texts to all three libraries.
const std::array<Pair, 5> &pairs()
{
    static const std::array<Pair, 5> s_pairs = {{
        {QStringLiteral("inch"), QStringLiteral("mm")},
        {QStringLiteral("MPa"), QStringLiteral("psi")},
        {QStringLiteral("h"), QStringLiteral("min")},
        {QStringLiteral("deg"), QStringLiteral("rad")},
        {QStringLiteral("kg"), QStringLiteral("lb")},
    }};
    return s_pairs;
}

constexpr std::array<std::array<const char *, 2>, 4> s_expressions = {{
    {"N/mm^2", "MPa"},
    {"kg*m/s^2", "kN"},
    {"1/min", "Hz"},
    {"inch", "mm"},
}};

/// Every known unit with a number, as a table of factors would have it.
QHash<QString, double> factors()
{
    QHash<QString, double> factors;
    for (const QString &unit : UnitConverter::getUnits())
        factors.insert(unit, factors.size() + 1.0);
    for (const Pair &pair : pairs()) {
        factors.insert(pair.from, 2.0);
        factors.insert(pair.to, 3.0);
    }
    return factors;
}

void BM_Convert_Warm(benchmark::State &state)
{
    for (const Pair &pair : pairs()) {
        if (!UnitConverter::isConvertable(pair.from, pair.to)) {
            state.SkipWithError(qPrintable(pair.from + QStringLiteral(" does not convert")));
            return;
        }
    }
    for (auto _ : state) {
        for (const Pair &pair : pairs()) {
            double value = 25.4;
            benchmark::DoNotOptimize(UnitConverter::convert(value, pair.from, pair.to));
            benchmark::DoNotOptimize(value);
        }
    }
}
BENCHMARK(BM_Convert_Warm);

void BM_Convert_HashLookup(benchmark::State &state)
{
    const QHash<QString, double> hash = factors();
    for (auto _ : state) {
        for (const Pair &pair : pairs()) {
            double value = *hash.constFind(pair.from) * *hash.constFind(pair.to);
            benchmark::DoNotOptimize(value);
        }
    }
}
BENCHMARK(BM_Convert_HashLookup);

void BM_Convert_KUnitConversion(benchmark::State &state)
{
    const KUnitConversion::Converter converter;
    for (const Pair &pair : pairs()) {
        if (!converter.convert(KUnitConversion::Value(1.0, pair.from), pair.to).isValid())
            state.SkipWithError(qPrintable(pair.from + QStringLiteral(" is unknown")));
    }
    for (auto _ : state) {
        for (const Pair &pair : pairs()) {
            const KUnitConversion::Value value(25.4, pair.from);
            benchmark::DoNotOptimize(converter.convert(value, pair.to).number());
        }
    }
}
BENCHMARK(BM_Convert_KUnitConversion);

void BM_ParseBoth_Cold(benchmark::State &state)
{
    std::array<std::array<std::u16string, 2>, s_expressions.size()> texts;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t side = 0; side < 2; ++side)
            texts[i][side] = QString::fromLatin1(s_expressions[i][side]).toStdU16String();
    }
    for (auto _ : state) {
        for (const auto &pair : texts) {
            benchmark::DoNotOptimize(UnitParser::resolve(pair[0]));
            benchmark::DoNotOptimize(UnitParser::resolve(pair[1]));
        }
    }
}
BENCHMARK(BM_ParseBoth_Cold);

/// The converter that both parsed units need is not counted here, in favour of the peer.
void BM_ParseBoth_Udunits(benchmark::State &state)
{
    ut_set_error_message_handler(ut_ignore);
    ut_system *const system = ut_read_xml(nullptr);
    for (const auto &pair : s_expressions) {
        for (const char *text : pair) {
            ut_unit *const unit = ut_parse(system, text, UT_ASCII);
            if (!unit)
                state.SkipWithError(text);
            ut_free(unit);
        }
    }
    for (auto _ : state) {
        for (const auto &pair : s_expressions) {
            for (const char *text : pair)
                ut_free(ut_parse(system, text, UT_ASCII));
        }
    }
    ut_free_system(system);
}
BENCHMARK(BM_ParseBoth_Udunits);

} // namespace

BENCHMARK_MAIN();
