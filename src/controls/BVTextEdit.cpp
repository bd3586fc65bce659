// SPDX-License-Identifier: MIT
#include "controls/BVTextEdit.h"

BVTextEdit::BVTextEdit(QWidget *parent)
    : BVStatusControl<QTextEdit>(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

BVTextEdit::BVTextEdit(const QString &text, QWidget *parent)
    : BVTextEdit(parent)
{
    setText(text);
}

bool BVTextEdit::viewportEvent(QEvent *event)
{
    return showsReference(event) || BVStatusControl<QTextEdit>::viewportEvent(event);
}

QMenu *BVTextEdit::createContextMenu()
{
    return createStandardContextMenu();
}
