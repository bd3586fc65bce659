// SPDX-License-Identifier: MIT
#include "units/BVSlider.h"

#include "foundation/BVWidgetStatusChangedEvent.h"
#include "foundation/VirtualSliderEvent.h"
#include "units/BVFormatter.h"
#include "units/BVSliderAccessible_p.h"
#include "units/BVSliderDrag_p.h"
#include "units/BVSliderHandles_p.h"
#include "units/BVSliderLimits_p.h"
#include "units/BVSliderMarks_p.h"
#include "units/BVSliderScale_p.h"
#include "units/BVSliderShapes_p.h"
#include "units/BVSliderSteps_p.h"

#include <QHelpEvent>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyleOptionSlider>
#include <QToolTip>
#include <QWheelEvent>

#include <limits>

namespace {

constexpr int s_toolTipDigits = 3; // significant, while dragging a limit

bool isHover(const QEvent &event)
{
    return event.type() == QEvent::HoverEnter || event.type() == QEvent::HoverMove ||
           event.type() == QEvent::HoverLeave;
}

/// Whether the release of a button that is held will not come, or not count.
bool takesPointerAway(const QEvent &event)
{
    return event.type() == QEvent::WindowBlocked || event.type() == QEvent::WindowDeactivate ||
           event.type() == QEvent::UngrabMouse || event.type() == QEvent::Hide;
}

} // namespace

BVSlider::BVSlider(QWidget *parent)
    : BVSlider(Qt::Horizontal, parent)
{
}

BVSlider::BVSlider(Qt::Orientation orientation, QWidget *parent)
    : BVStatusControl<QSlider>(orientation, parent)
    , m_formatter(new BVFormatter(this))
    , m_limits(new BVSliderLimits)
    , m_scale(new BVSliderScale)
    , m_drag(new BVSliderDrag([this] { handleMove(); }))
    , m_handles(new BVSliderHandles(*this))
    , m_marks(new BVSliderMarks)
{
    BVSliderAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true); // a move without a button tells that a release has got lost
    m_formatter->setCutUnnecessaryDigits(true);
    connect(this, &BVSlider::requestValueChange, this, &QSlider::setValue);
    connect(m_formatter, &BVFormatter::settingsChanged, this, &BVSlider::announceValues);
    connect(this, &QAbstractSlider::actionTriggered, this,
            [this] { setSliderPosition(boundToAdmissible(sliderPosition())); });
}

BVSlider::~BVSlider() = default;

// Admissible range

int BVSlider::admissibleMinimum() const
{
    return m_limits->minimum();
}

int BVSlider::admissibleMaximum() const
{
    return m_limits->maximum();
}

int BVSlider::boundToAdmissible(qint64 position) const
{
    return m_limits->bound(position, minimum(), maximum());
}

void BVSlider::setAdmissibleRange(int minimum, int maximum, bool handlesActive)
{
    const QPointer<BVSlider> self(this);
    setLimitHandlesActive(handlesActive);
    if (self && storeLimits(minimum, maximum))
        announceLimits();
}

/// Whether the limits are others now, and to be announced; false if this has been deleted.
bool BVSlider::storeLimits(int minimum, int maximum)
{
    const BVSliderLimits limits = m_limits->changedTo(minimum, maximum);
    if (limits == *m_limits)
        return false;
    *m_limits = limits;
    const QPointer<BVSlider> self(this);
    changeLook();
    if (!self)
        return false;
    const int target = boundToAdmissible(sliderPosition());
    if (target != sliderPosition()) {
        m_drag->notePush(value(), target);
        setValue(target);
    }
    // A slot may have set other limits, and announced them.
    return self && *m_limits == limits;
}

void BVSlider::announceLimits()
{
    const QPointer<BVSlider> self(this);
    BVSliderAccessible::announceValue(this, LowerLimitHandle);
    if (self)
        BVSliderAccessible::announceValue(this, UpperLimitHandle);
    if (self)
        Q_EMIT admissibleRangeChanged(m_limits->minimum(), m_limits->maximum());
}

void BVSlider::setAdmissibleMinimum(int minimum)
{
    setAdmissibleRange(minimum, m_limits->maximum(), m_limitHandlesActive);
}

void BVSlider::setAdmissibleMaximum(int maximum)
{
    setAdmissibleRange(m_limits->minimum(), maximum, m_limitHandlesActive);
}

void BVSlider::clearAdmissibleRange()
{
    setAdmissibleRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max(),
                       m_limitHandlesActive);
}

void BVSlider::setLimitHandlesActive(bool active)
{
    if (active == m_limitHandlesActive)
        return;
    m_limitHandlesActive = active;
    changeSize();
}

// Input

bool BVSlider::isLocked() const
{
    return isStandardLocked();
}

void BVSlider::setLocked(bool locked)
{
    setStandardLocked(locked);
}

bool BVSlider::takesInput() const
{
    return isEnabled() && !isLocked();
}

void BVSlider::setInputEnabled(bool enabled)
{
    if (enabled == m_inputEnabled)
        return;
    m_inputEnabled = enabled;
    changeLook();
}

bool BVSlider::isLimitShown(Handle handle) const
{
    const int limit = handlePosition(handle);
    return hasLimitHandles() && limit >= minimum() && limit <= maximum();
}

bool BVSlider::isHandleActive(Handle handle) const
{
    if (!takesInput() || handle == NoHandle)
        return false;
    return handle == ValueHandle ? m_inputEnabled && !m_spanSlider : isLimitShown(handle);
}

BVSlider::Handle BVSlider::focusedHandle() const
{
    return m_handles->focused();
}

void BVSlider::setFocusedHandle(Handle handle)
{
    if (isHandleActive(handle))
        m_handles->focus(handle);
}

int BVSlider::handlePosition(Handle handle) const
{
    if (handle == NoHandle)
        return 0;
    if (handle == ValueHandle)
        return sliderPosition();
    const BVSliderLimits shown = m_spanSlider ? m_limits->within(minimum(), maximum()) : *m_limits;
    return handle == LowerLimitHandle ? shown.minimum() : shown.maximum();
}

int BVSlider::handleMinimum(Handle handle) const
{
    if (handle == UpperLimitHandle)
        return qMax(minimum(), handlePosition(LowerLimitHandle));
    return handle == ValueHandle ? boundToAdmissible(minimum()) : minimum();
}

int BVSlider::handleMaximum(Handle handle) const
{
    if (handle == LowerLimitHandle)
        return qMin(maximum(), handlePosition(UpperLimitHandle));
    return handle == ValueHandle ? boundToAdmissible(maximum()) : maximum();
}

void BVSlider::moveHandle(Handle handle, int position)
{
    if (!isHandleActive(handle))
        return;
    const int bounded = qMax(handleMinimum(handle), qMin(position, handleMaximum(handle)));
    if (handle == ValueHandle)
        setValue(bounded);
    else
        moveLimit(handle, bounded);
}

void BVSlider::moveLimit(Handle handle, int position)
{
    if (position == handlePosition(handle)) // so a limit shown at the range's end stays beyond it
        return;
    if (handle == LowerLimitHandle)
        setAdmissibleMinimum(position);
    else
        setAdmissibleMaximum(position);
}

// Pixels

BVSliderShapes &BVSlider::shapes() const
{
    if (m_shapes && m_shapes->fit(*this))
        return *m_shapes;
    QStyleOptionSlider option;
    initStyleOption(&option);
    m_shapes = std::make_unique<BVSliderShapes>(*this, option);
    fillScene(m_shapes->scene());
    return *m_shapes;
}

const BVSliderGeometry &BVSlider::geometry() const
{
    return shapes().scene().geometry;
}

int BVSlider::valueToPixelPos(int value) const
{
    return geometry().pixelAt(value);
}

int BVSlider::pixelPosToValue(int pixel) const
{
    return geometry().positionAt(pixel);
}

int BVSlider::pixelPosToValue(const QPoint &position) const
{
    return pixelPosToValue(geometry().along(position));
}

QRect BVSlider::handleRect(Handle handle) const
{
    if (handle == LowerLimitHandle)
        return shapes().scene().lowerLimit.boundingRect();
    if (handle == UpperLimitHandle)
        return shapes().scene().upperLimit.boundingRect();
    return handle == ValueHandle && !m_spanSlider ? geometry().handleAt(sliderPosition()) : QRect();
}

// Values

bool BVSlider::setUserRange(double atMinimum, double atMaximum, Scale scale)
{
    if (!m_scale->setRange(atMinimum, atMaximum, scale))
        return false;
    announceValues();
    return true;
}

void BVSlider::clearUserRange()
{
    m_scale->clear();
    announceValues();
}

BVSlider::Scale BVSlider::scale() const
{
    return m_scale->scale();
}

double BVSlider::positionToValue(int position) const
{
    return m_scale->valueAt(position, minimum(), maximum());
}

int BVSlider::valueToPosition(double value) const
{
    return m_scale->positionOf(value, minimum(), maximum());
}

double BVSlider::intPositionToUserRelevantValue(int position) const
{
    return m_formatter->valueToDisplayValue(positionToValue(position));
}

QString BVSlider::positionToText(int position) const
{
    if (m_toolTipConverter)
        return m_toolTipConverter->getStringTo(position);
    return m_formatter->textFromValue(positionToValue(position));
}

void BVSlider::setCustomToolTipConverter(const ValueToStringConverter &converter)
{
    m_toolTipConverter.reset(converter.clone());
    announceValues();
}

void BVSlider::clearCustomToolTipConverter()
{
    m_toolTipConverter.reset();
    announceValues();
}

void BVSlider::announceValues()
{
    update();
    for (const Handle handle : {ValueHandle, LowerLimitHandle, UpperLimitHandle})
        BVSliderAccessible::announceValue(this, handle);
}

QString BVSlider::referenceValueText(const QVariant &reference) const
{
    bool isNumber = false;
    const double value = reference.toDouble(&isNumber);
    if (!isNumber)
        return reference.toString();
    if (m_toolTipConverter)
        return m_toolTipConverter->getStringTo(valueToPosition(value));
    return m_formatter->textFromValue(value);
}

QString BVSlider::toolTipText() const
{
    if (!m_spanSlider)
        return joinedToolTip(toolTip(), {positionToText(sliderPosition())});
    return joinedToolTip(toolTip(), {tr("%1 to %2")
                                         .arg(positionToText(handlePosition(LowerLimitHandle)),
                                              positionToText(handlePosition(UpperLimitHandle)))});
}

// Modes

void BVSlider::setExtended(bool extended)
{
    if (extended == m_extended)
        return;
    m_extended = extended;
    changeSize();
}

void BVSlider::setIsDVValueSlider(bool on)
{
    if (on == m_dvValueSlider)
        return;
    m_dvValueSlider = on;
    changeSize();
}

void BVSlider::setUseAsSpanSlider(bool on)
{
    if (on == m_spanSlider)
        return;
    m_spanSlider = on;
    changeSize();
}

/// May delete this, as it ends the drag of a handle that is no longer there.
void BVSlider::changeLook()
{
    m_shapes.reset();
    m_handles->ensureFocused();
    updateCursor();
    update();
    const Handle limit = m_drag->limit();
    const bool isValueHeld =
        m_drag->handle() == ValueHandle || isSliderDown() || repeatAction() != SliderNoAction;
    if (limit != NoHandle ? !isHandleActive(limit) : isValueHeld && !isHandleActive(ValueHandle))
        abandonInput();
}

void BVSlider::changeSize()
{
    updateGeometry();
    changeLook();
}

void BVSlider::updateCursor()
{
    m_handles->updateCursor(m_drag->limit() != NoHandle);
}

QSize BVSlider::sizeHint() const
{
    ensurePolished();
    // The style centres the groove, so room on one side is room on both.
    return QSlider::sizeHint().expandedTo(
        sizeAcross(m_dvValueSlider ? 2 * geometry().roomForCurve() : 0));
}

QSize BVSlider::minimumSizeHint() const
{
    ensurePolished();
    return QSlider::minimumSizeHint().expandedTo(
        sizeAcross(m_dvValueSlider ? geometry().roomForCurve() : 0));
}

QSize BVSlider::sizeAcross(int least) const
{
    const bool hasShapes = hasLimitHandles() || m_marks->hasBestValue();
    const int room = hasShapes ? geometry().roomForLimits() : 0;
    const int across = qMax(least, geometry().handleThickness() + 2 * room);
    return orientation() == Qt::Horizontal ? QSize(0, across) : QSize(across, 0);
}

// Painting

void BVSlider::mark(int from, int to, const QBrush &brush)
{
    if (m_marks->mark(from, to, brush))
        changeLook();
}

void BVSlider::clearMarkers()
{
    m_marks->clearMarkers();
    changeLook();
}

void BVSlider::setDistribution(double mean, double deviation)
{
    if (m_marks->setDistribution(mean, deviation))
        changeLook();
}

void BVSlider::clearDistribution()
{
    m_marks->clearDistribution();
    changeLook();
}

void BVSlider::setBestValue(int position)
{
    m_marks->setBestValue(position);
    changeSize();
}

void BVSlider::clearBestValue()
{
    m_marks->clearBestValue();
    changeSize();
}

QBrush BVSlider::grooveBaseBrush() const
{
    return m_marks->groove();
}

void BVSlider::setGrooveBaseBrush(const QBrush &brush)
{
    m_marks->setGroove(brush);
    changeLook();
}

QColor BVSlider::brushColor() const
{
    return m_marks->tint();
}

void BVSlider::setBrushColor(const QColor &color)
{
    m_marks->setTint(color);
    update();
}

bool BVSlider::needsOwnPainting() const
{
    if (m_limits->narrow(minimum(), maximum()) || hasLimitHandles() || m_extended ||
        m_dvValueSlider || !m_inputEnabled || !m_marks->isEmpty() || geometry().isTooWide())
        return true;
    const BVWidgetStatus::Stati stati = getBvStatus();
    return BVWidgetStatus::testFlag(stati, BVWidgetStatus::StandardLocked) ||
           BVWidgetStatus::getDominantStatusFromFlag(stati) != BVWidgetStatus::Normal;
}

void BVSlider::fillScene(BVSliderScene &scene) const
{
    const BVSliderGeometry &geometry = scene.geometry;
    const int lower = handlePosition(LowerLimitHandle);
    const int upper = handlePosition(UpperLimitHandle);
    scene.showsAdmissible = hasLimitHandles() || m_limits->narrow(minimum(), maximum());
    scene.admissible = geometry.stretch(lower, upper);
    if (isLimitShown(LowerLimitHandle)) {
        scene.lowerLimit = geometry.limitShape(lower, true);
        scene.lowerLine = geometry.limitLine(lower);
    }
    if (isLimitShown(UpperLimitHandle)) {
        scene.upperLimit = geometry.limitShape(upper, false);
        scene.upperLine = geometry.limitLine(upper);
    }
    m_marks->fill(scene, boundToAdmissible(minimum()), boundToAdmissible(maximum()));
}

BVSliderState BVSlider::currentState() const
{
    BVSliderState state;
    state.hovered = m_handles->hovered();
    state.pressed = isSliderDown() ? ValueHandle : m_drag->limit();
    if (hasFocus())
        state.focused = m_handles->focused();
    state.active = takesInput();
    state.setColors(palette(), BVWidgetStatus::getDominantStatusFromFlag(getBvStatus()),
                    m_marks->tint());
    return state;
}

void BVSlider::paintEvent(QPaintEvent *event)
{
    if (!needsOwnPainting()) {
        QSlider::paintEvent(event);
        return;
    }
    BVSliderShapes &shapes = this->shapes();
    const BVSliderState state = currentState();
    QPainter painter(this);
    // The widget may be rendered into something else, with another ratio.
    const qreal pixelRatio = painter.paintEngine()->paintDevice()->devicePixelRatioF();
    painter.drawPixmap(0, 0, shapes.decoration(*this, state.withoutValue(), pixelRatio));
    QStyleOptionSlider option;
    initStyleOption(&option);
    if (!isHandleActive(ValueHandle))
        option.state &= ~QStyle::State_Enabled;
    if (state.focused != ValueHandle)
        option.state &= ~QStyle::State_HasFocus;
    if (isSliderDown())
        option.state |= QStyle::State_Sunken;
    if (isSliderDown() || state.hovered == ValueHandle)
        option.activeSubControls = QStyle::SC_SliderHandle;
    BVSliderPainter(painter, *this, shapes.scene(), state).paintValue(option);
}

// Mouse

BVSlider::Handle BVSlider::limitAt(const QPoint &position) const
{
    for (const Handle limit : {LowerLimitHandle, UpperLimitHandle}) {
        if (isLimitShown(limit) && handleRect(limit).contains(position))
            return limit;
    }
    return NoHandle;
}

void BVSlider::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    const QPointer<BVSlider> self(this);
    if (m_drag->isStale(*event))
        abandonInput();
    if (!self || m_drag->isActive())
        return;
    const bool isLeft = event->button() == Qt::LeftButton && event->buttons() == Qt::LeftButton;
    const Handle limit = isLeft && takesInput() ? limitAt(event->pos()) : NoHandle;
    if (limit != NoHandle) {
        pressLimit(limit, *event);
        return;
    }
    if (!isHandleActive(ValueHandle))
        return;
    if (isLeft)
        m_handles->focus(ValueHandle);
    if (isLeft && minimum() != maximum() && geometry().jumpsAt(event->pos(), sliderPosition())) {
        update();
        Q_EMIT requestValueChange(boundToAdmissible(pixelPosToValue(event->pos())));
        return;
    }
    pressValue(event);
}

void BVSlider::pressLimit(Handle limit, const QMouseEvent &event)
{
    m_drag->begin(limit, event, 0, *m_limits);
    updateCursor();
    m_handles->focus(limit);
    update();
}

void BVSlider::pressValue(QMouseEvent *event)
{
    const QPointer<BVSlider> self(this);
    if (!geometry().isTooWide())
        QSlider::mousePressEvent(event);
    else if (event->button() == Qt::LeftButton && handleRect(ValueHandle).contains(event->pos()))
        setSliderDown(true);
    else
        event->ignore();
    if (!self || !isSliderDown())
        return;
    const QRect handle = handleRect(ValueHandle);
    m_drag->begin(ValueHandle, *event,
                  geometry().along(event->pos()) - geometry().along(handle.topLeft()), *m_limits);
    update();
}

void BVSlider::mouseMoveEvent(QMouseEvent *event)
{
    const QPointer<BVSlider> self(this);
    const bool isStale = m_drag->isStale(*event);
    if (isStale)
        abandonInput();
    if (isStale || !m_drag->isActive()) {
        event->ignore();
        return;
    }
    event->accept();
    const bool isHorizontal = orientation() == Qt::Horizontal;
    if (isHorizontal && event->pos() == m_drag->position())
        return;
    const bool isNow = m_drag->moveTo(event->pos());
    if (m_drag->handle() == ValueHandle)
        dragValue(event);
    if (self && isNow)
        handleMove();
}

void BVSlider::dragValue(QMouseEvent *event)
{
    // Where the toolkit would take the handle: not out of the admissible range.
    const int position =
        geometry().positionOfHandleAt(geometry().along(event->pos()) - m_drag->grip());
    const int bounded = boundToAdmissible(position);
    if (bounded != position || geometry().isTooWide())
        setSliderPosition(bounded);
    else
        QSlider::mouseMoveEvent(event);
}

void BVSlider::handleMove()
{
    if (!m_drag->isActive())
        return;
    m_drag->setHandled(orientation() == Qt::Horizontal);
    const QPointer<BVSlider> self(this);
    if (m_drag->limit() != NoHandle)
        moveLimit(m_drag->limit(), pixelPosToValue(m_drag->position()));
    if (self && m_drag->isActive())
        showDragToolTip();
}

void BVSlider::showDragToolTip()
{
    const Handle limit = m_drag->limit();
    if (limit != NoHandle && (m_extended || m_spanSlider)) {
        const double value = intPositionToUserRelevantValue(handlePosition(limit));
        QToolTip::showText(QCursor::pos(), QString::number(value, 'g', s_toolTipDigits), this);
    } else if (limit == NoHandle && m_extended) {
        const QString text =
            m_toolTipConverter ? m_toolTipConverter->getStringTo(sliderPosition()) : toolTip();
        QToolTip::showText(QCursor::pos(), text, this);
    }
}

void BVSlider::hideDragToolTip()
{
    if (m_extended || m_spanSlider)
        QToolTip::hideText();
}

void BVSlider::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<BVSlider> self(this);
    if (m_drag->isReleasedBy(*event))
        finishDrag(event);
    else
        passRelease(event);
    if (!self)
        return;
    hideDragToolTip();
    update();
}

void BVSlider::finishDrag(QMouseEvent *event)
{
    const Handle limit = m_drag->limit();
    const bool isMoveOpen = m_drag->isMoveOpen(event->pos());
    m_drag->end(); // a slot may open a dialog, which would end it too
    updateCursor();
    const QPointer<BVSlider> self(this);
    passRelease(event);
    event->accept();
    if (self && limit == NoHandle) {
        setSliderDown(false); // the toolkit waits for all buttons
    } else if (self) {
        const int target = isMoveOpen ? pixelPosToValue(event->pos()) : handlePosition(limit);
        if (target != handlePosition(limit))
            storeLimits(limit == LowerLimitHandle ? target : m_limits->minimum(),
                        limit == LowerLimitHandle ? m_limits->maximum() : target);
        if (self)
            announceLimits();
    }
}

void BVSlider::passRelease(QMouseEvent *event)
{
    if (!geometry().isTooWide())
        QSlider::mouseReleaseEvent(event);
}

void BVSlider::cancelDrag()
{
    const QPointer<BVSlider> self(this);
    const BVSliderLimits limits = m_drag->limitsBefore();
    m_drag->end();
    updateCursor();
    hideDragToolTip();
    update();
    setAdmissibleRange(limits.minimum(), limits.maximum(), m_limitHandlesActive);
    int before = 0;
    if (self && m_drag->hasPushed(value(), before))
        setValue(before);
}

/// Ends what the user does with the pointer, as if it had ended before the last move.
void BVSlider::abandonInput()
{
    const Handle held = m_drag->handle();
    const bool isDown = isSliderDown() && !isHandleActive(ValueHandle);
    const bool isValueHeld = held == ValueHandle || isDown || repeatAction() != SliderNoAction;
    if (held == NoHandle && !isValueHeld)
        return;
    m_drag->end();
    hideDragToolTip();
    updateCursor();
    update();
    const QPointer<BVSlider> self(this);
    if (isValueHeld)
        letGoOfValue();
    if (self && held > ValueHandle)
        announceLimits();
}

void BVSlider::letGoOfValue()
{
    const bool wasDown = isSliderDown();
    const bool hasMoved = sliderPosition() != value(); // without tracking
    {
        const QSignalBlocker blocker(this); // a slot may delete this while the toolkit goes on
        setRepeatAction(SliderNoAction);
        setSliderPosition(value());
        setSliderDown(false);
        // Otherwise the toolkit would take up the next move.
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(), Qt::LeftButton, Qt::NoButton,
                            Qt::NoModifier);
        passRelease(&release);
    }
    const QPointer<BVSlider> self(this);
    if (hasMoved)
        Q_EMIT sliderMoved(value());
    if (self && wasDown)
        Q_EMIT sliderReleased();
}

void BVSlider::contextMenuEvent(QContextMenuEvent *event)
{
    if (m_drag->isActive())
        event->accept();
    else
        BVStatusControl<QSlider>::contextMenuEvent(event);
}

void BVSlider::updateHover(QEvent *event)
{
    Handle hovered = NoHandle;
    if (event->type() != QEvent::HoverLeave) {
        const QPoint position = static_cast<QHoverEvent *>(event)->pos();
        hovered = limitAt(position);
        if (hovered == NoHandle && handleRect(ValueHandle).contains(position))
            hovered = ValueHandle;
    }
    if (!m_handles->hover(hovered))
        return;
    updateCursor();
    update();
}

// Keys and wheel

BVSliderSteps BVSlider::steps() const
{
    return {singleStep(), pageStep(), isRightToLeft(), invertedControls()};
}

void BVSlider::moveFocusedHandle(qint64 distance)
{
    const Handle handle = m_handles->focused();
    const qint64 target = handlePosition(handle) + distance;
    moveHandle(handle, static_cast<int>(qBound<qint64>(minimum(), target, maximum())));
}

void BVSlider::wheelEvent(QWheelEvent *event)
{
    const Handle handle = m_handles->focused();
    if (!hasFocus() || !isHandleActive(handle)) {
        event->ignore();
        return;
    }
    if (handle == ValueHandle) {
        QSlider::wheelEvent(event);
        return;
    }
    event->accept();
    if (m_drag->isActive())
        return;
    const QPointer<BVSlider> self(this);
    const int before = handlePosition(handle);
    const qint64 distance = steps().ofWheel(*event, m_handles->wheelRest());
    moveFocusedHandle(distance);
    // The page scrolls on at the end.
    event->setAccepted(!self || distance == 0 || handlePosition(handle) != before);
}

void BVSlider::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    if (m_drag->limit() != NoHandle) {
        if (event->key() == Qt::Key_Escape)
            cancelDrag();
        return;
    }
    qint64 distance = 0;
    if (!isHandleActive(m_handles->focused()))
        event->ignore();
    else if (m_handles->focused() == ValueHandle)
        QSlider::keyPressEvent(event);
    else if (steps().ofKey(event->key(), distance))
        moveFocusedHandle(distance);
    else
        event->ignore();
}

bool BVSlider::handleVirtualSlider(QEvent *event)
{
    const auto *step = static_cast<Brimvale::VirtualSliderEvent *>(event);
    qint64 distance = 0;
    const bool counts = isHandleActive(ValueHandle) && !m_drag->isActive() &&
                        steps().ofVirtualKey(step->getKeys(), step->getModifiers(), distance);
    event->setAccepted(counts);
    if (counts)
        setValue(boundToAdmissible(sliderPosition() + distance));
    return counts;
}

bool BVSlider::focusNextPrevChild(bool next)
{
    // The toolkit also asks when the slider is hidden, and for its children.
    if (isVisible() && hasFocus() && m_handles->focusNext(next))
        return true;
    return QSlider::focusNextPrevChild(next);
}

void BVSlider::focusInEvent(QFocusEvent *event)
{
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        m_handles->enter(event->reason() == Qt::TabFocusReason);
    QSlider::focusInEvent(event);
    update();
    const auto announce = [this] {
        if (hasFocus() && m_handles->focused() != ValueHandle)
            BVSliderAccessible::announceFocus(this, m_handles->focused());
    };
    // After the toolkit has announced the slider itself.
    QMetaObject::invokeMethod(this, announce, Qt::QueuedConnection);
}

// Events

void BVSlider::sliderChange(SliderChange change)
{
    const QPointer<BVSlider> self(this);
    if (change == SliderRangeChange)
        changeLook();
    if (self)
        QSlider::sliderChange(change);
}

void BVSlider::changeEvent(QEvent *event)
{
    const QPointer<BVSlider> self(this);
    changeLook(); // before the toolkit commits the position of a slider that gets disabled
    if (self)
        BVStatusControl<QSlider>::changeEvent(event);
    if (self)
        changeLook();
}

bool BVSlider::event(QEvent *event)
{
    if (event->type() == Brimvale::VirtualSliderEvent::s_virtualSliderEventType)
        return handleVirtualSlider(event);
    if (event->type() == QEvent::ToolTip) {
        if (!m_drag->isActive() && !isSliderDown())
            QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), composedToolTip(this),
                               this, rect(), toolTipDuration());
        return true;
    }
    if (event->type() == QEvent::Polish)
        changeLook();
    if (isHover(*event)) {
        updateHover(event);
        if (geometry().isTooWide()) // for the toolkit's own look at it
            return QAbstractSlider::event(event);
    }
    const bool isStatusChange = event->type() == BVWidgetStatusChangedEvent::s_eventType;
    const bool takesAway = takesPointerAway(*event);
    const QPointer<BVSlider> self(this);
    const bool handled = BVStatusControl<QSlider>::event(event);
    if (self && isStatusChange)
        changeLook();
    if (self && takesAway)
        abandonInput();
    return handled;
}
