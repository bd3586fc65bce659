// SPDX-License-Identifier: MIT
#pragma once

#include <BVWidgetStatus.h>

#include <QGroupBox>
#include <QStringList>

#include <vector>

class BVLabel;
class FieldEditor;
class FieldValues;
class QGridLayout;
struct SetupField;

/// A group box with the editors of fields, whose title shows their combined status.
class FieldGroup : public QGroupBox
{
    Q_OBJECT

public:
    /// For the fields of a group of a table that lives as long as the program.
    FieldGroup(const QString &title, const std::vector<SetupField> &fields, int group,
               QWidget *parent = nullptr);

    const std::vector<FieldEditor *> &editors() const { return m_editors; }

    /// Shows the values and makes them the reference.
    void load(const FieldValues &values);
    /// Writes the values that have been taken over.
    void store(FieldValues &values) const;
    /// Makes the values as they are the reference.
    void acceptAsReference();
    /// Brings the reference back in all fields.
    void reset();
    /// Takes over what is being typed.
    void takeOver();

    /// Whether anything differs from the reference.
    bool isChanged() const;
    /// The labels of the fields that need input; none while the group is disabled.
    QStringList fieldsNeedingInput() const;
    /// Gives the focus to the next field that needs input, seen from the one that has it, from the
    /// first again after the last.
    void focusNextNeedingInput();

Q_SIGNALS:
    /// A value, a text or a status may be another one.
    void changed();

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void onFieldStatusChanged(QWidget *edit, BVWidgetStatus::Stati status);

private:
    void addField(const SetupField &field, int index);
    void alignColumns();

    QGridLayout *m_layout;
    std::vector<FieldEditor *> m_editors;
    std::vector<QWidget *> m_sliders; // of the fields; null for none
    std::vector<BVLabel *> m_labels;
};
