// SPDX-License-Identifier: MIT
#include "SpinField.h"

#include "SetupFields.h"

#include <BVDoubleSpinBox.h>

SpinField::SpinField(const SetupField &field, int index, QWidget *parent)
    : SpinField(field, index, new BVDoubleSpinBox(parent), parent)
{
}

SpinField::SpinField(const SetupField &field, int index, BVDoubleSpinBox *box, QWidget *parent)
    : NumberField(field, index, box, parent)
    , m_box(box)
{
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    box->setUnitString(field.unitText());
    box->setRange(field.minimum, field.maximum);
    box->setSingleStep(field.spinStep);
    box->setKeyboardTracking(false); // a typed text is taken over as in the other edits
    setUp(box->getFormatter());
    connect(box, QOverload<double>::of(&BVDoubleSpinBox::valueChanged), this,
            &SpinField::onValueSet);
    connect(box, &BVDoubleSpinBox::emptyChanged, this, &SpinField::onValueSet);
}

double SpinField::value() const
{
    return m_box->isEmpty() ? FieldValues::noValue() : m_box->value();
}

void SpinField::setValue(double value)
{
    if (value == FieldValues::noValue())
        m_box->setEmpty(true);
    else
        m_box->setValue(value);
}

void SpinField::takeOver()
{
    m_box->interpretText();
}
