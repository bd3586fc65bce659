// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeHover_p.h"

#include "itemviews/BVDelegateManager.h"
#include "itemviews/BVItemDelegate.h"

#include <QCoreApplication>
#include <QHoverEvent>
#include <QPointer>
#include <QTreeView>

BVTreeHover::BVTreeHover(QTreeView *view, Unit unit)
    : m_view(view)
    , m_unit(unit)
{
}

BVTreeHover::~BVTreeHover() = default;

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
        onMouseLeft();
        break;
    default:
        break;
    }
}

void BVTreeHover::setIndex(const QModelIndex &index)
{
    const QPersistentModelIndex before = m_hoverIndex;
    const QPersistentModelIndex after = m_unit == Unit::Row ? index.siblingAtColumn(0) : index;
    if (before == after)
        return;
    const QPointer<QTreeView> view(m_view);
    m_hoverIndex = QPersistentModelIndex();
    repaint(before);
    if (before.isValid())
        onLeave(before);
    if (!view || !after.isValid() || m_hoverIndex.isValid()) // or a slot has chosen another one
        return;
    m_hoverIndex = after;
    repaint(after);
    onEnter(after);
}

void BVTreeHover::repaint(const QModelIndex &index) const
{
    if (m_unit == Unit::Row) {
        const QRect rect = m_view->visualRect(index);
        m_view->viewport()->update(0, rect.top(), m_view->viewport()->width(), rect.height());
        return;
    }
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
