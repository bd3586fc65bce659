// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeViewModel.h"

#include "itemviews/BVItemBranch_p.h"
#include "itemviews/BVItemIdMap_p.h"
#include "itemviews/BVItemValues_p.h"
#include "itemviews/BVModelWatch_p.h"
#include "itemviews/BVPendingChanges_p.h"
#include "itemviews/BVTreeStructure_p.h"
#include "itemviews/BVTreeVisit_p.h"

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
