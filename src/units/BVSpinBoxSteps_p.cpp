// SPDX-License-Identifier: MIT
#include "units/BVSpinBoxSteps_p.h"

#include <QCoreApplication>
#include <QEvent>

namespace {

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

BVSpinBoxSteps::BVSpinBoxSteps(QObject *receiver)
    : m_receiver(receiver)
{
}

std::optional<double> BVSpinBoxSteps::pendingValue() const
{
    return m_count > 0 ? std::optional<double>(m_value) : std::nullopt;
}

void BVSpinBoxSteps::post(double value)
{
    m_value = value;
    ++m_count;
    QCoreApplication::postEvent(m_receiver, new StepEvent(value, m_serial));
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
