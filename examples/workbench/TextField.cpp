// SPDX-License-Identifier: MIT
#include "TextField.h"

#include "FieldValues.h"

#include <BVLineEdit.h>

#include <QVariant>

TextField::TextField(const SetupField &field, int index, QWidget *parent)
    : TextField(field, index, new BVLineEdit(parent), parent)
{
}

TextField::TextField(const SetupField &field, int index, BVLineEdit *edit, QWidget *parent)
    : FieldEditor(field, index, edit, parent)
    , m_edit(edit)
{
    connect(edit, &QLineEdit::editingFinished, this, &TextField::takeOver);
}

void TextField::store(FieldValues &values) const
{
    values.setText(index(), m_text);
}

void TextField::takeOver()
{
    const QString text = FieldValues::storableText(m_edit->text());
    if (text == m_text && text == m_edit->text()) {
        m_edit->setModified(false);
        return;
    }
    const bool changed = text != m_text;
    setText(text);
    if (changed)
        onUserEdit();
}

void TextField::show(const FieldValues &values)
{
    setText(values.text(index()));
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
