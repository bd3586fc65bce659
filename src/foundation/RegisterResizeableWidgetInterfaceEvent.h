// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace Brimvale {

class ResizeableWidgetInterface;

/// Tells the main window that a resizable widget has come or goes. Owns nothing that it points to.
///
/// A posted event may arrive when its sender is gone, or has taken it back; it tells nulls then and
/// is to be ignored.
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

    /// Makes the event tell nulls once @p guard, which must not be null, is gone.
    void setGuard(QObject *guard);

    ResizeableWidgetInterface *getResizeableWidgetInterface() const;
    QWidget *getResizableWidget() const;
    /// The flag as the constructor was given it. The library's own panels give true when they come
    /// and false when they go.
    bool deregister() const { return m_deregister; }

private:
    bool isTakenBack() const;

    ResizeableWidgetInterface *m_interface;
    QPointer<QWidget> m_widget;
    QPointer<QObject> m_guard;
    bool m_deregister;
    bool m_isGuarded = false;
};

} // namespace Brimvale
