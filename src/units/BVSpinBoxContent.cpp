// SPDX-License-Identifier: MIT
#include "units/BVSpinBoxContent_p.h"

#include "units/BVDoubleSpinBox.h"
#include "units/BVSpinBoxTexts_p.h"
#include "units/BVUnitValidator.h"

#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>

#include <cfloat>
#include <utility>

namespace {

constexpr int s_baseDecimals = DBL_MAX_10_EXP + DBL_DIG; // the most that the toolkit's box takes

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

double rounded(double value, int decimals)
{
    return QString::number(value, 'f', decimals).toDouble();
}

} // namespace

BVSpinBoxContent::BVSpinBoxContent(BVDoubleSpinBox *box, QLineEdit *edit)
    : m_box(box)
    , m_edit(edit)
    , m_known(box->value())
{
    m_edit->setValidator(new EditValidator(m_edit->validator(), box));
}

void BVSpinBoxContent::keepDigits()
{
    m_box->QDoubleSpinBox::setDecimals(s_baseDecimals);
}

// Showing

void BVSpinBoxContent::show(double value, bool empty)
{
    const bool changed = std::exchange(m_empty, empty) != empty;
    const QPointer<BVDoubleSpinBox> self(m_box); // a slot may delete the box, and this with it
    assign(qBound(m_box->minimum(), value, m_box->maximum()));
    if (self && changed)
        announceEmpty();
}

/// Makes the value, which must be in range, that of the toolkit's box, and shows it. Its own setter
/// rounds it in a text of hundreds of digits; so it gets the value as what a text reads as.
void BVSpinBoxContent::assign(double value)
{
    const QPointer<BVDoubleSpinBox> self(m_box);
    const double before = m_box->value();
    m_typing = false;
    m_assigning = true;
    m_assigned = value;
    m_box->QDoubleSpinBox::interpretText();
    if (self && m_assigned) {
        m_assigned.reset(); // a cleared box reads no text
        m_box->QDoubleSpinBox::setValue(value);
    }
    if (self)
        announceSmallChange(before);
    if (!self)
        return;
    m_assigning = false;
    m_known = m_box->value();
    showNoValue();
}

/// The toolkit's box compares values as nearly equal, and may have told nothing.
void BVSpinBoxContent::announceSmallChange(double before)
{
    if (!m_assigning || m_box->value() == before)
        return;
    const QPointer<BVDoubleSpinBox> self(m_box);
    Q_EMIT m_box->textChanged(m_box->text());
    if (self)
        Q_EMIT m_box->valueChanged(m_box->value());
}

void BVSpinBoxContent::showNoValue()
{
    if (!m_empty)
        return;
    const QSignalBlocker blocker(m_edit); // our own text is not typed
    if (!m_edit->text().isEmpty() && m_edit->text() == m_box->specialValueText())
        m_edit->setText(m_box->prefix() + noValueText() + m_box->suffix());
    if (!m_edit->hasSelectedText())
        m_edit->setCursorPosition(m_box->prefix().size()); // in front of the unit
}

void BVSpinBoxContent::showAnew()
{
    m_textValue.reset();
    if (isTyping() && m_read && m_readText == m_edit->text())
        return show(*m_read, false);
    const bool isRefused = isTyping() && !m_acceptable;
    show(valueToKeep(), isRefused ? m_settledEmpty : m_empty);
}

void BVSpinBoxContent::setEmpty(bool empty)
{
    show(valueToKeep(), empty);
}

/// The value without what an unfinished text has made of it.
double BVSpinBoxContent::valueToKeep() const
{
    return isTyping() && !m_acceptable ? m_settledValue : m_box->value();
}

void BVSpinBoxContent::onRangeChanged()
{
    m_settledValue = qBound(m_box->minimum(), m_settledValue, m_box->maximum());
    updateValidator();
    showNoValue();
}

QString BVSpinBoxContent::textOf(double value)
{
    if (m_box->QDoubleSpinBox::decimals() != s_baseDecimals) {
        adoptDecimals();
        return shownText(); // that is what the toolkit's box asks for then
    }
    if (m_empty && value == m_box->value())
        return noValueText();
    if (m_textValue != value) {
        m_text = m_box->getFormatter()->textFromValue(value, false);
        m_textValue = value;
    }
    return m_text;
}

QString BVSpinBoxContent::shownText()
{
    return textOf(m_box->value());
}

/// Undoes a setting of decimals by the toolkit's class, which has rounded value and range to them,
/// but for that they are shown.
void BVSpinBoxContent::adoptDecimals()
{
    const int decimals = m_box->QDoubleSpinBox::decimals();
    const double exact = m_known;
    m_read.reset();                      // the toolkit's box drops the text
    const QSignalBlocker blocker(m_box); // nothing changes in the end
    const bool isRounded = m_box->value() == rounded(exact, decimals);
    m_box->QDoubleSpinBox::setDecimals(s_baseDecimals);
    if (isRounded)
        m_box->QDoubleSpinBox::setValue(exact);
    m_box->setDecimals(decimals);
}

QString BVSpinBoxContent::noValueText() const
{
    BVFormatter *formatter = m_box->getFormatter();
    const bool wasEmpty = formatter->isEmpty();
    formatter->setEmpty(true, false);
    QString text = formatter->textFromValue(m_box->value(), false);
    formatter->setEmpty(wasEmpty, false);
    return text;
}

// Empty

void BVSpinBoxContent::leaveEmpty()
{
    m_empty = false;
    const QPointer<BVDoubleSpinBox> self(m_box);
    if (isNoValue(typedText()))
        assign(m_box->value());
    if (self)
        announceEmpty();
}

void BVSpinBoxContent::announceEmpty()
{
    const QPointer<BVDoubleSpinBox> self(m_box);
    showNeed();
    if (self)
        Q_EMIT m_box->emptyChanged(m_empty);
}

void BVSpinBoxContent::showNeed()
{
    const bool needs = m_empty && !m_box->acceptEmpty();
    if (needs == m_setsNeed || (needs && m_box->isNeedInputStatus()))
        return;
    m_setsNeed = needs;
    m_box->setBvStatus(BVWidgetStatus::NeedInput, needs);
}

void BVSpinBoxContent::onStatusChanged()
{
    m_setsNeed = m_setsNeed && m_box->isNeedInputStatus();
}

// Typing

void BVSpinBoxContent::onTextEdited()
{
    if (!isTyping()) {
        m_settledValue = m_box->value();
        m_settledEmpty = m_empty;
    }
    m_typing = true;
}

void BVSpinBoxContent::onTextChanged()
{
    m_trackedValue = m_box->value();
    m_acceptable = m_box->hasAcceptableInput();
    m_read.reset();
    m_readText = m_edit->text();
    if (m_typing && m_acceptable && !isNoValue(typedText()))
        m_read = valueOf(m_readText);
    if (m_empty && m_acceptable && m_box->keyboardTracking() && !isNoValue(typedText()))
        leaveEmpty();
}

bool BVSpinBoxContent::onValueChanged()
{
    const double before = std::exchange(m_known, m_box->value());
    if (std::exchange(m_assigning, false))
        return false;
    const bool differs = before != m_known;
    const bool byRange = before < m_box->minimum() || before > m_box->maximum();
    if (m_empty && differs && !byRange)
        leaveEmpty();
    return differs;
}

/// Whether a text is being typed, and nothing else has changed the value since.
bool BVSpinBoxContent::isTyping() const
{
    return m_typing && m_box->value() == m_trackedValue;
}

double BVSpinBoxContent::settledValue() const
{
    return isTyping() ? m_settledValue : m_box->value();
}

bool BVSpinBoxContent::settledEmpty() const
{
    return isTyping() ? m_settledEmpty : m_empty;
}

void BVSpinBoxContent::comeBack(bool empty)
{
    show(settledValue(), empty);
}

void BVSpinBoxContent::takeOver()
{
    const QString typed = typedText();
    const QPointer<BVDoubleSpinBox> self(m_box);
    if (!isSpecialText(m_edit->text())) {
        if (typed == shownText())
            return assign(m_box->value());
        if (isNoValue(typed))
            return comeBack(settledEmpty() || m_box->acceptEmpty());
        if (!BVSpinBoxTexts(*m_box).isMendable(typed))
            return comeBack(settledEmpty());
    }
    if (m_empty)
        leaveEmpty();
    if (self)
        m_box->QDoubleSpinBox::interpretText();
    if (self)
        m_typing = false;
}

bool BVSpinBoxContent::takeTyped()
{
    if (isSpecialText(m_edit->text()) || typedText() == shownText())
        return true;
    const bool acceptable = m_box->hasAcceptableInput();
    const QPointer<BVDoubleSpinBox> self(m_box);
    takeOver();
    return self && acceptable;
}

void BVSpinBoxContent::pinValue()
{
    m_assigned = m_box->value();
}

void BVSpinBoxContent::unpinValue()
{
    m_assigned.reset();
    showNoValue();
}

// Reading

double BVSpinBoxContent::valueOf(const QString &text)
{
    if (m_assigned)
        return *std::exchange(m_assigned, std::nullopt);
    if (isSpecialText(text))
        return m_box->minimum();
    const BVSpinBoxTexts texts(*m_box);
    const QString typed = texts.stripped(text);
    if (isNoValue(typed) || typed == shownText())
        return m_box->value();
    bool ok = false;
    const double read = texts.validValue(typed, ok);
    return ok ? read : m_box->value();
}

QValidator::State BVSpinBoxContent::validate(QString &text, int &pos)
{
    if (m_assigned || isSpecialText(text))
        return QValidator::Acceptable;
    updateValidator();
    const BVSpinBoxTexts texts(*m_box);
    int prefixLength = 0;
    QString typed = texts.stripped(text, &prefixLength);
    const int point = BVSpinBoxTexts::replacedPoint(typed, pos - prefixLength);
    if (point >= 0) {
        typed.remove(point, 1);
        text.remove(prefixLength + point, 1);
    }
    if (isNoValue(typed))
        return m_box->acceptEmpty() ? QValidator::Acceptable : QValidator::Intermediate;
    // The text that shows the value counts as it, even if rounding has taken it out of range.
    return typed == shownText() ? QValidator::Acceptable : texts.judge(typed);
}

void BVSpinBoxContent::fixup(QString &text) const
{
    const BVSpinBoxTexts texts(*m_box);
    const QString typed = texts.stripped(text);
    if (!typed.isEmpty() && !isSpecialText(text))
        text = texts.withAffixes(text, texts.mended(typed));
}

void BVSpinBoxContent::updateValidator()
{
    BVUnitValidator *validator = m_box->getFormatter()->getValidator();
    const double minimum = m_box->minimum();
    const double maximum = m_box->maximum();
    if (validator->bottom() != minimum || validator->top() != maximum)
        validator->setRange(minimum, maximum, m_box->precision());
}

/// An empty box whose value is the minimum is shown so by the toolkit's box.
bool BVSpinBoxContent::isSpecialText(const QString &text) const
{
    return !text.isEmpty() && text == m_box->specialValueText() &&
           !(m_empty && m_box->value() == m_box->minimum());
}

/// Whether the text is what an empty box shows, or less.
bool BVSpinBoxContent::isNoValue(const QString &typed) const
{
    const QString number = typed.trimmed();
    return number.isEmpty() || number == noValueText();
}

QString BVSpinBoxContent::typedText() const
{
    return BVSpinBoxTexts(*m_box).stripped(m_edit->text());
}
