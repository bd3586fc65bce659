// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/BVTabBarLayout_p.h"

#include <QBasicTimer>
#include <QObject>
#include <QPoint>

class BVAnimatedTabBar;
class BVTabBarAnimation;
class BVTabBarGeometry;
class BVTabList;

/// What the pointer is over, and the tool tip that comes after a while.
class BVTabHover : public QObject
{
public:
    BVTabHover(BVAnimatedTabBar *bar, const BVTabList *tabs, const BVTabBarGeometry *geometry,
               BVTabBarAnimation *animation);

    void move(const QPoint &position);
    void leave();
    /// Another tab is hovered; -1 for none.
    void setIndex(int index);
    int index() const;
    BVTabBarLayout::Part part() const { return m_part; }
    /// Once control is back in the event loop, sees which tab has come to be under the pointer.
    void correctHoveringState();
    void showToolTip();
    /// The user does something; no tool tip until the pointer comes to another tab.
    void cancelToolTip();
    QString toolTip(int index) const;

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void follow();
    void waitForToolTip();
    void hideToolTip();
    bool mayShowToolTip() const;

    BVAnimatedTabBar *m_bar;
    const BVTabList *m_tabs;
    const BVTabBarGeometry *m_geometry;
    BVTabBarAnimation *m_animation;
    QBasicTimer m_toolTipTimer;
    QBasicTimer m_correction;
    QPoint m_position; // of the pointer
    bool m_isInside = false;
    bool m_hasMoved = false; // since the user did something else
    bool m_showsToolTip = false;
    int m_tab = -1; // the hovered tab's id
    BVTabBarLayout::Part m_part = BVTabBarLayout::Part::None;
};
