// SPDX-License-Identifier: MIT
#include "foundation/OverlayEvent.h"

namespace Brimvale {

const QEvent::Type OverlayEvent::s_customEventType =
    static_cast<QEvent::Type>(QEvent::registerEventType());

OverlayEvent::OverlayEvent(bool open)
    : QEvent(s_customEventType)
    , m_open(open)
{
}

OverlayEvent::~OverlayEvent() = default;

} // namespace Brimvale
