// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeHover_p.h"

#include "itemviews/BVDelegateManager.h"
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVTreeView.h"

#include <QCoreApplication>
#include <QHoverEvent>
#include <QPointer>

BVTreeHover::BVTreeHover(BVTreeView *view)
    : m_view(view)
{
}

void BVTreeHover::handle(QEvent *event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
        setIndex(m_view->indexAt(static_cast<QHoverEvent *>(event)->pos()));
        break;
    case QEvent::HoverLeave:
        setIndex(QModelIndex());
        break;
    case QEvent::Leave:
        Q_EMIT m_view->sigLeaveEvent();
        break;
    default:
        break;
    }
}

void BVTreeHover::setIndex(const QModelIndex &index)
{
    const QPersistentModelIndex before = m_hoverIndex;
    if (before == index)
        return;
    const QPersistentModelIndex after = index;
    const QPointer<BVTreeView> view(m_view);
    m_hoverIndex = QPersistentModelIndex();
    repaint(before);
    if (before.isValid())
        Q_EMIT m_view->sigItemHoverLeave(before, before.column());
    if (!view || !after.isValid())
        return;
    m_hoverIndex = after;
    repaint(after);
    Q_EMIT m_view->sigItemHoverEnter(after, after.column());
}

void BVTreeHover::repaint(const QModelIndex &index) const
{
    const BVItemDelegate *delegate = BVDelegateManager::itemDelegateOf(m_view, index);
    if (delegate && delegate->repaintsOnHover(index))
        m_view->update(index);
}

void BVTreeHover::leave()
{
    const QPoint outside(-1, -1);
    QHoverEvent event(QEvent::HoverLeave, outside, outside);
    QCoreApplication::sendEvent(m_view->viewport(), &event);
}
