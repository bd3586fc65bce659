// SPDX-License-Identifier: MIT
#include "foundation/BlockSignals.h"

#include <QObject>

BlockSignals::BlockSignals(std::initializer_list<QObject *> objects)
{
    m_blocked.reserve(static_cast<int>(objects.size()));
    for (QObject *object : objects) {
        if (object)
            m_blocked.append({object, object->blockSignals(true)});
    }
}

BlockSignals::~BlockSignals()
{
    // Backwards, so that an object named twice ends as it began.
    for (auto it = m_blocked.crbegin(); it != m_blocked.crend(); ++it) {
        if (it->m_object)
            it->m_object->blockSignals(it->m_wasBlocked);
    }
}
