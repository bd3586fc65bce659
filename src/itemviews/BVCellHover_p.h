// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/BVTreeHover_p.h"
#include "itemviews/BVTreeView.h"

/// Has a tree view tell of the cell under the mouse.
class BVCellHover : public BVTreeHover
{
public:
    explicit BVCellHover(BVTreeView *view)
        : BVTreeHover(view)
        , m_view(view)
    {
    }

protected:
    void onEnter(const QModelIndex &index) override
    {
        Q_EMIT m_view->sigItemHoverEnter(index, index.column());
    }
    void onLeave(const QModelIndex &index) override
    {
        Q_EMIT m_view->sigItemHoverLeave(index, index.column());
    }
    void onMouseLeft() override { Q_EMIT m_view->sigLeaveEvent(); }

private:
    BVTreeView *m_view;
};
