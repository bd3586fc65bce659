// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeVisibleRows_p.h"

#include "itemviews/BVTreeView.h"

#include <QAccessible>

#include <algorithm>

namespace {

constexpr int s_mostDeferred = 1000; // beyond, all rows are laid out anew
constexpr int s_mostMeasured = 100;  // rows; to measure more costs more than to lay them out anew

/// The rows of the index and the indexes above it, outermost first.
QVector<int> pathOf(QModelIndex index)
{
    QVector<int> path;
    for (; index.isValid(); index = index.parent())
        path.prepend(index.row());
    return path;
}

/// Whether a row stands above another one when all branches are open.
bool isAbove(const QVector<int> &path, const QVector<int> &other)
{
    return std::lexicographical_compare(path.cbegin(), path.cend(), other.cbegin(), other.cend());
}

} // namespace

BVTreeVisibleRows::BVTreeVisibleRows(BVTreeView *view)
    : m_view(view)
{
}

bool BVTreeVisibleRows::mayDefer(const QModelIndex &topLeft, const QModelIndex &bottomRight) const
{
    const bool isCell = topLeft == bottomRight;
    const bool hasEditor = isCell ? m_view->indexWidget(topLeft) != nullptr
                                  : !m_view->viewport()->children().isEmpty();
    return topLeft.isValid() && !hasEditor && !QAccessible::isActive() &&
           !m_view->uniformRowHeights() &&
           m_view->verticalScrollMode() == QAbstractItemView::ScrollPerItem;
}

bool BVTreeVisibleRows::isInClosedBranch(const QModelIndex &index) const
{
    const QModelIndex root = m_view->rootIndex();
    for (QModelIndex above = index.parent(); above.isValid() && above != root;
         above = above.parent()) {
        if (!m_view->isExpanded(above))
            return true;
    }
    return false;
}

bool BVTreeVisibleRows::isInSight(const QModelIndex &topLeft, const QModelIndex &bottomRight) const
{
    return !isAbove(pathOf(bottomRight), m_first) &&
           (m_last.isEmpty() || !isAbove(m_last, pathOf(topLeft)));
}

bool BVTreeVisibleRows::defers(const QModelIndex &topLeft, const QModelIndex &bottomRight)
{
    if (!mayDefer(topLeft, bottomRight))
        return false;
    if (isInClosedBranch(topLeft))
        return true;
    if (bottomRight.row() - topLeft.row() >= s_mostMeasured) {
        m_view->scheduleDelayedItemsLayout();
        return true;
    }
    if (m_first.isEmpty() || isInSight(topLeft, bottomRight))
        return false;
    if (!m_deferred.isEmpty() && m_deferred.constLast().topLeft == topLeft &&
        m_deferred.constLast().bottomRight == bottomRight)
        return true;
    m_deferred.append({topLeft, bottomRight});
    if (m_deferred.size() > s_mostDeferred) {
        m_deferred.clear();
        m_view->scheduleDelayedItemsLayout();
    }
    return true;
}

void BVTreeVisibleRows::update()
{
    const QRect area = m_view->viewport()->rect();
    m_first = pathOf(m_view->indexAt(area.topLeft()));
    m_last = pathOf(m_view->indexAt(area.bottomLeft()));
    for (int i = m_deferred.size() - 1; i >= 0; --i) {
        const Range range = m_deferred[i];
        const bool isValid = range.topLeft.isValid() && range.bottomRight.isValid();
        if (isValid && !isInSight(range.topLeft, range.bottomRight))
            continue;
        m_deferred.remove(i);
        if (isValid)
            m_view->QTreeView::dataChanged(range.topLeft, range.bottomRight);
    }
}
