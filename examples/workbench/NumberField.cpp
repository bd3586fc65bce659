// SPDX-License-Identifier: MIT
#include "NumberField.h"

#include "ProcessSetup.h"
#include "SetupFields.h"

#include <BVValueEdit.h>

#include <QVariant>

NumberField::NumberField(int index, QWidget *parent)
    : NumberField(index, new BVValueEdit(parent), parent)
{
}

NumberField::NumberField(int index, BVValueEdit *edit, QWidget *parent)
    : FieldEditor(index, edit, parent)
    , m_valueEdit(edit)
    , m_value(ProcessSetup::noValue())
    , m_reference(ProcessSetup::noValue())
{
    const SetupField &field = SetupFields::field(index);
    edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    edit->setToolTip(SetupFields::translated(field.toolTip));
    edit->setUnitString(field.unitText());
    edit->setRange(field.minimum, field.maximum);
    BVFormatter *formatter = edit->getFormatter();
    formatter->setNotation(BVFormatter::Fixed);
    formatter->setAdditionalDecimals(field.extraDecimals);
    formatter->setCutUnnecessaryDigits(true);
    formatter->checkForEmptyValue(true, ProcessSetup::noValue());
    connect(edit, &BVValueEdit::valueChanged, this, &NumberField::onValueSet);
    connect(edit, &BVValueEdit::valueInvalid, this, &NumberField::onValueSet);
}

void NumberField::store(ProcessSetup &setup) const
{
    setup.setNumber(index(), m_valueEdit->value());
}

void NumberField::takeOver()
{
    m_valueEdit->storeValue();
}

void NumberField::show(const ProcessSetup &setup)
{
    m_valueEdit->setValue(setup.number(index()));
}

void NumberField::keepReference()
{
    m_reference = m_valueEdit->value();
}

void NumberField::restoreReference()
{
    m_valueEdit->setValue(m_reference);
}

bool NumberField::differsFromReference() const
{
    return m_valueEdit->value() != m_reference;
}

QVariant NumberField::reference() const
{
    return m_reference == ProcessSetup::noValue() ? QVariant() : QVariant(m_reference);
}

void NumberField::onValueSet()
{
    const double value = m_valueEdit->value();
    if (value == m_value)
        return;
    m_value = value;
    onUserEdit();
}
