// SPDX-License-Identifier: MIT
#include "itemviews/BVPendingChanges_p.h"

#include <algorithm>

namespace {

constexpr size_t s_firstLimit = 4096; // items

void dropRepeated(std::vector<qint64> &items)
{
    std::sort(items.begin(), items.end());
    items.erase(std::unique(items.begin(), items.end()), items.end());
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
    m_groups.push_back({{column, parent, {}, {}}, s_firstLimit});
    return m_groups.back();
}

std::vector<BVPendingGroup> BVPendingChanges::take()
{
    std::vector<BVPendingGroup> groups;
    groups.reserve(m_groups.size());
    for (Entry &entry : m_groups)
        groups.push_back(std::move(entry.group));
    m_groups.clear();
    m_indexes.clear();
    return groups;
}
