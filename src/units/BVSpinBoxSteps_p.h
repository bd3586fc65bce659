// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>

class QEvent;
class QObject;

/// The steps of a spin box that are posted to it and have not arrived.
class BVSpinBoxSteps
{
public:
    /// The steps go to @p receiver, which owns this.
    explicit BVSpinBoxSteps(QObject *receiver);

    /// The value to which the posted steps lead; none if there are none.
    std::optional<double> pendingValue() const;
    void post(double value);
    /// Makes those that are posted count no more.
    void drop();
    /// The value of a step that has arrived and counts; none for any other event.
    std::optional<double> take(const QEvent &event);

private:
    QObject *m_receiver;
    quint32 m_serial = 0; // of the steps that count
    int m_count = 0;
    double m_value = 0.0;
};
