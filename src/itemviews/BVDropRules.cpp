// SPDX-License-Identifier: MIT
#include "itemviews/BVDropRules_p.h"

#include "itemviews/BVRowWalk_p.h"
#include "itemviews/BVShownColumns_p.h"

#include <QSet>

#include <algorithm>
#include <vector>

namespace {

constexpr int s_edge = 2; // px, of a cell that is for the rows beside it

bool takesDrops(const QModelIndex &index)
{
    return index.flags() & Qt::ItemIsDropEnabled;
}

/// The next sibling in sight, upwards for a negative step; invalid if there is none.
QModelIndex siblingInSight(const QTreeView *view, const QModelIndex &index, int step)
{
    const int count = index.model()->rowCount(index.parent());
    for (int row = index.row() + step; row >= 0 && row < count; row += step) {
        if (!view->isRowHidden(row, index.parent()))
            return index.sibling(row, 0);
    }
    return QModelIndex();
}

} // namespace

DropIndicatorPosition BVDropRules::dropIndicatorPosition(const QPoint &pos, const QRect &rect,
                                                         const QModelIndex &index)
{
    if (pos.y() - rect.top() < s_edge)
        return DropIndicatorPosition::AboveItem;
    if (rect.bottom() - pos.y() < s_edge)
        return DropIndicatorPosition::BelowItem;
    if (!rect.contains(pos, true))
        return DropIndicatorPosition::OnViewport;
    if (takesDrops(index))
        return DropIndicatorPosition::OnItem;
    return pos.y() < rect.center().y() ? DropIndicatorPosition::AboveItem
                                       : DropIndicatorPosition::BelowItem;
}

DropIndicatorPosition BVDropRules::advancedDropIndicatorPosition(const QPoint &pos,
                                                                 const QRect &rect,
                                                                 const QModelIndex &index)
{
    if (!index.isValid())
        return DropIndicatorPosition::OnViewport;
    const int band = takesDrops(index) ? rect.height() / 4 : (rect.height() + 1) / 2;
    if (pos.y() < rect.top() + band)
        return DropIndicatorPosition::AboveItem;
    return takesDrops(index) && pos.y() <= rect.bottom() - band ? DropIndicatorPosition::OnItem
                                                                : DropIndicatorPosition::BelowItem;
}

QRect BVDropRules::targetRect(const QTreeView *view, const QModelIndex &index, bool wholeRow)
{
    const QRect cell = view->visualRect(index);
    if (!wholeRow || !cell.isValid())
        return cell;
    const QRect area = view->viewport()->rect();
    return QRect(QPoint(area.left(), cell.top()), QPoint(area.right(), cell.bottom()));
}

DropIndicatorPosition BVDropRules::positionAt(const QTreeView *view, const QPoint &pos,
                                              const QModelIndex &index, bool wholeRow,
                                              bool wideBands)
{
    if (!index.isValid())
        return DropIndicatorPosition::OnViewport;
    if (wideBands)
        return advancedDropIndicatorPosition(pos, view->visualRect(index), index);
    return dropIndicatorPosition(pos, targetRect(view, index, wholeRow), index);
}

int BVDropRules::dropRow(const QModelIndex &target, DropIndicatorPosition position)
{
    if (!target.isValid())
        return -1;
    switch (position) {
    case DropIndicatorPosition::AboveItem:
        return target.row();
    case DropIndicatorPosition::BelowItem:
        return target.row() + 1;
    default:
        return -1;
    }
}

QModelIndex BVDropRules::dropParent(const QModelIndex &target, DropIndicatorPosition position,
                                    const QModelIndex &root)
{
    switch (position) {
    case DropIndicatorPosition::OnItem:
        return target.sibling(target.row(), 0);
    case DropIndicatorPosition::OnViewport:
        return root;
    default:
        return target.parent();
    }
}

bool BVDropRules::isInHintBand(const QPoint &pos, int viewportHeight)
{
    return pos.y() >= viewportHeight - s_hintBandHeight;
}

bool BVDropRules::isInScrollMargin(const QPoint &pos, const QRect &area, int margin)
{
    return area.contains(pos) && !area.adjusted(margin, margin, -margin, -margin).contains(pos);
}

QModelIndexList BVDropRules::inTreeOrder(const QModelIndexList &indexes)
{
    std::vector<std::pair<QVector<int>, QModelIndex>> paths;
    paths.reserve(size_t(indexes.size()));
    for (const QModelIndex &index : indexes)
        paths.emplace_back(BVRowWalk::pathTo(index), index);
    std::stable_sort(paths.begin(), paths.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    QModelIndexList sorted;
    for (const auto &path : paths)
        sorted.append(path.second);
    return sorted;
}

QModelIndexList BVDropRules::topmost(const QModelIndexList &indexes)
{
    QSet<QModelIndex> rows;
    for (const QModelIndex &index : indexes)
        rows.insert(index.sibling(index.row(), 0));
    QModelIndexList kept;
    for (const QModelIndex &index : inTreeOrder(indexes)) {
        QModelIndex ancestor = index.parent();
        while (ancestor.isValid() && !rows.contains(ancestor))
            ancestor = ancestor.parent();
        if (!ancestor.isValid())
            kept.append(index);
    }
    return kept;
}

QModelIndexList BVDropRules::draggableRows(const QTreeView *view, bool wholeRow)
{
    const QItemSelectionModel *selection = view->selectionModel();
    if (!selection)
        return {};
    QModelIndexList selected = selection->selectedRows();
    const QModelIndexList cells = wholeRow ? selection->selectedIndexes() : QModelIndexList();
    for (const QModelIndex &cell : cells)
        selected.append(cell.sibling(cell.row(), 0));
    QModelIndexList rows;
    for (const QModelIndex &row : inTreeOrder(selected)) {
        if (row.flags() & Qt::ItemIsDragEnabled && (rows.isEmpty() || rows.constLast() != row))
            rows.append(row);
    }
    return rows;
}

QModelIndex BVDropRules::firstCellInSight(const QTreeView *view, const QModelIndex &row)
{
    int first = 0;
    BVShownColumns::visit(*view->header(), [&first](int column) {
        first = column;
        return false;
    });
    return row.sibling(row.row(), first);
}

QModelIndex BVDropRules::lastInSight(const QTreeView *view, QModelIndex row)
{
    const QAbstractItemModel *model = view->model();
    while (!row.isValid() || row == view->rootIndex() || view->isExpanded(row)) {
        int last = model->rowCount(row) - 1;
        while (last >= 0 && view->isRowHidden(last, row))
            --last;
        if (last < 0)
            break;
        row = model->index(last, 0, row);
    }
    return row;
}

BVDropRules::Target BVDropRules::keyTarget(const QTreeView *view, const QModelIndexList &rows,
                                           Direction direction)
{
    const QModelIndexList moved = topmost(rows);
    if (moved.isEmpty())
        return {};
    const QModelIndex first = moved.constFirst();
    const QModelIndex before = siblingInSight(view, first, -1);
    const QModelIndex behind = siblingInSight(view, moved.constLast(), 1);
    switch (direction) {
    case Direction::Up:
        return {before, DropIndicatorPosition::AboveItem, before.isValid()};
    case Direction::Down:
        return {behind, DropIndicatorPosition::BelowItem, behind.isValid()};
    case Direction::Outwards:
        return {first.parent(), DropIndicatorPosition::BelowItem,
                first.parent().isValid() && first.parent() != view->rootIndex()};
    case Direction::Inwards:
        return {before, DropIndicatorPosition::OnItem, before.isValid() && takesDrops(before)};
    }
    return {};
}
