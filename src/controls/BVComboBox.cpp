// SPDX-License-Identifier: MIT
#include "controls/BVComboBox.h"

#include <QLineEdit>
#include <QWheelEvent>

BVComboBox::BVComboBox(QWidget *parent)
    : BVStatusControl<QComboBox>(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void BVComboBox::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        BVStatusControl<QComboBox>::wheelEvent(event);
    else
        event->ignore();
}

QMenu *BVComboBox::createContextMenu()
{
    return lineEdit() ? lineEdit()->createStandardContextMenu() : nullptr;
}
