// SPDX-License-Identifier: MIT
#pragma once

class BVTreeView;
class QPainter;

/// Paints what lies under the rows of a tree view.
class BVTreeGrid
{
public:
    explicit BVTreeGrid(const BVTreeView *view);

    /// The lines that the view shows, and a tint over the column; -1 for none.
    void paint(int tintedColumn) const;

private:
    int paintRowLines(QPainter &painter) const;
    void paintLines(QPainter &painter) const;
    void paintTint(QPainter &painter, int column) const;

    const BVTreeView *m_view;
};
