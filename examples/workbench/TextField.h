// SPDX-License-Identifier: MIT
#pragma once

#include "FieldEditor.h"

#include <QString>

class BVLineEdit;
class QWidget;

/// Edits a text that must not be empty.
class TextField : public FieldEditor
{
    Q_OBJECT

public:
    TextField(const SetupField &field, int index, QWidget *parent);

    void store(FieldValues &values) const override;
    void takeOver() override;

protected:
    void show(const FieldValues &values) override;
    void keepReference() override;
    void restoreReference() override;
    bool differsFromReference() const override;
    QVariant reference() const override;

private:
    TextField(const SetupField &field, int index, BVLineEdit *edit, QWidget *parent);
    void setText(const QString &text);

    BVLineEdit *m_edit;
    QString m_text;
    QString m_reference; // empty for none
};
