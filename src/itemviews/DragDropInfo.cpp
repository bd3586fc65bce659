// SPDX-License-Identifier: MIT
#include "itemviews/DragDropInfo.h"

#include "itemviews/BVDropRules_p.h"

int DragDropInfo::dropRow() const
{
    return BVDropRules::dropRow(dropIndex, position);
}

QModelIndex DragDropInfo::dropParent() const
{
    return BVDropRules::dropParent(dropIndex, position);
}
