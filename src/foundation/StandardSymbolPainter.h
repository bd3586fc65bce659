// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

class QEvent;
class QWidget;

/// Shows a small lock on widgets whose value is locked by the standard (StandardLocked).
///
/// The lock is a child of the widget that lets the mouse through. It stands at the trailing edge,
/// in the middle of the height, beside the arrow of a combo box; a line edit keeps its text clear
/// of it. Containers, whose flags come from the widgets inside them, and splitters show none.
class BVWIDGETS_EXPORT StandardSymbolPainter
{
public:
    /// Called with each event of @p widget: shows, moves or hides the lock as the event demands.
    /// Consumes nothing: the answer is always false.
    static bool handleStandardLocked(QWidget *widget, QEvent *event);

    /// Shows or hides the lock as the widget's flags say. Null is ignored.
    static void updateLock(QWidget *widget);
    /// Takes the lock away, whatever the flags say.
    static void removeLock(QWidget *widget);
};
