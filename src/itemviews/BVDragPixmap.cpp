// SPDX-License-Identifier: MIT
#include "itemviews/BVDragPixmap_p.h"

#include "itemviews/BVDropPainter_p.h"

#include <QAbstractItemDelegate>
#include <QCoreApplication>
#include <QPainter>
#include <QTreeView>

#include <numeric>

namespace {

constexpr int s_mostRows = 5;       // drawn before the others are only counted
constexpr int s_margin = 3;         // px, around the rows
constexpr int s_sheetAlpha = 225;   // of 255
constexpr qreal s_cornerRadius = 3; // px
constexpr qreal s_restFade = 0.7;   // opacity of the number of other rows

QString restText(int count)
{
    return QCoreApplication::translate("BVDragAndDropManager", "and %1 more").arg(count);
}

} // namespace

BVDragPixmap::BVDragPixmap(const QTreeView *view, const QStyleOptionViewItem &option)
    : m_view(view)
    , m_option(option)
{
    m_option.widget = view;
    m_option.state = QStyle::State_Enabled | QStyle::State_Active;
    m_option.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
}

QStyleOptionViewItem BVDragPixmap::optionsOf(const QTreeView *view)
{
    QStyleOptionViewItem option;
    option.initFrom(view);
    option.font = view->font();
    option.decorationSize = view->iconSize();
    if (!option.decorationSize.isValid()) {
        const int size = view->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, view);
        option.decorationSize = QSize(size, size);
    }
    return option;
}

QSize BVDragPixmap::cellSize(const QModelIndex &cell) const
{
    const QAbstractItemDelegate *delegate = m_view->itemDelegate(cell);
    return delegate ? delegate->sizeHint(m_option, cell) : QSize();
}

/// What the cells need, but no more than they have in the view.
QVector<int> BVDragPixmap::columnWidths(const QModelIndexList &rows,
                                        const QVector<int> &columns) const
{
    QVector<int> widths;
    for (const int column : columns) {
        int width = 0;
        for (const QModelIndex &row : rows)
            width = qMax(width, cellSize(row.sibling(row.row(), column)).width());
        widths.append(qMin(width, qMax(m_view->columnWidth(column), 1)));
    }
    return widths;
}

int BVDragPixmap::rowHeight(const QModelIndex &row, const QVector<int> &columns) const
{
    int height = m_view->visualRect(row).height(); // none for rows in collapsed branches
    for (int i = 0; height <= 0 && i < columns.size(); ++i)
        height = cellSize(row.sibling(row.row(), columns.at(i))).height();
    return qMax(height, 1);
}

void BVDragPixmap::paintSheet(QPainter *painter, const QRect &rect) const
{
    QColor base = m_option.palette.color(QPalette::Base);
    base.setAlpha(s_sheetAlpha);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(BVDropPainter::color(m_option.palette));
    painter->setBrush(base);
    painter->drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), s_cornerRadius,
                             s_cornerRadius);
    painter->setRenderHint(QPainter::Antialiasing, false);
}

void BVDragPixmap::paintRow(QPainter *painter, const QRect &rect, const QModelIndex &row,
                            const QVector<int> &columns, const QVector<int> &widths) const
{
    QStyleOptionViewItem option = m_option;
    QRect place = rect;
    for (int i = 0; i < columns.size(); ++i) {
        const QModelIndex cell = row.sibling(row.row(), columns.at(i));
        place.setWidth(widths.at(i));
        option.rect = QStyle::visualRect(m_view->layoutDirection(), rect, place);
        option.state.setFlag(QStyle::State_Enabled, cell.flags() & Qt::ItemIsEnabled);
        const QAbstractItemDelegate *delegate = m_view->itemDelegate(cell);
        if (delegate && cell.isValid())
            delegate->paint(painter, option, cell);
        place.moveLeft(place.right() + 1);
    }
}

void BVDragPixmap::paintRest(QPainter *painter, const QRect &rect, int count) const
{
    painter->setFont(m_option.font);
    painter->setPen(m_option.palette.color(QPalette::Text));
    painter->setOpacity(s_restFade);
    const Qt::Alignment alignment =
        QStyle::visualAlignment(m_view->layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter);
    painter->drawText(rect.adjusted(s_margin, 0, -s_margin, 0), int(alignment | Qt::AlignAbsolute),
                      restText(count));
}

QPixmap BVDragPixmap::renderToPixmap(const QModelIndexList &rows, const QVector<int> &columns) const
{
    const QModelIndexList drawn = rows.mid(0, s_mostRows);
    if (drawn.isEmpty() || columns.isEmpty())
        return QPixmap();
    const int rest = rows.size() - drawn.size();
    const QVector<int> widths = columnWidths(drawn, columns);
    int width = std::accumulate(widths.begin(), widths.end(), 0);
    int height = rest > 0 ? m_option.fontMetrics.height() : 0;
    if (rest > 0)
        width = qMax(width, m_option.fontMetrics.horizontalAdvance(restText(rest)) + 2 * s_margin);
    for (const QModelIndex &row : drawn)
        height += rowHeight(row, columns);
    width = qMin(width, qMax(m_view->viewport()->width(), 1));

    const QSize size(width + 2 * s_margin, height + 2 * s_margin);
    const qreal ratio = m_view->devicePixelRatioF();
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paintSheet(&painter, QRect(QPoint(), size));
    QPoint place(s_margin, s_margin);
    for (const QModelIndex &row : drawn) {
        const QRect rect(place, QSize(width, rowHeight(row, columns)));
        paintRow(&painter, rect, row, columns, widths);
        place.ry() += rect.height();
    }
    if (rest > 0)
        paintRest(&painter, QRect(place, QSize(width, m_option.fontMetrics.height())), rest);
    return pixmap;
}
