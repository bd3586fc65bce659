// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/DragDropInfo.h"

#include <QTimer>

/// The place in a view that a drag is over, which is the viewport once its row has been removed.
/// Changes repaint what shows it; a branch opens under a drag that rests, after the view's
/// QTreeView::autoExpandDelay().
class BVDropTarget
{
public:
    explicit BVDropTarget(QTreeView *view);
    ~BVDropTarget();

    QModelIndex index() const { return m_dropIndex; }
    DropIndicatorPosition position() const;
    /// Whether the row has been removed, so that the drag is over another one.
    bool isLost() const;
    /// The proposed action; Qt::IgnoreAction while there is no target, not even the viewport.
    Qt::DropAction action() const { return m_action; }
    void setAction(Qt::DropAction action) { m_action = action; }
    /// Whether the drag has gone on from here to a place that is refused.
    bool isRefused() const { return m_isRefused; }
    void setRefused(bool refused);
    /// Writes the target into @p info.
    void describe(DragDropInfo *info) const;

    /// False if nothing has changed. All of the viewport is painted anew for marks that go beyond
    /// the target.
    bool set(const QModelIndex &index, const QRect &rect, DropIndicatorPosition position,
             Qt::DropAction action, bool hasWideMarks);
    void reset();

private:
    QRect marksRect() const;
    void updateExpanding();
    void expand();

    QPointer<QTreeView> m_view;
    QPersistentModelIndex m_dropIndex;
    QRect m_dropRect; // in the viewport
    DropIndicatorPosition m_position = DropIndicatorPosition::OnViewport;
    Qt::DropAction m_action = Qt::IgnoreAction;
    bool m_isRefused = false;
    QTimer m_expandTimer;
};
