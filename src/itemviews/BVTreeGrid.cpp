// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeGrid_p.h"

#include "itemviews/BVTreeView.h"
#include "itemviews/BVTreeVisibleRows_p.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int s_tintAlpha = 60; // of 255

} // namespace

BVTreeGrid::BVTreeGrid(const BVTreeView *view)
    : m_view(view)
{
}

void BVTreeGrid::paint(int tintedColumn) const
{
    if (!m_view->isGridShown() && tintedColumn < 0)
        return;
    QPainter painter(m_view->viewport());
    if (m_view->isGridShown())
        paintLines(painter);
    paintTint(painter, tintedColumn);
}

/// Returns the bottom of the last row in sight.
int BVTreeGrid::paintRowLines(QPainter &painter) const
{
    const QRect area = m_view->viewport()->rect();
    int bottom = -1;
    for (QModelIndex row = BVTreeVisibleRows::rowAt(*m_view, area.top());
         row.isValid() && bottom < area.bottom(); row = m_view->indexBelow(row)) {
        bottom = qMax(bottom, BVTreeVisibleRows::rowRect(*m_view, row).bottom());
        painter.drawLine(area.left(), bottom, area.right(), bottom);
    }
    return bottom;
}

/// A line below each row, and one behind each column.
void BVTreeGrid::paintLines(QPainter &painter) const
{
    const QStyleOptionViewItem option = m_view->viewOptions();
    const int color = m_view->style()->styleHint(QStyle::SH_Table_GridLineColor, &option, m_view);
    painter.setPen(QColor::fromRgba(QRgb(color)));
    const int bottom = paintRowLines(painter);
    if (!m_view->isColumnGridShown())
        return;
    const QHeaderView *header = m_view->header();
    for (int column = 0; column < header->count(); ++column) {
        if (header->isSectionHidden(column))
            continue;
        const int left = header->sectionViewportPosition(column);
        const int edge = m_view->isRightToLeft() ? left : left + header->sectionSize(column) - 1;
        painter.drawLine(edge, 0, edge, bottom);
    }
}

void BVTreeGrid::paintTint(QPainter &painter, int column) const
{
    const QHeaderView *header = m_view->header();
    if (column < 0 || column >= header->count() || header->isSectionHidden(column))
        return;
    QColor tint = m_view->palette().color(QPalette::Highlight);
    tint.setAlpha(s_tintAlpha);
    painter.fillRect(header->sectionViewportPosition(column), 0, header->sectionSize(column),
                     m_view->viewport()->height(), tint);
}
