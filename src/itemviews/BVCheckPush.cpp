// SPDX-License-Identifier: MIT
#include "itemviews/BVCheckPush_p.h"

#include "itemviews/BVItemValues_p.h"
#include "itemviews/BVTreeViewModel.h"

void BVTreeViewItem::PushDown::write(BVTreeViewItem *child)
{
    if (writeStored(child) || !child->hasCheckState(column))
        return;
    dropFlag();
    child->setData(column, Qt::CheckStateRole, value);
    restoreFlag();
}

bool BVTreeViewItem::PushDown::writeStored(BVTreeViewItem *child)
{
    if (!child->isPlain() || (child->m_flags & Qt::ItemIsAutoTristate) || child->isPushingDown())
        return false;
    const BVCheckCounters::Stored stored(*child, column);
    auto *state = const_cast<QVariant *>(stored.state);
    if (!state || !state->isValid())
        return true;
    const BVCheckCounters::State before(*state);
    if (before.isInt && after.isInt ? before.number == after.number
                                    : BVItemValues::isSame(Qt::CheckStateRole, *state, value))
        return true;
    BVCheckCounters::recount(child->m_parent, column, stored.counts, before.kind, after.kind);
    *state = value;
    if (child->m_model)
        announce(child);
    return true;
}

void BVTreeViewItem::PushDown::announce(BVTreeViewItem *child)
{
    if (child->m_model->callsNobody()) { // who could see this item's flag
        child->m_model->notify(child, column, checkStateRoles());
        return;
    }
    dropFlag();
    child->announce(column, Qt::CheckStateRole);
    restoreFlag();
}
