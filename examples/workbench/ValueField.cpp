// SPDX-License-Identifier: MIT
#include "ValueField.h"

#include "SetupFields.h"

#include <BVValueEdit.h>

ValueField::ValueField(const SetupField &field, int index, QWidget *parent)
    : ValueField(field, index, new BVValueEdit(parent), parent)
{
}

ValueField::ValueField(const SetupField &field, int index, BVValueEdit *edit, QWidget *parent)
    : NumberField(field, index, edit, parent)
    , m_edit(edit)
{
    edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    edit->setUnitString(field.unitText());
    edit->setRange(field.minimum, field.maximum);
    setUp(edit->getFormatter());
    connect(edit, &BVValueEdit::valueChanged, this, &ValueField::onValueSet);
    connect(edit, &BVValueEdit::valueInvalid, this, &ValueField::onValueSet);
}

double ValueField::value() const
{
    return m_edit->value();
}

void ValueField::setValue(double value)
{
    m_edit->setValue(value);
}

void ValueField::takeOver()
{
    m_edit->storeValue();
}
