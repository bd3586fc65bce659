// SPDX-License-Identifier: MIT
#pragma once

#include "PresentationWidgetTrackingExport.h"

#include "platform/Signal.h"

#include <QString>

/// Receives a text record for each tracked user action and passes it to whoever listens.
class PRESENTATIONWIDGETTRACKING_EXPORT WidgetTrackerSingleton
{
public:
    static WidgetTrackerSingleton &getInstance();

    WidgetTrackerSingleton(const WidgetTrackerSingleton &) = delete;
    WidgetTrackerSingleton &operator=(const WidgetTrackerSingleton &) = delete;

    /// Passes the record to the listeners, in the order of their connection.
    void track(const QString &record);
    /// Calls @p listener with each record until the returned connection is destroyed.
    template <typename Listener>
    [[nodiscard]] Signals::Connection listen(Listener &&listener)
    {
        return m_recorded.connect(std::forward<Listener>(listener));
    }

private:
    WidgetTrackerSingleton() = default;

    Signals::Signal<void(const QString &)> m_recorded;
};
