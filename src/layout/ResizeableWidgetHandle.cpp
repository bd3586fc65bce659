// SPDX-License-Identifier: MIT
#include "layout/ResizeableWidgetHandle.h"

#include "layout/BVFloatOwner_p.h"
#include "layout/BVHandleAccessible_p.h"
#include "layout/BVPanelDrag_p.h"
#include "layout/BVPanelFloat_p.h"
#include "layout/BVPanelGeometry_p.h"
#include "layout/BVPanelRegistration_p.h"
#include "layout/MainWidget.h"
#include "layout/ResizeWidgetPlaceHolder.h"

#include <QEvent>

using BVPanelGeometry::isLarger;
using BVPanelGeometry::plausible;

ResizeableWidgetHandle::ResizeableWidgetHandle(QWidget *widget, Position position)
    : BVResizableWidgetHandle(position, widget)
    , m_widget(widget)
    , m_registration(std::make_unique<BVPanelRegistration>(this))
    , m_drag(std::make_unique<BVPanelDrag>())
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
    if (!m_widget)
        return;
    m_owner = BVFloatOwner::of(m_widget);
    m_owner->attach(this);
    m_toldFloating = isFloating();
    if (!m_toldFloating)
        m_registration->post(m_widget);
}

ResizeableWidgetHandle::~ResizeableWidgetHandle()
{
    disconnect();
    letGoOfWidget();
}

/// Brings the widget back if this has been the last handle of it.
void ResizeableWidgetHandle::letGoOfWidget()
{
    if (m_registration->isPosted())
        m_registration->takeBack(m_widget);
    const QPointer<BVFloatOwner> owner = std::exchange(m_owner, nullptr);
    m_widget = nullptr;
    if (owner)
        owner->detach(this);
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
    const QRect area = BVPanelGeometry::availableArea(BVPanelGeometry::hostWindow(m_widget));
    if (BVPanelGeometry::fits(area, target) && (isFloating() || leavePlace()))
        mainWidget()->setGeometryWithAnimation(target, BVPanelFloat::s_duration, false);
}

void ResizeableWidgetHandle::closeEnlarged()
{
    if (isFloating())
        panelFloat()->comeBack();
}

BVPanelFloat *ResizeableWidgetHandle::panelFloat() const
{
    return m_owner ? m_owner->panelFloat() : nullptr;
}

bool ResizeableWidgetHandle::isFloating() const
{
    return panelFloat();
}

MainWidget *ResizeableWidgetHandle::mainWidget() const
{
    return isFloating() ? panelFloat()->mainWidget() : nullptr;
}

ResizeWidgetPlaceHolder *ResizeableWidgetHandle::placeHolder() const
{
    return isFloating() ? panelFloat()->place()->findChild<ResizeWidgetPlaceHolder *>() : nullptr;
}

void ResizeableWidgetHandle::updatePosition()
{
    BVResizableWidgetHandle::updatePosition();
    placeOverWidget();
}

bool ResizeableWidgetHandle::event(QEvent *event)
{
    const bool isMoved = event->type() == QEvent::ParentChange && parentWidget() != m_widget;
    if (isMoved && m_widget) {
        const QPointer<ResizeableWidgetHandle> self(this);
        letGoOfWidget();
        if (self && std::exchange(m_toldFloating, false))
            Q_EMIT sigFloatingChanged(false);
        if (!self)
            return true;
    }
    return BVResizableWidgetHandle::event(event);
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
    m_drag->begin(m_widget, panelFloat());
    if (isFloating())
        mainWidget()->raise();
}

void ResizeableWidgetHandle::onMoveAbout(const QSize &delta)
{
    const QSize growth = BVPanelGeometry::alongHandle(position(), delta);
    if (!m_widget || !ResizeableWidgetInterface::checkResizingPossible(this, growth))
        return;
    // What the drag has taken away before does not count as a wish for more room.
    const QSize wanted = m_drag->wants(growth);
    if (!isFloating() && !checkResizingPossible(this, wanted - m_widget->size()))
        return;
    const QRect target = grown(wanted);
    if (target != currentRect() && (isFloating() || leavePlace()))
        mainWidget()->setGeometryWithAnimation(target, 0, false);
}

void ResizeableWidgetHandle::onMoved()
{
    if (isFloating() && !isLarger(currentRect().size(), panelFloat()->placeRect().size()))
        returnToPlace();
}

void ResizeableWidgetHandle::onMoveCanceled()
{
    m_drag->undo(panelFloat());
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

QRect ResizeableWidgetHandle::currentRect() const
{
    return BVPanelDrag::currentRect(m_widget, panelFloat());
}

QRect ResizeableWidgetHandle::grown(const QSize &wanted) const
{
    const BVPanelGeometry::HandlePlace &place = BVPanelGeometry::handlePlace(position());
    return BVPanelDrag::grown(m_widget, panelFloat(), wanted, place.widthSign < 0,
                              place.heightSign < 0);
}

bool ResizeableWidgetHandle::leavePlace()
{
    const QPointer<ResizeableWidgetHandle> self(this);
    return m_owner && m_owner->leavePlace() && self && isFloating();
}

void ResizeableWidgetHandle::tellFloating(bool floating)
{
    if (m_toldFloating == floating)
        return;
    m_toldFloating = floating;
    const QPointer<ResizeableWidgetHandle> self(this);
    if (!floating)
        m_registration->post(m_widget);
    else if (m_registration->isPosted())
        m_registration->takeBack(m_widget);
    if (!self || m_toldFloating != floating)
        return;
    placeOverWidget();
    Q_EMIT sigFloatingChanged(floating);
}

void ResizeableWidgetHandle::returnToPlace()
{
    if (isFloating())
        panelFloat()->returnToPlace();
}
