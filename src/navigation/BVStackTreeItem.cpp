// SPDX-License-Identifier: MIT
#include "navigation/BVStackTreeItem_p.h"

#include "navigation/BVControlledStackItem.h"
#include "navigation/BVStackEntries_p.h"

#include "foundation/BlockSignals.h"

#include <QTreeWidget>

#include <utility>

namespace {

constexpr int s_type = QTreeWidgetItem::UserType + BVControlledStackItem::ControlledStackItemRole;

} // namespace

bool BVStackTreeItem::s_byUserOrder = false;

BVStackTreeItem::BVStackTreeItem(BVControlledStackItem *item)
    : QTreeWidgetItem(s_type)
    , m_item(item)
{
    if (!item) {
        setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        return;
    }
    setFlags(flags() & ~Qt::ItemIsUserCheckable);
    setData(0, BVControlledStackItem::ControlledStackItemRole, QVariant::fromValue(item));
}

BVStackTreeItem::~BVStackTreeItem()
{
    if (m_item)
        BVStackEntries::rowDeleted(m_item);
}

BVControlledStackItem *BVStackTreeItem::entryOf(const QTreeWidgetItem *row)
{
    return row && row->type() == s_type ? static_cast<const BVStackTreeItem *>(row)->m_item
                                        : nullptr;
}

BVControlledStackItem *BVStackTreeItem::entryAtOrAbove(const QTreeWidgetItem *row)
{
    while (row && !entryOf(row))
        row = row->parent();
    return entryOf(row);
}

bool BVStackTreeItem::hasEntryBelow(const QTreeWidgetItem *row)
{
    for (int i = 0; i < row->childCount(); ++i)
        if (entryOf(row->child(i)))
            return true;
    return false;
}

int BVStackTreeItem::entryCount(const QTreeWidgetItem *row)
{
    int count = row->childCount();
    while (count > 0 && !entryOf(row->child(count - 1)))
        --count;
    return count;
}

void BVStackTreeItem::detach()
{
    // The tree itself may be at its end, beyond hearing its model.
    const BlockSignals blocker{treeWidget() ? treeWidget()->model() : nullptr};
    m_item = nullptr;
    setData(0, BVControlledStackItem::ControlledStackItemRole, QVariant());
}

QTreeWidgetItem *BVStackTreeItem::clone() const
{
    auto *copy = new QTreeWidgetItem(*this);
    copy->setData(0, BVControlledStackItem::ControlledStackItemRole, QVariant());
    for (int i = 0; i < childCount(); ++i)
        copy->addChild(child(i)->clone());
    return copy;
}

QVariant BVStackTreeItem::data(int column, int role) const
{
    if (role != Qt::CheckStateRole || column != 0)
        return QTreeWidgetItem::data(column, role);
    if (!(flags() & Qt::ItemIsUserCheckable))
        return QVariant();
    const QVariant derived = flags() & Qt::ItemIsAutoTristate ? derivedCheckState() : QVariant();
    return derived.isValid() ? derived : m_checkState;
}

void BVStackTreeItem::setData(int column, int role, const QVariant &value)
{
    if (role != Qt::CheckStateRole || column != 0) {
        QTreeWidgetItem::setData(column, role, value);
        return;
    }
    const QVariant before = data(column, role);
    const bool isKnown = std::exchange(m_writtenCheckState, value) == value;
    m_checkState = static_cast<Qt::CheckState>(qBound(0, value.toInt(), 2));
    const bool wasOnItsWay = std::exchange(m_isCheckStateOnItsWay, true);
    QTreeWidgetItem::setData(column, role, value);
    m_isCheckStateOnItsWay = wasOnItsWay;
    if (isKnown && data(column, role) != before) // of which the toolkit says nothing
        tellOfCheckState();
}

void BVStackTreeItem::tellOfCheckState()
{
    emitDataChanged();
    QTreeWidgetItem *above = parent();
    if (above && above->type() == s_type && above->flags() & Qt::ItemIsAutoTristate)
        static_cast<BVStackTreeItem *>(above)->tellOfCheckState();
}

bool BVStackTreeItem::isCheckStateDerived() const
{
    constexpr Qt::ItemFlags needed = Qt::ItemIsUserCheckable | Qt::ItemIsAutoTristate;
    return (flags() & needed) == needed && derivedCheckState().isValid();
}

void BVStackTreeItem::keepCheckState()
{
    const QVariant state = data(0, Qt::CheckStateRole);
    if (state.isValid())
        m_checkState = static_cast<Qt::CheckState>(state.toInt());
}

/// Invalid if no row below has a check box.
QVariant BVStackTreeItem::derivedCheckState() const
{
    QVariant result;
    for (int i = 0; i < childCount(); ++i) {
        const QVariant state = child(i)->data(0, Qt::CheckStateRole);
        if (!state.isValid())
            continue;
        if (result.isValid() && result.toInt() != state.toInt())
            return Qt::PartiallyChecked;
        result = state.toInt();
        if (result.toInt() == Qt::PartiallyChecked)
            break;
    }
    return result;
}

/// Those without an order stand behind those with one, and plain rows behind both.
int BVStackTreeItem::rank(const BVControlledStackItem *entry)
{
    if (!entry)
        return 2;
    return entry->hasUserOrder() ? 0 : 1;
}

bool BVStackTreeItem::operator<(const QTreeWidgetItem &other) const
{
    if (!s_byUserOrder)
        return QTreeWidgetItem::operator<(other);
    const BVControlledStackItem *otherItem = entryOf(&other);
    const int order = rank(m_item);
    const int otherOrder = rank(otherItem);
    if (order != otherOrder || order != 0)
        return order < otherOrder;
    return m_item->getUserOrder() < otherItem->getUserOrder();
}
