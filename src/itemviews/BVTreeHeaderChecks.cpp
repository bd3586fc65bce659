// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeHeaderChecks_p.h"

#include "itemviews/BVCustomHeaderView.h"
#include "itemviews/BVProxyChain_p.h"
#include "itemviews/BVRowWalk_p.h"
#include "itemviews/BVTreeView.h"
#include "itemviews/BVTreeViewModel.h"

#include <QAccessible>
#include <QIdentityProxyModel>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

constexpr int s_delay = 12;       // ms
constexpr int s_neverSorted = -2; // a column by which the toolkit's view does not sort

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

/// The cells of the rows in a column of @p model, which is also one behind which the rows stand.
/// They are held behind all proxy models, which keep track of their own cells slowly.
QVector<QPersistentModelIndex> sourceCells(const QModelIndexList &rows, int column,
                                           QAbstractItemModel *model)
{
    QVector<QPersistentModelIndex> cells;
    cells.reserve(rows.size());
    for (const QModelIndex &row : rows) {
        const QModelIndex shown =
            row.model() == model
                ? row
                : BVProxyChain::mapFromSource(BVProxyChain::mapToSource(row), model);
        const QModelIndex cell = BVProxyChain::mapToSource(shown.sibling(shown.row(), column));
        if (cell.isValid())
            cells.append(cell);
    }
    return cells;
}

/// Identity proxy models without rows refuse, but have the columns of their source.
bool writeHeaderData(QAbstractItemModel *model, int column, int role, const QVariant &value)
{
    if (model->setHeaderData(column, Qt::Horizontal, value, role))
        return true;
    const auto *proxy = qobject_cast<QIdentityProxyModel *>(model);
    return proxy && proxy->sourceModel() &&
           writeHeaderData(proxy->sourceModel(), column, role, value);
}

/// Where to scroll to, so that what begins at @p start is in sight.
int scrolledTo(int start, int size, int offset, int length)
{
    if (start < offset || size > length)
        return start;
    return qMax(offset, start + size - length);
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

/// Gives the view a header that can have check boxes if it has another one.
void BVTreeHeaderChecks::makeHeader()
{
    if (header())
        return;
    const QHeaderView *before = m_view->header();
    const int sortColumn = before->sortIndicatorSection();
    const Qt::SortOrder sortOrder = before->sortIndicatorOrder();
    const bool isSortShown = before->isSortIndicatorShown();
    auto *custom = new BVCustomHeaderView(Qt::Horizontal, QSize(), m_view);
    if (m_view->model()) {
        custom->setModel(m_view->model());
        custom->setSelectionModel(m_view->selectionModel());
    }
    custom->restoreState(before->saveState());
    custom->setSectionResizeMode(QHeaderView::Stretch);
    custom->setSectionsMovable(false);
    custom->setSortIndicator(s_neverSorted, sortOrder);
    m_view->setHeader(custom);
    custom->setSortIndicatorShown(isSortShown);
    const QSignalBlocker blocker(custom); // the rows stand as they are
    custom->setSortIndicator(sortColumn, sortOrder);
}

void BVTreeHeaderChecks::showBox(int column, Qt::Alignment alignment)
{
    makeHeader();
    setBoxVisible(column, true);
    setHeaderData(column, BVTreeViewModel::HeaderCheckBoxAlignmentRole, int(alignment));
}

void BVTreeHeaderChecks::setBoxVisible(int column, bool visible)
{
    setHeaderData(column, BVTreeViewModel::HeaderCheckBoxRole, visible);
}

/// Writes header data of the view's model, now or, if it needs rows for that, with
/// retryHeaderData().
void BVTreeHeaderChecks::setHeaderData(int column, int role, const QVariant &value)
{
    QAbstractItemModel *model = m_view->model();
    const auto isSame = [&](const HeaderValue &refused) {
        return refused.column == column && refused.role == role;
    };
    m_refused.erase(std::remove_if(m_refused.begin(), m_refused.end(), isSame), m_refused.end());
    if (model && !writeHeaderData(model, column, role, value) &&
        qobject_cast<QAbstractProxyModel *>(model) && model->rowCount() == 0)
        m_refused.append({model, column, role, value});
}

void BVTreeHeaderChecks::retryHeaderData()
{
    if (m_refused.isEmpty() || !m_view->model() || m_view->model()->rowCount() == 0)
        return;
    const QVector<HeaderValue> refused = std::exchange(m_refused, {});
    for (const HeaderValue &header : refused) {
        if (header.model == m_view->model())
            setHeaderData(header.column, header.role, header.value);
    }
}

void BVTreeHeaderChecks::adoptHeader()
{
    QObject::connect(header(), &BVCustomHeaderView::sigCheckStateChanged, m_view,
                     [this](bool checked, int column) { onBoxChecked(checked, column); });
    QObject::connect(header(), &BVCustomHeaderView::sigBoxFocused, m_view,
                     [this](int column) { showSection(column); });
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

bool BVTreeHeaderChecks::setBoxChecked(bool checked, int column)
{
    if (m_checkStateTimer->isActive()) {
        m_checkStateTimer->stop();
        update();
    }
    BVCustomHeaderView *custom = header();
    return custom && custom->setChecked(checked, column);
}

/// Scrolls to the column, whose box has got the keyboard.
void BVTreeHeaderChecks::showSection(int column) const
{
    const QHeaderView *header = m_view->header();
    const int start = header->sectionPosition(column);
    const int value = scrolledTo(start, header->sectionSize(column), header->offset(),
                                 header->viewport()->width());
    QScrollBar *bar = m_view->horizontalScrollBar();
    if (m_view->horizontalScrollMode() == QAbstractItemView::ScrollPerPixel)
        bar->setValue(value);
    else if (value != header->offset())
        bar->setValue(header->visualIndex(column));
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

/// Slots may move or remove rows, and delete the view, while the others are written.
void BVTreeHeaderChecks::write(const QModelIndexList &indexes, int column, Qt::CheckState state)
{
    QVector<QPersistentModelIndex> cells = sourceCells(indexes, column, m_view->model());
    if (cells.isEmpty())
        return;
    // Rows that a filter takes away are the fastest to take from the end.
    if (qobject_cast<QAbstractProxyModel *>(m_view->model()))
        std::reverse(cells.begin(), cells.end());
    const QPointer<BVTreeView> view(m_view);
    const bool isOuterQuiet = m_isWritingQuietly;
    ++m_writeDepth;
    for (const QPersistentModelIndex &cell : qAsConst(cells)) {
        writeCell(BVProxyChain::mapFromSource(cell, m_view->model()), state);
        if (!view)
            return;
    }
    --m_writeDepth;
    m_isWritingQuietly = isOuterQuiet;
    if (m_writeDepth == 0)
        endWriting(column);
}

/// A first check state makes a box, and may make the row higher.
void BVTreeHeaderChecks::writeCell(const QModelIndex &cell, Qt::CheckState state)
{
    if (!cell.isValid())
        return;
    m_isWritingQuietly = cell.data(Qt::CheckStateRole).isValid();
    m_view->model()->setData(cell, state, Qt::CheckStateRole);
}

void BVTreeHeaderChecks::endWriting(int column) const
{
    m_view->viewport()->update();
    if (!QAccessible::isActive() || !m_view->model())
        return;
    QAccessibleTableModelChangeEvent event(m_view, QAccessibleTableModelChangeEvent::DataChanged);
    event.setFirstRow(0);
    event.setLastRow(m_view->model()->rowCount(m_view->rootIndex()) - 1);
    event.setFirstColumn(column);
    event.setLastColumn(column);
    QAccessible::updateAccessibility(&event);
}
