// SPDX-License-Identifier: MIT
#include "FieldEditor.h"

#include <BVLineEdit.h>
#include <BVReferenceValueInterface.h>

#include <QVariant>

namespace {

const BVWidgetStatus::Stati s_differenceFlags =
    BVWidgetStatus::Different | BVWidgetStatus::StandardChanged | BVWidgetStatus::ResetAvailable;

} // namespace

FieldEditor::FieldEditor(int index, BVLineEdit *edit, QObject *parent)
    : QObject(parent)
    , m_index(index)
    , m_edit(edit)
{
    connect(edit, &BVLineEdit::standardActionTriggered, this, &FieldEditor::onStandardAction);
    connect(edit, &QLineEdit::textEdited, this, &FieldEditor::edited);
}

void FieldEditor::load(const ProcessSetup &setup)
{
    m_showing = true;
    show(setup);
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
    return m_edit->isNeedInputStatus();
}

bool FieldEditor::isChanged() const
{
    return differsFromReference() || m_edit->isModified();
}

void FieldEditor::updateStatus()
{
    if (m_showing)
        return;
    // A text that cannot be taken over differs, too: its reset brings the value back.
    const bool differs = differsFromReference() || (needsInput() && m_edit->isModified());
    BVWidgetStatus::Stati stati;
    stati.setFlag(BVWidgetStatus::NeedInput, needsInput());
    stati.setFlag(BVWidgetStatus::UserEdit, m_edited);
    if (differs && reference().isValid())
        stati |= s_differenceFlags;
    m_edit->setProperty(BVReferenceValueInterface::s_property, differs ? reference() : QVariant());
    m_edit->setBvStatus(stati);
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
