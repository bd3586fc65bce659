// SPDX-License-Identifier: MIT
#pragma once

#include <QPersistentModelIndex>
#include <QVector>

class BVTreeView;
class QRect;
class QTreeView;

/// Keeps changes of rows that are out of sight from a tree view that scrolls by rows, which would
/// search all its rows for them and measure them. They are passed on before anybody asks where rows
/// are, or when they come into sight; many at once by laying out all rows anew.
class BVTreeVisibleRows
{
public:
    explicit BVTreeVisibleRows(BVTreeView *view);

    /// Passes a change on to the toolkit's view, now or later. @p isMeasured says whether rows may
    /// have got another height by it.
    void onDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                       const QVector<int> &roles, bool isMeasured);
    /// Passes on all that was kept back. False if that was nothing.
    bool settle();
    /// To be called before the viewport is painted: passes on what is in sight.
    void settleSight();
    /// To be called when the view lays out all rows anew.
    void clear();

    /// The first cell of the row at a height in the viewport.
    static QModelIndex rowAt(const QTreeView &view, int y);
    /// The rectangle of the first of the row's cells that are to be seen.
    static QRect rowRect(const QTreeView &view, const QModelIndex &row);

private:
    struct Rows
    {
        bool operator==(const Rows &other) const
        {
            return first == other.first && last == other.last;
        }
        bool isValid() const { return first.isValid() && last.isValid(); }

        QPersistentModelIndex first;
        QPersistentModelIndex last;
    };

    bool mayWithhold(const QModelIndex &topLeft, const QModelIndex &bottomRight) const;
    bool isInClosedBranch(const QModelIndex &index) const;
    bool isInSight(const QModelIndex &first, const QModelIndex &last) const;
    void withhold(const QModelIndex &topLeft, const QModelIndex &bottomRight);
    void withholdAll(bool isInSight);
    void layOut();
    bool moveSight();
    bool passInSight();

    BVTreeView *m_view;
    QVector<int> m_first; // the path of the first row in sight; empty while it is not known
    QVector<int> m_last;  // the same of the last one; empty for the end
    QVector<Rows> m_withheld;
    bool m_isStale = false;      // any row may have got another height
    bool m_isSightStale = false; // also those in sight
    bool m_isPassing = false;    // a change, to the toolkit's view
};
