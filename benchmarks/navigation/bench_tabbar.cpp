// SPDX-License-Identifier: MIT
// An animated tab bar beside the toolkit's tab bar with the same tabs, under the same style sheet.
#include "navigation/BVAnimatedOPTabBar.h"
#include "style/StyleSheetHandler.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QTabBar>

#include <benchmark/benchmark.h>

#include <type_traits>

namespace {

constexpr int s_width = 8000; // px, all 50 tabs are in sight
constexpr int s_height = 32;  // px

QString text(int i)
{
    return QStringLiteral("Operation-%1").arg(i);
}

template <typename Bar>
void fill(Bar *bar, int count)
{
    for (int i = 0; i < count; ++i)
        bar->addTab(text(i));
}

/// All tabs painted into a picture.
template <typename Bar>
void paint(benchmark::State &state)
{
    Bar bar;
    fill(&bar, int(state.range(0)));
    bar.resize(s_width, s_height);
    QImage image(bar.size(), QImage::Format_ARGB32_Premultiplied);
    bar.render(&image); // polished and laid out
    for (auto _ : state)
        bar.render(&image);
}
BENCHMARK_TEMPLATE(paint, BVAnimatedTabBar)->Arg(50)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(paint, BVAnimatedOPTabBar)->Arg(50)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(paint, QTabBar)->Arg(50)->Unit(benchmark::kMicrosecond);

template <typename Bar>
void setText(Bar *bar, int index, const QString &text)
{
    if constexpr (std::is_base_of_v<QTabBar, Bar>)
        bar->setTabText(index, text);
    else
        bar->setItemText(index, text);
}

template <typename Bar>
QRect lastRect(Bar *bar)
{
    if constexpr (std::is_base_of_v<QTabBar, Bar>)
        return bar->tabRect(bar->count() - 1);
    else
        return bar->getTabRect(bar->count() - 1);
}

/// The tabs laid out anew after one text has changed.
template <typename Bar>
void lay_out(benchmark::State &state)
{
    Bar bar;
    fill(&bar, int(state.range(0)));
    bar.resize(s_width, s_height);
    bar.show();
    QCoreApplication::processEvents();
    int i = 0;
    for (auto _ : state) {
        setText(&bar, 0, text(++i));
        benchmark::DoNotOptimize(lastRect(&bar));
    }
}
BENCHMARK_TEMPLATE(lay_out, BVAnimatedTabBar)->Arg(50)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(lay_out, BVAnimatedOPTabBar)->Arg(50)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(lay_out, QTabBar)->Arg(50)->Unit(benchmark::kMicrosecond);

/// 500 tabs added to a shown bar, until it stands laid out and painted.
template <typename Bar>
void add_at_once(benchmark::State &state)
{
    QWidget window;
    auto *layout = new QHBoxLayout(&window);
    window.resize(1000, 80);
    window.show();
    for (auto _ : state) {
        state.PauseTiming();
        auto *bar = new Bar;
        layout->addWidget(bar);
        QCoreApplication::processEvents();
        state.ResumeTiming();
        fill(bar, int(state.range(0)));
        QCoreApplication::processEvents();
        state.PauseTiming();
        delete bar;
        state.ResumeTiming();
    }
}
BENCHMARK_TEMPLATE(add_at_once, BVAnimatedTabBar)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(add_at_once, BVAnimatedOPTabBar)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(add_at_once, QTabBar)->Arg(500)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Brimvale::StyleSheetHandler sheets(true);
    sheets.load(QStringLiteral(":/Style/General/BVSimpleApplication.css"));
    QApplication::setStyle(sheets.getBaseStyle());
    application.setStyleSheet(sheets.getStyleSheet());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
