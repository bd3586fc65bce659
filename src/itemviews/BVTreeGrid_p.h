// SPDX-License-Identifier: MIT
#pragma once

class BVTreeView;
class QPainter;

/// Paints what lies under the rows of a tree view.
class BVTreeGrid
{
public:
    explicit BVTreeGrid(const BVTreeView *view);

    /// A line below each row, and with @p columns one behind each column.
    void paintLines(QPainter &painter, bool columns) const;
    /// A tint over the whole column.
    void paintColumn(QPainter &painter, int column) const;

private:
    int paintRowLines(QPainter &painter) const;

    const BVTreeView *m_view;
};
