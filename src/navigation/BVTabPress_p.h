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
    BVTabPress(BVAnimatedTabBar *bar, BVTabList *tabs, const BVTabBarGeometry *geometry);

    void press(const QPoint &position);
    void release(const QPoint &position);
    /// The press ends without a release.
    void cancel();
    /// Between a press on a tab and its release.
    bool isPressing() const { return m_pressed >= 0; }
    /// Asks at once for the menu of a tab that has a menu button.
    void askForMenu(int index);
    void showMenu(int index, QMenu *menu);
    /// A tab has been removed.
    void forgetGoneTabs();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void select(const BVTabBarLayout::Hit &hit);
    void pressCurrent(const BVTabBarLayout::Hit &hit);
    void click(const BVTabBarLayout::Hit &hit, bool closes);
    void letGo(int tab);
    void lift(int tab);
    void requestMenu();
    void setState(int tab, BVTab::State state, bool on);
    bool isMenuPending() const { return m_menuDelay.isActive() || m_isMenuOpen; }
    void endHeldPress(int index);
    void menuClosed(int tab);
    QPoint menuCorner(int index, int menuWidth) const; // on the screen

    BVAnimatedTabBar *m_bar;
    BVTabList *m_tabs;
    const BVTabBarGeometry *m_geometry;
    QBasicTimer m_menuDelay;
    int m_pressed = -1; // the id of the tab under the press; -1 when released
    int m_menuTab = -1; // the id of the tab whose menu is pending or open
    bool m_isMenuOpen = false;
    QPointer<QMenu> m_menu; // the open one
};
