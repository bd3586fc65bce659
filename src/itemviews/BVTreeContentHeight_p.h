// SPDX-License-Identifier: MIT
#pragma once

#include <QPersistentModelIndex>
#include <QVector>

class QTreeView;

/// The height of a tree view's rows, also of those in closed branches, kept until something changes
/// it.
class BVTreeContentHeight
{
public:
    /// Which child rows count.
    enum class Children { All, Expanded, None };

    explicit BVTreeContentHeight(QTreeView *view);

    /// The height of all rows below the view's root.
    int rowsHeight(Children children);
    int rowsHeight(const QModelIndex &parent, Children children) const;
    int headerHeight() const;
    /// Whether a change of these roles may change the height of a row; none stands for all.
    static bool isMeasured(const QVector<int> &roles);
    /// Keeps the height if the rows turn out to be as high as all others.
    void rowsChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight);
    void invalidate();

private:
    struct Sum
    {
        void add(int rowHeight);

        qint64 height = 0;
        int count = 0;
        int common = -1; // the height of each row; -1 if they differ
    };
    struct Rows
    {
        QPersistentModelIndex first;
        QPersistentModelIndex last;
    };

    bool hasColumns() const;
    bool isCommonHeight(const QModelIndex &row) const;
    bool isCommonHeight(const Rows &rows) const;
    bool isHeightKept();
    Sum sumOf(const QModelIndex &parent, Children children) const;

    QTreeView *m_view;
    int m_rowsHeight = -1;               // pixels; -1 while it is not known
    Children m_children = Children::All; // that it counts
    Sum m_sum;                           // of the rows that it counts
    QVector<Rows> m_changed;             // since then
    int m_changedCount = 0;              // of rows
};
