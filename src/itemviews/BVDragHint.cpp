// SPDX-License-Identifier: MIT
#include "itemviews/BVDragHint_p.h"

#include "itemviews/BVDropRules_p.h"

#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>

namespace {

constexpr int s_margin = 8;       // px, between the text's field and the edges of the band
constexpr int s_textMargin = 14;  // px, beside the text
constexpr int s_fieldAlpha = 215; // of 255

int animationDuration(const QWidget *widget)
{
    const QStyle *style = widget->style();
    return style->styleHint(QStyle::SH_Widget_Animate, nullptr, widget)
               ? style->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, widget)
               : 0;
}

} // namespace

BVDragHint::BVDragHint(QWidget *viewport)
    : m_viewport(viewport)
{
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(&m_animation, &QVariantAnimation::valueChanged, &m_animation,
                     [this](const QVariant &value) { setOpacity(value.toDouble()); });
}

BVDragHint::~BVDragHint()
{
    m_animation.disconnect();
}

QRect BVDragHint::bandRect() const
{
    const QRect area = m_viewport->rect();
    return QRect(area.left(), area.bottom() + 1 - BVDropRules::s_hintBandHeight, area.width(),
                 BVDropRules::s_hintBandHeight);
}

void BVDragHint::setText(const QString &text)
{
    if (text == m_infoText)
        return;
    m_infoText = text;
    if (!m_viewport || !hasPixmap())
        return;
    if (text.isEmpty())
        startAnimation(false);
    else
        render();
    m_viewport->update(bandRect());
}

void BVDragHint::finish()
{
    m_infoActive = false;
    startAnimation(false);
}

void BVDragHint::updateMouseOver(const QPoint &pos)
{
    const bool isOver = m_viewport && BVDropRules::isInHintBand(pos, m_viewport->height());
    if (isOver || m_infoActive) {
        m_mouseOverInfo = false;
        startAnimation(!isOver);
    }
    m_mouseOverInfo = isOver;
}

void BVDragHint::startAnimation(bool show)
{
    show = show && !m_infoText.isEmpty() && !m_mouseOverInfo;
    if (!m_viewport || (!show && !hasPixmap()))
        return;
    if (show && !hasPixmap()) {
        render();
        m_infoOpacity = 0.0;
    }
    const double end = show ? 1.0 : 0.0;
    const bool isRunning = m_animation.state() == QAbstractAnimation::Running;
    if (isRunning ? m_isShowing == show : qFuzzyCompare(m_infoOpacity + 1.0, end + 1.0))
        return;
    m_animation.stop();
    m_isShowing = show;
    if (qFuzzyCompare(m_infoOpacity + 1.0, end + 1.0))
        setOpacity(end);
    else
        animateTo(end);
}

void BVDragHint::animateTo(double opacity)
{
    {
        // It stands at its end and would tell of the new one.
        const QSignalBlocker blocker(&m_animation);
        m_animation.setDuration(animationDuration(m_viewport));
        m_animation.setStartValue(m_infoOpacity);
        m_animation.setEndValue(opacity);
    }
    m_animation.start();
}

void BVDragHint::setOpacity(double opacity)
{
    m_infoOpacity = opacity;
    if (opacity <= 0.0 && !m_isShowing)
        m_infoPixmap = QPixmap();
    if (m_viewport)
        m_viewport->update(bandRect());
}

QSize BVDragHint::pillSize(const QString &text) const
{
    const QFontMetrics metrics = m_viewport->fontMetrics();
    return QSize(metrics.horizontalAdvance(text) + 2 * s_textMargin,
                 BVDropRules::s_hintBandHeight - 2 * s_margin);
}

void BVDragHint::render()
{
    const int space = m_viewport->width() - 2 * (s_margin + s_textMargin);
    const QString shown =
        m_viewport->fontMetrics().elidedText(m_infoText, Qt::ElideRight, qMax(0, space));
    const QSize size = pillSize(shown);
    const qreal ratio = m_viewport->devicePixelRatioF();
    m_infoPixmap = QPixmap(size * ratio);
    m_infoPixmap.setDevicePixelRatio(ratio);
    m_infoPixmap.fill(Qt::transparent);
    m_renderedWidth = m_viewport->width();

    // Inverse, so that it is no row.
    QColor field = m_viewport->palette().color(QPalette::Text);
    field.setAlpha(s_fieldAlpha);
    QPainter painter(&m_infoPixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(field);
    const qreal radius = size.height() / 2.0;
    painter.drawRoundedRect(QRectF(QPointF(), size), radius, radius);
    painter.setPen(m_viewport->palette().color(QPalette::Base));
    painter.setFont(m_viewport->font());
    painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, shown);
}

void BVDragHint::paint(QPainter *painter)
{
    if (!m_viewport || !hasPixmap())
        return;
    if (m_renderedWidth != m_viewport->width())
        render();
    const QRect band = bandRect();
    const QSizeF size = QSizeF(m_infoPixmap.size()) / m_infoPixmap.devicePixelRatio();
    const qreal slide = (1.0 - m_infoOpacity) * band.height();
    const QPointF place(band.center().x() - size.width() / 2, band.top() + s_margin + slide);
    painter->save();
    painter->setOpacity(m_infoOpacity);
    painter->drawPixmap(QPointF(qRound(place.x()), place.y()), m_infoPixmap);
    painter->restore();
}
