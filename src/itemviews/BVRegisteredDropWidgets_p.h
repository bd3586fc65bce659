// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/DragDropInfo.h"

#include <functional>
#include <vector>

class QDropEvent;
class QEvent;
class QObject;
class QWidget;

namespace Brimvale {
class DragAndDropBaseFilter;
class RegisterDragAndDropWidgetEvent;
} // namespace Brimvale

/// The widgets that take rows from a view, with the filters that decide for them.
class BVRegisteredDropWidgets
{
public:
    using GetInfo = std::function<DragDropInfo()>;

    /// The event filter is installed on each of the widgets.
    explicit BVRegisteredDropWidgets(QObject *eventFilter);
    ~BVRegisteredDropWidgets();

    /// Registers or deregisters a widget; null and unknown ones are ignored. A widget that is
    /// registered again gets the new filter.
    void handle(const Brimvale::RegisterDragAndDropWidgetEvent &event);

    /// Lets the widget's filter have the event. Whether that is so: the widget is registered, and
    /// this is a drag event.
    bool handle(const QObject *widget, QEvent *event, const DragDropInfo &info) const;

    /// Tells all filters of a drop on the view. They may deregister meanwhile.
    void notify(const GetInfo &info) const;

private:
    using Filter = Brimvale::DragAndDropBaseFilter;
    struct Entry
    {
        QPointer<QWidget> widget;
        Filter *filter;
        bool acceptedDrops; // before it was registered
    };

    void add(QWidget *widget, Filter *filter);
    void remove(const QWidget *widget);
    Filter *filterOf(const QObject *widget) const;

    QObject *m_eventFilter;
    std::vector<Entry> m_entries; // in the order of registration
};
