// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

class QModelIndex;
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
    void invalidate() { m_rowsHeight = -1; }

private:
    bool hasColumns() const;

    QTreeView *m_view;
    int m_rowsHeight = -1;               // pixels; -1 while it is not known
    Children m_children = Children::All; // that it counts
};
