// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QPoint>
#include <QSize>

class QObject;
class QWidget;

namespace Brimvale {

/// What a widget that can grow out of its layout offers to its handles and to the main window.
///
/// An interface beside the toolkit base class. It holds the last size and the saved relative
/// position; whether and how the widget floats is its own matter.
class BVWIDGETS_EXPORT ResizeableWidgetInterface
{
public:
    ResizeableWidgetInterface() = default;
    ResizeableWidgetInterface(const ResizeableWidgetInterface &) = default;
    ResizeableWidgetInterface &operator=(const ResizeableWidgetInterface &) = default;
    virtual ~ResizeableWidgetInterface();

    /// The widget that is resized; never null while it lives. Not owned.
    virtual QWidget *getResizableWidget() = 0;

    /// Whether a drag of @p handle by @p delta pixels may go on. The interface's own check vetoes
    /// every drag while resizing is disabled, and drags of no handle; implementations add theirs.
    virtual bool checkResizingPossible(QObject *handle, const QSize &delta);

    /// Asks for @p size at @p relativePosition in the coordinates of the main window.
    virtual void onResize(QSize size, QPoint relativePosition) = 0;

    /// Goes back to the widget's place in its layout.
    virtual void closeEnlarged() = 0;

    /// Lets the user drag the widget's handles, as is the default, or vetoes it.
    void setResizingEnabled(bool on);
    bool isResizingEnabled() const;

    /// Remembers the widget's present size.
    void saveLastSize();
    /// The size that saveLastSize() has remembered last; invalid before that.
    QSize lastSize() const;

    /// Remembers where the widget stands in its window, and writes that into @p position.
    void saveRelativePosition(QPoint &position);
    /// The position that saveRelativePosition() has remembered last; (0, 0) before that.
    QPoint relativePosition() const;

private:
    QSize m_lastSize;
    QPoint m_relativePosition;
    bool m_resizingEnabled = true;
};

} // namespace Brimvale
