// SPDX-License-Identifier: MIT
#include "layout/BVPanelRegistration_p.h"

#include "foundation/MainWindow.h"
#include "foundation/RegisterResizeableWidgetInterfaceEvent.h"
#include "foundation/ResizeWidgetCloseEvent.h"

#include <QCoreApplication>

using Brimvale::RegisterResizeableWidgetInterfaceEvent;
using Brimvale::ResizeWidgetCloseEvent;

BVPanelRegistration::BVPanelRegistration(Brimvale::ResizeableWidgetInterface *panel)
    : m_panel(panel)
{
}

void BVPanelRegistration::post(QWidget *widget)
{
    m_guard.reset(); // what has not arrived yet tells nothing
    QWidget *window = Brimvale::mainWindow();
    if (!window)
        return;
    m_guard = std::make_unique<QObject>();
    auto *event = new RegisterResizeableWidgetInterfaceEvent(m_panel, widget, true);
    event->setGuard(m_guard.get());
    QCoreApplication::postEvent(window, event);
}

void BVPanelRegistration::takeBack(QWidget *widget)
{
    m_guard.reset();
    QWidget *window = Brimvale::mainWindow();
    if (!window)
        return;
    RegisterResizeableWidgetInterfaceEvent event(m_panel, widget, false);
    QCoreApplication::sendEvent(window, &event);
}

bool BVPanelRegistration::isPosted() const
{
    return bool(m_guard);
}

void BVPanelRegistration::postClosed(QWidget *widget)
{
    if (QWidget *window = Brimvale::mainWindow())
        QCoreApplication::postEvent(window, new ResizeWidgetCloseEvent(widget));
}
