// SPDX-License-Identifier: MIT
#include "itemviews/BVRegisteredDropWidgets_p.h"

#include "foundation/RegisterDragAndDropWidgetEvent.h"
#include "itemviews/DragAndDropBaseFilter.h"

#include <QDropEvent>
#include <QWidget>

#include <algorithm>

BVRegisteredDropWidgets::BVRegisteredDropWidgets(QObject *eventFilter)
    : m_eventFilter(eventFilter)
{
}

BVRegisteredDropWidgets::~BVRegisteredDropWidgets() = default;

void BVRegisteredDropWidgets::handle(const Brimvale::RegisterDragAndDropWidgetEvent &event)
{
    if (!event.getWidget())
        return;
    if (event.deregister())
        remove(event.getWidget());
    else if (event.getDragAndDropFilter())
        add(event.getWidget(), event.getDragAndDropFilter());
}

void BVRegisteredDropWidgets::add(QWidget *widget, Filter *filter)
{
    remove(widget);
    m_entries.push_back({widget, filter, widget->acceptDrops()});
    widget->setAcceptDrops(true);
    widget->installEventFilter(m_eventFilter);
}

/// Takes away what has died, too.
void BVRegisteredDropWidgets::remove(const QWidget *widget)
{
    const auto isGone = [this, widget](const Entry &entry) {
        if (entry.widget && entry.widget != widget)
            return false;
        if (entry.widget) {
            entry.widget->removeEventFilter(m_eventFilter);
            entry.widget->setAcceptDrops(entry.acceptedDrops);
        }
        return true;
    };
    m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(), isGone), m_entries.end());
}

BVRegisteredDropWidgets::Filter *BVRegisteredDropWidgets::filterOf(const QObject *widget) const
{
    const auto isOf = [widget](const Entry &entry) { return entry.widget == widget; };
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(), isOf);
    return widget && entry != m_entries.end() ? entry->filter : nullptr;
}

bool BVRegisteredDropWidgets::handle(const QObject *watched, QEvent *event,
                                     const DragDropInfo &info) const
{
    Filter *filter = filterOf(watched);
    const bool isDrop = event->type() == QEvent::Drop;
    if (!filter ||
        !(isDrop || event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove))
        return false;
    auto *drop = static_cast<QDropEvent *>(event);
    auto *widget = qobject_cast<QWidget *>(const_cast<QObject *>(watched));
    event->setAccepted(drop->mimeData() && filter->accepts(widget, *drop->mimeData(), info));
    if (isDrop && event->isAccepted())
        filter->drop(widget, drop, info);
    return true;
}

void BVRegisteredDropWidgets::notify(const GetInfo &info) const
{
    const QPointer<QObject> guard(m_eventFilter); // dies with this
    const std::vector<Entry> entries = m_entries;
    for (const Entry &entry : entries) {
        if (!guard)
            return;
        if (filterOf(entry.widget) == entry.filter)
            entry.filter->onDropped(info());
    }
}
