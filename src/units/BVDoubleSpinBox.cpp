// SPDX-License-Identifier: MIT
#include "units/BVDoubleSpinBox.h"

#include "foundation/BVWidgetStatusChangedEvent.h"
#include "foundation/StandardSymbolPainter.h"
#include "platform/PropertyChangeFilter.h"
#include "units/BVSpinBoxDrag_p.h"
#include "units/BVSpinBoxSize_p.h"
#include "units/BVSpinBoxSteps_p.h"
#include "units/BVSpinBoxTexts_p.h"
#include "units/BVStepping_p.h"
#include "units/BVUnitValidator.h"
#include "units/BVValueTexts_p.h"

#include <QAccessible>
#include <QAction>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStyleOptionSpinBox>
#include <QToolTip>
#include <QWheelEvent>

#include <cfloat>
#include <cmath>
#include <utility>

namespace {

constexpr int s_baseDecimals = DBL_MAX_10_EXP + DBL_DIG; // the most that the toolkit's box takes
constexpr double s_relativeTolerance = 1e-6; // value unit, for other notations than fixed
constexpr double s_acceleration = 10.0;      // steps a step, with Control
constexpr double s_fineStep = 0.1;           // steps a step, with Shift
constexpr int s_factorDigits = 6;            // significant

/// The toolkit's validator of a spin box, but for that no text is invalid: a line edit swallows the
/// keys that would make it so, and what is left often reads as another value.
class EditValidator : public QValidator
{
public:
    EditValidator(const QValidator *judge, QObject *parent)
        : QValidator(parent)
        , m_judge(judge)
    {
    }

    State validate(QString &text, int &position) const override
    {
        const State state = m_judge->validate(text, position);
        return state == Invalid ? Intermediate : state;
    }

    void fixup(QString &text) const override { m_judge->fixup(text); }

private:
    const QValidator *m_judge; // child of the box
};

/// Whether the tag stands for a unit, or for none.
bool isKnown(UnitConverter::Unit unit)
{
    return unit == UnitConverter::Unit_None || !UnitConverter::UnitFromTag(unit).isEmpty();
}

} // namespace

/// Notes the modifiers of the event that the box handles meanwhile.
class BVDoubleSpinBox::EventModifiers
{
    Q_DISABLE_COPY(EventModifiers)

public:
    EventModifiers(BVDoubleSpinBox *box, const QInputEvent &event)
        : m_box(box)
    {
        m_box->m_modifiers = event.modifiers();
    }

    ~EventModifiers()
    {
        if (m_box) // else a slot has deleted it
            m_box->m_modifiers.reset();
    }

private:
    QPointer<BVDoubleSpinBox> m_box;
};

BVDoubleSpinBox::BVDoubleSpinBox(QWidget *parent)
    : BVStatusControl<QDoubleSpinBox>(parent)
    , m_formatter(new BVFormatter(this))
    , m_drag(std::make_unique<BVSpinBoxDrag>(this))
    , m_size(std::make_unique<BVSpinBoxSize>(*this, *lineEdit()))
    , m_steps(std::make_unique<BVSpinBoxSteps>(this))
{
    qRegisterMetaType<ComboType>(); // so that sheets select on the name
    setFocusPolicy(Qt::StrongFocus);
    updateTolerance();
    QDoubleSpinBox::setDecimals(s_baseDecimals);
    lineEdit()->setValidator(new EditValidator(lineEdit()->validator(), this));
    lineEdit()->installEventFilter(this);
    connect(m_formatter, &BVFormatter::settingsChanged, this, &BVDoubleSpinBox::onFormatterChanged);
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &BVDoubleSpinBox::onValueChanged);
    connect(lineEdit(), &QLineEdit::textChanged, this, &BVDoubleSpinBox::onTextChanged);
}

BVDoubleSpinBox::~BVDoubleSpinBox() = default;

// Range, decimals and units

void BVDoubleSpinBox::setMinimum(double minimum)
{
    setRange(minimum, qMax(minimum, maximum()));
}

void BVDoubleSpinBox::setMaximum(double maximum)
{
    setRange(qMin(minimum(), maximum), maximum);
}

void BVDoubleSpinBox::setRange(double minimum, double maximum)
{
    if (std::isnan(minimum) || std::isnan(maximum))
        return;
    m_steps->drop();
    const QPointer<BVDoubleSpinBox> self(this);
    QDoubleSpinBox::setRange(minimum, maximum);
    if (!self)
        return;
    updateValidator();
    forgetSizeHint();
}

void BVDoubleSpinBox::setRangeInDisplayUnit(double minimum, double maximum)
{
    setRange(m_formatter->displayValueToValue(minimum), m_formatter->displayValueToValue(maximum));
}

void BVDoubleSpinBox::setDecimals(int decimals)
{
    m_decimals = qMax(0, decimals);
    m_formatter->setDecimals(m_decimals);
}

void BVDoubleSpinBox::setUnitString(const QString &unit)
{
    if (m_formatter->setValueUnit(unit) && m_decimals >= 0)
        m_formatter->setDecimals(m_decimals);
}

void BVDoubleSpinBox::setUnitTag(UnitConverter::Unit unit)
{
    if (isKnown(unit))
        setUnitString(UnitConverter::UnitFromTag(unit));
}

bool BVDoubleSpinBox::setUnitDisplayTag(UnitConverter::Unit unit)
{
    if (!isKnown(unit))
        return false;
    if (unit != UnitConverter::Unit_None)
        return m_formatter->setGlobalOff(UnitConverter::UnitFromTag(unit));
    m_formatter->setGlobalOn();
    return true;
}

void BVDoubleSpinBox::setUseGlobalDisplayUnit(bool on)
{
    if (on)
        m_formatter->setGlobalOn();
    else
        m_formatter->setGlobalOff(m_formatter->displayUnit());
}

void BVDoubleSpinBox::setScientificNotation(bool on)
{
    if (on != isScientificNotation())
        setNotation(on ? BVFormatter::Scientific : BVFormatter::Fixed);
}

void BVDoubleSpinBox::onFormatterChanged()
{
    m_shownValue.reset();
    updateTolerance();
    updateValidator();
    showValue();
    forgetSizeHint();
    const bool valueUnitIsNew = unitString() != m_announcedUnit;
    const bool displayUnitIsNew = m_formatter->displayUnit() != m_announcedDisplayUnit;
    m_announcedUnit = unitString();
    m_announcedDisplayUnit = m_formatter->displayUnit();
    const QPointer<BVDoubleSpinBox> self(this);
    if (valueUnitIsNew)
        Q_EMIT valueUnitChanged(m_announcedUnit);
    if (self && displayUnitIsNew)
        Q_EMIT displayUnitChanged(m_announcedDisplayUnit);
}

void BVDoubleSpinBox::updateTolerance()
{
    m_tolerance = s_relativeTolerance;
    if (getNotation() != BVFormatter::Fixed)
        return;
    // As a difference, so that the offset between the scales of temperatures does not count.
    const double shown = std::pow(10.0, -decimals() - 1);
    m_tolerance =
        std::fabs(m_formatter->displayValueToValue(shown) - m_formatter->displayValueToValue(0.0));
}

double BVDoubleSpinBox::toleranceInDisplayUnit() const
{
    return std::fabs(m_formatter->valueToDisplayValue(m_tolerance) -
                     m_formatter->valueToDisplayValue(0.0));
}

// Look

void BVDoubleSpinBox::setPrefix(const QString &prefix)
{
    const bool hasFactor = prefix.endsWith(m_factorText);
    QDoubleSpinBox::setPrefix(hasFactor ? prefix : prefix + m_factorText);
}

void BVDoubleSpinBox::setFactor(double factor)
{
    if (factor == m_factor || !std::isfinite(factor))
        return;
    QString prefix = this->prefix();
    if (prefix.endsWith(m_factorText))
        prefix.chop(m_factorText.size());
    m_factor = factor;
    m_factorText.clear();
    if (factor != 1.0)
        m_factorText = QString::number(factor, 'g', s_factorDigits) + QStringLiteral(" \u00d7 ");
    QDoubleSpinBox::setPrefix(prefix + m_factorText);
    update();
}

void BVDoubleSpinBox::setInputFieldWidth(InputFieldSize size)
{
    if (size == m_inputFieldSize)
        return;
    m_inputFieldSize = size;
    forgetSizeHint();
    adjustSize();
}

void BVDoubleSpinBox::setFitText(bool on)
{
    if (on == m_fitText)
        return;
    m_fitText = on;
    forgetSizeHint();
}

void BVDoubleSpinBox::setComboType(ComboType type)
{
    if (type == m_comboType)
        return;
    m_comboType = type;
    PropertyChangeFilter::repolish(this);
}

void BVDoubleSpinBox::setReadOnlyAndDisableRuvix(bool on)
{
    setReadOnly(on);
    if (on ? !isRuvixEnabled() : !m_ruvixDisabled)
        return;
    m_ruvixDisabled = on;
    setRuvixEnabled(!on);
}

void BVDoubleSpinBox::setCorrectionMode(CorrectionMode mode)
{
    // The toolkit's own mode stays "previous value": with the other one it puts 0 in place of a
    // text that does not read.
    m_correctionMode = mode;
}

QRect BVDoubleSpinBox::getPaintingRect() const
{
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    option.subControls = QStyle::SC_SpinBoxEditField;
    return style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, this);
}

void BVDoubleSpinBox::forgetSizeHint()
{
    m_size->forget();
    updateGeometry();
}

QSize BVDoubleSpinBox::sizeHint() const
{
    ensurePolished();
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    return m_size->size(option);
}

QSize BVDoubleSpinBox::minimumSizeHint() const
{
    return sizeHint();
}

// Stepping

bool BVDoubleSpinBox::isSlidingPossible() const
{
    return isEnabled() && !isReadOnly() && !getBvStatus(BVWidgetStatus::StandardLocked) &&
           property("value").isValid() && property("maximum").isValid() &&
           property("minimum").isValid();
}

bool BVDoubleSpinBox::isSteppingPossible() const
{
    return !isReadOnly() && !getBvStatus(BVWidgetStatus::StandardLocked) && !m_sliding;
}

QAbstractSpinBox::StepEnabled BVDoubleSpinBox::stepEnabled() const
{
    if (isReadOnly() || getBvStatus(BVWidgetStatus::StandardLocked))
        return StepNone;
    if (wrapping() || m_empty)
        return StepUpEnabled | StepDownEnabled;
    const double value = steppedValue();
    StepEnabled enabled = StepNone;
    enabled.setFlag(StepUpEnabled, value < maximum());
    enabled.setFlag(StepDownEnabled, value > minimum());
    return enabled;
}

void BVDoubleSpinBox::stepBy(int steps)
{
    static bool s_running = false;
    if (s_running || !isSteppingPossible())
        return;
    const QScopedValueRollback<bool> running(s_running, true);
    slideValue(steps, false);
}

void BVDoubleSpinBox::stepByWheel(int steps)
{
    static bool s_running = false;
    if (s_running || !isSteppingPossible())
        return;
    const QScopedValueRollback<bool> running(s_running, true);
    slideValue(steps, true);
}

bool BVDoubleSpinBox::slideValue(int steps, bool accelerate)
{
    const QPointer<BVDoubleSpinBox> self(this); // a slot may delete the box
    if (!takeTypedText())
        return false;
    const double distance = slideDistance(steps, accelerate);
    const double shown = m_logarithmic ? logSlide(distance) : linearSlide(distance);
    double value = shown;
    const QString unit = m_formatter->displayUnit();
    if (m_formatter->isValueUnitSet() && !unit.isEmpty() &&
        !m_formatter->valueFromUnit(shown, unit, value))
        return false;
    if (std::isnan(value))
        return false;
    setEmpty(false);
    if (!self)
        return true;
    if (wrapping())
        value = BVStepping::wrapped(value, minimum(), maximum(), m_tolerance);
    postStep(toValidValue(value));
    return true;
}

double BVDoubleSpinBox::slideDistance(int steps, bool accelerate) const
{
    const Qt::KeyboardModifiers modifiers =
        m_modifiers.value_or(QGuiApplication::keyboardModifiers());
    if (modifiers & Qt::ControlModifier)
        return accelerate ? steps * s_acceleration : steps;
    return modifiers & Qt::ShiftModifier ? steps * s_fineStep : steps;
}

double BVDoubleSpinBox::linearSlide(double count) const
{
    const double current = m_formatter->valueToDisplayValue(steppedValue());
    const double step = BVStepping::stepOfRange(minimumInDisplayUnit(), maximumInDisplayUnit(),
                                                m_slideSteps, singleStep());
    if (!m_snapToSteps)
        return BVStepping::linear(current, step, count);
    return BVStepping::linearOnGrid(current, step, count, toleranceInDisplayUnit());
}

double BVDoubleSpinBox::logSlide(double count) const
{
    const double current = m_formatter->valueToDisplayValue(steppedValue());
    const bool sharesRange = m_logSlideSteps > 0;
    const double minimum = minimumInDisplayUnit();
    if (!(current > 0.0) || (sharesRange && !(minimum > 0.0)))
        return linearSlide(count);
    const double decades = sharesRange ? BVStepping::stepOfRange(std::log10(minimum),
                                                                 std::log10(maximumInDisplayUnit()),
                                                                 m_logSlideSteps, singleStep())
                                       : singleStep();
    return BVStepping::logarithmic(current, decades, count);
}

double BVDoubleSpinBox::toValidValue(double value) const
{
    return BVStepping::snappedToLimit(value, minimum(), maximum(), m_tolerance);
}

bool BVDoubleSpinBox::isValueInRange(double value, double tolerance, bool checkMinimum,
                                     bool checkMaximum) const
{
    if (std::isnan(value))
        return false;
    return (!checkMinimum || value >= minimum() || minimum() - value <= tolerance) &&
           (!checkMaximum || value <= maximum() || value - maximum() <= tolerance);
}

double BVDoubleSpinBox::round(double value, double step, int direction, double tolerance)
{
    return BVStepping::roundedToStep(value, step, direction, tolerance);
}

double BVDoubleSpinBox::steppedValue() const
{
    return m_steps->pendingValue().value_or(value());
}

void BVDoubleSpinBox::postStep(double value)
{
    const double bounded = qBound(minimum(), value, maximum());
    if (bounded != steppedValue())
        m_steps->post(bounded);
}

void BVDoubleSpinBox::customEvent(QEvent *event)
{
    const std::optional<double> stepped = m_steps->take(*event);
    if (!stepped)
        return BVStatusControl<QDoubleSpinBox>::customEvent(event);
    const QPointer<BVDoubleSpinBox> self(this);
    m_applyingStep = true;
    assign(*stepped);
    if (!self)
        return;
    m_applyingStep = false;
    selectAll();
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent change(this, value());
        QAccessible::updateAccessibility(&change);
    }
    Q_EMIT valueStepped(value());
}

// Value

void BVDoubleSpinBox::setValue(double value)
{
    if (std::isnan(value))
        return;
    m_steps->drop();
    const bool wasEmpty = std::exchange(m_empty, false);
    const QPointer<BVDoubleSpinBox> self(this);
    assign(qBound(minimum(), value, maximum()));
    if (self && wasEmpty)
        announceEmpty();
}

/// Sets and shows the value, which must be in range. The toolkit's own setter rounds it in a text
/// of hundreds of digits; so it gets the value as what a text reads as.
void BVDoubleSpinBox::assign(double value)
{
    m_assigned = value;
    m_settledValue = value;
    m_settledEmpty = m_empty;
    const QPointer<BVDoubleSpinBox> self(this);
    QDoubleSpinBox::interpretText();
    if (!self || !m_assigned)
        return;
    m_assigned.reset(); // a cleared box reads no text
    QDoubleSpinBox::setValue(value);
}

void BVDoubleSpinBox::showValue()
{
    assign(value());
}

void BVDoubleSpinBox::setEmpty(bool empty)
{
    if (empty == m_empty)
        return;
    m_steps->drop();
    m_empty = empty;
    showValue();
    announceEmpty();
}

void BVDoubleSpinBox::announceEmpty()
{
    const QPointer<BVDoubleSpinBox> self(this);
    setBvStatus(BVWidgetStatus::NeedInput, m_empty && !acceptEmpty());
    if (self)
        Q_EMIT emptyChanged(m_empty);
}

bool BVDoubleSpinBox::acceptEmpty() const
{
    return m_formatter->getValidator()->acceptEmpty();
}

void BVDoubleSpinBox::setAcceptEmpty(bool accept)
{
    m_formatter->getValidator()->setAcceptEmpty(accept);
    if (m_empty)
        setBvStatus(BVWidgetStatus::NeedInput, !accept);
}

void BVDoubleSpinBox::onValueChanged()
{
    if (!m_applyingStep)
        m_steps->drop();
    if (m_size->isOutgrownBy(shownText()))
        forgetSizeHint();
    if (m_empty && !typedText().isEmpty()) {
        m_empty = false;
        announceEmpty();
    }
}

void BVDoubleSpinBox::onTextChanged()
{
    if (m_fitText)
        forgetSizeHint();
    if (m_empty && keyboardTracking() && !typedText().isEmpty() && hasAcceptableInput()) {
        m_empty = false;
        announceEmpty();
    }
}

/// Makes a text being typed the value; false if it is not acceptable, and has been mended or has
/// made way for the last value.
bool BVDoubleSpinBox::takeTypedText()
{
    if (isSpecialText(lineEdit()->text()) || typedText() == shownText())
        return true;
    const bool acceptable = hasAcceptableInput();
    const QPointer<BVDoubleSpinBox> self(this);
    interpretText();
    return self && acceptable;
}

/// Makes what is shown that to which a text that is no value gives way.
void BVDoubleSpinBox::settle()
{
    m_settledValue = value();
    m_settledEmpty = m_empty;
}

void BVDoubleSpinBox::interpretText()
{
    const QPointer<BVDoubleSpinBox> self(this);
    settleText();
    if (!self)
        return;
    QDoubleSpinBox::interpretText();
    if (self)
        settle();
}

/// Settles what the toolkit does not when editing ends: a text that is no value, of which it has
/// taken what it could while it was typed, a deleted text, and a first text in an empty box.
void BVDoubleSpinBox::settleText()
{
    const QString typed = typedText();
    if (typed == shownText() || isSpecialText(lineEdit()->text()))
        return;
    const QPointer<BVDoubleSpinBox> self(this);
    if (typed.isEmpty() || !BVSpinBoxTexts(*this).isMendable(typed)) {
        const bool empty = m_settledEmpty || (typed.isEmpty() && acceptEmpty());
        assign(qBound(minimum(), m_settledValue, maximum()));
        if (self)
            setEmpty(empty);
    } else if (m_empty) {
        m_empty = false;
        announceEmpty();
    }
}

void BVDoubleSpinBox::emitEditingFinished()
{
    Q_EMIT editingFinished();
}

void BVDoubleSpinBox::clearSelection()
{
    lineEdit()->deselect();
}

// Text

QString BVDoubleSpinBox::textFromValue(double value) const
{
    if (m_empty && value == this->value())
        return QString();
    if (m_shownValue != value) {
        m_shownText = m_formatter->textFromValue(value, false);
        m_shownValue = value;
    }
    return m_shownText;
}

QString BVDoubleSpinBox::typedText() const
{
    return BVSpinBoxTexts(*this).stripped(lineEdit()->text());
}

double BVDoubleSpinBox::valueFromText(const QString &text) const
{
    if (m_assigned)
        return *std::exchange(m_assigned, std::nullopt);
    if (isSpecialText(text))
        return minimum();
    const BVSpinBoxTexts texts(*this);
    const QString typed = texts.stripped(text);
    if (typed.isEmpty() || typed == shownText())
        return value();
    bool ok = false;
    const double read = texts.validValue(typed, ok);
    return ok ? read : value();
}

bool BVDoubleSpinBox::isSpecialText(const QString &text) const
{
    return !text.isEmpty() && text == specialValueText();
}

void BVDoubleSpinBox::updateValidator() const
{
    BVUnitValidator *validator = m_formatter->getValidator();
    if (validator->bottom() != minimum() || validator->top() != maximum())
        validator->setRange(minimum(), maximum(), m_formatter->precision());
}

QValidator::State BVDoubleSpinBox::validate(QString &text, int &pos) const
{
    if (m_assigned || isSpecialText(text))
        return QValidator::Acceptable;
    updateValidator();
    const BVSpinBoxTexts texts(*this);
    int prefixLength = 0;
    QString typed = texts.stripped(text, &prefixLength);
    const int point = BVSpinBoxTexts::replacedPoint(typed, pos - prefixLength);
    if (point >= 0) {
        typed.remove(point, 1);
        text.remove(prefixLength + point, 1);
    }
    // The text that shows the value counts as it, even if rounding has taken it out of range.
    return !typed.isEmpty() && typed == shownText() ? QValidator::Acceptable : texts.judge(typed);
}

void BVDoubleSpinBox::fixup(QString &text) const
{
    const BVSpinBoxTexts texts(*this);
    const QString typed = texts.stripped(text);
    if (!typed.isEmpty() && !isSpecialText(text))
        text = texts.withAffixes(text, texts.mended(typed));
}

QString BVDoubleSpinBox::referenceValueText(const QVariant &reference) const
{
    bool ok = false;
    const double value = reference.toDouble(&ok);
    return ok ? m_formatter->textFromValue(value, true) : reference.toString();
}

QString BVDoubleSpinBox::toolTipText() const
{
    QStringList lines;
    if (!m_empty) {
        lines << BVValueTexts::fullValueText(*m_formatter, value())
              << BVValueTexts::valueInOtherUnits(*m_formatter, value());
    }
    return joinedToolTip(toolTip(), lines);
}

// Events

bool BVDoubleSpinBox::event(QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::ToolTip) {
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), composedToolTip(this),
                           this, rect(), toolTipDuration());
        return true;
    }
    if (type == BVWidgetStatusChangedEvent::s_eventType) {
        updateLock();
        m_drag->updateCursors();
        update(); // the arrows, too
    } else if (type == QEvent::ReadOnlyChange || type == QEvent::EnabledChange) {
        m_drag->updateCursors();
    } else if (type == QEvent::FontChange || type == QEvent::StyleChange) {
        forgetSizeHint();
    } else if (type == QEvent::ActivationChange || type == QEvent::Hide || type == QEvent::Close) {
        const QPointer<BVDoubleSpinBox> self(this);
        if (type != QEvent::ActivationChange || !isActiveWindow())
            interpretText(); // before the toolkit does
        if (!self)
            return true;
    }
    return QDoubleSpinBox::event(event); // past the lock, which stands in the line edit here
}

bool BVDoubleSpinBox::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (watched == lineEdit() &&
        (type == QEvent::Resize || type == QEvent::Show || type == QEvent::LayoutDirectionChange))
        updateLock();
    return BVStatusControl<QDoubleSpinBox>::eventFilter(watched, event);
}

void BVDoubleSpinBox::updateLock()
{
    BVWidgetStatusChangedEvent change(getBvStatus(), getBvStatus(), this);
    const QMargins margins = lineEdit()->textMargins();
    StandardSymbolPainter::handleStandardLocked(lineEdit(), &change);
    if (lineEdit()->textMargins() != margins)
        forgetSizeHint();
}

QMenu *BVDoubleSpinBox::createContextMenu()
{
    QMenu *menu = lineEdit()->createStandardContextMenu();
    if (auto *all = menu->findChild<QAction *>(QStringLiteral("select-all"))) {
        all->disconnect(lineEdit());
        connect(all, &QAction::triggered, this, &QAbstractSpinBox::selectAll); // without the prefix
    }
    const StepEnabled enabled = stepEnabled();
    menu->addSeparator();
    QAction *up = menu->addAction(tr("&Step up"), this, &QAbstractSpinBox::stepUp);
    up->setEnabled(enabled & StepUpEnabled);
    QAction *down = menu->addAction(tr("Step &down"), this, &QAbstractSpinBox::stepDown);
    down->setEnabled(enabled & StepDownEnabled);
    return menu;
}

void BVDoubleSpinBox::focusOutEvent(QFocusEvent *event)
{
    const QPointer<BVDoubleSpinBox> self(this);
    interpretText();
    if (self)
        BVStatusControl<QDoubleSpinBox>::focusOutEvent(event);
}

void BVDoubleSpinBox::keyPressEvent(QKeyEvent *event)
{
    const QPointer<BVDoubleSpinBox> self(this);
    const EventModifiers modifiers(this, *event);
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn)
        settleText();
    if (self)
        BVStatusControl<QDoubleSpinBox>::keyPressEvent(event);
    if (self && isReturn)
        settle();
}

void BVDoubleSpinBox::mousePressEvent(QMouseEvent *event)
{
    const EventModifiers modifiers(this, *event);
    BVStatusControl<QDoubleSpinBox>::mousePressEvent(event);
}

void BVDoubleSpinBox::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    const EventModifiers modifiers(this, *event);
    const int step = event->angleDelta().y() > 0 ? 1 : -1;
    event->accept();
    if (stepEnabled() & (step > 0 ? StepUpEnabled : StepDownEnabled))
        stepByWheel(step);
}
