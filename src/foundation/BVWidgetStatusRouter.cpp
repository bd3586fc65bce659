// SPDX-License-Identifier: MIT
#include "foundation/BVWidgetStatusRouter.h"

#include "foundation/BVWidgetStatusChangedEvent.h"

#include <QCoreApplication>
#include <QWidget>

void BVWidgetStatusRouter::route(QWidget *receiver, QWidget *sender)
{
    if (!receiver || !sender || receiver == sender)
        return;
    delete receiver->findChild<BVWidgetStatusRouter *>(QString(), Qt::FindDirectChildrenOnly);
    new BVWidgetStatusRouter(receiver, sender);
}

BVWidgetStatusRouter::BVWidgetStatusRouter(QWidget *receiver, QWidget *sender)
    : QObject(receiver)
    , m_receiver(receiver)
    , m_sender(sender)
{
    sender->installEventFilter(this);
    sendToReceiver(BVWidgetStatus::Normal, BVWidgetStatus::status(sender));
    connect(sender, &QObject::destroyed, this, &BVWidgetStatusRouter::onSenderDeleted);
    connect(receiver, &QObject::destroyed, this, [this] { m_receiver.clear(); });
}

bool BVWidgetStatusRouter::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_sender || !m_receiver ||
        event->type() != BVWidgetStatusChangedEvent::s_eventType)
        return false;
    const auto *change = static_cast<BVWidgetStatusChangedEvent *>(event);
    sendToReceiver(change->oldStatus(), change->status());
    return true;
}

void BVWidgetStatusRouter::onSenderDeleted()
{
    sendToReceiver(BVWidgetStatus::Normal, BVWidgetStatus::Normal);
}

void BVWidgetStatusRouter::sendToReceiver(BVWidgetStatus::Stati oldStatus,
                                          BVWidgetStatus::Stati status)
{
    if (!m_receiver)
        return;
    BVWidgetStatusChangedEvent event(oldStatus, status, m_receiver);
    QCoreApplication::sendEvent(m_receiver, &event);
}
