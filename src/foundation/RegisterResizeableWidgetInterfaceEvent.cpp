// SPDX-License-Identifier: MIT
#include "foundation/RegisterResizeableWidgetInterfaceEvent.h"

namespace Brimvale {

const QEvent::Type RegisterResizeableWidgetInterfaceEvent::s_customEventType =
    static_cast<QEvent::Type>(QEvent::registerEventType());

RegisterResizeableWidgetInterfaceEvent::RegisterResizeableWidgetInterfaceEvent(
    ResizeableWidgetInterface *resizeableInterface, QWidget *widget, bool deregister)
    : QEvent(s_customEventType)
    , m_interface(resizeableInterface)
    , m_widget(widget)
    , m_deregister(deregister)
{
}

RegisterResizeableWidgetInterfaceEvent::~RegisterResizeableWidgetInterfaceEvent() = default;

} // namespace Brimvale
