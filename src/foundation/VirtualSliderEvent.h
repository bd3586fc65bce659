// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QEvent>

namespace Brimvale {

/// A key press that is meant for a slider, delivered to it from elsewhere.
class BVWIDGETS_EXPORT VirtualSliderEvent : public QEvent
{
public:
    static const QEvent::Type s_virtualSliderEventType;

    VirtualSliderEvent(int key, Qt::KeyboardModifiers modifiers);
    VirtualSliderEvent(const VirtualSliderEvent &) = default;
    VirtualSliderEvent &operator=(const VirtualSliderEvent &) = default;
    ~VirtualSliderEvent() override;

    Qt::KeyboardModifiers getModifiers() const { return m_modifiers; }
    int getKeys() const { return m_key; }

private:
    Qt::KeyboardModifiers m_modifiers;
    int m_key;
};

} // namespace Brimvale
