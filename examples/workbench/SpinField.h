// SPDX-License-Identifier: MIT
#pragma once

#include "NumberField.h"

class BVDoubleSpinBox;
class QWidget;

/// Edits a physical value in a spin box, which is empty while there is no value.
class SpinField : public NumberField
{
    Q_OBJECT

public:
    SpinField(const SetupField &field, int index, QWidget *parent);

    double value() const override;
    void setValue(double value) override;
    void takeOver() override;

private:
    SpinField(const SetupField &field, int index, BVDoubleSpinBox *box, QWidget *parent);

    BVDoubleSpinBox *m_box;
};
