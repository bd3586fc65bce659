// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeItemMove_p.h"

#include "itemviews/BVTreeItems_p.h"

#include <QHash>
#include <QItemSelectionModel>
#include <QPointer>
#include <QTreeWidget>

#include <algorithm>
#include <memory>
#include <vector>

using BVTreeItems::indexOf;
using BVTreeItems::itemOf;
using BVTreeItems::parentOf;

namespace {

/// Keeps an object from telling what happens to it.
class Silence
{
public:
    explicit Silence(QObject *object)
        : m_object(object)
        , m_wasBlocked(object->blockSignals(true))
    {
    }
    ~Silence()
    {
        if (m_object)
            m_object->blockSignals(m_wasBlocked);
    }
    Silence(const Silence &) = delete;
    Silence &operator=(const Silence &) = delete;

private:
    QPointer<QObject> m_object;
    bool m_wasBlocked;
};

/// Calls a function with each row of the branches, from top to bottom.
template <typename Visit>
void visitBranches(const QModelIndexList &rows, const Visit &visit)
{
    QModelIndexList pending(rows.crbegin(), rows.crend());
    while (!pending.isEmpty()) {
        const QModelIndex row = pending.takeLast();
        visit(row);
        for (int i = row.model()->rowCount(row) - 1; i >= 0; --i)
            pending.append(row.model()->index(i, 0, row));
    }
}

/// Items that are still to be taken, without those that others remove meanwhile. Persistent indexes
/// for all of them would slow down each removal.
class Pending
{
public:
    Pending(const QVector<QTreeWidget *> &trees, const QList<QTreeWidgetItem *> &items)
        : m_items(items.cbegin(), items.cend())
    {
        for (const QTreeWidget *tree : trees)
            watch(tree->model());
    }

    bool contains(QTreeWidgetItem *item) const { return m_items.contains(item); }

private:
    void watch(const QAbstractItemModel *model)
    {
        QObject::connect(model, &QAbstractItemModel::modelAboutToBeReset, &m_context,
                         [this] { m_items.clear(); });
        QObject::connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, &m_context,
                         [this, model](const QModelIndex &parent, int first, int last) {
                             QModelIndexList rows;
                             for (int row = first; row <= last; ++row)
                                 rows.append(model->index(row, 0, parent));
                             visitBranches(rows, [this](const QModelIndex &row) {
                                 m_items.remove(itemOf(row));
                             });
                         });
    }

    QSet<QTreeWidgetItem *> m_items;
    QObject m_context; // of the connections
};

/// The rows of those items that are children of @p parent.
QModelIndexList childRows(QTreeWidgetItem *parent, const QList<QTreeWidgetItem *> &items)
{
    const QSet<QTreeWidgetItem *> wanted(items.cbegin(), items.cend());
    const QModelIndex index = indexOf(parent);
    QModelIndexList rows;
    for (int i = 0; i < parent->childCount() && rows.size() < items.size(); ++i)
        if (wanted.contains(parent->child(i)))
            rows.append(parent->treeWidget()->model()->index(i, 0, index));
    return rows;
}

} // namespace

/// What the target's tree knows of items and forgets with them.
class BVTreeItemMove::Memory
{
public:
    Memory(const QTreeWidget *tree, const QModelIndexList &rows);

    /// Of what is still there. The slots of the selection model may do anything.
    void restore(QTreeWidget *tree, const QModelIndexList &rows) const;

private:
    struct State
    {
        bool isExpanded;
        bool isSpanned;
        bool isSelected;
    };

    void select(QTreeWidget *tree, const Rows &selected,
                const QPersistentModelIndex &current) const;

    QHash<const QTreeWidgetItem *, State> m_states; // of those that have any
    const QTreeWidgetItem *m_current;
    int m_column;
};

/// Rows from another tree are selected there only.
BVTreeItemMove::Memory::Memory(const QTreeWidget *tree, const QModelIndexList &rows)
    : m_current(tree->currentItem())
    , m_column(tree->currentColumn())
{
    const auto indexes = tree->selectionModel()->selectedIndexes();
    const QSet<QModelIndex> selected(indexes.cbegin(), indexes.cend());
    visitBranches(rows, [this, &selected](const QModelIndex &row) {
        const QTreeWidgetItem *item = itemOf(row);
        const QTreeWidget *source = item->treeWidget();
        const State state{source->isExpanded(row),
                          source->isFirstColumnSpanned(row.row(), row.parent()),
                          selected.contains(row)};
        if (state.isExpanded || state.isSpanned || state.isSelected)
            m_states.insert(item, state);
    });
}

void BVTreeItemMove::Memory::restore(QTreeWidget *tree, const QModelIndexList &rows) const
{
    const bool isAnimated = tree->isAnimated();
    Rows selected;
    QModelIndex current;
    tree->setAnimated(false);
    visitBranches(rows, [&](const QModelIndex &row) {
        const QTreeWidgetItem *item = itemOf(row);
        const State state = m_states.value(item, {});
        if (state.isSpanned)
            tree->setFirstColumnSpanned(row.row(), row.parent(), true);
        if (state.isExpanded)
            tree->expand(row);
        if (state.isSelected)
            selected.append(row);
        if (item == m_current)
            current = row.siblingAtColumn(m_column);
    });
    tree->setAnimated(isAnimated);
    select(tree, selected, current);
}

/// Scrolls nowhere, which would open branches in passing.
void BVTreeItemMove::Memory::select(QTreeWidget *tree, const Rows &selected,
                                    const QPersistentModelIndex &current) const
{
    const QPointer<QTreeWidget> guard(tree);
    // A view with a single selection has selected a neighbour of the row that was taken.
    const bool isSingle = tree->selectionMode() == QAbstractItemView::SingleSelection;
    QItemSelectionModel::SelectionFlags command = isSingle && !selected.isEmpty()
                                                      ? QItemSelectionModel::ClearAndSelect
                                                      : QItemSelectionModel::Select;
    if (tree->selectionBehavior() == QAbstractItemView::SelectRows)
        command |= QItemSelectionModel::Rows;
    const bool scrolls = tree->hasAutoScroll();
    tree->setAutoScroll(false);
    tree->selectionModel()->select(BVTreeItems::selectionOf(selected), command);
    if (guard && current.isValid())
        tree->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    if (guard)
        tree->setAutoScroll(scrolls);
}

/// The selection of a tree that loses rows to another one, silent until it is asked to tell: its
/// slots would be called in the middle of a removal, when the toolkit's tree bears no other.
class BVTreeItemMove::Source
{
public:
    explicit Source(QTreeWidget *tree)
        : m_selection(tree->selectionModel())
        , m_current(m_selection->currentIndex())
        , m_hadCurrent(m_current.isValid())
        , m_selectedCount(m_selection->selectedIndexes().size())
        , m_silence(std::make_unique<Silence>(m_selection))
    {
    }

    /// The slots, those of the tree too, may do anything.
    void tell()
    {
        m_silence.reset();
        const bool isLess = m_selection && m_selection->selectedIndexes().size() != m_selectedCount;
        const bool isOther = m_selection && m_hadCurrent && !m_current.isValid();
        if (isOther)
            Q_EMIT m_selection->currentChanged(m_selection->currentIndex(), QModelIndex());
        if (isOther && m_selection)
            Q_EMIT m_selection->currentRowChanged(m_selection->currentIndex(), QModelIndex());
        if (m_selection && isLess)
            Q_EMIT m_selection->selectionChanged(QItemSelection(), QItemSelection());
    }

private:
    QPointer<QItemSelectionModel> m_selection;
    QPersistentModelIndex m_current;
    bool m_hadCurrent;
    int m_selectedCount; // of cells
    std::unique_ptr<Silence> m_silence;
};

BVTreeItemMove::BVTreeItemMove(const QList<QTreeWidgetItem *> &items)
{
    Items above; // the items of the list
    for (const QTreeWidgetItem *item : items) {
        if (!item || !item->treeWidget() || m_lookup.contains(item))
            continue;
        m_lookup.insert(item);
        if (!m_trees.contains(item->treeWidget()))
            m_trees.append(item->treeWidget());
        for (item = item->parent(); item && !above.contains(item); item = item->parent())
            above.insert(item);
    }
    const QModelIndex first = m_lookup.size() == 1 ? indexOf(*m_lookup.cbegin()) : QModelIndex();
    if (first.isValid())
        add(first);
    else
        for (const QTreeWidget *tree : qAsConst(m_trees))
            collect(tree->invisibleRootItem(), QModelIndex(), above);
}

void BVTreeItemMove::add(const QModelIndex &row)
{
    m_items.append(itemOf(row));
    m_indexes.append(row);
}

/// One walk through the branches that hold rows: to ask each row for its number would be slow.
void BVTreeItemMove::collect(const QTreeWidgetItem *parent, const QModelIndex &index,
                             const Items &above)
{
    const QAbstractItemModel *model = parent->treeWidget()->model();
    for (int row = 0; row < parent->childCount(); ++row) {
        const QTreeWidgetItem *item = parent->child(row);
        if (m_lookup.contains(item))
            add(model->index(row, 0, index));
        else if (above.contains(item))
            collect(item, model->index(row, 0, index), above);
    }
}

BVTreeItemMove::Rows BVTreeItemMove::rows() const
{
    return Rows(m_indexes.cbegin(), m_indexes.cend());
}

bool BVTreeItemMove::isForeignTo(const QTreeWidget *tree) const
{
    return std::any_of(m_trees.cbegin(), m_trees.cend(),
                       [tree](const QTreeWidget *source) { return source != tree; });
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

bool BVTreeItemMove::isSorted(const QTreeWidget *tree)
{
    return tree->isSortingEnabled() && tree->sortColumn() >= 0 &&
           tree->sortColumn() < tree->columnCount();
}

/// The first row from @p row on that stays where it is; null at the end.
QTreeWidgetItem *BVTreeItemMove::follower(const QTreeWidgetItem *parent, int row) const
{
    for (int i = row < 0 ? parent->childCount() : row; i < parent->childCount(); ++i)
        if (!m_lookup.contains(parent->child(i)))
            return parent->child(i);
    return nullptr;
}

/// In a sorted tree that is anywhere below the parent.
bool BVTreeItemMove::isInPlace(const QTreeWidgetItem *parent, int row) const
{
    if (isSorted(parent->treeWidget()))
        return std::all_of(m_items.cbegin(), m_items.cend(),
                           [parent](const auto *item) { return parentOf(item) == parent; });
    const QTreeWidgetItem *before = follower(parent, row);
    const int end = before ? indexOf(before).row() : parent->childCount();
    const int start = end - m_items.size();
    for (int i = 0; i < m_items.size(); ++i)
        if (parent->child(start + i) != m_items[i])
            return false;
    return true;
}

BVTreeItemMove::Rows BVTreeItemMove::execute(QTreeWidgetItem *parent, int row) const
{
    if (m_items.isEmpty() || !isAllowed(parent) || isInPlace(parent, row))
        return Rows();
    std::vector<Source> sources;
    for (QTreeWidget *tree : m_trees)
        if (tree != parent->treeWidget())
            sources.emplace_back(tree);
    const Rows moved = moveTo(parent, row);
    for (Source &source : sources)
        source.tell();
    return moved;
}

/// To the outside the rows of the target's tree only change their places.
BVTreeItemMove::Rows BVTreeItemMove::moveTo(QTreeWidgetItem *parent, int row) const
{
    QTreeWidget *tree = parent->treeWidget();
    const Silence silence(tree);
    const Memory memory(tree, m_indexes);
    const QTreeWidgetItem *before = follower(parent, row);
    const QModelIndexList moved =
        takeTo(tree, BVTreeItems::Place(parent, before ? indexOf(before).row() : -1));
    const Rows kept(moved.cbegin(), moved.cend());
    memory.restore(tree, moved);
    return kept;
}

/// To the end of the tree if the place is lost meanwhile.
QModelIndexList BVTreeItemMove::takeTo(QTreeWidget *tree, const BVTreeItems::Place &place) const
{
    const Silence silence(tree->selectionModel());
    const QList<QTreeWidgetItem *> items = take();
    const auto parent = [&place, tree] {
        return place.parent() ? place.parent() : tree->invisibleRootItem();
    };
    const int count = parent()->childCount();
    parent()->insertChildren(place.row() < 0 ? count : qMin(place.row(), count), items);
    return childRows(parent(), items);
}

/// Those that are still there. From the last one on: what follows a row has to be moved up.
QList<QTreeWidgetItem *> BVTreeItemMove::take() const
{
    const Pending pending(m_trees, m_items);
    QList<QTreeWidgetItem *> taken;
    for (int i = m_items.size() - 1; i >= 0; --i) {
        if (!pending.contains(m_items[i]))
            continue;
        QTreeWidgetItem *parent = parentOf(m_items[i]);
        const int row = m_indexes[i].row(); // unless others have changed the tree meanwhile
        const bool isThere = parent->child(row) == m_items[i];
        taken.prepend(parent->takeChild(isThere ? row : parent->indexOfChild(m_items[i])));
    }
    return taken;
}
