// SPDX-License-Identifier: MIT
#include "NumberField.h"

#include "SetupFields.h"

#include <BVFormatter.h>

#include <QVariant>

void NumberField::store(FieldValues &values) const
{
    values.setNumber(index(), value());
}

void NumberField::setUp(BVFormatter *formatter)
{
    formatter->setNotation(BVFormatter::Fixed);
    formatter->setAdditionalDecimals(field().extraDecimals);
    formatter->setCutUnnecessaryDigits(true);
    formatter->checkForEmptyValue(true, FieldValues::noValue());
}

void NumberField::onValueSet()
{
    if (value() == m_value)
        return;
    m_value = value();
    Q_EMIT valueChanged(m_value);
    onUserEdit();
}

void NumberField::show(const FieldValues &values)
{
    setValue(values.number(index()));
}

void NumberField::keepReference()
{
    m_reference = value();
}

void NumberField::restoreReference()
{
    setValue(m_reference);
}

bool NumberField::differsFromReference() const
{
    return value() != m_reference;
}

QVariant NumberField::reference() const
{
    return m_reference == FieldValues::noValue() ? QVariant() : QVariant(m_reference);
}
