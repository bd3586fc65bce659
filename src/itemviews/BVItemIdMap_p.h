// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <array>
#include <memory>
#include <unordered_map>

class BVTreeViewItem;

/// Items by their ids.
///
/// Ids are counted up and never used again, so that the items of a model mostly stand close
/// together: the map keeps pages of neighbouring ids, and remembers the page used last.
class BVItemIdMap
{
public:
    /// The number of items.
    int size() const { return m_size; }
    /// Null when there is none.
    BVTreeViewItem *value(qint64 id) const
    {
        const Page *found = page(id);
        return found ? found->items[slot(id)] : nullptr;
    }
    void insert(qint64 id, BVTreeViewItem *item);
    void remove(qint64 id);
    void clear();

private:
    static constexpr int s_pageSize = 64; // ids

    struct Page
    {
        std::array<BVTreeViewItem *, s_pageSize> items{};
        int used = 0;
    };

    static size_t slot(qint64 id) { return size_t(id % s_pageSize); }
    Page *page(qint64 id) const;

    std::unordered_map<qint64, std::unique_ptr<Page>> m_pages; // by id / s_pageSize
    mutable qint64 m_lastNumber = -1;
    mutable Page *m_lastPage = nullptr;
    int m_size = 0;
};
