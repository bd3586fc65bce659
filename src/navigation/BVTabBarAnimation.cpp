// SPDX-License-Identifier: MIT
#include "navigation/BVTabBarAnimation_p.h"

#include <QStyle>
#include <QTimerEvent>
#include <QWidget>

#include <algorithm>

namespace {

constexpr int s_longestDuration = 120; // ms
constexpr int s_stepInterval = 16;     // ms, as often as most screens show a picture

} // namespace

BVTabBarAnimation::BVTabBarAnimation(QWidget *bar)
    : m_bar(bar)
{
}

int BVTabBarAnimation::duration() const
{
    const QStyle *style = m_bar->style();
    if (!m_bar->isVisible() || style->styleHint(QStyle::SH_Widget_Animate, nullptr, m_bar) == 0)
        return 0;
    return std::min(s_longestDuration,
                    style->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, m_bar));
}

void BVTabBarAnimation::start(int tab, Look look, bool on)
{
    if (tab < 0 || duration() <= 0)
        return;
    const auto isSame = [=](const Fade &fade) { return fade.m_tab == tab && fade.m_look == look; };
    const auto known = std::find_if(m_fades.begin(), m_fades.end(), isSame);
    if (known != m_fades.end())
        known->m_on = on;
    else
        m_fades.append({tab, look, on, on ? 0.0 : 1.0});
    if (m_timer.isActive())
        return;
    m_sinceStep.start();
    m_timer.start(s_stepInterval, this);
}

double BVTabBarAnimation::strength(int tab, Look look, bool on) const
{
    for (const Fade &fade : m_fades) {
        if (fade.m_tab == tab && fade.m_look == look)
            return fade.m_strength;
    }
    return on ? 1.0 : 0.0;
}

void BVTabBarAnimation::timerEvent(QTimerEvent * /*event*/)
{
    const int whole = duration();
    const double step = whole > 0 ? double(m_sinceStep.restart()) / whole : 1.0;
    for (Fade &fade : m_fades)
        fade.m_strength = qBound(0.0, fade.m_strength + (fade.m_on ? step : -step), 1.0);
    const auto hasArrived = [](const Fade &fade) {
        return fade.m_strength == (fade.m_on ? 1.0 : 0.0);
    };
    m_fades.erase(std::remove_if(m_fades.begin(), m_fades.end(), hasArrived), m_fades.end());
    if (m_fades.isEmpty())
        m_timer.stop();
    m_bar->update();
}
