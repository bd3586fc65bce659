// SPDX-License-Identifier: MIT
// Rows, indexes and their order.
#include "RatioTable.h"
#include "Trees.h"

#include <algorithm>
#include <random>

namespace {

template <typename Tree>
std::vector<typename Tree::Item *> shuffledItems(const Tree &tree)
{
    std::vector<typename Tree::Item *> items;
    for (const int row : shuffledRows())
        items.push_back(tree.row(row));
    return items;
}

template <typename Item>
void findRows(const std::vector<Item *> &items)
{
    for (const Item *item : items)
        benchmark::DoNotOptimize(item->row());
}

/// All rows have been found once before.
template <typename Tree>
void itemToRow(benchmark::State &state)
{
    Tree tree;
    fillFlat(tree, s_rows);
    const auto items = shuffledItems(tree);
    findRows(items);
    for (auto _ : state)
        findRows(items);
}

template <typename Tree>
void itemToRowAfterInsert(benchmark::State &state)
{
    Tree tree;
    fillFlat(tree, s_rows);
    const auto items = shuffledItems(tree);
    findRows(items);
    for (auto _ : state) {
        state.PauseTiming();
        tree.itemModel().insertRows(0, 1);
        state.ResumeTiming();
        findRows(items);
    }
}

template <typename Tree>
std::vector<QModelIndex> shuffledParents(Tree &tree)
{
    fillDeep(tree);
    const QAbstractItemModel &model = tree.itemModel();
    std::vector<QModelIndex> parents;
    for (int i = 0; i < s_fanOut; ++i) {
        for (int j = 0; j < s_fanOut; ++j)
            parents.push_back(model.index(j, 0, model.index(i, 0)));
    }
    std::shuffle(parents.begin(), parents.end(), std::mt19937(1));
    return parents;
}

/// Below each parent of the second level in turn, which stand anywhere.
template <typename Tree>
void indexAtRandom(benchmark::State &state)
{
    Tree tree;
    const std::vector<QModelIndex> parents = shuffledParents(tree);
    const QAbstractItemModel &model = tree.itemModel();
    for (auto _ : state) {
        int row = 0;
        for (const QModelIndex &parent : parents) {
            row = (row + 17) % s_fanOut;
            benchmark::DoNotOptimize(model.index(row, 1, parent));
        }
    }
}

template <typename Tree>
void parentAtRandom(benchmark::State &state)
{
    Tree tree;
    std::vector<QModelIndex> indexes = shuffledParents(tree);
    const QAbstractItemModel &model = tree.itemModel();
    int row = 0;
    for (QModelIndex &index : indexes) {
        row = (row + 17) % s_fanOut;
        index = model.index(row, 1, index);
    }
    for (auto _ : state) {
        for (const QModelIndex &index : indexes)
            benchmark::DoNotOptimize(model.parent(index));
    }
}

template <typename Sort>
void sortFresh(benchmark::State &state, Sort sort)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto tree = std::make_unique<Ours>();
        fillFlat(*tree, s_rows);
        QVector<BVTreeViewItem *> items = tree->model.getTopLevelItems();
        items.detach();
        state.ResumeTiming();
        sort(tree->model, items);
        state.PauseTiming();
        tree.reset();
        state.ResumeTiming();
    }
}

void sortByKeys(benchmark::State &state)
{
    sortFresh(state,
              [](BVTreeViewModel &model, QVector<BVTreeViewItem *> & /*items*/) { model.sort(1); });
}

/// The same rows into the same order, compared as operator< does it.
void sortByComparing(benchmark::State &state)
{
    sortFresh(state, [](BVTreeViewModel & /*model*/, QVector<BVTreeViewItem *> &items) {
        std::stable_sort(items.begin(), items.end(),
                         [](const BVTreeViewItem *a, const BVTreeViewItem *b) {
                             return QString::localeAwareCompare(a->text(1), b->text(1)) < 0;
                         });
    });
}

} // namespace

void addLookupRows()
{
    RatioTable::add("item to row among 100,000 siblings (QStandardItem)", 0.3, itemToRow<Ours>,
                    itemToRow<Standard>);
    RatioTable::add("item to row after an insert in front (QStandardItem)", 0.3,
                    itemToRowAfterInsert<Ours>, itemToRowAfterInsert<Standard>);
    RatioTable::add("sort 100,000 by a text column (localeAwareCompare)", 0.5, sortByKeys,
                    sortByComparing);
    RatioTable::add("index() at random (QStandardItemModel)", 1, indexAtRandom<Ours>,
                    indexAtRandom<Standard>);
    RatioTable::add("index() at random (QTreeWidget)", 1, indexAtRandom<Ours>,
                    indexAtRandom<Widget>);
    RatioTable::add("parent() at random (QStandardItemModel)", 1, parentAtRandom<Ours>,
                    parentAtRandom<Standard>);
    RatioTable::add("parent() at random (QTreeWidget)", 1, parentAtRandom<Ours>,
                    parentAtRandom<Widget>);
}
