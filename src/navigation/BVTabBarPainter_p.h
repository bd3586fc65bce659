// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/BVTabBarGradients_p.h"
#include "navigation/BVTabBarLayout_p.h"
#include "navigation/BVTab_p.h"

#include <QBrush>

class BVAnimatedTabBar;
class BVTabBarParts;
class QPainter;

/// Paints an animated tab bar; lives for one paint event.
class BVTabBarPainter
{
public:
    /// All outlive the painter.
    BVTabBarPainter(const BVAnimatedTabBar *bar, BVTabBarParts *parts, QPainter *painter);

    void paint(const QRect &clip);

private:
    void paintBackground();
    void paintBaseLine();
    void paintTab(int index);
    void paintShape(int index);
    void paintMark(int index);
    void paintStatus(int index);
    void paintContent(int index);
    void paintButtons(int index);
    void paintButton(const BVTab &tab, const QPolygon &polygon, const QString &icon, bool isHovered,
                     bool isPressed);
    void paintImage(int index);
    void paintFocus();
    void paintArrow(const QRect &rect, bool pointsLeft, bool isHovered);

    void fillCurrent(const QRect &rect, bool isDark, double strength);
    void fillShape(const QRect &rect, const QBrush &brush, double strength);
    QBrush brush(BVTabBarGradient gradient) const;
    bool isEnabled(const BVTab &tab) const;
    bool canUseButtons(int index) const;
    double contentOpacity(const BVTab &tab) const;
    QColor textColor(const BVTab &tab) const;

    const BVAnimatedTabBar *m_bar;
    BVTabBarParts *m_parts;
    QPainter *m_painter;
    const BVTabBarLayout::Result &m_layout;
};
