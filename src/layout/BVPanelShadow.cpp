// SPDX-License-Identifier: MIT
#include "layout/BVPanelShadow_p.h"

#include <QPainter>

namespace {

constexpr int s_reach = 9;     // px from the widget to where the shadow ends
constexpr int s_sink = 2;      // px that the shadow lies lower than the widget
constexpr int s_ringAlpha = 5; // per ring; they add up towards the widget
constexpr int s_frameAlpha = 70;

} // namespace

BVPanelShadow::BVPanelShadow(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
}

void BVPanelShadow::follow(QWidget *widget)
{
    setGeometry(widget->geometry().adjusted(-s_reach, -s_reach, s_reach, s_reach + s_sink));
    stackUnder(widget);
    setVisible(!widget->isHidden());
}

void BVPanelShadow::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QRect widget = rect().adjusted(s_reach, s_reach, -s_reach, -s_reach - s_sink);
    painter.setClipRegion(QRegion(rect()) - widget);
    painter.setPen(Qt::NoPen);
    for (int ring = 1; ring < s_reach; ++ring) {
        const QRect area = widget.adjusted(-ring, -ring + s_sink, ring, ring + s_sink);
        painter.setBrush(QColor(0, 0, 0, s_ringAlpha));
        painter.drawRoundedRect(area, ring, ring);
    }
    QColor frame = palette().color(QPalette::WindowText);
    frame.setAlpha(s_frameAlpha);
    painter.setPen(frame);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(widget.adjusted(-1, -1, 0, 0));
}
