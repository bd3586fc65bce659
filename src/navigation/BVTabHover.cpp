// SPDX-License-Identifier: MIT
#include "navigation/BVTabHover_p.h"

#include "navigation/BVAnimatedTabBar.h"
#include "navigation/BVTabBarAnimation_p.h"
#include "navigation/BVTabBarGeometry_p.h"

#include <QApplication>
#include <QStyle>
#include <QTextDocument>
#include <QTimerEvent>
#include <QToolTip>

#include <utility>

namespace {

/// A tab's plain text with its tool tip, which may be rich, below it.
QString below(const QString &text, const QString &toolTip)
{
    const QString lower = toolTip == text ? QString() : toolTip;
    if (!Qt::mightBeRichText(lower) && !Qt::mightBeRichText(text))
        return lower.isEmpty() ? text : text + QLatin1Char('\n') + lower;
    return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()) +
           (Qt::mightBeRichText(lower) ? lower : lower.toHtmlEscaped());
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
    m_hasMoved = true;
    follow();
}

/// Sees what is under the pointer.
void BVTabHover::follow()
{
    const BVTabBarLayout::Hit hit = BVTabBarLayout::hitAt(m_geometry->layout(), m_position);
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
    hideToolTip();
    if (m_tab >= 0 && m_isInside && m_hasMoved)
        m_toolTipTimer.start(
            m_bar->style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay, nullptr, m_bar), this);
}

void BVTabHover::hideToolTip()
{
    m_toolTipTimer.stop();
    if (std::exchange(m_showsToolTip, false))
        QToolTip::hideText();
}

void BVTabHover::cancelToolTip()
{
    hideToolTip();
    m_hasMoved = false;
}

/// As the toolkit does it: in the active window, and not beside a menu.
bool BVTabHover::mayShowToolTip() const
{
    if (QApplication::activePopupWidget())
        return false;
    return m_bar->isActiveWindow() || m_bar->window()->testAttribute(Qt::WA_AlwaysShowToolTips);
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
        if (mayShowToolTip())
            m_bar->onShowToolTip();
    } else {
        m_correction.stop();
        follow();
    }
}
