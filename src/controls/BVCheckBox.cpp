// SPDX-License-Identifier: MIT
#include "controls/BVCheckBox.h"

BVCheckBox::BVCheckBox(QWidget *parent)
    : BVStatusControl<QCheckBox>(parent)
{
}

BVCheckBox::BVCheckBox(const QString &text, QWidget *parent)
    : BVStatusControl<QCheckBox>(text, parent)
{
}
