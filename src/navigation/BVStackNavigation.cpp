// SPDX-License-Identifier: MIT
#include "navigation/BVStackNavigation_p.h"

#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVStackChecks_p.h"
#include "navigation/BVStackControllerWidget.h"
#include "navigation/BVStackEntries_p.h"
#include "navigation/BVStackOrder_p.h"
#include "navigation/BVStackPageSwitch_p.h"
#include "navigation/BVStackTreeItem_p.h"

#include "foundation/BlockSignals.h"
#include "itemviews/BVContainerListControl.h"
#include "itemviews/BVDragTreeWidget.h"

#include <utility>

// Guards

BVStackNavigation::Hold::Hold(BVStackNavigation *navigation)
    : m_navigation(navigation)
{
    navigation->hold();
}

BVStackNavigation::Hold::~Hold()
{
    if (m_navigation)
        m_navigation->release();
}

BVStackNavigation::Unreported::Unreported(BVStackNavigation *navigation,
                                          const QList<BVControlledStackItem *> &items)
    : m_navigation(navigation)
    , m_items(items)
{
    for (const BVControlledStackItem *item : items)
        navigation->m_unreported.insert(item);
}

BVStackNavigation::Unreported::~Unreported()
{
    for (BVControlledStackItem *item : qAsConst(m_items)) {
        if (!m_navigation)
            return;
        m_navigation->m_unreported.remove(item);
        if (m_navigation->m_stack->isOwn(item) && !BVStackChecks::isReported(item))
            item->setCurrentCheckStateInData();
    }
}

BVStackNavigation::NetToggles::NetToggles(BVControlledStackItem *item)
    : m_navigation(item && item->stackWidget() ? item->stackWidget()->m_navigation : nullptr)
{
    for (; m_navigation && item; item = item->parent()) {
        m_items.append(item);
        m_navigation->m_waiting.insert(item);
    }
}

BVStackNavigation::NetToggles::~NetToggles()
{
    for (BVControlledStackItem *item : qAsConst(m_items)) {
        if (!m_navigation)
            return;
        m_navigation->m_waiting.remove(item);
        if (m_navigation->m_stack->isOwn(item))
            m_navigation->reportToggle(item);
    }
}

/// Remembers what was current before rows go.
void BVStackNavigation::hold()
{
    if (m_holdCount++ > 0)
        return;
    m_heldPrevious = m_stack->getCurrentItem();
    m_isSelectionHeld = false;
}

/// Whatever slots do when they hear of the number of pages still waits.
void BVStackNavigation::release()
{
    const QPointer<BVStackNavigation> guard(this);
    while (guard && m_holdCount == 1 && m_stack->m_entries->isPageCountDue())
        m_stack->m_entries->tellPageCount();
    if (!guard || --m_holdCount > 0)
        return;
    BVControlledStackItem *const previous = m_heldPrevious;
    if (m_isSelectionHeld)
        reportHeldSelection();
    if (guard)
        reportCurrent(m_stack->getCurrentItem(), previous);
}

/// The row that has become current when others went is selected, so that the user can go on with
/// it.
void BVStackNavigation::reportHeldSelection()
{
    const BVDragTreeWidget *tree = m_stack->tree();
    if (tree && tree->currentItem() && tree->selectedItems().isEmpty())
        selectCurrent();
    else
        onSelectionChanged();
}

/// A selection that is kept silent is told of by those who do so.
void BVStackNavigation::onRowsAboutToBeRemoved()
{
    const BVDragTreeWidget *tree = m_stack->tree();
    if (tree && !tree->selectionModel()->signalsBlocked())
        holdUntilRowsAreRemoved();
}

void BVStackNavigation::holdUntilRowsAreRemoved()
{
    hold();
    ++m_deletedRows;
}

void BVStackNavigation::makeCurrent(QTreeWidgetItem *row)
{
    const QPointer<BVStackNavigation> guard(this);
    const QPointer<BVDragTreeWidget> tree(m_stack->tree());
    if (!tree || !(row->flags() & Qt::ItemIsEnabled))
        return;
    const QPersistentModelIndex index = tree->indexFromItem(row);
    tree->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    if (guard && tree && index.isValid() && index == tree->currentIndex())
        selectCurrent();
}

void BVStackNavigation::selectCurrent()
{
    const BVDragTreeWidget *tree = m_stack->tree();
    if (tree && tree->selectionMode() != QAbstractItemView::NoSelection)
        tree->selectionModel()->select(tree->currentIndex(), QItemSelectionModel::ClearAndSelect |
                                                                 QItemSelectionModel::Rows);
}

// Connections

BVStackNavigation::BVStackNavigation(BVControlledStackWidget *stack)
    : QObject(stack)
    , m_stack(stack)
{
    if (!stack->tree())
        return;
    watchTree(stack->tree());
    watchRows(stack->tree());
    if (BVContainerListControl *listControl = stack->controller()->listControl())
        watchDrops(listControl);
}

template <void (BVControlledStackWidget::*signal)(BVControlledStackItem *)>
void BVStackNavigation::forward(QTreeWidgetItem *row)
{
    if (BVControlledStackItem *item = BVStackTreeItem::entryOf(row))
        Q_EMIT(m_stack->*signal)(item);
}

void BVStackNavigation::watchTree(BVDragTreeWidget *tree)
{
    // Rows are deleted after the tree's end has begun, when it can no longer be asked.
    connect(tree, &QObject::destroyed, this, [this] {
        m_stack->m_tree = nullptr;
        m_stack->m_order->invalidate();
        m_stack->m_entries->leaveRows();
    });
    connect(tree, &QTreeWidget::currentItemChanged, this, &BVStackNavigation::onCurrentItemChanged);
    connect(tree, &QTreeWidget::itemSelectionChanged, this, &BVStackNavigation::onSelectionChanged);
    connect(tree, &QTreeWidget::itemChanged, this, &BVStackNavigation::onItemChanged);
    connect(tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem *row) {
        if (BVControlledStackItem *item = BVStackTreeItem::entryAtOrAbove(row))
            Q_EMIT m_stack->itemClicked(item);
    });
    using Stack = BVControlledStackWidget;
    connect(tree, &QTreeWidget::itemCollapsed, this,
            &BVStackNavigation::forward<&Stack::itemCollapsed>);
    connect(tree, &QTreeWidget::itemExpanded, this,
            &BVStackNavigation::forward<&Stack::itemExpanded>);
    connect(tree, &BVDragTreeWidget::sigItemHoverEnter, this,
            &BVStackNavigation::forward<&Stack::itemHoverEnter>);
    connect(tree, &BVDragTreeWidget::sigItemHoverLeave, this,
            &BVStackNavigation::forward<&Stack::itemHoverLeave>);
    connect(tree, &BVDragTreeWidget::sigRowsAboutToBeRemoved, this,
            &BVStackNavigation::onRowsAboutToBeRemoved);
}

/// Every change of the structure passes here, whoever makes it.
void BVStackNavigation::watchRows(BVDragTreeWidget *tree)
{
    const QAbstractItemModel *model = tree->model();
    const auto invalidate = [this] { m_stack->m_order->invalidate(); };
    connect(model, &QAbstractItemModel::rowsInserted, this, &BVStackNavigation::onRowsInserted);
    connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            &BVStackNavigation::keepStateOf);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &BVStackNavigation::onRowsRemoved);
    connect(model, &QAbstractItemModel::rowsMoved, this, invalidate);
    connect(model, &QAbstractItemModel::layoutChanged, this, invalidate);
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this,
            &BVStackNavigation::holdUntilRowsAreRemoved);
    connect(model, &QAbstractItemModel::modelReset, this, [this] {
        m_stack->m_order->invalidate();
        m_stack->updateAutoRootDecoration();
        m_stack->updateStackVisibility();
        releaseRows();
    });
}

void BVStackNavigation::watchDrops(BVContainerListControl *listControl)
{
    connect(listControl, &BVContainerListControl::sigItemDragEnter, this,
            &BVStackNavigation::onDragEnter);
    connect(listControl, &BVContainerListControl::sigItemsDropped, this,
            [this](const QList<QTreeWidgetItem *> &, QTreeWidgetItem *parent) {
                Q_EMIT m_stack->itemDropped(BVStackTreeItem::entryAtOrAbove(parent));
            });
    connect(listControl, &BVContainerListControl::sigItemsTakenOver, this,
            [this](const QList<QTreeWidgetItem *> &rows) {
                if (BVDragTreeWidget *tree = m_stack->tree())
                    tree->moveItems(rows, nullptr, -1);
            });
}

void BVStackNavigation::onDragEnter(QTreeWidgetItem *target, bool *mayDrop)
{
    const BVDragAndDropManager *manager = m_stack->tree()->getDragAndDropManager();
    const QTreeView *source = manager ? manager->getDragAndDropInfo().source.data() : nullptr;
    if (source && source != m_stack->tree())
        *mayDrop = false;
    if (*mayDrop)
        Q_EMIT m_stack->itemDragEnter(BVStackTreeItem::entryAtOrAbove(target), mayDrop);
}

// Current entry and selection

void BVStackNavigation::onCurrentItemChanged(QTreeWidgetItem *current, QTreeWidgetItem *previous)
{
    if (m_holdCount == 0)
        reportCurrent(BVStackTreeItem::entryAtOrAbove(current),
                      BVStackTreeItem::entryAtOrAbove(previous));
}

void BVStackNavigation::reportCurrent(BVControlledStackItem *item, BVControlledStackItem *previous)
{
    if (item == previous)
        return;
    const QPointer<BVStackNavigation> guard(this);
    m_stack->m_entries->showPage(item);
    if (guard)
        Q_EMIT m_stack->currentChanged(item, previous);
    // If a slot has gone on to another entry, that has been told already.
    if (!guard || m_stack->getCurrentItem() != item)
        return;
    if (item || m_stack->isDeselectionOfCurrentEnabled())
        Q_EMIT m_stack->currentChanged(m_stack->getDFSIndex(item));
    if (guard)
        m_stack->updateStackVisibility();
}

void BVStackNavigation::onSelectionChanged()
{
    m_isSelectionHeld = m_holdCount > 0;
    if (m_isSelectionHeld)
        return;
    BVControlledStackItem *current = m_stack->getCurrentItem();
    if (!current || !current->isSelected()) {
        const QList<int> selected = m_stack->getDfsIndexOfSelectedElements();
        current = selected.isEmpty() ? nullptr : m_stack->itemAtDFSIndex(selected.constFirst());
    }
    Q_EMIT m_stack->itemSelectionChanged(current);
}

// Texts and check states

void BVStackNavigation::onItemChanged(QTreeWidgetItem *row, int column)
{
    BVControlledStackItem *item = BVStackTreeItem::entryOf(row);
    if (column != 0 || !item)
        return;
    if (row->text(0) == item->getText()) {
        reportToggle(item);
        return;
    }
    {
        const BlockSignals blocker{m_stack};
        item->setText(row->text(0));
    }
    Q_EMIT m_stack->itemTextChanged(item);
}

bool BVStackNavigation::hasNews(BVControlledStackItem *item) const
{
    return m_stack->isCheckableItems() && item->isCheckable() && !m_reporting.contains(item) &&
           !m_waiting.contains(item) && BVStackChecks::isNews(item);
}

/// Noting the state changes the row again, so what slots have made of it meanwhile follows.
void BVStackNavigation::reportToggle(BVControlledStackItem *item)
{
    if (!hasNews(item))
        return;
    if (m_unreported.contains(item) && !BVStackChecks::isReported(item)) {
        item->setCurrentCheckStateInData();
        return;
    }
    const QPointer<BVStackNavigation> guard(this);
    const Qt::CheckState state = item->getCheckState();
    m_reporting.insert(item);
    Q_EMIT m_stack->itemToggled(item, state);
    if (!guard)
        return;
    m_reporting.remove(item);
    if (m_stack->isOwn(item))
        item->treeItem()->setData(0, BVControlledStackItem::ReportedCheckStateRole, int(state));
}

// Rows

void BVStackNavigation::onRowsInserted(const QModelIndex &parent, int first, int last)
{
    m_stack->m_order->invalidate();
    BVDragTreeWidget *tree = m_stack->tree();
    const QTreeWidgetItem *above =
        parent.isValid() ? tree->itemFromIndex(parent) : tree->invisibleRootItem();
    bool hasBranch = false;
    bool isAnyChecked = false;
    for (int i = first; i <= last; ++i) {
        hasBranch = hasBranch || above->child(i)->childCount() > 0;
        BVControlledStackItem *item = BVStackTreeItem::entryOf(above->child(i));
        if (!item)
            continue;
        placeEntry(item, !parent.isValid());
        isAnyChecked = isAnyChecked || item->getCheckState() != Qt::Unchecked;
    }
    updateParent(BVStackTreeItem::entryOf(above), isAnyChecked);
    const bool isDecorationDue = parent.isValid() ? !parent.parent().isValid() : hasBranch;
    if (isDecorationDue && !tree->rootIsDecorated())
        m_stack->updateAutoRootDecoration();
}

void BVStackNavigation::placeEntry(BVControlledStackItem *item, bool isTopLevel)
{
    BVStackChecks::update(item, m_stack->checkableItems(), isTopLevel);
    BVStackChecks::noteState(item);
    if (m_stack->isShowTopLevelItemsAsGroupHeader() && item->isShownAsHeader() != isTopLevel)
        item->setShowAsHeader(isTopLevel);
}

void BVStackNavigation::updateParent(BVControlledStackItem *item, bool isAnyChecked)
{
    if (!item)
        return;
    BVStackChecks::update(item, m_stack->checkableItems(), item->isTopLevelItem());
    BVStackChecks::noteStates(item, isAnyChecked);
}

void BVStackNavigation::keepStateOf(const QModelIndex &parent, int first, int last) const
{
    const BVDragTreeWidget *tree = m_stack->tree();
    if (tree && parent.isValid())
        if (const auto *item = BVStackTreeItem::entryOf(tree->itemFromIndex(parent)))
            BVStackChecks::keepState(item, first, last);
}

void BVStackNavigation::onRowsRemoved(const QModelIndex &parent)
{
    m_stack->m_order->invalidate();
    if (BVDragTreeWidget *tree = m_stack->tree()) {
        updateParent(BVStackTreeItem::entryOf(tree->itemFromIndex(parent)), true);
        if (tree->rootIsDecorated())
            m_stack->updateAutoRootDecoration();
    }
    releaseRows();
}

/// Slots may remove more rows, which hold and release on their own account.
void BVStackNavigation::releaseRows()
{
    const QPointer<BVStackNavigation> guard(this);
    for (int holds = std::exchange(m_deletedRows, 0); guard && holds > 0; --holds)
        release();
}
