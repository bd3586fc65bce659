// SPDX-License-Identifier: MIT
// A controlled stack of a thousand entries beside what it is made of: a tree widget and a stacked
// widget that the application ties together itself.
#include "foundation/BVWidgetStatus.h"
#include "itemviews/BVDragTreeWidget.h"
#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVStackControllerWidget.h"

#include <QApplication>
#include <QHash>
#include <QPaintEvent>
#include <QStackedWidget>
#include <QTreeWidget>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int s_groups = 20;
constexpr int s_entriesInGroup = 49; // below a group: 1,000 entries in all

struct Ours
{
    BVControlledStackItem *add(BVControlledStackItem *parent, const QString &text)
    {
        BVControlledStackItem *item = stack.addItem(new QWidget, parent, -1);
        item->setText(text);
        return item;
    }
    BVStackControllerWidget controller{nullptr, nullptr, false};
    BVControlledStackWidget stack{&controller};
};

struct Bare
{
    QTreeWidgetItem *add(QTreeWidgetItem *parent, const QString &text)
    {
        auto *item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(&tree);
        item->setText(0, text);
        auto *page = new QWidget;
        pages.addWidget(page);
        pageOf.insert(item, page);
        return item;
    }
    QTreeWidget tree;
    QStackedWidget pages;
    QHash<QTreeWidgetItem *, QWidget *> pageOf;
};

template <typename Stack>
void fill(Stack &stack)
{
    for (int group = 0; group < s_groups; ++group) {
        auto *parent = stack.add(nullptr, QString::number(group));
        for (int i = 0; i < s_entriesInGroup; ++i)
            stack.add(parent, QString::number(i));
    }
}

template <typename Stack>
void build(benchmark::State &state)
{
    for (auto _ : state) {
        auto stack = std::make_unique<Stack>();
        fill(*stack);
        state.PauseTiming();
        stack.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents(); // or what is posted piles up from one to the next
        state.ResumeTiming();
    }
}
BENCHMARK_TEMPLATE(build, Ours)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(build, Bare)->Unit(benchmark::kMillisecond);

/// One entry to its index and back, while the structure stands.
void look_up(benchmark::State &state)
{
    Ours ours;
    fill(ours);
    const QList<BVControlledStackItem *> items = ours.stack.getDFSItems();
    const int entries = int(state.range(0));
    int i = 0;
    for (auto _ : state) {
        i = (i + 7) % entries;
        benchmark::DoNotOptimize(ours.stack.itemAtDFSIndex(ours.stack.getDFSIndex(items[i])));
    }
}
BENCHMARK(look_up)->Arg(10)->Arg(1000);

/// Sums up what the viewport paints.
class PaintMeter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            const QRegion region = static_cast<QPaintEvent *>(event)->region();
            for (const QRect &rect : region)
                m_pixels += qint64(rect.width()) * rect.height();
        }
        return false;
    }
    qint64 m_pixels = 0;
};

/// The status of a page changes: how many rows the tree paints for it.
void status_change(benchmark::State &state)
{
    Ours ours;
    fill(ours);
    BVDragTreeWidget *tree = ours.controller.tree();
    tree->expandAll();
    tree->resize(300, 800);
    ours.controller.resize(300, 800);
    ours.controller.show();
    QCoreApplication::processEvents();
    PaintMeter meter;
    tree->viewport()->installEventFilter(&meter);
    BVControlledStackItem *item = ours.stack.itemAtDFSIndex(5);
    const QRect row = tree->visualItemRect(item->treeItem());
    bool needsInput = false;
    int changes = 0;
    for (auto _ : state) {
        needsInput = !needsInput;
        BVWidgetStatus::setStatus(item->getContainerWidget(), BVWidgetStatus::NeedInput,
                                  needsInput);
        QCoreApplication::processEvents();
        ++changes;
    }
    const double rowPixels = double(tree->viewport()->width()) * row.height();
    state.counters["painted_rows"] = double(meter.m_pixels) / (changes * rowPixels);
}
BENCHMARK(status_change);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
