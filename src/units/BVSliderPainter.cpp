// SPDX-License-Identifier: MIT
#include "units/BVSliderPainter_p.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QWidget>

namespace {

constexpr double s_grooveShare = 0.16; // of the text colour in the groove
constexpr double s_outlineShare = 0.5; // of the text colour in the outline
constexpr double s_tintShare = 0.6;    // of the tint in the admissible part of the groove
constexpr double s_offShare = 0.35;    // of the tint in what takes no input
constexpr int s_hatchAlpha = 90;       // of the lines over the inadmissible parts
constexpr int s_curveAlpha = 60;       // of the area under the curve
constexpr double s_radius = 2.0;       // px, of the ends of the groove
constexpr int s_hoverPercent = 125;    // lighter
constexpr int s_pressedPercent = 130;  // darker
constexpr double s_ringWidth = 2.0;    // px, around the handle that has the focus

/// @p share of @p top over @p bottom.
QColor mixed(const QColor &bottom, const QColor &top, double share)
{
    const auto mix = [share](double below, double above) {
        return below + (above - below) * share;
    };
    return QColor::fromRgbF(mix(bottom.redF(), top.redF()), mix(bottom.greenF(), top.greenF()),
                            mix(bottom.blueF(), top.blueF()));
}

} // namespace

BVSliderPainter::BVSliderPainter(QPainter &painter, const QWidget &widget,
                                 const BVSliderScene &scene)
    : m_painter(painter)
    , m_widget(widget)
    , m_scene(scene)
{
    const QColor window = widget.palette().color(QPalette::Window);
    const QColor text = widget.palette().color(QPalette::WindowText);
    m_base = mixed(window, text, s_grooveShare);
    m_outline = scene.outline.isValid() ? scene.outline : mixed(window, text, s_outlineShare);
    m_tint = scene.tint;
    m_best = scene.best;
    if (!scene.active) {
        m_outline = mixed(window, m_outline, s_offShare);
        m_tint = mixed(m_base, m_tint, s_offShare);
        m_best = mixed(m_base, m_best, s_offShare);
    }
}

void BVSliderPainter::paint()
{
    paintTickMarks();
    m_painter.setRenderHint(QPainter::Antialiasing);
    paintCurve();
    paintGroove();
    paintLines();
    const bool isSpan = m_scene.geometry->layout().span;
    const bool isDVValue = m_scene.geometry->layout().dvValue && !isSpan;
    if (isDVValue)
        paintDVMarker();
    else if (!isSpan)
        paintHandle();
    paintLimit(m_scene.lowerLimit, BVSlider::LowerLimitHandle);
    paintLimit(m_scene.upperLimit, BVSlider::UpperLimitHandle);
    paintBest();
}

void BVSliderPainter::paintCurve()
{
    if (m_scene.curve.isEmpty())
        return;
    const QRectF band = m_scene.geometry->band();
    QPolygonF area = m_scene.curve;
    const bool horizontal = m_scene.geometry->isHorizontal();
    for (const QPointF &end : {m_scene.curve.last(), m_scene.curve.first()})
        area << (horizontal ? QPointF(end.x(), band.center().y())
                            : QPointF(band.center().x(), end.y()));
    QColor fill = m_tint;
    fill.setAlpha(s_curveAlpha);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(fill);
    m_painter.drawPolygon(area);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(QPen(m_tint, 1.5));
    m_painter.drawPolyline(m_scene.curve);
}

void BVSliderPainter::paintGroove()
{
    const QRect band = m_scene.geometry->band();
    QPainterPath shape;
    shape.addRoundedRect(band, s_radius, s_radius);
    const QBrush base = m_scene.groove.style() == Qt::NoBrush ? QBrush(m_base) : m_scene.groove;
    m_painter.fillPath(shape, base);
    m_painter.save();
    m_painter.setClipPath(shape);
    if (m_scene.showsAdmissible) {
        QColor lines = m_outline;
        lines.setAlpha(s_hatchAlpha);
        m_painter.fillRect(band, QBrush(lines, Qt::BDiagPattern));
        m_painter.fillRect(m_scene.admissible, mixed(m_base, m_tint, s_tintShare));
    }
    for (const BVSliderScene::Stretch &marker : m_scene.markers)
        m_painter.fillRect(marker.area, marker.brush);
    m_painter.restore();
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(m_outline);
    m_painter.drawRoundedRect(QRectF(band).adjusted(0.5, 0.5, -0.5, -0.5), s_radius, s_radius);
}

void BVSliderPainter::paintLines()
{
    for (const QRect &line : {m_scene.lowerLine, m_scene.upperLine})
        m_painter.fillRect(line, m_tint);
    m_painter.fillRect(m_scene.bestLine, m_best);
}

QColor BVSliderPainter::handleColor(BVSlider::Handle handle) const
{
    if (m_scene.pressed == handle)
        return m_tint.darker(s_pressedPercent);
    if (m_scene.hovered == handle && m_scene.active)
        return m_tint.lighter(s_hoverPercent);
    return m_tint;
}

void BVSliderPainter::paintLimit(const QPolygon &shape, BVSlider::Handle handle)
{
    if (shape.isEmpty())
        return;
    // Through the middles of the pixels, so that the upright side is one line of whole pixels.
    const QPolygonF triangle = QPolygonF(shape).translated(0.5, 0.5);
    if (m_scene.focused == handle) {
        m_painter.setBrush(Qt::NoBrush);
        m_painter.setPen(QPen(m_widget.palette().color(QPalette::WindowText), 1 + 2 * s_ringWidth,
                              Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_painter.drawPolygon(triangle);
        m_painter.setPen(QPen(m_widget.palette().color(QPalette::Window), 1 + s_ringWidth,
                              Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_painter.drawPolygon(triangle);
    }
    const QColor color = handleColor(handle);
    m_painter.setPen(QPen(color, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.setBrush(color);
    m_painter.drawPolygon(triangle);
}

void BVSliderPainter::paintDVMarker()
{
    const BVSliderGeometry &geometry = *m_scene.geometry;
    const int position = m_scene.handle.sliderPosition;
    const QColor dark = mixed(m_widget.palette().color(QPalette::WindowText), m_tint, 0.2);
    m_painter.fillRect(geometry.dvLine(position), dark);
    const QRectF knob = QRectF(geometry.dvMarker(position)).adjusted(1, 1, -1, -1);
    const bool isFocused = m_scene.focused == BVSlider::ValueHandle;
    if (isFocused) {
        m_painter.setPen(QPen(m_widget.palette().color(QPalette::WindowText), s_ringWidth));
        m_painter.setBrush(m_widget.palette().color(QPalette::Window));
        m_painter.drawEllipse(knob.adjusted(-2, -2, 2, 2));
    }
    m_painter.setPen(QPen(m_widget.palette().color(QPalette::Base), 1.5));
    m_painter.setBrush(handleColor(BVSlider::ValueHandle));
    m_painter.drawEllipse(knob);
}

void BVSliderPainter::paintTickMarks()
{
    if (m_scene.handle.tickPosition == QSlider::NoTicks)
        return;
    QStyleOptionSlider marks = m_scene.handle;
    marks.subControls = QStyle::SC_SliderTickmarks;
    m_widget.style()->drawComplexControl(QStyle::CC_Slider, &marks, &m_painter, &m_widget);
}

void BVSliderPainter::paintHandle()
{
    // Some styles draw parts of the groove together with the handle.
    m_painter.save();
    m_painter.setClipRect(m_scene.geometry->handleAt(m_scene.handle.sliderPosition));
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    m_widget.style()->drawComplexControl(QStyle::CC_Slider, &m_scene.handle, &m_painter, &m_widget);
    m_painter.restore();
}

void BVSliderPainter::paintBest()
{
    if (m_scene.bestShape.isEmpty())
        return;
    m_painter.setPen(m_widget.palette().color(QPalette::Window));
    m_painter.setBrush(m_best);
    m_painter.drawPolygon(QPolygonF(m_scene.bestShape).translated(0.5, 0.5));
}
