// SPDX-License-Identifier: MIT
#include "itemviews/BVDropTarget_p.h"

#include "itemviews/BVDropPainter_p.h"

BVDropTarget::BVDropTarget(QTreeView *view)
    : m_view(view)
{
    m_expandTimer.setSingleShot(true);
    QObject::connect(&m_expandTimer, &QTimer::timeout, &m_expandTimer, [this] { expand(); });
}

BVDropTarget::~BVDropTarget() = default;

bool BVDropTarget::isLost() const
{
    const bool hasRow = m_view && m_dropIndex.isValid() && m_dropIndex.model() == m_view->model();
    return m_position != DropIndicatorPosition::OnViewport && !hasRow;
}

DropIndicatorPosition BVDropTarget::position() const
{
    return isLost() ? DropIndicatorPosition::OnViewport : m_position;
}

void BVDropTarget::describe(DragDropInfo *info) const
{
    info->dropIndex = isLost() ? QPersistentModelIndex() : m_dropIndex;
    info->dropRoot = m_view ? m_view->rootIndex() : QModelIndex();
    info->dropRect = m_dropRect;
    info->position = position();
    info->action = m_action;
}

/// The target and what is painted around it.
QRect BVDropTarget::marksRect() const
{
    if (m_dropRect.isNull() || isLost())
        return QRect();
    DragDropInfo info;
    describe(&info);
    return m_dropRect | BVDropPainter(m_view).targetRect(info);
}

bool BVDropTarget::set(const QModelIndex &index, const QRect &rect, DropIndicatorPosition position,
                       Qt::DropAction action, bool hasWideMarks)
{
    const bool isSameTarget = index == m_dropIndex && action == m_action;
    if (isSameTarget && position == m_position && rect == m_dropRect)
        return false;
    const QRect before = marksRect();
    m_dropIndex = index;
    m_dropRect = rect;
    m_position = position;
    m_action = action;
    const QRect now = marksRect();
    if (hasWideMarks || before.isNull() || now.isNull())
        m_view->viewport()->update();
    else
        m_view->viewport()->update((before | now).adjusted(0, 0, 1, 1));
    if (!isSameTarget)
        updateExpanding();
    return true;
}

void BVDropTarget::setRefused(bool refused)
{
    if (refused == m_isRefused)
        return;
    m_isRefused = refused;
    updateExpanding();
    m_view->viewport()->update();
}

void BVDropTarget::updateExpanding()
{
    m_expandTimer.stop();
    if (m_dropIndex.isValid() && !m_isRefused && m_view->autoExpandDelay() >= 0)
        m_expandTimer.start(m_view->autoExpandDelay());
}

void BVDropTarget::reset()
{
    m_expandTimer.stop();
    m_dropIndex = QPersistentModelIndex();
    m_dropRect = QRect();
    m_position = DropIndicatorPosition::OnViewport;
    m_action = Qt::IgnoreAction;
    m_isRefused = false;
    if (m_view)
        m_view->viewport()->update();
}

void BVDropTarget::expand()
{
    if (m_view && m_dropIndex.isValid())
        m_view->expand(m_dropIndex.sibling(m_dropIndex.row(), 0));
}
