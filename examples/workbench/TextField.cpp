// SPDX-License-Identifier: MIT
#include "TextField.h"

#include "ProcessSetup.h"

#include <BVLineEdit.h>

#include <QVariant>

TextField::TextField(int index, QWidget *parent)
    : TextField(index, new BVLineEdit(parent), parent)
{
}

TextField::TextField(int index, BVLineEdit *edit, QWidget *parent)
    : FieldEditor(index, edit, parent)
    , m_edit(edit)
{
    connect(edit, &QLineEdit::editingFinished, this, &TextField::takeOver);
}

void TextField::store(ProcessSetup &setup) const
{
    setup.setText(index(), m_text);
}

void TextField::takeOver()
{
    const QString text = ProcessSetup::storableText(m_edit->text());
    if (text == m_text && text == m_edit->text()) {
        m_edit->setModified(false);
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
    m_edit->setText(text);
    m_edit->setNeedInputStatus(text.isEmpty());
}
