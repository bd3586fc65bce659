// SPDX-License-Identifier: MIT
#include "itemviews/BVDragHost_p.h"

#include "itemviews/BVDragTreeWidget.h"
#include "itemviews/BVTreeView.h"

#include <QPainter>

#include <utility>

namespace {

/// Opens what the toolkit keeps for the views derived from its own.
class ViewAccess : public QTreeView
{
public:
    static bool isDragging(const QTreeView *view)
    {
        return (view->*&ViewAccess::state)() == DraggingState;
    }
    static void setDragging(QTreeView *view, bool isDragging, bool isEditing)
    {
        const State rest = isEditing ? EditingState : NoState;
        (view->*&ViewAccess::setState)(isDragging ? DraggingState : rest);
    }
    static QStyleOptionViewItem options(const QTreeView *view)
    {
        return (view->*&ViewAccess::viewOptions)();
    }
    static void setAutoScroll(QTreeView *view, bool on)
    {
        if (on)
            (view->*&ViewAccess::startAutoScroll)();
        else
            (view->*&ViewAccess::stopAutoScroll)();
    }
};

} // namespace

BVDragAndDropManager *BVDragHost::managerOf(const QTreeView *view)
{
    if (!view)
        return nullptr;
    if (const auto *treeView = qobject_cast<const BVTreeView *>(view))
        return treeView->getDragAndDropManager();
    if (const auto *treeWidget = qobject_cast<const BVDragTreeWidget *>(view))
        return treeWidget->getDragAndDropManager();
    return view->findChild<BVDragAndDropManager *>(QString(), Qt::FindDirectChildrenOnly);
}

void BVDragHost::tellState(QTreeView *view, BVDragAndDropManager::DragState state)
{
    if (auto *treeView = qobject_cast<BVTreeView *>(view))
        treeView->setDraggingState(state);
    else if (auto *treeWidget = qobject_cast<BVDragTreeWidget *>(view))
        treeWidget->setDraggingState(state);
}

BVDragAndDropManager *BVDragHost::makeManager(QTreeView *view)
{
    auto *manager = new BVDragAndDropManager(view);
    // Starting anew would take the speed out of it.
    manager->setAutoScrollCallback([view, scrolls = std::make_shared<bool>(false)](bool on) {
        if (on != std::exchange(*scrolls, on))
            ViewAccess::setAutoScroll(view, on);
    });
    manager->setGetViewOptionsCallback([view] { return ViewAccess::options(view); });
    return manager;
}

void BVDragHost::deleteManagers(QTreeView *view)
{
    qDeleteAll(view->findChildren<BVDragAndDropManager *>(QString(), Qt::FindDirectChildrenOnly));
}

void BVDragHost::setDraggingState(QTreeView *view, BVDragAndDropManager::DragState state,
                                  bool isEditing)
{
    const bool isDragging = state == BVDragAndDropManager::Dragging;
    if (isDragging || ViewAccess::isDragging(view))
        ViewAccess::setDragging(view, isDragging, isEditing);
}

BVDragHost::IndicatorHider::IndicatorHider(QTreeView *view, const BVDragAndDropManager *manager)
    : m_view(view)
    , m_wasShown(view->showDropIndicator())
{
    view->setDropIndicatorShown(m_wasShown && !(manager && view->dragEnabled()));
}

BVDragHost::IndicatorHider::~IndicatorHider()
{
    m_view->setDropIndicatorShown(m_wasShown);
}

void BVDragHost::paint(QTreeView *view, BVDragAndDropManager *manager)
{
    if (!manager)
        return;
    QPainter painter(view->viewport());
    if (ViewAccess::isDragging(view)) {
        manager->paintDropTargetItemPreview(&painter);
        manager->paintDropTargetWidgetVisualization(&painter);
    }
    manager->paintDragAndDropInfoText(&painter);
}
