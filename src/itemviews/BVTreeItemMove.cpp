// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeItemMove_p.h"

#include <QItemSelectionModel>
#include <QSignalBlocker>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

namespace {

QTreeWidgetItem *parentOf(const QTreeWidgetItem *item)
{
    return item->parent() ? item->parent() : item->treeWidget()->invisibleRootItem();
}

int rowOf(const QTreeWidgetItem *item)
{
    return parentOf(item)->indexOfChild(const_cast<QTreeWidgetItem *>(item));
}

/// The rows that lead to an item from the top of its tree.
QVector<int> pathOf(const QTreeWidgetItem *item)
{
    QVector<int> path;
    for (; item; item = item->parent())
        path.prepend(rowOf(item));
    return path;
}

/// The current item as it is before rows of its tree are taken.
struct CurrentItem
{
    explicit CurrentItem(QTreeWidget *treeWidget)
        : tree(treeWidget)
        , item(tree->currentItem())
        , column(tree->currentColumn())
        , selected(tree->selectedItems())
    {
    }

    /// Scrolls nowhere, which would open branches in passing.
    void restore() const
    {
        restoreSelection();
        if (!item || tree->currentItem() == item)
            return;
        const bool scrolls = tree->hasAutoScroll();
        tree->setAutoScroll(false);
        tree->setCurrentItem(item, column, QItemSelectionModel::NoUpdate);
        tree->setAutoScroll(scrolls);
    }

    /// A view with a single selection selects a neighbour of the selected row that is taken.
    void restoreSelection() const
    {
        if (tree->selectionMode() != QAbstractItemView::SingleSelection)
            return;
        const QList<QTreeWidgetItem *> now = tree->selectedItems();
        for (QTreeWidgetItem *row : now)
            row->setSelected(selected.contains(row));
    }

    QTreeWidget *tree;
    QTreeWidgetItem *item;
    int column;
    QList<QTreeWidgetItem *> selected;
};

} // namespace

BVTreeItemMove::BVTreeItemMove(const QList<QTreeWidgetItem *> &items)
{
    for (const QTreeWidgetItem *item : items)
        if (item && item->treeWidget())
            m_lookup.insert(item);
    QVector<std::pair<QVector<int>, QTreeWidgetItem *>> rows;
    QSet<const QTreeWidgetItem *> seen;
    for (QTreeWidgetItem *item : items) {
        if (!m_lookup.contains(item) || seen.contains(item) || isBelowAny(item))
            continue;
        seen.insert(item);
        rows.append({pathOf(item), item});
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    for (const auto &row : qAsConst(rows))
        m_rows.append(row.second);
}

bool BVTreeItemMove::isBelowAny(const QTreeWidgetItem *item) const
{
    while ((item = item->parent()))
        if (m_lookup.contains(item))
            return true;
    return false;
}

bool BVTreeItemMove::isAllowed(const QTreeWidgetItem *parent) const
{
    return parent && parent->treeWidget() && !m_lookup.contains(parent) && !isBelowAny(parent);
}

/// The first row from @p row on that stays where it is; null at the end.
QTreeWidgetItem *BVTreeItemMove::follower(const QTreeWidgetItem *parent, int row) const
{
    for (int i = row < 0 ? parent->childCount() : row; i < parent->childCount(); ++i)
        if (!m_lookup.contains(parent->child(i)))
            return parent->child(i);
    return nullptr;
}

bool BVTreeItemMove::isInPlace(const QTreeWidgetItem *parent, const QTreeWidgetItem *follower) const
{
    const int end = follower ? rowOf(follower) : parent->childCount();
    const int start = end - m_rows.size();
    for (int i = 0; i < m_rows.size(); ++i)
        if (parent->child(start + i) != m_rows[i])
            return false;
    return true;
}

bool BVTreeItemMove::execute(QTreeWidgetItem *parent, int row) const
{
    if (m_rows.isEmpty() || !isAllowed(parent))
        return false;
    const QTreeWidgetItem *before = follower(parent, row);
    if (isInPlace(parent, before))
        return false;
    QTreeWidget *tree = parent->treeWidget();
    const QSignalBlocker blocker(tree); // to the outside its rows have only changed their places
    const CurrentItem current(tree);
    const QVector<State> remembered = states(tree);
    take();
    parent->insertChildren(before ? rowOf(before) : parent->childCount(), m_rows);
    restore(remembered);
    current.restore();
    return true;
}

/// Rows from another tree are selected there only.
QVector<BVTreeItemMove::State> BVTreeItemMove::states(const QTreeWidget *target) const
{
    QVector<State> states;
    QVector<QTreeWidgetItem *> pending = m_rows.toVector();
    while (!pending.isEmpty()) {
        QTreeWidgetItem *item = pending.takeLast();
        const bool isSelected = item->isSelected() && item->treeWidget() == target;
        states.append({item, item->isExpanded(), isSelected, item->isFirstColumnSpanned()});
        for (int i = 0; i < item->childCount(); ++i)
            pending.append(item->child(i));
    }
    return states;
}

void BVTreeItemMove::take() const
{
    for (QTreeWidgetItem *item : m_rows)
        parentOf(item)->takeChild(rowOf(item));
}

void BVTreeItemMove::restore(const QVector<State> &states)
{
    QTreeWidget *tree = states.constFirst().item->treeWidget();
    const bool isAnimated = tree->isAnimated();
    tree->setAnimated(false);
    for (const State &state : states) {
        if (state.isSpanned)
            state.item->setFirstColumnSpanned(true);
        if (state.isExpanded)
            state.item->setExpanded(true);
        if (state.isSelected)
            state.item->setSelected(true);
    }
    tree->setAnimated(isAnimated);
}
