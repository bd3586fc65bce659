// SPDX-License-Identifier: MIT
#include "PanelMenu.h"

#include <BVResizableWidget.h>
#include <RegisterResizeableWidgetInterfaceEvent.h>
#include <ResizeableWidgetInterface.h>

#include <QAction>
#include <QTimer>

PanelMenu::PanelMenu(const QString &title, QWidget *parent)
    : BVMenu(title, parent)
{
}

void PanelMenu::take(const Brimvale::RegisterResizeableWidgetInterfaceEvent &event)
{
    Brimvale::ResizeableWidgetInterface *interface = event.getResizeableWidgetInterface();
    auto *panel =
        interface ? qobject_cast<BVResizableWidget *>(interface->getResizableWidget()) : nullptr;
    if (!panel)
        return;
    // Panels set the flag when they come. One that begins to float goes as such, but comes back.
    if (event.deregister())
        add(panel);
    else if (!panel->isFloating())
        remove(panel);
}

void PanelMenu::add(BVResizableWidget *panel)
{
    if (actionOf(panel))
        return;
    QAction *action = addAction(panel->windowTitle());
    action->setCheckable(true);
    action->setChecked(panel->isFloating());
    action->setData(QVariant::fromValue<QObject *>(panel));
    connect(action, &QAction::triggered, panel, [this, panel] { toggle(panel); });
    connect(panel, &BVResizableWidget::sigFloatingChanged, action, &QAction::setChecked);
    connect(panel, &QObject::destroyed, action, [this, panel] { remove(panel); });
}

void PanelMenu::remove(const QObject *panel)
{
    delete actionOf(panel);
}

QAction *PanelMenu::actionOf(const QObject *panel) const
{
    const QList<QAction *> actions = this->actions();
    for (QAction *action : actions) {
        if (action->data().value<QObject *>() == panel)
            return action;
    }
    return nullptr;
}

void PanelMenu::toggle(BVResizableWidget *panel)
{
    const auto enlarge = [this, panel] {
        panel->onToggleEnlarge();
        if (QAction *action = actionOf(panel))
            action->setChecked(panel->isFloating()); // it may have found no room
    };
    if (panel->isFloating())
        return panel->closeEnlarged();
    if (panel->isVisible())
        return enlarge();
    Q_EMIT placeNeeded(panel);
    QTimer::singleShot(0, panel, enlarge); // when it has been laid out
}
