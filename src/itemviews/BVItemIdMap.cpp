// SPDX-License-Identifier: MIT
#include "itemviews/BVItemIdMap_p.h"

BVItemIdMap::Page *BVItemIdMap::page(qint64 id) const
{
    const qint64 number = id / s_pageSize;
    if (number != m_lastNumber) {
        const auto found = m_pages.find(number);
        m_lastPage = found == m_pages.end() ? nullptr : found->second.get();
        m_lastNumber = number;
    }
    return m_lastPage;
}

void BVItemIdMap::insert(qint64 id, BVTreeViewItem *item)
{
    Page *found = page(id);
    if (!found) {
        auto &made = m_pages[id / s_pageSize];
        made = std::make_unique<Page>();
        found = m_lastPage = made.get();
    }
    BVTreeViewItem *&place = found->items[slot(id)];
    if (!place) {
        ++found->used;
        ++m_size;
    }
    place = item;
}

void BVItemIdMap::remove(qint64 id)
{
    Page *found = page(id);
    if (!found || !found->items[slot(id)])
        return;
    found->items[slot(id)] = nullptr;
    --m_size;
    if (--found->used > 0)
        return;
    m_pages.erase(id / s_pageSize);
    m_lastPage = nullptr;
}

void BVItemIdMap::clear()
{
    m_pages.clear();
    m_lastNumber = -1;
    m_lastPage = nullptr;
    m_size = 0;
}
