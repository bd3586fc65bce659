// SPDX-License-Identifier: MIT
#include "units/BVSlider.h"

#include <QRegion>

namespace {

constexpr int s_topPercent = 125;    // lighter
constexpr int s_bottomPercent = 115; // darker

enum class NamedBrush {
    AlmostBlack,
    Black,
    BlackMarker,
    Blacker,
    Blue,
    CompletelyBlack,
    DefaultMarker,
    GrayDashedMarker,
    Green,
    Red,
    White,
    WhiteMarker,
};

struct BrushRow
{
    QRgb color;
    Qt::BrushStyle style;
};

constexpr BrushRow s_brushes[] = {
    {qRgb(51, 51, 51), Qt::SolidPattern},          // AlmostBlack
    {qRgb(34, 34, 34), Qt::SolidPattern},          // Black
    {qRgba(0, 0, 0, 160), Qt::SolidPattern},       // BlackMarker
    {qRgb(17, 17, 17), Qt::SolidPattern},          // Blacker
    {qRgb(54, 106, 178), Qt::SolidPattern},        // Blue
    {qRgb(0, 0, 0), Qt::SolidPattern},             // CompletelyBlack
    {qRgb(204, 158, 20), Qt::SolidPattern},        // DefaultMarker
    {qRgb(110, 110, 110), Qt::Dense4Pattern},      // GrayDashedMarker
    {qRgb(0, 128, 42), Qt::SolidPattern},          // Green
    {qRgb(204, 61, 61), Qt::SolidPattern},         // Red
    {qRgb(255, 255, 255), Qt::SolidPattern},       // White
    {qRgba(255, 255, 255, 200), Qt::SolidPattern}, // WhiteMarker
};

QBrush namedBrush(NamedBrush name)
{
    const BrushRow &row = s_brushes[static_cast<size_t>(name)];
    return QBrush(QColor::fromRgba(row.color), row.style);
}

} // namespace

// clang-format off
QBrush BVSlider::defaultMarkerBrush() { return namedBrush(NamedBrush::DefaultMarker); }
QBrush BVSlider::almostBlackBrush() { return namedBrush(NamedBrush::AlmostBlack); }
QBrush BVSlider::blackBrush() { return namedBrush(NamedBrush::Black); }
QBrush BVSlider::blackMarkerBrush() { return namedBrush(NamedBrush::BlackMarker); }
QBrush BVSlider::blackerBrush() { return namedBrush(NamedBrush::Blacker); }
QBrush BVSlider::blueBrush() { return namedBrush(NamedBrush::Blue); }
QBrush BVSlider::completelyBlackBrush() { return namedBrush(NamedBrush::CompletelyBlack); }
QBrush BVSlider::grayDashedMarkerBrush() { return namedBrush(NamedBrush::GrayDashedMarker); }
QBrush BVSlider::greenBrush() { return namedBrush(NamedBrush::Green); }
QBrush BVSlider::redBrush() { return namedBrush(NamedBrush::Red); }
QBrush BVSlider::whiteBrush() { return namedBrush(NamedBrush::White); }
QBrush BVSlider::whiteMarkerBrush() { return namedBrush(NamedBrush::WhiteMarker); }
// clang-format on

QBrush BVSlider::gradientBrush(const QBrush &brush, const QRegion &region)
{
    if (region.isEmpty() || brush.style() == Qt::NoBrush)
        return brush;
    const QRectF area = region.boundingRect();
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0, brush.color().lighter(s_topPercent));
    gradient.setColorAt(1, brush.color().darker(s_bottomPercent));
    return QBrush(gradient);
}
