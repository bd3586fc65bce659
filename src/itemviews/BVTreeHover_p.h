// SPDX-License-Identifier: MIT
#pragma once

#include <QPersistentModelIndex>

class QEvent;
class QTreeView;

/// Keeps what is under the mouse, a cell or the first cell of a row, and tells when it changes.
class BVTreeHover
{
public:
    enum class Unit { Cell, Row };

    explicit BVTreeHover(QTreeView *view, Unit unit = Unit::Cell);
    virtual ~BVTreeHover();

    QModelIndex index() const { return m_hoverIndex; }
    void setIndex(const QModelIndex &index);
    /// To be called with each event of the viewport.
    void handle(QEvent *event);
    /// Lets the viewport believe that the mouse has left it.
    void leave();
    /// Paints the cell or row anew, as far as it looks different under the mouse.
    void repaint(const QModelIndex &index) const;

protected:
    // The view, and this with it, may be deleted by what they lead to.
    virtual void onEnter(const QModelIndex &index) = 0;
    virtual void onLeave(const QModelIndex &index) = 0;
    virtual void onMouseLeft() = 0;

private:
    QTreeView *m_view;
    Unit m_unit;
    QPersistentModelIndex m_hoverIndex;
};
