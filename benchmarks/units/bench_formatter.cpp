// SPDX-License-Identifier: MIT
//
// Value to text and back, beside the unit conversion of the desktop framework and the toolkit's own
// number formatting and validation on the same work.
#include "units/BVFormatter.h"
#include "units/BVUnitValidator.h"

#include <KUnitConversion/Converter>
#include <KUnitConversion/Value>

#include <QDoubleValidator>
#include <QGuiApplication>
#include <QLocale>

#include <benchmark/benchmark.h>

#include <array>

namespace {

constexpr int s_decimals = 3;

/// Values as they stand in forms; taking turns keeps the branch predictor honest.
constexpr std::array<double, 8> s_values = {25.4,    -0.125,  1234.5678, 0.0,
                                            3.14159, 99999.5, -7.25,     1e-3};

double nextValue(std::size_t &index)
{
    return s_values[index++ % s_values.size()];
}

void formatWithConversion(benchmark::State &state)
{
    BVFormatter formatter;
    formatter.setValueUnit(QStringLiteral("inch"));
    formatter.setGlobalOff(QStringLiteral("mm"));
    formatter.setDecimals(s_decimals);
    std::size_t index = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(formatter.textFromValue(nextValue(index)));
}

void formatWithConversionPeer(benchmark::State &state)
{
    using namespace KUnitConversion;
    Converter converter;
    const Unit inch = converter.unit(Inch);
    const Unit millimeter = converter.unit(Millimeter);
    const QLocale locale = QLocale::c();
    std::size_t index = 0;
    for (auto _ : state) {
        const Value value = converter.convert(Value(nextValue(index), inch), millimeter);
        const QString text = locale.toString(value.number(), 'f', s_decimals) + QLatin1Char(' ') +
                             value.unit().symbol();
        benchmark::DoNotOptimize(text);
    }
}

void formatWithConversionPeerByText(benchmark::State &state)
{
    using namespace KUnitConversion;
    Converter converter;
    const QString inch = QStringLiteral("inch");
    const QString millimeter = QStringLiteral("mm");
    const QLocale locale = QLocale::c();
    std::size_t index = 0;
    for (auto _ : state) {
        const Value value = converter.convert(Value(nextValue(index), inch), millimeter);
        const QString text = locale.toString(value.number(), 'f', s_decimals) + QLatin1Char(' ') +
                             value.unit().symbol();
        benchmark::DoNotOptimize(text);
    }
}

void formatPlain(benchmark::State &state)
{
    BVFormatter formatter;
    formatter.setValueUnit(QStringLiteral("mm"));
    formatter.setDecimals(s_decimals);
    std::size_t index = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(formatter.textFromValue(nextValue(index)));
}

void formatPlainPeer(benchmark::State &state)
{
    const QString unit = QStringLiteral("mm");
    std::size_t index = 0;
    for (auto _ : state) {
        const QString text =
            QStringLiteral("%1 %2").arg(nextValue(index), 0, 'f', s_decimals).arg(unit);
        benchmark::DoNotOptimize(text);
    }
}

void readTyped(benchmark::State &state)
{
    BVFormatter formatter;
    formatter.setValueUnit(QStringLiteral("inch"));
    QString text = QStringLiteral("25.4mm");
    for (auto _ : state) {
        int pos = text.size();
        benchmark::DoNotOptimize(formatter.getValidator()->validate(text, pos));
        bool ok = false;
        benchmark::DoNotOptimize(formatter.valueFromText(text, ok));
    }
}

void readTypedPeer(benchmark::State &state)
{
    QDoubleValidator validator(nullptr);
    validator.setDecimals(9);
    QString text = QStringLiteral("25.4");
    for (auto _ : state) {
        int pos = text.size();
        benchmark::DoNotOptimize(validator.validate(text, pos));
    }
}

BENCHMARK(formatWithConversion);
BENCHMARK(formatWithConversionPeer);
BENCHMARK(formatWithConversionPeerByText);
BENCHMARK(formatPlain);
BENCHMARK(formatPlainPeer);
BENCHMARK(readTyped);
BENCHMARK(readTypedPeer);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
