// SPDX-License-Identifier: MIT
#include "platform/BVMenu.h"

BVMenu::BVMenu(QWidget *parent)
    : BVMenu(QString(), parent)
{
}

BVMenu::BVMenu(const QString &title, QWidget *parent)
    : QMenu(title, parent)
{
    setToolTipsVisible(true);
}
