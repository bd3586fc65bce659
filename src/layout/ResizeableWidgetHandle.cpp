// SPDX-License-Identifier: MIT
#include "layout/ResizeableWidgetHandle.h"

#include "foundation/MainWindow.h"
#include "foundation/RegisterResizeableWidgetInterfaceEvent.h"
#include "foundation/ResizeWidgetCloseEvent.h"
#include "layout/BVHandleAccessible_p.h"
#include "layout/BVPanelFloat_p.h"
#include "layout/BVPanelGeometry_p.h"
#include "layout/MainWidget.h"
#include "layout/ResizeWidgetPlaceHolder.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSplitterHandle>
#include <QVBoxLayout>

#include <utility>

using Brimvale::RegisterResizeableWidgetInterfaceEvent;
using Brimvale::ResizeableWidgetInterface;
using Brimvale::ResizeWidgetCloseEvent;

namespace {

constexpr int s_duration = 80; // ms that a change of the size takes

bool isLarger(const QSize &size, const QSize &other)
{
    return size.width() > other.width() || size.height() > other.height();
}

/// The child that has come to the widget since it had the former ones, and keeps a place there.
QWidget *newPlace(const QWidget *parent, const QObjectList &former)
{
    for (QObject *child : parent->children()) {
        if (child->isWidgetType() && !former.contains(child) &&
            !qobject_cast<QSplitterHandle *>(child))
            return static_cast<QWidget *>(child);
    }
    return nullptr;
}

} // namespace

ResizeableWidgetHandle::ResizeableWidgetHandle(QWidget *widget, Position position)
    : BVResizableWidgetHandle(position, widget)
    , m_widget(widget)
{
    connect(this, &BVResizableWidgetHandle::sigMoveStarted, this,
            &ResizeableWidgetHandle::onMoveStarted);
    connect(this, &BVResizableWidgetHandle::sigMoveAbout, this,
            &ResizeableWidgetHandle::onMoveAbout);
    connect(this, &BVResizableWidgetHandle::sigMoved, this, &ResizeableWidgetHandle::onMoved);
    connect(this, &BVResizableWidgetHandle::sigMoveCanceled, this,
            &ResizeableWidgetHandle::onMoveCanceled);
    connect(this, &BVResizableWidgetHandle::sigToggleRequested, this,
            &ResizeableWidgetHandle::onToggleRequested);
    placeOverWidget();
    registerToMainWindow();
}

ResizeableWidgetHandle::~ResizeableWidgetHandle()
{
    disconnect();
    deregisterFromMainWindow();
    // A widget that is going itself has taken its children from their list, and its place goes too.
    if (!isFloating() || !m_widget || !m_widget->children().contains(this))
        return;
    delete m_placeHolder;
    m_float->comeBack();
    postClosed();
}

QWidget *ResizeableWidgetHandle::getResizableWidget()
{
    return resizedWidget();
}

QWidget *ResizeableWidgetHandle::resizedWidget() const
{
    return m_widget ? m_widget.data() : const_cast<ResizeableWidgetHandle *>(this);
}

bool ResizeableWidgetHandle::checkResizingPossible(QObject *handle, const QSize &delta)
{
    if (handle != this || !m_widget ||
        !ResizeableWidgetInterface::checkResizingPossible(handle, delta))
        return false;
    const QSize growth = BVPanelGeometry::alongHandle(position(), delta);
    return growth.width() > 0 || growth.height() > 0;
}

void ResizeableWidgetHandle::onResize(QSize size, QPoint relativePosition)
{
    if (!m_widget || size.isNull())
        return;
    size = size.boundedTo(m_widget->maximumSize());
    if (!isLarger(size, m_widget->size()))
        return;
    // A widget that has no room to grow does not leave its layout first.
    const QRect target(relativePosition, size);
    if (BVPanelGeometry::fits(availableArea(), target) && (isFloating() || leavePlace()))
        moveTo(target, s_duration);
}

void ResizeableWidgetHandle::closeEnlarged()
{
    if (!isFloating())
        return;
    const QPointer<ResizeableWidgetHandle> self(this);
    delete m_placeHolder;
    m_float->comeBack();
    m_float.reset();
    registerToMainWindow();
    postClosed();
    placeOverWidget();
    if (self)
        Q_EMIT sigFloatingChanged(false);
}

bool ResizeableWidgetHandle::isFloating() const
{
    return mainWidget();
}

MainWidget *ResizeableWidgetHandle::mainWidget() const
{
    return m_float ? m_float->mainWidget() : nullptr;
}

ResizeWidgetPlaceHolder *ResizeableWidgetHandle::placeHolder() const
{
    return m_placeHolder;
}

void ResizeableWidgetHandle::updatePosition()
{
    BVResizableWidgetHandle::updatePosition();
    placeOverWidget();
}

bool ResizeableWidgetHandle::eventFilter(QObject *watched, QEvent *event)
{
    const bool isHandled = BVResizableWidgetHandle::eventFilter(watched, event);
    if (watched == m_widget && event->type() == QEvent::Resize) {
        placeOverWidget();
        BVHandleAccessible::announceValue(this);
    }
    return isHandled;
}

void ResizeableWidgetHandle::onMoveStarted()
{
    if (!m_widget)
        return;
    m_rectAtPress = currentRect();
    m_wantedSize = m_rectAtPress.size();
    m_floatedAtPress = isFloating();
    if (isFloating())
        mainWidget()->raise();
}

void ResizeableWidgetHandle::onMoveAbout(const QSize &delta)
{
    const QSize growth = BVPanelGeometry::alongHandle(position(), delta);
    if (!m_widget || !ResizeableWidgetInterface::checkResizingPossible(this, growth))
        return;
    m_wantedSize += growth;
    // What the drag has taken away before does not count as a wish for more room.
    if (!isFloating() && !checkResizingPossible(this, m_wantedSize - m_widget->size()))
        return;
    const QRect target = grown(m_wantedSize);
    if (target != currentRect() && (isFloating() || leavePlace()))
        moveTo(target, 0);
}

void ResizeableWidgetHandle::onMoved()
{
    if (isFloating() && !isLarger(currentRect().size(), m_float->placeRect().size()))
        returnToPlace();
}

void ResizeableWidgetHandle::onMoveCanceled()
{
    if (!m_floatedAtPress)
        closeEnlarged();
    else if (isFloating())
        moveTo(m_rectAtPress, 0);
}

void ResizeableWidgetHandle::onToggleRequested()
{
    if (isFloating())
        return returnToPlace();
    if (!m_widget || !isResizingEnabled())
        return;
    const QSize most(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    const QSize size = m_widget->size();
    const QRect target = grown(size + BVPanelGeometry::alongHandle(position(), most - size));
    onResize(target.size(), target.topLeft());
}

/// Unlike other handles it lies over the layout of its parent.
void ResizeableWidgetHandle::placeOverWidget()
{
    if (!m_widget)
        return;
    setGeometry(BVPanelGeometry::handleRect(position(), m_widget->size(), s_thickness));
    raise();
}

QRect ResizeableWidgetHandle::availableArea() const
{
    const QWidget *window = BVPanelGeometry::hostWindow(m_widget);
    return BVPanelGeometry::availableArea(window->size(), window->contentsMargins());
}

QRect ResizeableWidgetHandle::currentRect() const
{
    return isFloating() ? mainWidget()->targetGeometry() : BVPanelGeometry::rectInWindow(m_widget);
}

/// The rectangle with another size, as far as the window has room and not smaller than the place.
QRect ResizeableWidgetHandle::grown(const QSize &wanted) const
{
    const BVPanelGeometry::HandlePlace &place = BVPanelGeometry::handlePlace(position());
    const bool keepsRight = place.widthSign < 0;
    const bool keepsBottom = place.heightSign < 0;
    const QRect rect = currentRect();
    const QSize room = BVPanelGeometry::roomFor(availableArea(), rect, keepsRight, keepsBottom);
    const QSize least = m_float ? m_float->placeRect().size() : rect.size();
    const QSize size = wanted.boundedTo(room).boundedTo(m_widget->maximumSize()).expandedTo(least);
    return BVPanelGeometry::resized(rect, size, keepsRight, keepsBottom);
}

void ResizeableWidgetHandle::moveTo(const QRect &target, int duration)
{
    mainWidget()->setGeometryWithAnimation(target, duration, false);
}

bool ResizeableWidgetHandle::leavePlace()
{
    const QPointer<ResizeableWidgetHandle> self(this);
    const QWidget *parent = m_widget->parentWidget();
    const QObjectList former = parent ? parent->children() : QObjectList();
    m_float = BVPanelFloat::leave(m_widget);
    if (!m_float)
        return false;
    addPlaceHolder(newPlace(parent, former));
    connect(m_float.get(), &BVPanelFloat::sigWindowChanged, this,
            &ResizeableWidgetHandle::closeEnlarged, Qt::QueuedConnection);
    connect(mainWidget(), &MainWidget::sigAnimationFinished, this, [this](bool returning) {
        if (returning)
            closeEnlarged();
    });
    deregisterFromMainWindow();
    if (self && isFloating())
        Q_EMIT sigFloatingChanged(true);
    return self && isFloating();
}

void ResizeableWidgetHandle::addPlaceHolder(QWidget *place)
{
    if (!place)
        return;
    m_placeHolder = new ResizeWidgetPlaceHolder(place);
    m_placeHolder->standFor(m_widget);
    auto *layout = new QVBoxLayout(place);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_placeHolder);
    connect(m_placeHolder, &ResizeWidgetPlaceHolder::sigCloseRequested, this,
            &ResizeableWidgetHandle::returnToPlace, Qt::QueuedConnection);
}

void ResizeableWidgetHandle::returnToPlace()
{
    if (isFloating())
        mainWidget()->setGeometryWithAnimation(m_float->placeRect(), s_duration, true);
}

void ResizeableWidgetHandle::registerToMainWindow()
{
    m_registration.reset(); // takes back what has not arrived yet
    QWidget *window = Brimvale::mainWindow();
    if (!window || !m_widget)
        return;
    m_registration = std::make_unique<QObject>();
    auto *event = new RegisterResizeableWidgetInterfaceEvent(this, m_widget, true);
    event->setGuard(m_registration.get());
    QCoreApplication::postEvent(window, event);
}

void ResizeableWidgetHandle::deregisterFromMainWindow()
{
    const bool wasRegistered = std::exchange(m_registration, nullptr) != nullptr;
    QWidget *window = Brimvale::mainWindow();
    if (!window || !wasRegistered)
        return;
    RegisterResizeableWidgetInterfaceEvent event(this, m_widget, false);
    QCoreApplication::sendEvent(window, &event);
}

void ResizeableWidgetHandle::postClosed()
{
    if (QWidget *window = Brimvale::mainWindow())
        QCoreApplication::postEvent(window, new ResizeWidgetCloseEvent(m_widget));
}
