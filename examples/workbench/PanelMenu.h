// SPDX-License-Identifier: MIT
#pragma once

#include <BVMenu.h>

class BVResizableWidget;
class QWidget;

namespace Brimvale {
class RegisterResizeableWidgetInterfaceEvent;
}

/// Lists the panels that have told the main window of themselves. An entry is checked while its
/// panel floats; choosing it enlarges the panel or brings it back.
class PanelMenu : public BVMenu
{
    Q_OBJECT

public:
    PanelMenu(const QString &title, QWidget *parent);

    /// A panel has come or goes.
    void take(const Brimvale::RegisterResizeableWidgetInterfaceEvent &event);

Q_SIGNALS:
    /// The place of the panel is out of sight, where it cannot be enlarged; what shows it, is asked
    /// to.
    void placeNeeded(QWidget *panel);

private:
    void add(BVResizableWidget *panel);
    void remove(const QObject *panel);
    void toggle(BVResizableWidget *panel);
    QAction *actionOf(const QObject *panel) const;
};
