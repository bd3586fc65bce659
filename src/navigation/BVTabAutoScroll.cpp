// SPDX-License-Identifier: MIT
#include "navigation/BVTabAutoScroll_p.h"

#include "navigation/BVTabBarGeometry_p.h"
#include "navigation/BVTabHover_p.h"
#include "navigation/BVTabPress_p.h"

#include <QTimerEvent>
#include <QWidget>

using BVTabBarLayout::Part;

namespace {

constexpr int s_interval = 16; // ms
constexpr int s_distance = 9;  // px per interval
constexpr int s_jump = 45;     // px for the press on an arrow itself

/// The room between the arrows. At the edge of a screen there is nothing beyond them to drag to.
QRect innerArea(const BVTabBarLayout::Result &layout)
{
    QRect area = layout.m_area;
    for (const QRect &arrow : {layout.m_backArrow, layout.m_forwardArrow}) {
        if (!arrow.isEmpty() && arrow.left() == area.left())
            area.setLeft(arrow.right() + 1);
        else if (!arrow.isEmpty())
            area.setRight(arrow.left() - 1);
    }
    return area;
}

} // namespace

BVTabAutoScroll::BVTabAutoScroll(QWidget *bar, BVTabBarGeometry *geometry, BVTabHover *hover,
                                 BVTabPress *press)
    : m_bar(bar)
    , m_geometry(geometry)
    , m_hover(hover)
    , m_press(press)
{
}

bool BVTabAutoScroll::pressArrow(const QPoint &position)
{
    const Part part = BVTabBarLayout::hitAt(m_geometry->layout(), position).m_part;
    m_isOnArrow = part == Part::BackArrow || part == Part::ForwardArrow;
    if (m_isOnArrow)
        start(part == Part::ForwardArrow ? 1 : -1);
    return m_isOnArrow;
}

void BVTabAutoScroll::drag(const QPoint &position)
{
    if (m_isOnArrow)
        return;
    const QRect area = innerArea(m_geometry->layout());
    const int side = position.x() < area.left() ? -1 : int(position.x() > area.right());
    if (side == 0)
        m_timer.stop();
    else
        start(m_bar->isRightToLeft() ? -side : side);
}

void BVTabAutoScroll::stop()
{
    m_timer.stop();
    m_isOnArrow = false;
}

void BVTabAutoScroll::start(int direction)
{
    if (m_timer.isActive() && direction == m_direction)
        return;
    m_direction = direction;
    m_timer.start(s_interval, this);
    step(m_isOnArrow ? s_jump : s_distance);
}

void BVTabAutoScroll::step(int distance)
{
    if (!m_geometry->scrollBy(m_direction * distance)) {
        m_timer.stop();
        return;
    }
    m_press->keepView();
    m_hover->correctHoveringState();
    m_bar->update();
}

void BVTabAutoScroll::timerEvent(QTimerEvent * /*event*/)
{
    step(s_distance);
}
