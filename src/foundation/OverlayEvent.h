// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QEvent>

namespace Brimvale {

/// Asks the main window to open or close its overlay.
class BVWIDGETS_EXPORT OverlayEvent : public QEvent
{
public:
    static const QEvent::Type s_customEventType;

    explicit OverlayEvent(bool open = false);
    OverlayEvent(const OverlayEvent &) = default;
    OverlayEvent &operator=(const OverlayEvent &) = default;
    ~OverlayEvent() override;

    bool open() const { return m_open; }

private:
    bool m_open;
};

} // namespace Brimvale
