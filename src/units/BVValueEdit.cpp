// SPDX-License-Identifier: MIT
#include "units/BVValueEdit.h"

#include "units/BVUnitValidator.h"
#include "units/UnitsConfiguration.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <QVariant>

#include <cmath>

namespace {

constexpr int s_toolTipDigits = 9; // significant digits of the value in other units

/// Gives a number without a unit the unit that it is meant in.
QString withDisplayUnit(const BVFormatter &formatter, const QString &text)
{
    bool isNumber = false;
    BVDoubleValidator::toDoubleValue(text.trimmed(), isNumber);
    QString complete = text;
    if (isNumber && formatter.isValueUnitSet() && formatter.displayUnit() != formatter.valueUnit())
        BVUnitValidator::appendUnitIfNone(complete, formatter.displayUnit());
    return complete;
}

/// Judges what is typed into the edit as its formatter will read it.
class EditValidator : public QValidator
{
public:
    explicit EditValidator(BVValueEdit *edit)
        : QValidator(edit)
        , m_edit(edit)
        , m_formatter(edit->getFormatter())
    {
    }

    State validate(QString &text, int &position) const override
    {
        const BVUnitValidator *validator = m_formatter->getValidator();
        if (showsAcceptableValue(text))
            return Acceptable;
        QString complete = withDisplayUnit(*m_formatter, text);
        if (complete == text)
            return validator->validate(text, position);
        int end = complete.size();
        return validator->validate(complete, end);
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
        BVUnitValidator::split(text, number, unit);
        return !number.isEmpty();
    }

    BVValueEdit *m_edit;
    BVFormatter *m_formatter;
};

} // namespace

BVValueEdit::BVValueEdit(QWidget *parent)
    : BVLineEdit(parent)
    , m_formatter(new BVFormatter(this))
{
    setFocusPolicy(Qt::StrongFocus);
    m_formatter->setNotation(BVFormatter::Automatic);
    m_formatter->includeUnit(true);
    setValidator(new EditValidator(this));
    connect(m_formatter, &BVFormatter::settingsChanged, this, &BVValueEdit::onFormatterChanged);
    connect(this, &QLineEdit::textEdited, this, &BVValueEdit::onTextEdited);
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
    return value(UnitConverter::UnitFromTag(unit), ok);
}

bool BVValueEdit::setValue(double value, const QString &unit)
{
    double converted = value;
    if (!m_formatter->valueFromUnit(value, unit, converted))
        return false;
    setValue(converted);
    return true;
}

bool BVValueEdit::setValue(double value, UnitConverter::Unit unit)
{
    return setValue(value, UnitConverter::UnitFromTag(unit));
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
    const double oldMinimum = validator->bottom();
    const double oldMaximum = validator->top();
    if (minimum == oldMinimum && maximum == oldMaximum)
        return;
    validator->setBottom(minimum);
    validator->setTop(maximum);
    showAcceptance();
    if (minimum != oldMinimum)
        Q_EMIT minChanged(minimum);
    if (maximum != oldMaximum)
        Q_EMIT maxChanged(maximum);
}

QString BVValueEdit::unitString() const
{
    return m_formatter->valueUnit();
}

void BVValueEdit::setUnitString(const QString &unit)
{
    if (unit != unitString() && m_formatter->setValueUnit(unit))
        Q_EMIT valueUnitChanged(unit);
}

UnitConverter::Unit BVValueEdit::unitTag() const
{
    return UnitConverter::TagFromUnit(unitString());
}

void BVValueEdit::setUnitTag(UnitConverter::Unit unit)
{
    setUnitString(UnitConverter::UnitFromTag(unit));
}

UnitConverter::Unit BVValueEdit::getDisplayUnitTag() const
{
    return UnitConverter::TagFromUnit(m_formatter->displayUnit());
}

void BVValueEdit::setDisplayUnitTag(UnitConverter::Unit unit)
{
    const QString text = UnitConverter::UnitFromTag(unit);
    setDisplayUnit(text, !text.isEmpty());
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
    if (text() == textFromValue(m_value, false)) {
        takeOver(m_value); // reading it back would round the value
    } else {
        bool ok = false;
        const double value = m_formatter->valueFromText(textWithUnit(), ok);
        if (ok)
            takeOver(value);
        else
            showAcceptance();
    }
    if (m_preselect)
        selectAll();
}

void BVValueEdit::onUpdateDisplay()
{
    setText(textFromValue(m_value, false));
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
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), composedToolTip(this), this);
    return true;
}

void BVValueEdit::keyPressEvent(QKeyEvent *event)
{
    BVLineEdit::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        storeValue();
        selectAllIfNone();
    }
}

void BVValueEdit::focusOutEvent(QFocusEvent *event)
{
    storeValue();
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
    const QString unit = m_formatter->displayUnit();
    if (unit == m_shownUnit)
        return;
    m_shownUnit = unit;
    Q_EMIT displayUnitChanged(unit);
}

void BVValueEdit::onTextEdited()
{
    // What is still being typed is not found fault with; a fault once found goes as soon as it is
    // mended.
    if (isNeedInputStatus() && hasAcceptableInput())
        showAcceptance();
}

void BVValueEdit::takeOver(double value)
{
    m_value = value;
    m_dirty = false;
    onUpdateDisplay();
    if (hasAcceptableInput())
        Q_EMIT valueChanged(value);
    else
        Q_EMIT valueInvalid();
}

void BVValueEdit::showAcceptance()
{
    const bool acceptable = hasAcceptableInput();
    if (!acceptable) {
        if (!m_describesProblem)
            m_description = accessibleDescription();
        setAccessibleDescription(problem());
    } else if (m_describesProblem) {
        setAccessibleDescription(m_description);
    }
    m_describesProblem = !acceptable;
    setBvStatus(BVWidgetStatus::NeedInput, !acceptable);
}

void BVValueEdit::selectAllIfNone()
{
    if (!text().isEmpty() && !hasSelectedText())
        selectAll();
}

QString BVValueEdit::textWithUnit() const
{
    return withDisplayUnit(*m_formatter, text());
}

QString BVValueEdit::problem() const
{
    QString number;
    QString unit;
    BVUnitValidator::split(text(), number, unit);
    if (number.isEmpty() && unit.isEmpty())
        return tr("A value is needed here.");
    bool isNumber = false;
    BVDoubleValidator::toDoubleValue(number, isNumber);
    if (!isNumber)
        return tr("\"%1\" is not a number.").arg(number.isEmpty() ? text() : number);
    QString typedUnit = unit;
    BVFormatter::replaceSymbols(typedUnit, true);
    if (unit.isEmpty() || UnitConverter::isConvertable(typedUnit, unitString()))
        return rangeProblem();
    if (!m_formatter->isValueUnitSet())
        return tr("This value has no unit; \"%1\" does not belong here.").arg(unit);
    const UnitConverter::UnitCheck check = UnitConverter::isUnit(typedUnit);
    if (check != UnitConverter::CompleteUnit && check != UnitConverter::UnitName)
        return tr("\"%1\" is not a unit.").arg(unit);
    QString shownUnit = m_formatter->displayUnit();
    BVFormatter::replaceSymbols(shownUnit, false);
    return tr("\"%1\" does not convert into \"%2\".").arg(unit, shownUnit);
}

QString BVValueEdit::rangeProblem() const
{
    bool ok = false;
    const QString complete = textWithUnit();
    const double value = m_formatter->valueFromText(complete, ok);
    if (value < minimum())
        return tr("The value must be at least %1.").arg(textFromValue(minimum(), true));
    if (value > maximum())
        return tr("The value must be at most %1.").arg(textFromValue(maximum(), true));
    return tr("\"%1\" is not a value.").arg(text());
}

QStringList BVValueEdit::valueInOtherUnits() const
{
    const UnitsConfiguration &configuration = UnitsConfiguration::instance();
    QStringList lines;
    const QStringList units = UnitsConfiguration::allowedUnits(
        configuration.isSupportedUnitOfAny(m_formatter->displayUnit()));
    for (const QString &unit : units) {
        double converted = m_value;
        if (unit == m_formatter->displayUnit() ||
            !m_formatter->valueToUnit(m_value, unit, converted))
            continue;
        QString text = QString::number(converted, 'g', s_toolTipDigits);
        BVUnitValidator::appendUnit(text, unit);
        lines << QStringLiteral("= ") + text;
    }
    return lines;
}

QString BVValueEdit::referenceValueText(const QVariant &reference) const
{
    bool ok = false;
    const double value = reference.toDouble(&ok);
    return ok ? textFromValue(value, true) : reference.toString();
}

QString BVValueEdit::toolTipText() const
{
    QStringList lines;
    if (!toolTip().isEmpty())
        lines << toolTip();
    if (!hasAcceptableInput())
        lines << problem();
    lines << textFromValue(m_value, true) << valueInOtherUnits();
    return lines.join(QLatin1Char('\n'));
}
