// SPDX-License-Identifier: MIT
#include "layout/BVResizableWidgetTextHandle.h"

#include "layout/BVHandleAccessible_p.h"
#include "layout/BVPanelGeometry_p.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int s_textMargin = 8; // px before and behind the text

bool isCorner(BVResizableWidgetHandle::Position position)
{
    const BVPanelGeometry::HandlePlace &place = BVPanelGeometry::handlePlace(position);
    return place.dragsWidth && place.dragsHeight;
}

} // namespace

BVResizableWidgetTextHandle::BVResizableWidgetTextHandle(Position position, QWidget *parent,
                                                         bool alien)
    : BVResizableWidgetHandle(position, parent, alien)
    , m_text(tr("Enlarge"))
    , m_enlargedText(tr("Restore"))
{
    takeThickness();
}

QString BVResizableWidgetTextHandle::text() const
{
    return m_text;
}

void BVResizableWidgetTextHandle::setText(const QString &text)
{
    m_text = text;
    updateText();
}

QString BVResizableWidgetTextHandle::enlargedText() const
{
    return m_enlargedText;
}

void BVResizableWidgetTextHandle::setEnlargedText(const QString &text)
{
    m_enlargedText = text;
    updateText();
}

QString BVResizableWidgetTextHandle::shownText() const
{
    return m_enlarged ? m_enlargedText : m_text;
}

void BVResizableWidgetTextHandle::onWidgedResized(bool enlarged)
{
    m_enlarged = enlarged;
    updateText();
}

void BVResizableWidgetTextHandle::updateText()
{
    updateGeometry();
    update();
    BVHandleAccessible::announceName(this);
}

void BVResizableWidgetTextHandle::updatePosition()
{
    BVResizableWidgetHandle::updatePosition();
    takeThickness();
}

void BVResizableWidgetTextHandle::takeThickness()
{
    if (isCorner(position()))
        return;
    const int thickness = qMax(s_thickness, fontMetrics().height());
    if (BVPanelGeometry::handlePlace(position()).dragsWidth)
        setFixedWidth(thickness);
    else
        setFixedHeight(thickness);
    placeAtParent();
}

QSize BVResizableWidgetTextHandle::sizeHint() const
{
    if (isCorner(position()))
        return minimumSize();
    const QSize text(fontMetrics().horizontalAdvance(shownText()) + 2 * s_textMargin,
                     qMax(s_thickness, fontMetrics().height()));
    return BVPanelGeometry::handlePlace(position()).dragsWidth ? text.transposed() : text;
}

void BVResizableWidgetTextHandle::mouseReleaseEvent(QMouseEvent *event)
{
    const bool isClick = isPressing() && !hasMoved() && event->button() == Qt::LeftButton &&
                         rect().contains(mapFromGlobal(event->globalPos()));
    BVResizableWidgetHandle::mouseReleaseEvent(event);
    if (isClick)
        Q_EMIT sigToggleRequested();
}

void BVResizableWidgetTextHandle::mouseDoubleClickEvent(QMouseEvent *event)
{
    mousePressEvent(event); // each of the two clicks acts for itself
}

void BVResizableWidgetTextHandle::changeEvent(QEvent *event)
{
    BVResizableWidgetHandle::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        takeThickness();
}

void BVResizableWidgetTextHandle::paintGrip(QPainter *painter, const QColor &color)
{
    if (isCorner(position()))
        return BVResizableWidgetHandle::paintGrip(painter, color);
    QRect area = rect();
    painter->save();
    if (BVPanelGeometry::handlePlace(position()).dragsWidth) {
        painter->translate(0, height());
        painter->rotate(-90);
        area = QRect(QPoint(0, 0), size().transposed());
    }
    painter->setPen(QColor(color.rgb())); // a text is no quieter than others
    const QString text = fontMetrics().elidedText(shownText(), Qt::ElideRight, area.width());
    painter->drawText(area, Qt::AlignCenter, text);
    painter->restore();
}
