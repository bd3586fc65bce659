// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <vector>

class BVWidgetInterface;
class FieldValues;
class QLineEdit;
class QVariant;
class QWidget;
struct SetupField;

/// Edits one field of the process set-up or of an operation and keeps the status of its edit.
///
/// The values last loaded or saved are the reference. UserEdit says that the user has changed the
/// value since it was loaded; Different, together with what offers the reset in the context menu,
/// that it is not the reference. A field that had no value yet has no reference. NeedInput comes
/// from the edits themselves.
class FieldEditor : public QObject
{
    Q_OBJECT

public:
    /// A field of a table that lives as long as the program.
    const SetupField &field() const { return m_field; }
    /// Its index in the table.
    int index() const { return m_index; }
    /// Owned by its parent widget.
    QWidget *edit() const { return m_controls.front().widget; }
    /// What the edit carries.
    const BVWidgetInterface *status() const { return m_controls.front().status; }
    /// The text as it stands in the edit.
    QString text() const;
    void selectAll();

    /// Shows the field's value and makes it the reference.
    void load(const FieldValues &values);
    virtual void store(FieldValues &values) const = 0;
    /// Makes the value as it is the reference.
    void acceptAsReference();
    /// Brings the reference back.
    void reset();
    /// Takes a typed text over now.
    virtual void takeOver() = 0;

    /// Lets @p control, which lives as long as the edit, carry the status and offer the reset, too.
    template <typename Widget>
    void addControl(Widget *control)
    {
        m_controls.push_back({control, control});
        connect(control, &Widget::standardActionTriggered, this, &FieldEditor::onStandardAction);
    }

    bool needsInput() const;
    /// Whether the reference and what the edit holds are not the same.
    bool isChanged() const;
    void updateStatus();

Q_SIGNALS:
    /// The user has changed the text or the value.
    void edited();

protected:
    /// @p edit is a control of the library that is a line edit or has one inside.
    template <typename Edit>
    FieldEditor(const SetupField &field, int index, Edit *edit, QObject *parent)
        : FieldEditor(field, index, static_cast<QWidget *>(edit), parent)
    {
        addControl(edit);
    }

    QLineEdit *lineEdit() const { return m_lineEdit; }

    virtual void show(const FieldValues &values) = 0;
    virtual void keepReference() = 0;
    virtual void restoreReference() = 0;
    virtual bool differsFromReference() const = 0;
    /// Invalid when there is no reference.
    virtual QVariant reference() const = 0;

    void onUserEdit();
    void onStandardAction(int action);

private:
    /// One object in its two roles.
    struct Control
    {
        QWidget *widget;
        BVWidgetInterface *status;
    };

    FieldEditor(const SetupField &field, int index, QWidget *edit, QObject *parent);

    const SetupField &m_field;
    int m_index;
    QLineEdit *m_lineEdit;           // the edit, or inside of it
    std::vector<Control> m_controls; // the first is the edit
    bool m_showing = false;
    bool m_edited = false;
};
