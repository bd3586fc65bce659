// SPDX-License-Identifier: MIT
// What the bar stores of each tab.
#include "navigation/BVAnimatedTabBar.h"

#include "navigation/BVTabBarAccessible_p.h"
#include "navigation/BVTabBarParts_p.h"

namespace {

/// Stores a value; whether it is another one.
template <typename Field, typename Value>
bool change(Field &field, const Value &value)
{
    if (field == value)
        return false;
    field = value;
    return true;
}

bool changeState(BVTab *tab, BVTab::State state, bool on)
{
    if (!tab || tab->m_state.testFlag(state) == on)
        return false;
    tab->m_state.setFlag(state, on);
    return true;
}

bool hasState(const BVTab *tab, BVTab::State state)
{
    return tab && tab->m_state.testFlag(state);
}

} // namespace

bool BVAnimatedTabBar::isTabEnabled(int index) const
{
    const BVTab *tab = m_parts->m_tabs.find(index);
    return tab && tab->isEnabled();
}

void BVAnimatedTabBar::setTabEnabled(int index, bool enabled)
{
    if (!changeState(m_parts->m_tabs.find(index), BVTab::Disabled, !enabled))
        return;
    update();
    QAccessible::State changed;
    changed.disabled = true;
    BVTabBarAccessible::announceState(this, index, changed);
}

BVWidgetStatus::Status BVAnimatedTabBar::getWidgetStatus(int index) const
{
    const BVTab *tab = m_parts->m_tabs.find(index);
    return tab ? tab->m_status : BVWidgetStatus::Normal;
}

void BVAnimatedTabBar::setWidgetStatus(int index, BVWidgetStatus::Status status)
{
    BVTab *tab = m_parts->m_tabs.find(index);
    if (!tab || !change(tab->m_status, status))
        return;
    update();
    BVTabBarAccessible::announce(this, index, QAccessible::DescriptionChanged);
}

QString BVAnimatedTabBar::getItemText(int index) const
{
    const BVTab *tab = m_parts->m_tabs.find(index);
    return tab ? tab->m_text : QString();
}

void BVAnimatedTabBar::setItemText(int index, const QString &text)
{
    BVTab *tab = m_parts->m_tabs.find(index);
    if (!tab || !change(tab->m_text, text))
        return;
    tab->m_texts.forget();
    onTabsChanged();
    BVTabBarAccessible::announce(this, index, QAccessible::NameChanged);
}

QString BVAnimatedTabBar::getItemToolTip(int index) const
{
    const BVTab *tab = m_parts->m_tabs.find(index);
    return tab ? tab->m_toolTip : QString();
}

void BVAnimatedTabBar::setItemToolTip(int index, const QString &toolTip)
{
    BVTab *tab = m_parts->m_tabs.find(index);
    if (tab && change(tab->m_toolTip, toolTip))
        BVTabBarAccessible::announce(this, index, QAccessible::HelpChanged);
}

QVariant BVAnimatedTabBar::data(int index, int role) const
{
    const BVTab *tab = m_parts->m_tabs.find(index);
    return tab ? tab->m_data.value(role) : QVariant();
}

void BVAnimatedTabBar::setData(int index, const QVariant &value, int role)
{
    BVTab *tab = m_parts->m_tabs.find(index);
    if (!tab)
        return;
    if (value.isValid())
        tab->m_data.insert(role, value);
    else
        tab->m_data.remove(role);
}

QVariant BVAnimatedTabBar::tabData(int index) const
{
    return data(index, Qt::UserRole);
}

QString BVAnimatedTabBar::iconUrl(int index) const
{
    const BVTab *tab = m_parts->m_tabs.find(index);
    return tab ? tab->shownIcon() : QString();
}

void BVAnimatedTabBar::setIconUrl(int index, const QString &url)
{
    setIcon(index, url, url, QString());
}

void BVAnimatedTabBar::setIcon(int index, const QString &url, const QString &darkUrl,
                               const QString &text)
{
    BVTab *tab = m_parts->m_tabs.find(index);
    if (!tab)
        return;
    const bool isOther = change(tab->m_iconUrl, url);
    if (change(tab->m_darkStyleIconUrl, darkUrl) || isOther)
        onTabsChanged();
    if (change(tab->m_iconText, text))
        BVTabBarAccessible::announce(this, index, QAccessible::DescriptionChanged);
}

QString BVAnimatedTabBar::imageUrl(int index) const
{
    const BVTab *tab = m_parts->m_tabs.find(index);
    return tab ? tab->m_imageUrl : QString();
}

void BVAnimatedTabBar::setImageUrl(int index, const QString &url)
{
    BVTab *tab = m_parts->m_tabs.find(index);
    if (tab && change(tab->m_imageUrl, url))
        onTabsChanged();
}

bool BVAnimatedTabBar::isDarkStyle(int index) const
{
    const BVTab *tab = m_parts->m_tabs.find(index);
    return tab && tab->m_darkStyle;
}

void BVAnimatedTabBar::setDarkStyle(int index, bool dark)
{
    BVTab *tab = m_parts->m_tabs.find(index);
    if (tab && change(tab->m_darkStyle, dark))
        onTabsChanged();
}

QString BVAnimatedTabBar::darkStyleImageUrl(int index) const
{
    const BVTab *tab = m_parts->m_tabs.find(index);
    return tab ? tab->m_darkStyleImageUrl : QString();
}

void BVAnimatedTabBar::setDarkStyleImageUrl(int index, const QString &url)
{
    BVTab *tab = m_parts->m_tabs.find(index);
    if (tab && change(tab->m_darkStyleImageUrl, url))
        onTabsChanged();
}

QString BVAnimatedTabBar::imageAfterTabs() const
{
    return m_parts->m_geometry.imageAfterTabs();
}

void BVAnimatedTabBar::setImageAfterTabs(const QString &url)
{
    m_parts->m_geometry.setImageAfterTabs(url);
    onTabsChanged();
}

bool BVAnimatedTabBar::isImageAfterTabsMirrored() const
{
    return m_parts->m_areImagesMirrored;
}

void BVAnimatedTabBar::setImageAfterTabsMirrored(bool mirrored)
{
    if (change(m_parts->m_areImagesMirrored, mirrored))
        update();
}

void BVAnimatedTabBar::setNoImageAfterTab(int index, bool noImage)
{
    BVTab *tab = m_parts->m_tabs.find(index);
    if (tab && change(tab->m_noImageAfterTab, noImage))
        onTabsChanged();
}

bool BVAnimatedTabBar::hasCloseButton(int index) const
{
    return hasState(m_parts->m_tabs.find(index), BVTab::HasCloseButton);
}

void BVAnimatedTabBar::useCloseButton(int index, bool use)
{
    if (changeState(m_parts->m_tabs.find(index), BVTab::HasCloseButton, use))
        onTabsChanged();
}

void BVAnimatedTabBar::useCloseButtons(bool use)
{
    m_parts->m_useCloseButtons = use;
    for (int index = 0; index < count(); ++index)
        useCloseButton(index, use);
}

bool BVAnimatedTabBar::hasMenuButton(int index) const
{
    return hasState(m_parts->m_tabs.find(index), BVTab::HasMenuButton);
}

void BVAnimatedTabBar::useMenuButton(int index, bool use)
{
    if (!changeState(m_parts->m_tabs.find(index), BVTab::HasMenuButton, use))
        return;
    onTabsChanged();
    m_parts->m_press.dropLost();
    QAccessible::State changed;
    changed.hasPopup = true;
    BVTabBarAccessible::announceState(this, index, changed);
}
