// SPDX-License-Identifier: MIT
#include "units/BVSpinBoxSteps_p.h"

#include "units/BVDoubleSpinBox.h"
#include "units/BVStepping_p.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QInputEvent>

#include <cmath>
#include <utility>

namespace {

constexpr double s_acceleration = 10.0; // steps a step, with Control
constexpr double s_fineStep = 0.1;      // steps a step, with Shift

/// The value that a step leads to.
class StepEvent : public QEvent
{
public:
    static const QEvent::Type s_eventType;

    StepEvent(double value, quint32 serial)
        : QEvent(s_eventType)
        , m_value(value)
        , m_serial(serial)
    {
    }

    double value() const { return m_value; }
    quint32 serial() const { return m_serial; }

private:
    double m_value;
    quint32 m_serial;
};

const QEvent::Type StepEvent::s_eventType = static_cast<QEvent::Type>(QEvent::registerEventType());

} // namespace

BVSpinBoxSteps::Modifiers::Modifiers(BVSpinBoxSteps &steps, const QInputEvent &event)
    : m_steps(steps)
    , m_box(steps.m_box)
    , m_outer(std::exchange(steps.m_modifiers, event.modifiers()))
{
}

BVSpinBoxSteps::Modifiers::~Modifiers()
{
    if (m_box) // else a slot has deleted it, and the steps with it
        m_steps.m_modifiers = m_outer;
}

BVSpinBoxSteps::BVSpinBoxSteps(BVDoubleSpinBox *box)
    : m_box(box)
{
}

std::optional<double> BVSpinBoxSteps::target(int steps, bool accelerate) const
{
    const BVFormatter &formatter = *m_box->getFormatter();
    const double count = distance(steps, accelerate);
    const double shown = m_box->isLogarithmic() ? logarithmic(count) : linear(count);
    double value = shown;
    const QString unit = formatter.displayUnit();
    if (formatter.isValueUnitSet() && !unit.isEmpty() &&
        !formatter.valueFromUnit(shown, unit, value))
        return std::nullopt;
    if (std::isnan(value))
        return std::nullopt;
    const double minimum = m_box->minimum();
    const double maximum = m_box->maximum();
    const double step = value - this->value();
    if (m_box->wrapping())
        value = BVStepping::wrapped(value, minimum, maximum, m_box->tolerance());
    return BVStepping::ontoLimit(m_box->toValidValue(value), step, minimum, maximum);
}

double BVSpinBoxSteps::distance(int steps, bool accelerate) const
{
    const Qt::KeyboardModifiers modifiers =
        m_modifiers.value_or(QGuiApplication::keyboardModifiers());
    if (modifiers & Qt::ControlModifier)
        return accelerate ? steps * s_acceleration : steps;
    return modifiers & Qt::ShiftModifier ? steps * s_fineStep : steps;
}

double BVSpinBoxSteps::linear(double count) const
{
    const double current = m_box->getFormatter()->valueToDisplayValue(value());
    const double step =
        BVStepping::stepOfRange(m_box->minimumInDisplayUnit(), m_box->maximumInDisplayUnit(),
                                m_box->slideSteps(), m_box->singleStep());
    if (!m_box->isSnapToSteps())
        return BVStepping::linear(current, step, count);
    return BVStepping::linearOnGrid(current, step, count, toleranceInDisplayUnit());
}

double BVSpinBoxSteps::logarithmic(double count) const
{
    const double current = m_box->getFormatter()->valueToDisplayValue(value());
    const int steps = m_box->logSlideSteps();
    const double minimum = m_box->minimumInDisplayUnit();
    if (!(current > 0.0) || (steps > 0 && !(minimum > 0.0)))
        return linear(count);
    double decades = m_box->singleStep();
    if (steps > 0) {
        const double maximum = m_box->maximumInDisplayUnit();
        decades = BVStepping::stepOfRange(std::log10(minimum), std::log10(maximum), steps, decades);
    }
    return BVStepping::logarithmic(current, decades, count);
}

/// As a difference, so that the offset between the scales of temperatures does not count.
double BVSpinBoxSteps::toleranceInDisplayUnit() const
{
    const BVFormatter &formatter = *m_box->getFormatter();
    return m_box->tolerance() *
           std::fabs(formatter.valueToDisplayValue(1.0) - formatter.valueToDisplayValue(0.0));
}

double BVSpinBoxSteps::value() const
{
    return m_count > 0 ? m_value : m_box->value();
}

void BVSpinBoxSteps::post(double value)
{
    const double bounded = qBound(m_box->minimum(), value, m_box->maximum());
    if (bounded == this->value())
        return;
    m_value = bounded;
    ++m_count;
    QCoreApplication::postEvent(m_box, new StepEvent(bounded, m_serial));
}

void BVSpinBoxSteps::flush()
{
    if (m_count > 0)
        QCoreApplication::sendPostedEvents(m_box, StepEvent::s_eventType);
}

void BVSpinBoxSteps::drop()
{
    m_count = 0;
    ++m_serial;
}

std::optional<double> BVSpinBoxSteps::take(const QEvent &event)
{
    if (event.type() != StepEvent::s_eventType)
        return std::nullopt;
    const auto &step = static_cast<const StepEvent &>(event);
    if (step.serial() != m_serial)
        return std::nullopt;
    --m_count;
    return step.value();
}
