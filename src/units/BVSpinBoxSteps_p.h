// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QtGlobal>

#include <optional>

class BVDoubleSpinBox;
class QEvent;
class QInputEvent;

/// The steps of a spin box: where they lead to, and those that are posted and have not arrived.
class BVSpinBoxSteps
{
public:
    /// Notes the modifiers of the event that the box handles meanwhile.
    class Modifiers;

    /// The steps go to @p box, which owns this.
    explicit BVSpinBoxSteps(BVDoubleSpinBox *box);

    /// The value that @p steps lead to, with Control ten times as many if @p accelerate; none if
    /// there is no such value.
    std::optional<double> target(int steps, bool accelerate) const;
    /// The value, in the display unit, that @p count linear or logarithmic steps lead to.
    double linear(double count) const;
    double logarithmic(double count) const;

    /// The value to which the posted steps lead; that of the box if there are none.
    double value() const;
    /// Posts a step to the value, moved into the range, if that is another one.
    void post(double value);
    /// Lets those that are posted arrive now. A slot may delete the box, and this with it.
    void flush();
    /// Makes those that are posted count no more.
    void drop();
    /// The value of a step that has arrived and counts; none for any other event.
    std::optional<double> take(const QEvent &event);

private:
    double distance(int steps, bool accelerate) const;
    double toleranceInDisplayUnit() const;

    BVDoubleSpinBox *m_box;
    std::optional<Qt::KeyboardModifiers> m_modifiers; // of the event being handled
    quint32 m_serial = 0;                             // of the steps that count
    int m_count = 0;
    double m_value = 0.0;
};

class BVSpinBoxSteps::Modifiers
{
    Q_DISABLE_COPY(Modifiers)

public:
    Modifiers(BVSpinBoxSteps &steps, const QInputEvent &event);
    ~Modifiers();

private:
    BVSpinBoxSteps &m_steps;
    QPointer<BVDoubleSpinBox> m_box;
    std::optional<Qt::KeyboardModifiers> m_outer;
};
