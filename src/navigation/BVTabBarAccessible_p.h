// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <QHash>

class BVAnimatedTabBar;
class BVTabBarParts;

/// What an animated tab bar tells assistive technology: a list of tabs, with the tool buttons
/// behind them.
class BVTabBarAccessible : public QAccessibleWidget
{
public:
    explicit BVTabBarAccessible(BVAnimatedTabBar *bar);
    ~BVTabBarAccessible() override;

    /// Makes all bars known; further calls do nothing.
    static void install();
    /// Tell that something about a tab has changed, or that it has come or is going.
    static void announce(BVAnimatedTabBar *bar, int tab, QAccessible::Event event);
    /// Tells that the states set in @p changed have changed.
    static void announceState(BVAnimatedTabBar *bar, int tab, QAccessible::State changed);
    /// Tells that the current tab is another one.
    static void announceCurrent(BVAnimatedTabBar *bar);

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;

    static BVTabBarParts *partsOf(const BVAnimatedTabBar *bar);

private:
    BVAnimatedTabBar *bar() const;
    int tabCount() const;
    void dropGoneTabs() const;

    mutable QHash<int, QAccessible::Id> m_tabs; // interfaces by the tab's id
};
