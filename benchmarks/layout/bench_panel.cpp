// SPDX-License-Identifier: MIT
// One frame of a panel that grows over its main window: the next geometry, laid out and painted.
// The peer is a plain child widget with the same content in the same window.
#include "layout/BVResizableWidget.h"
#include "layout/MainWidget.h"
#include "style/StyleSheetHandler.h"

#include <QApplication>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>

namespace {

constexpr int s_frames = 16; // from the small size to the large one
const QRect s_small(60, 40, 320, 200);

QWidget *newForm(int rows)
{
    auto *form = new QWidget;
    auto *layout = new QFormLayout(form);
    for (int i = 0; i < rows; ++i)
        layout->addRow(QStringLiteral("Value %1").arg(i), new QLineEdit(QString::number(i)));
    return form;
}

QWidget *newContent()
{
    QWidget *content = newForm(4);
    auto *text = new QPlainTextEdit(QStringLiteral("Blank holder force is high.\n").repeated(40));
    static_cast<QFormLayout *>(content->layout())->addRow(text);
    return content;
}

struct Window
{
    Window()
    {
        m_window.setCentralWidget(newForm(12));
        m_window.resize(1000, 760);
        m_window.show();
    }

    QMainWindow m_window;
};

struct Ours : Window
{
    Ours()
    {
        auto *panel = new BVResizableWidget(m_window.centralWidget());
        panel->setGeometry(s_small);
        panel->setContainerWidget(newContent());
        panel->useHorizontalHandle(true);
        panel->useVerticalHandle(true);
        panel->useDiagonalHandle(true);
        panel->show();
        panel->onResize(s_small.size() + QSize(1, 1), s_small.topLeft());
        m_moving = panel->mainWidget();
        static_cast<MainWidget *>(m_moving)->onAnimationFinished();
    }

    QWidget *m_moving;
};

struct Plain : Window
{
    Plain()
        : m_moving(new QWidget(&m_window))
    {
        auto *layout = new QVBoxLayout(m_moving);
        layout->setContentsMargins(0, 0, 10, 10); // where the panel has its handles
        layout->addWidget(newContent());
        m_moving->setAutoFillBackground(true);
        m_moving->show();
    }

    QWidget *m_moving;
};

template <typename Scene>
void frame(benchmark::State &state)
{
    qApp->setStyleSheet(state.range(0) ? Brimvale::StyleSheetHandler::load() : QString());
    Scene scene;
    QCoreApplication::processEvents();
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % (2 * s_frames); // there and back
        const int grown = 20 * qMin(step, 2 * s_frames - step);
        scene.m_moving->setGeometry(QRect(s_small.topLeft(), s_small.size() + QSize(grown, grown)));
        QCoreApplication::processEvents();
    }
    state.SetLabel(state.range(0) ? "with the sheets" : "without a sheet");
}
BENCHMARK_TEMPLATE(frame, Ours)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(frame, Plain)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
