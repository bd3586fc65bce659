// SPDX-License-Identifier: MIT
#include "controls/BVButton.h"

BVButton::BVButton(QWidget *parent)
    : BVStatusControl<QToolButton>(parent)
{
}
