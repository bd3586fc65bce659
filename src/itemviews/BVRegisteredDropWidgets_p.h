// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/DragDropInfo.h"

#include <QObject>

#include <functional>
#include <vector>

class BVDragAndDropManager;
class QDropEvent;
class QWidget;

namespace Brimvale {
class DragAndDropBaseFilter;
class RegisterDragAndDropWidgetEvent;
} // namespace Brimvale

/// The widgets that take rows from a manager's view, with the filters that decide for them. They
/// accept drops meanwhile, also if they did not before.
class BVRegisteredDropWidgets : public QObject
{
public:
    using GetInfo = std::function<DragDropInfo()>;

    /// The manager owns this.
    explicit BVRegisteredDropWidgets(const BVDragAndDropManager *manager);
    ~BVRegisteredDropWidgets() override;

    /// Registers or deregisters a widget; null, unknown ones and the view itself are ignored. A
    /// widget that is registered again gets the new filter.
    void handle(const Brimvale::RegisterDragAndDropWidgetEvent &event);

    /// Lets the widget's filter have the events of drags from the view.
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// Tells all filters of a drop on the view. They may deregister meanwhile.
    void notify(const GetInfo &info) const;

private:
    using Filter = Brimvale::DragAndDropBaseFilter;
    struct Entry
    {
        QPointer<QWidget> widget;
        Filter *filter;
    };

    void add(QWidget *widget, Filter *filter);
    void remove(const QWidget *widget);
    void release(QWidget *widget);
    Filter *filterOf(const QObject *widget) const;
    bool isSource() const;

    const BVDragAndDropManager *m_manager;
    std::vector<Entry> m_entries; // in the order of registration
};
