// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeVisibleRows_p.h"

#include "itemviews/BVRowWalk_p.h"
#include "itemviews/BVShownColumns_p.h"
#include "itemviews/BVTreeView.h"

#include <QAccessible>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

constexpr int s_mostWithheld = 64; // rows; for more it is faster to lay out all anew

/// Visits the columns that are shown until @p visit answers with something valid.
template <typename Result, typename Visit>
Result firstOfColumns(const QTreeView &view, Visit &&visit)
{
    Result result;
    BVShownColumns::visit(*view.header(), [&](int column) {
        result = visit(column);
        return !result.isValid();
    });
    return result;
}

} // namespace

BVTreeVisibleRows::BVTreeVisibleRows(BVTreeView *view)
    : m_view(view)
{
}

// Where rows are, which is asked past the view's own functions, as they settle everything first

/// Rows may have fewer cells than others, and columns may be out of sight.
QModelIndex BVTreeVisibleRows::rowAt(const QTreeView &view, int y)
{
    const int width = view.viewport()->width();
    return firstOfColumns<QModelIndex>(view, [&](int column) {
        const int left = view.columnViewportPosition(column);
        const int x = qMax(left, 0);
        if (x >= qMin(left + view.columnWidth(column), width))
            return QModelIndex();
        return view.QTreeView::indexAt(QPoint(x, y)).siblingAtColumn(0);
    });
}

QRect BVTreeVisibleRows::rowRect(const QTreeView &view, const QModelIndex &row)
{
    return firstOfColumns<QRect>(
        view, [&](int column) { return view.QTreeView::visualRect(row.siblingAtColumn(column)); });
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

bool BVTreeVisibleRows::isInSight(const QModelIndex &first, const QModelIndex &last) const
{
    return m_first.isEmpty() || (!(BVRowWalk::pathTo(last) < m_first) &&
                                 (m_last.isEmpty() || !(m_last < BVRowWalk::pathTo(first))));
}

// Keeping back

bool BVTreeVisibleRows::mayWithhold(const QModelIndex &topLeft,
                                    const QModelIndex &bottomRight) const
{
    const bool isCell = topLeft == bottomRight;
    const bool hasEditor = isCell ? m_view->indexWidget(topLeft) != nullptr
                                  : !m_view->viewport()->children().isEmpty();
    return topLeft.isValid() && !hasEditor && !QAccessible::isActive() &&
           !m_view->uniformRowHeights() &&
           m_view->verticalScrollMode() == QAbstractItemView::ScrollPerItem;
}

void BVTreeVisibleRows::onDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                      const QVector<int> &roles, bool isMeasured)
{
    const QScopedValueRollback<bool> passing(m_isPassing, true);
    if (!mayWithhold(topLeft, bottomRight)) {
        m_view->QTreeView::dataChanged(topLeft, bottomRight, roles);
        return;
    }
    if (isInClosedBranch(topLeft))
        return;
    const bool isSeen = isInSight(topLeft, bottomRight);
    if (!isMeasured) {
        if (isSeen)
            m_view->QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
    } else if (bottomRight.row() - topLeft.row() >= s_mostWithheld) {
        withholdAll(isSeen);
    } else if (isSeen) {
        m_view->QTreeView::dataChanged(topLeft, bottomRight, roles);
    } else {
        withhold(topLeft, bottomRight);
    }
}

void BVTreeVisibleRows::withhold(const QModelIndex &topLeft, const QModelIndex &bottomRight)
{
    const Rows rows{topLeft.siblingAtColumn(0), bottomRight.siblingAtColumn(0)};
    if (m_isStale || m_withheld.contains(rows))
        return;
    m_withheld.append(rows);
    if (m_withheld.size() > s_mostWithheld)
        withholdAll(false);
}

void BVTreeVisibleRows::withholdAll(bool isInSight)
{
    m_withheld.clear();
    m_isStale = true;
    if (!isInSight)
        return;
    m_isSightStale = true;
    m_view->viewport()->update();
}

// Passing on

void BVTreeVisibleRows::clear()
{
    m_withheld.clear();
    m_isStale = false;
    m_isSightStale = false;
}

/// The content has been told of the changes before.
void BVTreeVisibleRows::layOut()
{
    clear();
    m_view->QTreeView::doItemsLayout();
}

bool BVTreeVisibleRows::settle()
{
    if (m_isPassing || (!m_isStale && m_withheld.isEmpty()) ||
        m_view->state() == BVTreeView::CollapsingState)
        return false;
    const QScopedValueRollback<bool> passing(m_isPassing, true);
    if (m_isStale)
        layOut();
    const QVector<Rows> withheld = std::exchange(m_withheld, {});
    for (const Rows &rows : withheld) {
        if (rows.isValid())
            m_view->QTreeView::dataChanged(rows.first, rows.last);
    }
    return true;
}

void BVTreeVisibleRows::settleSight()
{
    const QScopedValueRollback<bool> passing(m_isPassing, true);
    const bool isMoved = moveSight();
    if (m_isStale && (isMoved || m_isSightStale)) {
        layOut();
        moveSight();
    }
    while (passInSight()) // which may bring others into sight
        moveSight();
}

/// Finds out which rows are in sight. False if they are the same as before.
bool BVTreeVisibleRows::moveSight()
{
    const QVector<int> first = BVRowWalk::pathTo(rowAt(*m_view, 0));
    const QVector<int> last = BVRowWalk::pathTo(rowAt(*m_view, m_view->viewport()->height() - 1));
    if (first == m_first && last == m_last)
        return false;
    m_first = first;
    m_last = last;
    return true;
}

bool BVTreeVisibleRows::passInSight()
{
    const auto isOver = [this](const Rows &rows) {
        return !rows.isValid() || isInSight(rows.first, rows.last);
    };
    const auto found = std::find_if(m_withheld.begin(), m_withheld.end(), isOver);
    if (found == m_withheld.end())
        return false;
    const Rows rows = *found;
    m_withheld.erase(found);
    if (rows.isValid())
        m_view->QTreeView::dataChanged(rows.first, rows.last);
    return true;
}
