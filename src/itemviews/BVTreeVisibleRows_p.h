// SPDX-License-Identifier: MIT
#pragma once

#include <QPersistentModelIndex>
#include <QVector>

class BVTreeView;

/// Keeps changes of rows that are out of sight from a tree view that scrolls by rows, which would
/// search all its rows for them. They are passed on when the rows come into sight.
class BVTreeVisibleRows
{
public:
    explicit BVTreeVisibleRows(BVTreeView *view);

    /// Whether the toolkit's view need not know of the change now.
    bool defers(const QModelIndex &topLeft, const QModelIndex &bottomRight);
    /// To be called before the viewport is painted.
    void update();
    /// To be called when the view lays out all rows anew.
    void clear() { m_deferred.clear(); }

private:
    struct Range
    {
        QPersistentModelIndex topLeft;
        QPersistentModelIndex bottomRight;
    };

    bool mayDefer(const QModelIndex &topLeft, const QModelIndex &bottomRight) const;
    bool isInClosedBranch(const QModelIndex &index) const;
    bool isInSight(const QModelIndex &topLeft, const QModelIndex &bottomRight) const;

    BVTreeView *m_view;
    QVector<int> m_first; // the path of the first row in sight; empty while it is not known
    QVector<int> m_last;  // the same of the last one; empty for the end
    QVector<Range> m_deferred;
};
