// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/BVCheckCounters_p.h"
#include "itemviews/BVTreeViewItem.h"

#include <QVariant>

/// A check state on its way to the children. The item does not follow them while one is written;
/// whatever that calls may delete the item or give it other flags.
struct BVTreeViewItem::PushDown
{
    PushDown(BVTreeViewItem *pushing, int toColumn, const QVariant &toWrite)
        : item(pushing)
        , outer(s_pushDowns)
        , column(toColumn)
        , value(toWrite)
        , after(toWrite)
    {
        s_pushDowns = this;
    }
    ~PushDown()
    {
        restoreFlag(); // where a write has thrown
        s_pushDowns = outer;
    }
    PushDown(const PushDown &) = delete;
    PushDown &operator=(const PushDown &) = delete;

    void write(BVTreeViewItem *child);
    /// The short way where a write can do no more than to store the state. False if it may.
    bool writeStored(BVTreeViewItem *child);
    void announce(BVTreeViewItem *child);
    // Either gives the item another state, in all columns.
    void dropFlag()
    {
        holdsFlag = item->m_flags & Qt::ItemIsAutoTristate;
        item->m_flags &= ~Qt::ItemIsAutoTristate;
        BVCheckCounters::forget(item->m_parent);
    }
    void restoreFlag()
    {
        if (item && holdsFlag) {
            item->m_flags |= Qt::ItemIsAutoTristate;
            BVCheckCounters::forget(item->m_parent);
        }
        holdsFlag = false;
    }

    BVTreeViewItem *item; // null when it is gone
    PushDown *outer;
    const int column;
    const QVariant value;
    const BVCheckCounters::State after;
    bool holdsFlag = false; // the item's ItemIsAutoTristate is to be set again
};
