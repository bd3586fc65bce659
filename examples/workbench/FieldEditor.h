// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class BVWidgetInterface;
class ProcessSetup;
class QLineEdit;
class QVariant;
class QWidget;

/// Edits one field of the process set-up and keeps the status of its edit.
///
/// The values last loaded or saved are the reference. UserEdit says that the user has changed the
/// value since it was loaded; Different, together with what offers the reset in the context menu,
/// that it is not the reference. A field that had no value yet has no reference. NeedInput comes
/// from the edits themselves.
class FieldEditor : public QObject
{
    Q_OBJECT

public:
    int index() const { return m_index; }
    /// Owned by its parent widget.
    QWidget *edit() const { return m_edit; }
    /// What the edit carries.
    const BVWidgetInterface *status() const { return m_status; }
    /// The text as it stands in the edit.
    QString text() const;
    void selectAll();

    /// Shows the field's value and makes it the reference.
    void load(const ProcessSetup &setup);
    virtual void store(ProcessSetup &setup) const = 0;
    /// Makes the value as it is the reference.
    void acceptAsReference();
    /// Brings the reference back.
    void reset();
    /// Takes a typed text over now.
    virtual void takeOver() = 0;

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
    FieldEditor(int index, Edit *edit, QObject *parent)
        : FieldEditor(index, edit, edit, parent)
    {
        connect(edit, &Edit::standardActionTriggered, this, &FieldEditor::onStandardAction);
    }

    QLineEdit *lineEdit() const { return m_lineEdit; }

    virtual void show(const ProcessSetup &setup) = 0;
    virtual void keepReference() = 0;
    virtual void restoreReference() = 0;
    virtual bool differsFromReference() const = 0;
    /// Invalid when there is no reference.
    virtual QVariant reference() const = 0;

    void onUserEdit();
    void onStandardAction(int action);

private:
    FieldEditor(int index, QWidget *edit, BVWidgetInterface *status, QObject *parent);

    int m_index;
    QWidget *m_edit;
    BVWidgetInterface *m_status; // the same object
    QLineEdit *m_lineEdit;       // the same object, or inside of it
    bool m_showing = false;
    bool m_edited = false;
};
