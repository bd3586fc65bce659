// SPDX-License-Identifier: MIT
#include "itemviews/BVDragKeys_p.h"

#include "itemviews/BVDragAndDropManager.h"
#include "itemviews/BVDragSource_p.h"

#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>

namespace {

/// The direction in the tree of an arrow key.
BVDropRules::Direction directionOf(int key, bool rightToLeft)
{
    using Direction = BVDropRules::Direction;
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        return key == Qt::Key_Up ? Direction::Up : Direction::Down;
    return (key == Qt::Key_Right) != rightToLeft ? Direction::Inwards : Direction::Outwards;
}

bool isMoveKey(const QKeyEvent *event)
{
    static constexpr int keys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right};
    return (event->modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier &&
           std::find(std::begin(keys), std::end(keys), event->key()) != std::end(keys);
}

/// Whether the other widget is to be seen on the side of the arrow key.
bool isOnSide(const QWidget *widget, const QWidget *other, int key)
{
    if (!other->isVisible() || (key != Qt::Key_Left && key != Qt::Key_Right))
        return false;
    const int x = widget->mapToGlobal(widget->rect().center()).x();
    const int otherX = other->mapToGlobal(other->rect().center()).x();
    return key == Qt::Key_Left ? otherX < x : otherX > x;
}

/// A point at the bottom of the viewport, or below it if it is full of rows, where there is none.
QPoint pointBesideRows(const QTreeView *view)
{
    const QPoint corner = view->viewport()->rect().bottomLeft();
    if (!view->model())
        return corner;
    const QModelIndex last = BVDropRules::lastInSight(view, view->rootIndex());
    const QRect rect = view->visualRect(BVDropRules::firstCellInSight(view, last));
    return QPoint(corner.x(), qMax(corner.y(), rect.bottom() + 1));
}

/// A point that stands for the target.
QPoint pointFor(const QTreeView *view, const BVDropRules::Target &target)
{
    if (!target.index.isValid())
        return pointBesideRows(view);
    const QRect rect = view->visualRect(BVDropRules::firstCellInSight(view, target.index));
    if (target.position == DropIndicatorPosition::OnItem)
        return rect.center();
    const bool isAbove = target.position == DropIndicatorPosition::AboveItem;
    return QPoint(rect.center().x(), isAbove ? rect.top() : rect.bottom());
}

/// The row, or the one in whose closed branch it is; invalid if there is none that can be seen.
QModelIndex shownRow(const QTreeView *view, QModelIndex row)
{
    while (row.isValid() && view->visualRect(BVDropRules::firstCellInSight(view, row)).isNull())
        row = row.parent();
    return row;
}

/// Whether a drag with the mouse would find the view.
bool canTakeDrops(const QTreeView *view)
{
    return view && view->dragEnabled() && view->isEnabled() && view->viewport()->acceptDrops();
}

} // namespace

BVDragKeys::BVDragKeys(BVDragAndDropManager *manager)
    : m_manager(manager)
{
}

bool BVDragKeys::handle(QKeyEvent *event)
{
    const QTreeView *view = m_manager->getTreeView();
    const bool isFromEditor = view->viewport()->isAncestorOf(QApplication::focusWidget());
    if (!isMoveKey(event) || isFromEditor || !view->dragEnabled())
        return false;
    const QModelIndexList rows = BVDropRules::draggableRows(view, m_manager->isDragWholeRow());
    if (rows.isEmpty())
        return false;
    event->accept();
    if (event->type() == QEvent::KeyPress && !BVDragSource::running())
        move(rows, event->key());
    return true;
}

void BVDragKeys::move(const QModelIndexList &rows, int key)
{
    const QTreeView *view = m_manager->getTreeView();
    const auto target = BVDropRules::keyTarget(view, rows, directionOf(key, view->isRightToLeft()));
    const auto targetBeside = targetInSecondView(key);
    const QPointer<BVDragAndDropManager> guard(m_manager);
    const QPointer<BVDragAndDropManager> second(
        BVDragAndDropManager::managerOf(m_manager->getSecondTreeView()));
    if (!canDrop(guard, target) && !canDrop(second, targetBeside))
        return;
    QMimeData mime;
    BVDragSource *source = m_manager->m_source.get();
    if (!source->prepare(rows, &mime))
        return;
    source->run([&] {
        if (!drop(guard, target, &mime) && guard)
            drop(second, targetBeside, &mime);
    });
}

/// Behind its current row, if it has one.
BVDropRules::Target BVDragKeys::targetInSecondView(int key) const
{
    const QTreeView *second = m_manager->getSecondTreeView();
    if (!second || !isOnSide(m_manager->getTreeView(), second, key))
        return {};
    const QModelIndex current = shownRow(second, second->currentIndex());
    return {current,
            current.isValid() ? DropIndicatorPosition::BelowItem
                              : DropIndicatorPosition::OnViewport,
            true};
}

bool BVDragKeys::canDrop(const BVDragAndDropManager *manager, const BVDropRules::Target &target)
{
    return manager && target.isValid && canTakeDrops(manager->getTreeView());
}

/// Comes over the target; false if the view does not take what is carried, or has died.
bool BVDragKeys::enter(BVDragAndDropManager *manager, const BVDropRules::Target &target,
                       const QMimeData *mime)
{
    const QPointer<BVDragAndDropManager> guard(manager);
    const bool isOnRow = target.index.isValid();
    const QPoint pos = pointFor(manager->getTreeView(), target);
    QDragEnterEvent enter(pos, Qt::MoveAction, mime, Qt::NoButton, Qt::NoModifier);
    manager->processDragEnterEvent(&enter);
    if (!guard || !manager->getTreeView() || !enter.isAccepted())
        return false;
    QDragMoveEvent move(pos, Qt::MoveAction, mime, Qt::NoButton, Qt::NoModifier);
    const auto callback = manager->m_dragMoveCallback;
    const bool isRefused = callback && callback(&move) && !move.isAccepted();
    if (!isRefused && guard && manager->announceTarget(target.index, &move) &&
        target.index.isValid() == isOnRow) {
        manager->setDragAndDropTargetInfo(target.index, target.position, Qt::MoveAction);
        return true;
    }
    QDragLeaveEvent leave;
    if (guard && manager->getTreeView())
        manager->processDragLeaveEvent(&leave);
    return false;
}

/// False if nothing has come of it.
bool BVDragKeys::drop(BVDragAndDropManager *manager, const BVDropRules::Target &target,
                      const QMimeData *mime)
{
    if (!canDrop(manager, target) || !enter(manager, target, mime))
        return false;
    QTreeView *view = manager->getTreeView();
    view->scrollTo(target.index);
    QDropEvent drop(pointFor(view, target), Qt::MoveAction, mime, Qt::NoButton, Qt::NoModifier);
    manager->processDropEvent(&drop);
    return true;
}
