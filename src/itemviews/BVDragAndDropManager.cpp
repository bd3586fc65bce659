// SPDX-License-Identifier: MIT
#include "itemviews/BVDragAndDropManager.h"

#include "foundation/MainWindow.h"
#include "foundation/RegisterDragAndDropWidgetEvent.h"
#include "itemviews/BVDragHint_p.h"
#include "itemviews/BVDragHost_p.h"
#include "itemviews/BVDragKeys_p.h"
#include "itemviews/BVDragMoves_p.h"
#include "itemviews/BVDragPixmap_p.h"
#include "itemviews/BVDragPress_p.h"
#include "itemviews/BVDragSource_p.h"
#include "itemviews/BVDropListeners_p.h"
#include "itemviews/BVDropPainter_p.h"
#include "itemviews/BVDropRules_p.h"
#include "itemviews/BVDropRun_p.h"
#include "itemviews/BVDropTarget_p.h"
#include "itemviews/BVRegisteredDropWidgets_p.h"
#include "itemviews/BVShownColumns_p.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>

using Brimvale::RegisterDragAndDropWidgetEvent;

namespace {

/// Calls what may replace the callback or delete its owner.
template <typename Callback, typename Event>
bool consumes(Callback callback, Event *event)
{
    return callback && callback(event);
}

} // namespace

BVDragAndDropManager::BVDragAndDropManager(QTreeView *view)
    : QObject(view)
    , m_treeView(view)
    , m_source(std::make_unique<BVDragSource>(this))
    , m_target(std::make_unique<BVDropTarget>(view))
    , m_hint(std::make_unique<BVDragHint>(view ? view->viewport() : nullptr))
    , m_keys(std::make_unique<BVDragKeys>(this))
    , m_press(std::make_unique<BVDragPress>())
    , m_moves(
          std::make_unique<BVDragMoves>(view, [this](QDragMoveEvent *event) { repeatMove(event); }))
    , m_dropListeners(std::make_unique<BVDropListeners>())
    , m_registered(std::make_unique<BVRegisteredDropWidgets>(this))
{
    if (!view)
        return;
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    view->viewport()->setMouseTracking(true); // the hint makes way for the pointer
    if (QWidget *mainWindow = Brimvale::mainWindow())
        mainWindow->installEventFilter(this);
}

BVDragAndDropManager::~BVDragAndDropManager()
{
    if (m_dragState != NoDrag)
        BVDragHost::tellState(getTreeView(), NoDrag);
}

BVDragAndDropManager *BVDragAndDropManager::managerOf(const QTreeView *view)
{
    return BVDragHost::managerOf(view);
}

QTreeView *BVDragAndDropManager::getTreeView() const
{
    return qobject_cast<QTreeView *>(m_treeView); // none once its destruction has begun
}

QTreeView *BVDragAndDropManager::getSecondTreeView() const
{
    return qobject_cast<QTreeView *>(m_secondTreeView);
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
    return m_dropListeners->add(listener);
}

void BVDragAndDropManager::removeDropListener(int id)
{
    m_dropListeners->remove(id);
}

// State

QModelIndexList BVDragAndDropManager::getDraggedIndexes() const
{
    return m_source->draggedIndexes();
}

QModelIndex BVDragAndDropManager::getDropIndex() const
{
    return m_target->index();
}

DropIndicatorPosition BVDragAndDropManager::getDropIndicatorPosition() const
{
    return m_target->position();
}

DragDropInfo BVDragAndDropManager::getDragAndDropInfo() const
{
    DragDropInfo info = BVDragSource::runningInfo();
    m_target->describe(&info);
    return info;
}

void BVDragAndDropManager::setDragState(DragState state)
{
    if (state == m_dragState)
        return;
    m_dragState = state;
    BVDragHost::tellState(getTreeView(), state);
    if (const auto callback = m_stateCallback)
        callback(state);
}

/// A drag is no longer over the view.
void BVDragAndDropManager::tidyUp()
{
    m_moves->forget();
    resetTarget();
    const QPointer<BVDragAndDropManager> guard(this);
    tellAutoScroll(false);
    if (guard)
        setDragState(NoDrag);
}

// Events

bool BVDragAndDropManager::eventFilter(QObject *watched, QEvent *event)
{
    const QTreeView *view = getTreeView();
    const bool isAtWork = managerOf(view) == this; // else the view dies, or has another one
    if (event->type() == RegisterDragAndDropWidgetEvent::s_customEventType) {
        const auto &registration = *static_cast<RegisterDragAndDropWidgetEvent *>(event);
        if (isAtWork || registration.deregister())
            m_registered->handle(registration);
        return false; // for other managers, too
    }
    if (!isAtWork)
        return false;
    if (watched == view)
        return handleViewEvent(event);
    if (watched == view->viewport())
        return handleViewportEvent(event);
    return false;
}

bool BVDragAndDropManager::handleViewEvent(QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::ShortcutOverride || type == QEvent::KeyPress)
        return m_keys->handle(static_cast<QKeyEvent *>(event));
    QWidget *mainWindow = type == QEvent::Show ? Brimvale::mainWindow() : nullptr;
    if (mainWindow) // there may be one only now
        mainWindow->installEventFilter(this);
    return false;
}

bool BVDragAndDropManager::handleViewportEvent(QEvent *event)
{
    const QPointer<BVDragAndDropManager> guard(this);
    if (m_press->endsDrag(event)) {
        BVDragHost::endPress(getTreeView());
        return true;
    }
    if (!getTreeView()->dragEnabled()) {
        leaveDisabled(event);
        // The view knows drags and rubber bands, too.
        return !guard || event->type() == QEvent::MouseMove;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return processMousePressEvent(static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        m_press->end();
        m_hint->finish();
        return false;
    case QEvent::MouseMove:
        processMouseMoveEvent(static_cast<QMouseEvent *>(event));
        return true;
    case QEvent::Leave:
        if (getTreeView()->isVisible() && m_hint->hasPixmap() && !m_hint->isActive())
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
    if (event->button() == Qt::LeftButton)
        m_press->end();
    if (consumes(m_mousePressedCallback, event) || !guard || !getTreeView())
        return true;
    if (event->button() == Qt::LeftButton)
        m_press->begin(getTreeView(), event);
    return false;
}

void BVDragAndDropManager::processMouseMoveEvent(QMouseEvent *event)
{
    if (getTreeView()->isEnabled())
        m_hint->updateMouseOver(event->pos());
    const QPointer<BVDragAndDropManager> guard(this);
    if (consumes(m_mouseMoveCallback, event) || !guard || !getTreeView())
        return;
    if (event->buttons() & Qt::LeftButton && m_press->becomesDrag(event))
        startDrag();
}

void BVDragAndDropManager::startDrag()
{
    const QModelIndexList rows = BVDropRules::draggableRows(getTreeView(), m_dragWholeRow);
    if (rows.isEmpty())
        return;
    m_hint->setActive();
    m_hint->startAnimation(true);
    m_press->setDragged();
    m_source->runWithMouse(rows);
}

QPixmap BVDragAndDropManager::renderToPixmap(const QModelIndexList &rows) const
{
    const QTreeView *view = getTreeView();
    if (!view || !view->model())
        return QPixmap();
    const auto callback = m_getViewOptionsCallback;
    const BVDragPixmap picture(view, callback ? callback() : BVDragPixmap::optionsOf(view));
    const QVector<int> columns = BVShownColumns::all(*view->header());
    const int first = qMax(columns.indexOf(m_dragVisualizationColumn), 0);
    return picture.renderToPixmap(rows, m_renderAllColumns ? columns : columns.mid(first, 1));
}

/// Whatever has become of it.
void BVDragAndDropManager::endDrag()
{
    m_hint->finish();
    tidyUp();
}

void BVDragAndDropManager::retire()
{
    m_press->end();
    endDrag();
}

// Dragging over

/// Dragging may have been disabled during a drag.
void BVDragAndDropManager::leaveDisabled(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        if (m_dragState != NoDrag)
            endDrag();
        break;
    default: // callbacks are not for painting
        break;
    }
}

bool BVDragAndDropManager::isAccepted(const QMimeData *mime) const
{
    if (!mime)
        return false;
    const QStringList formats = mime->formats();
    if (m_acceptedFormats.isEmpty()) {
        const BVDragSource *source = BVDragSource::running();
        return source &&
               (source->view() == getTreeView() || source->view() == getSecondTreeView()) &&
               !formats.isEmpty();
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
    if (!guard || !getTreeView())
        return;
    resetTarget();
    if (!event->isAccepted())
        return;
    m_hint->setActive();
    m_hint->updateMouseOver(event->pos());
    setDragState(Dragging);
}

QModelIndex BVDragAndDropManager::getDropTarget(const QPoint &pos) const
{
    return getTreeView() && getTreeView()->model() ? getTreeView()->indexAt(pos) : QModelIndex();
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
    const QRect rect = getTreeView() ? getTreeView()->visualRect(index) : QRect();
    return BVDropRules::advancedDropIndicatorPosition(pos, rect, index);
}

void BVDragAndDropManager::processDragMoveEvent(QDragMoveEvent *event)
{
    m_moves->note(getTreeView(), *event);
    const QPointer<BVDragAndDropManager> guard(this);
    handleMove(event);
    if (guard)
        m_moves->setRefused(m_target->isRefused());
}

/// Under a pointer at rest there is another row now. The pointer goes on to show what it did.
void BVDragAndDropManager::repeatMove(QDragMoveEvent *event)
{
    if (m_dragState != Dragging || !getTreeView())
        return;
    const QPointer<BVDragAndDropManager> guard(this);
    handleMove(event);
    if (guard && getTreeView() && m_moves->isRefused())
        m_target->setRefused(true);
}

void BVDragAndDropManager::handleMove(QDragMoveEvent *event)
{
    m_hint->updateMouseOver(event->pos());
    const QPointer<BVDragAndDropManager> guard(this);
    const bool isConsumed = consumes(m_dragMoveCallback, event);
    if (guard && getTreeView())
        m_target->setRefused(isConsumed && !event->isAccepted());
    if (guard && getTreeView() && !isConsumed)
        followDrag(event);
    if (guard && getTreeView())
        updateAutoScroll(event->pos());
}

void BVDragAndDropManager::followDrag(QDragMoveEvent *event)
{
    const QPersistentModelIndex target = getDropTarget(event->pos());
    if (!announceTarget(target, event))
        return;
    const DropIndicatorPosition position = BVDropRules::positionAt(
        getTreeView(), event->pos(), target, m_dragWholeRow, m_useMoveVisualizationLine);
    setDragAndDropTargetInfo(target, position, event->proposedAction());
    event->accept();
}

/// Tells of a new target. False if that has been the end of the view.
bool BVDragAndDropManager::announceTarget(const QModelIndex &newTarget, QDragMoveEvent *event)
{
    const QPointer<BVDragAndDropManager> guard(this);
    const QPersistentModelIndex target = newTarget;
    const QPersistentModelIndex previous = m_target->index();
    const int before = previous.column(); // -1 if there is none
    const bool isOtherAction = event->proposedAction() != m_target->action();
    if ((target.isValid() && target.column() != before) || isOtherAction)
        Q_EMIT sigDropTargetColumnChanged(target, target.column(), before, event);
    if (guard && (target != previous || isOtherAction))
        Q_EMIT sigDropTargetChanged(target, previous);
    return guard && getTreeView();
}

void BVDragAndDropManager::setDragAndDropTargetInfo(const QModelIndex &target,
                                                    DropIndicatorPosition position,
                                                    Qt::DropAction action)
{
    const QRect rect = BVDropRules::targetRect(getTreeView(), target, m_dragWholeRow);
    const bool isChanged =
        m_target->set(target, rect, position, action, m_usePreview || m_useMoveVisualizationLine);
    if (isChanged && getSecondTreeView())
        getSecondTreeView()->viewport()->update();
}

void BVDragAndDropManager::resetTarget()
{
    m_target->reset();
    if (getSecondTreeView())
        getSecondTreeView()->viewport()->update();
}

void BVDragAndDropManager::updateAutoScroll(const QPoint &pos)
{
    const QRect area = getTreeView()->viewport()->visibleRegion().boundingRect();
    tellAutoScroll(BVDropRules::isInScrollMargin(pos, area, getTreeView()->autoScrollMargin()));
}

void BVDragAndDropManager::tellAutoScroll(bool on)
{
    const auto callback = m_autoScrollCallback;
    if (callback && getTreeView() && getTreeView()->hasAutoScroll())
        callback(on);
}

void BVDragAndDropManager::processDragLeaveEvent(QDragLeaveEvent *event)
{
    const QPointer<BVDragAndDropManager> guard(this);
    consumes(m_dragLeaveCallback, event);
    const QPersistentModelIndex previous = guard ? getDropIndex() : QModelIndex();
    if (previous.isValid())
        Q_EMIT sigDropTargetChanged(QModelIndex(), previous);
    if (!guard || !getTreeView())
        return;
    if (BVDragSource::running() != m_source.get()) // else the hint stays until the drag ends
        m_hint->finish();
    tidyUp();
}

void BVDragAndDropManager::processDropEvent(QDropEvent *event)
{
    BVDropRun(this).run(event);
}

// Painting

bool BVDragAndDropManager::hasTarget() const
{
    return getTreeView() && getTreeView()->model() && getTreeView()->dragEnabled() &&
           m_target->action() != Qt::IgnoreAction && !m_target->isRefused() && !m_target->isLost();
}

void BVDragAndDropManager::paintDropTargetItemPreview(QPainter *painter)
{
    const BVDragSource *source = BVDragSource::running();
    if (m_usePreview && source && hasTarget())
        BVDropPainter(getTreeView()).paintPreview(painter, getDragAndDropInfo(), source->pixmap());
}

void BVDragAndDropManager::paintDropTargetWidgetVisualization(QPainter *painter)
{
    if (!hasTarget())
        return;
    const BVDropPainter marks(getTreeView());
    marks.paintTarget(painter, getDragAndDropInfo());
    if (m_useMoveVisualizationLine)
        marks.paintMoveLine(painter, getDragAndDropInfo());
}

void BVDragAndDropManager::paintDragAndDropInfoText(QPainter *painter)
{
    m_hint->paint(painter);
}
