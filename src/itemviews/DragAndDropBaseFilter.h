// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

class QDropEvent;
class QMimeData;
class QWidget;
struct DragDropInfo;

namespace Brimvale {

/// Decides what a widget takes of the rows that are dragged over it, and takes them.
///
/// A widget that is no tree view announces itself and its filter to a view with a
/// RegisterDragAndDropWidgetEvent that is sent to the view; from then on the view's drag-and-drop
/// manager handles the widget's drag and drop events. The filter stays with its maker and has to be
/// deregistered before it is destroyed; a widget that is destroyed deregisters itself.
class BVWIDGETS_EXPORT DragAndDropBaseFilter
{
public:
    virtual ~DragAndDropBaseFilter();

    /// Whether the widget takes what a drag from the view carries.
    virtual bool accepts(const QWidget *widget, const QMimeData &data,
                         const DragDropInfo &info) const = 0;
    /// The rows have been dropped on the widget. Called only for what is accepted.
    virtual void drop(QWidget *widget, QDropEvent *event, const DragDropInfo &info) = 0;
    /// Rows have been dropped on the view itself. Nothing by default.
    virtual void onDropped(const DragDropInfo &info);
};

} // namespace Brimvale
