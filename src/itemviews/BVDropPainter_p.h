// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/DragDropInfo.h"

class QPainter;
class QPixmap;

/// Shows in a view where dragged rows would go: a frame around a row that would take them as
/// children, else a line between the rows, which starts at the level that they would have.
class BVDropPainter
{
public:
    explicit BVDropPainter(const QTreeView *view);

    /// The line or the frame.
    void paintTarget(QPainter *painter, const DragDropInfo &info) const;
    /// The rows as they would stand there, see-through.
    void paintPreview(QPainter *painter, const DragDropInfo &info, const QPixmap &rows) const;
    /// An arrow at the end of the rows, from the first one that is dragged to the place where it
    /// goes. Nothing for rows of other views.
    void paintMoveLine(QPainter *painter, const DragDropInfo &info) const;

    /// What paintTarget() covers.
    QRect targetRect(const DragDropInfo &info) const;

    /// The colour of all that marks a drag: the highlight, if that stands out from the rows.
    static QColor color(const QPalette &palette);

private:
    struct Line // in the viewport; horizontal
    {
        int start = 0; // at the level of the rows, to the right in layouts from right to left
        int end = 0;
        int y = 0;
    };

    Line lineOf(const DragDropInfo &info) const;
    int levelStart(const QModelIndex &row) const;
    int contentEnd() const;
    QRect frameOf(const DragDropInfo &info) const;
    QColor color() const;

    const QTreeView *m_view;
};
