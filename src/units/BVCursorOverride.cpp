// SPDX-License-Identifier: MIT
#include "units/BVCursorOverride_p.h"

#include <QWidget>

#include <utility>

void BVCursorOverride::set(BVCursorTable::Cursor cursor)
{
    if (!m_isOn || m_widget->cursor() != m_shown) {
        m_wasSet = m_widget->testAttribute(Qt::WA_SetCursor);
        m_own = m_widget->cursor();
    }
    m_isOn = true;
    m_widget->setCursor(BVCursorTable::cursor(cursor));
    m_shown = m_widget->cursor();
}

void BVCursorOverride::reset()
{
    if (!std::exchange(m_isOn, false) || m_widget->cursor() != m_shown)
        return; // someone else has set another one since
    if (m_wasSet)
        m_widget->setCursor(m_own);
    else
        m_widget->unsetCursor();
}
