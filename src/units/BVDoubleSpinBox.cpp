// SPDX-License-Identifier: MIT
#include "units/BVDoubleSpinBox.h"

#include "foundation/BVWidgetStatusChangedEvent.h"
#include "foundation/StandardSymbolPainter.h"
#include "platform/PropertyChangeFilter.h"
#include "units/BVSpinBoxContent_p.h"
#include "units/BVSpinBoxDrag_p.h"
#include "units/BVSpinBoxSize_p.h"
#include "units/BVSpinBoxSteps_p.h"
#include "units/BVStepping_p.h"
#include "units/BVUnitValidator.h"
#include "units/BVValueTexts_p.h"
#include "units/UnitChecks_p.h"

#include <QAccessible>
#include <QAction>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <cmath>
#include <utility>

using UnitChecks::isKnown;

namespace {

constexpr double s_relativeTolerance = 1e-6; // value unit, for other notations than fixed
constexpr int s_factorDigits = 6;            // significant

/// Whether the event precedes one at which others read the value: a key that leaves the field, or
/// the focus out.
bool isBeforeLeaving(const QEvent &event)
{
    if (event.type() == QEvent::FocusAboutToChange)
        return true;
    if (event.type() != QEvent::ShortcutOverride)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Return ||
           key == Qt::Key_Enter;
}

} // namespace

BVDoubleSpinBox::BVDoubleSpinBox(QWidget *parent)
    : BVStatusControl<QDoubleSpinBox>(parent)
    , m_formatter(new BVFormatter(this))
    , m_content(std::make_unique<BVSpinBoxContent>(this, lineEdit()))
    , m_drag(std::make_unique<BVSpinBoxDrag>(this, lineEdit()))
    , m_size(std::make_unique<BVSpinBoxSize>(*this, *lineEdit()))
    , m_steps(std::make_unique<BVSpinBoxSteps>(this))
{
    qRegisterMetaType<ComboType>(); // so that sheets select on the names
    qRegisterMetaType<Qt::LayoutDirection>();
    setFocusPolicy(Qt::StrongFocus);
    updateTolerance();
    m_content->keepDigits();
    lineEdit()->installEventFilter(this);
    connect(m_formatter, &BVFormatter::settingsChanged, this, &BVDoubleSpinBox::onFormatterChanged);
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &BVDoubleSpinBox::onValueChanged);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        m_steps->drop(); // they led away from the value that is typed over
        m_content->onTextEdited();
    });
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
    if (minimum != this->minimum() || qMax(minimum, maximum) != this->maximum())
        m_steps->drop();
    const QPointer<BVDoubleSpinBox> self(this);
    QDoubleSpinBox::setRange(minimum, maximum);
    if (!self)
        return;
    m_content->onRangeChanged();
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
    const QPointer<BVDoubleSpinBox> self(this); // a slot may delete the box
    if (m_formatter->setValueUnit(unit) && self && m_decimals >= 0)
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
    const QPointer<BVDoubleSpinBox> self(this);
    updateTolerance();
    m_content->updateValidator();
    m_content->showAnew();
    if (!self)
        return;
    forgetSizeHint();
    const bool valueUnitIsNew = unitString() != m_announcedUnit;
    const bool displayUnitIsNew = m_formatter->displayUnit() != m_announcedDisplayUnit;
    m_announcedUnit = unitString();
    m_announcedDisplayUnit = m_formatter->displayUnit();
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
    const double scale =
        m_formatter->displayValueToValue(1.0) - m_formatter->displayValueToValue(0.0);
    m_tolerance = std::pow(10.0, -decimals() - 1) * std::fabs(scale);
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

bool BVDoubleSpinBox::isReadOnlyOrLocked() const
{
    return isReadOnly() || getBvStatus(BVWidgetStatus::StandardLocked);
}

bool BVDoubleSpinBox::isSlidingPossible() const
{
    return isEnabled() && !isReadOnlyOrLocked() && property("value").isValid() &&
           property("maximum").isValid() && property("minimum").isValid();
}

bool BVDoubleSpinBox::isSteppingPossible() const
{
    return !isReadOnlyOrLocked() && !m_sliding;
}

QAbstractSpinBox::StepEnabled BVDoubleSpinBox::stepEnabled() const
{
    if (isReadOnlyOrLocked())
        return StepNone;
    if (wrapping() || isEmpty())
        return StepUpEnabled | StepDownEnabled;
    const double value = m_steps->value();
    StepEnabled enabled = StepNone;
    enabled.setFlag(StepUpEnabled, value < maximum());
    enabled.setFlag(StepDownEnabled, value > minimum());
    return enabled;
}

void BVDoubleSpinBox::stepBy(int steps)
{
    static bool s_running = false;
    stepUnlessRunning(steps, false, s_running);
}

void BVDoubleSpinBox::stepByWheel(int steps)
{
    static bool s_running = false;
    stepUnlessRunning(steps, true, s_running);
}

void BVDoubleSpinBox::stepUnlessRunning(int steps, bool accelerate, bool &running)
{
    if (running || !isSteppingPossible())
        return;
    const QScopedValueRollback<bool> guard(running, true);
    slideValue(steps, accelerate);
}

bool BVDoubleSpinBox::slideValue(int steps, bool accelerate)
{
    const QPointer<BVDoubleSpinBox> self(this); // a slot may delete the box
    if (!m_content->takeTyped())
        return false;
    const std::optional<double> value = m_steps->target(steps, accelerate);
    if (!value)
        return false;
    setEmpty(false);
    if (self)
        m_steps->post(*value);
    return true;
}

double BVDoubleSpinBox::linearSlide(double count) const
{
    return m_steps->linear(count);
}

double BVDoubleSpinBox::logSlide(double count) const
{
    return m_steps->logarithmic(count);
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

void BVDoubleSpinBox::customEvent(QEvent *event)
{
    const std::optional<double> stepped = m_steps->take(*event);
    if (!stepped)
        return BVStatusControl<QDoubleSpinBox>::customEvent(event);
    const QPointer<BVDoubleSpinBox> self(this);
    m_content->show(*stepped, false);
    if (!self)
        return;
    selectAll();
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent change(this, value());
        QAccessible::updateAccessibility(&change);
    }
    Q_EMIT valueStepped(value());
}

// Value and text

void BVDoubleSpinBox::setValue(double value)
{
    if (std::isnan(value))
        return;
    m_steps->drop();
    m_content->show(value, false);
}

bool BVDoubleSpinBox::isEmpty() const
{
    return m_content->isEmpty();
}

void BVDoubleSpinBox::setEmpty(bool empty)
{
    if (empty == isEmpty())
        return;
    m_steps->drop();
    m_content->setEmpty(empty);
}

bool BVDoubleSpinBox::acceptEmpty() const
{
    return m_formatter->getValidator()->acceptEmpty();
}

void BVDoubleSpinBox::setAcceptEmpty(bool accept)
{
    m_formatter->getValidator()->setAcceptEmpty(accept);
    m_content->showNeed();
}

void BVDoubleSpinBox::onValueChanged()
{
    const QPointer<BVDoubleSpinBox> self(this);
    if (m_content->onValueChanged() && self)
        m_steps->drop();
    if (self && m_size->isOutgrownBy(m_content->shownText()))
        forgetSizeHint();
}

void BVDoubleSpinBox::onTextChanged()
{
    if (m_fitText)
        forgetSizeHint();
    m_content->onTextChanged();
}

void BVDoubleSpinBox::interpretText()
{
    if (!m_editable)
        return;
    const QPointer<BVDoubleSpinBox> self(this);
    m_steps->flush(); // whoever takes over reads the value next
    if (self)
        m_content->takeOver();
}

void BVDoubleSpinBox::emitEditingFinished()
{
    Q_EMIT editingFinished();
}

void BVDoubleSpinBox::clearSelection()
{
    lineEdit()->deselect();
}

QString BVDoubleSpinBox::textFromValue(double value) const
{
    return m_content->textOf(value);
}

double BVDoubleSpinBox::valueFromText(const QString &text) const
{
    return m_content->valueOf(text);
}

QValidator::State BVDoubleSpinBox::validate(QString &text, int &pos) const
{
    return m_content->validate(text, pos);
}

void BVDoubleSpinBox::fixup(QString &text) const
{
    m_content->fixup(text);
}

QString BVDoubleSpinBox::referenceValueText(const QVariant &reference) const
{
    return BVValueTexts::referenceText(*m_formatter, reference);
}

QString BVDoubleSpinBox::toolTipText() const
{
    QStringList lines;
    if (!isEmpty()) {
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
        showComposedToolTip(this, static_cast<QHelpEvent *>(event));
        return true;
    }
    const QPointer<BVDoubleSpinBox> self(this);
    const bool isLeaving = type == QEvent::ActivationChange && !isActiveWindow();
    if (isLeaving || type == QEvent::Close || isBeforeLeaving(*event))
        interpretText(); // before the toolkit does, and anyone reads the value
    else if (type == QEvent::Hide && m_editable)
        m_content->takeOver(); // posted steps follow, unless the box is on its way out
    if (!self)
        return true;
    if (type == BVWidgetStatusChangedEvent::s_eventType) {
        m_content->onStatusChanged();
        updateLock();
    }
    if (type == BVWidgetStatusChangedEvent::s_eventType || type == QEvent::ReadOnlyChange ||
        type == QEvent::EnabledChange) {
        onAccessChanged();
        if (!self)
            return true;
    } else if (type == QEvent::FontChange || type == QEvent::StyleChange) {
        forgetSizeHint();
    } else if (type == QEvent::LayoutDirectionChange && m_comboType != NoCombo) {
        PropertyChangeFilter::repolishPost(this);
    }
    // Past the lock, which stands in the line edit. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    const bool done = QDoubleSpinBox::event(event);
    if (self && type == QEvent::Show)
        m_content->showNoValue();
    return done;
}

/// What may be done with the box has changed.
void BVDoubleSpinBox::onAccessChanged()
{
    lineEdit()->setReadOnly(isReadOnlyOrLocked());
    if (!isSlidingPossible())
        m_steps->drop();
    m_drag->update();
    update(); // the arrows, too
    takeLastTyped();
}

/// Settles a text when no more can be typed, so that leaving the box later changes nothing.
void BVDoubleSpinBox::takeLastTyped()
{
    const bool isEditable = isEnabled() && !isReadOnlyOrLocked();
    if (std::exchange(m_editable, isEditable) && !isEditable)
        m_content->takeTyped();
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
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        // The line edit selects the prefix, too; the box follows it and does not.
        if (action->text().startsWith(QLineEdit::tr("Select All")))
            connect(action, &QAction::triggered, this, &QAbstractSpinBox::selectAll);
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
    if (self)
        m_content->showNoValue();
}

void BVDoubleSpinBox::keyPressEvent(QKeyEvent *event)
{
    const QPointer<BVDoubleSpinBox> self(this);
    const BVSpinBoxSteps::Modifiers modifiers(*m_steps, *event);
    const bool clears = event->key() == Qt::Key_U && (event->modifiers() & Qt::ControlModifier);
    if (clears && lineEdit()->isReadOnly())
        return; // the toolkit's box would clear a locked one
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn)
        interpretText();
    if (self && isReturn)
        m_content->pinValue(); // all is read, but the toolkit's box announces it
    if (self)
        BVStatusControl<QDoubleSpinBox>::keyPressEvent(event);
    if (self && isReturn)
        m_content->unpinValue();
}

void BVDoubleSpinBox::mousePressEvent(QMouseEvent *event)
{
    const BVSpinBoxSteps::Modifiers modifiers(*m_steps, *event);
    BVStatusControl<QDoubleSpinBox>::mousePressEvent(event);
}

void BVDoubleSpinBox::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    const BVSpinBoxSteps::Modifiers modifiers(*m_steps, *event);
    const int step = event->angleDelta().y() > 0 ? 1 : -1;
    event->accept();
    if (stepEnabled() & (step > 0 ? StepUpEnabled : StepDownEnabled))
        stepByWheel(step);
}
