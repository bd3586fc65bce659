// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/DragDropInfo.h"

#include <QPixmap>

#include <functional>

class BVDragAndDropManager;
class QMimeData;

/// What is dragged out of a manager's view, by mouse or keys. Only one drag runs at a time.
class BVDragSource
{
public:
    explicit BVDragSource(BVDragAndDropManager *manager);

    /// The source of the running drag; null if there is none, or if it has died.
    static BVDragSource *running();
    /// What it drags, without a target.
    static DragDropInfo runningInfo();

    const BVDragAndDropManager *manager() const { return m_manager; }
    QTreeView *view() const;
    /// Those of the running drag, as far as they still exist.
    QModelIndexList draggedIndexes() const;
    void clearDraggedIndexes() { m_draggedIndexes.clear(); }
    QPixmap pixmap() const { return m_pixmap; }

    /// Lets the owner fill the mime data. False if that has been the end of view or manager.
    bool prepare(const QModelIndexList &rows, QMimeData *mime);
    /// Calls what drags the prepared rows to their place, which may be the end of the manager.
    void run(const std::function<void()> &drag);
    /// Both for a drag with the mouse.
    void runWithMouse(const QModelIndexList &rows);

private:
    static QPointer<BVDragAndDropManager> s_running;

    BVDragAndDropManager *m_manager; // owns this
    QList<QPersistentModelIndex> m_draggedIndexes;
    QPixmap m_pixmap;
};
