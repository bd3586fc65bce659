// SPDX-License-Identifier: MIT
#include "foundation/RegisterDragAndDropWidgetEvent.h"

namespace Brimvale {

const QEvent::Type RegisterDragAndDropWidgetEvent::s_customEventType =
    static_cast<QEvent::Type>(QEvent::registerEventType());

RegisterDragAndDropWidgetEvent::RegisterDragAndDropWidgetEvent(QWidget *widget,
                                                               DragAndDropBaseFilter *filter,
                                                               bool deregister)
    : QEvent(s_customEventType)
    , m_widget(widget)
    , m_filter(filter)
    , m_deregister(deregister)
{
}

RegisterDragAndDropWidgetEvent::~RegisterDragAndDropWidgetEvent() = default;

} // namespace Brimvale
