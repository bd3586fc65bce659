// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVWidgetStatus.h"

#include <QEvent>

class QWidget;

/// Sent to a widget, synchronously, when its flag set has changed.
class BVWIDGETS_EXPORT BVWidgetStatusChangedEvent : public QEvent
{
public:
    static const QEvent::Type s_eventType;

    /// @p widget is the widget whose status changed; not owned.
    BVWidgetStatusChangedEvent(BVWidgetStatus::Stati oldStatus, BVWidgetStatus::Stati status,
                               QWidget *widget);
    BVWidgetStatusChangedEvent(const BVWidgetStatusChangedEvent &) = default;
    BVWidgetStatusChangedEvent(BVWidgetStatusChangedEvent &&) = default;
    BVWidgetStatusChangedEvent &operator=(const BVWidgetStatusChangedEvent &) = default;
    BVWidgetStatusChangedEvent &operator=(BVWidgetStatusChangedEvent &&) = default;
    ~BVWidgetStatusChangedEvent() override;

    BVWidgetStatus::Stati oldStatus() const { return m_oldStatus; }
    BVWidgetStatus::Stati status() const { return m_status; }
    QWidget *widget() const { return m_widget; }

private:
    BVWidgetStatus::Stati m_oldStatus;
    BVWidgetStatus::Stati m_status;
    QWidget *m_widget;
};
