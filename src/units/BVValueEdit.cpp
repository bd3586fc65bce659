// SPDX-License-Identifier: MIT
#include "units/BVValueEdit.h"

#include "units/BVUnitValidator.h"
#include "units/BVValueTexts_p.h"
#include "units/UnitChecks_p.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPointer>

#include <cmath>

using BVValueTexts::withDisplayUnit;
using UnitChecks::isKnown;

namespace {

/// Judges a text as the edit's formatter will read it.
///
/// No text is invalid: a line edit swallows the keys that would make it so, and what is left often
/// reads as another value.
class EditValidator : public QValidator
{
    Q_OBJECT

public:
    explicit EditValidator(BVValueEdit *edit)
        : QValidator(edit)
        , m_edit(edit)
        , m_formatter(edit->getFormatter())
    {
    }

    State validate(QString &text, int & /*position*/) const override
    {
        if (showsAcceptableValue(text))
            return Acceptable;
        QString complete = withDisplayUnit(*m_formatter, text);
        int end = complete.size();
        const State state = m_formatter->getValidator()->validate(complete, end);
        return state == Invalid ? Intermediate : state;
    }

private:
    /// The text that shows a value in range is acceptable, even if rounding took it out of range.
    bool showsAcceptableValue(const QString &text) const
    {
        const double value = m_edit->value();
        if (!(value >= m_edit->minimum() && value <= m_edit->maximum()) ||
            text != m_edit->textFromValue(value, false))
            return false;
        QString number;
        QString unit;
        BVUnitValidator::split(withDisplayUnit(*m_formatter, text), number, unit);
        bool isNumber = false;
        BVDoubleValidator::toDoubleValue(number, isNumber);
        return isNumber;
    }

    BVValueEdit *m_edit;
    BVFormatter *m_formatter;
};

} // namespace

BVValueEdit::BVValueEdit(QWidget *parent)
    : BVLineEdit(parent)
    , m_formatter(new BVFormatter(this))
    , m_minimum(m_formatter->getValidator()->bottom())
    , m_maximum(m_formatter->getValidator()->top())
{
    setFocusPolicy(Qt::StrongFocus);
    m_formatter->setNotation(BVFormatter::Automatic);
    m_formatter->includeUnit(true);
    setValidator(new EditValidator(this));
    connect(m_formatter, &BVFormatter::settingsChanged, this, &BVValueEdit::onFormatterChanged);
    connect(m_formatter->getValidator(), &QValidator::changed, this, &BVValueEdit::onLimitsChanged);
    connect(this, &QLineEdit::textChanged, this, &BVValueEdit::onTextChanged);
    onUpdateDisplay();
}

BVValueEdit::~BVValueEdit() = default;

double BVValueEdit::value(const QString &unit, bool *ok) const
{
    double result = m_value;
    const bool converts = unit.isEmpty() || !m_formatter->isValueUnitSet() ||
                          m_formatter->valueToUnit(m_value, unit, result);
    if (ok)
        *ok = converts;
    return result;
}

double BVValueEdit::value(UnitConverter::Unit unit, bool *ok) const
{
    if (isKnown(unit))
        return value(UnitConverter::UnitFromTag(unit), ok);
    if (ok)
        *ok = false;
    return m_value;
}

bool BVValueEdit::setValue(double value, const QString &unit)
{
    double converted = value;
    if (std::isnan(value) || !m_formatter->valueFromUnit(value, unit, converted) ||
        (std::isinf(converted) && !std::isinf(value)))
        return false;
    setValue(converted);
    return true;
}

bool BVValueEdit::setValue(double value, UnitConverter::Unit unit)
{
    return isKnown(unit) && setValue(value, UnitConverter::UnitFromTag(unit));
}

double BVValueEdit::getDisplayValue() const
{
    const BVFormatter formatter;
    QString unit;
    bool ok = false;
    return formatter.pureValueFromText(text(), unit, ok);
}

int BVValueEdit::decimals() const
{
    return m_formatter->decimals();
}

void BVValueEdit::setDecimals(int decimals)
{
    m_decimals = decimals;
    m_formatter->setDecimals(decimals);
}

int BVValueEdit::precision() const
{
    return m_formatter->precision();
}

void BVValueEdit::setPrecision(int precision)
{
    m_formatter->setPrecision(precision);
}

double BVValueEdit::minimum() const
{
    return m_formatter->getValidator()->bottom();
}

void BVValueEdit::setMinimum(double minimum)
{
    setRange(minimum, qMax(minimum, maximum()));
}

double BVValueEdit::maximum() const
{
    return m_formatter->getValidator()->top();
}

void BVValueEdit::setMaximum(double maximum)
{
    setRange(qMin(minimum(), maximum), maximum);
}

void BVValueEdit::setRange(double minimum, double maximum)
{
    if (!(minimum <= maximum)) // so does NaN in either place
        return;
    BVUnitValidator *validator = m_formatter->getValidator();
    if (minimum != validator->bottom() || maximum != validator->top())
        validator->setRange(minimum, maximum, validator->decimals());
}

void BVValueEdit::onLimitsChanged()
{
    const bool minimumChanged = minimum() != m_minimum;
    const bool maximumChanged = maximum() != m_maximum;
    m_minimum = minimum();
    m_maximum = maximum();
    if ((minimumChanged || maximumChanged) && (!isModified() || isNeedInputStatus()))
        showAcceptance(); // what is still being typed is not found fault with
    if (minimumChanged)
        Q_EMIT minChanged(m_minimum);
    if (maximumChanged)
        Q_EMIT maxChanged(m_maximum);
}

QString BVValueEdit::unitString() const
{
    return m_formatter->valueUnit();
}

void BVValueEdit::setUnitString(const QString &unit)
{
    if (m_formatter->setValueUnit(unit) && m_decimals >= 0)
        m_formatter->setDecimals(m_decimals);
}

UnitConverter::Unit BVValueEdit::unitTag() const
{
    return UnitConverter::TagFromUnit(unitString());
}

void BVValueEdit::setUnitTag(UnitConverter::Unit unit)
{
    if (isKnown(unit))
        setUnitString(UnitConverter::UnitFromTag(unit));
}

UnitConverter::Unit BVValueEdit::getDisplayUnitTag() const
{
    return UnitConverter::TagFromUnit(m_formatter->displayUnit());
}

void BVValueEdit::setDisplayUnitTag(UnitConverter::Unit unit)
{
    if (isKnown(unit))
        setDisplayUnit(UnitConverter::UnitFromTag(unit), unit != UnitConverter::Unit_None);
}

BVFormatter::OutputNotation BVValueEdit::getNotation() const
{
    return m_formatter->notation();
}

void BVValueEdit::setNotation(BVFormatter::OutputNotation notation)
{
    m_formatter->setNotation(notation);
}

bool BVValueEdit::isScientificNotation() const
{
    return getNotation() == BVFormatter::Scientific;
}

void BVValueEdit::setScientificNotation(bool on)
{
    if (on != isScientificNotation())
        setNotation(on ? BVFormatter::Scientific : BVFormatter::Automatic);
}

void BVValueEdit::setPreselect(bool on)
{
    m_preselect = on;
}

QString BVValueEdit::textFromValue(double value, bool full) const
{
    return m_formatter->textFromValue(value, full);
}

double BVValueEdit::valueFromText(const QString &text) const
{
    return m_formatter->valueFromText(text);
}

void BVValueEdit::setValue(double value)
{
    if (!std::isnan(value))
        takeOver(value);
}

void BVValueEdit::setDisplayValue(double value)
{
    setValue(m_formatter->displayValueToValue(value));
}

void BVValueEdit::storeValue()
{
    if (!isModified() && !m_dirty)
        return;
    const QPointer<BVValueEdit> self(this); // a slot may delete the edit
    bool ok = false;
    const double value = valueOfText(ok);
    if (ok)
        takeOver(value);
    else
        showAcceptance();
    if (self && m_preselect)
        selectAll();
}

void BVValueEdit::onUpdateDisplay()
{
    const QString text = textFromValue(m_value, false);
    if (text != QLineEdit::text() || isModified()) {
        m_showing = true;
        setText(text);
        m_showing = false;
    }
    showAcceptance();
}

void BVValueEdit::setDirty()
{
    m_dirty = true;
}

bool BVValueEdit::setDisplayUnit(const QString &unit, bool userDefined)
{
    if (userDefined)
        return m_formatter->setGlobalOff(unit);
    m_formatter->setGlobalOn();
    return true;
}

bool BVValueEdit::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return BVLineEdit::event(event);
    showComposedToolTip(this, static_cast<QHelpEvent *>(event));
    return true;
}

void BVValueEdit::keyPressEvent(QKeyEvent *event)
{
    const QPointer<BVValueEdit> self(this);
    BVLineEdit::keyPressEvent(event);
    if (!self || (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter))
        return;
    storeValue();
    if (!self)
        return;
    selectAllIfNone();
    if (isNeedInputStatus())
        event->accept(); // or a dialog would close over a text that was not taken
}

void BVValueEdit::focusOutEvent(QFocusEvent *event)
{
    const QPointer<BVValueEdit> self(this);
    storeValue();
    if (self)
        BVLineEdit::focusOutEvent(event);
}

void BVValueEdit::mouseReleaseEvent(QMouseEvent *event)
{
    BVLineEdit::mouseReleaseEvent(event);
    if (m_preselect)
        selectAllIfNone();
}

void BVValueEdit::onFormatterChanged()
{
    onUpdateDisplay();
    const bool valueUnitIsNew = unitString() != m_announcedUnit;
    const bool displayUnitIsNew = m_formatter->displayUnit() != m_shownUnit;
    m_announcedUnit = unitString();
    m_shownUnit = m_formatter->displayUnit();
    const QPointer<BVValueEdit> self(this);
    if (valueUnitIsNew)
        Q_EMIT valueUnitChanged(m_announcedUnit);
    if (self && displayUnitIsNew)
        Q_EMIT displayUnitChanged(m_shownUnit);
}

void BVValueEdit::onTextChanged()
{
    if (m_showing)
        return;
    if (!isModified()) { // set by the program or a completer
        m_dirty = m_dirty || text() != textFromValue(m_value, false);
        showAcceptance();
    } else if (isNeedInputStatus()) {
        // What is still being typed is not found fault with; a fault once found goes when it is
        // mended.
        showAcceptance();
    }
}

double BVValueEdit::valueOfText(bool &ok)
{
    if (text() == textFromValue(m_value, false)) {
        ok = hasAcceptableInput();
        return m_value; // reading it back would round the value
    }
    const double value = m_formatter->valueFromText(withDisplayUnit(*m_formatter, text()), ok);
    ok = ok && value >= minimum() && value <= maximum();
    if (ok)
        m_formatter->setEmpty(false, false);
    return value;
}

void BVValueEdit::takeOver(double value)
{
    const QPointer<BVValueEdit> self(this);
    m_value = value;
    m_dirty = false;
    onUpdateDisplay();
    if (!self || m_value != value) // a slot has deleted the edit, or set another value
        return;
    if (hasAcceptableInput())
        Q_EMIT valueChanged(value);
    else
        Q_EMIT valueInvalid();
}

void BVValueEdit::showAcceptance()
{
    const bool acceptable = hasAcceptableInput();
    if (accessibleDescription() != m_describedProblem || m_describedProblem.isEmpty())
        m_description = accessibleDescription();
    m_describedProblem.clear();
    if (!acceptable) {
        m_describedProblem =
            m_description.isEmpty() ? problem() : m_description + QLatin1Char('\n') + problem();
    }
    setAccessibleDescription(acceptable ? m_description : m_describedProblem);
    setBvStatus(BVWidgetStatus::NeedInput, !acceptable);
}

void BVValueEdit::selectAllIfNone()
{
    if (!text().isEmpty() && !hasSelectedText())
        selectAll();
}

QString BVValueEdit::problem() const
{
    QString number;
    QString unit;
    const QString complete = withDisplayUnit(*m_formatter, text());
    BVUnitValidator::split(complete, number, unit);
    if (complete.trimmed().isEmpty() || isNoValue())
        return tr("A value is needed here.");
    bool isNumber = false;
    BVDoubleValidator::toDoubleValue(number, isNumber);
    if (!isNumber)
        return tr("\"%1\" is not a number.").arg(number.isEmpty() ? complete : number);
    QString typedUnit = unit;
    BVFormatter::replaceSymbols(typedUnit, true);
    if (unit.isEmpty() || UnitConverter::isConvertable(typedUnit, unitString()))
        return rangeProblem();
    if (!m_formatter->isValueUnitSet())
        return tr("This value has no unit; \"%1\" does not belong here.").arg(unit);
    if (!UnitChecks::isWholeUnit(typedUnit))
        return tr("\"%1\" is not a unit.").arg(unit);
    QString shownUnit = m_formatter->displayUnit();
    BVFormatter::replaceSymbols(shownUnit, false);
    return tr("\"%1\" does not convert into \"%2\".").arg(unit, shownUnit);
}

QString BVValueEdit::rangeProblem() const
{
    const double value = m_formatter->valueFromText(withDisplayUnit(*m_formatter, text()));
    if (value < minimum())
        return tr("The value must be at least %1.").arg(textFromValue(minimum(), true));
    if (value > maximum())
        return tr("The value must be at most %1.").arg(textFromValue(maximum(), true));
    return tr("\"%1\" is not a value.").arg(text());
}

bool BVValueEdit::isNoValue() const
{
    const bool isEmptyValue =
        m_formatter->isCheckForEmptyValue() && m_value == m_formatter->emptyValue();
    return (m_formatter->isEmpty() || isEmptyValue) && text() == textFromValue(m_value, false);
}

QString BVValueEdit::referenceValueText(const QVariant &reference) const
{
    return BVValueTexts::referenceText(*m_formatter, reference);
}

QString BVValueEdit::toolTipText() const
{
    QStringList lines;
    if (!hasAcceptableInput())
        lines << problem();
    if (!isNoValue())
        lines << BVValueTexts::fullValueText(*m_formatter, m_value)
              << BVValueTexts::valueInOtherUnits(*m_formatter, m_value);
    return joinedToolTip(toolTip(), lines);
}

#include "BVValueEdit.moc"
