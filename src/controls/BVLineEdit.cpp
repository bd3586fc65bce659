// SPDX-License-Identifier: MIT
#include "controls/BVLineEdit.h"

BVLineEdit::BVLineEdit(QWidget *parent)
    : BVStatusControl<QLineEdit>(parent)
{
}

BVLineEdit::BVLineEdit(const QString &text, QWidget *parent)
    : BVStatusControl<QLineEdit>(text, parent)
{
}

QMenu *BVLineEdit::createContextMenu()
{
    return createStandardContextMenu();
}
