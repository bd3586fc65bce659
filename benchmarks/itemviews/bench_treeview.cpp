// SPDX-License-Identifier: MIT
// The view beside the toolkit's on the same model, and changes of a model that a view shows.
#include "RatioTable.h"
#include "Trees.h"
#include "itemviews/BVTreeView.h"

#include <QApplication>
#include <QScrollBar>
#include <QTreeView>

#include <memory>

namespace {

constexpr int s_ownHeights = 10000; // rows of views that measure each

template <typename View>
std::unique_ptr<View> makeView(QAbstractItemModel &model, bool isUniform)
{
    auto view = std::make_unique<View>();
    view->setUniformRowHeights(isUniform);
    view->resize(600, 800);
    view->setModel(&model);
    return view;
}

void showAndPaint(QWidget &view)
{
    view.show();
    QApplication::processEvents();
}

template <typename View>
void firstPaint(benchmark::State &state)
{
    Ours tree;
    fillFlat(tree, s_rows);
    for (auto _ : state) {
        auto view = makeView<View>(tree.model, true);
        showAndPaint(*view);
        state.PauseTiming();
        view.reset();
        state.ResumeTiming();
    }
}

template <typename View>
void expandAll(benchmark::State &state)
{
    Ours tree;
    fillDeep(tree);
    const auto view = makeView<View>(tree.model, true);
    showAndPaint(*view);
    for (auto _ : state) {
        view->expandAll();
        QApplication::processEvents();
        state.PauseTiming();
        view->collapseAll();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

template <typename View>
void scrollStep(benchmark::State &state)
{
    Ours tree;
    fillFlat(tree, s_rows);
    const auto view = makeView<View>(tree.model, true);
    showAndPaint(*view);
    QScrollBar *bar = view->verticalScrollBar();
    for (auto _ : state) {
        bar->setValue(bar->value() < bar->maximum() ? bar->value() + bar->singleStep() : 0);
        QApplication::processEvents();
    }
}

template <int count>
void contentHeight(benchmark::State &state)
{
    Ours tree;
    fillFlat(tree, count);
    const auto view = makeView<BVTreeView>(tree.model, true);
    benchmark::DoNotOptimize(view->calculateHeight());
    for (auto _ : state)
        benchmark::DoNotOptimize(view->calculateHeight());
}

/// Writes in any order, told once, with what the view then does about them.
void delayedWrites(benchmark::State &state, int count, bool isUniform)
{
    Ours tree;
    fillFlat(tree, count);
    const auto view = makeView<BVTreeView>(tree.model, isUniform);
    showAndPaint(*view);
    tree.model.useDelayedUpdate(true, 0);
    const std::vector<int> rows = shuffledRows(count);
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (const int row : rows)
            tree.row(row)->setText(1, text(row + round, 1));
        tree.model.useDelayedUpdate(false);
        tree.model.useDelayedUpdate(true, 0);
        QApplication::processEvents();
    }
}

void writesToStandard(benchmark::State &state, int count, bool isUniform)
{
    Standard tree;
    fillFlat(tree, count);
    const auto view = makeView<QTreeView>(tree.model, isUniform);
    showAndPaint(*view);
    const std::vector<int> rows = shuffledRows(count);
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (const int row : rows)
            tree.model.item(row, 1)->setText(text(row + round, 1));
        QApplication::processEvents();
    }
}

} // namespace

void addViewRows()
{
    using State = benchmark::State;
    RatioTable::add(
        "100,000 delayed writes at random, uniform heights (QStandardItemModel, QTreeView)", 0.02,
        [](State &state) { delayedWrites(state, s_rows, true); },
        [](State &state) { writesToStandard(state, s_rows, true); });
    RatioTable::add(
        "10,000 delayed writes, rows of own heights (QStandardItemModel, QTreeView)", 0.1,
        [](State &state) { delayedWrites(state, s_ownHeights, false); },
        [](State &state) { writesToStandard(state, s_ownHeights, false); });
    RatioTable::add("first paint of 100,000 rows (QTreeView)", 1.15, firstPaint<BVTreeView>,
                    firstPaint<QTreeView>);
    RatioTable::add("expand all of 100,000 rows (QTreeView)", 1.15, expandAll<BVTreeView>,
                    expandAll<QTreeView>);
    RatioTable::add("scroll a step in 100,000 rows (QTreeView)", 1.15, scrollStep<BVTreeView>,
                    scrollStep<QTreeView>);
    RatioTable::add("content height asked again, 100,000 rows (ours of 1,000)", 1.5,
                    contentHeight<s_rows>, contentHeight<1000>);
}
