// SPDX-License-Identifier: MIT
#include "units/BVSpinBoxDrag_p.h"

#include "units/BVDoubleSpinBox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleOptionSpinBox>

#include <cstdlib>
#include <utility>

namespace {

constexpr int s_stepLength = 4; // px

bool isEscape(const QEvent &event)
{
    return (event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride) &&
           static_cast<const QKeyEvent &>(event).key() == Qt::Key_Escape;
}

} // namespace

BVSpinBoxDrag::BVSpinBoxDrag(BVDoubleSpinBox *box, QLineEdit *edit)
    : QObject(box)
    , m_box(box)
    , m_edit(edit)
    , m_boxCursor(box)
    , m_editCursor(edit)
{
    m_box->installEventFilter(this);
    m_edit->installEventFilter(this);
}

void BVSpinBoxDrag::update()
{
    if (!m_box->isSlidingPossible())
        abort();
    updateCursors();
}

bool BVSpinBoxDrag::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return handleMouse(watched, static_cast<QMouseEvent *>(event));
    case QEvent::ContextMenu:
    case QEvent::EnabledChange:
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::ReadOnlyChange:
    case QEvent::WindowDeactivate:
        abort();
        return false;
    default:
        break;
    }
    if (m_state != Dragging || !isEscape(*event))
        return false;
    event->accept();
    if (event->type() == QEvent::KeyPress)
        cancel();
    return true;
}

bool BVSpinBoxDrag::handleMouse(QObject *watched, QMouseEvent *event)
{
    if (event->type() == QEvent::MouseMove)
        return watched ==
                   (m_onPrefix || m_state == Idle ? m_edit : static_cast<QObject *>(m_box)) &&
               move(*event);
    if (event->button() != Qt::LeftButton) {
        const bool wasDragging = m_state == Dragging;
        abort();
        return wasDragging;
    }
    if (event->type() == QEvent::MouseButtonRelease)
        end();
    else
        press(watched, *event);
    return false;
}

void BVSpinBoxDrag::press(QObject *watched, const QMouseEvent &event)
{
    end();
    if (!m_box->isSlidingPossible())
        return;
    m_onPrefix = watched == m_edit;
    if (m_onPrefix ? !isOnPrefix(event.pos()) : !isOnButton(event.pos()))
        return;
    m_state = Pressed;
    m_pressedAt = event.globalPos();
    m_startValue = m_box->value();
    m_startEmpty = m_box->isEmpty();
}

bool BVSpinBoxDrag::move(const QMouseEvent &event)
{
    if (m_state == Idle) {
        const bool isOverPrefix = event.buttons() == Qt::NoButton && isOnPrefix(event.pos());
        if (std::exchange(m_isOverPrefix, isOverPrefix) != isOverPrefix)
            updateCursors();
        return false;
    }
    if (!(event.buttons() & Qt::LeftButton)) {
        end();
        return false;
    }
    const int offset = offsetOf(event);
    if (m_state == Pressed && std::abs(offset) >= QApplication::startDragDistance())
        start(offset);
    if (m_state == Pressed)
        return m_onPrefix; // the edit would select it
    if (m_state == Dragging)
        slide(offset - m_origin); // a slot may delete the box
    return true;
}

void BVSpinBoxDrag::start(int offset)
{
    m_state = Dragging;
    m_steps = 0;
    const int distance = QApplication::startDragDistance();
    m_origin = offset > 0 ? distance : -distance;
    m_box->setIsSliding(true);
    m_wasTracking = m_box->hasMouseTracking();
    m_box->setMouseTracking(true); // tells of moves after a release that has gone elsewhere
    if (!m_onPrefix)
        stopAutoRepeat();
    updateCursors();
}

void BVSpinBoxDrag::slide(int offset)
{
    if (!m_box->isSlidingPossible()) {
        abort();
        return;
    }
    const int steps = offset / s_stepLength;
    const int more = steps - m_steps;
    m_steps = steps;
    if (more != 0)
        m_box->slideValue(more, false);
}

void BVSpinBoxDrag::cancel()
{
    const QPointer<BVSpinBoxDrag> self(this);
    abort();
    m_box->setValue(m_startValue);
    if (self && m_startEmpty)
        m_box->setEmpty(true);
}

/// Ends a drag while the button may be down: the moves until its release would select the prefix.
void BVSpinBoxDrag::abort()
{
    const bool isHeld = m_state == Dragging || m_state == Cancelled;
    const bool onPrefix = m_onPrefix;
    end();
    if (!isHeld)
        return;
    m_state = Cancelled;
    m_onPrefix = onPrefix;
}

void BVSpinBoxDrag::end()
{
    const bool wasDragging = std::exchange(m_state, Idle) == Dragging;
    m_onPrefix = false;
    if (!wasDragging)
        return;
    m_box->setIsSliding(false);
    m_box->setMouseTracking(m_wasTracking);
    updateCursors();
}

/// The toolkit's box repeats the step of a button until that is released.
void BVSpinBoxDrag::stopAutoRepeat()
{
    const QPointF outside(-1.0, -1.0);
    QMouseEvent release(QEvent::MouseButtonRelease, outside, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    m_box->event(&release);
}

bool BVSpinBoxDrag::isOnButton(const QPoint &position) const
{
    QStyleOptionSpinBox option;
    m_box->initStyleOption(&option);
    option.subControls = QStyle::SC_All;
    const QStyle::SubControl hit =
        m_box->style()->hitTestComplexControl(QStyle::CC_SpinBox, &option, position, m_box);
    return m_box->buttonSymbols() != QAbstractSpinBox::NoButtons &&
           (hit == QStyle::SC_SpinBoxUp || hit == QStyle::SC_SpinBoxDown);
}

bool BVSpinBoxDrag::isOnPrefix(const QPoint &position) const
{
    const QString prefix = m_box->prefix();
    return !prefix.isEmpty() && m_edit->text().startsWith(prefix) &&
           m_edit->cursorPositionAt(position) < prefix.size();
}

void BVSpinBoxDrag::updateCursors()
{
    using Cursor = BVCursorTable::Cursor;
    const bool isPossible = m_box->isSlidingPossible();
    if (!isPossible)
        m_boxCursor.set(Cursor::Locked);
    else if (m_state == Dragging && !m_onPrefix)
        m_boxCursor.set(Cursor::SlideVertical);
    else
        m_boxCursor.reset();
    if (!isPossible)
        m_editCursor.set(Cursor::Locked);
    else if (m_isOverPrefix)
        m_editCursor.set(Cursor::SlideHorizontal);
    else
        m_editCursor.reset();
}

int BVSpinBoxDrag::offsetOf(const QMouseEvent &event) const
{
    const QPoint moved = event.globalPos() - m_pressedAt;
    if (!m_onPrefix)
        return -moved.y();
    return m_box->isRightToLeft() ? -moved.x() : moved.x();
}
