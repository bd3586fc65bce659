// SPDX-License-Identifier: MIT
#pragma once

#include "FieldEditor.h"

class BVValueEdit;
class QWidget;

/// Edits a physical value.
class NumberField : public FieldEditor
{
    Q_OBJECT

public:
    NumberField(int index, QWidget *parent);

    void store(ProcessSetup &setup) const override;
    void takeOver() override;

protected:
    void show(const ProcessSetup &setup) override;
    void keepReference() override;
    void restoreReference() override;
    bool differsFromReference() const override;
    QVariant reference() const override;

private:
    NumberField(int index, BVValueEdit *edit, QWidget *parent);
    void onValueSet();

    BVValueEdit *m_valueEdit;
    double m_value;     // as it was set last
    double m_reference; // noValue() for none
};
