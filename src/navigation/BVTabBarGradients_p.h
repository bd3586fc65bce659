// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QLinearGradient>

/// The nine vertical gradients of a tab bar, named after what they fill.
enum class BVTabBarGradient {
    CurrentTab,
    PressedButton,
    DisabledTab,
    HoveredTab,
    DarkTab,
    Bar,
    HoveredDarkTab,
    Tab,
    ScrollArrow,
};

/// The gradient from (0, 0) down to the height of the bar or of a tab, whichever it spans.
QLinearGradient gradientOf(BVTabBarGradient gradient, int barHeight, int tabHeight);
/// Whether it spans the bar and not a tab.
bool isBarHigh(BVTabBarGradient gradient);

/// The plain colours.
namespace BVTabBarColors {
constexpr QRgb s_dark = qRgb(0x4d, 0x4d, 0x4d); // the current dark tab, and the mark on bright ones
constexpr QRgb s_line = qRgb(0x65, 0x65, 0x65); // outlines
constexpr QRgb s_bright =
    qRgb(0xaa, 0xaa, 0xaa); // the mark on dark tabs, shapes on hovered buttons
} // namespace BVTabBarColors
