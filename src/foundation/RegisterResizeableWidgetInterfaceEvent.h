// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QEvent>

class QWidget;

namespace Brimvale {

class ResizeableWidgetInterface;

/// Tells the main window that a resizable widget has come or goes. Owns nothing that it points to.
class BVWIDGETS_EXPORT RegisterResizeableWidgetInterfaceEvent : public QEvent
{
public:
    static const QEvent::Type s_customEventType;

    RegisterResizeableWidgetInterfaceEvent(ResizeableWidgetInterface *resizeableInterface,
                                           QWidget *widget, bool deregister);
    RegisterResizeableWidgetInterfaceEvent(const RegisterResizeableWidgetInterfaceEvent &) =
        default;
    RegisterResizeableWidgetInterfaceEvent &
    operator=(const RegisterResizeableWidgetInterfaceEvent &) = default;
    ~RegisterResizeableWidgetInterfaceEvent() override;

    ResizeableWidgetInterface *getResizeableWidgetInterface() const { return m_interface; }
    QWidget *getResizableWidget() const { return m_widget; }
    /// The flag as the constructor was given it: false registers, true takes the registration back.
    bool deregister() const { return m_deregister; }

private:
    ResizeableWidgetInterface *m_interface;
    QWidget *m_widget;
    bool m_deregister;
};

} // namespace Brimvale
