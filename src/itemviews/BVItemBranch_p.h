// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/BVCheckCounters_p.h"
#include "itemviews/BVTreeViewItem.h"

#include <QVector>

#include <memory>

/// What only items need that have, or had, children.
struct BVTreeViewItem::Branch
{
    QVector<BVTreeViewItem *> children; // owned
    int rowDoubt = 0; // 0 while what the children hold as their rows is right; grows when asked
    std::unique_ptr<BVCheckCounters> checkCounters; // made when first needed
};
