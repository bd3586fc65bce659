// SPDX-License-Identifier: MIT
// One frame of a flight fades the picture of a large button. Its peers do the like: a plain
// fixed-point pass over the pixels, which rounds differently, and the toolkit's painter.
#include "navigation/BVStackAnimationWidget.h"

#include <QPainter>

#include <benchmark/benchmark.h>

namespace {

constexpr double s_factor = 0.58;

QImage button()
{
    QImage image(800, 120, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, QRgb(x) * 2654435761U + QRgb(y) * 40503U);
    }
    return image;
}

void fixedPoint(const QImage &source, unsigned factor, QImage *faded)
{
    const int width = source.width();
    for (int y = 0; y < source.height(); ++y) {
        const auto *from = reinterpret_cast<const QRgb *>(source.constScanLine(y));
        auto *to = reinterpret_cast<QRgb *>(faded->scanLine(y));
        for (int x = 0; x < width; ++x)
            to[x] = (from[x] & 0x00ffffffU) | (((from[x] >> 24) * factor >> 8) << 24);
    }
}

void painted(const QImage &source, int alpha, QImage *faded)
{
    QPainter painter(faded);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(0, 0, source);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(faded->rect(), QColor(0, 0, 0, alpha));
}

template <typename Fade>
void run(benchmark::State &state, const Fade &fade)
{
    const QImage source = button();
    QImage faded = source.copy();
    for (auto _ : state) {
        fade(source, &faded);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * source.width() * source.height());
}

void ours(benchmark::State &state)
{
    run(state, [](const QImage &source, QImage *faded) {
        BVStackAnimationWidget::fade(source, s_factor, faded);
    });
}
BENCHMARK(ours);

void fixed_point(benchmark::State &state)
{
    run(state, [](const QImage &source, QImage *faded) {
        fixedPoint(source, unsigned(s_factor * 256), faded);
    });
}
BENCHMARK(fixed_point);

void painter_destination_in(benchmark::State &state)
{
    run(state,
        [](const QImage &source, QImage *faded) { painted(source, int(s_factor * 255), faded); });
}
BENCHMARK(painter_destination_in);

void painter_destination_in_premultiplied(benchmark::State &state)
{
    run(state, [](const QImage &source, QImage *faded) {
        static const QImage s_source = source.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        if (faded->format() != s_source.format())
            *faded = s_source.copy();
        painted(s_source, int(s_factor * 255), faded);
    });
}
BENCHMARK(painter_destination_in_premultiplied);

} // namespace

BENCHMARK_MAIN();
