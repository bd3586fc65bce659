// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeViewItem.h"

#include "itemviews/BVBlockPool_p.h"
#include "itemviews/BVCheckCounters_p.h"
#include "itemviews/BVCheckPush_p.h"
#include "itemviews/BVItemBranch_p.h"
#include "itemviews/BVItemSpan_p.h"
#include "itemviews/BVItemValues_p.h"
#include "itemviews/BVModelWatch_p.h"
#include "itemviews/BVTreeSort_p.h"
#include "itemviews/BVTreeStructure_p.h"
#include "itemviews/BVTreeViewModel.h"

#include <QIcon>

#include <algorithm>
#include <utility>

namespace {

constexpr int s_nearRows = 16; // rows around the hint that are worth a look

BVBlockPool s_items(sizeof(BVTreeViewItem));

} // namespace

qint64 BVTreeViewItem::s_nextId = 1;
BVTreeViewItem::PushDown *BVTreeViewItem::s_pushDowns = nullptr;

void BVTreeViewItem::ValuesDeleter::operator()(BVItemValues *values) const
{
    BVItemValues::destroy(values);
}

void *BVTreeViewItem::operator new(size_t size)
{
    return size == sizeof(BVTreeViewItem) ? s_items.take() : ::operator new(size);
}

void BVTreeViewItem::operator delete(void *item, size_t size)
{
    if (size == sizeof(BVTreeViewItem))
        s_items.give(item);
    else
        ::operator delete(item);
}

BVTreeViewItem::BVTreeViewItem()
    : m_id(s_nextId++)
{
}

BVTreeViewItem::BVTreeViewItem(BVTreeViewItem *parent)
    : BVTreeViewItem()
{
    appendTo(parent);
}

BVTreeViewItem::BVTreeViewItem(const QVector<QVector<ItemData>> &values, BVTreeViewItem *parent)
    : BVTreeViewItem()
{
    m_columnCount = qMin(values.size(), s_maximumColumns);
    int count = 0;
    for (const QVector<ItemData> &column : values)
        count += column.size();
    if (count > 0)
        m_values.reset(BVItemValues::make(count));
    for (int column = 0; column < m_columnCount; ++column) {
        for (const ItemData &data : values[column]) {
            if (!find(column, storedRole(data.role)))
                m_values->insert(column, storedRole(data.role), QVariant(data.value));
        }
    }
    appendTo(parent);
}

/// For constructors: slots that count check states see no derived class yet.
void BVTreeViewItem::appendTo(BVTreeViewItem *parent)
{
    if (!parent)
        return;
    parent->appendChild(this);
    BVCheckCounters::forget(m_parent);
}

BVTreeViewItem::BVTreeViewItem(const BVTreeViewItem &other)
    : m_flags(other.m_flags)
    , m_id(s_nextId++)
    , m_values(copyOf(other.m_values.get()))
    , m_columnCount(other.m_columnCount)
{
}

BVTreeViewItem &BVTreeViewItem::operator=(const BVTreeViewItem &other)
{
    if (this == &other)
        return *this;
    std::unique_ptr<BVItemValues, ValuesDeleter> values(copyOf(other.m_values.get()));
    const Qt::ItemFlags flags = other.m_flags;
    const int columnCount = other.m_columnCount;
    if (isHeader() && !setModelColumns(columnCount))
        return *this;
    m_values = std::move(values);
    releaseFlags();
    m_flags = flags;
    if (isHeader())
        cutColumns(m_columnCount);
    else
        m_columnCount = columnCount;
    BVCheckCounters::forget(this);
    if (m_model)
        m_model->notify(this, BVTreeViewModel::s_allColumns, {});
    return *this;
}

BVTreeViewItem::~BVTreeViewItem()
{
    for (PushDown *running = s_pushDowns; running; running = running->outer) {
        if (running->item == this)
            running->item = nullptr;
    }
    // Nothing pending is told now: slots must not meet an item that is half gone.
    if (BVTreeViewItem *parent = holder()) {
        if (m_model)
            BVTreeStructure(m_model).takeRows(parent, row(), 1);
        else
            parent->release(row(), 1);
    }
    deleteChildren();
}

/// Deletes level by level instead of by recursion, which a long chain of items would overflow. The
/// items deleted by the loop leave their own children to it.
void BVTreeViewItem::deleteChildren()
{
    thread_local std::vector<BVTreeViewItem *> *s_doomed = nullptr;
    if (m_childCount == 0)
        return;
    std::vector<BVTreeViewItem *> doomed;
    const bool isOutermost = !s_doomed;
    if (isOutermost)
        s_doomed = &doomed;
    const QVector<BVTreeViewItem *> children = std::exchange(m_branch->children, {});
    m_childCount = 0;
    for (auto child = children.crbegin(); child != children.crend(); ++child) {
        (*child)->m_parent = nullptr;
        (*child)->m_model = nullptr;
        s_doomed->push_back(*child);
    }
    while (isOutermost && !doomed.empty()) {
        const BVTreeViewItem *item = doomed.back();
        doomed.pop_back();
        delete item;
    }
    if (isOutermost)
        s_doomed = nullptr;
}

// Values

BVItemValues *BVTreeViewItem::copyOf(const BVItemValues *values)
{
    return values ? BVItemValues::copy(*values) : nullptr;
}

const QVariant *BVTreeViewItem::find(int column, int role) const
{
    return m_values ? m_values->find(column, role) : nullptr;
}

QVariant BVTreeViewItem::data(int column, int role) const
{
    if (role == Qt::CheckStateRole && derivesCheckState())
        return BVCheckCounters::derivedState(*this, column);
    const QVariant *value = find(column, storedRole(role));
    return value ? *value : QVariant();
}

bool BVTreeViewItem::hasCheckState(int column) const
{
    if (!isPlain() || derivesCheckState())
        return data(column, Qt::CheckStateRole).isValid();
    const QVariant *state = find(column, Qt::CheckStateRole);
    return state && state->isValid();
}

bool BVTreeViewItem::derivesCheckState() const
{
    return (m_flags & Qt::ItemIsAutoTristate) && m_childCount > 0;
}

void BVTreeViewItem::setData(int column, int role, const QVariant &value)
{
    write(column, role, QVariant(value));
}

void BVTreeViewItem::write(int column, int role, QVariant &&value)
{
    if (column < 0 || column >= s_maximumColumns)
        return;
    if (column >= m_columnCount && isHeader() && !setModelColumns(column + 1))
        return;
    if (change(column, role, std::move(value)) && m_model)
        announce(column, role);
}

/// False if the model, and this with it, has not outlived the notification.
bool BVTreeViewItem::setModelColumns(int count)
{
    const BVModelWatch watch(m_model, this);
    m_model->setColumnCount(count);
    return watch.isModelAlive();
}

/// False if nothing has changed or the item is gone.
bool BVTreeViewItem::change(int column, int role, QVariant &&value)
{
    if (isPushingDown())
        BVCheckCounters::forget(m_parent); // they know the state from before
    BVCheckCounters::Change change(this, column);
    if (role != Qt::CheckStateRole || !(m_flags & Qt::ItemIsAutoTristate) ||
        BVItemValues::isSame(role, value, int(Qt::PartiallyChecked)))
        return store(column, storedRole(role), std::move(value));
    const QVariant before = data(column, role);
    if (!pushDownCheckState(column, value)) {
        change.abandon();
        return false;
    }
    // What the children make of it counts as well as what is stored.
    return store(column, role, std::move(value)) || before != data(column, role);
}

void BVTreeViewItem::announce(int column, int role)
{
    if (m_model->m_itemChangedCallback) {
        const BVModelWatch watch(m_model, this);
        const auto callback = m_model->m_itemChangedCallback; // may be replaced by what it does
        callback(this, role);
        if (!watch.isItemAlive())
            return;
    }
    notify(column, role);
}

/// Returns whether the value is another one now.
bool BVTreeViewItem::store(int column, int role, QVariant &&value)
{
    m_columnCount = qMax(m_columnCount, column + 1);
    if (auto *stored = const_cast<QVariant *>(find(column, role))) {
        if (BVItemValues::isSame(role, *stored, value))
            return false;
        *stored = std::move(value);
        return true;
    }
    if (!m_values || m_values->isFull())
        m_values.reset(BVItemValues::enlarge(m_values.release()));
    m_values->insert(column, role, std::move(value));
    return true;
}

/// Makes room for @p count columns in front of @p column.
void BVTreeViewItem::shiftColumns(int column, int count)
{
    if (m_branch)
        m_branch->checkCounters.reset();
    if (column >= m_columnCount)
        return;
    if (m_values)
        m_values->shiftColumns(column, count);
    m_columnCount += count;
}

/// Drops all columns from @p count on.
void BVTreeViewItem::cutColumns(int count)
{
    if (m_values)
        m_values->cutColumns(count);
    m_columnCount = count;
}

bool BVTreeViewItem::isHeader() const
{
    return m_model && m_model->m_headerItem.get() == this;
}

bool BVTreeViewItem::isRoot() const
{
    return m_model && m_model->m_rootItem.get() == this;
}

bool BVTreeViewItem::isPushingDown() const
{
    for (const PushDown *running = s_pushDowns; running; running = running->outer) {
        if (running->item == this)
            return true;
    }
    return false;
}

/// Sets the children that have a check state. False if the item is gone.
bool BVTreeViewItem::pushDownCheckState(int column, const QVariant &value)
{
    const BVModelWatch watch(m_model, this);
    BVTreeViewModel *const model = m_model;
    PushDown running(this, column, value);
    BVCheckCounters::forget(m_parent); // while a child is written the state is what is stored
    if (model)
        model->activateBulkItemChanged(true);
    // By index: a slot may insert, take or delete rows, this one included.
    for (int i = 0; running.item && i < m_childCount; ++i)
        running.write(m_branch->children.at(i));
    if (watch.isModelAlive())
        model->activateBulkItemChanged(false);
    return running.item != nullptr;
}

void BVTreeViewItem::notify(int column, int role)
{
    static const QVector<int> s_textRoles{Qt::DisplayRole, Qt::EditRole};
    if (!m_model)
        return;
    if (role == Qt::CheckStateRole)
        notifyCheckState(column);
    else if (storedRole(role) == Qt::DisplayRole)
        m_model->notify(this, column, s_textRoles);
    else
        m_model->notify(this, column, {role});
}

/// Each step may run slots that change the tree.
void BVTreeViewItem::notifyCheckState(int column)
{
    static const QVector<int> s_roles{Qt::CheckStateRole};
    BVTreeViewItem *item = this;
    while (item->m_model->notify(item, column, s_roles)) {
        item = item->m_parent;
        if (!item || !(item->m_flags & Qt::ItemIsAutoTristate))
            return;
    }
}

bool BVTreeViewItem::operator<(const BVTreeViewItem &other) const
{
    const int column = m_model ? m_model->m_sortColumn : 0;
    return QString::localeAwareCompare(data(column, Qt::DisplayRole).toString(),
                                       other.data(column, Qt::DisplayRole).toString()) < 0;
}

bool BVTreeViewItem::setExpanded(bool)
{
    return false;
}

bool BVTreeViewItem::isExpanded() const
{
    return false;
}

bool BVTreeViewItem::setHidden(bool)
{
    return false;
}

bool BVTreeViewItem::isHidden() const
{
    return false;
}

QString BVTreeViewItem::text(int column) const
{
    return data(column, Qt::DisplayRole).toString();
}

void BVTreeViewItem::setText(int column, const QString &text)
{
    if (isPlain())
        write(column, Qt::DisplayRole, text); // without a copy of the value on the way
    else
        setData(column, Qt::DisplayRole, text);
}

void BVTreeViewItem::setIcon(int column, const QIcon &icon)
{
    setData(column, Qt::DecorationRole, icon);
}

QString BVTreeViewItem::toolTip(int column) const
{
    return data(column, Qt::ToolTipRole).toString();
}

void BVTreeViewItem::setToolTip(int column, const QString &toolTip)
{
    setData(column, Qt::ToolTipRole, toolTip);
}

// Flags

void BVTreeViewItem::setFlags(Qt::ItemFlags flags)
{
    releaseFlags();
    changeFlags(flags);
}

/// Lets no running push-down set a flag of the past again.
void BVTreeViewItem::releaseFlags()
{
    for (PushDown *running = s_pushDowns; running; running = running->outer) {
        if (running->item == this)
            running->holdsFlag = false;
    }
}

void BVTreeViewItem::changeFlags(Qt::ItemFlags flags)
{
    if (flags == m_flags)
        return;
    if ((flags ^ m_flags) & Qt::ItemIsAutoTristate)
        BVCheckCounters::forget(m_parent);
    m_flags = flags;
    if (m_model)
        m_model->notify(this, BVTreeViewModel::s_allColumns, {});
}

void BVTreeViewItem::setEnabledFlag(bool enabled)
{
    Qt::ItemFlags flags = m_flags;
    changeFlags(flags.setFlag(Qt::ItemIsEnabled, enabled));
}

void BVTreeViewItem::setDisabled(bool disabled)
{
    const BVModelWatch watch(m_model, this);
    setEnabledFlag(!disabled);
    if (watch.isItemAlive())
        m_model->propagateEnabledBelow(this);
}

bool BVTreeViewItem::inTree(const BVTreeViewItem *root) const
{
    for (const BVTreeViewItem *item = this; item; item = item->m_parent) {
        if (item == root)
            return true;
    }
    return root && m_model && root == m_model->m_rootItem.get() && !isHeader();
}

// Places

/// The item in whose list this one stands; the invisible root for a top-level item.
BVTreeViewItem *BVTreeViewItem::holder() const
{
    if (m_parent || !m_model)
        return m_parent;
    BVTreeViewItem *root = m_model->m_rootItem.get();
    return this == root || isHeader() ? nullptr : root;
}

BVTreeViewItem *BVTreeViewItem::child(int row) const
{
    return row >= 0 && row < m_childCount ? m_branch->children.at(row) : nullptr;
}

const QVector<BVTreeViewItem *> &BVTreeViewItem::children() const
{
    static const QVector<BVTreeViewItem *> s_none;
    return m_branch ? m_branch->children : s_none;
}

BVTreeViewItem::Branch &BVTreeViewItem::branch()
{
    if (!m_branch)
        m_branch = std::make_unique<Branch>();
    return *m_branch;
}

int BVTreeViewItem::row() const
{
    const BVTreeViewItem *parent = holder();
    return parent ? parent->rowOf(this) : -1;
}

int BVTreeViewItem::indexOfChild(const BVTreeViewItem *child) const
{
    return child && child->holder() == this ? rowOf(child) : -1;
}

/// The row of an item that is known to be a child.
int BVTreeViewItem::rowOf(const BVTreeViewItem *child) const
{
    return m_branch->rowDoubt == 0 ? child->m_row : findRow(child);
}

/// Once rows were inserted or taken in front, the hint is mostly off by a few rows. Where many rows
/// are asked for, all hints are made anew, at a cost that does not weigh much among so many.
int BVTreeViewItem::findRow(const BVTreeViewItem *child) const
{
    const bool isAskedOften = ++m_branch->rowDoubt > m_childCount / s_nearRows;
    for (int distance = 0; distance <= s_nearRows && !isAskedOften; ++distance) {
        for (const int row : {child->m_row - distance, child->m_row + distance}) {
            if (row >= 0 && row < m_childCount && m_branch->children.at(row) == child) {
                child->m_row = row;
                return row;
            }
        }
    }
    numberChildren(0);
    return child->m_row;
}

void BVTreeViewItem::doubtRows()
{
    m_branch->rowDoubt = qMax(m_branch->rowDoubt, 1);
}

/// The rows in front of @p from are known to be right if all were.
void BVTreeViewItem::numberChildren(int from) const
{
    for (int row = from; row < m_childCount; ++row)
        m_branch->children.at(row)->m_row = row;
    if (from == 0)
        m_branch->rowDoubt = 0;
}

void BVTreeViewItem::appendChild(BVTreeViewItem *child)
{
    if (!m_model || m_model->flushFor(this))
        insert(m_childCount, BVItemSpan(&child));
}

void BVTreeViewItem::appendChildren(const QVector<BVTreeViewItem *> &children)
{
    if (!m_model || m_model->flushFor(this))
        insertChildren(m_childCount, children);
}

void BVTreeViewItem::insertChild(int row, BVTreeViewItem *child)
{
    insert(row, BVItemSpan(&child));
}

void BVTreeViewItem::insertChildren(int row, const QVector<BVTreeViewItem *> &children)
{
    const QVector<BVTreeViewItem *> kept = children; // whatever slots do
    insert(row, kept);
}

void BVTreeViewItem::insert(int row, const BVItemSpan &items)
{
    const auto isPossible = [&] { return row >= 0 && row <= m_childCount && !isHeader(); };
    if (!isPossible() || (m_model && (!m_model->flushFor(this) || !isPossible())))
        return;
    if (items.size() != 1)
        insertFree(row, insertable(items));
    else if (isInsertable(items[0]))
        insertFree(row, items);
}

void BVTreeViewItem::insertFree(int row, const BVItemSpan &items)
{
    if (items.size() == 0)
        return;
    if (m_model)
        BVTreeStructure(m_model).insert(this, row, items);
    else
        adopt(row, items);
}

bool BVTreeViewItem::isInsertable(const BVTreeViewItem *item) const
{
    return item && item != this && !item->m_model && !item->m_parent &&
           (item->m_childCount == 0 || !inTree(item));
}

QVector<BVTreeViewItem *> BVTreeViewItem::insertable(const BVItemSpan &items) const
{
    // Free items have no row of their own: the hint can tell where in the list each stands first.
    for (int i = items.size() - 1; i >= 0; --i) {
        if (items[i] && !items[i]->m_model && !items[i]->m_parent)
            items[i]->m_row = i;
    }
    QVector<BVTreeViewItem *> result;
    result.reserve(items.size());
    for (int i = 0; i < items.size(); ++i) {
        if (isInsertable(items[i]) && items[i]->m_row == i)
            result.append(items[i]);
    }
    return result;
}

/// Takes free items into the list, without a word to anyone.
void BVTreeViewItem::adopt(int row, const BVItemSpan &items)
{
    if (s_pushDowns)
        BVCheckCounters::forget(this); // it may hold states from before
    else
        BVCheckCounters::join(this, items);
    BVTreeViewItem *parent = isRoot() ? nullptr : this;
    const bool isLast = row == m_childCount;
    QVector<BVTreeViewItem *> &children = branch().children;
    if (items.size() == 1) {
        children.insert(row, items[0]);
    } else {
        children.insert(row, items.size(), nullptr);
        std::copy(items.begin(), items.end(), children.begin() + row);
    }
    m_childCount = children.size();
    for (int i = 0; i < items.size(); ++i) {
        items[i]->m_parent = parent;
        items[i]->m_row = row + i;
    }
    if (!isLast && items.size() > s_nearRows)
        numberChildren(row + items.size());
    else if (!isLast)
        doubtRows();
}

void BVTreeViewItem::removeChild(BVTreeViewItem *child)
{
    takeChild(indexOfChild(child));
}

BVTreeViewItem *BVTreeViewItem::takeChild(int row)
{
    if (row < 0 || row >= m_childCount)
        return nullptr;
    if (m_model)
        return BVTreeStructure(m_model).take(this, row);
    return release(row, 1).front();
}

QVector<BVTreeViewItem *> BVTreeViewItem::takeChildren()
{
    if (m_model)
        return BVTreeStructure(m_model).takeAll(this);
    return release(0, m_childCount);
}

void BVTreeViewItem::removeChildren()
{
    const QVector<BVTreeViewItem *> children = takeChildren();
    qDeleteAll(children);
}

/// Gives items out of the list, without a word to anyone.
QVector<BVTreeViewItem *> BVTreeViewItem::release(int row, int count)
{
    const QVector<BVTreeViewItem *> items = children().mid(row, count);
    if (s_pushDowns)
        BVCheckCounters::forget(this);
    else
        BVCheckCounters::leave(this, items);
    if (count > 0)
        m_branch->children.remove(row, count);
    m_childCount -= count;
    for (BVTreeViewItem *item : items)
        item->m_parent = nullptr;
    if (count > s_nearRows)
        numberChildren(row);
    else if (row < m_childCount)
        doubtRows();
    return items;
}

void BVTreeViewItem::sortChildren(int column, Qt::SortOrder order)
{
    if (m_model)
        BVTreeSort(m_model).sort(this, column, order);
}
