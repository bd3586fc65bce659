// SPDX-License-Identifier: MIT
#include "TextField.h"

#include "ProcessSetup.h"
#include "SetupFields.h"

#include <BVLineEdit.h>

#include <QVariant>

TextField::TextField(int index, QWidget *parent)
    : FieldEditor(index, new BVLineEdit(parent), parent)
{
    edit()->setToolTip(SetupFields::translated(SetupFields::field(index).toolTip));
    connect(edit(), &QLineEdit::editingFinished, this, &TextField::takeOver);
}

void TextField::store(ProcessSetup &setup) const
{
    setup.setText(index(), m_text);
}

void TextField::takeOver()
{
    const QString text = ProcessSetup::storableText(edit()->text());
    if (text == m_text && text == edit()->text()) {
        edit()->setModified(false);
        return;
    }
    const bool changed = text != m_text;
    setText(text);
    if (changed)
        onUserEdit();
}

void TextField::show(const ProcessSetup &setup)
{
    setText(setup.text(index()));
}

void TextField::keepReference()
{
    m_reference = m_text;
}

void TextField::restoreReference()
{
    setText(m_reference);
}

bool TextField::differsFromReference() const
{
    return m_text != m_reference;
}

QVariant TextField::reference() const
{
    return m_reference.isEmpty() ? QVariant() : QVariant(m_reference);
}

void TextField::setText(const QString &text)
{
    m_text = text;
    edit()->setText(text);
    edit()->setNeedInputStatus(text.isEmpty());
}
