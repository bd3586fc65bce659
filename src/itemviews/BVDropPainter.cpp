// SPDX-License-Identifier: MIT
#include "itemviews/BVDropPainter_p.h"

#include "itemviews/BVDropRules_p.h"

#include <QHeaderView>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int s_lineWidth = 2;        // px
constexpr qreal s_capRadius = 3.0;    // px, of the ring at the start of the line
constexpr qreal s_cornerRadius = 3.0; // px, of the frame
constexpr int s_frameTint = 45;       // of 255
constexpr qreal s_previewOpacity = 0.9;
constexpr int s_previewGap = 4;      // px, between the line and the rows below it
constexpr int s_moveLineMargin = 10; // px, from the end of the rows
constexpr int s_moveLineLength = 10; // px, of its horizontal ends
constexpr qreal s_arrowSize = 4.0;   // px

// Instead of a highlight that does not stand out, on light and on dark rows.
constexpr QRgb s_colors[] = {0xff2f6599, 0xff8ab8e6};
constexpr int s_leastContrast = 90; // of lightness, of 255

constexpr int s_capSpace = int(s_capRadius) + s_lineWidth; // px, around the line

} // namespace

BVDropPainter::BVDropPainter(const QTreeView *view)
    : m_view(view)
{
}

QColor BVDropPainter::color(const QPalette &palette)
{
    const QColor &highlight = palette.color(QPalette::Active, QPalette::Highlight);
    const int base = palette.color(QPalette::Base).lightness();
    if (qAbs(highlight.lightness() - base) >= s_leastContrast)
        return highlight;
    return QColor::fromRgb(s_colors[base < 128]);
}

QColor BVDropPainter::color() const
{
    return color(m_view->palette());
}

// Geometry

/// Where the text of the row begins.
int BVDropPainter::levelStart(const QModelIndex &row) const
{
    const int treeColumn =
        m_view->treePosition() >= 0 ? m_view->treePosition() : m_view->header()->logicalIndex(0);
    QRect cell = m_view->visualRect(row.sibling(row.row(), qMax(treeColumn, 0)));
    if (!cell.isValid()) // hidden
        cell = m_view->visualRect(BVDropRules::firstCellInSight(m_view, row));
    return m_view->isRightToLeft() ? cell.right() : cell.left();
}

int BVDropPainter::contentEnd() const
{
    const QRect area = m_view->viewport()->rect();
    const QHeaderView *header = m_view->header();
    const int length = header->length() - header->offset();
    return m_view->isRightToLeft() ? qMax(area.left(), area.right() - length)
                                   : qMin(area.right(), area.left() + length);
}

BVDropPainter::Line BVDropPainter::lineOf(const DragDropInfo &info) const
{
    const QRect area = m_view->viewport()->rect();
    const bool isAbove = info.position == DropIndicatorPosition::AboveItem;
    const bool isAtEnd = info.position == DropIndicatorPosition::OnViewport;
    const QModelIndex root = m_view->rootIndex();
    const QModelIndex row = isAtEnd ? root : info.dropIndex.sibling(info.dropIndex.row(), 0);
    const QModelIndex last =
        isAbove ? QModelIndex(info.dropIndex) : BVDropRules::lastInSight(m_view, row);
    const QRect rect = m_view->visualRect(BVDropRules::firstCellInSight(m_view, last));
    Line line;
    if (isAtEnd && last.isValid() && last != root)
        line.start = levelStart(m_view->model()->index(0, 0, root));
    else if (!isAtEnd)
        line.start = levelStart(info.dropIndex);
    else
        line.start = m_view->isRightToLeft() ? area.right() : area.left();
    line.end = contentEnd();
    line.y = qBound(area.top() + s_lineWidth / 2, isAbove ? rect.top() : rect.bottom() + 1,
                    area.bottom());
    return line;
}

QRect BVDropPainter::frameOf(const DragDropInfo &info) const
{
    // The view may have scrolled since.
    const QRect cell = m_view->visualRect(info.dropIndex);
    return QRect(QPoint(info.dropRect.left(), cell.top()),
                 QSize(info.dropRect.width(), cell.height()))
        .intersected(m_view->viewport()->rect());
}

QRect BVDropPainter::targetRect(const DragDropInfo &info) const
{
    if (!m_view->model())
        return QRect();
    if (info.position == DropIndicatorPosition::OnItem)
        return frameOf(info);
    const Line line = lineOf(info);
    return QRect(QPoint(line.start, line.y), QPoint(line.end, line.y))
        .normalized()
        .adjusted(-s_capSpace, -s_capSpace, s_capSpace, s_capSpace);
}

// Painting

void BVDropPainter::paintTarget(QPainter *painter, const DragDropInfo &info) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color(), s_lineWidth, Qt::SolidLine, Qt::FlatCap));
    if (info.position == DropIndicatorPosition::OnItem) {
        QColor tint = color();
        tint.setAlpha(s_frameTint);
        painter->setBrush(tint);
        painter->drawRoundedRect(QRectF(frameOf(info)).adjusted(1, 1, -1, -1), s_cornerRadius,
                                 s_cornerRadius);
    } else {
        const Line line = lineOf(info);
        const int inwards = line.end >= line.start ? 1 : -1;
        const QPointF cap(line.start + inwards * s_capSpace, line.y);
        painter->setBrush(m_view->palette().color(QPalette::Base));
        painter->drawLine(cap + QPointF(inwards * s_capRadius, 0), QPointF(line.end, line.y));
        painter->drawEllipse(cap, s_capRadius, s_capRadius);
    }
    painter->restore();
}

void BVDropPainter::paintPreview(QPainter *painter, const DragDropInfo &info,
                                 const QPixmap &rows) const
{
    if (rows.isNull())
        return;
    const QSize size = (QSizeF(rows.size()) / rows.devicePixelRatio()).toSize();
    const bool isOnItem = info.position == DropIndicatorPosition::OnItem;
    const QRect frame = frameOf(info);
    const int inwards = m_view->isRightToLeft() ? -1 : 1;
    const int start = isOnItem ? levelStart(info.dropIndex) + inwards * m_view->indentation()
                               : lineOf(info).start + inwards * 2 * s_capSpace;
    const int top = isOnItem ? frame.bottom() + 1 : lineOf(info).y + s_previewGap;
    const int bottom = isOnItem ? frame.top() : lineOf(info).y - s_previewGap;
    const bool fits = top + size.height() <= m_view->viewport()->height();
    painter->save();
    painter->setOpacity(s_previewOpacity);
    painter->drawPixmap(m_view->isRightToLeft() ? start - size.width() : start,
                        fits ? top : bottom - size.height(), rows);
    painter->restore();
}

void BVDropPainter::paintMoveLine(QPainter *painter, const DragDropInfo &info) const
{
    const QModelIndex dragged = info.draggedIndexes.value(0);
    if (info.source != m_view || dragged.model() != m_view->model())
        return;
    const QRect row = m_view->visualRect(dragged);
    const bool isOnItem = info.position == DropIndicatorPosition::OnItem;
    const qreal from = row.center().y() + 0.5;
    const qreal to = isOnItem ? frameOf(info).center().y() + 0.5 : lineOf(info).y;
    if (!row.isValid() || qAbs(from - to) <= 2 * s_arrowSize)
        return;
    const int inwards = m_view->isRightToLeft() ? 1 : -1;
    const qreal x = contentEnd() + inwards * s_moveLineMargin;
    const QPointF end(x + inwards * s_moveLineLength, 0);
    // Sideways onto a row, lengthwise onto a line.
    const QPointF tip = isOnItem ? end + QPointF(0, to) : QPointF(x, to);
    const QPointF back = isOnItem ? QPointF(-inwards * s_arrowSize, 0)
                                  : QPointF(0, from < to ? -s_arrowSize : s_arrowSize);
    const QPointF aside(back.y(), back.x());
    QPainterPath path(end + QPointF(0, from));
    path.lineTo(x, from);
    path.lineTo(x, to);
    path.lineTo(tip);
    path.moveTo(tip + back + aside);
    path.lineTo(tip);
    path.lineTo(tip + back - aside);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color(), s_lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPath(path);
    painter->restore();
}
