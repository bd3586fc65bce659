// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

class QEvent;
class QWidget;

/// Shows a small lock on widgets whose value is locked by the standard (StandardLocked).
class BVWIDGETS_EXPORT StandardSymbolPainter
{
public:
    /// Called by an event filter with each event of @p widget: shows, moves or hides the lock as
    /// the event demands. The lock is a child of the widget that lets the mouse through; it stands
    /// at the trailing edge of the widget, in the middle of its height. Consumes nothing: the
    /// answer is always false.
    static bool handleStandardLocked(QWidget *widget, QEvent *event);
};
