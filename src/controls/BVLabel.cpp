// SPDX-License-Identifier: MIT
#include "controls/BVLabel.h"

BVLabel::BVLabel(QWidget *parent)
    : BVStatusControl<QLabel>(parent)
{
}

BVLabel::BVLabel(const QString &text, QWidget *parent)
    : BVStatusControl<QLabel>(text, parent)
{
}
