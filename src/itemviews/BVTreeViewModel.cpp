// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeViewModel.h"

#include "itemviews/BVChangeFlush_p.h"
#include "itemviews/BVItemBranch_p.h"
#include "itemviews/BVItemIdMap_p.h"
#include "itemviews/BVItemValues_p.h"
#include "itemviews/BVModelWatch_p.h"
#include "itemviews/BVPendingChanges_p.h"
#include "itemviews/BVTreeStructure_p.h"
#include "itemviews/BVTreeVisit_p.h"

#include <QMetaMethod>
#include <QTimer>

#include <algorithm>
#include <typeinfo>
#include <utility>

BVTreeViewModel::BVTreeViewModel(QObject *parent)
    : QAbstractItemModel(parent)
    , m_rootItem(std::make_unique<BVTreeViewItem>())
    , m_headerItem(std::make_unique<BVTreeViewItem>())
    , m_pendingChanges(std::make_unique<BVPendingChanges>())
    , m_itemsById(std::make_unique<BVItemIdMap>())
{
    qRegisterMetaType<QVector<BVTreeViewItem *>>();
    m_rootItem->m_model = this;
    m_headerItem->m_model = this;
    m_itemsById->insert(m_rootItem->id(), m_rootItem.get());
}

BVTreeViewModel::~BVTreeViewModel()
{
    BVModelWatch::release(this);
    // Items must not tell a model that is half gone.
    m_rootItem->m_model = nullptr;
    m_headerItem->m_model = nullptr;
    deleteRows();
}

/// Without a word, even if the items' own classes have something to say when they go.
void BVTreeViewModel::deleteRows()
{
    BVTreeViewItem doomed;
    visitTree(m_rootItem->children(), [&](BVTreeViewItem *item) {
        item->m_model = nullptr;
        if (!item->m_parent)
            item->m_parent = &doomed;
    });
    doomed.m_branch = std::move(m_rootItem->m_branch);
    doomed.m_childCount = std::exchange(m_rootItem->m_childCount, 0);
}

// Items and indexes

BVTreeViewItem *BVTreeViewModel::item(const QModelIndex &index) const
{
    if (index.model() != this)
        return nullptr;
    return static_cast<const BVTreeViewItem *>(index.internalPointer())->child(index.row());
}

/// Null for an index that has no rows: they stand below the first column.
BVTreeViewItem *BVTreeViewModel::holderOfRows(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return m_rootItem.get();
    return parent.column() == 0 ? item(parent) : nullptr;
}

BVTreeViewItem *BVTreeViewModel::itemOfId(qint64 id) const
{
    return m_itemsById->value(id);
}

QModelIndex BVTreeViewModel::index(const BVTreeViewItem *item, int column) const
{
    if (!item || item->m_model != this || column < 0 || column >= columnCount())
        return QModelIndex();
    return cell(item, column);
}

/// An index points to the item that holds the row, so that making one touches no other item.
QModelIndex BVTreeViewModel::cell(const BVTreeViewItem *item, int column) const
{
    BVTreeViewItem *holder = item->holder();
    return holder ? createIndex(holder->indexOfChild(item), column, holder) : QModelIndex();
}

QModelIndex BVTreeViewModel::index(int row, int column, const QModelIndex &parent) const
{
    BVTreeViewItem *parentItem = holderOfRows(parent);
    if (!parentItem || row < 0 || row >= parentItem->childCount() || column < 0 ||
        column >= columnCount())
        return QModelIndex();
    return createIndex(row, column, parentItem);
}

QModelIndex BVTreeViewModel::parent(const QModelIndex &index) const
{
    if (index.model() != this)
        return QModelIndex();
    return cell(static_cast<const BVTreeViewItem *>(index.internalPointer()), 0);
}

int BVTreeViewModel::rowCount(const QModelIndex &parent) const
{
    const BVTreeViewItem *parentItem = holderOfRows(parent);
    return parentItem ? parentItem->childCount() : 0;
}

int BVTreeViewModel::columnCount(const QModelIndex & /*parent*/) const
{
    return m_headerItem->m_columnCount;
}

bool BVTreeViewModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

void BVTreeViewModel::appendTopLevelItem(BVTreeViewItem *item)
{
    m_rootItem->appendChild(item);
}

void BVTreeViewModel::appendTopLevelItems(const QVector<BVTreeViewItem *> &items)
{
    m_rootItem->appendChildren(items);
}

void BVTreeViewModel::insertTopLevelItem(int row, BVTreeViewItem *item)
{
    m_rootItem->insertChild(row, item);
}

void BVTreeViewModel::insertTopLevelItems(int row, const QVector<BVTreeViewItem *> &items)
{
    m_rootItem->insertChildren(row, items);
}

BVTreeViewItem *BVTreeViewModel::takeTopLevelItem(int row)
{
    return m_rootItem->takeChild(row);
}

QVector<BVTreeViewItem *> BVTreeViewModel::getTopLevelItems() const
{
    return m_rootItem->children();
}

BVTreeViewItem *BVTreeViewModel::getTopLevelItemFromIndex(int row) const
{
    return m_rootItem->child(row);
}

int BVTreeViewModel::indexOfTopLevelItem(const BVTreeViewItem *item, int from) const
{
    const int row = m_rootItem->indexOfChild(item);
    return row >= from ? row : -1;
}

QVector<BVTreeViewItem *> BVTreeViewModel::getAllItems() const
{
    QVector<BVTreeViewItem *> items;
    items.reserve(childCount());
    visitTree(m_rootItem->children(), [&](BVTreeViewItem *item) { items.append(item); });
    return items;
}

int BVTreeViewModel::childCount() const
{
    return m_itemsById->size() - 1; // without the root
}

// Values

QVariant BVTreeViewModel::data(const QModelIndex &index, int role) const
{
    const BVTreeViewItem *rowItem = item(index);
    return rowItem ? rowItem->data(index.column(), role) : QVariant();
}

bool BVTreeViewModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    BVTreeViewItem *rowItem = item(index);
    if (rowItem)
        rowItem->setData(index.column(), role, value);
    return rowItem != nullptr;
}

QMap<int, QVariant> BVTreeViewModel::itemData(const QModelIndex &index) const
{
    QMap<int, QVariant> values;
    const BVTreeViewItem *rowItem = item(index);
    if (!rowItem || !rowItem->m_values)
        return values;
    for (auto *value = rowItem->m_values->columnBegin(index.column());
         value != rowItem->m_values->end() && value->column == index.column(); ++value)
        values.insert(value->role, value->value);
    return values;
}

Qt::ItemFlags BVTreeViewModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const BVTreeViewItem *rowItem = item(index);
    return rowItem ? rowItem->flags() : m_rootItem->flags();
}

QVariant BVTreeViewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0)
        return QVariant();
    return m_headerItem->data(section, role);
}

bool BVTreeViewModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant &value,
                                    int role)
{
    if (orientation != Qt::Horizontal || section < 0 || section >= BVTreeViewItem::s_maximumColumns)
        return false;
    m_headerItem->setData(section, role, value);
    return true;
}

// Notification

/// Tells of a change unless nobody is to hear of it. False if a slot has taken the item out.
bool BVTreeViewModel::notify(BVTreeViewItem *item, int column, const QVector<int> &roles)
{
    return m_updateMode == BlockedUpdate || signalsBlocked() || item == m_rootItem.get() ||
           emitDataChanged(item, column, roles);
}

bool BVTreeViewModel::emitDataChanged(BVTreeViewItem *item, int column, const QVector<int> &roles)
{
    if (item == m_headerItem.get())
        return emitHeader(column);
    if (m_updateMode != DelayedUpdate)
        return emitCells(item, column, roles);
    const BVTreeViewItem *parent = item->m_parent ? item->m_parent : m_rootItem.get();
    m_pendingChanges->add(column, parent->id(), item->id(), roles);
    if (!m_delayTimer->isActive())
        m_delayTimer->start();
    return !m_sendItemsChangedImmediately || emitItem(item, column, roles);
}

/// Whether a change of a row is just stored for now.
bool BVTreeViewModel::callsNobody()
{
    if (m_itemChangedCallback)
        return false;
    return m_updateMode == DelayedUpdate ? !m_sendItemsChangedImmediately
                                         : !isShown() && !isHeard();
}

bool BVTreeViewModel::emitHeader(int column)
{
    const BVModelWatch watch(this, m_headerItem.get());
    const bool all = column == s_allColumns;
    if (columnCount() > 0)
        Q_EMIT headerDataChanged(Qt::Horizontal, all ? 0 : column,
                                 all ? columnCount() - 1 : column);
    return watch.isModelAlive();
}

void BVTreeViewModel::connectNotify(const QMetaMethod & /*signal*/)
{
    m_listenersChanged = true;
}

void BVTreeViewModel::disconnectNotify(const QMetaMethod & /*signal*/)
{
    m_listenersChanged = true;
}

/// Not to be called while connections change: locks are held then.
void BVTreeViewModel::findListeners()
{
    static const auto s_shown = QMetaMethod::fromSignal(&BVTreeViewModel::dataChanged);
    static const auto s_heard = QMetaMethod::fromSignal(&BVTreeViewModel::itemsChanged);
    m_listenersChanged = false;
    m_isPlain = typeid(*this) == typeid(BVTreeViewModel);
    m_isShown = isSignalConnected(s_shown);
    m_isHeard = isSignalConnected(s_heard);
}

bool BVTreeViewModel::emitCells(BVTreeViewItem *item, int column, const QVector<int> &roles)
{
    const quint64 shifts = m_columnShifts;
    if (isShown()) {
        const BVModelWatch watch(this, item);
        const bool all = column == s_allColumns;
        const QModelIndex first = index(item, all ? 0 : column);
        if (first.isValid())
            Q_EMIT dataChanged(first, all ? first.sibling(first.row(), columnCount() - 1) : first,
                               roles);
        if (!watch.isItemAlive())
            return false;
    }
    return emitItem(item, columnSince(shifts, column), roles);
}

bool BVTreeViewModel::emitItem(BVTreeViewItem *item, int column, const QVector<int> &roles)
{
    if (!isHeard())
        return true;
    const BVModelWatch watch(this, item);
    Q_EMIT itemsChanged({item}, column, roles);
    return watch.isItemAlive();
}

/// What slots change meanwhile has to wait in its turn. False if one of them has deleted the model.
bool BVTreeViewModel::flushPendingChanges()
{
    if (m_pendingChanges->isEmpty())
        return true;
    if (m_delayTimer)
        m_delayTimer->stop();
    if (!isShown() && !isHeard()) {
        m_pendingChanges->clear();
        return true;
    }
    const std::vector<BVPendingGroup> groups = m_pendingChanges->take();
    const BVChangeFlush flush(this); // knows when this is deleted
    return std::all_of(groups.cbegin(), groups.cend(),
                       [&](const BVPendingGroup &group) { return flush.tell(group); });
}

/// False if a slot has taken the item out, or deleted the model.
bool BVTreeViewModel::flushFor(const BVTreeViewItem *item)
{
    if (m_pendingChanges->isEmpty())
        return true;
    const BVModelWatch watch(this, item);
    flushPendingChanges();
    return watch.isItemAlive();
}

void BVTreeViewModel::updateModel()
{
    updateModel(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void BVTreeViewModel::updateModel(const QModelIndex &topLeft, const QModelIndex &bottomRight)
{
    if (item(topLeft) && item(bottomRight))
        Q_EMIT dataChanged(topLeft, bottomRight);
}

// Modes

void BVTreeViewModel::useDelayedUpdate(bool on, int intervalMs)
{
    if (!on) {
        leaveMode(DelayedUpdate);
        return;
    }
    if (!m_delayTimer) {
        m_delayTimer = new QTimer(this);
        m_delayTimer->setSingleShot(true);
        connect(m_delayTimer, &QTimer::timeout, this, &BVTreeViewModel::flushPendingChanges);
    }
    m_delayTimer->setInterval(qMax(0, intervalMs));
    enterMode(DelayedUpdate);
}

void BVTreeViewModel::setBlockUpdates(bool block)
{
    if (block)
        enterMode(BlockedUpdate);
    else
        leaveMode(BlockedUpdate);
}

void BVTreeViewModel::enterMode(UpdateMode mode)
{
    if (m_updateMode != mode && flushPendingChanges() && m_updateMode != mode)
        setModes(mode, m_updateMode);
}

void BVTreeViewModel::leaveMode(UpdateMode mode)
{
    if (!flushPendingChanges())
        return;
    const UpdateMode restored = m_savedUpdateMode == mode ? ImmediateUpdate : m_savedUpdateMode;
    setModes(restored, restored);
}

void BVTreeViewModel::setModes(UpdateMode mode, UpdateMode saved)
{
    m_updateMode = mode;
    m_savedUpdateMode = saved;
    if (m_delayTimer && mode != DelayedUpdate && saved != DelayedUpdate) {
        m_delayTimer->stop();
        m_delayTimer->deleteLater(); // it may be what calls
        m_delayTimer = nullptr;
    }
    if (mode != DelayedUpdate)
        flushPendingChanges(); // what slots have added
}

void BVTreeViewModel::sendItemsChangedImmediately(bool on)
{
    // What is pending is told as it was collected.
    if (on != m_sendItemsChangedImmediately && flushPendingChanges())
        m_sendItemsChangedImmediately = on;
}

void BVTreeViewModel::setKeepSelectedAfterSorting(bool keep)
{
    m_keepSelectedAfterSorting = keep;
}

void BVTreeViewModel::setItemChangedCallback(const ItemChangedCallback &callback)
{
    m_itemChangedCallback = callback;
}

void BVTreeViewModel::setActivateBulkItemChangedCallback(const BulkItemChangedCallback &callback)
{
    m_activateBulkItemChangedCallback = callback;
}

void BVTreeViewModel::activateBulkItemChanged(bool on)
{
    if (!m_activateBulkItemChangedCallback)
        return;
    const BulkItemChangedCallback callback = m_activateBulkItemChangedCallback;
    callback(on);
}

// Structure

void BVTreeViewModel::beginInsertItems(BVTreeViewItem *parent, int row, int count)
{
    ++m_structure;
    beginInsertRows(cell(parent, 0), row, row + count - 1);
}

void BVTreeViewModel::endInsertItems()
{
    endInsertRows();
}

void BVTreeViewModel::beginRemoveItems(BVTreeViewItem *parent, int row, int count)
{
    ++m_structure;
    beginRemoveRows(cell(parent, 0), row, row + count - 1);
}

void BVTreeViewModel::endRemoveItems()
{
    endRemoveRows();
}

bool BVTreeViewModel::insertRows(int row, int count, const QModelIndex &parent)
{
    BVTreeViewItem *parentItem = holderOfRows(parent);
    const auto isPossible = [&] {
        return row <= parentItem->childCount() && count <= s_maximumRows;
    };
    if (!parentItem || count < 1 || row < 0 || !isPossible() || !flushFor(parentItem) ||
        !isPossible())
        return false;
    QVector<BVTreeViewItem *> items;
    items.reserve(count);
    for (int i = 0; i < count; ++i)
        items.append(new BVTreeViewItem);
    BVTreeStructure(this).insertFree(parentItem, row, items);
    return true;
}

bool BVTreeViewModel::removeRows(int row, int count, const QModelIndex &parent)
{
    BVTreeViewItem *parentItem = holderOfRows(parent);
    const auto isPossible = [&] { return row <= parentItem->childCount() - count; };
    if (!parentItem || count < 1 || row < 0 || !isPossible() || !flushFor(parentItem) ||
        !isPossible())
        return false;
    BVTreeStructure(this).deleteRows(parentItem, row, count);
    return true;
}

/// A table tells of its columns; in a tree, where every row has them, a reset has to do.
template <typename Begin, typename Change, typename End>
void BVTreeViewModel::changeColumns(Begin begin, Change change, End end)
{
    const bool isTable = isFlat(*m_rootItem);
    if (isTable)
        begin();
    else
        beginResetModel();
    change();
    if (isTable)
        end();
    else
        endResetModel();
}

void BVTreeViewModel::setColumnCount(int count)
{
    if (count < 0 || count > BVTreeViewItem::s_maximumColumns || count == columnCount() ||
        !flushPendingChanges())
        return;
    const int before = columnCount();
    if (count > before) {
        changeColumns([&] { beginInsertColumns(QModelIndex(), before, count - 1); },
                      [&] { m_headerItem->m_columnCount = count; }, [&] { endInsertColumns(); });
    } else if (count < before) {
        changeColumns([&] { beginRemoveColumns(QModelIndex(), count, before - 1); },
                      [&] { m_headerItem->cutColumns(count); }, [&] { endRemoveColumns(); });
    }
}

bool BVTreeViewModel::insertColumns(int column, int count, const QModelIndex &parent)
{
    const auto isPossible = [&] {
        return column <= columnCount() && count <= BVTreeViewItem::s_maximumColumns - columnCount();
    };
    if (parent.isValid() || count < 1 || column < 0 || !isPossible() || !flushPendingChanges() ||
        !isPossible())
        return false;
    changeColumns([&] { beginInsertColumns(QModelIndex(), column, column + count - 1); },
                  [&] { shiftColumns(column, count); }, [&] { endInsertColumns(); });
    return true;
}

void BVTreeViewModel::shiftColumns(int column, int count)
{
    ++m_columnShifts;
    m_headerItem->shiftColumns(column, count);
    m_headerItem->m_columnCount = qMax(m_headerItem->m_columnCount, column + count);
    visitTree(m_rootItem->children(),
              [&](BVTreeViewItem *item) { item->shiftColumns(column, count); });
}

void BVTreeViewModel::clear()
{
    if (!flushPendingChanges())
        return;
    ++m_structure;
    beginResetModel();
    m_itemsById->clear();
    m_itemsById->insert(m_rootItem->id(), m_rootItem.get());
    deleteRows();
    endResetModel();
}

void BVTreeViewModel::clearHeader()
{
    setColumnCount(0);
}

/// Lets an item be enabled just as its parent is.
void BVTreeViewModel::propagateEnabledRecursively(BVTreeViewItem *item)
{
    if (item->m_parent)
        item->setEnabledFlag(!item->m_parent->isDisabled());
}

void BVTreeViewModel::propagateEnabledBelow(BVTreeViewItem *item)
{
    const BVModelWatch watch(this, m_rootItem.get());
    std::vector<qint64> ids; // slots may take items out
    visitTree(item->children(), [&](BVTreeViewItem *below) { ids.push_back(below->id()); });
    for (const qint64 id : ids) {
        if (!watch.isModelAlive())
            return;
        if (BVTreeViewItem *below = itemOfId(id))
            propagateEnabledRecursively(below);
    }
}

void BVTreeViewModel::sort(int column, Qt::SortOrder order)
{
    m_rootItem->sortChildren(column, order);
}
