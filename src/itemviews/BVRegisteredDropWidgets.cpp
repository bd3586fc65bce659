// SPDX-License-Identifier: MIT
#include "itemviews/BVRegisteredDropWidgets_p.h"

#include "foundation/RegisterDragAndDropWidgetEvent.h"
#include "itemviews/BVDragAndDropManager.h"
#include "itemviews/BVDragSource_p.h"
#include "itemviews/DragAndDropBaseFilter.h"

#include <QDropEvent>
#include <QWidget>

#include <algorithm>

namespace {

// Several managers may have the same widget; these properties of it tell how many, and whether it
// accepted drops before the first of them.
constexpr char s_count[] = "_bv_dropRegistrations";
constexpr char s_acceptedDrops[] = "_bv_acceptedDrops";

void acceptDrops(QWidget *widget)
{
    const int count = widget->property(s_count).toInt();
    widget->setProperty(s_count, count + 1);
    if (count > 0)
        return;
    widget->setProperty(s_acceptedDrops, widget->acceptDrops());
    widget->setAcceptDrops(true);
}

void restoreDrops(QWidget *widget)
{
    const int count = widget->property(s_count).toInt();
    widget->setProperty(s_count, count > 1 ? QVariant(count - 1) : QVariant());
    if (count > 1)
        return;
    widget->setAcceptDrops(widget->property(s_acceptedDrops).toBool());
    widget->setProperty(s_acceptedDrops, QVariant());
}

} // namespace

BVRegisteredDropWidgets::BVRegisteredDropWidgets(const BVDragAndDropManager *manager)
    : m_manager(manager)
{
}

BVRegisteredDropWidgets::~BVRegisteredDropWidgets()
{
    for (const Entry &entry : m_entries) {
        if (entry.widget)
            release(entry.widget);
    }
}

void BVRegisteredDropWidgets::handle(const Brimvale::RegisterDragAndDropWidgetEvent &event)
{
    QWidget *widget = event.getWidget();
    const QTreeView *view = m_manager->getTreeView();
    if (!widget || !view || widget == view || widget == view->viewport())
        return;
    if (event.deregister())
        remove(widget);
    else if (event.getDragAndDropFilter())
        add(widget, event.getDragAndDropFilter());
}

void BVRegisteredDropWidgets::add(QWidget *widget, Filter *filter)
{
    remove(widget);
    m_entries.push_back({widget, filter});
    acceptDrops(widget);
    widget->installEventFilter(this);
}

void BVRegisteredDropWidgets::release(QWidget *widget)
{
    widget->removeEventFilter(this);
    restoreDrops(widget);
}

/// Takes away what has died, too.
void BVRegisteredDropWidgets::remove(const QWidget *widget)
{
    const auto isGone = [this, widget](const Entry &entry) {
        if (entry.widget && entry.widget != widget)
            return false;
        if (entry.widget)
            release(entry.widget);
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

/// Whether a drag from the manager's view runs.
bool BVRegisteredDropWidgets::isSource() const
{
    const BVDragSource *source = BVDragSource::running();
    return source && source->manager() == m_manager &&
           BVDragAndDropManager::managerOf(m_manager->getTreeView()) == m_manager;
}

bool BVRegisteredDropWidgets::eventFilter(QObject *watched, QEvent *event)
{
    Filter *filter = filterOf(watched);
    const bool isDrop = event->type() == QEvent::Drop;
    const bool isOver = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!filter || !(isDrop || isOver) || !isSource())
        return false;
    const DragDropInfo info = BVDragSource::runningInfo();
    auto *drop = static_cast<QDropEvent *>(event);
    auto *widget = static_cast<QWidget *>(watched);
    event->setAccepted(drop->mimeData() && filter->accepts(widget, *drop->mimeData(), info));
    if (isDrop && event->isAccepted())
        filter->drop(widget, drop, info);
    return true;
}

void BVRegisteredDropWidgets::notify(const GetInfo &info) const
{
    const QPointer<const QObject> guard(this);
    const std::vector<Entry> entries = m_entries;
    for (const Entry &entry : entries) {
        if (!guard)
            return;
        if (filterOf(entry.widget) == entry.filter)
            entry.filter->onDropped(info());
    }
}
