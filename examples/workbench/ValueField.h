// SPDX-License-Identifier: MIT
#pragma once

#include "NumberField.h"

class BVValueEdit;
class QWidget;

/// Edits a physical value in a value edit.
class ValueField : public NumberField
{
    Q_OBJECT

public:
    ValueField(const SetupField &field, int index, QWidget *parent);

    double value() const override;
    void setValue(double value) override;
    void takeOver() override;

private:
    ValueField(const SetupField &field, int index, BVValueEdit *edit, QWidget *parent);

    BVValueEdit *m_edit;
};
