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

void RegisterResizeableWidgetInterfaceEvent::setGuard(QObject *guard)
{
    m_guard = guard;
    m_isGuarded = true;
}

bool RegisterResizeableWidgetInterfaceEvent::isTakenBack() const
{
    return m_isGuarded && !m_guard;
}

ResizeableWidgetInterface *
RegisterResizeableWidgetInterfaceEvent::getResizeableWidgetInterface() const
{
    return isTakenBack() ? nullptr : m_interface;
}

QWidget *RegisterResizeableWidgetInterfaceEvent::getResizableWidget() const
{
    return isTakenBack() ? nullptr : m_widget.data();
}

} // namespace Brimvale
