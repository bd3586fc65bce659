// SPDX-License-Identifier: MIT
#include "itemviews/BVSiblingSort_p.h"

#include "itemviews/BVTreeViewItem.h"

#include <QCollator>

#include <algorithm>
#include <vector>

namespace {

struct KeyedItem
{
    QCollatorSortKey key;
    BVTreeViewItem *item;
};

template <typename Element, typename Less>
void sortStably(std::vector<Element> &elements, Qt::SortOrder order, Less less)
{
    if (order == Qt::AscendingOrder) {
        std::stable_sort(elements.begin(), elements.end(), less);
    } else {
        std::stable_sort(elements.begin(), elements.end(),
                         [less](const Element &a, const Element &b) { return less(b, a); });
    }
}

QVector<BVTreeViewItem *> sortedByKeys(const QVector<BVTreeViewItem *> &items, int column,
                                       Qt::SortOrder order)
{
    const QCollator collator;
    std::vector<KeyedItem> keyed;
    keyed.reserve(size_t(items.size()));
    for (BVTreeViewItem *item : items)
        keyed.push_back({collator.sortKey(item->text(column)), item});
    sortStably(keyed, order,
               [](const KeyedItem &a, const KeyedItem &b) { return a.key.compare(b.key) < 0; });
    QVector<BVTreeViewItem *> result;
    result.reserve(items.size());
    for (const KeyedItem &k : keyed)
        result.append(k.item);
    return result;
}

} // namespace

bool BVSiblingSort::isSortable(const BVTreeViewItem &parent, int column)
{
    return column >= 0 && parent.childCount() > 0 && column < parent.child(0)->columnCount();
}

QVector<BVTreeViewItem *> BVSiblingSort::sorted(const QVector<BVTreeViewItem *> &items, int column,
                                                Qt::SortOrder order)
{
    const bool allPlain = std::all_of(items.cbegin(), items.cend(),
                                      [](const BVTreeViewItem *item) { return item->isPlain(); });
    if (allPlain)
        return sortedByKeys(items, column, order);
    std::vector<BVTreeViewItem *> ordered(items.cbegin(), items.cend());
    sortStably(ordered, order,
               [](const BVTreeViewItem *a, const BVTreeViewItem *b) { return *a < *b; });
    return QVector<BVTreeViewItem *>(ordered.cbegin(), ordered.cend());
}
