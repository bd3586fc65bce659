// SPDX-License-Identifier: MIT
//
// What an input with a value costs while it is worked with, beside the toolkit's own widget under
// the same sheet: a notch of the wheel, a slider's step and its dragging, from the event to the
// repainted widget. Range, decimals and texts are alike.

#include "style/StyleSheetHandler.h"
#include "units/BVDoubleSpinBox.h"
#include "units/BVSlider.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {

constexpr int s_notch = 120;      // eighths of a degree
constexpr int s_turn = 100;       // steps one way before it goes back
constexpr int s_positions = 1000; // of a slider
constexpr int s_moves = 1000;     // of a drag

/// Tells whether a widget has been painted.
class PaintWatch : public QObject
{
public:
    bool wasPainted() const { return m_wasPainted; }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        m_wasPainted |= event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_wasPainted = false;
};

/// Shows a widget in a window and gives it the keyboard.
void show(QWidget &window, QWidget &widget)
{
    (new QVBoxLayout(&window))->addWidget(&widget);
    window.resize(400, 100);
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    widget.setFocus();
    QApplication::processEvents();
}

/// Lets happen what was posted, and what that posts in turn: a value, then its painting.
void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents();
}

/// The measured work does what it should: it changes the value and paints the widget.
template <typename Widget, typename Work>
void check(Widget &widget, const Work &work)
{
    PaintWatch watch; // it goes before
    widget.installEventFilter(&watch);
    const auto before = widget.value();
    work(1);
    if (widget.value() == before)
        qFatal("the value does not follow");
    if (!watch.wasPainted())
        qFatal("the widget does not show it");
}

/// Runs work(+1) and work(-1), a number of times the one and then the other way.
template <typename Work>
void backAndForth(benchmark::State &state, const Work &work)
{
    int step = 0;
    for (auto _ : state)
        work(step++ / s_turn % 2 ? -1 : 1);
}

void giveUnit(BVDoubleSpinBox &box)
{
    box.setUnitString(QStringLiteral("mm"));
}

void giveUnit(QDoubleSpinBox &box)
{
    box.setSuffix(QStringLiteral(" mm"));
}

template <typename Box>
void spinBoxNotch(benchmark::State &state)
{
    QWidget window;
    Box box(&window);
    giveUnit(box);
    box.setDecimals(2);
    box.setRange(0.0, 99999.0);
    box.setValue(1234.5);
    show(window, box);
    if (box.text() != QLatin1String("1234.50 mm") || !box.hasFocus())
        qFatal("the box is not as it should be: %s", qPrintable(box.text()));
    const QPointF middle = box.rect().center();
    const auto turn = [&](int direction) {
        QWheelEvent notch(middle, box.mapToGlobal(middle.toPoint()), QPoint(),
                          QPoint(0, direction * s_notch), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&box, &notch);
        settle();
    };
    check(box, turn);
    backAndForth(state, turn);
}
BENCHMARK_TEMPLATE(spinBoxNotch, BVDoubleSpinBox)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(spinBoxNotch, QDoubleSpinBox)->Unit(benchmark::kMicrosecond);

void prepare(QSlider &slider)
{
    slider.setRange(0, s_positions);
    slider.setValue(s_positions / 2);
}

void measureSteps(benchmark::State &state, QSlider &slider)
{
    show(*slider.window(), slider);
    const auto step = [&](int direction) {
        slider.setValue(slider.value() + direction);
        settle();
    };
    check(slider, step);
    backAndForth(state, step);
}

void leavePlain(BVSlider &) {}

void giveLimits(BVSlider &slider)
{
    slider.setAdmissibleRange(s_positions / 4, s_positions * 3 / 4, true);
}

void giveCurve(BVSlider &slider)
{
    slider.setIsDVValueSlider(true);
    slider.setDistribution(s_positions / 2.0, s_positions / 10.0);
}

void sliderStep(benchmark::State &state, void (*dress)(BVSlider &))
{
    QWidget window;
    BVSlider slider(Qt::Horizontal, &window);
    prepare(slider);
    dress(slider);
    measureSteps(state, slider);
}
BENCHMARK_CAPTURE(sliderStep, plain, leavePlain)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(sliderStep, limits, giveLimits)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(sliderStep, curve, giveCurve)->Unit(benchmark::kMicrosecond);

void sliderStepPeer(benchmark::State &state)
{
    QWidget window;
    QSlider slider(Qt::Horizontal, &window);
    prepare(slider);
    measureSteps(state, slider);
}
BENCHMARK(sliderStepPeer)->Unit(benchmark::kMicrosecond);

void sendMouse(QWidget &widget, QEvent::Type type, const QPoint &position)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held =
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, position, widget.mapToGlobal(position), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
    settle();
}

/// From the slider's middle to its right end and back, by a pixel a move.
void dragBy(QSlider &slider, int moves)
{
    slider.setValue(s_positions / 2); // the handle is in the middle
    const QPoint start = slider.rect().center();
    const int way = slider.width() / 2;
    sendMouse(slider, QEvent::MouseButtonPress, start);
    for (int move = 1; move <= moves; ++move)
        sendMouse(slider, QEvent::MouseMove,
                  start + QPoint(move / way % 2 ? way - move % way : move % way, 0));
    sendMouse(slider, QEvent::MouseButtonRelease, start);
}

template <typename Slider>
void sliderDrag(benchmark::State &state)
{
    QWidget window;
    Slider slider(Qt::Horizontal, &window);
    prepare(slider);
    show(window, slider);
    check(slider, [&](int) { dragBy(slider, s_positions / 10); });
    for (auto _ : state)
        dragBy(slider, s_moves);
}
BENCHMARK_TEMPLATE(sliderDrag, BVSlider)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(sliderDrag, QSlider)->Unit(benchmark::kMillisecond);

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
