// SPDX-License-Identifier: MIT
#include "navigation/BVTabPress_p.h"

#include "platform/WidgetTrackerSingleton.h"

#include "navigation/BVAnimatedTabBar.h"
#include "navigation/BVTabBarGeometry_p.h"

#include <QMenu>
#include <QTimerEvent>

#include <utility>

using BVTabBarLayout::Part;

namespace {

constexpr int s_menuDelay = 100; // ms

QString clickRecord(int index, const BVTab &tab, bool isClosePressed)
{
    QString record = QLatin1String("TAB CLICKED\n\nTab: ") + tab.m_text +
                     QLatin1String("\nIndex: ") + QString::number(index);
    if (isClosePressed)
        record += QLatin1String("\nCloseButton: Pressed");
    else if (tab.m_state.testFlag(BVTab::MenuPressed))
        record += QLatin1String("\nMenuButton: Pressed");
    return record;
}

} // namespace

BVTabPress::BVTabPress(BVAnimatedTabBar *bar, BVTabList *tabs, const BVTabBarGeometry *geometry)
    : m_bar(bar)
    , m_tabs(tabs)
    , m_geometry(geometry)
{
}

void BVTabPress::press(const QPoint &position)
{
    const BVTabBarLayout::Hit hit = BVTabBarLayout::hitAt(m_geometry->layout(), position);
    m_pressed = m_tabs->idAt(hit.m_index);
    if (m_pressed < 0)
        return;
    if (hit.m_index == m_tabs->current())
        pressCurrent(hit);
    else if (m_tabs->at(hit.m_index).isEnabled())
        select(hit);
}

void BVTabPress::select(const BVTabBarLayout::Hit &hit)
{
    const int tab = m_pressed;
    const QPointer<BVAnimatedTabBar> bar = m_bar;
    m_bar->setCurrentIndex(hit.m_index);
    if (bar && hit.m_part == Part::CloseButton)
        setState(tab, BVTab::ClosePressed, true);
}

void BVTabPress::pressCurrent(const BVTabBarLayout::Hit &hit)
{
    if (hit.m_part == Part::CloseButton) {
        setState(m_pressed, BVTab::ClosePressed, true);
    } else if (hit.m_part == Part::MenuButton && !m_isMenuOpen) { // not the press that closes it
        m_menuTab = m_pressed;
        m_menuDelay.start(s_menuDelay, this);
        setState(m_menuTab, BVTab::MenuPressed, true);
        m_bar->repaint();
    }
}

void BVTabPress::release(const QPoint &position)
{
    const int tab = std::exchange(m_pressed, -1);
    const BVTabBarLayout::Hit hit = BVTabBarLayout::hitAt(m_geometry->layout(), position);
    const bool isOnCurrent = hit.m_index >= 0 && hit.m_index == m_tabs->current();
    if (tab >= 0 && isOnCurrent && m_tabs->idAt(hit.m_index) == tab)
        click(hit, hit.m_part == Part::CloseButton);
    else
        letGo(tab);
}

void BVTabPress::cancel()
{
    letGo(std::exchange(m_pressed, -1));
}

/// The press on the tab has come to nothing.
void BVTabPress::letGo(int tab)
{
    if (tab < 0)
        return;
    m_menuDelay.stop();
    lift(tab);
}

void BVTabPress::click(const BVTabBarLayout::Hit &hit, bool closes)
{
    const BVTab &tab = m_tabs->at(hit.m_index);
    const int id = tab.m_id;
    const QString record =
        clickRecord(hit.m_index, tab, closes || tab.m_state.testFlag(BVTab::ClosePressed));
    const QPointer<BVAnimatedTabBar> bar = m_bar;
    if (closes)
        Q_EMIT m_bar->closeButtonClicked(hit.m_index);
    if (bar)
        lift(id);
    WidgetTrackerSingleton::getInstance().track(record);
}

void BVTabPress::lift(int tab)
{
    setState(tab, BVTab::ClosePressed, false);
    if (!isMenuPending())
        setState(tab, BVTab::MenuPressed, false);
}

void BVTabPress::setState(int tab, BVTab::State state, bool on)
{
    BVTab *found = m_tabs->find(m_tabs->indexOf(tab));
    if (!found || found->m_state.testFlag(state) == on)
        return;
    found->m_state.setFlag(state, on);
    m_bar->update();
}

void BVTabPress::timerEvent(QTimerEvent * /*event*/)
{
    m_menuDelay.stop();
    if (m_tabs->indexOf(m_menuTab) == m_tabs->current())
        requestMenu();
    else
        setState(m_menuTab, BVTab::MenuPressed, false); // the user has gone on
}

void BVTabPress::askForMenu(int index)
{
    const BVTab *tab = m_tabs->find(index);
    if (!tab || !tab->m_state.testFlag(BVTab::HasMenuButton) || m_isMenuOpen)
        return;
    m_menuDelay.stop();
    m_menuTab = tab->m_id;
    setState(m_menuTab, BVTab::MenuPressed, true);
    requestMenu();
}

void BVTabPress::requestMenu()
{
    const int index = m_tabs->indexOf(m_menuTab);
    if (index < 0)
        return;
    const int tab = m_menuTab;
    const QPointer<BVAnimatedTabBar> bar = m_bar;
    Q_EMIT m_bar->menuButtonClicked(index);
    if (bar && m_pressed != tab && !isMenuPending())
        setState(tab, BVTab::MenuPressed, false); // nobody has opened a menu
}

void BVTabPress::showMenu(int index, QMenu *menu)
{
    const BVTab *tab = m_tabs->find(index);
    if (!tab || !tab->m_state.testFlag(BVTab::HasMenuButton) || m_isMenuOpen)
        return;
    const int id = tab->m_id;
    m_menuDelay.stop();
    m_menuTab = id;
    m_isMenuOpen = true;
    m_menu = menu;
    setState(id, BVTab::MenuPressed, true);
    endHeldPress(index);
    const QPointer<BVAnimatedTabBar> bar = m_bar;
    menu->exec(menuCorner(index, menu->sizeHint().width()));
    if (bar)
        menuClosed(id);
}

void BVTabPress::menuClosed(int tab)
{
    m_menu = nullptr;
    m_isMenuOpen = false;
    m_menuTab = -1;
    setState(tab, BVTab::MenuPressed, false);
}

/// While a menu is open, the release of the button that asked for it does not come to the bar.
void BVTabPress::endHeldPress(int index)
{
    if (m_pressed != m_menuTab)
        return;
    m_pressed = -1;
    WidgetTrackerSingleton::getInstance().track(clickRecord(index, m_tabs->at(index), false));
}

QPoint BVTabPress::menuCorner(int index, int menuWidth) const
{
    const QRect button = m_geometry->layout().m_places.at(index).m_menuButton.boundingRect();
    const int x = m_bar->isRightToLeft() ? button.right() - menuWidth : button.left();
    return m_bar->mapToGlobal(QPoint(x, button.bottom()));
}

void BVTabPress::forgetGoneTabs()
{
    if (m_pressed >= 0 && m_tabs->indexOf(m_pressed) < 0)
        m_pressed = -1;
    if (m_menuTab < 0 || m_tabs->indexOf(m_menuTab) >= 0)
        return;
    m_menuDelay.stop();
    if (m_menu)
        m_menu->close();
}
