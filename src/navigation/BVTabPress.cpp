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

BVTabPress::BVTabPress(BVAnimatedTabBar *bar, BVTabList *tabs, BVTabBarGeometry *geometry)
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
    m_hasSelected = true;
    m_bar->setCurrentIndex(hit.m_index);
    if (bar && m_pressed == tab && hit.m_part == Part::CloseButton)
        setState(tab, BVTab::ClosePressed, true);
}

void BVTabPress::pressCurrent(const BVTabBarLayout::Hit &hit)
{
    if (hit.m_part == Part::CloseButton) {
        setState(m_pressed, BVTab::ClosePressed, true);
    } else if (hit.m_part == Part::MenuButton && !m_isMenuOpen) { // not the press that closes it
        m_menuDelay.start(s_menuDelay, this);
        setMenuTab(m_pressed);
        m_bar->repaint();
    }
}

void BVTabPress::release(const QPoint &position)
{
    const int tab = m_pressed;
    const BVTabBarLayout::Hit hit = BVTabBarLayout::hitAt(m_geometry->layout(), position);
    const bool isOnCurrent = hit.m_index >= 0 && hit.m_index == m_tabs->current();
    if (tab >= 0 && isOnCurrent && m_tabs->idAt(hit.m_index) == tab)
        click(hit, hit.m_part == Part::CloseButton);
    else if (tab >= 0)
        endPress();
}

void BVTabPress::endPress()
{
    m_menuDelay.stop();
    lift(m_pressed);
    if (m_menu && !m_menu->isVisible()) // what its action does takes longer, such as a dialog
        setMenuTab(-1);
}

void BVTabPress::cancel()
{
    endPress();
    setMenuTab(-1);
    closeMenu();
}

void BVTabPress::closeMenu()
{
    if (m_menu)
        QMetaObject::invokeMethod(m_menu.data(), &QWidget::close, Qt::QueuedConnection);
}

void BVTabPress::click(const BVTabBarLayout::Hit &hit, bool closes)
{
    const BVTab &tab = m_tabs->at(hit.m_index);
    const QString record =
        clickRecord(hit.m_index, tab, closes || tab.m_state.testFlag(BVTab::ClosePressed));
    if (closes)
        m_menuDelay.stop(); // one press does one thing
    lift(tab.m_id);
    if (closes)
        Q_EMIT m_bar->closeButtonClicked(hit.m_index);
    WidgetTrackerSingleton::getInstance().track(record);
}

/// The press on the tab is over.
void BVTabPress::lift(int tab)
{
    m_pressed = -1;
    if (std::exchange(m_hasSelected, false)) {
        m_geometry->show(m_tabs->current());
        m_bar->update();
    }
    setState(tab, BVTab::ClosePressed, false);
    if (!isMenuPending())
        setMenuTab(-1);
}

void BVTabPress::setState(int tab, BVTab::State state, bool on)
{
    BVTab *found = m_tabs->find(m_tabs->indexOf(tab));
    if (!found || found->m_state.testFlag(state) == on)
        return;
    found->m_state.setFlag(state, on);
    m_bar->update();
}

/// At most one tab's menu button is pressed.
void BVTabPress::setMenuTab(int tab)
{
    if (tab != m_menuTab)
        setState(m_menuTab, BVTab::MenuPressed, false);
    m_menuTab = tab;
    setState(tab, BVTab::MenuPressed, true);
}

bool BVTabPress::hasMenuButton(int index) const
{
    const BVTab *tab = m_tabs->find(index);
    return tab && tab->m_state.testFlag(BVTab::HasMenuButton);
}

void BVTabPress::timerEvent(QTimerEvent * /*event*/)
{
    m_menuDelay.stop();
    const int index = m_tabs->indexOf(m_menuTab);
    if (index == m_tabs->current() && hasMenuButton(index))
        requestMenu();
    else
        setMenuTab(-1); // the user has gone on
}

void BVTabPress::askForMenu(int index)
{
    if (!hasMenuButton(index) || m_isMenuOpen)
        return;
    m_menuDelay.stop();
    setMenuTab(m_tabs->idAt(index));
    requestMenu();
}

void BVTabPress::requestMenu()
{
    const int tab = m_menuTab;
    const QPointer<BVAnimatedTabBar> bar = m_bar;
    Q_EMIT m_bar->menuButtonClicked(m_tabs->indexOf(tab));
    if (bar && m_pressed != tab && !isMenuPending())
        setMenuTab(-1); // nobody has opened a menu
}

void BVTabPress::showMenu(int index, QMenu *menu)
{
    if (!hasMenuButton(index) || m_isMenuOpen)
        return;
    const int tab = m_tabs->idAt(index);
    const QPointer<BVAnimatedTabBar> bar = m_bar;
    const QPointer<QMenu> opened = menu;
    m_menuDelay.stop();
    m_isMenuOpen = true;
    m_menu = menu;
    setMenuTab(tab);
    endHeldPress(index);
    if (bar && opened && m_menuTab == tab) // those who hear of the click may change everything
        opened->exec(menuCorner(m_tabs->indexOf(tab), opened->sizeHint().width()));
    if (bar)
        menuClosed();
}

void BVTabPress::menuClosed()
{
    m_menu = nullptr;
    m_isMenuOpen = false;
    setMenuTab(-1);
}

/// While a menu is open, the release of the button that asked for it does not come to the bar.
void BVTabPress::endHeldPress(int index)
{
    if (m_pressed < 0 || m_pressed != m_menuTab)
        return;
    const QString record = clickRecord(index, m_tabs->at(index), false);
    lift(m_pressed);
    WidgetTrackerSingleton::getInstance().track(record);
}

QPoint BVTabPress::menuCorner(int index, int menuWidth) const
{
    const QRect button = m_geometry->layout().m_places.at(index).m_menuButton.boundingRect();
    const int x = m_bar->isRightToLeft() ? button.right() - menuWidth : button.left();
    return m_bar->mapToGlobal(QPoint(x, button.bottom()));
}

void BVTabPress::dropLost()
{
    if (m_pressed >= 0 && m_tabs->indexOf(m_pressed) < 0)
        lift(m_pressed);
    if (m_menuTab < 0 || hasMenuButton(m_tabs->indexOf(m_menuTab)))
        return;
    m_menuDelay.stop();
    setMenuTab(-1);
    closeMenu();
}
