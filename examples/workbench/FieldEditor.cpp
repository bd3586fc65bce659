// SPDX-License-Identifier: MIT
#include "FieldEditor.h"

#include "SetupFields.h"

#include <BVReferenceValueInterface.h>
#include <BVWidgetInterface.h>

#include <QLineEdit>
#include <QVariant>

namespace {

const BVWidgetStatus::Stati s_differenceFlags =
    BVWidgetStatus::Different | BVWidgetStatus::StandardChanged | BVWidgetStatus::ResetAvailable;

QLineEdit *lineEditOf(QWidget *edit)
{
    auto *lineEdit = qobject_cast<QLineEdit *>(edit);
    return lineEdit ? lineEdit : edit->findChild<QLineEdit *>();
}

} // namespace

FieldEditor::FieldEditor(const SetupField &field, int index, QWidget *edit, QObject *parent)
    : QObject(parent)
    , m_field(field)
    , m_index(index)
    , m_lineEdit(lineEditOf(edit))
{
    edit->setToolTip(SetupFields::translated(field.toolTip));
    connect(m_lineEdit, &QLineEdit::textEdited, this, &FieldEditor::edited);
}

QString FieldEditor::text() const
{
    return m_lineEdit->text();
}

void FieldEditor::selectAll()
{
    m_lineEdit->selectAll();
}

void FieldEditor::load(const FieldValues &values)
{
    m_showing = true;
    show(values);
    m_showing = false;
    m_edited = false;
    keepReference();
    updateStatus();
}

void FieldEditor::acceptAsReference()
{
    keepReference();
    updateStatus();
}

void FieldEditor::reset()
{
    m_showing = true;
    restoreReference();
    m_showing = false;
    m_edited = false;
    updateStatus();
}

bool FieldEditor::needsInput() const
{
    return status()->isNeedInputStatus();
}

bool FieldEditor::isChanged() const
{
    return differsFromReference() || m_lineEdit->isModified();
}

void FieldEditor::updateStatus()
{
    if (m_showing)
        return;
    // A text that cannot be taken over differs, too: its reset brings the value back.
    const bool differs = differsFromReference() || (needsInput() && m_lineEdit->isModified());
    BVWidgetStatus::Stati stati;
    stati.setFlag(BVWidgetStatus::NeedInput, needsInput());
    stati.setFlag(BVWidgetStatus::UserEdit, m_edited);
    if (differs && reference().isValid())
        stati |= s_differenceFlags;
    for (const Control &control : m_controls) {
        control.widget->setProperty(BVReferenceValueInterface::s_property,
                                    differs ? reference() : QVariant());
        control.status->setBvStatus(stati);
    }
}

void FieldEditor::onUserEdit()
{
    if (m_showing)
        return;
    m_edited = true;
    updateStatus();
    Q_EMIT edited();
}

void FieldEditor::onStandardAction(int action)
{
    if (action != BVWidgetInterface::ResetValue)
        return;
    reset();
    Q_EMIT edited();
}
