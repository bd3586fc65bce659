// SPDX-License-Identifier: MIT
#include "itemviews/BVPendingChanges_p.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace {

constexpr size_t s_firstLimit = 4096; // items
constexpr size_t s_mostSpare = 1 << 17;
constexpr qint64 s_sparse = 64; // where so many ids stand for one, sorting beats marking

/// Sorts ids by marking them, which takes no comparing. False if they stand too far apart.
bool markAndSort(std::vector<qint64> &ids)
{
    const auto [least, greatest] = std::minmax_element(ids.cbegin(), ids.cend());
    const qint64 first = *least;
    const qint64 range = *greatest - first + 1;
    if (range / s_sparse > qint64(ids.size()))
        return false;
    std::vector<bool> isGiven(static_cast<size_t>(range), false);
    for (const qint64 id : ids)
        isGiven[size_t(id - first)] = true;
    ids.clear();
    for (size_t i = 0; i < isGiven.size(); ++i) {
        if (isGiven[i])
            ids.push_back(first + qint64(i));
    }
    return true;
}

/// Sorts as well: ids of items that were made together mostly stand together, so that looking them
/// up one after the other is quick.
void dropRepeated(std::vector<qint64> &ids)
{
    const bool isRising =
        std::adjacent_find(ids.cbegin(), ids.cend(), std::greater_equal<>()) == ids.cend();
    if (isRising || markAndSort(ids))
        return;
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
}

} // namespace

void BVPendingChanges::add(int column, qint64 parent, qint64 item, const QVector<int> &roles)
{
    Entry &pending = entry(column, parent);
    std::vector<qint64> &items = pending.group.items;
    if (items.empty() || items.back() != item)
        items.push_back(item);
    // Items written again and again must not fill the memory; looking each up would cost more.
    if (items.size() > pending.limit) {
        dropRepeated(items);
        pending.limit = std::max(s_firstLimit, 2 * items.size());
    }
    if (!pending.lastRoles.isSharedWith(roles))
        addRoles(pending, roles);
}

void BVPendingChanges::addRoles(Entry &pending, const QVector<int> &roles)
{
    pending.lastRoles = roles;
    for (const int role : roles) {
        if (!pending.group.roles.contains(role))
            pending.group.roles.append(role);
    }
}

BVPendingChanges::Entry &BVPendingChanges::entry(int column, qint64 parent)
{
    if (!m_groups.empty()) {
        Entry &last = m_groups.back();
        if (last.group.column == column && last.group.parent == parent)
            return last;
    }
    const auto known = m_indexes.constFind({column, parent});
    if (known != m_indexes.constEnd())
        return m_groups[size_t(*known)];
    m_indexes.insert({column, parent}, int(m_groups.size()));
    m_groups.push_back({{column, parent, std::exchange(m_spareItems, {}), {}}, s_firstLimit, {}});
    return m_groups.back();
}

std::vector<BVPendingGroup> BVPendingChanges::take()
{
    std::vector<BVPendingGroup> groups;
    groups.reserve(m_groups.size());
    for (Entry &entry : m_groups) {
        dropRepeated(entry.group.items);
        groups.push_back(std::move(entry.group));
    }
    clear();
    return groups;
}

void BVPendingChanges::clear()
{
    for (Entry &entry : m_groups) {
        std::vector<qint64> &items = entry.group.items;
        if (items.capacity() > m_spareItems.capacity() && items.capacity() <= s_mostSpare)
            m_spareItems.swap(items);
    }
    m_spareItems.clear();
    m_groups.clear();
    m_indexes.clear();
}
