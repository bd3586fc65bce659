// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVLineEdit.h"
#include "foundation/BVReferenceValueInterface.h"
#include "units/BVFormatter.h"
#include "units/UnitConverter.h"

/// A line edit for one physical value.
///
/// The value is kept in the value unit and shown by the edit's formatter in the display unit. A
/// typed text, with or without a unit behind the number, is taken over when the user presses Return
/// or Enter or leaves the field; a number without a unit is meant in the display unit. A text that
/// does not read, or whose value is out of range, stays as it is typed, and so does the value: the
/// edit then carries the status NeedInput until the text is acceptable, and tool tip and accessible
/// description say why. A text that is still the one shown leaves the value as it is, with all its
/// digits.
///
/// Any text can be typed. Return on a text that is not taken over does not reach the window, whose
/// default button it would press. A changed choice of units shows the value anew, also over a text
/// that is still being typed. A text set by the program or by a completer is taken over like a
/// typed one. Read-only edits take over nothing typed, but a dirty one announces its value like any
/// other. The validator of the line edit is the edit's own and not to be replaced.
///
/// The tool tip tells the value in full and in the other units of its quantity. The edit starts
/// with the value 0, without a unit and without limits. Changing the value unit keeps the number.
/// NaN is ignored by all setters.
class BVWIDGETS_EXPORT BVValueEdit : public BVLineEdit, public BVReferenceValueInterface
{
    Q_OBJECT
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY valueChanged USER true)
    Q_PROPERTY(int decimals READ decimals WRITE setDecimals)
    Q_PROPERTY(int precision READ precision WRITE setPrecision)
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum NOTIFY minChanged)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum NOTIFY maxChanged)
    Q_PROPERTY(UnitConverter::Unit unit READ unitTag WRITE setUnitTag NOTIFY valueUnitChanged)
    Q_PROPERTY(QString unitString READ unitString WRITE setUnitString NOTIFY valueUnitChanged)
    Q_PROPERTY(bool scientificNotation READ isScientificNotation WRITE setScientificNotation)

public:
    explicit BVValueEdit(QWidget *parent = nullptr);
    ~BVValueEdit() override;

    /// The value in the value unit.
    double value() const { return m_value; }
    /// The value in @p unit; an empty unit, or an edit without a value unit, gives it as it is. @p
    /// ok tells whether the value unit converts; if not, the answer is in the value unit.
    double value(const QString &unit, bool *ok = nullptr) const;
    double value(UnitConverter::Unit unit, bool *ok = nullptr) const;
    /// Converts the value from @p unit. False, with nothing changed, if it does not convert into a
    /// number.
    bool setValue(double value, const QString &unit);
    bool setValue(double value, UnitConverter::Unit unit);
    /// The number as it stands in the text, whatever unit stands behind it; 0 if there is none.
    double getDisplayValue() const;

    /// The decimals shown; those of the unit until they are set. See BVFormatter::setDecimals().
    int decimals() const;
    void setDecimals(int decimals);
    /// See BVFormatter::setPrecision().
    int precision() const;
    void setPrecision(int precision);

    /// The limits of the value, in the value unit. A limit that crosses the other one moves it
    /// along.
    double minimum() const;
    void setMinimum(double minimum);
    double maximum() const;
    void setMaximum(double maximum);
    void setRange(double minimum, double maximum);

    /// The value unit. Text that is no unit is ignored; an empty one stands for none.
    QString unitString() const;
    void setUnitString(const QString &unit);
    /// The same as a tag; Unit_None for a unit without one.
    UnitConverter::Unit unitTag() const;
    void setUnitTag(UnitConverter::Unit unit);
    UnitConverter::Unit getValueUnitTag() const { return unitTag(); }
    void setValueUnitTag(UnitConverter::Unit unit) { setUnitTag(unit); }
    /// The unit in which the value is shown; setting it fixes it against the user's choice of
    /// units, and Unit_None lets it follow that choice again.
    UnitConverter::Unit getDisplayUnitTag() const;
    void setDisplayUnitTag(UnitConverter::Unit unit);

    BVFormatter::OutputNotation getNotation() const;
    void setNotation(BVFormatter::OutputNotation notation);
    bool isScientificNotation() const;
    /// Scientific notation, or the automatic notation that the edit starts with.
    void setScientificNotation(bool on);

    /// While on, the whole text is selected after it has been taken over and when the mouse is
    /// released without having selected anything. Off at first.
    bool isPreselect() const { return m_preselect; }
    void setPreselect(bool on);

    /// The text of a value in the value unit, and back, as the formatter has it.
    QString textFromValue(double value, bool full) const;
    double valueFromText(const QString &text) const;
    /// Formats and parses the text; owned by the edit.
    BVFormatter *getFormatter() const { return m_formatter; }

    QString referenceValueText(const QVariant &reference) const override;
    QString toolTipText() const override;

    bool event(QEvent *event) override;

public Q_SLOTS:
    /// Shows the value, then emits valueChanged() if its text is acceptable, else valueInvalid().
    void setValue(double value);
    /// The same for a value in the display unit.
    void setDisplayValue(double value);
    /// Takes the text over if the user has edited it or the edit is dirty.
    void storeValue();
    /// Shows the value and judges its text.
    void onUpdateDisplay();
    /// Makes the next storeValue() take the text over in any case.
    void setDirty();

Q_SIGNALS:
    /// The value was set or taken over, and is acceptable. In the value unit.
    void valueChanged(double value);
    /// The value was set or taken over, but its text is not acceptable.
    void valueInvalid();
    /// A limit has changed; in the value unit.
    void minChanged(double minimum);
    void maxChanged(double maximum);
    /// The shown unit has changed; the value is shown in it already.
    void displayUnitChanged(const QString &unit);
    /// The value unit has changed; the number has stayed.
    void valueUnitChanged(const QString &valueUnit);

protected:
    /// Fixes the display unit if @p userDefined, else lets it follow the user's choice of units.
    /// False, with nothing changed, if the value unit does not convert into it.
    bool setDisplayUnit(const QString &unit, bool userDefined);

    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void onFormatterChanged();
    void onLimitsChanged();
    void onTextChanged();
    double valueOfText(bool &ok);
    void takeOver(double value);
    void showAcceptance();
    void selectAllIfNone();
    QString problem() const;
    QString rangeProblem() const;
    bool isNoValue() const;

    double m_value = 0.0; // in the value unit
    bool m_dirty = true;
    bool m_preselect = false;
    BVFormatter *m_formatter; // child of this
    int m_decimals = -1;      // set by hand, or -1
    bool m_showing = false;   // the text is being set to show the value
    QString m_announcedUnit;  // the value unit that was announced last
    QString m_shownUnit;      // the display unit that was announced last
    double m_minimum;         // the limits that were announced last
    double m_maximum;
    QString m_description;      // the accessible description without the problem
    QString m_describedProblem; // with it, while there is one
};
