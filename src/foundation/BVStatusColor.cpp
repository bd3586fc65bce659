// SPDX-License-Identifier: MIT
#include "foundation/BVStatusColor.h"

#include <QMutex>
#include <QMutexLocker>

namespace {

struct ColorRow
{
    BVWidgetStatus::Status status;
    QRgb darkBackground;
    QRgb lightBackground;
    QRgb buttons;
    QRgb buttonsAlternate;
};

// clang-format off
constexpr ColorRow s_mainColors[] = {
    {BVWidgetStatus::Normal,           qRgb(229, 229, 229), qRgb(51, 51, 51),   qRgb(84, 84, 84),    qRgb(204, 204, 204)},
    {BVWidgetStatus::NeedInput,        qRgb(255, 77, 77),   qRgb(153, 0, 0),    qRgb(204, 61, 61),   qRgb(204, 61, 61)},
    {BVWidgetStatus::RuvixInvalid,     qRgb(255, 77, 77),   qRgb(153, 0, 0),    qRgb(204, 61, 61),   qRgb(204, 61, 61)},
    {BVWidgetStatus::RuvixActive,      qRgb(153, 195, 255), qRgb(0, 64, 153),   qRgb(54, 106, 178),  qRgb(26, 68, 128)},
    {BVWidgetStatus::UserEdit,         qRgb(153, 195, 255), qRgb(0, 64, 153),   qRgb(54, 106, 178),  qRgb(26, 68, 128)},
    {BVWidgetStatus::StandardChanged,  qRgb(255, 223, 127), qRgb(115, 76, 0),   qRgb(204, 158, 20),  qRgb(204, 158, 20)},
    {BVWidgetStatus::Different,        qRgb(153, 255, 187), qRgb(0, 128, 42),   qRgb(153, 255, 187), qRgb(0, 128, 42)},
    {BVWidgetStatus::CompareDifferent, qRgb(238, 153, 255), qRgb(149, 0, 178),  qRgb(238, 153, 255), qRgb(149, 0, 178)},
};

constexpr ColorRow s_lightColors[] = {
    {BVWidgetStatus::NeedInput,        qRgb(255, 170, 170), qRgb(153, 0, 0),    qRgb(220, 122, 122), qRgb(220, 122, 122)},
    {BVWidgetStatus::RuvixInvalid,     qRgb(255, 170, 170), qRgb(153, 0, 0),    qRgb(220, 122, 122), qRgb(220, 122, 122)},
    {BVWidgetStatus::RuvixActive,      qRgb(153, 195, 255), qRgb(0, 64, 153),   qRgb(100, 146, 208), qRgb(26, 68, 128)},
    {BVWidgetStatus::UserEdit,         qRgb(153, 195, 255), qRgb(0, 64, 153),   qRgb(100, 146, 208), qRgb(26, 68, 128)},
};
// clang-format on

constexpr int s_disabledAlpha = 178;

template <size_t Count>
QHash<BVWidgetStatus::Status, BVStatusColor::Colors> colorTable(const ColorRow (&rows)[Count])
{
    QHash<BVWidgetStatus::Status, BVStatusColor::Colors> table;
    for (const ColorRow &row : rows) {
        table.insert(row.status, {QColor(row.darkBackground), QColor(row.lightBackground),
                                  QColor(row.buttons), QColor(row.buttonsAlternate)});
    }
    return table;
}

QMutex &tableLock()
{
    static QMutex s_lock;
    return s_lock;
}

} // namespace

BVStatusColor::BVStatusColor()
    : m_colors(colorTable(s_mainColors))
    , m_lightColors(colorTable(s_lightColors))
    , m_disabled(m_colors.value(BVWidgetStatus::Normal))
{
    for (QColor *color : {&m_disabled.m_darkBackground, &m_disabled.m_lightBackground,
                          &m_disabled.m_buttons, &m_disabled.m_buttonsAlternate})
        color->setAlpha(s_disabledAlpha);
}

BVStatusColor &BVStatusColor::colors()
{
    const QMutexLocker locker(&tableLock());
    static BVStatusColor s_colors;
    return s_colors;
}

QColor BVStatusColor::forDarkBackground(BVWidgetStatus::Status status) const
{
    return lookUp(status).m_darkBackground;
}

QColor BVStatusColor::forLightBackground(BVWidgetStatus::Status status) const
{
    return lookUp(status).m_lightBackground;
}

QColor BVStatusColor::forButtons(BVWidgetStatus::Status status, bool alternate) const
{
    const Colors &found = lookUp(status);
    return alternate ? found.m_buttonsAlternate : found.m_buttons;
}

QColor BVStatusColor::disabled() const
{
    return m_disabled.m_darkBackground;
}

QColor BVStatusColor::disabledForDarkBackground() const
{
    return disabled();
}

QColor BVStatusColor::disabledForLightBackground() const
{
    return m_disabled.m_lightBackground;
}

QColor BVStatusColor::disabledForButtons(bool alternate) const
{
    return alternate ? m_disabled.m_buttonsAlternate : m_disabled.m_buttons;
}

void BVStatusColor::replaceColor(BVWidgetStatus::Status status, const Colors &colors)
{
    m_colors.insert(status, colors);
}

void BVStatusColor::setUseLightColor(bool on)
{
    const QMutexLocker locker(&tableLock());
    m_useLightColor = on;
}

const BVStatusColor::Colors &BVStatusColor::lookUp(BVWidgetStatus::Status status) const
{
    if (m_useLightColor) {
        const auto light = m_lightColors.constFind(status);
        if (light != m_lightColors.cend())
            return *light;
    }
    const auto found = m_colors.constFind(status);
    return found != m_colors.cend() ? *found : *m_colors.constFind(BVWidgetStatus::Normal);
}
