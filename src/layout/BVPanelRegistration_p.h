// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <memory>

class QWidget;

namespace Brimvale {
class ResizeableWidgetInterface;
}

/// What the main window is told of a panel; nothing while there is none.
class BVPanelRegistration
{
public:
    explicit BVPanelRegistration(Brimvale::ResizeableWidgetInterface *panel);

    /// Posts that the panel stands in its layout.
    void post(QWidget *widget);
    /// Tells at once that it does no longer, and takes back what is posted.
    void takeBack(QWidget *widget);
    /// Whether the last word was that the panel stands there.
    bool isPosted() const;

    /// Posts that the place holder of @p widget has closed.
    static void postClosed(QWidget *widget);

private:
    Brimvale::ResizeableWidgetInterface *m_panel;
    std::unique_ptr<QObject> m_guard; // of the posted event
};
