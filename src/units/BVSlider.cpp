// SPDX-License-Identifier: MIT
#include "units/BVSlider.h"

#include "foundation/BVWidgetStatusChangedEvent.h"
#include "foundation/VirtualSliderEvent.h"
#include "units/BVFormatter.h"
#include "units/BVSliderAccessible_p.h"
#include "units/BVSliderHandles_p.h"
#include "units/BVSliderLimits_p.h"
#include "units/BVSliderMarks_p.h"
#include "units/BVSliderPointer_p.h"
#include "units/BVSliderScale_p.h"
#include "units/BVSliderShapes_p.h"
#include "units/BVSliderSteps_p.h"

#include <QHelpEvent>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <limits>

namespace {

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
    , m_handles(new BVSliderHandles(*this))
    , m_pointer(new BVSliderPointer(*this))
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
        m_pointer->drag().notePush(value(), target);
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

void BVSlider::updateLook()
{
    m_shapes.reset();
    m_handles->ensureFocused();
    updateCursor();
    update();
}

/// May delete this, as it ends the drag of a handle that is no longer there.
void BVSlider::changeLook()
{
    updateLook();
    m_pointer->abandonIfInactive();
}

void BVSlider::changeSize()
{
    updateGeometry();
    changeLook();
}

void BVSlider::updateCursor()
{
    m_handles->updateCursor(m_pointer->drag().limit() != NoHandle);
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
    state.pressed = isSliderDown() ? ValueHandle : m_pointer->drag().limit();
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

void BVSlider::mousePressEvent(QMouseEvent *event)
{
    m_pointer->press(event);
}

void BVSlider::mouseMoveEvent(QMouseEvent *event)
{
    m_pointer->move(event);
}

void BVSlider::mouseReleaseEvent(QMouseEvent *event)
{
    m_pointer->release(event);
}

void BVSlider::contextMenuEvent(QContextMenuEvent *event)
{
    if (m_pointer->drag().isActive())
        event->accept();
    else
        BVStatusControl<QSlider>::contextMenuEvent(event);
}

// Keys and wheel

void BVSlider::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus() || !isHandleActive(focusedHandle()))
        event->ignore();
    else if (focusedHandle() == ValueHandle)
        QSlider::wheelEvent(event);
    else
        event->setAccepted(m_pointer->drag().isActive() || m_handles->turnWheel(*event));
}

void BVSlider::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    if (m_pointer->drag().limit() != NoHandle) {
        if (event->key() == Qt::Key_Escape)
            m_pointer->cancel();
        return;
    }
    if (!isHandleActive(focusedHandle()))
        event->ignore();
    else if (focusedHandle() == ValueHandle)
        QSlider::keyPressEvent(event);
    else
        event->setAccepted(m_handles->pressKey(event->key()));
}

bool BVSlider::handleVirtualSlider(QEvent *event)
{
    const auto *step = static_cast<Brimvale::VirtualSliderEvent *>(event);
    const BVSliderSteps steps(*this);
    qint64 distance = 0;
    const bool counts = isHandleActive(ValueHandle) && !m_pointer->drag().isActive() &&
                        steps.ofVirtualKey(step->getKeys(), step->getModifiers(), distance);
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
    if (event->type() == QEvent::EnabledChange)
        changeLook(); // before the toolkit commits the position
    if (self)
        BVStatusControl<QSlider>::changeEvent(event);
    if (self)
        updateLook();
}

bool BVSlider::event(QEvent *event)
{
    if (event->type() == Brimvale::VirtualSliderEvent::s_virtualSliderEventType)
        return handleVirtualSlider(event);
    if (event->type() == QEvent::ToolTip) {
        if (!m_pointer->drag().isActive() && !isSliderDown())
            showComposedToolTip(this, static_cast<QHelpEvent *>(event));
        return true;
    }
    if (event->type() == QEvent::Polish)
        updateLook();
    if (event->type() == QEvent::ShortcutOverride && m_pointer->drag().limit() != NoHandle &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept(); // for keyPressEvent(), before a shortcut of the window takes it
        return true;
    }
    if (isHover(*event)) {
        m_pointer->hover(*static_cast<QHoverEvent *>(event));
        if (geometry().isTooWide()) {
            // Past the toolkit's own arithmetic. NOLINTNEXTLINE(bugprone-parent-virtual-call)
            return QAbstractSlider::event(event);
        }
    }
    const bool isStatusChange = event->type() == BVWidgetStatusChangedEvent::s_eventType;
    const bool takesAway = takesPointerAway(*event);
    const QPointer<BVSlider> self(this);
    const bool handled = BVStatusControl<QSlider>::event(event);
    if (self && isStatusChange)
        changeLook();
    if (self && takesAway)
        m_pointer->abandon();
    return handled;
}
