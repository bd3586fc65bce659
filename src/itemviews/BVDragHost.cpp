// SPDX-License-Identifier: MIT
#include "itemviews/BVDragHost_p.h"

#include "itemviews/BVDragTreeWidget.h"
#include "itemviews/BVTreeView.h"

#include <QPainter>
#include <QScrollBar>

#include <utility>

namespace {

bool canScroll(const QScrollBar *bar, int toStart, int toEnd, int margin)
{
    if (toStart < margin)
        return bar->value() > bar->minimum();
    return toEnd < margin && bar->value() < bar->maximum();
}

/// Whether the toolkit would find something to scroll to under the pointer.
bool canScroll(const QTreeView *view)
{
    const QRect area = view->viewport()->visibleRegion().boundingRect();
    const QPoint pos = view->viewport()->mapFromGlobal(QCursor::pos());
    const int margin = view->autoScrollMargin();
    return canScroll(view->verticalScrollBar(), pos.y() - area.top(), area.bottom() - pos.y(),
                     margin) ||
           canScroll(view->horizontalScrollBar(), pos.x() - area.left(), area.right() - pos.x(),
                     margin);
}

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
    static void endPress(QTreeView *view)
    {
        if ((view->*&ViewAccess::state)() != EditingState)
            (view->*&ViewAccess::setState)(NoState);
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
    // Starting anew would take the speed out of it. At the end the view stops by itself.
    manager->setAutoScrollCallback([view, scrolls = std::make_shared<bool>(false)](bool on) {
        on = on && canScroll(view);
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

void BVDragHost::endPress(QTreeView *view)
{
    if (auto *treeView = qobject_cast<BVTreeView *>(view))
        treeView->endPress();
    ViewAccess::endPress(view);
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
