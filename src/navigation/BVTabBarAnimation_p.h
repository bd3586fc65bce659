// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QVector>

class QWidget;

/// Fades the looks of a bar's tabs in and out; its timer runs only while a fade is under way.
class BVTabBarAnimation : public QObject
{
public:
    enum Look { Hovered, Current, Present };

    /// Updates @p bar, which outlives the animation, with each step.
    explicit BVTabBarAnimation(QWidget *bar);

    /// The look of the tab with this id has been switched. Nothing moves on a hidden bar or where
    /// the style has animations off.
    void start(int tab, Look look, bool on);
    /// How far the look is faded in, from 0 to 1, given whether it is on.
    double strength(int tab, Look look, bool on) const;
    bool isMoving() const { return m_timer.isActive(); }

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    struct Fade
    {
        int m_tab;
        Look m_look;
        bool m_on;
        double m_strength;
    };
    int duration() const;

    QWidget *m_bar;
    QBasicTimer m_timer;
    QElapsedTimer m_sinceStep;
    QVector<Fade> m_fades; // under way
};
