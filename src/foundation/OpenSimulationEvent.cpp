// SPDX-License-Identifier: MIT
#include "foundation/OpenSimulationEvent.h"

namespace Brimvale {

const QEvent::Type OpenSimulationEvent::s_customEventType =
    static_cast<QEvent::Type>(QEvent::registerEventType());

OpenSimulationEvent::OpenSimulationEvent(const QString &fileName, const QString &message)
    : QEvent(s_customEventType)
    , m_fileName(fileName)
    , m_message(message)
{
}

OpenSimulationEvent::~OpenSimulationEvent() = default;

} // namespace Brimvale
