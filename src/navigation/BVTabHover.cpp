// SPDX-License-Identifier: MIT
#include "navigation/BVTabHover_p.h"

#include "navigation/BVAnimatedTabBar.h"
#include "navigation/BVTabBarAnimation_p.h"
#include "navigation/BVTabBarGeometry_p.h"

#include <QStyle>
#include <QTextDocument>
#include <QTimerEvent>
#include <QToolTip>

namespace {

QString below(const QString &text, const QString &toolTip)
{
    if (toolTip.isEmpty() || toolTip == text)
        return text;
    if (!Qt::mightBeRichText(toolTip) && !Qt::mightBeRichText(text))
        return text + QLatin1Char('\n') + toolTip;
    const QString lower = Qt::mightBeRichText(toolTip) ? toolTip : toolTip.toHtmlEscaped();
    return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()) + lower;
}

} // namespace

BVTabHover::BVTabHover(BVAnimatedTabBar *bar, const BVTabList *tabs,
                       const BVTabBarGeometry *geometry, BVTabBarAnimation *animation)
    : m_bar(bar)
    , m_tabs(tabs)
    , m_geometry(geometry)
    , m_animation(animation)
{
}

int BVTabHover::index() const
{
    return m_tabs->indexOf(m_tab);
}

void BVTabHover::move(const QPoint &position)
{
    m_position = position;
    m_isInside = true;
    const BVTabBarLayout::Hit hit = BVTabBarLayout::hitAt(m_geometry->layout(), position);
    if (hit.m_part != m_part)
        m_bar->update();
    m_part = hit.m_part;
    if (m_tabs->idAt(hit.m_index) != m_tab)
        m_bar->onHoveredIndexChanged(hit.m_index);
}

void BVTabHover::leave()
{
    m_isInside = false;
    m_correction.stop();
    m_part = BVTabBarLayout::Part::None;
    m_bar->onHoveredIndexChanged(-1);
}

void BVTabHover::setIndex(int index)
{
    const int tab = m_tabs->idAt(index);
    if (tab == m_tab)
        return;
    m_animation->start(m_tab, BVTabBarAnimation::Hovered, false);
    m_animation->start(tab, BVTabBarAnimation::Hovered, true);
    m_tab = tab;
    m_bar->update();
    waitForToolTip();
}

void BVTabHover::waitForToolTip()
{
    if (m_showsToolTip)
        QToolTip::hideText();
    m_showsToolTip = false;
    if (m_tab < 0 || !m_isInside)
        m_toolTipTimer.stop();
    else
        m_toolTipTimer.start(
            m_bar->style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay, nullptr, m_bar), this);
}

QString BVTabHover::toolTip(int index) const
{
    const BVTab *tab = m_tabs->find(index);
    if (!tab)
        return QString();
    return m_geometry->isShortened(index) ? below(tab->m_text, tab->m_toolTip) : tab->m_toolTip;
}

void BVTabHover::showToolTip()
{
    const QString text = toolTip(index());
    m_showsToolTip = !text.isEmpty();
    if (!m_showsToolTip)
        return;
    const QRect tab = m_bar->getTabRect(index());
    const QPoint place = m_isInside ? m_position : tab.center();
    QToolTip::showText(m_bar->mapToGlobal(place), text, m_bar, tab);
}

void BVTabHover::correctHoveringState()
{
    if (m_tab >= 0 && index() < 0)
        m_bar->onHoveredIndexChanged(-1);
    if (m_isInside && !m_correction.isActive())
        m_correction.start(0, this);
}

void BVTabHover::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_toolTipTimer.timerId()) {
        m_toolTipTimer.stop();
        m_bar->onShowToolTip();
    } else {
        m_correction.stop();
        move(m_position);
    }
}
