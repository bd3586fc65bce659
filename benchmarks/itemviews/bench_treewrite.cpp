// SPDX-License-Identifier: MIT
// Writing values and check states into trees that nobody watches.
#include "RatioTable.h"
#include "Trees.h"

namespace {

void writeEveryRow(benchmark::State &state)
{
    Ours tree;
    fillFlat(tree, s_rows);
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (int i = 0; i < s_rows; ++i)
            tree.row(i)->setText(1, text(i + round, 1));
    }
}

void writeEveryRowOfStandard(benchmark::State &state)
{
    Standard tree;
    fillFlat(tree, s_rows);
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (int i = 0; i < s_rows; ++i)
            tree.model.item(i, 1)->setText(text(i + round, 1));
    }
}

/// A row that follows its children, which are unchecked.
Ours::Item *addCheckable(Ours &tree, int count)
{
    Ours::Item *parent = tree.add(nullptr, 0);
    parent->setFlags(parent->flags() | Qt::ItemIsAutoTristate);
    for (int i = 0; i < count; ++i)
        tree.add(parent, i)->setData(0, Qt::CheckStateRole, int(Qt::Unchecked));
    return parent;
}

/// In delayed mode with all that leaving it costs where nobody listens: what is pending is dropped.
template <bool isDelayed>
void checkParent(benchmark::State &state)
{
    Ours tree;
    Ours::Item *parent = addCheckable(tree, s_rows);
    bool checked = false;
    tree.model.useDelayedUpdate(isDelayed, 0);
    for (auto _ : state) {
        checked = !checked;
        parent->setData(0, Qt::CheckStateRole, int(checked ? Qt::Checked : Qt::Unchecked));
        tree.model.useDelayedUpdate(false);
        tree.model.useDelayedUpdate(isDelayed, 0);
        benchmark::DoNotOptimize(parent->data(0, Qt::CheckStateRole));
    }
}

void checkParentOfStandard(benchmark::State &state)
{
    Standard tree;
    QStandardItem *parent = tree.add(nullptr, 0);
    for (int i = 0; i < s_rows; ++i)
        tree.add(parent, i)->setCheckState(Qt::Unchecked);
    bool checked = false;
    for (auto _ : state) {
        checked = !checked;
        const Qt::CheckState checkState = checked ? Qt::Checked : Qt::Unchecked;
        for (int i = 0; i < s_rows; ++i)
            parent->child(i)->setCheckState(checkState);
        parent->setCheckState(checkState);
        benchmark::DoNotOptimize(parent->checkState());
    }
}

/// One of many children toggled, and the parent read.
template <int count>
void toggleOne(benchmark::State &state)
{
    Ours tree;
    Ours::Item *parent = addCheckable(tree, count);
    bool checked = false;
    for (auto _ : state) {
        checked = !checked;
        parent->child(count / 2)->setData(0, Qt::CheckStateRole,
                                          int(checked ? Qt::Checked : Qt::Unchecked));
        benchmark::DoNotOptimize(parent->data(0, Qt::CheckStateRole));
    }
}

} // namespace

void addWriteRows()
{
    RatioTable::add("write every row of 100,000, no view (QStandardItemModel)", 0.7, writeEveryRow,
                    writeEveryRowOfStandard);
    RatioTable::add("check a parent of 100,000, delayed (QStandardItemModel)", 0.4,
                    checkParent<true>, checkParentOfStandard);
    RatioTable::add("check a parent of 100,000, immediate (QStandardItemModel)", 0.8,
                    checkParent<false>, checkParentOfStandard);
    RatioTable::add("toggle a child and read its parent, of 100,000 (ours of 100)", 1.5,
                    toggleOne<s_rows>, toggleOne<100>);
}
