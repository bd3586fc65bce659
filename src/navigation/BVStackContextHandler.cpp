// SPDX-License-Identifier: MIT
#include "navigation/BVStackContextHandler.h"

BVStackContextHandler::BVStackContextHandler(QObject *parent)
    : QObject(parent)
{
}

BVStackContextHandler::~BVStackContextHandler() = default;

bool BVStackContextHandler::showContextMenu(BVControlledStackItem *, const QPoint &)
{
    return false;
}

void BVStackContextHandler::addActions(BVControlledStackItem *, QMenu *) {}
