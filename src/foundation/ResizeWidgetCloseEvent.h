// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace Brimvale {

/// Asks the main window to close the resize place holder of a widget.
class BVWIDGETS_EXPORT ResizeWidgetCloseEvent : public QEvent
{
public:
    static const QEvent::Type s_customEventType;

    explicit ResizeWidgetCloseEvent(QWidget *parentWidget);
    ResizeWidgetCloseEvent(const ResizeWidgetCloseEvent &) = default;
    ResizeWidgetCloseEvent &operator=(const ResizeWidgetCloseEvent &) = default;
    ~ResizeWidgetCloseEvent() override;

    /// The widget whose place holder is to close; not owned, may be null, and is so when it is
    /// gone.
    QWidget *getParentWidget() const { return m_parentWidget; }

private:
    QPointer<QWidget> m_parentWidget;
};

} // namespace Brimvale
