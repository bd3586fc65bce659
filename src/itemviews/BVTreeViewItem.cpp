// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeViewItem.h"

#include "itemviews/BVCheckCounters_p.h"
#include "itemviews/BVModelWatch_p.h"
#include "itemviews/BVTreeSort_p.h"
#include "itemviews/BVTreeStructure_p.h"
#include "itemviews/BVTreeViewModel.h"

#include <QIcon>

#include <algorithm>

namespace {

constexpr int s_nearRows = 16;      // rows around the hint that are worth a look
constexpr size_t s_firstValues = 3; // room made for the first value

bool isIntegral(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return QMetaType::typeFlags(value.userType()) & QMetaType::IsEnumeration;
    }
}

/// Whether two values of a role are the same. Texts and integers, which most are, need no
/// conversion; check states may be numbers of any kind.
bool isSame(int role, const QVariant &a, const QVariant &b)
{
    if (a.userType() != b.userType())
        return role == Qt::CheckStateRole && isIntegral(a) && isIntegral(b) &&
               a.toLongLong() == b.toLongLong();
    switch (a.userType()) {
    case QMetaType::Int:
        return *static_cast<const int *>(a.constData()) == *static_cast<const int *>(b.constData());
    case QMetaType::QString:
        return *static_cast<const QString *>(a.constData()) ==
               *static_cast<const QString *>(b.constData());
    default:
        return a == b;
    }
}

} // namespace

/// A check state on its way to the children. The item does not follow them while one is written;
/// whatever that calls may delete the item or give it other flags.
struct BVTreeViewItem::PushDown
{
    explicit PushDown(BVTreeViewItem *pushing)
        : item(pushing)
        , outer(s_pushDowns)
    {
        s_pushDowns = this;
    }
    ~PushDown() { s_pushDowns = outer; }
    PushDown(const PushDown &) = delete;
    PushDown &operator=(const PushDown &) = delete;

    void write(BVTreeViewItem *child, int column, const QVariant &value)
    {
        holdsFlag = item->m_flags & Qt::ItemIsAutoTristate;
        item->m_flags &= ~Qt::ItemIsAutoTristate;
        child->setData(column, Qt::CheckStateRole, value);
        if (item && holdsFlag)
            item->m_flags |= Qt::ItemIsAutoTristate;
        holdsFlag = false;
    }

    BVTreeViewItem *item; // null when it is gone
    PushDown *outer;
    bool holdsFlag = false; // the item's ItemIsAutoTristate is to be set again
};

qint64 BVTreeViewItem::s_nextId = 1;
BVTreeViewItem::PushDown *BVTreeViewItem::s_pushDowns = nullptr;

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
    size_t count = 0;
    for (const QVector<ItemData> &column : values)
        count += size_t(column.size());
    m_values.reserve(count);
    for (int column = 0; column < m_columnCount; ++column) {
        for (const ItemData &data : values[column]) {
            if (!find(column, storedRole(data.role)))
                m_values.push_back({column, storedRole(data.role), data.value});
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
    , m_values(other.m_values)
    , m_columnCount(other.m_columnCount)
{
}

BVTreeViewItem &BVTreeViewItem::operator=(const BVTreeViewItem &other)
{
    if (this == &other)
        return *this;
    std::vector<Value> values = other.m_values;
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
    if (m_children.isEmpty())
        return;
    std::vector<BVTreeViewItem *> doomed;
    const bool isOutermost = !s_doomed;
    if (isOutermost)
        s_doomed = &doomed;
    for (auto child = m_children.crbegin(); child != m_children.crend(); ++child) {
        (*child)->m_parent = nullptr;
        (*child)->m_model = nullptr;
        s_doomed->push_back(*child);
    }
    m_children.clear();
    while (isOutermost && !doomed.empty()) {
        const BVTreeViewItem *item = doomed.back();
        doomed.pop_back();
        delete item;
    }
    if (isOutermost)
        s_doomed = nullptr;
}

// Values

std::vector<BVTreeViewItem::Value>::const_iterator BVTreeViewItem::columnBegin(int column) const
{
    return std::lower_bound(m_values.begin(), m_values.end(), column,
                            [](const Value &v, int c) { return v.column < c; });
}

const QVariant *BVTreeViewItem::find(int column, int role) const
{
    for (auto value = columnBegin(column); value != m_values.end() && value->column == column;
         ++value) {
        if (value->role == role)
            return &value->value;
    }
    return nullptr;
}

QVariant BVTreeViewItem::data(int column, int role) const
{
    if (role == Qt::CheckStateRole && derivesCheckState())
        return BVCheckCounters::derivedState(*this, column);
    const QVariant *value = find(column, storedRole(role));
    return value ? *value : QVariant();
}

bool BVTreeViewItem::derivesCheckState() const
{
    return (m_flags & Qt::ItemIsAutoTristate) && !m_children.isEmpty();
}

void BVTreeViewItem::setData(int column, int role, const QVariant &value)
{
    if (column < 0 || column >= s_maximumColumns)
        return;
    if (column >= m_columnCount && isHeader() && !setModelColumns(column + 1))
        return;
    if (change(column, role, value) && m_model)
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
bool BVTreeViewItem::change(int column, int role, const QVariant &value)
{
    if (isPushingDown())
        BVCheckCounters::forget(m_parent); // they know the state from before
    BVCheckCounters::Change change(this, column);
    bool hasPushed = false;
    if (role == Qt::CheckStateRole && (m_flags & Qt::ItemIsAutoTristate) &&
        !isSame(role, value, int(Qt::PartiallyChecked))) {
        const QVariant before = data(column, role);
        if (!pushDownCheckState(column, value)) {
            change.abandon();
            return false;
        }
        hasPushed = before != data(column, role);
    }
    return store(column, storedRole(role), value) || hasPushed;
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
bool BVTreeViewItem::store(int column, int role, const QVariant &value)
{
    m_columnCount = qMax(m_columnCount, column + 1);
    auto position = columnBegin(column);
    for (; position != m_values.end() && position->column == column; ++position) {
        if (position->role != role)
            continue;
        QVariant &stored = m_values[size_t(position - m_values.begin())].value;
        if (isSame(role, stored, value))
            return false;
        stored = value;
        return true;
    }
    insertValue(position, {column, role, value});
    return true;
}

/// Most items keep the few values that they get when they are made.
void BVTreeViewItem::insertValue(std::vector<Value>::const_iterator position, Value value)
{
    const auto index = position - m_values.cbegin();
    if (m_values.size() == m_values.capacity())
        m_values.reserve(qMax(s_firstValues, m_values.size() + m_values.size() / 2));
    m_values.insert(m_values.begin() + index, std::move(value));
}

/// Makes room for @p count columns in front of @p column.
void BVTreeViewItem::shiftColumns(int column, int count)
{
    m_checkCounters.reset();
    if (column >= m_columnCount)
        return;
    for (Value &value : m_values) {
        if (value.column >= column)
            value.column += count;
    }
    m_columnCount += count;
}

/// Drops all columns from @p count on.
void BVTreeViewItem::cutColumns(int count)
{
    m_values.erase(m_values.begin() + (columnBegin(count) - m_values.cbegin()), m_values.end());
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
    PushDown running(this);
    if (model)
        model->activateBulkItemChanged(true);
    // By index: a slot may insert, take or delete rows, this one included.
    for (int i = 0; running.item && i < m_children.size(); ++i) {
        if (m_children[i]->data(column, Qt::CheckStateRole).isValid())
            running.write(m_children[i], column, value);
    }
    if (watch.isModelAlive())
        model->activateBulkItemChanged(false);
    return running.item != nullptr;
}

void BVTreeViewItem::notify(int column, int role)
{
    static const QVector<int> s_textRoles{Qt::DisplayRole, Qt::EditRole};
    static const QVector<int> s_checkRoles{Qt::CheckStateRole};
    if (!m_model)
        return;
    if (storedRole(role) == Qt::DisplayRole) {
        m_model->notify(this, column, s_textRoles);
        return;
    }
    if (role != Qt::CheckStateRole) {
        m_model->notify(this, column, {role});
        return;
    }
    // Each step may run slots that change the tree.
    BVTreeViewItem *item = this;
    bool goesOn = true;
    while (goesOn) {
        const BVModelWatch watch(item->m_model, item);
        item->m_model->notify(item, column, s_checkRoles);
        if (!watch.isItemAlive())
            return;
        item = item->m_parent;
        goesOn = item && (item->m_flags & Qt::ItemIsAutoTristate);
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
    return m_children.value(row);
}

int BVTreeViewItem::row() const
{
    const BVTreeViewItem *parent = holder();
    return parent ? parent->indexOfChild(this) : -1;
}

/// The hint is right unless rows were inserted or taken in front; then it is off by a few rows, or
/// all hints are made anew.
int BVTreeViewItem::indexOfChild(const BVTreeViewItem *child) const
{
    if (!child || child->holder() != this)
        return -1;
    const int count = m_children.size();
    const int hint = child->m_row;
    for (int distance = 0; distance <= s_nearRows; ++distance) {
        for (const int row : {hint - distance, hint + distance}) {
            if (row >= 0 && row < count && m_children[row] == child) {
                child->m_row = row;
                return row;
            }
        }
    }
    numberChildren(0);
    return child->m_row;
}

void BVTreeViewItem::numberChildren(int from) const
{
    for (int row = from; row < m_children.size(); ++row)
        m_children[row]->m_row = row;
}

void BVTreeViewItem::appendChild(BVTreeViewItem *child)
{
    appendChildren({child});
}

void BVTreeViewItem::appendChildren(const QVector<BVTreeViewItem *> &children)
{
    if (!m_model || m_model->flushFor(this))
        insertChildren(m_children.size(), children);
}

void BVTreeViewItem::insertChild(int row, BVTreeViewItem *child)
{
    insertChildren(row, {child});
}

void BVTreeViewItem::insertChildren(int row, const QVector<BVTreeViewItem *> &children)
{
    if (row < 0 || row > m_children.size() || isHeader())
        return;
    if (m_model)
        BVTreeStructure(m_model).insert(this, row, children);
    else
        adopt(row, insertable(children));
}

QVector<BVTreeViewItem *> BVTreeViewItem::insertable(const QVector<BVTreeViewItem *> &items) const
{
    const auto isFree = [this](const BVTreeViewItem *item) {
        return item && item != this && !item->m_model && !item->m_parent &&
               (item->m_children.isEmpty() || !inTree(item));
    };
    if (items.size() == 1)
        return isFree(items.front()) ? items : QVector<BVTreeViewItem *>();
    // Free items have no row of their own: the hint can tell where in the list each stands first.
    for (int i = items.size() - 1; i >= 0; --i) {
        if (items[i] && !items[i]->m_model && !items[i]->m_parent)
            items[i]->m_row = i;
    }
    QVector<BVTreeViewItem *> result;
    result.reserve(items.size());
    for (int i = 0; i < items.size(); ++i) {
        if (isFree(items[i]) && items[i]->m_row == i)
            result.append(items[i]);
    }
    return result;
}

/// Takes free items into the list, without a word to anyone.
void BVTreeViewItem::adopt(int row, const QVector<BVTreeViewItem *> &items)
{
    if (items.isEmpty())
        return;
    if (s_pushDowns)
        BVCheckCounters::forget(this); // it may hold states from before
    else
        BVCheckCounters::join(this, items);
    BVTreeViewItem *parent = isRoot() ? nullptr : this;
    const bool isLast = row == m_children.size();
    if (items.size() == 1) {
        m_children.insert(row, items.front());
    } else {
        m_children.insert(row, items.size(), nullptr);
        std::copy(items.begin(), items.end(), m_children.begin() + row);
    }
    for (int i = 0; i < items.size(); ++i) {
        items[i]->m_parent = parent;
        items[i]->m_row = row + i;
    }
    if (!isLast && items.size() > s_nearRows)
        numberChildren(row + items.size());
}

void BVTreeViewItem::removeChild(BVTreeViewItem *child)
{
    takeChild(indexOfChild(child));
}

BVTreeViewItem *BVTreeViewItem::takeChild(int row)
{
    if (row < 0 || row >= m_children.size())
        return nullptr;
    if (m_model)
        return BVTreeStructure(m_model).take(this, row);
    return release(row, 1).front();
}

QVector<BVTreeViewItem *> BVTreeViewItem::takeChildren()
{
    if (m_model)
        return BVTreeStructure(m_model).takeAll(this);
    return release(0, m_children.size());
}

void BVTreeViewItem::removeChildren()
{
    const QVector<BVTreeViewItem *> children = takeChildren();
    qDeleteAll(children);
}

/// Gives items out of the list, without a word to anyone.
QVector<BVTreeViewItem *> BVTreeViewItem::release(int row, int count)
{
    const QVector<BVTreeViewItem *> items = m_children.mid(row, count);
    if (s_pushDowns)
        BVCheckCounters::forget(this);
    else
        BVCheckCounters::leave(this, items);
    m_children.remove(row, count);
    for (BVTreeViewItem *item : items)
        item->m_parent = nullptr;
    if (count > s_nearRows)
        numberChildren(row);
    return items;
}

void BVTreeViewItem::sortChildren(int column, Qt::SortOrder order)
{
    if (m_model)
        BVTreeSort(m_model).sort(this, column, order);
}
