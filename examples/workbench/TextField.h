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
    TextField(int index, QWidget *parent);

    void store(ProcessSetup &setup) const override;
    void takeOver() override;

protected:
    void show(const ProcessSetup &setup) override;
    void keepReference() override;
    void restoreReference() override;
    bool differsFromReference() const override;
    QVariant reference() const override;

private:
    TextField(int index, BVLineEdit *edit, QWidget *parent);
    void setText(const QString &text);

    BVLineEdit *m_edit;
    QString m_text;
    QString m_reference; // empty for none
};
