// SPDX-License-Identifier: MIT
#include "units/BVSliderPainter_p.h"

#include "foundation/BVStatusColor.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QWidget>

#include <tuple>

namespace {

constexpr double s_grooveShare = 0.16; // of the text colour in the groove
constexpr double s_outlineShare = 0.5; // of the text colour in the outline
constexpr double s_tintShare = 0.6;    // of the tint in the admissible part of the groove
constexpr double s_offShare = 0.35;    // of the tint in what takes no input
constexpr int s_middleLightness = 128; // of a window between dark and light
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

QColor groundOf(const QPalette &palette)
{
    return mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText),
                 s_grooveShare);
}

QColor colorOf(BVWidgetStatus::Status status, bool onDark)
{
    const BVStatusColor &colors = BVStatusColor::colors();
    return onDark ? colors.forDarkBackground(status) : colors.forLightBackground(status);
}

} // namespace

void BVSliderState::setColors(const QPalette &palette, BVWidgetStatus::Status status,
                              const QColor &wantedTint)
{
    const QColor &window = palette.color(QPalette::Window);
    const bool isDark = window.lightness() < s_middleLightness;
    const bool isNormal = status == BVWidgetStatus::Normal;
    outline = isNormal ? mixed(window, palette.color(QPalette::WindowText), s_outlineShare)
                       : colorOf(status, isDark);
    best = colorOf(BVWidgetStatus::Different, isDark);
    tint = wantedTint;
    if (!wantedTint.isValid() && isNormal && !isDark)
        tint = BVStatusColor::colors().forButtons(BVWidgetStatus::UserEdit, false);
    else if (!wantedTint.isValid())
        tint = isNormal ? colorOf(BVWidgetStatus::UserEdit, isDark) : outline;
    if (active)
        return;
    const QColor ground = groundOf(palette);
    outline = mixed(window, outline, s_offShare);
    for (QColor *color : {&tint, &best})
        *color = mixed(ground, *color, s_offShare);
}

BVSliderState BVSliderState::withoutValue() const
{
    BVSliderState state = *this;
    for (BVSlider::Handle *handle : {&state.focused, &state.hovered, &state.pressed}) {
        if (*handle == BVSlider::ValueHandle)
            *handle = BVSlider::NoHandle;
    }
    return state;
}

bool BVSliderState::operator==(const BVSliderState &other) const
{
    const auto fields = [](const BVSliderState &state) {
        return std::tie(state.focused, state.hovered, state.pressed, state.active, state.outline,
                        state.tint, state.best);
    };
    return fields(*this) == fields(other);
}

BVSliderPainter::BVSliderPainter(QPainter &painter, const QWidget &widget,
                                 const BVSliderScene &scene, const BVSliderState &state)
    : m_painter(painter)
    , m_widget(widget)
    , m_scene(scene)
    , m_state(state)
    , m_base(groundOf(widget.palette()))
{
    m_painter.setRenderHint(QPainter::Antialiasing);
}

void BVSliderPainter::paintDecoration()
{
    paintCurve();
    paintGroove();
    paintLines();
    paintLimit(m_scene.lowerLimit, BVSlider::LowerLimitHandle);
    paintLimit(m_scene.upperLimit, BVSlider::UpperLimitHandle);
    paintBest();
}

void BVSliderPainter::paintValue(const QStyleOptionSlider &option)
{
    const BVSliderLayout &layout = m_scene.geometry.layout();
    if (layout.dvValue && !layout.span)
        paintDVMarker(option.sliderPosition);
    else if (!layout.span)
        paintHandle(option);
}

void BVSliderPainter::paintCurve()
{
    if (m_scene.curve.isEmpty())
        return;
    const QRectF band = m_scene.geometry.band();
    QPolygonF area = m_scene.curve;
    const bool horizontal = m_scene.geometry.isHorizontal();
    for (const QPointF &end : {m_scene.curve.last(), m_scene.curve.first()})
        area << (horizontal ? QPointF(end.x(), band.center().y())
                            : QPointF(band.center().x(), end.y()));
    QColor fill = m_state.tint;
    fill.setAlpha(s_curveAlpha);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(fill);
    m_painter.drawPolygon(area);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(QPen(m_state.tint, 1.5));
    m_painter.drawPolyline(m_scene.curve);
}

void BVSliderPainter::paintGroove()
{
    const QRect band = m_scene.geometry.band();
    QPainterPath shape;
    shape.addRoundedRect(band, s_radius, s_radius);
    const QBrush base = m_scene.groove.style() == Qt::NoBrush ? QBrush(m_base) : m_scene.groove;
    m_painter.fillPath(shape, base);
    m_painter.save();
    m_painter.setClipPath(shape);
    if (m_scene.showsAdmissible) {
        QColor lines = m_state.outline;
        lines.setAlpha(s_hatchAlpha);
        m_painter.fillRect(band, QBrush(lines, Qt::BDiagPattern));
        m_painter.fillRect(m_scene.admissible, mixed(m_base, m_state.tint, s_tintShare));
    }
    for (const BVSliderScene::Stretch &marker : m_scene.markers)
        m_painter.fillRect(marker.area, marker.brush);
    m_painter.restore();
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(m_state.outline);
    m_painter.drawRoundedRect(QRectF(band).adjusted(0.5, 0.5, -0.5, -0.5), s_radius, s_radius);
}

void BVSliderPainter::paintLines()
{
    for (const QRect &line : {m_scene.lowerLine, m_scene.upperLine})
        m_painter.fillRect(line, m_state.tint);
    m_painter.fillRect(m_scene.bestLine, m_state.best);
}

QColor BVSliderPainter::handleColor(BVSlider::Handle handle) const
{
    if (m_state.pressed == handle)
        return m_state.tint.darker(s_pressedPercent);
    if (m_state.hovered == handle && m_state.active)
        return m_state.tint.lighter(s_hoverPercent);
    return m_state.tint;
}

void BVSliderPainter::paintLimit(const QPolygon &shape, BVSlider::Handle handle)
{
    if (shape.isEmpty())
        return;
    // Through the middles of the pixels, so that the upright side is one line of whole pixels.
    const QPolygonF triangle = QPolygonF(shape).translated(0.5, 0.5);
    if (m_state.focused == handle) {
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

void BVSliderPainter::paintDVMarker(int position)
{
    const BVSliderGeometry &geometry = m_scene.geometry;
    const QColor dark = mixed(m_widget.palette().color(QPalette::WindowText), m_state.tint, 0.2);
    m_painter.fillRect(geometry.dvLine(position), dark);
    const QRectF knob = QRectF(geometry.dvMarker(position)).adjusted(1, 1, -1, -1);
    const bool isFocused = m_state.focused == BVSlider::ValueHandle;
    if (isFocused) {
        m_painter.setPen(QPen(m_widget.palette().color(QPalette::WindowText), s_ringWidth));
        m_painter.setBrush(m_widget.palette().color(QPalette::Window));
        m_painter.drawEllipse(knob.adjusted(-2, -2, 2, 2));
    }
    m_painter.setPen(QPen(m_widget.palette().color(QPalette::Base), 1.5));
    m_painter.setBrush(handleColor(BVSlider::ValueHandle));
    m_painter.drawEllipse(knob);
}

void BVSliderPainter::paintHandle(const QStyleOptionSlider &option)
{
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    const auto draw = [&](QStyle::SubControl part) {
        QStyleOptionSlider drawn = option;
        m_scene.geometry.narrow(drawn);
        drawn.subControls = part;
        m_widget.style()->drawComplexControl(QStyle::CC_Slider, &drawn, &m_painter, &m_widget);
    };
    if (option.tickPosition != QSlider::NoTicks)
        draw(QStyle::SC_SliderTickmarks);
    // Some styles draw parts of the groove together with the handle.
    m_painter.setClipRect(m_scene.geometry.handleAt(option.sliderPosition));
    draw(QStyle::SC_SliderHandle);
}

void BVSliderPainter::paintBest()
{
    if (m_scene.bestShape.isEmpty())
        return;
    m_painter.setPen(m_widget.palette().color(QPalette::Window));
    m_painter.setBrush(m_state.best);
    m_painter.drawPolygon(QPolygonF(m_scene.bestShape).translated(0.5, 0.5));
}
