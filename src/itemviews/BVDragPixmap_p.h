// SPDX-License-Identifier: MIT
#pragma once

#include <QModelIndexList>
#include <QPixmap>
#include <QStyleOptionViewItem>
#include <QVector>

class QTreeView;

/// Draws rows of a view as they look in it, to be moved with the pointer.
///
/// Only the first rows are drawn, with the number of the others below them, and only as wide as
/// their content needs.
class BVDragPixmap
{
public:
    /// The option is what the view gives its delegates.
    BVDragPixmap(const QTreeView *view, const QStyleOptionViewItem &option);

    /// The cells of these columns, in the direction of the layout; rows may be given by any of
    /// their cells.
    QPixmap renderToPixmap(const QModelIndexList &rows, const QVector<int> &columns) const;
    /// The options of a view that does not tell its own.
    static QStyleOptionViewItem optionsOf(const QTreeView *view);

private:
    QSize cellSize(const QModelIndex &cell) const;
    QVector<int> columnWidths(const QModelIndexList &rows, const QVector<int> &columns) const;
    int rowHeight(const QModelIndex &row, const QVector<int> &columns) const;
    void paintSheet(QPainter *painter, const QRect &rect) const;
    void paintRow(QPainter *painter, const QRect &rect, const QModelIndex &row,
                  const QVector<int> &columns, const QVector<int> &widths) const;
    void paintRest(QPainter *painter, const QRect &rect, int count) const;

    const QTreeView *m_view;
    QStyleOptionViewItem m_option;
};
