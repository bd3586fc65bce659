// SPDX-License-Identifier: MIT
#include "controls/BVPushButton.h"

BVPushButton::BVPushButton(QWidget *parent)
    : BVStatusControl<QPushButton>(parent)
{
}

BVPushButton::BVPushButton(const QString &text, QWidget *parent)
    : BVStatusControl<QPushButton>(text, parent)
{
}
