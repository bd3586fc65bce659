// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeViewItem.h"

#include "itemviews/BVBlockPool_p.h"
#include "itemviews/BVCheckCounters_p.h"
#include "itemviews/BVCheckPush_p.h"
#include "itemviews/BVItemBranch_p.h"
#include "itemviews/BVItemValues_p.h"
#include "itemviews/BVModelWatch_p.h"
#include "itemviews/BVTreeStructure_p.h"
#include "itemviews/BVTreeViewModel.h"

#include <QIcon>

#include <algorithm>
#include <utility>

namespace {

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

void *BVTreeViewItem::operator new(size_t size, std::align_val_t alignment)
{
    return ::operator new(size, alignment);
}

void BVTreeViewItem::operator delete(void *item, std::align_val_t alignment)
{
    ::operator delete(item, alignment);
}

void *BVTreeViewItem::operator new(size_t size, const std::nothrow_t &) noexcept
try {
    return operator new(size);
} catch (const std::bad_alloc &) {
    return nullptr;
}

void *BVTreeViewItem::operator new(size_t size, std::align_val_t alignment,
                                   const std::nothrow_t &) noexcept
{
    return ::operator new(size, alignment, std::nothrow);
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

/// False if the model, and this with it, has not outlived the notification, or has fewer columns.
bool BVTreeViewItem::setModelColumns(int count)
{
    const BVModelWatch watch(m_model, this);
    m_model->setColumnCount(count);
    return watch.isModelAlive() && m_columnCount >= count;
}

/// False if nothing has changed or the item is gone.
bool BVTreeViewItem::change(int column, int role, QVariant &&value)
{
    if (role != Qt::CheckStateRole && role != BVTreeViewModel::CountsForParentCheckRole)
        return store(column, storedRole(role), std::move(value));
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
    if (!m_values || m_values->isFull()) {
        BVItemValues *larger = BVItemValues::enlarge(m_values.get());
        m_values.release(); // it is destroyed
        m_values.reset(larger);
    }
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

const QVector<int> &BVTreeViewItem::checkStateRoles()
{
    static const QVector<int> s_roles{Qt::CheckStateRole};
    return s_roles;
}

/// Each step may run slots that change the tree.
void BVTreeViewItem::notifyCheckState(int column)
{
    BVTreeViewItem *item = this;
    const quint64 shifts = m_model->m_columnShifts;
    while (item->m_model->notify(item, item->m_model->columnSince(shifts, column),
                                 checkStateRoles())) {
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
    auto *stored = const_cast<QVariant *>(find(column, Qt::DisplayRole));
    if (!isPlain())
        setData(column, Qt::DisplayRole, text);
    else if (!stored || stored->userType() != QMetaType::QString)
        write(column, Qt::DisplayRole, text);
    else
        replaceText(static_cast<QString *>(stored->data()), column, text);
}

/// As write(), which most texts do not need.
void BVTreeViewItem::replaceText(QString *stored, int column, const QString &text)
{
    if (*stored == text)
        return;
    *stored = text;
    if (m_model)
        announce(column, Qt::DisplayRole);
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
