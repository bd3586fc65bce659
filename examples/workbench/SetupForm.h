// SPDX-License-Identifier: MIT
#pragma once

#include "ProcessSetup.h"

#include <BVWidgetStatus.h>

#include <QStringList>
#include <QWidget>

#include <vector>

class BVLabel;
class BVWidgetStatusHandler;
class FieldEditor;
class QBoxLayout;
class QGridLayout;
class QGroupBox;

/// The form of a process set-up: a group box for each group of SetupFields, whose title shows the
/// combined status of its fields. The form itself carries the combined status of the groups.
///
/// The groups stand in two columns, or in one where the form is too narrow for that.
class SetupForm : public QWidget
{
    Q_OBJECT

public:
    explicit SetupForm(QWidget *parent = nullptr);
    ~SetupForm() override;

    /// Shows @p setup and makes its values the reference.
    void setSetup(const ProcessSetup &setup);
    /// The values that have been taken over.
    ProcessSetup setup() const;
    /// Makes the values as they are the reference.
    void acceptAsReference();
    /// Brings the reference back in all fields.
    void resetToReference();
    /// Takes over what is being typed.
    void takeOver();

    /// Whether anything differs from the reference.
    bool isChanged() const;
    /// The labels of the fields that need input.
    QStringList fieldsNeedingInput() const;
    /// Gives the focus to the next field that needs input, seen from the one that has it.
    void focusNextNeedingInput();
    FieldEditor *editor(int field) const { return m_editors[size_t(field)]; }
    QGroupBox *groupBox(int group) const { return m_groups[size_t(group)]; }

    /// The rows keep their height; a window that is too low scrolls.
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A value, a text or a status may be another one.
    void changed();

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private Q_SLOTS:
    void onFieldStatusChanged(QWidget *edit, BVWidgetStatus::Stati status);

private:
    QGroupBox *createGroup(int group);
    void addField(QGridLayout *layout, QGroupBox *box, int field);
    void alignColumns();
    void arrangeColumns();

    ProcessSetup m_setup; // as it was loaded
    QBoxLayout *m_columns;
    std::vector<QWidget *> m_columnHolders;
    std::vector<FieldEditor *> m_editors;
    std::vector<QWidget *> m_sliders; // of the fields; null for none
    std::vector<QGroupBox *> m_groups;
    std::vector<QGridLayout *> m_layouts; // of the groups
    std::vector<BVLabel *> m_labels;
    std::vector<BVLabel *> m_symbols;
};
