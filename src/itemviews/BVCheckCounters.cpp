// SPDX-License-Identifier: MIT
#include "itemviews/BVCheckCounters_p.h"

#include "itemviews/BVItemBranch_p.h"
#include "itemviews/BVItemSpan_p.h"

#include <algorithm>
#include <functional>

namespace {

quint64 s_lastSerial = 0;

} // namespace

bool BVCheckCounters::isMixed(const Counts &counts)
{
    return counts[Mixed] > 0 || (counts[Unchecked] > 0 && counts[Checked] > 0);
}

/// Whether the state is what stands first.
bool BVCheckCounters::dependsOnOrder(const Counts &counts)
{
    return counts[Missing] > 0 && isMixed(counts);
}

QVariant BVCheckCounters::derivedState(const BVTreeViewItem &item, int column)
{
    if (column < 0 || column >= BVTreeViewItem::s_maximumColumns)
        return QVariant();
    const Column *counters = countersOf(item, column);
    if (!counters || dependsOnOrder(counters->counts))
        return walk(item, column);
    const Counts &counts = counters->counts;
    if (isMixed(counts))
        return int(Qt::PartiallyChecked);
    if (counts[Missing] > 0)
        return QVariant();
    if (counts[Unchecked] > 0)
        return int(Qt::Unchecked);
    return counts[Checked] > 0 ? QVariant(int(Qt::Checked)) : QVariant();
}

QVariant BVCheckCounters::walk(const BVTreeViewItem &item, int column)
{
    bool anyUnchecked = false;
    bool anyChecked = false;
    for (const BVTreeViewItem *child : item.children()) {
        switch (kindOf(*child, column)) {
        case NotCounted:
            continue;
        case Missing:
            return QVariant();
        case Unchecked:
            anyUnchecked = true;
            break;
        case Checked:
            anyChecked = true;
            break;
        case Mixed:
            return int(Qt::PartiallyChecked);
        }
        if (anyUnchecked && anyChecked)
            return int(Qt::PartiallyChecked);
    }
    if (anyUnchecked)
        return int(Qt::Unchecked);
    return anyChecked ? QVariant(int(Qt::Checked)) : QVariant();
}

BVCheckCounters::Kind BVCheckCounters::kindOf(const BVTreeViewItem &item, int column)
{
    if (item.isPlain() && !item.derivesCheckState())
        return storedKind(item, column);
    const QVariant counts = item.data(column, BVTreeViewModel::CountsForParentCheckRole);
    const QVariant state = item.data(column, Qt::CheckStateRole);
    return kindOf(&counts, &state);
}

BVCheckCounters::Kind BVCheckCounters::storedKind(const BVTreeViewItem &item, int column)
{
    const Stored stored(item, column);
    return kindOf(stored.counts, stored.state);
}

/// From the values of both roles, null where there is none.
BVCheckCounters::Kind BVCheckCounters::kindOf(const QVariant *counts, const QVariant *state)
{
    if (counts && counts->isValid() && !counts->toBool())
        return NotCounted;
    return state ? State(*state).kind : Missing;
}

bool BVCheckCounters::isReliable(const BVTreeViewItem &item, int column)
{
    return item.isPlain() && (!item.derivesCheckState() || countersOf(item, column));
}

BVCheckCounters::Column *BVCheckCounters::find(const BVTreeViewItem &item, int column)
{
    if (!item.m_branch || !item.m_branch->checkCounters)
        return nullptr;
    auto &columns = item.m_branch->checkCounters->m_columns;
    if (!columns.empty() && columns.front().column == column)
        return &columns.front(); // mostly the only one
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column &c) { return c.column == column; });
    return found == columns.end() ? nullptr : &*found;
}

BVCheckCounters::Column *BVCheckCounters::countersOf(const BVTreeViewItem &item, int column)
{
    if (Column *counted = find(item, column))
        return counted;
    if (item.isRoot())
        return nullptr;
    Column counters{column, ++s_lastSerial, {}};
    for (const BVTreeViewItem *child : item.children()) {
        if (!isReliable(*child, column))
            return nullptr;
        ++counters.counts[child->derivesCheckState() ? kindOf(*child, column)
                                                     : storedKind(*child, column)];
    }
    if (item.m_childCount == 0)
        return nullptr;
    auto &made = item.m_branch->checkCounters;
    if (!made)
        made = std::make_unique<BVCheckCounters>();
    made->m_columns.push_back(counters);
    return &made->m_columns.back();
}

BVCheckCounters::Change::Change(BVTreeViewItem *item, int column)
    : m_item(item)
    , m_column(column)
{
    const Column *counters = item->m_parent ? find(*item->m_parent, column) : nullptr;
    if (!counters)
        return;
    m_before = kindOf(*item, column);
    m_serial = counters->serial;
}

BVCheckCounters::Change::~Change()
{
    BVTreeViewItem *parent = m_item ? m_item->m_parent : nullptr;
    const Column *counters = parent ? find(*parent, m_column) : nullptr;
    if (!counters)
        return;
    if (counters->serial != m_serial) {
        forget(parent); // counted in the middle of the change
        return;
    }
    const Kind after = kindOf(*m_item, m_column);
    if (after == m_before)
        return;
    Counts difference{};
    --difference[m_before];
    ++difference[after];
    apply(parent, m_column, difference);
}

void BVCheckCounters::recount(const BVTreeViewItem *parent, int column, const QVariant *counts,
                              Kind before, Kind after)
{
    Column *counters = parent ? find(*parent, column) : nullptr;
    if (!counters || (counts && counts->isValid() && !counts->toBool()))
        return;
    --counters->counts[before];
    ++counters->counts[after];
}

void BVCheckCounters::join(BVTreeViewItem *parent, const BVItemSpan &children)
{
    if (parent->m_childCount == 0)
        forget(parent); // it begins to derive its state
    else
        add(parent, children, 1);
}

void BVCheckCounters::leave(BVTreeViewItem *parent, const BVItemSpan &children)
{
    if (parent->m_childCount == children.size())
        forget(parent);
    else
        add(parent, children, -1);
}

void BVCheckCounters::add(BVTreeViewItem *parent, const BVItemSpan &children, int sign)
{
    if (!parent->m_branch)
        return;
    const auto &counters = parent->m_branch->checkCounters; // may be forgotten on the way
    for (size_t i = 0; counters && i < counters->m_columns.size(); ++i) {
        const int column = counters->m_columns[i].column;
        Counts difference{};
        for (const BVTreeViewItem *child : children) {
            if (!isReliable(*child, column)) {
                forget(parent);
                return;
            }
            difference[kindOf(*child, column)] += sign;
        }
        apply(parent, column, difference);
    }
}

/// Where the order of the children decides, counters cannot tell what the state was before.
void BVCheckCounters::apply(BVTreeViewItem *parent, int column, const Counts &difference)
{
    Column *counters = find(*parent, column);
    const Counts before = counters->counts;
    Counts after;
    std::transform(before.begin(), before.end(), difference.begin(), after.begin(),
                   std::plus<int>());
    if (dependsOnOrder(before) || dependsOnOrder(after)) {
        forget(parent);
        return;
    }
    if (!parent->m_parent) {
        counters->counts = after;
        return;
    }
    const Change above(parent, column);
    find(*parent, column)->counts = after;
}

/// Nothing above an item without counters can depend on what is below it.
void BVCheckCounters::forget(const BVTreeViewItem *item)
{
    if (!item)
        return;
    if (item->m_branch)
        item->m_branch->checkCounters.reset();
    const auto isCounted = [&] { return item->m_branch && item->m_branch->checkCounters; };
    for (item = item->m_parent; item && isCounted(); item = item->m_parent)
        item->m_branch->checkCounters.reset();
}
