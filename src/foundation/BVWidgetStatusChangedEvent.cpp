// SPDX-License-Identifier: MIT
#include "foundation/BVWidgetStatusChangedEvent.h"

const QEvent::Type BVWidgetStatusChangedEvent::s_eventType =
    static_cast<QEvent::Type>(QEvent::registerEventType());

BVWidgetStatusChangedEvent::BVWidgetStatusChangedEvent(BVWidgetStatus::Stati oldStatus,
                                                       BVWidgetStatus::Stati status,
                                                       QWidget *widget)
    : QEvent(s_eventType)
    , m_oldStatus(oldStatus)
    , m_status(status)
    , m_widget(widget)
{
}

BVWidgetStatusChangedEvent::~BVWidgetStatusChangedEvent() = default;
