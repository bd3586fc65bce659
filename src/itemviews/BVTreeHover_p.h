// SPDX-License-Identifier: MIT
#pragma once

#include <QPersistentModelIndex>

class BVTreeView;
class QEvent;

/// Keeps the cell under the mouse and tells when it changes.
class BVTreeHover
{
public:
    explicit BVTreeHover(BVTreeView *view);

    QModelIndex index() const { return m_hoverIndex; }
    void setIndex(const QModelIndex &index);
    /// To be called with each event of the viewport.
    void handle(QEvent *event);
    /// Lets the viewport believe that the mouse has left it.
    void leave();

private:
    void repaint(const QModelIndex &index) const;

    BVTreeView *m_view;
    QPersistentModelIndex m_hoverIndex;
};
