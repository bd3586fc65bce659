// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/BVDropRules_p.h"

class BVDragAndDropManager;
class QKeyEvent;
class QMimeData;

/// Moves rows with Alt and the arrow keys as a drag would.
class BVDragKeys
{
public:
    explicit BVDragKeys(BVDragAndDropManager *manager);

    /// Handles a key press or the question whether it is one of ours; false if it is not.
    bool handle(QKeyEvent *event);

private:
    void move(const QModelIndexList &rows, int key);
    BVDropRules::Target targetInSecondView(int key) const;
    static bool canDrop(const BVDragAndDropManager *manager, const BVDropRules::Target &target);
    static bool enter(BVDragAndDropManager *manager, const BVDropRules::Target &target,
                      const QMimeData *mime);
    static bool drop(BVDragAndDropManager *manager, const BVDropRules::Target &target,
                     const QMimeData *mime);

    BVDragAndDropManager *m_manager;
};
