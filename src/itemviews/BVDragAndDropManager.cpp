// SPDX-License-Identifier: MIT
#include "itemviews/BVDragAndDropManager.h"

#include "foundation/MainWindow.h"
#include "foundation/RegisterDragAndDropWidgetEvent.h"
#include "itemviews/BVDragHint_p.h"
#include "itemviews/BVDragHost_p.h"
#include "itemviews/BVDragPixmap_p.h"
#include "itemviews/BVDropPainter_p.h"
#include "itemviews/BVDropRules_p.h"
#include "itemviews/BVRegisteredDropWidgets_p.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

using Brimvale::RegisterDragAndDropWidgetEvent;

namespace {

constexpr QPoint s_pictureOffset(12, 12); // px, of the dragged picture from the pointer

/// Where the running drag comes from.
QPointer<BVDragAndDropManager> s_source;

/// Calls what may replace the callback or delete its owner.
template <typename Callback, typename Event>
bool consumes(Callback callback, Event *event)
{
    return callback && callback(event);
}

QList<QPersistentModelIndex> persistent(const QModelIndexList &indexes)
{
    QList<QPersistentModelIndex> list;
    for (const QModelIndex &index : indexes)
        list.append(index);
    return list;
}

QModelIndexList existing(const QList<QPersistentModelIndex> &indexes)
{
    QModelIndexList list;
    for (const QModelIndex &index : indexes) {
        if (index.isValid())
            list.append(index);
    }
    return list;
}

/// The direction in the tree of an arrow key.
BVDropRules::Direction directionOf(int key, bool rightToLeft)
{
    using Direction = BVDropRules::Direction;
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        return key == Qt::Key_Up ? Direction::Up : Direction::Down;
    return (key == Qt::Key_Right) != rightToLeft ? Direction::Inwards : Direction::Outwards;
}

bool isMoveKey(const QKeyEvent *event)
{
    static constexpr int keys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right};
    return (event->modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier &&
           std::find(std::begin(keys), std::end(keys), event->key()) != std::end(keys);
}

/// Whether the other widget is to be seen on the side of the arrow key.
bool isOnSide(const QWidget *widget, const QWidget *other, int key)
{
    if (!other->isVisible() || (key != Qt::Key_Left && key != Qt::Key_Right))
        return false;
    const int x = widget->mapToGlobal(widget->rect().center()).x();
    const int otherX = other->mapToGlobal(other->rect().center()).x();
    return key == Qt::Key_Left ? otherX < x : otherX > x;
}

/// A point that stands for the place in a cell.
QPoint pointFor(const QRect &rect, DropIndicatorPosition position)
{
    if (position == DropIndicatorPosition::AboveItem)
        return QPoint(rect.center().x(), rect.top());
    return position == DropIndicatorPosition::BelowItem ? QPoint(rect.center().x(), rect.bottom())
                                                        : rect.center();
}

} // namespace

BVDragAndDropManager::BVDragAndDropManager(QTreeView *view)
    : QObject(view)
    , m_treeView(view)
    , m_hint(std::make_unique<BVDragHint>(view ? view->viewport() : nullptr))
    , m_registered(std::make_unique<BVRegisteredDropWidgets>(this))
{
    if (!view)
        return;
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    view->viewport()->setMouseTracking(true); // the hint makes way for the pointer
    for (const QScrollBar *bar : {view->verticalScrollBar(), view->horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &BVDragAndDropManager::onScrolled);
    if (QWidget *mainWindow = Brimvale::mainWindow())
        mainWindow->installEventFilter(this);
}

BVDragAndDropManager::~BVDragAndDropManager() = default;

BVDragAndDropManager *BVDragAndDropManager::managerOf(const QTreeView *view)
{
    return BVDragHost::managerOf(view);
}

/// Another manager works for the view.
bool BVDragAndDropManager::isReplaced() const
{
    return managerOf(m_treeView) != this;
}

// Settings

QString BVDragAndDropManager::getDragAndDropInfoText() const
{
    return m_hint->text();
}

void BVDragAndDropManager::setDragAndDropInfoText(const QString &text)
{
    m_hint->setText(text);
}

void BVDragAndDropManager::addAcceptedFormat(const QString &format)
{
    if (!format.isEmpty() && !m_acceptedFormats.contains(format))
        m_acceptedFormats.append(format);
}

void BVDragAndDropManager::removeAcceptedFormat(const QString &format)
{
    m_acceptedFormats.removeAll(format);
}

int BVDragAndDropManager::addDropListener(const DropListener &listener)
{
    m_dropListeners.emplace_back(++m_lastListenerId, listener);
    return m_lastListenerId;
}

void BVDragAndDropManager::removeDropListener(int id)
{
    const auto isIt = [id](const auto &entry) { return entry.first == id; };
    m_dropListeners.erase(std::remove_if(m_dropListeners.begin(), m_dropListeners.end(), isIt),
                          m_dropListeners.end());
}

void BVDragAndDropManager::setMousePressedCallback(
    const std::function<bool(QMouseEvent *)> &callback)
{
    m_mousePressedCallback = callback;
}

void BVDragAndDropManager::setMouseMoveCallback(const std::function<bool(QMouseEvent *)> &callback)
{
    m_mouseMoveCallback = callback;
}

void BVDragAndDropManager::setDragEnterCallback(
    const std::function<bool(QDragEnterEvent *)> &callback)
{
    m_dragEnterCallback = callback;
}

void BVDragAndDropManager::setDragMoveCallback(
    const std::function<bool(QDragMoveEvent *)> &callback)
{
    m_dragMoveCallback = callback;
}

void BVDragAndDropManager::setDragLeaveCallback(
    const std::function<bool(QDragLeaveEvent *)> &callback)
{
    m_dragLeaveCallback = callback;
}

void BVDragAndDropManager::setDropCallback(const std::function<bool(QDropEvent *)> &callback)
{
    m_dropCallback = callback;
}

void BVDragAndDropManager::setStateCallback(const std::function<void(DragState)> &callback)
{
    m_stateCallback = callback;
}

void BVDragAndDropManager::setAutoScrollCallback(const std::function<void(bool)> &callback)
{
    m_autoScrollCallback = callback;
}

void BVDragAndDropManager::setGetViewOptionsCallback(
    const std::function<QStyleOptionViewItem()> &callback)
{
    m_getViewOptionsCallback = callback;
}

// State

QModelIndexList BVDragAndDropManager::getDraggedIndexes() const
{
    return existing(m_draggedIndexes);
}

DragDropInfo BVDragAndDropManager::getDragAndDropInfo() const
{
    DragDropInfo info = widgetInfo();
    info.dropIndex = m_dropIndex;
    info.dropRect = m_dropRect;
    info.position = m_dropIndicatorPosition;
    info.action = m_dropAction;
    return info;
}

/// What is dragged, without a target.
DragDropInfo BVDragAndDropManager::widgetInfo() const
{
    DragDropInfo info;
    if (s_source) {
        info.source = s_source->m_treeView;
        info.draggedIndexes = s_source->getDraggedIndexes();
    }
    return info;
}

void BVDragAndDropManager::setDragState(DragState state)
{
    if (state == m_dragState)
        return;
    m_dragState = state;
    BVDragHost::tellState(m_treeView, state);
    if (const auto callback = m_stateCallback)
        callback(state);
}

/// A drag is no longer over the view.
void BVDragAndDropManager::tidyUp()
{
    m_expandTimer.stop();
    m_lastMove = LastMove();
    if (m_treeView)
        m_treeView->viewport()->update();
    tellAutoScroll(false);
    setDragState(NoDrag);
}

// Events

bool BVDragAndDropManager::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == RegisterDragAndDropWidgetEvent::s_customEventType) {
        m_registered->handle(*static_cast<RegisterDragAndDropWidgetEvent *>(event));
        return watched == m_treeView;
    }
    if (!m_treeView || isReplaced())
        return false;
    if (watched == m_treeView)
        return handleViewEvent(event);
    if (watched == m_treeView->viewport())
        return handleViewportEvent(event);
    return s_source == this && m_registered->handle(watched, event, widgetInfo());
}

bool BVDragAndDropManager::handleViewEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        return handleKey(static_cast<QKeyEvent *>(event));
    case QEvent::Show: // there may be a main window only now
        if (QWidget *mainWindow = Brimvale::mainWindow())
            mainWindow->installEventFilter(this);
        return false;
    default:
        return false;
    }
}

bool BVDragAndDropManager::handleViewportEvent(QEvent *event)
{
    if (!m_treeView->dragEnabled())
        return event->type() == QEvent::MouseMove; // the view knows drags and rubber bands, too
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return processMousePressEvent(static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        m_isPressed = false;
        m_hint->setActive(false);
        m_hint->startAnimation(false);
        return false;
    case QEvent::MouseMove:
        processMouseMoveEvent(static_cast<QMouseEvent *>(event));
        return true;
    case QEvent::Leave:
        if (m_treeView->isVisible() && m_hint->hasPixmap() && !m_hint->isActive())
            m_hint->startAnimation(false);
        return false;
    case QEvent::DragEnter:
        processDragEnterEvent(static_cast<QDragEnterEvent *>(event));
        return true;
    case QEvent::DragMove:
        processDragMoveEvent(static_cast<QDragMoveEvent *>(event));
        return true;
    case QEvent::DragLeave:
        processDragLeaveEvent(static_cast<QDragLeaveEvent *>(event));
        return true;
    case QEvent::Drop:
        processDropEvent(static_cast<QDropEvent *>(event));
        return true;
    case QEvent::ToolTip:
        m_hint->startAnimation(true);
        return false;
    default:
        return false;
    }
}

// Dragging out

bool BVDragAndDropManager::processMousePressEvent(QMouseEvent *event)
{
    const QPointer<BVDragAndDropManager> guard(this);
    if (consumes(m_mousePressedCallback, event))
        return true;
    if (guard && event->button() == Qt::LeftButton) {
        m_pressPosition = event->pos();
        m_isPressed = true;
    }
    return !guard;
}

void BVDragAndDropManager::processMouseMoveEvent(QMouseEvent *event)
{
    if (m_treeView->isEnabled())
        m_hint->updateMouseOver(event->pos());
    const QPointer<BVDragAndDropManager> guard(this);
    if (consumes(m_mouseMoveCallback, event) || !guard || !m_treeView)
        return;
    const QItemSelectionModel *selection = m_treeView->selectionModel();
    if (!(event->buttons() & Qt::LeftButton) || !m_treeView->model() || !selection ||
        !selection->hasSelection() || !m_isPressed)
        return;
    // One pixel earlier than the toolkit.
    if ((m_pressPosition - event->pos()).manhattanLength() < QApplication::startDragDistance() - 1)
        return;
    m_isPressed = false;
    const QModelIndexList rows = draggableRows();
    if (!rows.isEmpty())
        runDrag(rows);
}

/// The selected rows that may be dragged, from top to bottom.
QModelIndexList BVDragAndDropManager::draggableRows() const
{
    const QItemSelectionModel *selection = m_treeView->selectionModel();
    if (!selection)
        return {};
    QModelIndexList selected = selection->selectedRows();
    if (m_dragWholeRow) {
        for (const QModelIndex &cell : selection->selectedIndexes())
            selected.append(cell.sibling(cell.row(), 0));
    }
    QModelIndexList rows;
    for (const QModelIndex &row : BVDropRules::inTreeOrder(selected)) {
        if (row.flags() & Qt::ItemIsDragEnabled && (rows.isEmpty() || rows.constLast() != row))
            rows.append(row);
    }
    return rows;
}

QPixmap BVDragAndDropManager::renderToPixmap(const QModelIndexList &rows) const
{
    if (!m_treeView || !m_treeView->model())
        return QPixmap();
    QStyleOptionViewItem option;
    option.initFrom(m_treeView);
    option.font = m_treeView->font();
    option.decorationSize = m_treeView->iconSize();
    if (const auto callback = m_getViewOptionsCallback)
        option = callback();
    QVector<int> columns = BVDragPixmap::visibleColumns(m_treeView);
    if (m_dragVisualizationColumn >= 0 && !m_renderAllColumns)
        columns = {m_dragVisualizationColumn};
    return BVDragPixmap(m_treeView, option)
        .renderToPixmap(rows, m_renderAllColumns ? columns : columns.mid(0, 1));
}

/// Lets the owner fill the mime data. False if that has been the end of the manager.
bool BVDragAndDropManager::prepareDrag(const QModelIndexList &rows, QMimeData &mime,
                                       QPixmap &pixmap)
{
    const QPointer<BVDragAndDropManager> guard(this);
    const QList<QPersistentModelIndex> kept = persistent(rows);
    QModelIndexList dragged;
    Q_EMIT sigPrepareDrag(rows, mime, pixmap, dragged);
    if (!guard || !m_treeView)
        return false;
    m_draggedIndexes = dragged.isEmpty() ? kept : persistent(dragged);
    m_dragPixmap = pixmap;
    return true;
}

void BVDragAndDropManager::runDrag(const QModelIndexList &rows)
{
    const QPointer<BVDragAndDropManager> guard(this);
    auto mime = std::make_unique<QMimeData>();
    QPixmap pixmap = renderToPixmap(rows);
    if (!prepareDrag(rows, *mime, pixmap))
        return;
    auto *drag = new QDrag(m_treeView);
    drag->setParent(nullptr); // the toolkit deletes it, also when the view dies meanwhile
    connect(m_treeView, &QObject::destroyed, drag, [] { QDrag::cancel(); });
    drag->setMimeData(mime.release());
    drag->setPixmap(pixmap);
    drag->setHotSpot(-s_pictureOffset);
    m_hint->setActive(true);
    m_hint->startAnimation(true);
    s_source = this;
    drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction);
    s_source = nullptr;
    if (guard)
        endDrag();
}

/// Whatever has become of it.
void BVDragAndDropManager::endDrag()
{
    m_draggedIndexes.clear();
    m_dragPixmap = QPixmap();
    m_hint->setActive(false);
    m_hint->startAnimation(false);
    resetTarget();
    tidyUp();
}

// Dragging over

bool BVDragAndDropManager::isAccepted(const QMimeData *mime) const
{
    if (!mime)
        return false;
    const QStringList formats = mime->formats();
    if (m_acceptedFormats.isEmpty()) {
        const QTreeView *source = s_source ? s_source->getTreeView() : nullptr;
        return source && (source == m_treeView || source == m_secondTreeView) && !formats.isEmpty();
    }
    return std::any_of(formats.begin(), formats.end(), [this](const QString &format) {
        return m_acceptedFormats.contains(format);
    });
}

void BVDragAndDropManager::processDragEnterEvent(QDragEnterEvent *event)
{
    const QPointer<BVDragAndDropManager> guard(this);
    if (!consumes(m_dragEnterCallback, event) && guard)
        event->setAccepted(isAccepted(event->mimeData()));
    if (!guard || !m_treeView)
        return;
    resetTarget();
    if (!event->isAccepted())
        return;
    m_hint->setActive(true);
    m_hint->updateMouseOver(event->pos());
    setDragState(Dragging);
}

QModelIndex BVDragAndDropManager::getDropTarget(const QPoint &pos) const
{
    return m_treeView && m_treeView->model() ? m_treeView->indexAt(pos) : QModelIndex();
}

QRect BVDragAndDropManager::targetRect(const QModelIndex &target) const
{
    const QRect cell = m_treeView->visualRect(target);
    if (!m_dragWholeRow || !cell.isValid())
        return cell;
    const QRect area = m_treeView->viewport()->rect();
    return QRect(QPoint(area.left(), cell.top()), QPoint(area.right(), cell.bottom()));
}

DropIndicatorPosition BVDragAndDropManager::dropIndicatorPosition(const QPoint &pos,
                                                                  const QRect &rect,
                                                                  const QModelIndex &index)
{
    return BVDropRules::dropIndicatorPosition(pos, rect, index);
}

DropIndicatorPosition
BVDragAndDropManager::advancedDropIndicatorPosition(const QPoint &pos,
                                                    const QModelIndex &index) const
{
    const QRect rect = m_treeView ? m_treeView->visualRect(index) : QRect();
    return BVDropRules::advancedDropIndicatorPosition(pos, rect, index);
}

void BVDragAndDropManager::processDragMoveEvent(QDragMoveEvent *event)
{
    m_hint->updateMouseOver(event->pos());
    m_lastMove = {event->pos(), event->possibleActions(), event->mimeData()};
    const QPointer<BVDragAndDropManager> guard(this);
    if (!consumes(m_dragMoveCallback, event) && guard && m_treeView)
        followDrag(event);
    if (guard && m_treeView)
        updateAutoScroll(event->pos());
}

void BVDragAndDropManager::followDrag(QDragMoveEvent *event)
{
    const QPersistentModelIndex target = getDropTarget(event->pos());
    if (!announceTarget(target, event))
        return;
    const QRect rect = targetRect(target);
    const DropIndicatorPosition position =
        m_useMoveVisualizationLine ? advancedDropIndicatorPosition(event->pos(), target)
        : target.isValid()         ? dropIndicatorPosition(event->pos(), rect, target)
                                   : DropIndicatorPosition::OnViewport;
    setDragAndDropTargetInfo(target, position, event->proposedAction());
    event->accept();
}

/// Tells of a new target. False if that has been the end of the view.
bool BVDragAndDropManager::announceTarget(const QModelIndex &newTarget, QDragMoveEvent *event)
{
    const QPointer<BVDragAndDropManager> guard(this);
    const QPersistentModelIndex target = newTarget;
    const int before = m_dropIndex.isValid() ? m_dropIndex.column() : -1;
    const bool isOtherAction = event->proposedAction() != m_dropAction;
    if ((target.isValid() && target.column() != before) || isOtherAction)
        Q_EMIT sigDropTargetColumnChanged(target, target.column(), before, event);
    if (guard && (target != m_dropIndex || isOtherAction))
        Q_EMIT sigDropTargetChanged(target, m_dropIndex);
    return guard && m_treeView;
}

void BVDragAndDropManager::setDragAndDropTargetInfo(const QModelIndex &target,
                                                    DropIndicatorPosition position,
                                                    Qt::DropAction action)
{
    const bool isSameTarget = target == m_dropIndex && action == m_dropAction;
    if (isSameTarget && position == m_dropIndicatorPosition)
        return;
    const BVDropPainter marks(m_treeView);
    const QRect before =
        m_dropRect.isNull() ? QRect() : m_dropRect | marks.targetRect(getDragAndDropInfo());
    m_dropIndex = target;
    m_dropAction = action;
    m_dropRect = targetRect(target);
    m_dropIndicatorPosition = position;
    updateTarget(before);
    if (isSameTarget)
        return;
    m_expandTimer.stop();
    if (target.isValid() && m_treeView->autoExpandDelay() >= 0)
        m_expandTimer.start(m_treeView->autoExpandDelay(), this);
}

/// Repaints what has shown the target and what is to show it.
void BVDragAndDropManager::updateTarget(const QRect &before)
{
    const bool isWide = m_usePreview || m_useMoveVisualizationLine;
    if (isWide || before.isNull() || m_dropRect.isNull()) {
        m_treeView->viewport()->update();
    } else {
        const QRect now = BVDropPainter(m_treeView).targetRect(getDragAndDropInfo());
        m_treeView->viewport()->update((before | m_dropRect | now).adjusted(0, 0, 1, 1));
    }
    if (m_secondTreeView)
        m_secondTreeView->viewport()->update();
}

void BVDragAndDropManager::resetTarget()
{
    m_dropIndex = QPersistentModelIndex();
    m_dropRect = QRect();
    m_dropIndicatorPosition = DropIndicatorPosition::OnViewport;
    m_dropAction = Qt::IgnoreAction;
    if (m_treeView)
        updateTarget(QRect());
}

/// Under a pointer at rest there is another row now.
void BVDragAndDropManager::onScrolled()
{
    if (m_dragState != Dragging || !m_lastMove.mime || !m_treeView)
        return;
    QDragMoveEvent again(m_lastMove.pos, m_lastMove.actions, m_lastMove.mime, Qt::LeftButton,
                         QApplication::keyboardModifiers());
    processDragMoveEvent(&again);
}

void BVDragAndDropManager::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_expandTimer.timerId())
        return;
    m_expandTimer.stop();
    if (m_treeView && m_dropIndex.isValid())
        m_treeView->expand(m_dropIndex.sibling(m_dropIndex.row(), 0));
}

void BVDragAndDropManager::updateAutoScroll(const QPoint &pos)
{
    const QRect area = m_treeView->viewport()->visibleRegion().boundingRect();
    tellAutoScroll(BVDropRules::isInScrollMargin(pos, area, m_treeView->autoScrollMargin()));
}

void BVDragAndDropManager::tellAutoScroll(bool on)
{
    const auto callback = m_autoScrollCallback;
    if (callback && m_treeView && m_treeView->hasAutoScroll())
        callback(on);
}

void BVDragAndDropManager::processDragLeaveEvent(QDragLeaveEvent *event)
{
    const QPointer<BVDragAndDropManager> guard(this);
    consumes(m_dragLeaveCallback, event);
    if (!guard || !m_treeView)
        return;
    const QPersistentModelIndex before = m_dropIndex;
    resetTarget();
    if (s_source != this) { // else the hint stays until the end of the drag
        m_hint->setActive(false);
        m_hint->startAnimation(false);
    }
    tidyUp();
    if (guard && before.isValid())
        Q_EMIT sigDropTargetChanged(QModelIndex(), before);
}

// Dropping

void BVDragAndDropManager::processDropEvent(QDropEvent *event)
{
    const QPointer<BVDragAndDropManager> guard(this);
    m_hint->setActive(false);
    m_hint->startAnimation(false);
    if (!consumes(m_dropCallback, event) && guard) {
        event->accept();
        const DragDropInfo info = getDragAndDropInfo();
        Q_EMIT sigDropEvent(event);
        if (guard) {
            resetTarget();
            notifyListeners(info);
        }
    }
    if (s_source)
        s_source->m_draggedIndexes.clear();
    if (!guard)
        return;
    m_draggedIndexes.clear();
    tidyUp();
}

/// Listeners may remove rows and themselves.
void BVDragAndDropManager::notifyListeners(DragDropInfo info)
{
    const auto refreshed = [this, &info] {
        info.draggedIndexes = widgetInfo().draggedIndexes;
        return info;
    };
    const QPointer<BVDragAndDropManager> guard(this);
    const auto listeners = m_dropListeners;
    for (const auto &listener : listeners) {
        const auto isIt = [&listener](const auto &entry) { return entry.first == listener.first; };
        if (std::any_of(m_dropListeners.begin(), m_dropListeners.end(), isIt) && listener.second)
            listener.second(refreshed());
        if (!guard)
            return;
    }
    m_registered->notify(refreshed);
}

// Keyboard

bool BVDragAndDropManager::handleKey(QKeyEvent *event)
{
    if (!isMoveKey(event) || !m_treeView->dragEnabled())
        return false;
    const QModelIndexList rows = draggableRows();
    if (rows.isEmpty())
        return false;
    event->accept();
    if (event->type() == QEvent::KeyPress)
        moveByKey(rows, event->key());
    return true;
}

void BVDragAndDropManager::moveByKey(const QModelIndexList &rows, int key)
{
    if (s_source)
        return; // a drag is running
    auto target =
        BVDropRules::keyTarget(m_treeView, rows, directionOf(key, m_treeView->isRightToLeft()));
    QPointer<BVDragAndDropManager> manager(this);
    if (!target.isValid && m_secondTreeView && isOnSide(m_treeView, m_secondTreeView, key)) {
        manager = managerOf(m_secondTreeView);
        target.index = m_secondTreeView->currentIndex();
        target.position = target.index.isValid() ? DropIndicatorPosition::BelowItem
                                                 : DropIndicatorPosition::OnViewport;
        target.isValid = true;
    }
    if (!target.isValid || !manager)
        return;
    const QPointer<BVDragAndDropManager> guard(this);
    QMimeData mime;
    QPixmap pixmap = renderToPixmap(rows);
    if (!prepareDrag(rows, mime, pixmap))
        return;
    s_source = this;
    if (manager)
        manager->dropByKey(target.index, target.position, &mime);
    s_source = nullptr;
    if (guard)
        endDrag();
}

void BVDragAndDropManager::dropByKey(const QModelIndex &index, DropIndicatorPosition position,
                                     QMimeData *mime)
{
    if (!m_treeView || !m_treeView->dragEnabled())
        return;
    const QPointer<BVDragAndDropManager> guard(this);
    const QPersistentModelIndex target(index);
    m_treeView->scrollTo(target);
    const QPoint pos = target.isValid() ? pointFor(m_treeView->visualRect(target), position)
                                        : m_treeView->viewport()->rect().bottomLeft();
    QDragEnterEvent enter(pos, Qt::MoveAction, mime, Qt::NoButton, Qt::NoModifier);
    processDragEnterEvent(&enter);
    if (!guard || !m_treeView || !enter.isAccepted())
        return;
    QDragMoveEvent move(pos, Qt::MoveAction, mime, Qt::NoButton, Qt::NoModifier);
    const bool isConsumed = consumes(m_dragMoveCallback, &move);
    if (!guard || !m_treeView)
        return;
    const bool isRefused = isConsumed && !move.isAccepted();
    if (!isRefused && announceTarget(target, &move)) {
        setDragAndDropTargetInfo(target, position, Qt::MoveAction);
        QDropEvent drop(pos, Qt::MoveAction, mime, Qt::NoButton, Qt::NoModifier);
        processDropEvent(&drop);
    } else if (guard && m_treeView) {
        QDragLeaveEvent leave;
        processDragLeaveEvent(&leave);
    }
}

// Painting

void BVDragAndDropManager::paintDropTargetItemPreview(QPainter *painter)
{
    if (m_usePreview && m_treeView && m_treeView->model() && m_dropAction != Qt::IgnoreAction &&
        s_source)
        BVDropPainter(m_treeView)
            .paintPreview(painter, getDragAndDropInfo(), s_source->m_dragPixmap);
}

void BVDragAndDropManager::paintDropTargetWidgetVisualization(QPainter *painter)
{
    if (!m_treeView || !m_treeView->model() || m_dropAction == Qt::IgnoreAction)
        return;
    const BVDropPainter marks(m_treeView);
    const DragDropInfo info = getDragAndDropInfo();
    marks.paintTarget(painter, info);
    if (m_useMoveVisualizationLine)
        marks.paintMoveLine(painter, info);
}

void BVDragAndDropManager::paintDragAndDropInfoText(QPainter *painter)
{
    m_hint->paint(painter);
}
