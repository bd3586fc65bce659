// SPDX-License-Identifier: MIT
#include "layout/BVResizableWidget.h"

#include "foundation/MainWindow.h"
#include "foundation/RegisterResizeableWidgetInterfaceEvent.h"
#include "foundation/ResizeWidgetCloseEvent.h"
#include "layout/BVPanelFloat_p.h"
#include "layout/BVPanelGeometry_p.h"
#include "layout/BVPanelHandles_p.h"
#include "layout/BVPanelScroll_p.h"
#include "layout/BVPanelState_p.h"
#include "layout/BVResizableWidgetTextHandle.h"
#include "layout/MainWidget.h"
#include "platform/PropertyChangeFilter.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

using Brimvale::RegisterResizeableWidgetInterfaceEvent;
using Brimvale::ResizeableWidgetInterface;
using Brimvale::ResizeWidgetCloseEvent;

namespace {

constexpr int s_duration = 80; // ms that a change of the size takes

bool isLarger(const QSize &size, const QSize &other)
{
    return size.width() > other.width() || size.height() > other.height();
}

/// The size within what a widget can have, so that sums do not overflow.
QSize plausible(const QSize &size)
{
    const QSize largest(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    return size.boundedTo(largest).expandedTo(QSize(-QWIDGETSIZE_MAX, -QWIDGETSIZE_MAX));
}

} // namespace

BVResizableWidget::BVResizableWidget(QWidget *parent)
    : QWidget(parent)
    , m_handles(std::make_unique<BVPanelHandles>(this))
    , m_scroll(std::make_unique<BVPanelScroll>(this))
{
}

BVResizableWidget::~BVResizableWidget()
{
    if (m_registration && !isFloating())
        registerResizeableWidgetToMainWindow(true);
}

// Content

void BVResizableWidget::setContainerWidget(QWidget *container, bool registerPanel)
{
    if (container == this || (container && container->isAncestorOf(this)))
        return;
    if (container != m_container) {
        delete m_container;
        m_container = container;
        m_scroll->fitToScrollArea(container);
        m_handles->updateContainerWidgetLayoutPosition(m_scroll->standIn(m_container));
    }
    if (registerPanel && !isFloating())
        registerResizeableWidgetToMainWindow(false);
}

QWidget *BVResizableWidget::containerWidget() const
{
    return m_container;
}

void BVResizableWidget::useScrollArea(bool on)
{
    m_scroll->manageScrollAreas(on, m_container);
    m_handles->updateContainerWidgetLayoutPosition(m_scroll->standIn(m_container));
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

QSize BVResizableWidget::sizeHint() const
{
    return QWidget::sizeHint();
}

QSize BVResizableWidget::minimumSizeHint() const
{
    return QWidget::minimumSizeHint();
}

// Handles

void BVResizableWidget::useVerticalHandle(bool on)
{
    useHandle(BVPanelHandles::Vertical, on);
}

bool BVResizableWidget::hasVerticalHandle() const
{
    return m_handles->handle(BVPanelHandles::Vertical);
}

void BVResizableWidget::useHorizontalHandle(bool on)
{
    useHandle(BVPanelHandles::Horizontal, on);
}

bool BVResizableWidget::hasHorizontalHandle() const
{
    return m_handles->handle(BVPanelHandles::Horizontal);
}

void BVResizableWidget::useDiagonalHandle(bool on)
{
    useHandle(BVPanelHandles::Diagonal, on);
}

bool BVResizableWidget::hasDiagonalHandle() const
{
    return m_handles->handle(BVPanelHandles::Diagonal);
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
    if (!on)
        return m_handles->remove(handleKind);
    BVResizableWidgetHandle *handle = createHandle(m_handles->positionOf(handleKind));
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

QWidget *BVResizableWidget::getResizableWidget()
{
    return this;
}

void BVResizableWidget::registerResizeableWidgetToMainWindow(bool deregister)
{
    m_registration.reset(); // takes back what has not arrived yet
    QWidget *window = getMainWindow();
    if (!window)
        return;
    if (deregister) {
        RegisterResizeableWidgetInterfaceEvent event(this, m_container, false);
        QCoreApplication::sendEvent(window, &event);
        return;
    }
    m_registration = std::make_unique<QObject>();
    auto *event = new RegisterResizeableWidgetInterfaceEvent(this, m_container, true);
    event->setGuard(m_registration.get());
    QCoreApplication::postEvent(window, event);
}

bool BVResizableWidget::fitToMainWindow(const QRect &rect) const
{
    return BVPanelGeometry::fits(availableArea(), rect);
}

QRect BVResizableWidget::availableArea() const
{
    const QWidget *window = BVPanelGeometry::hostWindow(const_cast<BVResizableWidget *>(this));
    return BVPanelGeometry::availableArea(window->size(), window->contentsMargins());
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
    m_rectAtPress = currentRect();
    m_floatedAtPress = isFloating();
    m_enlargedAtPress = m_enlarged;
    m_isFirstMove = true;
    if (isFloating())
        mainWidget()->raise();
}

void BVResizableWidget::onMoveAbout(BVResizableWidgetHandle *handle, const QSize &delta)
{
    const QSize growth = plausible(BVPanelGeometry::alongHandle(handle->position(), delta));
    if (!ResizeableWidgetInterface::checkResizingPossible(handle, growth))
        return;
    const bool initial = std::exchange(m_isFirstMove, false);
    if (initial)
        m_wantedSize = currentRect().size();
    // What the drag has taken away before does not count as a wish for more room.
    const QSize needed = m_wantedSize + growth - currentRect().size();
    if (isFloating() || checkResizingPossible(handle, needed))
        onResizeAbout(growth, initial);
    else
        m_wantedSize = plausible(m_wantedSize + growth);
}

void BVResizableWidget::onMoved()
{
    m_wantedSize = QSize();
    if (isFloating() && !isLarger(currentRect().size(), m_float->placeRect().size()))
        returnToPlace();
}

void BVResizableWidget::onMoveCanceled()
{
    m_wantedSize = QSize();
    if (!isFloating())
        return;
    setEnlarged(m_enlargedAtPress);
    if (m_floatedAtPress)
        mainWidget()->setGeometryWithAnimation(m_rectAtPress, 0, false);
    else
        restoreFromFreeFloating();
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
    const QRect from = currentRect();
    if (initial || !m_wantedSize.isValid())
        m_wantedSize = from.size();
    m_wantedSize = plausible(m_wantedSize + plausible(delta));
    const QSize wanted = limitedSize(from, m_wantedSize);
    if (wanted == from.size())
        return;
    const QRect target = BVPanelGeometry::clamped(
        availableArea(),
        BVPanelGeometry::resized(from, wanted, m_handles->keepsRight(), m_handles->keepsBottom()));
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
        size.rwidth() += width() - lastSize().width();
    if (!m_handles->dragsHeight())
        size.setHeight(height());
    const QSize position = plausible(QSize(relativePosition.x(), relativePosition.y()));
    const QRect target(QPoint(position.width(), position.height()), plausible(size));
    // A panel that has no room to grow does not leave its layout first.
    if (fitToMainWindow(target) && (isFloating() || makeFreeFloating()))
        moveTo(target);
}

/// The size within the window, and not smaller than the place.
QSize BVResizableWidget::limitedSize(const QRect &rect, const QSize &wanted) const
{
    const QSize room = BVPanelGeometry::roomFor(availableArea(), rect, m_handles->keepsRight(),
                                                m_handles->keepsBottom());
    const QSize place = m_float ? m_float->placeRect().size() : rect.size();
    return wanted.boundedTo(room).boundedTo(maximumSize()).expandedTo(place);
}

QRect BVResizableWidget::currentRect() const
{
    return isFloating() ? mainWidget()->targetGeometry()
                        : BVPanelGeometry::rectInWindow(const_cast<BVResizableWidget *>(this));
}

// Floating

void BVResizableWidget::moveTo(const QRect &target)
{
    const QPointer<BVResizableWidget> self(this);
    Q_EMIT sigResizedAbout(size(), target.size());
    if (self && isFloating())
        mainWidget()->setGeometryWithAnimation(target, s_duration, false);
}

bool BVResizableWidget::makeFreeFloating()
{
    const QPointer<BVResizableWidget> self(this);
    m_float = BVPanelFloat::leave(this);
    if (!m_float)
        return false;
    connect(mainWidget(), &MainWidget::sigAnimationFinished, this,
            &BVResizableWidget::onAnimationFinished);
    connect(m_float.get(), &BVPanelFloat::sigWindowChanged, this,
            &BVResizableWidget::restoreFromFreeFloating, Qt::QueuedConnection);
    for (auto it = m_mainWidgetProperties.cbegin(); it != m_mainWidgetProperties.cend(); ++it)
        mainWidget()->setProperty(it.key().toUtf8().constData(), it.value());
    registerResizeableWidgetToMainWindow(true);
    if (self && isFloating())
        Q_EMIT sigFloatingChanged(true);
    return self && isFloating();
}

void BVResizableWidget::restoreFromFreeFloating()
{
    if (!isFloating())
        return;
    const QPointer<BVResizableWidget> self(this);
    m_float->comeBack();
    m_float.reset();
    registerResizeableWidgetToMainWindow(false);
    setEnlarged(false);
    if (self)
        Q_EMIT sigFloatingChanged(false);
    if (self)
        Q_EMIT sigResiged();
}

void BVResizableWidget::returnToPlace()
{
    mainWidget()->setGeometryWithAnimation(m_float->placeRect(), s_duration, true);
}

void BVResizableWidget::onAnimationFinished(bool returning)
{
    if (returning)
        restoreFromFreeFloating();
    else
        Q_EMIT sigResiged();
}

// The enlarged size

bool BVResizableWidget::isEnlarged() const
{
    return m_enlarged;
}

void BVResizableWidget::setEnlarged(bool enlarged)
{
    if (m_enlarged == enlarged)
        return;
    m_enlarged = enlarged;
    Q_EMIT sigEnlargedChanged(enlarged);
}

QSize BVResizableWidget::enlargedSize(const QRect &rect) const
{
    return limitedSize(rect, QSize(m_handles->dragsWidth() ? QWIDGETSIZE_MAX : rect.width(),
                                   m_handles->dragsHeight() ? QWIDGETSIZE_MAX : rect.height()));
}

void BVResizableWidget::onToggleEnlarge()
{
    if (m_enlarged)
        return onRestoreEnlarge();
    if (!isResizingEnabled())
        return;
    if (isFloating()) // the size that it goes back to is that which it is reaching
        mainWidget()->setGeometryWithAnimation(currentRect(), 0, false);
    const QRect from = currentRect();
    const QRect target = BVPanelGeometry::clamped(
        availableArea(), BVPanelGeometry::resized(from, enlargedSize(from), m_handles->keepsRight(),
                                                  m_handles->keepsBottom()));
    m_lastWasEmbedded = !isFloating();
    QPoint position;
    saveRelativePosition(position);
    saveLastSize();
    m_lastRect = QRect(position, lastSize());
    const QPointer<BVResizableWidget> self(this);
    if (target != from)
        onResize(target.size(), target.topLeft());
    if (self && isFloating() && currentRect() == target && target != from)
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
        returnToPlace();
    else
        moveTo(BVPanelGeometry::clamped(availableArea(), m_lastRect));
}

void BVResizableWidget::closeEnlarged()
{
    if (!isFloating())
        return;
    const QPointer<BVResizableWidget> self(this);
    restoreFromFreeFloating();
    if (self && getMainWindow())
        QCoreApplication::postEvent(getMainWindow(), new ResizeWidgetCloseEvent(parentWidget()));
}

// Stored state

QByteArray BVResizableWidget::saveState() const
{
    if (!m_pendingState.isEmpty())
        return m_pendingState;
    BVPanelState state;
    state.floating = isFloating();
    state.enlarged = m_enlarged;
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
        return restoreFromFreeFloating();
    const QPointer<BVResizableWidget> self(this);
    if (!isFloating() && !makeFreeFloating())
        return;
    m_lastWasEmbedded = state.lastWasEmbedded;
    m_lastRect = state.lastRect;
    setEnlarged(state.enlarged);
    if (self && isFloating())
        mainWidget()->setGeometryWithAnimation(
            BVPanelGeometry::clamped(availableArea(), state.rect), 0, false);
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
