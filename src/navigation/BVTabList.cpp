// SPDX-License-Identifier: MIT
#include "navigation/BVTabList_p.h"

#include <algorithm>

namespace {

template <typename Tabs, typename Matches>
int firstIndex(const Tabs &tabs, const Matches &matches)
{
    const auto found = std::find_if(tabs.begin(), tabs.end(), matches);
    return found == tabs.end() ? -1 : static_cast<int>(found - tabs.begin());
}

void follow(int &index, int removed)
{
    if (index == removed)
        index = -1;
    else if (index > removed)
        --index;
}

} // namespace

QString BVTab::shownIcon() const
{
    return m_darkStyle && !m_darkStyleIconUrl.isEmpty() ? m_darkStyleIconUrl : m_iconUrl;
}

QString BVTab::shownImage(const QString &imageAfterTabs) const
{
    if (m_noImageAfterTab)
        return QString();
    if (m_darkStyle && !m_darkStyleImageUrl.isEmpty())
        return m_darkStyleImageUrl;
    return m_imageUrl.isEmpty() ? imageAfterTabs : m_imageUrl;
}

int BVTabList::indexOf(int id) const
{
    return firstIndex(m_tabs, [id](const BVTab &tab) { return tab.m_id == id; });
}

int BVTabList::indexOf(const QString &text) const
{
    return firstIndex(m_tabs, [&text](const BVTab &tab) { return tab.m_text == text; });
}

int BVTabList::insert(int index, BVTab tab)
{
    const int place = index < 0 || index > count() ? count() : index;
    tab.m_id = ++m_lastId;
    m_tabs.insert(m_tabs.begin() + place, std::move(tab));
    for (int *followed : {&m_current, &m_marked}) {
        if (*followed >= place)
            ++*followed;
    }
    return place;
}

void BVTabList::remove(int index)
{
    m_tabs.erase(m_tabs.begin() + index);
    follow(m_current, index);
    follow(m_marked, index);
}

int BVTabList::nextEnabled(int index, int step) const
{
    for (int next = index + step; isIndex(next); next += step) {
        if (at(next).isEnabled())
            return next;
    }
    return -1;
}

int BVTabList::successor(int index) const
{
    for (const int candidate :
         {nextEnabled(index - 1, 1), nextEnabled(index, -1), std::min(index, count() - 1)}) {
        if (candidate >= 0)
            return candidate;
    }
    return -1;
}
