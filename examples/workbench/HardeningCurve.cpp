// SPDX-License-Identifier: MIT
#include "HardeningCurve.h"

#include <BVFormatter.h>
#include <UnitConverter.h>
#include <UnitsConfiguration.h>

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double s_maximumStrain = 0.5; // or the next round number
constexpr int s_points = 200;
constexpr int s_tick = 4;          // px, the length of a mark
constexpr int s_gap = 4;           // px, around texts
constexpr int s_strainStep = 55;   // px, at least
constexpr int s_stressStep = 28;   // px, at least
constexpr double s_curveWidth = 2; // px
constexpr double s_dot = 3.5;      // px, the radius
const QColor s_curveColor(0x2f, 0x65, 0x99);
const QString s_stressUnit = QStringLiteral("MPa");

QString number(double value)
{
    constexpr int digits = 6;
    return QString::number(value, 'g', digits);
}

QColor faded(QColor color, int alpha)
{
    color.setAlpha(alpha);
    return color;
}

} // namespace

/// Where the axes stand, and how values become places.
struct HardeningCurve::Plot
{
    QRectF area;
    AxisScale strains;
    AxisScale stresses; // in the shown unit
    QString unit;       // as shown
    double factor;      // from MPa into the shown unit

    double x(double strain) const { return area.left() + area.width() * strain / strains.end(); }
    double y(double stress) const
    {
        return area.bottom() - area.height() * stress * factor / stresses.end();
    }
    QString text(double stress) const { return BVFormatter::toString(stress, s_stressUnit); }
};

HardeningCurve::HardeningCurve(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("hardeningCurve"));
    setAccessibleName(tr("Hardening curve"));
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void HardeningCurve::setLaw(const HardeningLaw &law, double yieldStress)
{
    if (law == m_law && yieldStress == m_yieldStress)
        return;
    m_law = law;
    m_yieldStress = yieldStress;
    setAccessibleDescription(hint());
    update();
}

QString HardeningCurve::hint() const
{
    const QStringList missing = m_law.missing();
    return missing.isEmpty()
               ? QString()
               : tr("The curve needs more input: %1.").arg(missing.join(QStringLiteral(", ")));
}

QSize HardeningCurve::sizeHint() const
{
    return QSize(300, 200);
}

QSize HardeningCurve::minimumSizeHint() const
{
    return QSize(180, 130);
}

HardeningCurve::Plot HardeningCurve::plot() const
{
    double factor = 1.0;
    QString unit = UnitsConfiguration::instance().currentUnit(UnitsConfiguration::Pressure);
    if (!UnitConverter::convert(factor, s_stressUnit, unit))
        unit = s_stressUnit;
    const QFontMetrics metrics = fontMetrics();
    const int top = metrics.height() + 2 * s_gap;
    const int bottom = height() - metrics.height() - s_tick - 2 * s_gap;
    const AxisScale strains(s_maximumStrain, std::max(1, width() / s_strainStep - 1));
    const double largest =
        m_law.isComplete() ? std::max(m_law.stress(0.0), m_law.stress(strains.end())) : 1.0;
    const AxisScale stresses(largest * factor, std::max(1, (bottom - top) / s_stressStep));
    int labels = 0;
    for (int i = 0; i <= stresses.steps; ++i)
        labels = std::max(labels, metrics.horizontalAdvance(number(i * stresses.step)));
    const int left = labels + s_tick + 2 * s_gap;
    const int right = width() - metrics.horizontalAdvance(QStringLiteral("0.5")) - s_gap;
    BVFormatter::replaceSymbols(unit, false);
    return {QRectF(left + 0.5, top + 0.5, right - left, bottom - top), strains, stresses, unit,
            factor};
}

void HardeningCurve::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setRenderHint(QPainter::Antialiasing);
    if (!m_law.isComplete())
        return paintHint(painter);
    const Plot plot = this->plot();
    if (plot.area.width() < s_strainStep || plot.area.height() < s_stressStep)
        return;
    paintAxes(painter, plot);
    paintYieldStress(painter, plot);
    paintCurve(painter, plot);
    if (m_pointed >= 0.0)
        paintPointer(painter, plot);
}

void HardeningCurve::paintHint(QPainter &painter) const
{
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(rect().adjusted(s_gap, s_gap, -s_gap, -s_gap),
                     Qt::AlignCenter | Qt::TextWordWrap, hint());
}

void HardeningCurve::paintAxes(QPainter &painter, const Plot &plot) const
{
    const QColor text = palette().color(QPalette::Text);
    const QPen axis(faded(text, 160), 1);
    const QPen grid(faded(text, 35), 1);
    const QRectF &area = plot.area;
    const int line = fontMetrics().height();
    for (int i = 0; i <= plot.strains.steps; ++i) {
        const double x = std::round(plot.x(i * plot.strains.step)) + 0.5;
        painter.setPen(grid);
        painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
        painter.setPen(axis);
        painter.drawLine(QPointF(x, area.bottom()), QPointF(x, area.bottom() + s_tick));
        painter.setPen(text);
        painter.drawText(QRectF(x - 40, area.bottom() + s_tick, 80, line + s_gap), Qt::AlignCenter,
                         number(i * plot.strains.step));
    }
    for (int i = 0; i <= plot.stresses.steps; ++i) {
        const double y = std::round(area.bottom() - area.height() * i / plot.stresses.steps) - 0.5;
        painter.setPen(grid);
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
        painter.setPen(axis);
        painter.drawLine(QPointF(area.left() - s_tick, y), QPointF(area.left(), y));
        painter.setPen(text);
        painter.drawText(QRectF(0, y - line, area.left() - s_tick - s_gap, 2 * line),
                         Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter,
                         number(i * plot.stresses.step));
    }
    painter.setPen(axis);
    painter.drawLine(area.topLeft(), area.bottomLeft());
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    painter.setPen(text);
    painter.drawText(QRectF(s_gap, 0, area.right(), area.top() - s_gap),
                     Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter,
                     tr("Stress \u03c3 [%1]").arg(plot.unit));
    painter.drawText(QRectF(area.left(), area.bottom() - line - s_gap, area.width() - s_gap, line),
                     Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter,
                     tr("Plastic strain \u03b5"));
}

void HardeningCurve::paintYieldStress(QPainter &painter, const Plot &plot) const
{
    const double y = plot.y(m_yieldStress);
    if (m_yieldStress == FieldValues::noValue() || y < plot.area.top())
        return;
    const QColor color = faded(palette().color(QPalette::Text), 160);
    painter.setPen(QPen(color, 1, Qt::DashLine));
    painter.drawLine(QPointF(plot.area.left(), y), QPointF(plot.area.right(), y));
    painter.setPen(color);
    painter.drawText(QRectF(plot.area.left(), y - 31, plot.area.width() - s_gap, 30),
                     Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignBottom,
                     tr("Yield stress \u03c3\u2080 = %1").arg(plot.text(m_yieldStress)));
}

void HardeningCurve::paintCurve(QPainter &painter, const Plot &plot) const
{
    QPainterPath path;
    for (const QPointF &point : m_law.curve(plot.strains.end(), s_points)) {
        const QPointF place(plot.x(point.x()), plot.y(point.y()));
        path.elementCount() == 0 ? path.moveTo(place) : path.lineTo(place);
    }
    painter.setPen(QPen(s_curveColor, s_curveWidth));
    painter.drawPath(path);
}

void HardeningCurve::paintPointer(QPainter &painter, const Plot &plot) const
{
    const double stress = m_law.stress(m_pointed);
    const QColor color = s_curveColor;
    painter.setPen(QPen(palette().color(QPalette::Base), 1));
    painter.setBrush(color);
    painter.drawEllipse(QPointF(plot.x(m_pointed), plot.y(stress)), s_dot, s_dot);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRectF(0, 0, plot.area.right(), plot.area.top() - s_gap),
                     Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter,
                     QStringLiteral("\u03b5 = %1, \u03c3 = %2")
                         .arg(QString::number(m_pointed, 'f', 3), plot.text(stress)));
}

void HardeningCurve::mouseMoveEvent(QMouseEvent *event)
{
    const Plot plot = this->plot();
    const double x = event->localPos().x();
    const bool isInside = x >= plot.area.left() && x <= plot.area.right();
    m_pointed = isInside ? plot.strains.end() * (x - plot.area.left()) / plot.area.width() : -1.0;
    update();
}

void HardeningCurve::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    m_pointed = -1.0;
    update();
}
