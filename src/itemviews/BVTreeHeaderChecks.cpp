// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeHeaderChecks_p.h"

#include "itemviews/BVCustomHeaderView.h"
#include "itemviews/BVProxyChain_p.h"
#include "itemviews/BVRowWalk_p.h"
#include "itemviews/BVTreeView.h"

#include <QPointer>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int s_delay = 12; // ms

bool isCheckable(const QModelIndex &index)
{
    constexpr Qt::ItemFlags needed = Qt::ItemIsUserCheckable | Qt::ItemIsEnabled;
    return (index.flags() & needed) == needed && index.data(Qt::CheckStateRole).isValid();
}

/// Visits the checkable cells of a column, depth first, until @p visit answers false.
template <typename Visit>
void visitCheckable(const QAbstractItemModel *model, int column, Visit &&visit)
{
    if (!model || column < 0)
        return;
    BVRowWalk::visit(*model, QModelIndex(), [&](const QModelIndex &row) {
        const QModelIndex cell = row.sibling(row.row(), column);
        return !isCheckable(cell) || visit(cell) ? BVRowWalk::Descend : BVRowWalk::Stop;
    });
}

} // namespace

BVTreeHeaderChecks::BVTreeHeaderChecks(BVTreeView *view)
    : m_view(view)
    , m_checkStateTimer(new QTimer(view))
{
    m_checkStateTimer->setSingleShot(true);
    m_checkStateTimer->setInterval(s_delay);
    QObject::connect(m_checkStateTimer, &QTimer::timeout, view, [this] { update(); });
}

BVCustomHeaderView *BVTreeHeaderChecks::header() const
{
    return qobject_cast<BVCustomHeaderView *>(m_view->header());
}

void BVTreeHeaderChecks::makeHeader()
{
    if (header())
        return;
    auto *custom = new BVCustomHeaderView(Qt::Horizontal, QSize(), m_view);
    custom->setDefaultAlignment(m_view->header()->defaultAlignment());
    custom->setSectionResizeMode(QHeaderView::Stretch);
    custom->setSectionsMovable(false);
    m_view->setHeader(custom);
}

void BVTreeHeaderChecks::setHeaderData(int column, int role, const QVariant &value)
{
    // Proxy models without rows cannot map their columns, and refuse.
    const QVector<QAbstractItemModel *> models = BVProxyChain::models(m_view->model());
    std::any_of(models.cbegin(), models.cend(), [&](QAbstractItemModel *model) {
        return model->setHeaderData(column, Qt::Horizontal, value, role);
    });
}

void BVTreeHeaderChecks::adoptHeader()
{
    QObject::connect(header(), &BVCustomHeaderView::sigCheckStateChanged, m_view,
                     [this](bool checked, int column) { onBoxChecked(checked, column); });
    scheduleUpdate();
}

// From the cells to the header

void BVTreeHeaderChecks::scheduleUpdate()
{
    if (!m_view->signalsBlocked() && header() && !m_checkStateTimer->isActive())
        m_checkStateTimer->start();
}

void BVTreeHeaderChecks::update()
{
    BVCustomHeaderView *custom = header();
    for (int column = 0; custom && column < custom->count(); ++column) {
        if (custom->hasCheckBox(column))
            custom->setCheckState(columnState(column), column);
    }
}

/// What the column's box has to show.
Qt::CheckState BVTreeHeaderChecks::columnState(int column) const
{
    bool isFirst = true;
    Qt::CheckState state = Qt::Unchecked;
    visitCheckable(m_view->model(), column, [&](const QModelIndex &cell) {
        const auto cellState = Qt::CheckState(cell.data(Qt::CheckStateRole).toInt());
        state = isFirst || cellState == state ? cellState : Qt::PartiallyChecked;
        isFirst = false;
        return state != Qt::PartiallyChecked;
    });
    return state;
}

// From the header to the cells

/// All cells of the column that the user can check, depth first.
QModelIndexList BVTreeHeaderChecks::checkableCells(int column) const
{
    QModelIndexList cells;
    visitCheckable(m_view->model(), column, [&cells](const QModelIndex &cell) {
        cells.append(cell);
        return true;
    });
    return cells;
}

void BVTreeHeaderChecks::onBoxChecked(bool checked, int column)
{
    const QPointer<BVTreeView> view(m_view);
    write(checkableCells(column), column, BVTreeView::boolToCheckState(checked));
    if (!view)
        return;
    scheduleUpdate(); // the cells may not have taken the state
    Q_EMIT m_view->sigCheckStateToggled(checked, column);
}

void BVTreeHeaderChecks::write(const QModelIndexList &indexes, int column, Qt::CheckState state)
{
    if (m_isWriting || indexes.isEmpty())
        return;
    // Slots may move or remove rows while the others are written.
    QList<QPersistentModelIndex> cells;
    cells.reserve(indexes.size());
    for (const QModelIndex &index : indexes)
        cells.append(index.sibling(index.row(), column));
    const QPointer<BVTreeView> view(m_view);
    m_isWriting = true;
    for (const QPersistentModelIndex &cell : qAsConst(cells)) {
        if (view && cell.isValid() && cell.model() == view->model())
            view->model()->setData(cell, state, Qt::CheckStateRole);
    }
    if (!view)
        return;
    m_isWriting = false;
    view->viewport()->update();
}
