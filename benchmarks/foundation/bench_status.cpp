// SPDX-License-Identifier: MIT
//
// What status changes cost, beside painting the widgets that they colour: a form of 400 widgets
// under the library's full style sheet, in it a group of 100 children of which 17 edits get three
// flags each. All that a status change has to do, the combined status of the group included, is
// compared with painting the group once.

#include "controls/BVCheckBox.h"
#include "controls/BVComboBox.h"
#include "controls/BVLabel.h"
#include "controls/BVLineEdit.h"
#include "foundation/BVStatusBatch.h"
#include "foundation/BVWidgetStatusHandler.h"
#include "platform/PropertyChangeFilter.h"
#include "style/StyleSheetHandler.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QImage>

namespace {

constexpr int s_groups = 4;
constexpr int s_childrenOfGroup = 100;
constexpr int s_edits = 17;
constexpr BVWidgetStatus::Status s_flags[] = {BVWidgetStatus::UserEdit, BVWidgetStatus::Different,
                                              BVWidgetStatus::NeedInput};

struct Form
{
    Form()
    {
        auto *layout = new QGridLayout(&m_window);
        for (int group = 0; group < s_groups; ++group)
            layout->addWidget(makeGroup(), group / 2, group % 2);
        m_window.resize(1600, 1000);
        m_window.show();
        QApplication::processEvents();
    }

    /// A row of four a setting: label, edit, combo box, check box.
    QGroupBox *makeGroup()
    {
        auto *group = new QGroupBox(QStringLiteral("Group"));
        auto *layout = new QGridLayout(group);
        auto *handler = new BVWidgetStatusHandler(group);
        QVector<BVLineEdit *> edits;
        for (int row = 0; row < s_childrenOfGroup / 4; ++row) {
            edits.append(new BVLineEdit(QStringLiteral("25.40 mm")));
            auto *combo = new BVComboBox;
            combo->addItem(QStringLiteral("choice"));
            QWidget *widgets[] = {new BVLabel(QStringLiteral("Length")), edits.last(), combo,
                                  new BVCheckBox(QStringLiteral("on"))};
            for (int column = 0; column < 4; ++column) {
                layout->addWidget(widgets[column], row, column);
                handler->attach(widgets[column]);
            }
        }
        if (!m_group) {
            m_group = group;
            m_edits = edits.mid(0, s_edits);
        }
        return group;
    }

    void setFlags(bool on)
    {
        for (BVLineEdit *edit : m_edits) {
            for (const BVWidgetStatus::Status flag : s_flags)
                edit->setBvStatus(flag, on);
        }
    }

    QWidget m_window;
    QGroupBox *m_group = nullptr;
    QVector<BVLineEdit *> m_edits;
};

Form &form()
{
    static auto *s_form = new Form; // goes with the process
    return *s_form;
}

/// Three flags on each of 17 edits, set and shown at the next turn of the event loop.
void BM_Status_BatchOfFlags(benchmark::State &state)
{
    bool on = false;
    for (auto _ : state) {
        on = !on;
        {
            const BVStatusBatch batch;
            form().setFlags(on);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall); // the posted re-polishing
        state.PauseTiming();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Status_BatchOfFlags)->Unit(benchmark::kMillisecond);

/// The same flags with the style re-applied at each change.
void BM_Status_FlagsOneByOne(benchmark::State &state)
{
    bool on = false;
    for (auto _ : state) {
        on = !on;
        form().setFlags(on);
        state.PauseTiming();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Status_FlagsOneByOne)->Unit(benchmark::kMillisecond);

/// Peer: painting the group and its children once.
void BM_Status_PaintGroup(benchmark::State &state)
{
    QImage image(form().m_group->size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        form().m_group->render(&image);
}
BENCHMARK(BM_Status_PaintGroup)->Unit(benchmark::kMillisecond);

void BM_Status_UnchangedFlag(benchmark::State &state)
{
    BVLineEdit *edit = form().m_edits.constFirst();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            BVWidgetStatus::setStatusProperty(edit, BVWidgetStatus::RuvixActive, false));
}
BENCHMARK(BM_Status_UnchangedFlag);

/// Peer: re-applying the style to one edit.
void BM_Status_RepolishEdit(benchmark::State &state)
{
    BVLineEdit *edit = form().m_edits.constFirst();
    for (auto _ : state)
        PropertyChangeFilter::repolish(edit, true);
    QApplication::processEvents();
}
BENCHMARK(BM_Status_RepolishEdit);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    application.setStyle(QStringLiteral("Fusion"));
    application.setStyleSheet(Brimvale::StyleSheetHandler::load());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
