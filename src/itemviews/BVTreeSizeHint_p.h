// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class BVTreeContentHeight;
class BVTreeView;
class QModelIndex;

/// The size that a tree view asks for with its settings.
class BVTreeSizeHint
{
public:
    BVTreeSizeHint(const BVTreeView *view, BVTreeContentHeight *content);

    /// The height of the rows below @p parent that count.
    int rowsHeight(const QModelIndex &parent) const;
    /// The height of all rows with header and scroll bar, but not less than the least one.
    int contentHeight() const;
    /// What the view asks for instead of the size that the toolkit's view does.
    QSize preferred(QSize size) const;
    /// The least size instead of that of the toolkit's view: a resizable view may be as low as its
    /// content, and scrolls where a form has less space.
    QSize minimum(QSize size) const;

private:
    const BVTreeView *m_view;
    BVTreeContentHeight *m_content;
};
