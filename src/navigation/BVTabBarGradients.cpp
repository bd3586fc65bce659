// SPDX-License-Identifier: MIT
#include "navigation/BVTabBarGradients_p.h"

namespace {

struct GradientRow
{
    bool isBarHigh; // else as high as a tab
    QRgb top;
    QRgb bottom;
};

// In the order of BVTabBarGradient.
constexpr GradientRow s_gradients[] = {
    {true, qRgb(0xf0, 0xf0, 0xf0), qRgb(0xa8, 0xa8, 0xa8)},
    {true, qRgb(0xa8, 0xa8, 0xa8), qRgb(0xdc, 0xdc, 0xdc)},
    {false, qRgb(0xa6, 0xa6, 0xa6), qRgb(0xb2, 0xb2, 0xb2)},
    {false, qRgb(0xc4, 0xc4, 0xc4), qRgb(0xcb, 0xcb, 0xcb)},
    {true, qRgb(0x81, 0x81, 0x81), qRgb(0x65, 0x65, 0x65)},
    {false, qRgb(0xa6, 0xa6, 0xa6), qRgb(0xb2, 0xb2, 0xb2)},
    {false, qRgb(0x93, 0x91, 0x91), qRgb(0x65, 0x65, 0x65)},
    {false, qRgb(0xb2, 0xb2, 0xb2), qRgb(0xc1, 0xc1, 0xc1)},
    {false, qRgb(0xa6, 0xa6, 0xa6), qRgb(0xb2, 0xb2, 0xb2)},
};

} // namespace

QLinearGradient gradientOf(BVTabBarGradient gradient, int barHeight, int tabHeight)
{
    const GradientRow &row = s_gradients[static_cast<int>(gradient)];
    QLinearGradient made(0, 0, 0, row.isBarHigh ? barHeight : tabHeight);
    made.setColorAt(0.0, QColor(row.top));
    made.setColorAt(1.0, QColor(row.bottom));
    return made;
}

bool isBarHigh(BVTabBarGradient gradient)
{
    return s_gradients[static_cast<int>(gradient)].isBarHigh;
}
