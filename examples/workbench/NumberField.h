// SPDX-License-Identifier: MIT
#pragma once

#include "FieldEditor.h"
#include "FieldValues.h"

class BVFormatter;

/// Edits a physical value, in the unit of the field.
class NumberField : public FieldEditor
{
    Q_OBJECT

public:
    void store(FieldValues &values) const override;

    /// FieldValues::noValue() for none.
    virtual double value() const = 0;
    /// Shows another value. It counts as the user's unless the field is being loaded or reset.
    virtual void setValue(double value) = 0;

Q_SIGNALS:
    /// The value is another one, whoever has set it.
    void valueChanged(double value);

protected:
    template <typename Edit>
    NumberField(const SetupField &field, int index, Edit *edit, QObject *parent)
        : FieldEditor(field, index, edit, parent)
    {
    }

    /// Lets @p formatter write the values as the field's are written.
    void setUp(BVFormatter *formatter);
    /// To be called when the edit holds a value, perhaps the same one.
    void onValueSet();

    void show(const FieldValues &values) override;
    void keepReference() override;
    void restoreReference() override;
    bool differsFromReference() const override;
    QVariant reference() const override;

private:
    double m_value = FieldValues::noValue(); // as it was set last
    double m_reference = FieldValues::noValue();
};
