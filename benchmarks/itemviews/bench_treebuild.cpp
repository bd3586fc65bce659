// SPDX-License-Identifier: MIT
// Building and destroying trees, and what they take meanwhile.
#include "RatioTable.h"
#include "Trees.h"

#include <malloc.h>

#include <memory>

namespace {

template <typename Tree>
void build(benchmark::State &state, void (*fill)(Tree &))
{
    for (auto _ : state) {
        auto tree = std::make_unique<Tree>();
        fill(*tree);
        state.PauseTiming();
        tree.reset();
        state.ResumeTiming();
    }
}

template <typename Tree, int count>
void buildFlat(benchmark::State &state)
{
    build<Tree>(state, [](Tree &tree) { fillFlat(tree, count); });
}

template <typename Tree>
void buildDeep(benchmark::State &state)
{
    build<Tree>(state, fillDeep<Tree>);
}

/// The other way: rows made apart, cell by cell, and put in at once.
void buildApartOurs(benchmark::State &state)
{
    build<Ours>(state, [](Ours &tree) {
        QVector<BVTreeViewItem *> items(s_rows);
        for (int row = 0; row < s_rows; ++row) {
            items[row] = new BVTreeViewItem;
            for (int column = 0; column < s_columns; ++column)
                items[row]->setText(column, text(row, column));
        }
        tree.model.appendTopLevelItems(items);
    });
}

void buildApartWidget(benchmark::State &state)
{
    build<Widget>(state, [](Widget &tree) {
        QList<QTreeWidgetItem *> items;
        items.reserve(s_rows);
        for (int row = 0; row < s_rows; ++row) {
            items << new QTreeWidgetItem;
            for (int column = 0; column < s_columns; ++column)
                items.last()->setText(column, text(row, column));
        }
        tree.widget.addTopLevelItems(items);
    });
}

template <typename Tree>
void destroy(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto tree = std::make_unique<Tree>();
        fillFlat(*tree, s_manyRows);
        state.ResumeTiming();
        tree.reset();
    }
}

template <typename Tree>
void clearAfterSort(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto tree = std::make_unique<Tree>();
        fillFlat(*tree, s_rows);
        tree->itemModel().sort(1);
        state.ResumeTiming();
        if constexpr (std::is_same_v<Tree, Ours>)
            tree->model.clear();
        else
            tree->widget.clear();
        state.PauseTiming();
        tree.reset();
        state.ResumeTiming();
    }
}

/// Everything but the texts, which are made before.
template <typename Tree>
void memory(benchmark::State &state)
{
    text(0, 0);
    for (auto _ : state) {
        malloc_trim(0);
        const size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
        Tree tree;
        fillFlat(tree, s_manyRows);
        const size_t after = mallinfo2().uordblks + mallinfo2().hblkhd;
        state.counters[RatioTable::s_bytes] = double(after - before) / s_manyRows;
    }
}

} // namespace

void addBuildRows()
{
    RatioTable::add("build 100,000 rows x 3, flat (QTreeWidget)", 0.35, buildFlat<Ours, s_rows>,
                    buildFlat<Widget, s_rows>);
    RatioTable::add("build 100,000 rows x 3, depth 3 (QTreeWidget)", 0.3, buildDeep<Ours>,
                    buildDeep<Widget>);
    RatioTable::add("build 100,000 rows x 3 apart (QTreeWidget)", 0.35, buildApartOurs,
                    buildApartWidget);
    RatioTable::add("build 1,000,000 rows x 3 (QTreeWidget)", 0.75, buildFlat<Ours, s_manyRows>,
                    buildFlat<Widget, s_manyRows>);
    RatioTable::addLimit("memory a row of 3, without the texts (QTreeWidget)", 260, memory<Ours>,
                         memory<Widget>);
    RatioTable::add("clear 100,000 rows after a sort (QTreeWidget)", 0.3, clearAfterSort<Ours>,
                    clearAfterSort<Widget>);
    RatioTable::add("destroy 1,000,000 rows (QTreeWidget)", 0.5, destroy<Ours>, destroy<Widget>);
}
