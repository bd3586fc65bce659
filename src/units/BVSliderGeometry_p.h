// SPDX-License-Identifier: MIT
#pragma once

#include <QPolygon>
#include <QPolygonF>
#include <QRect>

class QStyleOptionSlider;

/// What all shapes of a slider follow from.
struct BVSliderLayout
{
    QRect area;   // of the widget
    QRect groove; // as the style has it, like the next two
    QRect handleAtMinimum;
    QRect handleAtMaximum;
    int minimum = 0;
    int maximum = 0;
    Qt::Orientation orientation = Qt::Horizontal;
    bool upsideDown = false; // positions grow against the pixels
    bool rightToLeft = false;
    bool extended = false;
    bool dvValue = false;
    bool span = false;
};

/// The shapes of a slider and the way between pixels and positions: one computation for hit tests
/// and painting, a pure function of the layout.
///
/// "Along" is the axis of the slider, "across" the other, both in pixels of the widget; the limit
/// handles stand on the far side of the groove, below or to the right, curve and best value on the
/// near side.
class BVSliderGeometry
{
public:
    explicit BVSliderGeometry(const BVSliderLayout &layout);

    const BVSliderLayout &layout() const { return m_layout; }
    bool isHorizontal() const { return m_layout.orientation == Qt::Horizontal; }
    int along(const QPoint &point) const { return isHorizontal() ? point.x() : point.y(); }

    /// Whether the toolkit's arithmetic does not reach from one end of the range to the other.
    bool isTooWide() const;
    /// Gives the style a range of pixels in place of one that is too wide, with the same picture.
    void narrow(QStyleOptionSlider &option) const;

    /// The middle of the style's handle, along the slider.
    int pixelAt(int position) const;
    /// The style's handle.
    QRect handleAt(int position) const;
    /// What a press along the slider stands for.
    int positionAt(int pixel) const;
    /// Where the toolkit takes a handle whose begin is dragged to @p pixel.
    int positionOfHandleAt(int pixel) const;
    /// Whether a press there jumps, the handle being at @p position.
    bool jumpsAt(const QPoint &point, int position) const;

    /// The groove as it is painted.
    QRect band() const { return m_band; }
    /// The part of the band between two positions; up to the ends of the band for the ends of the
    /// range.
    QRect stretch(int from, int to) const;
    /// A line of @p width pixels across the band at a position, longer by the given pixels.
    QRect tick(int position, int width, int nearSide, int farSide) const;
    /// The triangle of a limit: upright at its position, pointing away from the other limit.
    QPolygon limitShape(int position, bool lower) const;
    /// The line across the band to that triangle.
    QRect limitLine(int position) const;
    /// The marker that a design-variable slider has for a handle.
    QRect dvMarker(int position) const;
    /// The line from it to the top of the curve.
    QRect dvLine(int position) const;
    /// The diamond of the best value, and the line across the band to it.
    QPolygon bestShape(int position) const;
    QRect bestLine(int position) const;
    /// A Gaussian curve from one end of the band to the other, ends included.
    QPolygonF curve(double mean, double deviation) const;

    /// The style's handle, across.
    int handleThickness() const;
    /// How many pixels the shapes want: limits and best value beyond the handle, on each side; the
    /// curve from the middle of the groove.
    int roomForLimits() const;
    int roomForCurve() const;

private:
    qint64 range() const { return qint64(m_layout.maximum) - m_layout.minimum; }
    int trackAt(int position) const;
    int positionBetween(int offset, int span, bool upsideDown) const;
    QPoint point(int along, int across) const;
    QRect rect(int along, int across, int length, int thickness) const;
    int firstAlong(const QRect &rect) const;
    int lastAlong(const QRect &rect) const;
    int firstAcross(const QRect &rect) const;
    int lastAcross(const QRect &rect) const;
    int thickness(const QRect &rect) const;
    int far(int pixels) const { return m_farSign * pixels; }
    int shapeStart() const;
    int curveHeight() const;
    int bestTip() const;

    BVSliderLayout m_layout;
    int m_farSign = 1;      // across, from the groove to the limit handles
    int m_trackStart = 0;   // along, begin of the handle at its lowest pixel
    int m_trackSpan = 0;    // along, how far the handle moves
    int m_handleMiddle = 0; // along, from the begin of the handle to its middle
    QRect m_band;
};
