// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QEvent>

class QWidget;

namespace Brimvale {

class DragAndDropBaseFilter;

/// Tells the drag-and-drop manager that a widget takes part or leaves. Owns nothing that it points
/// to.
class BVWIDGETS_EXPORT RegisterDragAndDropWidgetEvent : public QEvent
{
public:
    static const QEvent::Type s_customEventType;

    RegisterDragAndDropWidgetEvent(QWidget *widget, DragAndDropBaseFilter *filter, bool deregister);
    RegisterDragAndDropWidgetEvent(const RegisterDragAndDropWidgetEvent &) = default;
    RegisterDragAndDropWidgetEvent &operator=(const RegisterDragAndDropWidgetEvent &) = default;
    ~RegisterDragAndDropWidgetEvent() override;

    QWidget *getWidget() const { return m_widget; }
    DragAndDropBaseFilter *getDragAndDropFilter() const { return m_filter; }
    /// False registers, true takes the registration back.
    bool deregister() const { return m_deregister; }

private:
    QWidget *m_widget;
    DragAndDropBaseFilter *m_filter;
    bool m_deregister;
};

} // namespace Brimvale
