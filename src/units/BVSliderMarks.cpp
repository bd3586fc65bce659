// SPDX-License-Identifier: MIT
#include "units/BVSliderMarks_p.h"

#include "units/BVSliderPainter_p.h"

#include <cmath>

namespace {

constexpr double s_deviations = 6.0; // in the admissible range, of the default curve

} // namespace

bool BVSliderMarks::mark(int from, int to, const QBrush &brush)
{
    if (brush.style() == Qt::NoBrush)
        return false;
    m_markers.append({qMin(from, to), qMax(from, to), brush});
    return true;
}

bool BVSliderMarks::setDistribution(double mean, double deviation)
{
    if (!std::isfinite(mean) || !std::isfinite(deviation) || !(deviation > 0))
        return false;
    m_hasDistribution = true;
    m_mean = mean;
    m_deviation = deviation;
    return true;
}

void BVSliderMarks::setBestValue(int position)
{
    m_hasBestValue = true;
    m_bestValue = position;
}

bool BVSliderMarks::isEmpty() const
{
    return m_markers.isEmpty() && !m_hasBestValue && m_groove.style() == Qt::NoBrush;
}

void BVSliderMarks::fill(BVSliderScene &scene, double lower, double upper) const
{
    const BVSliderGeometry &geometry = scene.geometry;
    const BVSliderLayout &layout = geometry.layout();
    scene.groove = m_groove;
    for (const Marker &marker : m_markers)
        scene.markers.append({geometry.stretch(marker.from, marker.to), marker.brush});
    if (m_hasBestValue && m_bestValue >= layout.minimum && m_bestValue <= layout.maximum) {
        scene.bestShape = geometry.bestShape(m_bestValue);
        scene.bestLine = geometry.bestLine(m_bestValue);
    }
    if (layout.dvValue && m_hasDistribution)
        scene.curve = geometry.curve(m_mean, m_deviation);
    else if (layout.dvValue)
        scene.curve = geometry.curve((lower + upper) / 2, qMax(1.0, upper - lower) / s_deviations);
}
