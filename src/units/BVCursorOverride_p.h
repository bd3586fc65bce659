// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/BVCursorTable.h"

#include <QCursor>

class QWidget;

/// Puts a cursor in place of a widget's own, and gives that back.
///
/// A cursor that someone else sets meanwhile counts as the widget's own.
class BVCursorOverride
{
public:
    explicit BVCursorOverride(QWidget *widget)
        : m_widget(widget)
    {
    }

    void set(BVCursorTable::Cursor cursor);
    void reset();

private:
    QWidget *m_widget; // outlives this
    bool m_isOn = false;
    bool m_wasSet = false; // what it shows otherwise; else the cursor of its parent
    QCursor m_own;
    QCursor m_shown;
};
