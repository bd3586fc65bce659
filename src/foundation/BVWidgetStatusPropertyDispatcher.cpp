// SPDX-License-Identifier: MIT
#include "foundation/BVWidgetStatusPropertyDispatcher.h"

#include "foundation/BVWidgetStatusChangedEvent.h"

#include <QWidget>

void BVWidgetStatusPropertyDispatcher::dispatch(QWidget *watched, QWidget *owner)
{
    if (watched && owner)
        new BVWidgetStatusPropertyDispatcher(watched, owner);
}

BVWidgetStatusPropertyDispatcher::BVWidgetStatusPropertyDispatcher(QWidget *watched, QWidget *owner)
    : QObject(owner)
{
    watched->installEventFilter(this);
}

bool BVWidgetStatusPropertyDispatcher::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == BVWidgetStatusChangedEvent::s_eventType) {
        const auto *change = static_cast<BVWidgetStatusChangedEvent *>(event);
        BVWidgetStatus::setStatusProperty(qobject_cast<QWidget *>(parent()), change->status());
    }
    return false;
}
