// SPDX-License-Identifier: MIT
#include "units/UnitsChangedEvent.h"

const QEvent::Type UnitsChangedEvent::s_eventType =
    static_cast<QEvent::Type>(QEvent::registerEventType());

UnitsChangedEvent::UnitsChangedEvent()
    : QEvent(s_eventType)
{
}

UnitsChangedEvent::~UnitsChangedEvent() = default;
