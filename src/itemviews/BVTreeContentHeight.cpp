// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeContentHeight_p.h"

#include "itemviews/BVRowWalk_p.h"

#include <QHeaderView>
#include <QTreeView>

#include <algorithm>

namespace {

// Roles that no delegate takes the size of a cell from.
constexpr int s_sizeless[] = {Qt::EditRole,      Qt::ToolTipRole,    Qt::StatusTipRole,
                              Qt::WhatsThisRole, Qt::ForegroundRole, Qt::BackgroundRole,
                              Qt::CheckStateRole};

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

int BVTreeContentHeight::rowsHeight(Children children)
{
    ViewAccess::layOut(m_view); // ends in invalidate() if something has changed
    if (m_rowsHeight < 0 || m_children != children) {
        m_rowsHeight = rowsHeight(m_view->rootIndex(), children);
        m_children = children;
    }
    return m_rowsHeight;
}

/// Whether any column is left to see.
bool BVTreeContentHeight::hasColumns() const
{
    const QHeaderView *header = m_view->header();
    return header->count() > header->hiddenSectionCount();
}

int BVTreeContentHeight::rowsHeight(const QModelIndex &parent, Children children) const
{
    const QAbstractItemModel *model = m_view->model();
    if (!model || !hasColumns())
        return 0;
    const bool isUniform = m_view->uniformRowHeights();
    int uniformHeight = -1;
    qint64 height = 0;
    BVRowWalk::visit(*model, parent, [&](const QModelIndex &index) {
        if (m_view->isRowHidden(index.row(), index.parent()))
            return BVRowWalk::Skip;
        if (!isUniform)
            height += qMax(0, ViewAccess::rowHeight(m_view, index));
        else
            height += uniformHeight =
                uniformHeight < 0 ? qMax(0, ViewAccess::rowHeight(m_view, index)) : uniformHeight;
        const bool descends = children == Children::All ||
                              (children == Children::Expanded && m_view->isExpanded(index));
        return descends ? BVRowWalk::Descend : BVRowWalk::Skip;
    });
    return int(qMin(height, qint64(QWIDGETSIZE_MAX)));
}
