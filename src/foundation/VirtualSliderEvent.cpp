// SPDX-License-Identifier: MIT
#include "foundation/VirtualSliderEvent.h"

namespace Brimvale {

const QEvent::Type VirtualSliderEvent::s_virtualSliderEventType =
    static_cast<QEvent::Type>(QEvent::registerEventType());

VirtualSliderEvent::VirtualSliderEvent(int key, Qt::KeyboardModifiers modifiers)
    : QEvent(s_virtualSliderEventType)
    , m_modifiers(modifiers)
    , m_key(key)
{
}

VirtualSliderEvent::~VirtualSliderEvent() = default;

} // namespace Brimvale
