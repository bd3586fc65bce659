// SPDX-License-Identifier: MIT
#include "foundation/ResizeWidgetCloseEvent.h"

namespace Brimvale {

const QEvent::Type ResizeWidgetCloseEvent::s_customEventType =
    static_cast<QEvent::Type>(QEvent::registerEventType());

ResizeWidgetCloseEvent::ResizeWidgetCloseEvent(QWidget *parentWidget)
    : QEvent(s_customEventType)
    , m_parentWidget(parentWidget)
{
}

ResizeWidgetCloseEvent::~ResizeWidgetCloseEvent() = default;

} // namespace Brimvale
