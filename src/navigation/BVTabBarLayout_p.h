// SPDX-License-Identifier: MIT
#pragma once

#include <QPolygon>
#include <QRect>
#include <QSize>
#include <QVector>

/// The layout of an animated tab bar: sizes and states in, places out.
///
/// Painting and hit tests use the same places, in device-independent pixels of the bar.
namespace BVTabBarLayout {

constexpr int s_topMargin = 3;         // px above the tabs
constexpr int s_iconSize = 16;         // px
constexpr int s_buttonSize = 16;       // px, the hit area of a close or menu button
constexpr int s_minimumTextWidth = 36; // px that eliding leaves at least
constexpr int s_arrowWidth = 18;       // px, where the tabs scroll

struct Tab
{
    QVector<int> m_textWidths; // by level; all tabs have the same levels
    int m_imageWidth = 0;      // of the image after the tab
    bool m_hasIcon = false;
    bool m_hasCloseButton = false;
    bool m_hasMenuButton = false;
};

struct Request
{
    QSize m_size;       // of the bar
    int m_reserved = 0; // at the end of the bar, for tool buttons
    bool m_rightToLeft = false;
    int m_offset = 0; // that the tabs are scrolled by
    int m_shown = -1; // the tab to be scrolled into sight; -1 leaves the offset
    QVector<Tab> m_tabs;
};

struct Place
{
    QRect m_tab;
    QRect m_icon;
    QRect m_text;
    QRect m_image;
    QPolygon m_closeButton; // empty without the button
    QPolygon m_menuButton;
};

struct Result
{
    QRect m_area;  // that shows tabs
    int m_level{}; // of text reduction
    int m_offset{};
    int m_maximumOffset{};
    QRect m_backArrow; // empty with nothing to scroll to
    QRect m_forwardArrow;
    QVector<Place> m_places;
};

enum class Part { None, Tab, CloseButton, MenuButton, BackArrow, ForwardArrow };

struct Hit
{
    int m_index = -1;
    Part m_part = Part::None;

    bool operator==(const Hit &other) const
    {
        return m_index == other.m_index && m_part == other.m_part;
    }
    bool operator!=(const Hit &other) const { return !(*this == other); }
};

/// Chooses the first level at which all tabs fit; at the last one the longest texts get cut, and
/// then the tabs scroll.
Result layOut(const Request &request);
/// The width of all tabs at a level.
int contentWidth(const QVector<Tab> &tabs, int level);
/// What stands at a point; a tab that an arrow covers is not hit there.
Hit hitAt(const Result &layout, const QPoint &point);

} // namespace BVTabBarLayout
