// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QValidator>

#include <optional>

class BVDoubleSpinBox;
class QLineEdit;

/// What a spin box shows, and what comes back when a text typed over it is no value.
///
/// A text being typed is kept apart from the value and the empty state that were there before it:
/// the toolkit's box makes each acceptable beginning of it the value.
class BVSpinBoxContent
{
public:
    /// Works on @p box, which owns this, and on its line edit.
    BVSpinBoxContent(BVDoubleSpinBox *box, QLineEdit *edit);

    /// Keeps the toolkit's box from rounding. Needs the box to be complete.
    void keepDigits();

    bool isEmpty() const { return m_empty; }
    /// Shows the value, moved into the range, or none if @p empty.
    void show(double value, bool empty);
    /// Shows none, or the value again.
    void setEmpty(bool empty);
    /// Shows the value anew after its text has changed; a text that is not acceptable makes way.
    void showAnew();
    /// Shows none where the toolkit's box has put the special value text.
    void showNoValue();
    /// Lets the value to come back follow into a new range, too.
    void onRangeChanged();

    /// Makes a text being typed the value, or brings back what was there before it.
    void takeOver();
    /// The same; false if the text was not acceptable as it stood.
    bool takeTyped();
    /// Makes the toolkit's box read the value, whatever the text, until it has done so.
    void pinValue();
    void unpinValue();

    QString textOf(double value);
    double valueOf(const QString &text);
    QValidator::State validate(QString &text, int &pos);
    void fixup(QString &text) const;
    QString shownText();
    void updateValidator();

    /// The user has typed; the value has not followed yet.
    void onTextEdited();
    void onTextChanged();
    /// Returns whether anyone else has made the value another one.
    bool onValueChanged();
    /// Sets the status NeedInput, or clears it if it was set by this.
    void showNeed();
    /// Someone may have cleared the status.
    void onStatusChanged();

private:
    void assign(double value);
    void comeBack(bool empty);
    void leaveEmpty();
    void announceEmpty();
    void adoptDecimals();
    bool isTyping() const;
    bool settledEmpty() const;
    double settledValue() const;
    double valueToKeep() const;
    void announceSmallChange(double before);
    bool isSpecialText(const QString &text) const;
    bool isNoValue(const QString &typed) const;
    QString noValueText() const;
    QString typedText() const;

    BVDoubleSpinBox *m_box;
    QLineEdit *m_edit; // child of the box
    bool m_empty = false;
    bool m_setsNeed = false;           // NeedInput
    bool m_assigning = false;          // until the toolkit's box tells the change
    std::optional<double> m_assigned;  // taken by valueOf() in place of the text
    double m_known = 0.0;              // the value of which this was told last
    std::optional<double> m_textValue; // the value that m_text shows
    QString m_text;

    bool m_typing = false; // the members below are of the text being typed
    bool m_acceptable = true;
    std::optional<double> m_read; // from m_readText, which the value may not follow yet
    QString m_readText;
    double m_trackedValue = 0.0; // to which it has led so far
    double m_settledValue = 0.0; // before it
    bool m_settledEmpty = false;
};
