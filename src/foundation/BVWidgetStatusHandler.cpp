// SPDX-License-Identifier: MIT
#include "foundation/BVWidgetStatusHandler.h"

#include "foundation/BVReferenceValueInterface.h"
#include "foundation/BVWidgetInterface.h"
#include "foundation/BVWidgetStatusChangedEvent.h"
#include "foundation/StandardSymbolPainter.h"

#include <QHelpEvent>
#include <QWidget>

BVWidgetStatusHandler::BVWidgetStatusHandler(QWidget *widget, const char *member)
    : QObject(widget)
    , m_widget(widget)
    , m_isInterface(dynamic_cast<BVWidgetInterface *>(widget) != nullptr)
{
    if (widget) {
        // A widget announces its end before its children go: from then on nothing is written to it.
        connect(widget, &QObject::destroyed, this, [this] { m_widget.clear(); });
        if (member)
            connect(this, SIGNAL(childStatusChanged(QWidget *, BVWidgetStatus::Stati)), widget,
                    member);
    }
}

void BVWidgetStatusHandler::attach(QWidget *child)
{
    if (!child || m_children.contains(child))
        return;
    child->installEventFilter(this);
    follow(child);
    m_children.insert(child, BVWidgetStatus::status(child));
    StandardSymbolPainter::updateLock(child);
}

void BVWidgetStatusHandler::detach(QWidget *child)
{
    silentDetach(child);
    updateParentStatus();
}

void BVWidgetStatusHandler::clear()
{
    const QList<QWidget *> children = m_children.keys();
    for (QWidget *child : children)
        silentDetach(child);
    updateParentStatus();
}

bool BVWidgetStatusHandler::setBlocking(bool block, bool update)
{
    const bool wasBlocking = m_blocking;
    m_blocking = block;
    if (wasBlocking && !block && update)
        updateParentStatus();
    return wasBlocking;
}

void BVWidgetStatusHandler::setEnabled(bool enabled)
{
    m_enabled = enabled;
}

void BVWidgetStatusHandler::setObserveDisabledChildren(bool observe)
{
    m_observeDisabledChildren = observe;
}

void BVWidgetStatusHandler::set(BVWidgetStatus::Stati ownStatus)
{
    m_ownStatus = ownStatus;
}

void BVWidgetStatusHandler::updateParentStatus()
{
    BVWidgetStatus::Stati result;
    if (m_enabled) {
        result = m_ownStatus;
        for (auto it = m_children.cbegin(); it != m_children.cend(); ++it) {
            if (m_observeDisabledChildren || it.key()->isEnabled())
                result |= it.value();
        }
    }
    if (m_isInterface)
        BVWidgetStatus::setStatus(m_widget, result);
    else
        BVWidgetStatus::setStatusProperty(m_widget, result);
}

bool BVWidgetStatusHandler::eventFilter(QObject *watched, QEvent *event)
{
    if (!m_blocking) {
        if (event->type() == BVWidgetStatusChangedEvent::s_eventType)
            onChildStatusChanged(event);
        else if (event->type() == QEvent::EnabledChange)
            updateParentStatus();
    }
    auto *widget = qobject_cast<QWidget *>(watched);
    if (!widget)
        return false;
    if (StandardSymbolPainter::handleStandardLocked(widget, event))
        return true;
    return event->type() == QEvent::ToolTip &&
           BVReferenceValueInterface::showToolTip(widget, static_cast<QHelpEvent *>(event));
}

void BVWidgetStatusHandler::onChildStatusChanged(QEvent *event)
{
    const auto *change = static_cast<BVWidgetStatusChangedEvent *>(event);
    QWidget *child = change->widget();
    event->accept();
    if (!child)
        return;
    const BVWidgetStatus::Stati status = change->status();
    if (!m_children.contains(child))
        follow(child); // an event may speak for another widget than the one that it reached
    m_children.insert(child, status);
    updateParentStatus();
    Q_EMIT childStatusChanged(child, status);
}

void BVWidgetStatusHandler::onChildDeleted(QObject *child)
{
    // Compared as objects: the child may be down to its QObject part by now.
    for (auto it = m_children.begin(); it != m_children.end(); ++it) {
        if (static_cast<QObject *>(it.key()) == child) {
            m_children.erase(it);
            break;
        }
    }
    child->removeEventFilter(this);
    updateParentStatus();
}

void BVWidgetStatusHandler::follow(QWidget *child) const
{
    connect(child, &QObject::destroyed, this, &BVWidgetStatusHandler::onChildDeleted);
}

void BVWidgetStatusHandler::silentDetach(QWidget *child)
{
    if (!child || !m_children.remove(child))
        return;
    child->removeEventFilter(this);
    StandardSymbolPainter::removeLock(child);
    disconnect(child, &QObject::destroyed, this, &BVWidgetStatusHandler::onChildDeleted);
}
