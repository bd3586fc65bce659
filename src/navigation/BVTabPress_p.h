// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/BVTabBarLayout_p.h"
#include "navigation/BVTab_p.h"

#include <QBasicTimer>
#include <QObject>
#include <QPointer>

class BVAnimatedTabBar;
class BVTabBarGeometry;
class BVTabList;
class QMenu;

/// What presses and releases of the left button do to tabs and their buttons, and the menus.
///
/// A tab is known by its id, so one that goes meanwhile is left alone.
class BVTabPress : public QObject
{
public:
    BVTabPress(BVAnimatedTabBar *bar, BVTabList *tabs, BVTabBarGeometry *geometry);

    void press(const QPoint &position);
    void release(const QPoint &position);
    /// The press ends without a release, and no menu comes of it.
    void endPress();
    /// Between a press on a tab and its release.
    bool isPressing() const { return m_pressed >= 0; }
    /// The press has made another tab the current one, which stays where it is until the end.
    bool hasSelected() const { return m_hasSelected; }
    /// Leaves the tabs where the user scrolls them during the press.
    void keepView() { m_hasSelected = false; }
    /// Asks at once for the menu of a tab that has a menu button.
    void askForMenu(int index);
    /// The menu and the bar may be deleted meanwhile.
    void showMenu(int index, QMenu *menu);

    /// Ends a press and a menu whose tab or button has gone.
    void dropLost();
    /// Ends the press and the menu.
    void cancel();
    /// From the event loop, as slots of the menu may change everything.
    void closeMenu();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void select(const BVTabBarLayout::Hit &hit);
    void pressCurrent(const BVTabBarLayout::Hit &hit);
    void click(const BVTabBarLayout::Hit &hit, bool closes);
    void lift(int tab);
    void requestMenu();
    void setState(int tab, BVTab::State state, bool on);
    void setMenuTab(int tab);
    bool hasMenuButton(int index) const;
    bool isMenuPending() const { return m_menuDelay.isActive() || m_isMenuOpen; }
    void endHeldPress(int index);
    void menuClosed();
    QPoint menuCorner(int index, int menuWidth) const; // on the screen

    BVAnimatedTabBar *m_bar;
    BVTabList *m_tabs;
    BVTabBarGeometry *m_geometry;
    QBasicTimer m_menuDelay;
    int m_pressed = -1; // the id of the tab under the press; -1 when released
    bool m_hasSelected = false;
    int m_menuTab = -1;        // the id of the tab whose menu is pending or open
    bool m_isMenuOpen = false; // until showMenu() returns
    QPointer<QMenu> m_menu;    // the open one
};
