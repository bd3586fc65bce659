// SPDX-License-Identifier: MIT
#include "units/BVSlider.h"

#include "foundation/BVCursorTable.h"
#include "foundation/BVWidgetStatusChangedEvent.h"
#include "foundation/VirtualSliderEvent.h"
#include "units/BVFormatter.h"
#include "units/BVSliderAccessible_p.h"
#include "units/BVSliderGeometry_p.h"
#include "units/BVSliderPainter_p.h"
#include "units/BVSliderScale_p.h"
#include "units/BVSliderSteps_p.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmapCache>
#include <QPointer>
#include <QRegion>
#include <QStyleOptionSlider>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

namespace {

constexpr int s_throttleTime = 60;   // ms, between two moves of a limit
constexpr int s_toolTipDigits = 3;   // significant, while dragging a limit
constexpr double s_deviations = 6.0; // in the admissible range, of the default curve

enum class NamedBrush {
    AlmostBlack,
    Black,
    BlackMarker,
    Blacker,
    Blue,
    CompletelyBlack,
    DefaultMarker,
    GrayDashedMarker,
    Green,
    Red,
    White,
    WhiteMarker,
};

struct BrushRow
{
    QRgb color;
    Qt::BrushStyle style;
};

constexpr BrushRow s_brushes[] = {
    {qRgb(51, 51, 51), Qt::SolidPattern},          // AlmostBlack
    {qRgb(34, 34, 34), Qt::SolidPattern},          // Black
    {qRgba(0, 0, 0, 160), Qt::SolidPattern},       // BlackMarker
    {qRgb(17, 17, 17), Qt::SolidPattern},          // Blacker
    {qRgb(54, 106, 178), Qt::SolidPattern},        // Blue
    {qRgb(0, 0, 0), Qt::SolidPattern},             // CompletelyBlack
    {qRgb(204, 158, 20), Qt::SolidPattern},        // DefaultMarker
    {qRgb(110, 110, 110), Qt::Dense4Pattern},      // GrayDashedMarker
    {qRgb(0, 128, 42), Qt::SolidPattern},          // Green
    {qRgb(204, 61, 61), Qt::SolidPattern},         // Red
    {qRgb(255, 255, 255), Qt::SolidPattern},       // White
    {qRgba(255, 255, 255, 200), Qt::SolidPattern}, // WhiteMarker
};

QBrush namedBrush(NamedBrush name)
{
    const BrushRow &row = s_brushes[static_cast<size_t>(name)];
    return QBrush(QColor::fromRgba(row.color), row.style);
}

} // namespace

/// What follows from the layout, kept until something that it follows from changes.
struct BVSlider::Shapes
{
    Shapes(const BVSliderLayout &layout, QSlider::TickPosition tickPosition)
        : scene(layout)
        , ticks(tickPosition)
    {
    }

    ~Shapes() { QPixmapCache::remove(decoration); }

    BVSliderScene scene;
    QSlider::TickPosition ticks;
    BVSliderState decorationState;
    QPixmapCache::Key decoration; // a pixmap of all but the handle of the value
};

// Converters

BVSlider::ValueToStringConverter::~ValueToStringConverter() = default;

BVSlider::MultiplierBasedConverter::MultiplierBasedConverter(double multiplier, int decimals)
    : m_multiplier(multiplier)
    , m_decimals(qBound(0, decimals, BVFormatter::s_maxDecimals))
{
}

QString BVSlider::MultiplierBasedConverter::getStringTo(int position) const
{
    return QString::number(position * m_multiplier, 'f', m_decimals);
}

BVSlider::ValueToStringConverter *BVSlider::MultiplierBasedConverter::clone() const
{
    return new MultiplierBasedConverter(*this);
}

BVSlider::BVSlider(QWidget *parent)
    : BVSlider(Qt::Horizontal, parent)
{
}

BVSlider::BVSlider(Qt::Orientation orientation, QWidget *parent)
    : BVStatusControl<QSlider>(orientation, parent)
    , m_formatter(new BVFormatter(this))
    , m_moveThrottle(new QTimer(this))
    , m_scale(new BVSliderScale)
{
    BVSliderAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    m_formatter->setCutUnnecessaryDigits(true);
    m_moveThrottle->setSingleShot(true);
    m_moveThrottle->setInterval(s_throttleTime);
    connect(m_moveThrottle, &QTimer::timeout, this, &BVSlider::onThrottleEnded);
    connect(this, &BVSlider::requestValueChange, this, &QSlider::setValue);
    connect(m_formatter, &BVFormatter::settingsChanged, this, [this] {
        announceHandle(ValueHandle, false);
        update();
    });
    connect(this, &QAbstractSlider::actionTriggered, this,
            [this] { setSliderPosition(boundToAdmissible(sliderPosition())); });
}

BVSlider::~BVSlider() = default;

// Admissible range

int BVSlider::boundToAdmissible(qint64 position) const
{
    const qint64 lower = qMax(m_admissibleMinimum, minimum());
    const qint64 upper = qMin(m_admissibleMaximum, maximum());
    // A range beside the slider's leaves its nearer end.
    return static_cast<int>(
        qBound<qint64>(minimum(), qMax(lower, qMin(position, upper)), maximum()));
}

void BVSlider::setAdmissibleRange(int minimum, int maximum, bool handlesActive)
{
    setLimitHandlesActive(handlesActive);
    const QPointer<BVSlider> self(this);
    if (storeLimits(minimum, maximum) && self)
        announceLimits();
}

bool BVSlider::storeLimits(int minimum, int maximum)
{
    if (m_spanSlider) {
        minimum = qBound(this->minimum(), minimum, this->maximum());
        maximum = qBound(this->minimum(), maximum, this->maximum());
    }
    if (minimum > maximum) {
        if (minimum == m_admissibleMinimum && maximum != m_admissibleMaximum)
            maximum = minimum;
        else
            minimum = maximum;
    }
    if (minimum == m_admissibleMinimum && maximum == m_admissibleMaximum)
        return false;
    m_admissibleMinimum = minimum;
    m_admissibleMaximum = maximum;
    m_shapes.reset();
    ensureFocusedHandle();
    update();
    const QPointer<BVSlider> self(this);
    if (sliderPosition() < minimum)
        setValue(minimum);
    else if (sliderPosition() > maximum)
        setValue(maximum);
    // A slot may have set other limits, and announced them.
    return self && m_admissibleMinimum == minimum && m_admissibleMaximum == maximum;
}

void BVSlider::announceLimits()
{
    const QPointer<BVSlider> self(this);
    announceHandle(LowerLimitHandle, false);
    announceHandle(UpperLimitHandle, false);
    if (self)
        Q_EMIT admissibleRangeChanged(m_admissibleMinimum, m_admissibleMaximum);
}

void BVSlider::setAdmissibleMinimum(int minimum)
{
    setAdmissibleRange(minimum, m_admissibleMaximum, m_limitHandlesActive);
}

void BVSlider::setAdmissibleMaximum(int maximum)
{
    setAdmissibleRange(m_admissibleMinimum, maximum, m_limitHandlesActive);
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
    if (!hasLimitHandles())
        endDrag();
    changeSize();
}

void BVSlider::keepSpanInRange()
{
    if (m_spanSlider)
        setAdmissibleRange(m_admissibleMinimum, m_admissibleMaximum, m_limitHandlesActive);
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

void BVSlider::setFocusedHandle(Handle handle)
{
    if (isHandleActive(handle))
        focusHandle(handle);
}

int BVSlider::handlePosition(Handle handle) const
{
    switch (handle) {
    case ValueHandle:
        return sliderPosition();
    case LowerLimitHandle:
        return m_admissibleMinimum;
    case UpperLimitHandle:
        return m_admissibleMaximum;
    case NoHandle:
        break;
    }
    return 0;
}

int BVSlider::handleMinimum(Handle handle) const
{
    if (handle == UpperLimitHandle)
        return qMax(minimum(), m_admissibleMinimum);
    return handle == ValueHandle ? boundToAdmissible(minimum()) : minimum();
}

int BVSlider::handleMaximum(Handle handle) const
{
    if (handle == LowerLimitHandle)
        return qMin(maximum(), m_admissibleMaximum);
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
    if (handle == LowerLimitHandle)
        setAdmissibleMinimum(position);
    else
        setAdmissibleMaximum(position);
}

// Pixels

const BVSlider::Shapes &BVSlider::shapes() const
{
    const bool reversed = invertedAppearance() != isRightToLeft();
    const bool upsideDown = orientation() == Qt::Horizontal ? reversed : !invertedAppearance();
    if (m_shapes) {
        // The toolkit announces none of these to the slider.
        const BVSliderLayout &known = m_shapes->scene.geometry.layout();
        if (known.area != rect() || known.orientation != orientation() ||
            known.upsideDown != upsideDown || m_shapes->ticks != tickPosition())
            m_shapes.reset();
    }
    if (!m_shapes)
        computeShapes();
    return *m_shapes;
}

void BVSlider::computeShapes() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    const auto styleRect = [&](QStyle::SubControl part, int position) {
        option.sliderPosition = position;
        return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
    };
    BVSliderLayout layout;
    layout.area = rect();
    layout.groove = styleRect(QStyle::SC_SliderGroove, value());
    layout.handleAtMinimum = styleRect(QStyle::SC_SliderHandle, minimum());
    layout.handleAtMaximum = styleRect(QStyle::SC_SliderHandle, maximum());
    layout.minimum = minimum();
    layout.maximum = maximum();
    layout.orientation = orientation();
    layout.upsideDown = option.upsideDown;
    layout.rightToLeft = isRightToLeft();
    layout.extended = m_extended;
    layout.dvValue = m_dvValueSlider;
    layout.span = m_spanSlider;
    m_shapes = std::make_unique<Shapes>(layout, tickPosition());
    fillScene(m_shapes->scene);
}

const BVSliderGeometry &BVSlider::geometry() const
{
    return shapes().scene.geometry;
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
        return shapes().scene.lowerLimit.boundingRect();
    if (handle == UpperLimitHandle)
        return shapes().scene.upperLimit.boundingRect();
    return handle == ValueHandle && !m_spanSlider ? geometry().handleAt(sliderPosition()) : QRect();
}

// Values

bool BVSlider::setUserRange(double atMinimum, double atMaximum, Scale scale)
{
    if (!m_scale->setRange(atMinimum, atMaximum, scale))
        return false;
    announceHandle(ValueHandle, false);
    return true;
}

void BVSlider::clearUserRange()
{
    m_scale->clear();
    announceHandle(ValueHandle, false);
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
    announceHandle(ValueHandle, false);
}

void BVSlider::clearCustomToolTipConverter()
{
    m_toolTipConverter.reset();
    announceHandle(ValueHandle, false);
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
                                         .arg(positionToText(m_admissibleMinimum),
                                              positionToText(m_admissibleMaximum))});
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
    if (!hasLimitHandles())
        endDrag();
    const QPointer<BVSlider> self(this);
    changeSize();
    if (self)
        keepSpanInRange();
}

void BVSlider::changeLook()
{
    m_shapes.reset();
    ensureFocusedHandle();
    updateCursor();
    update();
}

void BVSlider::changeSize()
{
    changeLook();
    updateGeometry();
}

QSize BVSlider::sizeHint() const
{
    ensurePolished();
    // The style centres the groove, so room on one side is room on both.
    const BVSliderGeometry &geometry = this->geometry();
    const int room = hasLimitHandles() || m_hasBestValue ? geometry.roomForLimits() : 0;
    int across = geometry.handleThickness() + 2 * room;
    if (m_dvValueSlider)
        across = qMax(across, 2 * geometry.roomForCurve());
    const bool isHorizontal = orientation() == Qt::Horizontal;
    return QSlider::sizeHint().expandedTo(isHorizontal ? QSize(0, across) : QSize(across, 0));
}

QSize BVSlider::minimumSizeHint() const
{
    const QSize least = QSlider::minimumSizeHint();
    const QSize wanted = sizeHint();
    return orientation() == Qt::Horizontal ? QSize(least.width(), wanted.height())
                                           : QSize(wanted.width(), least.height());
}

// Painting

void BVSlider::mark(int from, int to, const QBrush &brush)
{
    if (brush.style() == Qt::NoBrush)
        return;
    m_markers.append({qMin(from, to), qMax(from, to), brush});
    changeLook();
}

void BVSlider::clearMarkers()
{
    m_markers.clear();
    changeLook();
}

void BVSlider::setDistribution(double mean, double deviation)
{
    if (!std::isfinite(mean) || !std::isfinite(deviation) || !(deviation > 0))
        return;
    m_hasDistribution = true;
    m_mean = mean;
    m_deviation = deviation;
    changeLook();
}

void BVSlider::clearDistribution()
{
    m_hasDistribution = false;
    changeLook();
}

void BVSlider::setBestValue(int position)
{
    m_hasBestValue = true;
    m_bestValue = position;
    changeSize();
}

void BVSlider::clearBestValue()
{
    m_hasBestValue = false;
    changeSize();
}

void BVSlider::setGrooveBaseBrush(const QBrush &brush)
{
    m_grooveBaseBrush = brush;
    changeLook();
}

void BVSlider::setBrushColor(const QColor &color)
{
    m_brushColor = color;
    update();
}

// clang-format off
QBrush BVSlider::defaultMarkerBrush() { return namedBrush(NamedBrush::DefaultMarker); }
QBrush BVSlider::almostBlackBrush() { return namedBrush(NamedBrush::AlmostBlack); }
QBrush BVSlider::blackBrush() { return namedBrush(NamedBrush::Black); }
QBrush BVSlider::blackMarkerBrush() { return namedBrush(NamedBrush::BlackMarker); }
QBrush BVSlider::blackerBrush() { return namedBrush(NamedBrush::Blacker); }
QBrush BVSlider::blueBrush() { return namedBrush(NamedBrush::Blue); }
QBrush BVSlider::completelyBlackBrush() { return namedBrush(NamedBrush::CompletelyBlack); }
QBrush BVSlider::grayDashedMarkerBrush() { return namedBrush(NamedBrush::GrayDashedMarker); }
QBrush BVSlider::greenBrush() { return namedBrush(NamedBrush::Green); }
QBrush BVSlider::redBrush() { return namedBrush(NamedBrush::Red); }
QBrush BVSlider::whiteBrush() { return namedBrush(NamedBrush::White); }
QBrush BVSlider::whiteMarkerBrush() { return namedBrush(NamedBrush::WhiteMarker); }
// clang-format on

QBrush BVSlider::gradientBrush(const QBrush &brush, const QRegion &region)
{
    if (region.isEmpty() || brush.style() == Qt::NoBrush)
        return brush;
    const QRectF area = region.boundingRect();
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0, brush.color().lighter(125));
    gradient.setColorAt(1, brush.color().darker(115));
    return QBrush(gradient);
}

bool BVSlider::needsOwnPainting() const
{
    if (m_admissibleMinimum > minimum() || m_admissibleMaximum < maximum() || hasLimitHandles() ||
        m_extended || m_dvValueSlider || m_hasBestValue || !m_inputEnabled ||
        !m_markers.isEmpty() || m_grooveBaseBrush.style() != Qt::NoBrush)
        return true;
    const BVWidgetStatus::Stati stati = getBvStatus();
    return BVWidgetStatus::testFlag(stati, BVWidgetStatus::StandardLocked) ||
           BVWidgetStatus::getDominantStatusFromFlag(stati) != BVWidgetStatus::Normal;
}

void BVSlider::fillScene(BVSliderScene &scene) const
{
    const BVSliderGeometry &geometry = scene.geometry;
    scene.showsAdmissible =
        m_spanSlider || m_admissibleMinimum > minimum() || m_admissibleMaximum < maximum();
    scene.admissible = geometry.stretch(m_admissibleMinimum, m_admissibleMaximum);
    for (const Marker &marker : m_markers)
        scene.markers.append({geometry.stretch(marker.from, marker.to), marker.brush});
    if (isLimitShown(LowerLimitHandle)) {
        scene.lowerLimit = geometry.limitShape(m_admissibleMinimum, true);
        scene.lowerLine = geometry.limitLine(m_admissibleMinimum);
    }
    if (isLimitShown(UpperLimitHandle)) {
        scene.upperLimit = geometry.limitShape(m_admissibleMaximum, false);
        scene.upperLine = geometry.limitLine(m_admissibleMaximum);
    }
    if (m_hasBestValue && m_bestValue >= minimum() && m_bestValue <= maximum()) {
        scene.bestShape = geometry.bestShape(m_bestValue);
        scene.bestLine = geometry.bestLine(m_bestValue);
    }
    const double lower = boundToAdmissible(minimum());
    const double upper = boundToAdmissible(maximum());
    if (m_dvValueSlider && m_hasDistribution)
        scene.curve = geometry.curve(m_mean, m_deviation);
    else if (m_dvValueSlider)
        scene.curve = geometry.curve((lower + upper) / 2, qMax(1.0, upper - lower) / s_deviations);
    scene.groove = m_grooveBaseBrush;
}

BVSliderState BVSlider::currentState() const
{
    BVSliderState state;
    state.hovered = m_hoveredHandle;
    state.pressed = isSliderDown() ? ValueHandle : draggedLimit();
    if (hasFocus())
        state.focused = m_focusedHandle;
    state.active = takesInput();
    state.setColors(palette(), BVWidgetStatus::getDominantStatusFromFlag(getBvStatus()),
                    m_brushColor);
    return state;
}

QPixmap BVSlider::decoration(const BVSliderState &state, qreal pixelRatio) const
{
    Shapes &kept = *m_shapes;
    QPixmap pixmap;
    if (state == kept.decorationState && QPixmapCache::find(kept.decoration, &pixmap) &&
        pixmap.devicePixelRatioF() == pixelRatio)
        return pixmap;
    if (size().isEmpty())
        return QPixmap();
    pixmap = QPixmap((QSizeF(size()) * pixelRatio).toSize());
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    BVSliderPainter(painter, *this, kept.scene, state).paintDecoration();
    painter.end();
    QPixmapCache::remove(kept.decoration);
    kept.decoration = QPixmapCache::insert(pixmap);
    kept.decorationState = state;
    return pixmap;
}

void BVSlider::paintEvent(QPaintEvent *event)
{
    if (!needsOwnPainting()) {
        QSlider::paintEvent(event);
        return;
    }
    const Shapes &shapes = this->shapes();
    const BVSliderState state = currentState();
    QPainter painter(this);
    painter.drawPixmap(0, 0,
                       decoration(state.withoutValue(), painter.device()->devicePixelRatioF()));
    QStyleOptionSlider option;
    initStyleOption(&option);
    if (!isHandleActive(ValueHandle))
        option.state &= ~QStyle::State_Enabled;
    if (state.focused != ValueHandle)
        option.state &= ~QStyle::State_HasFocus;
    if (isSliderDown())
        option.state |= QStyle::State_Sunken;
    if (isSliderDown() || m_hoveredHandle == ValueHandle)
        option.activeSubControls = QStyle::SC_SliderHandle;
    BVSliderPainter(painter, *this, shapes.scene, state).paintValue(option);
}

// Mouse

BVSlider::Handle BVSlider::draggedLimit() const
{
    if (m_draggingLowerLimit)
        return LowerLimitHandle;
    return m_draggingUpperLimit ? UpperLimitHandle : NoHandle;
}

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
    const bool isLeft = event->button() == Qt::LeftButton && event->buttons() == Qt::LeftButton;
    const Handle limit = isLeft && takesInput() ? limitAt(event->pos()) : NoHandle;
    if (limit != NoHandle) {
        beginDrag(limit, event->pos());
        event->accept();
        return;
    }
    if (!isHandleActive(ValueHandle) || draggedLimit() != NoHandle) {
        event->ignore();
        return;
    }
    if (isLeft)
        focusHandle(ValueHandle);
    m_lastMove = event->pos();
    if (isLeft && minimum() != maximum() && geometry().jumpsAt(event->pos(), sliderPosition())) {
        event->accept();
        update();
        Q_EMIT requestValueChange(boundToAdmissible(pixelPosToValue(event->pos())));
        return;
    }
    const QPointer<BVSlider> self(this);
    QSlider::mousePressEvent(event);
    if (self && isSliderDown()) {
        const QRect handle = geometry().handleAt(sliderPosition());
        m_clickOffset = geometry().along(event->pos()) - geometry().along(handle.topLeft());
        update();
    }
}

void BVSlider::beginDrag(Handle limit, const QPoint &position)
{
    m_draggingLowerLimit = limit == LowerLimitHandle;
    m_draggingUpperLimit = limit == UpperLimitHandle;
    m_minimumBeforeDrag = m_admissibleMinimum;
    m_maximumBeforeDrag = m_admissibleMaximum;
    m_valueBeforeDrag = value();
    m_lastMove = position;
    m_movePending = false;
    updateCursor();
    focusHandle(limit);
    update();
}

void BVSlider::mouseMoveEvent(QMouseEvent *event)
{
    const bool isDragging = draggedLimit() != NoHandle;
    if (orientation() == Qt::Horizontal) {
        if (event->pos() == m_lastMove)
            return;
        m_lastMove = event->pos();
        m_movePending = m_moveThrottle->isActive();
        const QPointer<BVSlider> self(this);
        if (m_movePending || !isDragging)
            passMoveOn(event);
        if (self && !m_movePending)
            handleMove(event->pos());
    } else if (isDragging) {
        m_lastMove = event->pos();
        handleMove(event->pos());
    } else {
        passMoveOn(event);
    }
}

void BVSlider::passMoveOn(QMouseEvent *event)
{
    if (isSliderDown()) {
        // Where the toolkit would take the handle: not out of the admissible range.
        const int position =
            geometry().positionOfHandleAt(geometry().along(event->pos()) - m_clickOffset);
        const int bounded = boundToAdmissible(position);
        if (bounded != position) {
            event->accept();
            setSliderPosition(bounded);
            return;
        }
    }
    QSlider::mouseMoveEvent(event);
}

void BVSlider::handleMove(const QPoint &position)
{
    const Handle limit = draggedLimit();
    if (limit == NoHandle && !isSliderDown())
        return;
    if (orientation() == Qt::Horizontal)
        m_moveThrottle->start();
    m_movePending = false;
    const QPointer<BVSlider> self(this);
    if (limit != NoHandle)
        moveLimit(limit, pixelPosToValue(position));
    if (self)
        showDragToolTip();
}

void BVSlider::onThrottleEnded()
{
    if (m_movePending)
        handleMove(m_lastMove);
}

void BVSlider::showDragToolTip()
{
    const Handle limit = draggedLimit();
    if (limit != NoHandle && (m_extended || m_spanSlider)) {
        const double value = intPositionToUserRelevantValue(handlePosition(limit));
        QToolTip::showText(QCursor::pos(), QString::number(value, 'g', s_toolTipDigits), this);
    } else if (limit == NoHandle && m_extended) {
        const QString text =
            m_toolTipConverter ? m_toolTipConverter->getStringTo(value()) : toolTip();
        QToolTip::showText(QCursor::pos(), text, this);
    }
}

void BVSlider::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<BVSlider> self(this);
    QSlider::mouseReleaseEvent(event);
    if (!self)
        return;
    if (draggedLimit() != NoHandle && !(event->buttons() & Qt::LeftButton)) {
        event->accept();
        finishDrag(event->pos());
    }
    if (!self)
        return;
    if (m_extended || m_spanSlider)
        QToolTip::hideText();
    update();
}

void BVSlider::finishDrag(const QPoint &position)
{
    const Handle limit = draggedLimit();
    const bool isMoveOpen = m_movePending || position != m_lastMove;
    endDrag();
    const QPointer<BVSlider> self(this);
    if (isMoveOpen) {
        const int target = pixelPosToValue(position);
        storeLimits(limit == LowerLimitHandle ? target : m_admissibleMinimum,
                    limit == LowerLimitHandle ? m_admissibleMaximum : target);
    }
    if (self)
        announceLimits();
}

void BVSlider::cancelDrag()
{
    const QPointer<BVSlider> self(this);
    const int value = m_valueBeforeDrag;
    endDrag();
    setAdmissibleRange(m_minimumBeforeDrag, m_maximumBeforeDrag, m_limitHandlesActive);
    if (self)
        setValue(value);
}

void BVSlider::endDrag()
{
    if (draggedLimit() == NoHandle)
        return;
    m_draggingLowerLimit = false;
    m_draggingUpperLimit = false;
    m_movePending = false;
    m_moveThrottle->stop();
    updateCursor();
    update();
}

void BVSlider::hideEvent(QHideEvent *event)
{
    endDrag();
    BVStatusControl<QSlider>::hideEvent(event);
}

void BVSlider::wheelEvent(QWheelEvent *event)
{
    if (hasFocus() && isHandleActive(ValueHandle))
        QSlider::wheelEvent(event);
    else
        event->ignore();
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
    if (hovered == m_hoveredHandle)
        return;
    m_hoveredHandle = hovered;
    updateCursor();
    update();
}

void BVSlider::updateCursor()
{
    const bool isAtLimit = m_hoveredHandle > ValueHandle || draggedLimit() != NoHandle;
    if (takesInput() && !isAtLimit) {
        if (m_ownsCursor)
            unsetCursor();
        m_ownsCursor = false;
        return;
    }
    const auto slide = orientation() == Qt::Horizontal ? BVCursorTable::Cursor::SlideHorizontal
                                                       : BVCursorTable::Cursor::SlideVertical;
    setCursor(BVCursorTable::cursor(takesInput() ? slide : BVCursorTable::Cursor::Locked));
    m_ownsCursor = true;
}

// Keys

BVSliderSteps BVSlider::steps() const
{
    return {singleStep(), pageStep(), isRightToLeft(), invertedControls()};
}

bool BVSlider::moveByKey(int key)
{
    qint64 distance = 0;
    if (!steps().ofKey(key, distance))
        return false;
    const qint64 lowest = handleMinimum(m_focusedHandle);
    const qint64 highest = handleMaximum(m_focusedHandle);
    const qint64 target = handlePosition(m_focusedHandle) + distance;
    moveHandle(m_focusedHandle, static_cast<int>(qMax(lowest, qMin(target, highest))));
    return true;
}

void BVSlider::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    if (draggedLimit() != NoHandle) {
        if (event->key() == Qt::Key_Escape)
            cancelDrag();
        return;
    }
    if (!isHandleActive(m_focusedHandle))
        event->ignore();
    else if (m_focusedHandle == ValueHandle)
        QSlider::keyPressEvent(event);
    else if (!moveByKey(event->key()))
        event->ignore();
}

bool BVSlider::handleVirtualSlider(QEvent *event)
{
    event->setAccepted(isHandleActive(ValueHandle));
    if (!event->isAccepted())
        return false;
    const auto *step = static_cast<Brimvale::VirtualSliderEvent *>(event);
    const qint64 distance = steps().ofVirtualKey(step->getKeys(), step->getModifiers());
    setValue(boundToAdmissible(sliderPosition() + distance));
    return true;
}

void BVSlider::focusHandle(Handle handle)
{
    if (handle == m_focusedHandle)
        return;
    m_focusedHandle = handle;
    update();
    if (hasFocus())
        announceHandle(handle, true);
}

void BVSlider::ensureFocusedHandle()
{
    if (isHandleActive(m_focusedHandle))
        return;
    for (const Handle handle : {ValueHandle, LowerLimitHandle, UpperLimitHandle}) {
        if (isHandleActive(handle)) {
            focusHandle(handle);
            return;
        }
    }
    focusHandle(ValueHandle);
}

bool BVSlider::focusNextPrevChild(bool next)
{
    int handle = m_focusedHandle;
    do {
        handle += next ? 1 : -1;
    } while (handle >= ValueHandle && handle <= UpperLimitHandle &&
             !isHandleActive(Handle(handle)));
    if (handle < ValueHandle || handle > UpperLimitHandle)
        return QSlider::focusNextPrevChild(next);
    focusHandle(Handle(handle));
    return true;
}

void BVSlider::focusInEvent(QFocusEvent *event)
{
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
        const bool forward = event->reason() == Qt::TabFocusReason;
        for (const Handle handle : {forward ? ValueHandle : UpperLimitHandle, LowerLimitHandle,
                                    forward ? UpperLimitHandle : ValueHandle}) {
            if (isHandleActive(handle)) {
                m_focusedHandle = handle;
                break;
            }
        }
    }
    QSlider::focusInEvent(event);
    update();
    if (m_focusedHandle != ValueHandle)
        announceHandle(m_focusedHandle, true);
}

// Events

void BVSlider::announceHandle(Handle handle, bool focus)
{
    if (!QAccessible::isActive())
        return;
    const int child = BVSliderAccessible::childOf(handle);
    if (child >= 0 && !hasLimitHandles())
        return;
    if (focus) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(child);
        QAccessible::updateAccessibility(&event);
    } else {
        QAccessibleValueChangeEvent event(this, handlePosition(handle));
        event.setChild(child);
        QAccessible::updateAccessibility(&event);
    }
}

void BVSlider::sliderChange(SliderChange change)
{
    if (change == SliderRangeChange) {
        m_shapes.reset();
        ensureFocusedHandle();
    }
    const QPointer<BVSlider> self(this);
    QSlider::sliderChange(change);
    if (self && change == SliderRangeChange)
        keepSpanInRange();
}

void BVSlider::changeEvent(QEvent *event)
{
    const QPointer<BVSlider> self(this);
    BVStatusControl<QSlider>::changeEvent(event);
    if (!self)
        return;
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        endDrag();
    changeLook();
}

bool BVSlider::event(QEvent *event)
{
    if (event->type() == Brimvale::VirtualSliderEvent::s_virtualSliderEventType)
        return handleVirtualSlider(event);
    switch (event->type()) {
    case QEvent::ToolTip:
        if (draggedLimit() == NoHandle && !isSliderDown())
            QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), composedToolTip(this),
                               this, rect(), toolTipDuration());
        return true;
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::HoverLeave:
        updateHover(event);
        break;
    case QEvent::Polish:
        changeLook();
        break;
    default:
        break;
    }
    const bool isStatusChange = event->type() == BVWidgetStatusChangedEvent::s_eventType;
    const bool handled = BVStatusControl<QSlider>::event(event);
    if (isStatusChange) {
        if (isLocked()) {
            endDrag();
            setRepeatAction(SliderNoAction);
            setSliderDown(false);
        }
        changeLook();
    }
    return handled;
}
