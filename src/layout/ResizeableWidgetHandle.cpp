// SPDX-License-Identifier: MIT
#include "layout/ResizeableWidgetHandle.h"

#include "layout/BVHandleAccessible_p.h"
#include "layout/BVPanelFloat_p.h"
#include "layout/BVPanelGeometry_p.h"
#include "layout/BVPanelRegistration_p.h"
#include "layout/MainWidget.h"
#include "layout/ResizeWidgetPlaceHolder.h"

#include <QEvent>
#include <QVBoxLayout>

using Brimvale::ResizeableWidgetInterface;
using BVPanelGeometry::isLarger;
using BVPanelGeometry::plausible;

ResizeableWidgetHandle::ResizeableWidgetHandle(QWidget *widget, Position position)
    : BVResizableWidgetHandle(position, widget)
    , m_widget(widget)
    , m_registration(std::make_unique<BVPanelRegistration>(this))
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
    for (const QPointer<ResizeableWidgetHandle> &other : handlesOfWidget()) {
        if (other->isFloating() && !isFloating())
            join(other->m_float);
    }
    if (m_widget && !isFloating())
        m_registration->post(m_widget);
}

ResizeableWidgetHandle::~ResizeableWidgetHandle()
{
    disconnect();
    if (m_registration->isPosted())
        m_registration->takeBack(m_widget);
    // A widget that is going itself has taken its children from their list, and its place goes too.
    if (!isFloating() || !m_widget || !m_widget->children().contains(this))
        return;
    m_float->disconnect(this);
    if (m_float.use_count() == 1)
        m_float->comeBack();
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
    const QRect target(plausible(relativePosition), plausible(size));
    if (BVPanelGeometry::fits(availableArea(), target) && (isFloating() || leavePlace()))
        mainWidget()->setGeometryWithAnimation(target, BVPanelFloat::s_duration, false);
}

void ResizeableWidgetHandle::closeEnlarged()
{
    const std::shared_ptr<BVPanelFloat> panelFloat = m_float; // which its end takes away
    if (panelFloat)
        panelFloat->comeBack();
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
    return isFloating() ? m_float->place()->findChild<ResizeWidgetPlaceHolder *>() : nullptr;
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
    m_wantedSize = plausible(m_wantedSize + plausible(growth));
    // What the drag has taken away before does not count as a wish for more room.
    if (!isFloating() && !checkResizingPossible(this, m_wantedSize - m_widget->size()))
        return;
    const QRect target = grown(m_wantedSize);
    if (target != currentRect() && (isFloating() || leavePlace()))
        mainWidget()->setGeometryWithAnimation(target, 0, false);
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
        mainWidget()->setGeometryWithAnimation(m_rectAtPress, 0, false);
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

/// What a drag that asks for that size makes of the widget, within the window and not smaller than
/// the place.
QRect ResizeableWidgetHandle::grown(const QSize &wanted) const
{
    const BVPanelGeometry::HandlePlace &place = BVPanelGeometry::handlePlace(position());
    const QRect rect = currentRect();
    const QSize least = m_float ? m_float->placeRect().size() : rect.size();
    return BVPanelGeometry::grown({availableArea(), least, m_widget->maximumSize(),
                                   place.widthSign < 0, place.heightSign < 0},
                                  rect, wanted);
}

QVector<QPointer<ResizeableWidgetHandle>> ResizeableWidgetHandle::handlesOfWidget() const
{
    QVector<QPointer<ResizeableWidgetHandle>> handles;
    for (QObject *child : m_widget ? m_widget->children() : QObjectList()) {
        if (auto *handle = qobject_cast<ResizeableWidgetHandle *>(child))
            handles.append(handle);
    }
    return handles;
}

bool ResizeableWidgetHandle::leavePlace()
{
    const std::shared_ptr<BVPanelFloat> panelFloat = BVPanelFloat::leave(m_widget);
    if (!panelFloat)
        return false;
    const QPointer<ResizeableWidgetHandle> self(this);
    const QVector<QPointer<ResizeableWidgetHandle>> handles = handlesOfWidget();
    for (const QPointer<ResizeableWidgetHandle> &handle : handles)
        handle->join(panelFloat);
    addPlaceHolder();
    for (const QPointer<ResizeableWidgetHandle> &handle : handles) {
        if (handle && handle->isFloating())
            handle->tellFloating();
    }
    return self && isFloating();
}

void ResizeableWidgetHandle::join(const std::shared_ptr<BVPanelFloat> &panelFloat)
{
    m_float = panelFloat;
    connect(m_float.get(), &BVPanelFloat::sigEnded, this, &ResizeableWidgetHandle::onFloatEnded);
}

void ResizeableWidgetHandle::tellFloating()
{
    const QPointer<ResizeableWidgetHandle> self(this);
    if (m_registration->isPosted())
        m_registration->takeBack(m_widget);
    if (self && isFloating())
        Q_EMIT sigFloatingChanged(true);
}

void ResizeableWidgetHandle::onFloatEnded()
{
    m_float.reset();
    m_registration->post(m_widget);
    placeOverWidget();
    Q_EMIT sigFloatingChanged(false);
}

void ResizeableWidgetHandle::addPlaceHolder()
{
    auto *holder = new ResizeWidgetPlaceHolder(m_float->place());
    holder->standFor(m_widget);
    auto *layout = new QVBoxLayout(m_float->place());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(holder);
    connect(holder, &ResizeWidgetPlaceHolder::sigCloseRequested, m_float.get(),
            &BVPanelFloat::returnToPlace, Qt::QueuedConnection);
}

void ResizeableWidgetHandle::returnToPlace()
{
    if (isFloating())
        m_float->returnToPlace();
}
