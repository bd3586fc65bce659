// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/BVAnimatedTabBar.h"
#include "navigation/BVTabAutoScroll_p.h"
#include "navigation/BVTabBarAnimation_p.h"
#include "navigation/BVTabBarGeometry_p.h"
#include "navigation/BVTabHover_p.h"
#include "navigation/BVTabList_p.h"
#include "navigation/BVTabPictures_p.h"
#include "navigation/BVTabPress_p.h"

#include <utility>

/// What an animated tab bar consists of.
class BVTabBarParts
{
public:
    explicit BVTabBarParts(BVAnimatedTabBar *bar)
        : m_geometry(bar, &m_tabs, &m_pictures)
        , m_animation(bar)
        , m_hover(bar, &m_tabs, &m_geometry, &m_animation)
        , m_press(bar, &m_tabs, &m_geometry)
        , m_autoScroll(bar, &m_geometry, &m_hover, &m_press)
    {
    }

    /// Answers the index that the new tab got.
    int insert(int index, const QString &text, const QString &toolTip)
    {
        BVTab tab;
        tab.m_text = text;
        tab.m_toolTip = toolTip;
        tab.m_state.setFlag(BVTab::HasCloseButton, m_useCloseButtons);
        const int place = m_tabs.insert(index, std::move(tab));
        m_animation.start(m_tabs.idAt(place), BVTabBarAnimation::Present, true);
        return place;
    }

    enum class Wish { None, Shown, Hidden };

    BVTabList m_tabs;
    BVTabPictures m_pictures;
    BVTabBarGeometry m_geometry;
    BVTabBarAnimation m_animation;
    BVTabHover m_hover;
    BVTabPress m_press;
    BVTabAutoScroll m_autoScroll;
    bool m_areImagesMirrored = false;
    bool m_useCloseButtons = false; // on tabs to come
    bool m_hideTabBarForOne = false;
    bool m_isHiddenForOne = false;
    Wish m_wish = Wish::None; // of the application, whether the bar is to be seen
    int m_wheel = 0;          // eighths of a degree that make no whole step yet
};
