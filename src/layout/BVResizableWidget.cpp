// SPDX-License-Identifier: MIT
#include "layout/BVResizableWidget.h"

#include "foundation/MainWindow.h"
#include "layout/BVPanelDrag_p.h"
#include "layout/BVPanelFloat_p.h"
#include "layout/BVPanelGeometry_p.h"
#include "layout/BVPanelHandles_p.h"
#include "layout/BVPanelRegistration_p.h"
#include "layout/BVPanelScroll_p.h"
#include "layout/BVPanelState_p.h"
#include "layout/BVResizableWidgetTextHandle.h"
#include "layout/MainWidget.h"
#include "platform/PropertyChangeFilter.h"

#include <QEvent>
#include <QTimer>

using BVPanelGeometry::isLarger;
using BVPanelGeometry::plausible;

BVResizableWidget::BVResizableWidget(QWidget *parent)
    : QWidget(parent)
    , m_handles(std::make_unique<BVPanelHandles>(this))
    , m_scroll(std::make_unique<BVPanelScroll>(this))
    , m_registration(std::make_unique<BVPanelRegistration>(this))
    , m_drag(std::make_unique<BVPanelDrag>())
{
}

BVResizableWidget::~BVResizableWidget()
{
    if (m_registration->isPosted() && !isFloating())
        registerResizeableWidgetToMainWindow(true);
    if (m_float)
        m_float->forgetPanel();
}

// Content

void BVResizableWidget::setContainerWidget(QWidget *container, bool registerPanel)
{
    if (container == this || (container && container->isAncestorOf(this)))
        return;
    if (container != m_container) {
        if (isAncestorOf(m_container))
            delete m_container;
        m_container = container;
        m_scroll->fitToScrollArea(container);
        m_handles->updateContainerWidgetLayoutPosition(m_scroll->standIn(m_container));
    }
    if (registerPanel && !isFloating())
        registerResizeableWidgetToMainWindow(false);
}

void BVResizableWidget::useScrollArea(bool on)
{
    if (m_container && !isAncestorOf(m_container))
        m_container = nullptr; // it belongs to others now
    m_scroll->manageScrollAreas(on, m_container);
    m_handles->updateContainerWidgetLayoutPosition(m_scroll->standIn(m_container));
    PropertyChangeFilter::repolishPost(this);
}

bool BVResizableWidget::hasScrollArea() const
{
    return m_scroll->isUsed();
}

QSize BVResizableWidget::containerSize() const
{
    const QWidget *widget = m_scroll->standIn(m_container);
    return widget ? widget->size() : size();
}

// Handles

void BVResizableWidget::useVerticalHandle(bool on)
{
    useHandle(BVPanelHandles::Vertical, on);
}

void BVResizableWidget::useHorizontalHandle(bool on)
{
    useHandle(BVPanelHandles::Horizontal, on);
}

void BVResizableWidget::useDiagonalHandle(bool on)
{
    useHandle(BVPanelHandles::Diagonal, on);
}

BVResizableWidgetHandle *BVResizableWidget::verticalHandle() const
{
    return m_handles->handle(BVPanelHandles::Vertical);
}

BVResizableWidgetHandle *BVResizableWidget::horizontalHandle() const
{
    return m_handles->handle(BVPanelHandles::Horizontal);
}

BVResizableWidgetHandle *BVResizableWidget::diagonalHandle() const
{
    return m_handles->handle(BVPanelHandles::Diagonal);
}

void BVResizableWidget::useHandle(int kind, bool on)
{
    const auto handleKind = BVPanelHandles::Kind(kind);
    if (on == bool(m_handles->handle(handleKind)))
        return;
    PropertyChangeFilter::repolishPost(this);
    if (!on)
        return m_handles->remove(handleKind);
    BVResizableWidgetHandle *handle = createHandle(m_handles->positionOf(handleKind));
    if (!handle)
        return;
    connectHandle(handle);
    m_handles->add(handleKind, handle);
}

BVResizableWidgetHandle *BVResizableWidget::createHandle(BVResizableWidgetHandle::Position position)
{
    return new BVResizableWidgetHandle(position, this);
}

void BVResizableWidget::connectHandle(BVResizableWidgetHandle *handle)
{
    using Handle = BVResizableWidgetHandle;
    connect(handle, &Handle::sigMoveStarted, this, &BVResizableWidget::onMoveStarted);
    connect(handle, &Handle::sigMoveAbout, this,
            [this, handle](QSize delta) { onMoveAbout(handle, delta); });
    connect(handle, &Handle::sigMoved, this, &BVResizableWidget::onMoved);
    connect(handle, &Handle::sigMoveCanceled, this, &BVResizableWidget::onMoveCanceled);
    connect(handle, &Handle::sigToggleRequested, this, &BVResizableWidget::onToggleEnlarge);
    if (auto *text = qobject_cast<BVResizableWidgetTextHandle *>(handle))
        connect(this, &BVResizableWidget::sigEnlargedChanged, text,
                &BVResizableWidgetTextHandle::onWidgedResized);
}

void BVResizableWidget::setHorizontalAnchorPosition(HorizontalPosition position)
{
    if (position != AnchorLeft && position != AnchorRight)
        return;
    m_handles->setAnchoredRight(position == AnchorRight);
}

BVResizableWidget::HorizontalPosition BVResizableWidget::horizontalAnchorPosition() const
{
    return m_handles->isAnchoredRight() ? AnchorRight : AnchorLeft;
}

void BVResizableWidget::setVerticalAnchorPosition(VerticalPosition position)
{
    if (position != AnchorTop && position != AnchorBottom)
        return;
    m_handles->setAnchoredBottom(position == AnchorBottom);
}

BVResizableWidget::VerticalPosition BVResizableWidget::verticalAnchorPosition() const
{
    return m_handles->isAnchoredBottom() ? AnchorBottom : AnchorTop;
}

// The main window

QWidget *BVResizableWidget::getMainWindow()
{
    return Brimvale::mainWindow();
}

void BVResizableWidget::registerResizeableWidgetToMainWindow(bool deregister)
{
    if (deregister)
        m_registration->takeBack(m_container);
    else
        m_registration->post(m_container);
}

bool BVResizableWidget::fitToMainWindow(const QRect &rect) const
{
    return BVPanelGeometry::fits(availableArea(), rect);
}

QRect BVResizableWidget::availableArea() const
{
    return BVPanelGeometry::availableArea(BVPanelGeometry::hostWindow(this));
}

void BVResizableWidget::setPropertyOfMainWidget(const QString &name, const QVariant &value)
{
    if (name.isEmpty())
        return;
    m_mainWidgetProperties.insert(name, value);
    if (!isFloating())
        return;
    mainWidget()->setProperty(name.toUtf8().constData(), value);
    PropertyChangeFilter::repolishPost(mainWidget(), true);
}

MainWidget *BVResizableWidget::mainWidget() const
{
    return m_float ? m_float->mainWidget() : nullptr;
}

bool BVResizableWidget::isFloating() const
{
    return mainWidget();
}

// Dragging

void BVResizableWidget::onMoveStarted()
{
    m_drag->begin(this, m_float.get());
    m_enlargedAtPress = m_enlarged;
    if (isFloating())
        mainWidget()->raise();
}

void BVResizableWidget::onMoveAbout(BVResizableWidgetHandle *handle, const QSize &delta)
{
    const QSize growth = plausible(BVPanelGeometry::alongHandle(handle->position(), delta));
    if (!ResizeableWidgetInterface::checkResizingPossible(handle, growth))
        return;
    // What the drag has taken away before does not count as a wish for more room.
    const QSize wanted = m_drag->wants(growth);
    if (isFloating() || checkResizingPossible(handle, wanted - currentRect().size()))
        growTo(wanted);
}

void BVResizableWidget::onMoved()
{
    m_drag->end();
    if (isFloating() && !isLarger(currentRect().size(), m_float->placeRect().size()))
        m_float->returnToPlace();
}

void BVResizableWidget::onMoveCanceled()
{
    m_drag->end();
    if (!isFloating())
        return;
    const BVPanelDrag drag = *m_drag;
    const QPointer<BVResizableWidget> self(this);
    setEnlarged(m_enlargedAtPress);
    if (self)
        drag.undo(m_float.get());
}

bool BVResizableWidget::checkResizingPossible(QObject *handle, const QSize &delta)
{
    if (!ResizeableWidgetInterface::checkResizingPossible(handle, delta))
        return false;
    // More than the container has now; a drag that only shrinks needs no room.
    const bool needsWidth = delta.width() > 0;
    const bool needsHeight = delta.height() > 0;
    return (handle == horizontalHandle() && needsWidth) ||
           (handle == verticalHandle() && needsHeight) ||
           (handle == diagonalHandle() && (needsWidth || needsHeight));
}

void BVResizableWidget::onResizeAbout(QSize delta, bool initial)
{
    if (initial || !m_drag->isGoingOn())
        m_drag->begin(this, m_float.get());
    growTo(m_drag->wants(delta));
}

void BVResizableWidget::growTo(const QSize &wanted)
{
    const QRect target = grown(wanted);
    if (target == currentRect())
        return;
    const QPointer<BVResizableWidget> self(this);
    setEnlarged(false);
    if (!self)
        return;
    saveLastSize();
    if (isFloating() && !isLarger(target.size(), containerSize()))
        moveTo(target);
    else
        onResize(target.size(), target.topLeft());
}

void BVResizableWidget::onResize(QSize size, QPoint relativePosition)
{
    size = size.boundedTo(maximumSize());
    if (size.isNull() || !isLarger(size, containerSize()))
        return;
    if (horizontalHandle() && horizontalAnchorPosition() == AnchorRight && lastSize().isValid())
        size.rwidth() = qMin(size.width() + width() - lastSize().width(), maximumWidth());
    if (!m_handles->dragsHeight())
        size.setHeight(height());
    const QRect target(plausible(relativePosition), plausible(size));
    // A panel that has no room to grow does not leave its layout first.
    if (fitToMainWindow(target) && (isFloating() || makeFreeFloating()))
        moveTo(target);
}

QRect BVResizableWidget::grown(const QSize &wanted) const
{
    return BVPanelDrag::grown(this, m_float.get(), wanted, m_handles->keepsRight(),
                              m_handles->keepsBottom());
}

QRect BVResizableWidget::currentRect() const
{
    return BVPanelDrag::currentRect(this, m_float.get());
}

// Floating

void BVResizableWidget::moveTo(const QRect &target)
{
    const QPointer<BVResizableWidget> self(this);
    Q_EMIT sigResizedAbout(size(), target.size());
    if (self && isFloating())
        mainWidget()->setGeometryWithAnimation(target, BVPanelFloat::s_duration, false);
}

bool BVResizableWidget::makeFreeFloating()
{
    const QPointer<BVResizableWidget> self(this);
    m_float = BVPanelFloat::leave(this);
    if (!m_float)
        return false;
    connect(mainWidget(), &MainWidget::sigAnimationFinished, this, [this](bool returning) {
        if (!returning)
            Q_EMIT sigResiged();
    });
    connect(m_float.get(), &BVPanelFloat::sigEnded, this, &BVResizableWidget::onFloatEnded);
    for (auto it = m_mainWidgetProperties.cbegin(); it != m_mainWidgetProperties.cend(); ++it)
        mainWidget()->setProperty(it.key().toUtf8().constData(), it.value());
    registerResizeableWidgetToMainWindow(true);
    if (self && isFloating())
        Q_EMIT sigFloatingChanged(true);
    return self && isFloating();
}

void BVResizableWidget::onFloatEnded()
{
    const QPointer<BVResizableWidget> self(this);
    m_float.reset();
    registerResizeableWidgetToMainWindow(false);
    setEnlarged(false);
    if (self)
        Q_EMIT sigFloatingChanged(false);
    if (self)
        Q_EMIT sigResiged();
}

// The enlarged size

void BVResizableWidget::setEnlarged(bool enlarged)
{
    if (m_enlarged == enlarged)
        return;
    m_enlarged = enlarged;
    PropertyChangeFilter::repolishPost(this);
    Q_EMIT sigEnlargedChanged(enlarged);
}

void BVResizableWidget::onToggleEnlarge()
{
    if (m_enlarged)
        return onRestoreEnlarge();
    const QRect from = currentRect();
    const QRect target = grown(QSize(m_handles->dragsWidth() ? QWIDGETSIZE_MAX : from.width(),
                                     m_handles->dragsHeight() ? QWIDGETSIZE_MAX : from.height()));
    if (!isResizingEnabled() || target == from)
        return;
    const QPointer<BVResizableWidget> self(this);
    m_lastWasEmbedded = !isFloating();
    m_lastRect = from;
    if (isFloating())
        mainWidget()->skipAnimation();
    QPoint position;
    if (self) {
        saveRelativePosition(position);
        saveLastSize();
        onResize(target.size(), target.topLeft());
    }
    if (self && isFloating() && currentRect() == target)
        setEnlarged(true);
}

void BVResizableWidget::onRestoreEnlarge()
{
    if (!m_enlarged || !isFloating())
        return;
    const QPointer<BVResizableWidget> self(this);
    setEnlarged(false);
    if (!self || !isFloating())
        return;
    if (m_lastWasEmbedded)
        m_float->returnToPlace();
    else
        moveTo(restored(m_lastRect));
}

void BVResizableWidget::closeEnlarged()
{
    if (isFloating())
        m_float->comeBack();
}

// Stored state

/// The rectangle as far as the limits of the panel and its window allow it now.
QRect BVResizableWidget::restored(const QRect &rect) const
{
    const QSize place = m_float->placeRect().size();
    const QSize size = rect.size().expandedTo(place).expandedTo(minimumSize());
    return BVPanelGeometry::clamped(availableArea(),
                                    QRect(rect.topLeft(), size.boundedTo(maximumSize())));
}

QByteArray BVResizableWidget::saveState() const
{
    if (!m_pendingState.isEmpty())
        return m_pendingState;
    BVPanelState state;
    state.floating = isFloating() && !mainWidget()->isReturning();
    state.enlarged = state.floating && m_enlarged;
    if (state.floating)
        state.rect = currentRect();
    if (state.enlarged) {
        state.lastWasEmbedded = m_lastWasEmbedded;
        state.lastRect = m_lastRect;
    }
    return state.toBytes();
}

bool BVResizableWidget::restoreState(const QByteArray &state)
{
    if (!BVPanelState().fromBytes(state))
        return false;
    m_pendingState = state;
    if (isVisible())
        applyState();
    return true;
}

void BVResizableWidget::applyState()
{
    BVPanelState state;
    if (!state.fromBytes(std::exchange(m_pendingState, QByteArray())))
        return;
    if (!state.floating)
        return closeEnlarged();
    const QPointer<BVResizableWidget> self(this);
    if (!isFloating() && !makeFreeFloating())
        return;
    m_lastWasEmbedded = state.lastWasEmbedded;
    m_lastRect = state.lastRect;
    setEnlarged(state.enlarged);
    if (self && isFloating())
        mainWidget()->setGeometryWithAnimation(restored(state.rect), 0, false);
}

// Events

void BVResizableWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        m_handles->updateLayoutPositions();
}

void BVResizableWidget::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_pendingState.isEmpty()) // the window's layouts settle first
        QTimer::singleShot(0, this, &BVResizableWidget::applyState);
}

void BVResizableWidget::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_handles->announceSize();
}
