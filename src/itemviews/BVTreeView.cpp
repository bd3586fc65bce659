// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeView.h"

#include "itemviews/BVCellHover_p.h"
#include "itemviews/BVContextMenuPlace_p.h"
#include "itemviews/BVCustomHeaderView.h"
#include "itemviews/BVDelegateManager.h"
#include "itemviews/BVDragHost_p.h"
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVRowWalk_p.h"
#include "itemviews/BVTreeContentHeight_p.h"
#include "itemviews/BVTreeCopying_p.h"
#include "itemviews/BVTreeEditController_p.h"
#include "itemviews/BVTreeGrid_p.h"
#include "itemviews/BVTreeHeaderChecks_p.h"
#include "itemviews/BVTreeModelLink_p.h"
#include "itemviews/BVTreeSizeHint_p.h"
#include "itemviews/BVTreeVisibleRows_p.h"
#include "platform/PropertyChangeFilter.h"

#include <QContextMenuEvent>
#include <QPainter>
#include <QScrollBar>

#include <utility>

BVTreeView::BVTreeView(QWidget *parent)
    : QTreeView(parent)
    , m_editController(std::make_unique<BVTreeEditController>(this))
    , m_hover(std::make_unique<BVCellHover>(this))
    , m_contentHeight(std::make_unique<BVTreeContentHeight>(this))
    , m_copying(std::make_unique<BVTreeCopying>(this))
    , m_headerChecks(std::make_unique<BVTreeHeaderChecks>(this))
    , m_visibleRows(std::make_unique<BVTreeVisibleRows>(this))
    , m_modelLink(std::make_unique<BVTreeModelLink>(this))
{
    setObjectName(QStringLiteral("bv_treeview"));
    setDragDropMode(QAbstractItemView::DropOnly);
    setDragEnabled(false);
    setDropIndicatorShown(true);
    setItemDelegate(new BVItemDelegate(this));
    viewport()->setAttribute(Qt::WA_Hover);
    m_modelLink->m_onRowsChanged = [this] { onStructureChanged(); };
    m_modelLink->m_onOrderChanged = [this] { updateCheckStateHeader(); };
    connect(this, &QTreeView::expanded, this, &BVTreeView::onExpandChanged);
    connect(this, &QTreeView::collapsed, this, &BVTreeView::onExpandChanged);
    connectHeader();
}

BVTreeView::~BVTreeView()
{
    BVDragHost::deleteManagers(this);
    // Headers are deleted late and tell of it.
    header()->disconnect(this);
}

// Model

void BVTreeView::setModel(QAbstractItemModel *model)
{
    if (model == this->model())
        return;
    const QPointer<BVTreeView> guard(this);
    m_hover->setIndex(QModelIndex());
    if (!guard)
        return;
    m_modelLink->detach();
    QTreeView::setModel(model);
    m_modelLink->attach();
    onStructureChanged();
}

void BVTreeView::onStructureChanged()
{
    onContentChanged();
    m_headerChecks->retryHeaderData();
    updateCheckStateHeader();
}

void BVTreeView::setSelectionModel(QItemSelectionModel *selectionModel)
{
    QTreeView::setSelectionModel(selectionModel);
    m_copying->selectionModelChanged();
    viewport()->update();
}

void BVTreeView::addDataListener(BVTreeViewDataListener *listener)
{
    m_modelLink->addListener(listener);
}

void BVTreeView::removeDataListener(BVTreeViewDataListener *listener)
{
    m_modelLink->removeListener(listener);
}

void BVTreeView::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                             const QVector<int> &roles)
{
    if (!m_modelLink->notifyListeners(topLeft, bottomRight, roles))
        return; // and the structure is laid out anew
    if (roles.isEmpty() || roles.contains(Qt::CheckStateRole))
        updateCheckStateHeader();
    if (m_headerChecks->isWriting() && roles == QVector<int>{Qt::CheckStateRole})
        return; // all is painted anew afterwards
    const bool isMeasured = BVTreeContentHeight::isMeasured(roles);
    if (isMeasured) {
        m_contentHeight->rowsChanged(topLeft, bottomRight);
        updateGeometryIfResizable();
    }
    m_visibleRows->onDataChanged(topLeft, bottomRight, roles, isMeasured);
}

void BVTreeView::rowsInserted(const QModelIndex &parent, int start, int end)
{
    onContentChanged();
    QTreeView::rowsInserted(parent, start, end);
}

void BVTreeView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    onContentChanged();
    QTreeView::rowsAboutToBeRemoved(parent, start, end);
}

int BVTreeView::getDFSIndex(const QModelIndex &index) const
{
    return index.model() == model() ? BVRowWalk::positionOf(index) : -1;
}

QModelIndex BVTreeView::indexFromDFSIndex(int position) const
{
    return BVRowWalk::rowAt(model(), position);
}

// Height of the content

void BVTreeView::updateGeometryIfResizable()
{
    if (m_resizable)
        updateGeometry();
}

void BVTreeView::onContentChanged()
{
    m_contentHeight->invalidate();
    updateGeometryIfResizable();
}

void BVTreeView::onExpandChanged()
{
    if (m_adjustOnChildItems)
        m_contentHeight->invalidate();
    updateGeometryIfResizable();
}

/// Ends what changes rows: hidden ones, style, font, delegates.
void BVTreeView::doItemsLayout()
{
    onContentChanged();
    m_visibleRows->clear();
    QTreeView::doItemsLayout();
}

void BVTreeView::updateGeometries()
{
    m_visibleRows->settle();
    QTreeView::updateGeometries();
    const bool scrolls = horizontalScrollBar()->minimum() < horizontalScrollBar()->maximum();
    if (scrolls == m_hadHorizontalScrolling)
        return;
    m_hadHorizontalScrolling = scrolls;
    updateGeometryIfResizable();
}

void BVTreeView::setResizable(bool resizable)
{
    m_resizable = resizable;
    updateGeometry();
}

void BVTreeView::setSpaceToAdd(int rows)
{
    if (rows == m_spaceToAdd)
        return;
    m_spaceToAdd = rows;
    updateGeometryIfResizable();
}

void BVTreeView::setMinimumResizableHeight(int height)
{
    m_minimumResizableHeight = height;
    updateGeometryIfResizable();
}

void BVTreeView::setCustomFixedHeight(int height)
{
    m_customFixedHeight = height;
    updateGeometryIfResizable();
}

void BVTreeView::setAdjustOnChildItems(bool adjust)
{
    m_adjustOnChildItems = adjust;
    updateGeometryIfResizable();
}

void BVTreeView::setOnlyAdjustOnTopLevelItems(bool adjust)
{
    m_onlyAdjustOnTopLevelItems = adjust;
    updateGeometryIfResizable();
}

int BVTreeView::calculateRowHeight(const QModelIndex &parent) const
{
    return BVTreeSizeHint(this, m_contentHeight.get()).rowsHeight(parent);
}

int BVTreeView::calculateHeight() const
{
    return BVTreeSizeHint(this, m_contentHeight.get()).contentHeight();
}

QSize BVTreeView::sizeHint() const
{
    return BVTreeSizeHint(this, m_contentHeight.get()).preferred(QTreeView::sizeHint());
}

QSize BVTreeView::minimumSizeHint() const
{
    return BVTreeSizeHint(this, m_contentHeight.get()).minimum(QTreeView::minimumSizeHint());
}

// Header

void BVTreeView::connectHeader()
{
    connect(header(), &QHeaderView::geometriesChanged, this, &BVTreeView::headerChanged);
    connect(header(), &QHeaderView::sectionResized, this,
            [this](int, int before, int after) { onSectionResized(before, after); });
}

void BVTreeView::headerChanged()
{
    updateGeometryIfResizable();
}

/// Hidden columns add nothing to the heights of rows.
void BVTreeView::onSectionResized(int before, int after)
{
    if (before == 0 || after == 0)
        onContentChanged();
}

void BVTreeView::setHeader(QHeaderView *header)
{
    if (!header || header == this->header())
        return;
    const bool isHidden = this->header()->isHidden();
    QTreeView::setHeader(header);
    header->setHidden(isHidden);
    connectHeader();
    if (m_headerChecks->header()) {
        m_paintHeaderSelection = true;
        m_headerChecks->adoptHeader();
    }
    PropertyChangeFilter::repolish(header);
    onContentChanged();
}

void BVTreeView::useCheckStateHeader(int column, Qt::Alignment alignment)
{
    m_headerChecks->showBox(column, alignment);
}

void BVTreeView::setCheckBoxVisible(bool visible, int column)
{
    m_headerChecks->setBoxVisible(column, visible);
}

bool BVTreeView::setCheckBoxChecked(bool checked, int column)
{
    return m_headerChecks->setBoxChecked(checked, column);
}

void BVTreeView::setCheckStateBulk(const QList<QModelIndex> &indexes, int column, bool checked)
{
    m_headerChecks->write(indexes, column, boolToCheckState(checked));
}

Qt::CheckState BVTreeView::boolToCheckState(bool checked)
{
    return checked ? Qt::Checked : Qt::Unchecked;
}

void BVTreeView::updateCheckStateHeader()
{
    m_headerChecks->scheduleUpdate();
}

// Editing and selecting

bool BVTreeView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    return m_editController->edit(index, trigger, event);
}

void BVTreeView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    m_editController->closeEditor(editor, hint);
}

bool BVTreeView::isEditingState() const
{
    return m_editController->isEditing();
}

bool BVTreeView::isEditingPrevented(const QModelIndex &index) const
{
    const BVItemDelegate *delegate = BVDelegateManager::itemDelegateOf(this, index);
    return delegate && !delegate->isEditable(index);
}

void BVTreeView::enableDeselection(bool enable)
{
    m_editController->enableDeselection(enable);
}

QItemSelectionModel::SelectionFlags BVTreeView::selectionCommand(const QModelIndex &index,
                                                                 const QEvent *event) const
{
    return m_editController->selectionCommand(index, event);
}

void BVTreeView::updateIndexSelection(const QModelIndex &index)
{
    if (!selectionModel() || !index.isValid() || index.model() != model())
        return;
    const bool keeps = selectionModel()->isSelected(index);
    selectionModel()->setCurrentIndex(
        index, keeps ? QItemSelectionModel::SelectionFlags(QItemSelectionModel::NoUpdate)
                     : m_editController->soleSelection());
}

/// The rows of the selection keep their colour while an editor has the focus.
QStyleOptionViewItem BVTreeView::viewOptions() const
{
    QStyleOptionViewItem option = QTreeView::viewOptions();
    if (isEditingState())
        option.state |= QStyle::State_Active;
    return option;
}

// Mouse

QModelIndex BVTreeView::getHoverItem() const
{
    return m_hover->index();
}

void BVTreeView::setHoverItem(const QModelIndex &index)
{
    if (!index.isValid() || index.model() == model())
        m_hover->setIndex(index);
}

bool BVTreeView::viewportEvent(QEvent *event)
{
    const QPointer<BVTreeView> guard(this);
    m_hover->handle(event);
    return !guard || QTreeView::viewportEvent(event);
}

void BVTreeView::setAutoscroll(bool on)
{
    if (on)
        startAutoScroll();
    else
        stopAutoScroll();
}

// Where rows are, with the heights that they have now

QRect BVTreeView::visualRect(const QModelIndex &index) const
{
    m_visibleRows->settle();
    return QTreeView::visualRect(index);
}

QModelIndex BVTreeView::indexAt(const QPoint &point) const
{
    m_visibleRows->settle();
    return QTreeView::indexAt(point);
}

QModelIndex BVTreeView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    m_visibleRows->settle();
    return QTreeView::moveCursor(action, modifiers);
}

/// Who wants to see the end gets there, also if the last rows have grown.
void BVTreeView::scrollContentsBy(int dx, int dy)
{
    QScrollBar *bar = verticalScrollBar();
    const bool isAtEnd = bar->value() == bar->maximum();
    const bool isMoved = dy != 0 && m_visibleRows->settle();
    if (isMoved && isAtEnd)
        bar->setValue(bar->maximum());
    QTreeView::scrollContentsBy(dx, dy);
    if (isMoved)
        viewport()->update();
}

void BVTreeView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    m_visibleRows->settle();
    if (!m_verticalScrollingOnly) {
        QTreeView::scrollTo(index, hint);
        return;
    }
    executeDelayedItemsLayout();
    const int before = horizontalScrollBar()->value();
    QTreeView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(before);
}

void BVTreeView::setVerticalScrollingOnly(bool only)
{
    m_verticalScrollingOnly = only;
}

void BVTreeView::contextMenuEvent(QContextMenuEvent *event)
{
    const QPointer<BVTreeView> guard(this);
    const QPoint place = BVContextMenuPlace::of(*this, *event);
    if (guard)
        showContextMenu(place);
    event->accept();
    if (guard)
        m_hover->leave();
}

void BVTreeView::showContextMenu(const QPoint &position)
{
    m_copying->showMenu(position);
}

// Copying

TreeViewCopyHandler *BVTreeView::getCopyHandler() const
{
    return m_copying->handler();
}

void BVTreeView::enableCopyAllAction(bool enable)
{
    m_copying->enableAll(enable);
}

bool BVTreeView::isCopyAllActionEnabled() const
{
    return m_copying->isAllEnabled();
}

void BVTreeView::enableCopySelectedAction(bool enable)
{
    m_copying->enableSelected(enable);
}

bool BVTreeView::isCopySelectedActionEnabled() const
{
    return m_copying->isSelectedEnabled();
}

// Drag and drop

void BVTreeView::setDragAndDropManager(BVDragAndDropManager *manager)
{
    const QPointer<BVDragAndDropManager> before = std::exchange(m_dragAndDropManager, manager);
    viewport()->update();
    if (before && before != manager)
        before->retire(); // may be the end of the view
}

BVDragAndDropManager *BVTreeView::initDragAndDropManager()
{
    if (!m_dragAndDropManager)
        setDragAndDropManager(BVDragHost::makeManager(this));
    return m_dragAndDropManager;
}

void BVTreeView::setDragEnabled(bool enable)
{
    QTreeView::setDragEnabled(enable);
    viewport()->update();
}

void BVTreeView::setDraggingState(BVDragAndDropManager::DragState state)
{
    BVDragHost::setDraggingState(this, state, isEditingState());
}

void BVTreeView::endPress()
{
    m_editController->endPress();
}

// Painting

/// The tint of a row goes on under its branches.
void BVTreeView::drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const
{
    const BVItemDelegate *delegate = BVDelegateManager::itemDelegateOf(this, index);
    if (delegate && !(selectionModel() && selectionModel()->isSelected(index)))
        painter->fillRect(rect, delegate->rowTint(index));
    QTreeView::drawBranches(painter, rect, index);
}

void BVTreeView::setShowGrid(bool show, bool columns)
{
    m_showGrid = show;
    m_gridSecondFlag = columns;
    viewport()->update();
}

void BVTreeView::setPaintHeaderSelection(bool paint)
{
    m_paintHeaderSelection = paint;
    viewport()->update();
}

void BVTreeView::paintEvent(QPaintEvent *event)
{
    executeDelayedItemsLayout();
    m_visibleRows->settleSight();
    const BVCustomHeaderView *custom = m_headerChecks->header();
    const int column = m_paintHeaderSelection && custom ? custom->focusedCheckBox() : -1;
    BVTreeGrid(this).paint(column);
    {
        const BVDragHost::IndicatorHider hider(this, m_dragAndDropManager);
        QTreeView::paintEvent(event);
    }
    BVDragHost::paint(this, m_dragAndDropManager);
}
