// SPDX-License-Identifier: MIT
#include "units/BVSliderPointer_p.h"

#include "units/BVSliderGeometry_p.h"
#include "units/BVSliderHandles_p.h"

#include <QHoverEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalBlocker>
#include <QToolTip>

namespace {

constexpr int s_toolTipDigits = 3; // significant, while dragging a limit

} // namespace

BVSliderPointer::BVSliderPointer(BVSlider &slider)
    : m_slider(slider)
    , m_drag([this] { handleMove(); })
{
}

BVSlider::Handle BVSliderPointer::limitAt(const QPoint &position) const
{
    for (const BVSlider::Handle limit : {BVSlider::LowerLimitHandle, BVSlider::UpperLimitHandle}) {
        if (m_slider.isLimitShown(limit) && m_slider.handleRect(limit).contains(position))
            return limit;
    }
    return BVSlider::NoHandle;
}

void BVSliderPointer::press(QMouseEvent *event)
{
    event->accept();
    const QPointer<BVSlider> self(&m_slider);
    if (m_drag.isStale(*event))
        abandon();
    if (!self || m_drag.isActive())
        return;
    const bool isLeft = event->button() == Qt::LeftButton && event->buttons() == Qt::LeftButton;
    const BVSlider::Handle limit =
        isLeft && m_slider.takesInput() ? limitAt(event->pos()) : BVSlider::NoHandle;
    if (limit != BVSlider::NoHandle) {
        pressLimit(limit, *event);
        return;
    }
    if (!m_slider.isHandleActive(BVSlider::ValueHandle))
        return;
    if (isLeft)
        m_slider.m_handles->focus(BVSlider::ValueHandle);
    if (isLeft && m_slider.minimum() != m_slider.maximum() &&
        m_slider.geometry().jumpsAt(event->pos(), m_slider.sliderPosition())) {
        m_slider.update();
        Q_EMIT m_slider.requestValueChange(
            m_slider.boundToAdmissible(m_slider.pixelPosToValue(event->pos())));
        return;
    }
    pressValue(event);
}

void BVSliderPointer::pressLimit(BVSlider::Handle limit, const QMouseEvent &event)
{
    m_drag.begin(limit, event, 0, *m_slider.m_limits);
    m_slider.updateCursor();
    m_slider.m_handles->focus(limit);
    m_slider.update();
}

void BVSliderPointer::pressValue(QMouseEvent *event)
{
    const QPointer<BVSlider> self(&m_slider);
    if (!m_slider.geometry().isTooWide())
        m_slider.QSlider::mousePressEvent(event);
    else if (event->button() == Qt::LeftButton &&
             m_slider.handleRect(BVSlider::ValueHandle).contains(event->pos()))
        m_slider.setSliderDown(true);
    else
        event->ignore();
    if (!self || !m_slider.isSliderDown())
        return;
    const QRect handle = m_slider.handleRect(BVSlider::ValueHandle);
    m_drag.begin(BVSlider::ValueHandle, *event,
                 m_slider.geometry().along(event->pos()) -
                     m_slider.geometry().along(handle.topLeft()),
                 *m_slider.m_limits);
    m_slider.update();
}

void BVSliderPointer::move(QMouseEvent *event)
{
    const QPointer<BVSlider> self(&m_slider);
    const bool isStale = m_drag.isStale(*event);
    if (isStale)
        abandon();
    if (isStale || !m_drag.isActive()) {
        event->ignore();
        return;
    }
    event->accept();
    const bool isHorizontal = m_slider.orientation() == Qt::Horizontal;
    if (isHorizontal && event->pos() == m_drag.position())
        return;
    const bool isNow = m_drag.moveTo(event->pos());
    if (m_drag.handle() == BVSlider::ValueHandle)
        dragValue(event);
    if (self && isNow)
        handleMove();
}

void BVSliderPointer::dragValue(QMouseEvent *event)
{
    // Where the toolkit would take the handle: not out of the admissible range.
    const int position = m_slider.geometry().positionOfHandleAt(
        m_slider.geometry().along(event->pos()) - m_drag.grip());
    const int bounded = m_slider.boundToAdmissible(position);
    if (bounded != position || m_slider.geometry().isTooWide())
        m_slider.setSliderPosition(bounded);
    else
        m_slider.QSlider::mouseMoveEvent(event);
}

void BVSliderPointer::handleMove()
{
    if (!m_drag.isActive())
        return;
    m_drag.setHandled(m_slider.orientation() == Qt::Horizontal);
    const QPointer<BVSlider> self(&m_slider);
    if (m_drag.limit() != BVSlider::NoHandle)
        m_slider.moveLimit(m_drag.limit(), limitPositionAt(m_drag.limit(), m_drag.position()));
    if (self && m_drag.isActive())
        showToolTip();
}

/// Where a limit goes to that is dragged to a place.
int BVSliderPointer::limitPositionAt(BVSlider::Handle limit, const QPoint &place) const
{
    return qBound(m_slider.handleMinimum(limit), m_slider.pixelPosToValue(place),
                  m_slider.handleMaximum(limit));
}

void BVSliderPointer::release(QMouseEvent *event)
{
    const QPointer<BVSlider> self(&m_slider);
    if (m_drag.isReleasedBy(*event))
        finishDrag(event);
    else
        passRelease(event);
    if (!self)
        return;
    hideToolTip();
    m_slider.update();
}

void BVSliderPointer::finishDrag(QMouseEvent *event)
{
    const BVSlider::Handle limit = m_drag.limit();
    const bool isMoveOpen = m_drag.isMoveOpen(event->pos());
    m_drag.end(); // a slot may open a dialog, which would end it too
    m_slider.updateCursor();
    const QPointer<BVSlider> self(&m_slider);
    passRelease(event);
    event->accept();
    if (self && limit == BVSlider::NoHandle) {
        m_slider.setSliderDown(false); // the toolkit waits for all buttons
    } else if (self) {
        const int target =
            isMoveOpen ? limitPositionAt(limit, event->pos()) : m_slider.handlePosition(limit);
        if (target != m_slider.handlePosition(limit))
            m_slider.storeLimits(
                limit == BVSlider::LowerLimitHandle ? target : m_slider.m_limits->minimum(),
                limit == BVSlider::LowerLimitHandle ? m_slider.m_limits->maximum() : target);
        if (self)
            m_slider.announceLimits();
    }
}

void BVSliderPointer::passRelease(QMouseEvent *event)
{
    if (!m_slider.geometry().isTooWide())
        m_slider.QSlider::mouseReleaseEvent(event);
}

void BVSliderPointer::cancel()
{
    const QPointer<BVSlider> self(&m_slider);
    const BVSliderLimits before = m_drag.limitsBefore();
    const bool isLower = m_drag.limit() == BVSlider::LowerLimitHandle;
    m_drag.end();
    m_slider.updateCursor();
    hideToolTip();
    m_slider.update();
    if (isLower) // the other one may have been set meanwhile
        m_slider.setAdmissibleMinimum(before.minimum());
    else
        m_slider.setAdmissibleMaximum(before.maximum());
    int value = 0;
    if (self && m_drag.hasPushed(m_slider.value(), value))
        m_slider.setValue(value);
}

void BVSliderPointer::abandon()
{
    const BVSlider::Handle held = m_drag.handle();
    const bool isDown = m_slider.isSliderDown() && !m_slider.isHandleActive(BVSlider::ValueHandle);
    const bool isValueHeld = held == BVSlider::ValueHandle || isDown ||
                             m_slider.repeatAction() != BVSlider::SliderNoAction;
    if (held == BVSlider::NoHandle && !isValueHeld)
        return;
    m_drag.end();
    hideToolTip();
    m_slider.updateCursor();
    m_slider.update();
    const QPointer<BVSlider> self(&m_slider);
    if (isValueHeld)
        letGoOfValue();
    if (self && held > BVSlider::ValueHandle)
        m_slider.announceLimits();
}

void BVSliderPointer::abandonIfInactive()
{
    const BVSlider::Handle limit = m_drag.limit();
    const bool isValueHeld = m_drag.handle() == BVSlider::ValueHandle || m_slider.isSliderDown() ||
                             m_slider.repeatAction() != BVSlider::SliderNoAction;
    if (limit != BVSlider::NoHandle
            ? !m_slider.isHandleActive(limit)
            : isValueHeld && !m_slider.isHandleActive(BVSlider::ValueHandle))
        abandon();
}

void BVSliderPointer::letGoOfValue()
{
    const bool wasDown = m_slider.isSliderDown();
    const bool hasMoved = m_slider.sliderPosition() != m_slider.value(); // without tracking
    {
        const QSignalBlocker blocker(&m_slider); // a slot may delete this while the toolkit goes on
        m_slider.setRepeatAction(BVSlider::SliderNoAction);
        m_slider.setSliderPosition(m_slider.value());
        m_slider.setSliderDown(false);
        // Otherwise the toolkit would take up the next move.
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(), Qt::LeftButton, Qt::NoButton,
                            Qt::NoModifier);
        passRelease(&release);
    }
    const QPointer<BVSlider> self(&m_slider);
    if (hasMoved)
        Q_EMIT m_slider.sliderMoved(m_slider.value());
    if (self && wasDown)
        Q_EMIT m_slider.sliderReleased();
    if (self && hasMoved && !(*m_slider.m_limits == m_drag.limitsBefore())) // narrowed meanwhile
        m_slider.setValue(m_slider.boundToAdmissible(m_slider.value()));
}

void BVSliderPointer::hover(const QHoverEvent &event)
{
    BVSlider::Handle hovered = BVSlider::NoHandle;
    if (event.type() != QEvent::HoverLeave) {
        hovered = limitAt(event.pos());
        if (hovered == BVSlider::NoHandle &&
            m_slider.handleRect(BVSlider::ValueHandle).contains(event.pos()))
            hovered = BVSlider::ValueHandle;
    }
    if (!m_slider.m_handles->hover(hovered))
        return;
    m_slider.updateCursor();
    m_slider.update();
}

void BVSliderPointer::showToolTip()
{
    const BVSlider::Handle limit = m_drag.limit();
    if (limit != BVSlider::NoHandle && (m_slider.m_extended || m_slider.m_spanSlider)) {
        const double value =
            m_slider.intPositionToUserRelevantValue(m_slider.handlePosition(limit));
        QToolTip::showText(QCursor::pos(), QString::number(value, 'g', s_toolTipDigits), &m_slider);
    } else if (limit == BVSlider::NoHandle && m_slider.m_extended) {
        const QString text =
            m_slider.m_toolTipConverter
                ? m_slider.m_toolTipConverter->getStringTo(m_slider.sliderPosition())
                : m_slider.toolTip();
        QToolTip::showText(QCursor::pos(), text, &m_slider);
    }
}

void BVSliderPointer::hideToolTip() const
{
    if (m_slider.m_extended || m_slider.m_spanSlider)
        QToolTip::hideText();
}
