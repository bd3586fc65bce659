// SPDX-License-Identifier: MIT
#include "units/BVSliderGeometry_p.h"

#include <QStyleOptionSlider>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int s_marginLeft = 8;   // px, of the track in the groove
constexpr int s_marginRight = 11; // px
constexpr int s_marginExtended = 6;
constexpr int s_marginVertical = 8;
constexpr int s_bandThickness = 6; // px, at least
constexpr int s_bandThicknessExtended = 8;
constexpr int s_limitSize = 8; // px, of the triangles
constexpr int s_limitSizeExtended = 10;
constexpr int s_limitOverlap = 2;       // px, of triangle and handle
constexpr int s_dvMarkerThickness = 12; // px
constexpr int s_curveHeight = 22;       // px
constexpr int s_curveStep = 2;          // px, along
constexpr int s_bestSize = 4;           // px, half the width
constexpr int s_leastTicks = 3;         // px, from one to the next
constexpr int s_shortRange = std::numeric_limits<int>::max() / 4096;
constexpr double s_curveReach = 1e3; // deviations; further off the curve is flat anyway

int limitSize(const BVSliderLayout &layout)
{
    return layout.extended || layout.span ? s_limitSizeExtended : s_limitSize;
}

} // namespace

BVSliderGeometry::BVSliderGeometry(const BVSliderLayout &layout)
    : m_layout(layout)
{
    m_farSign = !isHorizontal() && layout.rightToLeft ? -1 : 1;
    const int first = firstAlong(layout.handleAtMinimum);
    const int last = firstAlong(layout.handleAtMaximum);
    m_trackStart = std::min(first, last);
    m_trackSpan = std::abs(last - first);
    m_handleMiddle = along(layout.handleAtMinimum.center()) - first;

    const int least = layout.extended ? s_bandThicknessExtended : s_bandThickness;
    const int thick =
        std::max(least, layout.extended ? 0 : std::min(thickness(layout.groove), least + 2));
    const int middle = (firstAcross(layout.groove) + lastAcross(layout.groove) + 1) / 2;
    m_band = rect(firstAlong(layout.groove), middle - thick / 2,
                  lastAlong(layout.groove) - firstAlong(layout.groove) + 1, thick);
}

bool BVSliderGeometry::isTooWide() const
{
    return range() > std::numeric_limits<int>::max();
}

QPoint BVSliderGeometry::point(int along, int across) const
{
    return isHorizontal() ? QPoint(along, across) : QPoint(across, along);
}

QRect BVSliderGeometry::rect(int along, int across, int length, int thickness) const
{
    return isHorizontal() ? QRect(along, across, length, thickness)
                          : QRect(across, along, thickness, length);
}

int BVSliderGeometry::firstAlong(const QRect &rect) const
{
    return isHorizontal() ? rect.left() : rect.top();
}

int BVSliderGeometry::lastAlong(const QRect &rect) const
{
    return isHorizontal() ? rect.right() : rect.bottom();
}

int BVSliderGeometry::firstAcross(const QRect &rect) const
{
    return isHorizontal() ? rect.top() : rect.left();
}

int BVSliderGeometry::lastAcross(const QRect &rect) const
{
    return isHorizontal() ? rect.bottom() : rect.right();
}

int BVSliderGeometry::thickness(const QRect &rect) const
{
    return lastAcross(rect) - firstAcross(rect) + 1;
}

int BVSliderGeometry::trackAt(int position) const
{
    const qint64 range = this->range();
    if (range == 0 || m_trackSpan == 0)
        return 0;
    const qint64 bounded = qBound(m_layout.minimum, position, m_layout.maximum);
    const qint64 distance =
        m_layout.upsideDown ? m_layout.maximum - bounded : bounded - m_layout.minimum;
    // So the toolkit has it: it rounds in short ranges and cuts off in long ones.
    if (range > s_shortRange && !isTooWide())
        return static_cast<int>(double(distance) / (double(range) / m_trackSpan));
    return static_cast<int>((2 * distance * m_trackSpan + range) / (2 * range));
}

int BVSliderGeometry::pixelAt(int position) const
{
    return m_trackStart + m_handleMiddle + trackAt(position);
}

void BVSliderGeometry::narrow(QStyleOptionSlider &option) const
{
    if (!isTooWide())
        return;
    const auto pixels = [this](int positions, int least) {
        const qint64 length = qint64(positions) * m_trackSpan / range();
        return length < least ? 0 : static_cast<int>(length);
    };
    option.sliderPosition = option.sliderValue = trackAt(option.sliderPosition);
    option.upsideDown = false; // trackAt() has seen to it
    option.minimum = 0;
    option.maximum = m_trackSpan;
    option.tickInterval = pixels(option.tickInterval, s_leastTicks);
    option.singleStep = qMax(1, pixels(option.singleStep, 1));
    option.pageStep = qMax(s_leastTicks, pixels(option.pageStep, 1));
}

QRect BVSliderGeometry::handleAt(int position) const
{
    QRect handle = m_layout.handleAtMinimum;
    const int first = pixelAt(position) - m_handleMiddle;
    if (isHorizontal())
        handle.moveLeft(first);
    else
        handle.moveTop(first);
    return handle;
}

int BVSliderGeometry::positionBetween(int offset, int span, bool upsideDown) const
{
    qint64 distance = 0;
    if (offset >= span)
        distance = range();
    else if (offset > 0)
        distance = (2 * qint64(offset) * range() + span) / (2 * qint64(span));
    return static_cast<int>(upsideDown ? m_layout.maximum - distance : m_layout.minimum + distance);
}

int BVSliderGeometry::positionAt(int pixel) const
{
    const int first = firstAlong(m_layout.groove);
    const int length = lastAlong(m_layout.groove) - first + 1;
    int before = m_layout.extended ? s_marginExtended : s_marginLeft;
    int behind = m_layout.extended ? s_marginExtended : s_marginRight;
    if (!isHorizontal())
        before = behind = s_marginVertical;
    const int distance = static_cast<int>(qBound<qint64>(-1, qint64(pixel) - first, length));
    const int span = length - before - behind;
    if (span <= 0) // nothing but margins
        return positionBetween(2 * distance < length ? 0 : 1, 1, m_layout.upsideDown);
    if (!isHorizontal())
        return positionBetween(distance - before, span, m_layout.upsideDown);
    // The unequal margins go with the ends of the range.
    const int fromMinimum = m_layout.upsideDown ? length - 1 - distance : distance;
    return positionBetween(fromMinimum - before, span, false);
}

int BVSliderGeometry::positionOfHandleAt(int pixel) const
{
    if (m_trackSpan == 0)
        return m_layout.upsideDown ? m_layout.maximum : m_layout.minimum;
    return positionBetween(pixel - m_trackStart, m_trackSpan, m_layout.upsideDown);
}

bool BVSliderGeometry::jumpsAt(const QPoint &point, int position) const
{
    const int reach = m_layout.extended ? handleThickness() * 3 / 2 : handleThickness();
    if (isHorizontal()) {
        const QRect shortened = m_layout.groove.adjusted(0, 0, 0, -reach);
        if (shortened.height() > 0)
            return shortened.contains(point);
    }
    // Of a thin groove nothing would be left to hit.
    const int middle = (firstAcross(m_layout.groove) + lastAcross(m_layout.groove) + 1) / 2;
    const QRect broad = rect(firstAlong(m_layout.groove), middle - reach / 2,
                             lastAlong(m_layout.groove) - firstAlong(m_layout.groove) + 1, reach);
    return broad.united(m_layout.groove).contains(point) && !handleAt(position).contains(point);
}

QRect BVSliderGeometry::stretch(int from, int to) const
{
    const int lower = std::min(from, to);
    const int upper = std::max(from, to);
    if (upper < m_layout.minimum || lower > m_layout.maximum)
        return QRect();
    int first = pixelAt(m_layout.upsideDown ? upper : lower);
    int last = pixelAt(m_layout.upsideDown ? lower : upper);
    const bool reachesMinimum = lower <= m_layout.minimum;
    const bool reachesMaximum = upper >= m_layout.maximum;
    if (m_layout.upsideDown ? reachesMaximum : reachesMinimum)
        first = firstAlong(m_band);
    if (m_layout.upsideDown ? reachesMinimum : reachesMaximum)
        last = lastAlong(m_band);
    return rect(first, firstAcross(m_band), last - first + 1, thickness(m_band));
}

QRect BVSliderGeometry::tick(int position, int width, int nearSide, int farSide) const
{
    const int before = m_farSign > 0 ? nearSide : farSide;
    return rect(pixelAt(position) - width / 2, firstAcross(m_band) - before, width,
                thickness(m_band) + nearSide + farSide);
}

int BVSliderGeometry::shapeStart() const
{
    QRect body = m_layout.handleAtMinimum;
    if (m_layout.span)
        body = m_band;
    else if (m_layout.dvValue)
        body = dvMarker(m_layout.minimum);
    const int overlap = m_layout.span ? 0 : s_limitOverlap;
    return m_farSign > 0 ? lastAcross(body) + 1 - overlap : firstAcross(body) - 1 + overlap;
}

QPolygon BVSliderGeometry::limitShape(int position, bool lower) const
{
    const int size = limitSize(m_layout);
    const int edge = m_farSign > 0 ? lastAcross(m_layout.area) : firstAcross(m_layout.area);
    int start = shapeStart();
    int end = start + far(size);
    if (far(edge - end) < 0) { // the widget is too small for all of it
        end = edge;
        start = m_farSign > 0 ? std::min(start, end - size / 2) : std::max(start, end + size / 2);
    }
    const int upright = pixelAt(position);
    const int outward = lower == m_layout.upsideDown ? 1 : -1;
    const int corner =
        qBound(firstAlong(m_layout.area), upright + outward * size, lastAlong(m_layout.area));
    return QPolygon({point(upright, start), point(upright, end), point(corner, end)});
}

QRect BVSliderGeometry::limitLine(int position) const
{
    const int end = m_farSign > 0 ? lastAcross(m_band) : firstAcross(m_band);
    return tick(position, 1, 0, std::max(0, far(shapeStart() - end)));
}

QRect BVSliderGeometry::dvMarker(int position) const
{
    const int middle = (firstAcross(m_band) + lastAcross(m_band) + 1) / 2;
    return rect(pixelAt(position) - s_dvMarkerThickness / 2, middle - s_dvMarkerThickness / 2,
                s_dvMarkerThickness, s_dvMarkerThickness);
}

QRect BVSliderGeometry::dvLine(int position) const
{
    return tick(position, 2, curveHeight(), 0);
}

int BVSliderGeometry::curveHeight() const
{
    const int free = m_farSign > 0 ? firstAcross(m_band) - firstAcross(m_layout.area)
                                   : lastAcross(m_layout.area) - lastAcross(m_band);
    return qBound(0, free - 1, s_curveHeight);
}

int BVSliderGeometry::bestTip() const
{
    const QRect body = m_layout.span || m_layout.dvValue ? m_band : m_layout.handleAtMinimum;
    const int room = 2 * s_bestSize;
    return m_farSign > 0 ? std::max(firstAcross(body), firstAcross(m_layout.area) + room)
                         : std::min(lastAcross(body), lastAcross(m_layout.area) - room);
}

QPolygon BVSliderGeometry::bestShape(int position) const
{
    const int tip = bestTip();
    const int middle = pixelAt(position);
    return QPolygon({point(middle, tip), point(middle - s_bestSize, tip - far(s_bestSize)),
                     point(middle, tip - far(2 * s_bestSize)),
                     point(middle + s_bestSize, tip - far(s_bestSize))});
}

QRect BVSliderGeometry::bestLine(int position) const
{
    const int start = m_farSign > 0 ? firstAcross(m_band) : lastAcross(m_band);
    return tick(position, 1, std::max(0, far(start - bestTip())), 0);
}

QPolygonF BVSliderGeometry::curve(double mean, double deviation) const
{
    const int foot = m_farSign > 0 ? firstAcross(m_band) : lastAcross(m_band) + 1;
    const double height = curveHeight();
    const auto range = static_cast<double>(this->range());
    QPolygonF points;
    points.reserve(m_trackSpan / s_curveStep + 2);
    for (int pixel = 0; pixel < m_trackSpan + s_curveStep; pixel += s_curveStep) {
        const double part = m_trackSpan > 0 ? std::min(1.0, double(pixel) / m_trackSpan) : 0.5;
        const double position = m_layout.minimum + range * (m_layout.upsideDown ? 1 - part : part);
        const double away = qBound(-s_curveReach, (position - mean) / deviation, s_curveReach);
        const double across = foot - far(1) * height * std::exp(-away * away / 2);
        const double along = m_trackStart + m_handleMiddle + std::min(pixel, m_trackSpan) + 0.5;
        points << (isHorizontal() ? QPointF(along, across) : QPointF(across, along));
    }
    return points;
}

int BVSliderGeometry::handleThickness() const
{
    return thickness(m_layout.handleAtMinimum);
}

int BVSliderGeometry::roomForLimits() const
{
    return std::max(limitSize(m_layout), 2 * s_bestSize) + 1;
}

int BVSliderGeometry::roomForCurve() const
{
    return s_curveHeight + thickness(m_band) / 2 + 1;
}
