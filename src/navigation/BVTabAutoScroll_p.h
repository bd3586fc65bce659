// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPoint>

class BVTabBarGeometry;
class BVTabHover;
class BVTabPress;
class QWidget;

/// Scrolls the tabs while the button is held on an arrow or dragged past an end of the bar.
class BVTabAutoScroll : public QObject
{
public:
    BVTabAutoScroll(QWidget *bar, BVTabBarGeometry *geometry, BVTabHover *hover, BVTabPress *press);

    /// Whether the press was on an arrow, which then scrolls until stop().
    bool pressArrow(const QPoint &position);
    bool isOnArrow() const { return m_isOnArrow; }
    void drag(const QPoint &position);
    void stop();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void start(int direction);
    void step(int distance); // px

    QWidget *m_bar;
    BVTabBarGeometry *m_geometry;
    BVTabHover *m_hover;
    BVTabPress *m_press;
    QBasicTimer m_timer;
    int m_direction = 0; // 1 to the end, -1 to the start
    bool m_isOnArrow = false;
};
