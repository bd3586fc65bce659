// SPDX-License-Identifier: MIT
// The tree model beside the toolkit's tree widget and standard model: the same rows of three
// columns with the same shared texts.
#include "itemviews/BVTreeViewModel.h"

#include <QApplication>
#include <QCollator>
#include <QStandardItemModel>
#include <QTreeWidget>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <random>

namespace {

constexpr int s_rows = 100000;
constexpr int s_manyRows = 1000000;
constexpr int s_columns = 3;
constexpr int s_fanOut = 46; // 46 + 46 * 46 + 46 * 46 * 46 rows, about 100,000

const QStringList &texts()
{
    static const QStringList s_texts = [] {
        QStringList list;
        for (int i = 0; i < 1000; ++i)
            list << QStringLiteral("step %1").arg(i * 7919 % 1000);
        return list;
    }();
    return s_texts;
}

const QString &text(int row, int column)
{
    return texts().at((row * 31 + column * 17) % texts().size());
}

// What each model calls its rows and how it makes them.

struct Ours
{
    using Item = BVTreeViewItem;
    Ours() { model.setColumnCount(s_columns); }
    static Item *make(int row)
    {
        auto *item = new Item;
        for (int column = 0; column < s_columns; ++column)
            item->setText(column, text(row, column));
        return item;
    }
    static void add(Item *parent, Item *child) { parent->appendChild(child); }
    void addTopLevel(const QVector<Item *> &items) { model.appendTopLevelItems(items); }
    Item *row(int row) const { return model.getTopLevelItemFromIndex(row); }
    void clear() { model.clear(); }
    BVTreeViewModel model;
};

struct Widget
{
    using Item = QTreeWidgetItem;
    Widget() { widget.setColumnCount(s_columns); }
    static Item *make(int row)
    {
        auto *item = new Item;
        for (int column = 0; column < s_columns; ++column)
            item->setText(column, text(row, column));
        return item;
    }
    static void add(Item *parent, Item *child) { parent->addChild(child); }
    void addTopLevel(const QVector<Item *> &items)
    {
        widget.addTopLevelItems(QList<Item *>(items.cbegin(), items.cend()));
    }
    Item *row(int row) const { return widget.topLevelItem(row); }
    void clear() { widget.clear(); }
    QTreeWidget widget;
};

struct Standard
{
    using Item = QStandardItem;
    Standard() { model.setColumnCount(s_columns); }
    void addTopLevel(int count)
    {
        for (int i = 0; i < count; ++i)
            model.appendRow({new Item(text(i, 0)), new Item(text(i, 1)), new Item(text(i, 2))});
    }
    QStandardItemModel model;
};

template <typename Tree>
void fillFlat(Tree &tree, int count)
{
    QVector<typename Tree::Item *> items;
    items.reserve(count);
    for (int i = 0; i < count; ++i)
        items.append(Tree::make(i));
    tree.addTopLevel(items);
}

template <typename Tree>
void fillDeep(Tree &tree)
{
    QVector<typename Tree::Item *> items;
    for (int i = 0; i < s_fanOut; ++i) {
        items.append(Tree::make(i));
        for (int j = 0; j < s_fanOut; ++j) {
            auto *child = Tree::make(j);
            for (int k = 0; k < s_fanOut; ++k)
                Tree::add(child, Tree::make(k));
            Tree::add(items.last(), child);
        }
    }
    tree.addTopLevel(items);
}

template <typename Tree>
void BM_BuildFlat(benchmark::State &state)
{
    for (auto _ : state) {
        auto tree = std::make_unique<Tree>();
        fillFlat(*tree, int(state.range(0)));
        state.PauseTiming();
        tree.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_BuildFlat<Ours>)->Arg(s_rows)->Arg(s_manyRows)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BuildFlat<Widget>)->Arg(s_rows)->Arg(s_manyRows)->Unit(benchmark::kMillisecond);

template <typename Tree>
void BM_BuildDeep(benchmark::State &state)
{
    for (auto _ : state) {
        auto tree = std::make_unique<Tree>();
        fillDeep(*tree);
        state.PauseTiming();
        tree.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_BuildDeep<Ours>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BuildDeep<Widget>)->Unit(benchmark::kMillisecond);

template <typename Tree>
void BM_Destroy(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto tree = std::make_unique<Tree>();
        fillFlat(*tree, s_manyRows);
        state.ResumeTiming();
        tree.reset();
    }
}
BENCHMARK(BM_Destroy<Ours>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Destroy<Widget>)->Unit(benchmark::kMillisecond);

template <typename Tree>
void BM_ClearAfterSort(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Tree tree;
        fillFlat(tree, s_rows);
        if constexpr (std::is_same_v<Tree, Ours>)
            tree.model.sort(1);
        else
            tree.widget.sortItems(1, Qt::AscendingOrder);
        state.ResumeTiming();
        tree.clear();
        state.PauseTiming();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_ClearAfterSort<Ours>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ClearAfterSort<Widget>)->Unit(benchmark::kMillisecond);

/// Bytes a row, with everything but the texts.
template <typename Tree>
void BM_Memory(benchmark::State &state)
{
    texts();
    for (auto _ : state) {
        const size_t before = mallinfo2().uordblks;
        Tree tree;
        fillFlat(tree, s_manyRows);
        state.counters["bytes_per_row"] = double(mallinfo2().uordblks - before) / s_manyRows;
    }
}
BENCHMARK(BM_Memory<Ours>)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Memory<Widget>)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_WriteEveryRow_Ours(benchmark::State &state)
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
BENCHMARK(BM_WriteEveryRow_Ours)->Unit(benchmark::kMillisecond);

void BM_WriteEveryRow_Standard(benchmark::State &state)
{
    Standard tree;
    tree.addTopLevel(s_rows);
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (int i = 0; i < s_rows; ++i)
            tree.model.item(i, 1)->setText(text(i + round, 1));
    }
}
BENCHMARK(BM_WriteEveryRow_Standard)->Unit(benchmark::kMillisecond);

std::vector<int> shuffledRows()
{
    std::vector<int> rows(s_rows);
    for (int i = 0; i < s_rows; ++i)
        rows[size_t(i)] = i;
    std::shuffle(rows.begin(), rows.end(), std::mt19937(1));
    return rows;
}

void BM_RandomWritesWithView_Ours(benchmark::State &state)
{
    Ours tree;
    fillFlat(tree, s_rows);
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setModel(&tree.model);
    view.show();
    tree.model.useDelayedUpdate(true, 0);
    const std::vector<int> rows = shuffledRows();
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (const int row : rows)
            tree.row(row)->setText(1, text(row + round, 1));
        tree.model.useDelayedUpdate(false);
        tree.model.useDelayedUpdate(true, 0);
    }
}
BENCHMARK(BM_RandomWritesWithView_Ours)->Unit(benchmark::kMillisecond);

void BM_RandomWritesWithView_Standard(benchmark::State &state)
{
    Standard tree;
    tree.addTopLevel(s_rows);
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setModel(&tree.model);
    view.show();
    const std::vector<int> rows = shuffledRows();
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (const int row : rows)
            tree.model.item(row, 1)->setText(text(row + round, 1));
    }
}
BENCHMARK(BM_RandomWritesWithView_Standard)->Unit(benchmark::kMillisecond);

void BM_CheckParent_Ours(benchmark::State &state)
{
    Ours tree;
    auto *parent = Ours::make(0);
    parent->setFlags(parent->flags() | Qt::ItemIsAutoTristate);
    for (int i = 0; i < s_rows; ++i) {
        auto *child = Ours::make(i);
        child->setData(0, Qt::CheckStateRole, int(Qt::Unchecked));
        parent->appendChild(child);
    }
    tree.addTopLevel({parent});
    if (state.range(0))
        tree.model.useDelayedUpdate(true, 0);
    bool checked = false;
    for (auto _ : state) {
        checked = !checked;
        parent->setData(0, Qt::CheckStateRole, int(checked ? Qt::Checked : Qt::Unchecked));
        if (state.range(0)) {
            tree.model.useDelayedUpdate(false);
            tree.model.useDelayedUpdate(true, 0);
        }
    }
}
BENCHMARK(BM_CheckParent_Ours)->ArgName("delayed")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_CheckParent_Standard(benchmark::State &state)
{
    QStandardItemModel model;
    auto *parent = new QStandardItem;
    for (int i = 0; i < s_rows; ++i) {
        auto *child = new QStandardItem(text(i, 0));
        child->setCheckState(Qt::Unchecked);
        parent->appendRow({child, new QStandardItem(text(i, 1)), new QStandardItem(text(i, 2))});
    }
    model.appendRow(parent);
    bool checked = false;
    for (auto _ : state) {
        checked = !checked;
        for (int i = 0; i < s_rows; ++i)
            parent->child(i)->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
        parent->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
    }
}
BENCHMARK(BM_CheckParent_Standard)->Unit(benchmark::kMillisecond);

/// One of many children toggled, and the parent read.
void BM_ToggleOne_Ours(benchmark::State &state)
{
    Ours tree;
    auto *parent = Ours::make(0);
    parent->setFlags(parent->flags() | Qt::ItemIsAutoTristate);
    for (int i = 0; i < state.range(0); ++i) {
        auto *child = Ours::make(i);
        child->setData(0, Qt::CheckStateRole, int(Qt::Unchecked));
        parent->appendChild(child);
    }
    tree.addTopLevel({parent});
    bool checked = false;
    for (auto _ : state) {
        checked = !checked;
        parent->child(int(state.range(0) / 2))
            ->setData(0, Qt::CheckStateRole, int(checked ? Qt::Checked : Qt::Unchecked));
        benchmark::DoNotOptimize(parent->data(0, Qt::CheckStateRole));
    }
}
BENCHMARK(BM_ToggleOne_Ours)->Arg(100)->Arg(s_rows);

/// Item to row at random, after a row was inserted in front.
void BM_ItemToRow_Ours(benchmark::State &state)
{
    Ours tree;
    fillFlat(tree, s_rows);
    std::vector<BVTreeViewItem *> items;
    for (const int row : shuffledRows())
        items.push_back(tree.row(row));
    for (auto _ : state) {
        state.PauseTiming();
        tree.model.insertTopLevelItem(0, Ours::make(0));
        state.ResumeTiming();
        for (const BVTreeViewItem *item : items)
            benchmark::DoNotOptimize(item->row());
        for (const BVTreeViewItem *item : items)
            benchmark::DoNotOptimize(item->row());
    }
}
BENCHMARK(BM_ItemToRow_Ours)->Unit(benchmark::kMillisecond);

void BM_ItemToRow_Standard(benchmark::State &state)
{
    Standard tree;
    tree.addTopLevel(s_rows);
    std::vector<QStandardItem *> items;
    for (const int row : shuffledRows())
        items.push_back(tree.model.item(row));
    for (auto _ : state) {
        state.PauseTiming();
        tree.model.insertRow(0, new QStandardItem);
        state.ResumeTiming();
        for (const QStandardItem *item : items)
            benchmark::DoNotOptimize(item->row());
        for (const QStandardItem *item : items)
            benchmark::DoNotOptimize(item->row());
    }
}
BENCHMARK(BM_ItemToRow_Standard)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_Sort_Ours(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Ours tree;
        fillFlat(tree, s_rows);
        state.ResumeTiming();
        tree.model.sort(1);
        state.PauseTiming();
        tree.clear();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Sort_Ours)->Unit(benchmark::kMillisecond);

/// The same rows, compared as operator< does it.
void BM_Sort_LocaleAwareCompare(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Ours tree;
        fillFlat(tree, s_rows);
        QVector<BVTreeViewItem *> items = tree.model.getTopLevelItems();
        state.ResumeTiming();
        std::stable_sort(items.begin(), items.end(),
                         [](const BVTreeViewItem *a, const BVTreeViewItem *b) {
                             return QString::localeAwareCompare(a->text(1), b->text(1)) < 0;
                         });
        state.PauseTiming();
        tree.clear();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Sort_LocaleAwareCompare)->Unit(benchmark::kMillisecond);

template <typename Model>
void indexesAtRandom(benchmark::State &state, const Model &model)
{
    std::mt19937 random(1);
    std::vector<QModelIndex> parents;
    for (int i = 0; i < s_fanOut; ++i) {
        for (int j = 0; j < s_fanOut; ++j)
            parents.push_back(model.index(j, 0, model.index(i, 0)));
    }
    std::shuffle(parents.begin(), parents.end(), random);
    for (auto _ : state) {
        for (const QModelIndex &parent : parents) {
            const QModelIndex child = model.index(int(random() % s_fanOut), 1, parent);
            benchmark::DoNotOptimize(model.parent(child));
        }
    }
}

void BM_IndexAndParent_Ours(benchmark::State &state)
{
    Ours tree;
    fillDeep(tree);
    indexesAtRandom(state, tree.model);
}
BENCHMARK(BM_IndexAndParent_Ours)->Unit(benchmark::kMicrosecond);

void BM_IndexAndParent_Widget(benchmark::State &state)
{
    Widget tree;
    fillDeep(tree);
    indexesAtRandom(state, *tree.widget.model());
}
BENCHMARK(BM_IndexAndParent_Widget)->Unit(benchmark::kMicrosecond);

void BM_IndexAndParent_Standard(benchmark::State &state)
{
    QStandardItemModel model;
    for (int i = 0; i < s_fanOut; ++i) {
        auto *top = new QStandardItem(text(i, 0));
        model.appendRow({top, new QStandardItem, new QStandardItem});
        for (int j = 0; j < s_fanOut; ++j) {
            auto *child = new QStandardItem(text(j, 0));
            top->appendRow({child, new QStandardItem, new QStandardItem});
            for (int k = 0; k < s_fanOut; ++k)
                child->appendRow({new QStandardItem, new QStandardItem, new QStandardItem});
        }
    }
    indexesAtRandom(state, model);
}
BENCHMARK(BM_IndexAndParent_Standard)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
