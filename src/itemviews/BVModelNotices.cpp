// SPDX-License-Identifier: MIT
// How BVTreeViewModel.h's model tells of changes, in each of its modes.
#include "itemviews/BVChangeFlush_p.h"
#include "itemviews/BVModelWatch_p.h"
#include "itemviews/BVPendingChanges_p.h"
#include "itemviews/BVTreeViewModel.h"

#include <QMetaMethod>
#include <QTimer>

#include <algorithm>
#include <typeinfo>

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
