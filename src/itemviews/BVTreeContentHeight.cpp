// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeContentHeight_p.h"

#include "foundation/BVWidgetStatus.h"
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVRowWalk_p.h"

#include <QHeaderView>
#include <QTreeView>

#include <algorithm>
#include <utility>

namespace {

// Roles that no delegate takes the size of a cell from.
constexpr int s_sizeless[] = {
    Qt::EditRole,       Qt::ToolTipRole,    Qt::StatusTipRole,          Qt::WhatsThisRole,
    Qt::ForegroundRole, Qt::BackgroundRole, BVWidgetStatus::s_itemRole, BVItemDelegate::MarkedRole};
constexpr int s_mostChanged = 1000; // ranges of rows that are looked at one by one

/// Opens what the toolkit keeps for the views derived from its own.
class ViewAccess : public QTreeView
{
public:
    static void layOut(QTreeView *view) { (view->*&ViewAccess::executeDelayedItemsLayout)(); }
    static int rowHeight(const QTreeView *view, const QModelIndex &index)
    {
        return (view->*&ViewAccess::indexRowSizeHint)(index);
    }
};

} // namespace

BVTreeContentHeight::BVTreeContentHeight(QTreeView *view)
    : m_view(view)
{
}

int BVTreeContentHeight::headerHeight() const
{
    const QHeaderView *header = m_view->header();
    if (header->isHidden())
        return 0;
    return qBound(header->minimumHeight(), header->sizeHint().height(), header->maximumHeight());
}

bool BVTreeContentHeight::isMeasured(const QVector<int> &roles)
{
    return roles.isEmpty() || std::any_of(roles.cbegin(), roles.cend(), [](int role) {
               return std::find(std::begin(s_sizeless), std::end(s_sizeless), role) ==
                      std::end(s_sizeless);
           });
}

void BVTreeContentHeight::invalidate()
{
    m_rowsHeight = -1;
    m_changed.clear();
    m_changedCount = 0;
}

void BVTreeContentHeight::rowsChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight)
{
    if (m_rowsHeight < 0)
        return;
    m_changedCount += bottomRight.row() - topLeft.row() + 1;
    if (m_sum.common < 0 || !topLeft.isValid() || m_changed.size() >= s_mostChanged ||
        m_changedCount > m_sum.count / 2)
        invalidate();
    else
        m_changed.append({topLeft.siblingAtColumn(0), bottomRight.siblingAtColumn(0)});
}

bool BVTreeContentHeight::isCommonHeight(const QModelIndex &row) const
{
    return qMax(0, ViewAccess::rowHeight(m_view, row)) == m_sum.common;
}

bool BVTreeContentHeight::isCommonHeight(const Rows &rows) const
{
    if (!rows.first.isValid() || !rows.last.isValid())
        return false;
    for (int row = rows.first.row(); row <= rows.last.row(); ++row) {
        if (!isCommonHeight(rows.first.sibling(row, 0)))
            return false;
    }
    return true;
}

bool BVTreeContentHeight::isHeightKept()
{
    const QVector<Rows> changed = std::exchange(m_changed, {});
    m_changedCount = 0;
    if (changed.isEmpty())
        return true;
    if (m_view->uniformRowHeights()) // the first row stands for all
        return isCommonHeight(m_view->model()->index(0, 0, m_view->rootIndex()));
    return std::all_of(changed.cbegin(), changed.cend(),
                       [this](const Rows &rows) { return isCommonHeight(rows); });
}

int BVTreeContentHeight::rowsHeight(Children children)
{
    ViewAccess::layOut(m_view); // ends in invalidate() if something has changed
    if (m_rowsHeight >= 0 && m_children == children && isHeightKept())
        return m_rowsHeight;
    invalidate();
    m_sum = sumOf(m_view->rootIndex(), children);
    m_rowsHeight = int(qMin(m_sum.height, qint64(QWIDGETSIZE_MAX)));
    m_children = children;
    return m_rowsHeight;
}

int BVTreeContentHeight::rowsHeight(const QModelIndex &parent, Children children) const
{
    return int(qMin(sumOf(parent, children).height, qint64(QWIDGETSIZE_MAX)));
}

/// Whether any column is left to see.
bool BVTreeContentHeight::hasColumns() const
{
    const QHeaderView *header = m_view->header();
    return header->count() > header->hiddenSectionCount();
}

void BVTreeContentHeight::Sum::add(int rowHeight)
{
    common = count == 0 || common == rowHeight ? rowHeight : -1;
    height += rowHeight;
    ++count;
}

BVTreeContentHeight::Sum BVTreeContentHeight::sumOf(const QModelIndex &parent,
                                                    Children children) const
{
    Sum sum;
    const QAbstractItemModel *model = m_view->model();
    if (!model || !hasColumns())
        return sum;
    const bool isUniform = m_view->uniformRowHeights();
    BVRowWalk::visit(*model, parent, [&](const QModelIndex &index) {
        if (m_view->isRowHidden(index.row(), index.parent()))
            return BVRowWalk::Skip;
        sum.add(isUniform && sum.count > 0 ? sum.common
                                           : qMax(0, ViewAccess::rowHeight(m_view, index)));
        const bool descends = children == Children::All ||
                              (children == Children::Expanded && m_view->isExpanded(index));
        return descends ? BVRowWalk::Descend : BVRowWalk::Skip;
    });
    return sum;
}
