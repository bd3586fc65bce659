// SPDX-License-Identifier: MIT
#include "itemviews/BVContainerListControl.h"

#include "itemviews/BVDragTreeWidget.h"
#include "itemviews/BVDropRules_p.h"
#include "itemviews/BVListToolBar_p.h"
#include "itemviews/BVPlannelData_p.h"
#include "itemviews/BVTreeItemMove_p.h"

#include <QAction>
#include <QActionEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QVBoxLayout>

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
    return m_tree ? BVTreeItemMove(m_tree->selectedItems()).rows() : QList<QTreeWidgetItem *>();
}

/// The row in front of which rows of one parent are to be moved so that they pass one other; -1 if
/// there is none or they have several parents.
int BVContainerListControl::stepTarget(const QList<QTreeWidgetItem *> &rows, bool up) const
{
    if (rows.isEmpty())
        return -1;
    const QTreeWidgetItem *parent = rows.constFirst()->parent();
    for (const QTreeWidgetItem *row : rows)
        if (row->parent() != parent)
            return -1;
    if (!parent)
        parent = m_tree->invisibleRootItem();
    if (up)
        return parent->indexOfChild(rows.constFirst()) - 1;
    const int behind = parent->indexOfChild(rows.constLast()) + 2;
    return behind <= parent->childCount() ? behind : -1;
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
    return m_editable && item && (item->flags() & needed) == needed;
}

void BVContainerListControl::rename()
{
    QTreeWidgetItem *item = currentItem();
    if (isRenamable(item))
        m_tree->editItem(item, qMax(0, m_tree->currentColumn()));
}

void BVContainerListControl::removeSelected()
{
    const QList<QTreeWidgetItem *> rows = selectedRows();
    if (rows.isEmpty())
        return;
    QList<QPersistentModelIndex> indexes;
    for (QTreeWidgetItem *row : rows)
        indexes.append(m_tree->indexFromItem(row));
    const QPointer<BVContainerListControl> guard(this);
    bool remove = true;
    Q_EMIT sigItemsAboutToBeRemoved(rows, &remove);
    if (guard && m_tree && remove)
        removeRows(indexes);
}

void BVContainerListControl::removeRows(const QList<QPersistentModelIndex> &indexes)
{
    const QPointer<BVContainerListControl> guard(this);
    for (const QPersistentModelIndex &index : indexes)
        if (guard && m_tree)
            delete m_tree->itemFromIndex(index);
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

/// The dragged rows if a control in this process is their source.
QList<QTreeWidgetItem *> BVContainerListControl::draggedItems(const DragDropInfo &info)
{
    const BVContainerListControl *source = controlOf(info.source);
    QList<QTreeWidgetItem *> items;
    if (source && source->m_dragAndDropEnabled)
        for (const QModelIndex &index : info.draggedIndexes)
            items.append(source->m_tree->itemFromIndex(index));
    return items;
}

/// Whether the move is refused. The manager still shows the last place that was not.
bool BVContainerListControl::refuseMove(QDragMoveEvent *event)
{
    if (!m_dragAndDropEnabled)
        return false;
    const QModelIndex target = m_tree->indexAt(event->pos());
    const auto position = m_manager->advancedDropIndicatorPosition(event->pos(), target);
    QTreeWidgetItem *parent = m_tree->itemFromIndex(BVDropRules::dropParent(target, position, m_tree->rootIndex()));
    if (mayDrop(draggedItems(m_manager->getDragAndDropInfo()), parent))
        return false;
    event->ignore();
    return true;
}

void BVContainerListControl::onDrop(QDropEvent *event)
{
    if (!m_dragAndDropEnabled || takeDrop(event->mimeData(), m_manager->getDragAndDropInfo()))
        return;
    event->setDropAction(Qt::IgnoreAction);
    event->ignore();
}

bool BVContainerListControl::takeDrop(const QMimeData *mime, const DragDropInfo &info)
{
    QTreeWidgetItem *parent = m_tree->itemFromIndex(info.dropParent());
    if (controlOf(info.source))
        return moveHere(draggedItems(info), parent, info.dropRow());
    QVariantList values;
    if (!mime || !BVPlannelData::decode(mime->data(BVPlannelData::format()), &values) ||
        !mayDrop({}, parent))
        return false;
    Q_EMIT sigValuesDropped(values, parent, info.dropRow());
    return true;
}

bool BVContainerListControl::mayDrop(const QList<QTreeWidgetItem *> &items, QTreeWidgetItem *parent)
{
    const QTreeWidgetItem *target = parent ? parent : m_tree->invisibleRootItem();
    if (!(target->flags() & Qt::ItemIsDropEnabled) || !BVTreeItemMove(items).isAllowed(target))
        return false;
    const QPointer<BVContainerListControl> guard(this);
    bool mayDrop = true;
    Q_EMIT sigItemDragEnter(parent, &mayDrop);
    return guard && m_tree && mayDrop;
}

bool BVContainerListControl::moveHere(const QList<QTreeWidgetItem *> &items,
                                      QTreeWidgetItem *parent, int row)
{
    const QList<QTreeWidgetItem *> rows = BVTreeItemMove(items).rows();
    if (rows.isEmpty() || !mayDrop(rows, parent))
        return false;
    const QPointer<BVContainerListControl> source = controlOf(rows.constFirst()->treeWidget());
    const QPointer<BVContainerListControl> guard(this);
    if (!m_tree->moveItems(rows, parent, row))
        return false;
    const bool isTakenOver = source && source != this;
    if (isTakenOver)
        source->selectCurrent();
    if (guard)
        Q_EMIT sigItemsDropped(rows, parent);
    if (guard && isTakenOver && source)
        Q_EMIT source->sigItemsTakenOver(rows, this);
    return true;
}
