// SPDX-License-Identifier: MIT
#include "itemviews/BVDropRun_p.h"

#include "itemviews/BVDragAndDropManager.h"
#include "itemviews/BVDragHint_p.h"
#include "itemviews/BVDragMoves_p.h"
#include "itemviews/BVDragSource_p.h"
#include "itemviews/BVDropListeners_p.h"
#include "itemviews/BVDropTarget_p.h"
#include "itemviews/BVRegisteredDropWidgets_p.h"

#include <QDropEvent>

BVDropRun::BVDropRun(BVDragAndDropManager *manager)
    : m_manager(manager)
{
}

bool BVDropRun::hasView() const
{
    return m_manager && m_manager->getTreeView();
}

void BVDropRun::run(QDropEvent *event)
{
    const bool isTaken = settleTarget(event);
    if (!hasView())
        return;
    if (isTaken)
        tell(event);
    else
        refuse(event);
    if (BVDragSource *source = BVDragSource::running())
        source->clearDraggedIndexes();
    if (m_manager)
        m_manager->tidyUp();
}

/// Finds a row for one that has been removed. False where nothing may be dropped.
bool BVDropRun::settleTarget(const QDropEvent *event)
{
    BVDragMoves *moves = m_manager->m_moves.get();
    if (m_manager->m_target->isLost()) {
        moves->note(m_manager->getTreeView(), *event);
        moves->repeat();
    }
    if (!hasView())
        return false;
    moves->forget();
    return !m_manager->m_target->isRefused();
}

void BVDropRun::refuse(QDropEvent *event)
{
    event->setDropAction(Qt::IgnoreAction);
    event->ignore();
    QDragLeaveEvent leave;
    m_manager->processDragLeaveEvent(&leave);
}

void BVDropRun::tell(QDropEvent *event)
{
    m_manager->m_hint->finish();
    m_manager->m_target->setAction(event->proposedAction());
    const auto callback = m_manager->m_dropCallback;
    if ((callback && callback(event)) || !m_manager)
        return;
    event->accept();
    const DragDropInfo info = m_manager->getDragAndDropInfo();
    Q_EMIT m_manager->sigDropEvent(event);
    if (!m_manager)
        return;
    m_manager->resetTarget();
    notifyListeners(info);
}

/// Listeners may remove rows and themselves.
void BVDropRun::notifyListeners(DragDropInfo info)
{
    const auto refreshed = [&info] {
        info.draggedIndexes = BVDragSource::runningInfo().draggedIndexes;
        return info;
    };
    m_manager->m_dropListeners->notify(m_manager, refreshed);
    if (m_manager)
        m_manager->m_registered->notify(refreshed);
}
