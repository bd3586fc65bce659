// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVWidgetStatus.h"

#include <QColor>
#include <QHash>

#include <atomic>

/// The colours in which a status is painted where code paints it; style sheets have their own.
///
/// Look-ups take single flags, such as BVWidgetStatus::getDominantStatusFromFlag() gives; one
/// without colours of its own has those of Normal. Creation and setUseLightColor() are safe from
/// any thread, all else belongs to the GUI thread.
class BVWIDGETS_EXPORT BVStatusColor
{
public:
    struct Colors
    {
        QColor m_darkBackground;
        QColor m_lightBackground;
        QColor m_buttons;
        QColor m_buttonsAlternate;
    };

    /// The table of the process, made on first use.
    static BVStatusColor &colors();

    BVStatusColor(const BVStatusColor &) = delete;
    BVStatusColor &operator=(const BVStatusColor &) = delete;

    QColor forDarkBackground(BVWidgetStatus::Status status) const;
    QColor forLightBackground(BVWidgetStatus::Status status) const;
    QColor forButtons(BVWidgetStatus::Status status, bool alternate) const;

    QColor disabled() const;
    QColor disabledForDarkBackground() const;
    QColor disabledForLightBackground() const;
    QColor disabledForButtons(bool alternate) const;

    /// Sets a status's normal colours; its light ones, where it has them, stay.
    void replaceColor(BVWidgetStatus::Status status, const Colors &colors);
    /// Whether the light colours take precedence, for the statuses that have them. Off at first.
    void setUseLightColor(bool on);

private:
    BVStatusColor();
    const Colors &lookUp(BVWidgetStatus::Status status) const;

    QHash<BVWidgetStatus::Status, Colors> m_colors;
    QHash<BVWidgetStatus::Status, Colors> m_lightColors;
    Colors m_disabled;
    std::atomic<bool> m_useLightColor{false};
};
