// SPDX-License-Identifier: MIT
#include "itemviews/BVContainerListControl.h"

#include "itemviews/BVDelegateManager.h"
#include "itemviews/BVDragTreeWidget.h"
#include "itemviews/BVDropRules_p.h"
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVListToolBar_p.h"
#include "itemviews/BVPlannelData_p.h"
#include "itemviews/BVTreeItemMove_p.h"
#include "itemviews/BVTreeItems_p.h"

#include <QAction>
#include <QActionEvent>
#include <QDropEvent>
#include <QMetaMethod>
#include <QMimeData>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

BVContainerListControl::BVContainerListControl(QWidget *parent)
    : BVContainerListControl(parent, nullptr, false)
{
}

BVContainerListControl::BVContainerListControl(QWidget *parent, BVDragTreeWidget *tree,
                                               bool showToolBar)
    : QFrame(parent)
    , m_tree(tree ? tree : new BVDragTreeWidget)
    , m_updateTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("bv_containerlistcontrol"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tree);
    m_tree->setAcceptDrops(false);
    setFocusProxy(m_tree);
    if (showToolBar)
        makeToolBar();
}

/// The tree tells of its end, here, too.
BVContainerListControl::~BVContainerListControl()
{
    delete m_tree;
}

BVDragTreeWidget *BVContainerListControl::tree() const
{
    return m_tree;
}

BVContainerListControl *BVContainerListControl::controlOf(const QTreeView *tree)
{
    auto *control = tree ? qobject_cast<BVContainerListControl *>(tree->parentWidget()) : nullptr;
    return control && control->m_tree == tree ? control : nullptr;
}

// Tool bar

void BVContainerListControl::makeToolBar()
{
    m_toolBar = new BVListToolBar(this);
    layout()->addWidget(m_toolBar);
    const auto on = [this](BVListToolBar::Command command, void (BVContainerListControl::*slot)()) {
        connect(m_toolBar->command(command), &QAction::triggered, this, slot);
    };
    on(BVListToolBar::MoveUp, &BVContainerListControl::moveUp);
    on(BVListToolBar::MoveDown, &BVContainerListControl::moveDown);
    on(BVListToolBar::Rename, &BVContainerListControl::rename);
    on(BVListToolBar::Remove, &BVContainerListControl::removeSelected);
    QAction *remove = m_toolBar->command(BVListToolBar::Remove);
    remove->setShortcut(QKeySequence::Delete);
    remove->setShortcutContext(Qt::WidgetShortcut);
    m_tree->addAction(remove); // for its key
    watchRows();
}

/// The buttons follow the rows soon, once for many changes.
void BVContainerListControl::watchRows()
{
    m_updateTimer->setSingleShot(true);
    connect(m_updateTimer, &QTimer::timeout, this, &BVContainerListControl::updateActions);
    const auto schedule = [this] {
        if (!m_updateTimer->isActive())
            m_updateTimer->start(0);
    };
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, schedule);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, schedule);
    connect(m_tree->model(), &QAbstractItemModel::rowsInserted, this, schedule);
    connect(m_tree->model(), &QAbstractItemModel::rowsRemoved, this, schedule);
    connect(m_tree->model(), &QAbstractItemModel::layoutChanged, this, schedule);
    connect(m_tree->model(), &QAbstractItemModel::dataChanged, this, schedule);
    updateActions();
}

void BVContainerListControl::updateActions()
{
    if (!m_toolBar || !m_tree)
        return;
    const QList<QTreeWidgetItem *> rows = selectedRows();
    const auto enable = [this](BVListToolBar::Command command, bool on) {
        m_toolBar->command(command)->setEnabled(on && m_toolBarEnabled);
    };
    enable(BVListToolBar::MoveUp, stepTarget(rows, true) >= 0);
    enable(BVListToolBar::MoveDown, stepTarget(rows, false) >= 0);
    enable(BVListToolBar::Rename, isRenamable(currentItem()));
    enable(BVListToolBar::Remove, !rows.isEmpty());
}

void BVContainerListControl::setToolBarEnabled(bool enable)
{
    m_toolBarEnabled = enable;
    if (m_toolBar)
        m_toolBar->setEnabled(enable);
    updateActions();
}

void BVContainerListControl::actionEvent(QActionEvent *event)
{
    QFrame::actionEvent(event);
    if (m_toolBar && event->type() == QEvent::ActionAdded)
        m_toolBar->addButton(event->action(), event->before());
    else if (m_toolBar && event->type() == QEvent::ActionRemoved)
        m_toolBar->removeButton(event->action());
}

// Settings

bool BVContainerListControl::isAutoResize() const
{
    return m_tree && m_tree->isResizable();
}

void BVContainerListControl::setAutoResize(bool on)
{
    if (m_tree)
        m_tree->setResizable(on);
}

void BVContainerListControl::setEditable(bool editable)
{
    m_editable = editable;
    updateEditTriggers();
    updateActions();
}

void BVContainerListControl::setTreeEditTriggersEnabled(bool enable)
{
    m_editTriggersEnabled = enable;
    updateEditTriggers();
}

void BVContainerListControl::updateEditTriggers()
{
    const bool isOff = !m_editable || !m_editTriggersEnabled;
    if (!m_tree || isOff == m_areTriggersOff)
        return;
    m_areTriggersOff = isOff;
    if (isOff)
        m_editTriggers = m_tree->editTriggers();
    m_tree->setEditTriggers(isOff ? QAbstractItemView::NoEditTriggers : m_editTriggers);
}

bool BVContainerListControl::isMultiSelectionEnabled() const
{
    return m_tree && m_tree->selectionMode() == QAbstractItemView::ExtendedSelection;
}

void BVContainerListControl::enableMultiSelection(bool enable)
{
    if (m_tree)
        m_tree->setSelectionMode(enable ? QAbstractItemView::ExtendedSelection
                                        : QAbstractItemView::SingleSelection);
}

void BVContainerListControl::setMouseTracking(bool enable)
{
    QFrame::setMouseTracking(enable);
    if (!m_tree)
        return;
    m_tree->setMouseTracking(enable);
    m_tree->viewport()->setMouseTracking(enable);
}

// Items

QTreeWidgetItem *BVContainerListControl::currentItem() const
{
    return m_tree ? m_tree->currentItem() : nullptr;
}

void BVContainerListControl::setCurrentItem(QTreeWidgetItem *item)
{
    if (m_tree && (!item || item->treeWidget() == m_tree))
        m_tree->setCurrentItem(item);
}

int BVContainerListControl::topLevelItemCount() const
{
    return m_tree ? m_tree->topLevelItemCount() : 0;
}

QTreeWidgetItem *BVContainerListControl::topLevelItem(int index) const
{
    return m_tree ? m_tree->topLevelItem(index) : nullptr;
}

int BVContainerListControl::indexOfTopLevelItem(QTreeWidgetItem *item) const
{
    return m_tree && item ? m_tree->indexOfTopLevelItem(item) : -1;
}

void BVContainerListControl::insertTopLevelItem(int index, QTreeWidgetItem *item)
{
    if (m_tree && item)
        m_tree->insertTopLevelItem(index, item);
}

QTreeWidgetItem *BVContainerListControl::takeTopLevelItem(int index)
{
    return m_tree ? m_tree->takeTopLevelItem(index) : nullptr;
}

void BVContainerListControl::removeTopLevelItem(int index)
{
    delete takeTopLevelItem(index);
}

// Commands

QList<QTreeWidgetItem *> BVContainerListControl::selectedRows() const
{
    return m_tree ? BVTreeItemMove(m_tree->selectedItems()).items() : QList<QTreeWidgetItem *>();
}

/// The row in front of which rows of one parent are to be moved so that they pass one other; -1 if
/// there is none or they have several parents.
int BVContainerListControl::stepTarget(const QList<QTreeWidgetItem *> &rows, bool up) const
{
    if (rows.isEmpty() || BVTreeItemMove::isSorted(m_tree))
        return -1;
    const QTreeWidgetItem *parent = rows.constFirst()->parent();
    for (const QTreeWidgetItem *row : rows)
        if (row->parent() != parent)
            return -1;
    if (up)
        return m_tree->indexFromItem(rows.constFirst()).row() - 1;
    const int behind = m_tree->indexFromItem(rows.constLast()).row() + 2;
    return behind <= BVTreeItems::parentOf(rows.constLast())->childCount() ? behind : -1;
}

void BVContainerListControl::step(bool up)
{
    const QList<QTreeWidgetItem *> rows = selectedRows();
    const int target = stepTarget(rows, up);
    if (target >= 0)
        moveHere(rows, rows.constFirst()->parent(), target);
}

void BVContainerListControl::moveUp()
{
    step(true);
}

void BVContainerListControl::moveDown()
{
    step(false);
}

bool BVContainerListControl::isRenamable(const QTreeWidgetItem *item) const
{
    constexpr Qt::ItemFlags needed = Qt::ItemIsEditable | Qt::ItemIsEnabled;
    if (!m_editable || !item || (item->flags() & needed) != needed)
        return false;
    const QModelIndex index = m_tree->indexFromItem(item, qMax(0, m_tree->currentColumn()));
    const BVItemDelegate *delegate = BVDelegateManager::itemDelegateOf(m_tree, index);
    return !delegate || delegate->isEditable(index);
}

void BVContainerListControl::rename()
{
    QTreeWidgetItem *item = currentItem();
    if (isRenamable(item))
        m_tree->editItem(item, qMax(0, m_tree->currentColumn()));
}

void BVContainerListControl::removeSelected()
{
    if (!m_tree)
        return;
    const BVTreeItemMove selected(m_tree->selectedItems());
    if (selected.items().isEmpty())
        return;
    const Rows rows = selected.rows();
    const QPointer<BVContainerListControl> guard(this);
    bool remove = true;
    Q_EMIT sigItemsAboutToBeRemoved(selected.items(), &remove);
    if (!guard || !m_tree || !remove)
        return;
    BVTreeItems::remove(m_tree, rows);
    if (guard)
        selectCurrent();
    if (guard)
        Q_EMIT sigItemsRemoved();
}

/// The row that has become the current one when others went, so that the user can go on with it.
void BVContainerListControl::selectCurrent()
{
    if (m_tree && m_tree->currentItem() && m_tree->selectedItems().isEmpty())
        m_tree->setCurrentItem(m_tree->currentItem());
}

// Drag and drop

void BVContainerListControl::setDragAndDropEnabled(bool enable)
{
    m_dragAndDropEnabled = enable && m_tree;
    if (!m_tree)
        return;
    m_tree->setAcceptDrops(enable);
    m_tree->setDragEnabled(enable);
    if (enable)
        watchManager(m_tree->initDragAndDropManager());
    if (m_manager && enable)
        m_manager->addAcceptedFormat(BVPlannelData::format());
    else if (m_manager)
        m_manager->removeAcceptedFormat(BVPlannelData::format());
}

void BVContainerListControl::watchManager(BVDragAndDropManager *manager)
{
    if (manager == m_manager)
        return;
    if (m_manager)
        m_manager->disconnect(this);
    m_manager = manager;
    connect(manager, &BVDragAndDropManager::sigPrepareDrag, this,
            [this](const QModelIndexList &rows, QMimeData &mime, QPixmap &,
                   QModelIndexList &dragged) { prepareDrag(rows, mime, dragged); });
    connect(manager, &BVDragAndDropManager::sigDropEvent, this, &BVContainerListControl::onDrop);
    const QPointer<BVContainerListControl> guard(this);
    manager->setDragMoveCallback(
        [guard](QDragMoveEvent *event) { return guard && guard->refuseMove(event); });
    manager->setDragWholeRow(true);
    manager->setUseMoveVisualizationLine(true); // rows are moved more often than put below others
}

void BVContainerListControl::prepareDrag(const QModelIndexList &rows, QMimeData &mime,
                                         QModelIndexList &dragged) const
{
    if (!m_dragAndDropEnabled)
        return;
    QVariantList values;
    dragged.clear();
    for (const QModelIndex &row : rows) {
        dragged.append(row.siblingAtColumn(0));
        values.append(dragged.constLast().data(Qt::UserRole));
    }
    mime.setData(BVPlannelData::format(), BVPlannelData::encode(values));
}

/// The place that the manager is going to show.
QModelIndex BVContainerListControl::dropParentAt(const QPoint &pos) const
{
    const QModelIndex target = m_tree->indexAt(pos);
    const DropIndicatorPosition position = BVDropRules::positionAt(
        m_tree, pos, target, m_manager->isDragWholeRow(), m_manager->getUseMoveVisualizationLine());
    return BVDropRules::dropParent(target, position, m_tree->rootIndex());
}

/// Whether the move is refused. The manager still shows the last place that was not.
bool BVContainerListControl::refuseMove(QDragMoveEvent *event)
{
    if (!m_dragAndDropEnabled)
        return false;
    const QModelIndex parent = dropParentAt(event->pos());
    const DragDropInfo info = m_manager->getDragAndDropInfo();
    const bool isPossible = controlOf(info.source)
                                ? !BVTreeItems::isInBranches(parent, info.draggedIndexes)
                                : agreeToCopy(event, info);
    if (isPossible && mayDrop(m_tree->itemFromIndex(parent)))
        return false;
    event->ignore();
    return true;
}

void BVContainerListControl::onDrop(QDropEvent *event)
{
    if (!m_dragAndDropEnabled || takeDrop(event, m_manager->getDragAndDropInfo()))
        return;
    event->setDropAction(Qt::IgnoreAction);
    event->ignore();
}

bool BVContainerListControl::takeDrop(QDropEvent *event, const DragDropInfo &info)
{
    const BVContainerListControl *source = controlOf(info.source);
    if (!source)
        return takeValues(event, info);
    const Rows dragged(info.draggedIndexes.cbegin(), info.draggedIndexes.cend());
    return source->m_dragAndDropEnabled &&
           moveHere(BVTreeItems::itemsOf(dragged), m_tree->itemFromIndex(info.dropParent()),
                    info.dropRow());
}

bool BVContainerListControl::takeValues(QDropEvent *event, const DragDropInfo &info)
{
    QVariantList values;
    if (!event->mimeData() || !agreeToCopy(event, info) ||
        !BVPlannelData::decode(event->mimeData()->data(BVPlannelData::format()), &values))
        return false;
    QTreeWidgetItem *parent = m_tree->itemFromIndex(info.dropParent());
    const BVTreeItems::Place place(parent ? parent : m_tree->invisibleRootItem(), info.dropRow());
    if (!mayDrop(parent) || !place.parent())
        return false;
    Q_EMIT sigValuesDropped(values, parent, place.row());
    return true;
}

/// Values are copies of rows that stay where they are, and somebody has to make rows of them. Views
/// of this process leave their rows alone whatever has become of a drag.
bool BVContainerListControl::agreeToCopy(QDropEvent *event, const DragDropInfo &info) const
{
    const bool canCopy = event->possibleActions() & Qt::CopyAction;
    if (!(canCopy || info.source) ||
        !isSignalConnected(QMetaMethod::fromSignal(&BVContainerListControl::sigValuesDropped)))
        return false;
    if (canCopy)
        event->setDropAction(Qt::CopyAction);
    return true;
}

bool BVContainerListControl::mayDrop(QTreeWidgetItem *parent)
{
    const QTreeWidgetItem *target = parent ? parent : m_tree->invisibleRootItem();
    if (!(target->flags() & Qt::ItemIsDropEnabled))
        return false;
    const QPointer<BVContainerListControl> guard(this);
    bool mayDrop = true;
    Q_EMIT sigItemDragEnter(parent, &mayDrop);
    return guard && m_tree && mayDrop;
}

/// The slots that are asked may delete rows.
bool BVContainerListControl::moveHere(const QList<QTreeWidgetItem *> &items,
                                      QTreeWidgetItem *parent, int row)
{
    QTreeWidgetItem *target = parent ? parent : m_tree->invisibleRootItem();
    const BVTreeItemMove planned(items);
    if (planned.items().isEmpty() || !planned.isAllowed(target))
        return false;
    const BVTreeItems::Place place(target, row);
    Rows rows = planned.rows();
    const QPointer<BVContainerListControl> source =
        controlOf(planned.items().constFirst()->treeWidget());
    if (!mayDrop(parent) || !place.parent())
        return false;
    const QPointer<BVContainerListControl> guard(this);
    const BVTreeItemMove move(BVTreeItems::itemsOf(std::exchange(rows, {})));
    const Rows moved = m_tree->moveRows(move, place.parent(), place.row());
    if (guard && !moved.isEmpty())
        tellOfMove(moved, source);
    return !moved.isEmpty();
}

/// So may those that are told.
void BVContainerListControl::tellOfMove(const Rows &rows, QPointer<BVContainerListControl> source)
{
    const QPointer<BVContainerListControl> guard(this);
    if (source == this)
        source.clear();
    if (source)
        source->selectCurrent();
    const QList<QTreeWidgetItem *> dropped = BVTreeItems::itemsOf(rows);
    if (guard && !dropped.isEmpty())
        Q_EMIT sigItemsDropped(dropped, dropped.constFirst()->parent());
    const QList<QTreeWidgetItem *> gone = BVTreeItems::itemsOf(rows);
    if (guard && source && !gone.isEmpty())
        Q_EMIT source->sigItemsTakenOver(gone, this);
}
