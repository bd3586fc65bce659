// SPDX-License-Identifier: MIT
#include "itemviews/BVDragTreeWidget.h"

#include "itemviews/BVContextMenuPlace_p.h"
#include "itemviews/BVDelegateManager.h"
#include "itemviews/BVDragHost_p.h"
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVTreeContentHeight_p.h"
#include "itemviews/BVTreeCopying_p.h"
#include "itemviews/BVTreeHover_p.h"
#include "itemviews/BVTreeItemMove_p.h"
#include "itemviews/BVTreeItems_p.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>

#include <utility>

namespace {

constexpr int s_hoverAlpha = 56;   // of 255, for the tint of an opaque colour
constexpr int s_hoverBarWidth = 3; // px

} // namespace

/// Has the tree tell of the row under the mouse.
class BVDragTreeWidget::RowHover : public BVTreeHover
{
public:
    explicit RowHover(BVDragTreeWidget *tree)
        : BVTreeHover(tree, Unit::Row)
        , m_tree(tree)
    {
    }

protected:
    void onEnter(const QModelIndex &index) override
    {
        Q_EMIT m_tree->sigItemHoverEnter(m_tree->itemFromIndex(index));
    }
    void onLeave(const QModelIndex &index) override
    {
        if (m_tree->m_tintedRow == index)
            m_tree->m_tintedRow = QPersistentModelIndex();
        Q_EMIT m_tree->sigItemHoverLeave(m_tree->itemFromIndex(index));
    }
    void onMouseLeft() override { Q_EMIT m_tree->sigLeaveEvent(); }

private:
    BVDragTreeWidget *m_tree;
};

BVDragTreeWidget::BVDragTreeWidget(QWidget *parent)
    : QTreeWidget(parent)
    , m_hover(std::make_unique<RowHover>(this))
    , m_contentHeight(std::make_unique<BVTreeContentHeight>(this))
    , m_copying(std::make_unique<BVTreeCopying>(this))
{
    setObjectName(QStringLiteral("bv_dragtreewidget"));
    setFocusPolicy(Qt::StrongFocus);
    setDragDropMode(QAbstractItemView::DropOnly);
    setDragEnabled(false);
    setDropIndicatorShown(true);
    setItemDelegate(new BVItemDelegate(this));
    viewport()->setAttribute(Qt::WA_Hover);
    connect(this, &QTreeView::expanded, this, &BVDragTreeWidget::onContentChanged);
    connect(this, &QTreeView::collapsed, this, &BVDragTreeWidget::onContentChanged);
    connect(header(), &QHeaderView::geometriesChanged, this, &BVDragTreeWidget::onContentChanged);
}

BVDragTreeWidget::~BVDragTreeWidget()
{
    BVDragHost::deleteManagers(this);
    // Headers are deleted late and tell of it.
    header()->disconnect(this);
}

// Hover

QTreeWidgetItem *BVDragTreeWidget::getHoverItem() const
{
    return itemFromIndex(m_hover->index());
}

void BVDragTreeWidget::setHoverItem(QTreeWidgetItem *item, const QColor &color)
{
    if (item && item->treeWidget() != this)
        return;
    const QModelIndex index = indexFromItem(item);
    m_tintedRow = color.isValid() ? index : QModelIndex();
    m_hoverColor = color;
    if (m_hover->index() == index)
        m_hover->repaint(index);
    else
        m_hover->setIndex(index);
}

bool BVDragTreeWidget::viewportEvent(QEvent *event)
{
    const QPointer<BVDragTreeWidget> guard(this);
    m_hover->handle(event);
    return !guard || QTreeWidget::viewportEvent(event);
}

// Height of the content

void BVDragTreeWidget::onContentChanged()
{
    m_contentHeight->invalidate();
    if (m_resizable)
        updateGeometry();
}

void BVDragTreeWidget::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                   const QVector<int> &roles)
{
    if (BVTreeContentHeight::isMeasured(roles)) {
        m_contentHeight->rowsChanged(topLeft, bottomRight);
        if (m_resizable)
            updateGeometry();
    }
    QTreeWidget::dataChanged(topLeft, bottomRight, roles);
}

void BVDragTreeWidget::rowsInserted(const QModelIndex &parent, int start, int end)
{
    onContentChanged();
    QTreeWidget::rowsInserted(parent, start, end);
}

void BVDragTreeWidget::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    Q_EMIT sigRowsAboutToBeRemoved();
    onContentChanged();
    leaveBranches(parent, start, end);
    QTreeWidget::rowsAboutToBeRemoved(parent, start, end);
}

/// The toolkit's selection loses a current item below removed rows without a word.
void BVDragTreeWidget::leaveBranches(const QModelIndex &parent, int start, int end)
{
    QModelIndex row = currentIndex().parent();
    while (row.isValid() && row.parent() != parent)
        row = row.parent();
    if (!row.isValid() || row.row() < start || row.row() > end)
        return;
    const bool isLast = end + 1 >= model()->rowCount(parent);
    const QModelIndex next = model()->index(isLast ? start - 1 : end + 1, 0, parent);
    selectionModel()->setCurrentIndex(next.isValid() ? next : parent,
                                      QItemSelectionModel::NoUpdate);
}

/// Ends what changes rows: hidden ones, style, font, delegates.
void BVDragTreeWidget::doItemsLayout()
{
    onContentChanged();
    QTreeWidget::doItemsLayout();
}

/// The horizontal scroll bar may have come or gone.
void BVDragTreeWidget::updateGeometries()
{
    QTreeWidget::updateGeometries();
    const bool scrolls = horizontalScrollBar()->minimum() < horizontalScrollBar()->maximum();
    if (scrolls != m_hadHorizontalScrolling && m_resizable)
        updateGeometry();
    m_hadHorizontalScrolling = scrolls;
}

void BVDragTreeWidget::setResizable(bool resizable)
{
    m_resizable = resizable;
    updateGeometry();
}

int BVDragTreeWidget::contentHeight() const
{
    const QScrollBar *bar = horizontalScrollBar();
    const bool scrolls = bar->minimum() < bar->maximum();
    return m_contentHeight->rowsHeight(BVTreeContentHeight::Children::Expanded) +
           m_contentHeight->headerHeight() + 2 * frameWidth() +
           (scrolls ? bar->sizeHint().height() : 0);
}

QSize BVDragTreeWidget::sizeHint() const
{
    QSize size = QTreeWidget::sizeHint();
    if (m_resizable)
        size.setHeight(qMax(contentHeight(), minimumHeight()));
    return size;
}

/// A resizable tree may be as low as its content, and scrolls where a form has less space.
QSize BVDragTreeWidget::minimumSizeHint() const
{
    QSize size = QTreeWidget::minimumSizeHint();
    if (m_resizable)
        size.setHeight(qMin(size.height(), sizeHint().height()));
    return size;
}

// Current item

void BVDragTreeWidget::enableDeselection(bool enable)
{
    m_deselectionEnabled = enable;
}

QItemSelectionModel::SelectionFlags BVDragTreeWidget::selectionCommand(const QModelIndex &index,
                                                                       const QEvent *event) const
{
    const auto command = QTreeWidget::selectionCommand(index, event);
    const bool isSingle = selectionMode() == QAbstractItemView::SingleSelection;
    const bool isRelease = event && event->type() == QEvent::MouseButtonRelease;
    const bool deselects =
        isSingle ? command & QItemSelectionModel::Deselect : isRelease && !index.isValid();
    if (deselects && !m_deselectionEnabled)
        return QItemSelectionModel::NoUpdate;
    return command;
}

void BVDragTreeWidget::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex row = indexAt(event->pos()).siblingAtColumn(0);
    const bool isCurrent = row == currentIndex().siblingAtColumn(0);
    m_pressPosition = event->pos();
    m_pressedCurrent = isCurrent && selectionModel()->isSelected(row) ? row : QModelIndex();
    QTreeWidget::mousePressEvent(event);
}

void BVDragTreeWidget::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<BVDragTreeWidget> guard(this);
    const int way = (event->pos() - m_pressPosition).manhattanLength();
    QTreeWidget::mouseReleaseEvent(event);
    if (guard && m_deselectionEnabled && event->button() == Qt::LeftButton &&
        way < QApplication::startDragDistance())
        clearCurrentByClick(event);
}

void BVDragTreeWidget::clearCurrentByClick(const QMouseEvent *event)
{
    const QModelIndex row = indexAt(m_pressPosition).siblingAtColumn(0);
    if (!row.isValid() && event->modifiers() == Qt::NoModifier)
        selectionModel()->clear();
    else if (row.isValid() && event->modifiers() == Qt::ControlModifier &&
             row == m_pressedCurrent && !selectionModel()->isSelected(row))
        selectionModel()->clearCurrentIndex();
}

void BVDragTreeWidget::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex current = currentIndex();
    const bool deselects = m_deselectionEnabled && event->key() == Qt::Key_Space &&
                           event->modifiers() == Qt::ControlModifier && current.isValid() &&
                           selectionModel()->isSelected(current);
    if (!deselects) {
        QTreeWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    const QPointer<QItemSelectionModel> selection(selectionModel());
    selection->select(current, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    if (selection)
        selection->clearCurrentIndex();
}

/// The toolkit's view would make the first item current.
void BVDragTreeWidget::focusInEvent(QFocusEvent *event)
{
    if (!m_deselectionEnabled || currentIndex().isValid()) {
        QTreeWidget::focusInEvent(event);
        return;
    }
    const QSignalBlocker blocker(selectionModel());
    QTreeWidget::focusInEvent(event);
    selectionModel()->clearCurrentIndex();
}

// Moving rows

bool BVDragTreeWidget::moveItems(const QList<QTreeWidgetItem *> &items, QTreeWidgetItem *parent,
                                 int row)
{
    return !moveRows(BVTreeItemMove(items), parent, row).isEmpty();
}

/// The rows in their new places, as far as they still exist: slots may delete anything.
QList<QPersistentModelIndex> BVDragTreeWidget::moveRows(const BVTreeItemMove &move,
                                                        QTreeWidgetItem *parent, int row)
{
    if (!parent)
        parent = invisibleRootItem();
    if (parent->treeWidget() != this)
        return {};
    const QPointer<BVDragTreeWidget> guard(this);
    const bool isForeign = move.isForeignTo(this);
    const QList<QPersistentModelIndex> rows = move.execute(parent, row);
    if (rows.isEmpty() || !guard)
        return rows;
    onContentChanged(); // branches have been opened without a signal
    if (isForeign)
        selectMoved(rows);
    else
        scrollTo(rows.constFirst());
    return rows;
}

void BVDragTreeWidget::selectMoved(const QList<QPersistentModelIndex> &rows)
{
    const QPointer<QItemSelectionModel> selection(selectionModel());
    const bool isSingle = selectionMode() == QAbstractItemView::SingleSelection;
    selection->select(BVTreeItems::selectionOf(isSingle ? rows.mid(0, 1) : rows),
                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (selection && rows.constFirst().isValid())
        selection->setCurrentIndex(rows.constFirst(), QItemSelectionModel::NoUpdate);
}

QTreeWidgetItem *BVDragTreeWidget::takeItem(QTreeWidgetItem *item)
{
    if (!item || item->treeWidget() != this || item == invisibleRootItem())
        return nullptr;
    return BVTreeItems::parentOf(item)->takeChild(indexFromItem(item).row());
}

// Dragging

BVDragAndDropManager *BVDragTreeWidget::initDragAndDropManager()
{
    if (!m_dragAndDropManager)
        setDragAndDropManager(BVDragHost::makeManager(this));
    return m_dragAndDropManager;
}

void BVDragTreeWidget::setDragAndDropManager(BVDragAndDropManager *manager)
{
    const QPointer<BVDragAndDropManager> before = std::exchange(m_dragAndDropManager, manager);
    viewport()->update();
    if (before && before != manager)
        before->retire(); // may be the end of the tree
}

void BVDragTreeWidget::setDragEnabled(bool enable)
{
    QTreeWidget::setDragEnabled(enable);
    viewport()->update();
}

Qt::DropActions BVDragTreeWidget::supportedDropActions() const
{
    return Qt::IgnoreAction;
}

void BVDragTreeWidget::startDrag(Qt::DropActions) {}

void BVDragTreeWidget::setDraggingState(BVDragAndDropManager::DragState state)
{
    BVDragHost::setDraggingState(this, state, isPersistentEditorOpen(currentIndex()));
}

// Context menu

void BVDragTreeWidget::contextMenuEvent(QContextMenuEvent *event)
{
    const QPointer<BVDragTreeWidget> guard(this);
    const QPoint place = BVContextMenuPlace::of(*this, *event);
    if (guard)
        showContextMenu(place);
    event->accept();
    if (guard)
        m_hover->leave();
}

void BVDragTreeWidget::showContextMenu(const QPoint &position)
{
    m_copying->showMenu(position);
}

// Copying

TreeViewCopyHandler *BVDragTreeWidget::getCopyHandler() const
{
    return m_copying->handler();
}

void BVDragTreeWidget::enableCopyAllAction(bool enable)
{
    m_copying->enableAll(enable);
}

bool BVDragTreeWidget::isCopyAllActionEnabled() const
{
    return m_copying->isAllEnabled();
}

void BVDragTreeWidget::enableCopySelectedAction(bool enable)
{
    m_copying->enableSelected(enable);
}

bool BVDragTreeWidget::isCopySelectedActionEnabled() const
{
    return m_copying->isSelectedEnabled();
}

void BVDragTreeWidget::setSelectionModel(QItemSelectionModel *selectionModel)
{
    QTreeWidget::setSelectionModel(selectionModel);
    m_copying->selectionModelChanged();
}

// Painting

void BVDragTreeWidget::setShowTopLevelSeparator(bool show)
{
    m_topLevelSeparatorShown = show;
    viewport()->update();
}

/// A tint with a bar in front.
void BVDragTreeWidget::paintHoverTint(QPainter *painter, const QRect &row) const
{
    QColor tint = m_hoverColor;
    if (tint.alpha() == 255)
        tint.setAlpha(s_hoverAlpha);
    painter->fillRect(row, tint);
    const QRect bar(row.topLeft(), QSize(s_hoverBarWidth, row.height()));
    painter->fillRect(QStyle::visualRect(layoutDirection(), row, bar), m_hoverColor);
}

/// The tint lies under the text where the style leaves the row's background as it is.
void BVDragTreeWidget::drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    const QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
    const bool isTinted = m_tintedRow.isValid() && m_tintedRow == index.siblingAtColumn(0);
    const bool isCovered = alternatingRowColors() || selectionModel()->isSelected(index);
    if (isTinted && !isCovered)
        paintHoverTint(painter, row);
    QTreeWidget::drawRow(painter, option, index);
    if (isTinted && isCovered)
        paintHoverTint(painter, row);
    if (m_topLevelSeparatorShown && index.parent() == rootIndex() && indexAbove(index).isValid()) {
        const int color = style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this);
        painter->fillRect(QRect(row.topLeft(), QSize(row.width(), 1)),
                          QColor::fromRgba(QRgb(color)));
    }
}

/// The tint of a row goes on under its branches.
void BVDragTreeWidget::drawBranches(QPainter *painter, const QRect &rect,
                                    const QModelIndex &index) const
{
    const BVItemDelegate *delegate = BVDelegateManager::itemDelegateOf(this, index);
    if (delegate && !selectionModel()->isSelected(index))
        painter->fillRect(rect, delegate->rowTint(index));
    QTreeWidget::drawBranches(painter, rect, index);
}

void BVDragTreeWidget::paintEvent(QPaintEvent *event)
{
    {
        const BVDragHost::IndicatorHider hider(this, m_dragAndDropManager);
        QTreeWidget::paintEvent(event);
    }
    BVDragHost::paint(this, m_dragAndDropManager);
}
