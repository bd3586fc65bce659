// SPDX-License-Identifier: MIT
#include "controls/BVTabBar.h"

#include "foundation/BVStatusColor.h"

#include <QPainter>
#include <QWheelEvent>

namespace {

constexpr qreal s_dotRadius = 3.0; // px
constexpr int s_dotMargin = 3;     // px, to the edges of the tab

} // namespace

BVTabBar::BVTabBar(QWidget *parent)
    : QTabBar(parent)
{
    connect(this, &QTabBar::tabMoved, this, &BVTabBar::onTabMoved);
}

void BVTabBar::setTabStatus(int index, BVWidgetStatus::Stati stati)
{
    if (index < 0 || index >= m_stati.size() || m_stati.at(index) == stati)
        return;
    m_stati[index] = stati;
    update(tabRect(index));
}

BVWidgetStatus::Stati BVTabBar::tabStatus(int index) const
{
    return m_stati.value(index);
}

void BVTabBar::paintEvent(QPaintEvent *event)
{
    QTabBar::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const bool darkText = palette().color(QPalette::WindowText).lightness() < 128;
    const BVStatusColor &colors = BVStatusColor::colors();
    for (int index = 0; index < m_stati.size(); ++index) {
        const auto status = BVWidgetStatus::getDominantStatusFromFlag(m_stati.at(index));
        if (status == BVWidgetStatus::Normal)
            continue;
        const QRectF tab =
            tabRect(index).adjusted(s_dotMargin, s_dotMargin, -s_dotMargin, -s_dotMargin);
        const qreal x = layoutDirection() == Qt::LeftToRight ? tab.right() - s_dotRadius
                                                             : tab.left() + s_dotRadius;
        painter.setBrush(darkText ? colors.forLightBackground(status)
                                  : colors.forDarkBackground(status));
        painter.drawEllipse(QPointF(x, tab.top() + s_dotRadius), s_dotRadius, s_dotRadius);
    }
}

void BVTabBar::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QTabBar::wheelEvent(event);
    else
        event->ignore();
}

void BVTabBar::tabInserted(int index)
{
    m_stati.insert(index, BVWidgetStatus::Normal);
    QTabBar::tabInserted(index);
}

void BVTabBar::tabRemoved(int index)
{
    m_stati.remove(index);
    QTabBar::tabRemoved(index);
}

void BVTabBar::onTabMoved(int from, int to)
{
    m_stati.move(from, to);
}
