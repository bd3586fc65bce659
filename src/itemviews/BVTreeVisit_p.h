// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/BVItemSpan_p.h"
#include "itemviews/BVTreeViewItem.h"

#include <algorithm>
#include <vector>

/// Calls @p visit for the items and all below them, each parent in front of its children.
template <typename Visit>
void visitTree(const BVItemSpan &items, Visit visit)
{
    // The rows of a table, which most are, need no list of what is still to be visited.
    std::vector<BVTreeViewItem *> stack;
    for (BVTreeViewItem *top : items) {
        visit(top);
        if (top->childCount() == 0)
            continue;
        stack.assign(top->children().crbegin(), top->children().crend());
        while (!stack.empty()) {
            BVTreeViewItem *item = stack.back();
            stack.pop_back();
            visit(item);
            stack.insert(stack.end(), item->children().crbegin(), item->children().crend());
        }
    }
}

/// Whether no child of the item has children.
inline bool isFlat(const BVTreeViewItem &parent)
{
    return std::none_of(parent.children().cbegin(), parent.children().cend(),
                        [](const BVTreeViewItem *child) { return child->childCount() > 0; });
}
