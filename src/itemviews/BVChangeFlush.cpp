// SPDX-License-Identifier: MIT
#include "itemviews/BVChangeFlush_p.h"

#include "itemviews/BVModelWatch_p.h"
#include "itemviews/BVPendingChanges_p.h"
#include "itemviews/BVTreeViewModel.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace {

constexpr int s_sparse = 64; // where so many rows stand for one, sorting beats marking

/// Sorts numbers in [0, count) and drops repeated ones.
void sortRows(std::vector<int> &rows, int count)
{
    if (rows.size() < size_t(count / s_sparse)) {
        std::sort(rows.begin(), rows.end());
        rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
        return;
    }
    std::vector<bool> isGiven(size_t(count), false);
    for (const int row : rows)
        isGiven[size_t(row)] = true;
    rows.clear();
    for (int row = 0; row < count; ++row) {
        if (isGiven[size_t(row)])
            rows.push_back(row);
    }
}

bool isRising(const std::vector<int> &rows)
{
    return rows.empty() ||
           (rows.front() >= 0 &&
            std::adjacent_find(rows.cbegin(), rows.cend(), std::greater_equal<>()) == rows.cend());
}

} // namespace

BVChangeFlush::BVChangeFlush(BVTreeViewModel *model)
    : m_model(model)
    , m_columnShifts(model->m_columnShifts)
{
}

bool BVChangeFlush::tell(const BVPendingGroup &group) const
{
    const BVModelWatch watch(m_model, m_model->m_rootItem.get());
    Rows untold = byRow(itemsOf(group), group);
    Items items = untold.items;
    while (!untold.items.isEmpty()) {
        const int told = tellRanges(untold, group);
        if (!watch.isModelAlive())
            return false;
        const Items others = untold.items.mid(told);
        untold = others.isEmpty() ? Rows() : byRow(left(others, group), group);
    }
    if (!watch.isStructureKept())
        items = left(items, group);
    if (!m_model->m_sendItemsChangedImmediately && !items.isEmpty() && m_model->isHeard())
        Q_EMIT m_model->itemsChanged(items, columnOf(group), group.roles);
    return watch.isModelAlive();
}

/// Those that are in the model.
BVChangeFlush::Items BVChangeFlush::itemsOf(const BVPendingGroup &group) const
{
    Items items;
    items.reserve(int(group.items.size()));
    for (const qint64 id : group.items) {
        if (BVTreeViewItem *item = m_model->itemOfId(id))
            items.append(item);
    }
    return items;
}

/// Those of the items that are still in the model.
BVChangeFlush::Items BVChangeFlush::left(const Items &items, const BVPendingGroup &group) const
{
    Items living = itemsOf(group);
    std::sort(living.begin(), living.end());
    Items result;
    std::copy_if(items.cbegin(), items.cend(), std::back_inserter(result), [&](auto *item) {
        return std::binary_search(living.cbegin(), living.cend(), item);
    });
    return result;
}

/// Those that stand below the group's parent, in the order of their rows, each once.
BVChangeFlush::Rows BVChangeFlush::byRow(const Items &items, const BVPendingGroup &group) const
{
    Rows sorted{m_model->itemOfId(group.parent), {}, {}};
    if (!sorted.parent)
        return sorted;
    std::vector<int> &rows = sorted.rows;
    rows.reserve(size_t(items.size()));
    for (const BVTreeViewItem *item : items)
        rows.push_back(sorted.parent->indexOfChild(item));
    if (isRising(rows)) {
        sorted.items = items;
        return sorted;
    }
    rows.erase(std::remove(rows.begin(), rows.end(), -1), rows.end());
    sortRows(rows, sorted.parent->childCount());
    sorted.items.reserve(int(rows.size()));
    for (const int row : rows)
        sorted.items.append(sorted.parent->child(row));
    return sorted;
}

/// The number of rows that were told of before a slot changed the structure.
int BVChangeFlush::tellRanges(const Rows &rows, const BVPendingGroup &group) const
{
    const BVModelWatch watch(m_model, m_model->m_rootItem.get());
    size_t told = 0;
    while (told < rows.rows.size() && watch.isStructureKept()) {
        const int first = rows.rows[told];
        int last = first;
        while (++told < rows.rows.size() && rows.rows[told] == last + 1)
            ++last;
        tellRange(first, last, rows.parent, group);
    }
    return int(told);
}

void BVChangeFlush::tellRange(int first, int last, BVTreeViewItem *parent,
                              const BVPendingGroup &group) const
{
    const int column = columnOf(group);
    const bool all = column == BVTreeViewModel::s_allColumns;
    const int lastColumn = all ? m_model->columnCount() - 1 : column;
    if (lastColumn < 0 || lastColumn >= m_model->columnCount())
        return;
    const QModelIndex top = m_model->createIndex(first, all ? 0 : column, parent);
    Q_EMIT m_model->dataChanged(top, m_model->createIndex(last, lastColumn, parent), group.roles);
}

int BVChangeFlush::columnOf(const BVPendingGroup &group) const
{
    return m_model->columnSince(m_columnShifts, group.column);
}
