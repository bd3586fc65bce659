// SPDX-License-Identifier: MIT
#include "platform/WidgetTrackerSingleton.h"

WidgetTrackerSingleton &WidgetTrackerSingleton::getInstance()
{
    static WidgetTrackerSingleton s_instance;
    return s_instance;
}

void WidgetTrackerSingleton::track(const QString &record)
{
    m_recorded(record);
}
