// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QEvent>

/// Sent to the main window, synchronously, when the choice of units was set, loaded or reset.
class BVWIDGETS_EXPORT UnitsChangedEvent : public QEvent
{
public:
    static const QEvent::Type s_eventType;

    UnitsChangedEvent();
    UnitsChangedEvent(const UnitsChangedEvent &) = default;
    UnitsChangedEvent(UnitsChangedEvent &&) = default;
    UnitsChangedEvent &operator=(const UnitsChangedEvent &) = default;
    UnitsChangedEvent &operator=(UnitsChangedEvent &&) = default;
    ~UnitsChangedEvent() override;
};
