// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVStatusControl.h"
#include "foundation/BVReferenceValueInterface.h"
#include "foundation/BVStatusProperties.h"
#include "units/BVFormatter.h"
#include "units/UnitConverter.h"

#include <QDoubleSpinBox>

#include <memory>

class BVSpinBoxContent;
class BVSpinBoxDrag;
class BVSpinBoxSize;
class BVSpinBoxSteps;

/// A spin box for one physical value.
///
/// Value and range are kept in the value unit, with all their digits; the box shows them through
/// its formatter in the display unit, with as many decimals as are set. The formatter writes "." as
/// decimal point in every locale and no group separators. The tolerance() follows the decimals
/// shown; a value outside a limit by less counts as on it. NaN is ignored by all setters; a
/// limit that crosses the other one moves it along, and a value set out of range becomes the
/// nearest limit.
///
/// **Stepping.** Arrows, page keys, the wheel, the buttons and dragging move the value by steps:
/// linear ones of singleStep() or of the range's share, in the display unit, or logarithmic ones.
/// Where a logarithm is not defined, the step is linear. Shift makes a step a tenth, Control makes
/// it ten. The value follows after the current input event, first with valueChanged(), then with
/// valueStepped(); steps made before that add up, and are dropped when the value is set meanwhile,
/// or the box becomes read-only, locked or disabled. They arrive at once before a text is taken
/// over, and make way for one that is typed. A step that misses a limit by mere rounding
/// lands on it. The wheel turns the value only while the box has the focus. Nothing steps while the
/// box is read-only, locked by the standard (StandardLocked) or sliding. A text being typed is
/// taken over first; one that does not read makes way for the last value instead of a step.
///
/// **Dragging** up and down from a step button, or sideways from the prefix, slides the value one
/// step for four pixels; Escape brings back the value at which it was pressed. Another button, the
/// context menu and the loss of the focus end it.
///
/// **Wrapping** is periodic: beyond a limit the value goes on from the other end by whole widths of
/// the range. A value on a limit stays there, and a range without a finite width does not wrap.
///
/// **Typing.** Any text can be typed, with or without a unit; a number alone is meant in the
/// display unit. What is left unacceptable is mended as correctionMode() says, or else makes way
/// for the value that was there before it was typed; a change of the shown unit brings that back,
/// too. The text that shows the value, or a limit, even without the unit that is shown behind the
/// limit, reads as that with all its digits. Tab and Return take a text over before anyone else
/// sees the key, and so does the focus before it leaves: a delegate or data mapper never reads the
/// value of half a text. The validator of the line edit is the box's own and not to be replaced.
///
/// **Empty.** An empty box shows no number but what the formatter shows for no value, mostly the
/// unit alone, while value() keeps its own; unless empty is accepted, it carries the status
/// NeedInput, which it clears only if it has set it. Setting a value, stepping or typing one ends
/// it. A number that the user has deleted empties the box when the field is left, or Return
/// pressed, if empty is accepted; else the last value comes back.
///
/// **Locked.** The lock of a box locked by the standard stands in its edit field, into which
/// nothing can be typed, pasted, cut or deleted then; isReadOnly() stays and rules afterwards.
/// A text being typed is taken over once when the box becomes locked, read-only or disabled.
///
/// **As a QDoubleSpinBox.** The functions of the toolkit's class work on the box, with these
/// exceptions: its setPrefix() drops the text of the factor; its setValue() with the present value
/// neither ends the empty state nor drops pending steps; its interpretText() makes a text that does
/// not read 0, or the limit nearest to it, if the correction is to the nearest value. Its adaptive
/// steps are not supported: singleStep() always counts.
class BVWIDGETS_EXPORT BVDoubleSpinBox :
    public BVStatusControl<QDoubleSpinBox>,
    public BVReferenceValueInterface
{
    Q_OBJECT
    BV_STATUS_PROPERTIES
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(double value READ value WRITE setValue USER true)
    Q_PROPERTY(QString prefix READ prefix WRITE setPrefix)
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly)
    Q_PROPERTY(int decimals READ decimals WRITE setDecimals)
    Q_PROPERTY(int precision READ precision WRITE setPrecision)
    Q_PROPERTY(UnitConverter::Unit unit READ unitTag WRITE setUnitTag NOTIFY valueUnitChanged)
    Q_PROPERTY(QString unitString READ unitString WRITE setUnitString NOTIFY valueUnitChanged)
    Q_PROPERTY(bool scientificNotation READ isScientificNotation WRITE setScientificNotation)
    Q_PROPERTY(double factor READ factor WRITE setFactor)
    Q_PROPERTY(BVDoubleSpinBox::InputFieldSize inputFieldWidth READ inputFieldWidth WRITE
                   setInputFieldWidth)
    Q_PROPERTY(bool fitText READ isFitText WRITE setFitText)
    Q_PROPERTY(BVDoubleSpinBox::ComboType comboType READ comboType WRITE setComboType)
    Q_PROPERTY(int slideSteps READ slideSteps WRITE setSlideSteps)
    Q_PROPERTY(int logSlideSteps READ logSlideSteps WRITE setLogSlideSteps)
    Q_PROPERTY(bool logarithmic READ isLogarithmic WRITE setLogarithmic)
    Q_PROPERTY(bool snapToSteps READ isSnapToSteps WRITE setSnapToSteps)
    Q_PROPERTY(bool acceptEmpty READ acceptEmpty WRITE setAcceptEmpty)
    Q_PROPERTY(bool empty READ isEmpty WRITE setEmpty NOTIFY emptyChanged)

public:
    /// How wide the box wants to be.
    enum InputFieldSize : qint32 {
        FieldDefault, ///< as wide as the widest of its limits and its value
        FieldSmall,   ///< 6 characters
        FieldMedium,  ///< 10 characters
        FieldLarge,   ///< 16 characters
    };
    Q_ENUM(InputFieldSize)

    /// How the box joins a combo box beside it; a style hook.
    enum ComboType : qint32 {
        NoCombo,      ///< it stands alone
        ComboBehind,  ///< the combo box follows it
        ComboInFront, ///< it follows the combo box
    };
    Q_ENUM(ComboType)

    /// A box with the value 0, the range [0, 99.99] and no unit.
    explicit BVDoubleSpinBox(QWidget *parent = nullptr);
    ~BVDoubleSpinBox() override;

    /// The limits, in the value unit. See the class for what is not a range.
    void setMinimum(double minimum);
    void setMaximum(double maximum);
    void setRange(double minimum, double maximum);
    /// The same in the display unit. An infinite limit stays infinite.
    double minimumInDisplayUnit() const { return m_formatter->valueToDisplayValue(minimum()); }
    double maximumInDisplayUnit() const { return m_formatter->valueToDisplayValue(maximum()); }
    void setMinimumInDisplayUnit(double minimum)
    {
        setMinimum(m_formatter->displayValueToValue(minimum));
    }
    void setMaximumInDisplayUnit(double maximum)
    {
        setMaximum(m_formatter->displayValueToValue(maximum));
    }
    void setRangeInDisplayUnit(double minimum, double maximum);

    /// The decimals shown; those of the unit until they are set. See BVFormatter::setDecimals().
    int decimals() const { return m_formatter->decimals(); }
    void setDecimals(int decimals);
    /// See BVFormatter::setPrecision(). Also the decimals to which typed texts are read.
    int precision() const { return m_formatter->precision(); }
    void setPrecision(int precision) { m_formatter->setPrecision(precision); }

    /// The value unit. Text that is no unit is ignored; an empty one stands for none. The number
    /// stays.
    QString unitString() const { return m_formatter->valueUnit(); }
    void setUnitString(const QString &unit);
    /// The same as a tag; Unit_None for a unit without one.
    UnitConverter::Unit unitTag() const { return UnitConverter::TagFromUnit(unitString()); }
    void setUnitTag(UnitConverter::Unit unit);
    UnitConverter::Unit getValueUnitTag() const { return unitTag(); }
    void setValueUnitTag(UnitConverter::Unit unit) { setUnitTag(unit); }
    /// The unit in which the value is shown; Unit_None for a unit without a tag.
    UnitConverter::Unit unitDisplayTag() const
    {
        return UnitConverter::TagFromUnit(m_formatter->displayUnit());
    }
    /// Fixes the display unit against the user's choice; Unit_None lets it follow that again.
    /// False, with nothing changed, if the value unit does not convert into it.
    bool setUnitDisplayTag(UnitConverter::Unit unit);
    /// Lets the display unit follow the user's choice of units, or fixes it as it is.
    void setUseGlobalDisplayUnit(bool on);
    /// Whether the display unit is fixed.
    bool isUserDisplayUnit() const { return !m_formatter->isGlobalOn(); }
    /// Whether value and display unit differ.
    bool isDifferentUnit() const { return m_formatter->displayUnit() != m_formatter->valueUnit(); }

    BVFormatter::OutputNotation getNotation() const { return m_formatter->notation(); }
    void setNotation(BVFormatter::OutputNotation notation) { m_formatter->setNotation(notation); }
    bool isScientificNotation() const { return getNotation() == BVFormatter::Scientific; }
    /// Scientific notation, or the fixed notation that the box starts with.
    void setScientificNotation(bool on);

    /// Sets what stands in front of the number; the factor's text follows it.
    void setPrefix(const QString &prefix);
    /// A factor that is shown at the end of the prefix, "2.5 × "; 1 shows nothing. The value stays
    /// as it is. What is not finite is ignored.
    double factor() const { return m_factor; }
    void setFactor(double factor);

    InputFieldSize inputFieldWidth() const { return m_inputFieldSize; }
    void setInputFieldWidth(InputFieldSize size);
    /// Whether the box is as wide as its present text, whatever its field size.
    bool isFitText() const { return m_fitText; }
    void setFitText(bool on);
    ComboType comboType() const { return m_comboType; }
    void setComboType(ComboType type);

    void setReadOnly(bool readOnly) { QDoubleSpinBox::setReadOnly(readOnly); }
    /// Sets the box read-only and clears its flag RuvixEnabled, or makes it editable again and sets
    /// the flag if it was cleared by this.
    void setReadOnlyAndDisableRuvix(bool on);

    /// Whether the value is being dragged; keys, buttons and wheel do not step meanwhile.
    bool isSliding() const { return m_sliding; }
    void setIsSliding(bool sliding) { m_sliding = sliding; }
    bool isSlidingPossible() const;
    /// Moves the value by @p steps, Control making it ten times as many if @p accelerate; see the
    /// class for when it arrives. False, with nothing changed, if there is no such value.
    bool slideValue(int steps, bool accelerate);
    /// Steps unless the box is read-only, locked or sliding.
    void stepBy(int steps) override;
    /// The same, with Control making ten steps of one.
    void stepByWheel(int steps);

    /// The number of steps that the range has, -1 for steps of singleStep(); what is below 1 counts
    /// as -1.
    int slideSteps() const { return m_slideSteps; }
    void setSlideSteps(int steps) { m_slideSteps = steps > 0 ? steps : -1; }
    /// The same for logarithmic steps; with -1 a step is singleStep() powers of ten.
    int logSlideSteps() const { return m_logSlideSteps; }
    void setLogSlideSteps(int steps) { m_logSlideSteps = steps > 0 ? steps : -1; }
    /// Whether steps are logarithmic. Off at first.
    bool isLogarithmic() const { return m_logarithmic; }
    void setLogarithmic(bool on) { m_logarithmic = on; }
    /// Whether a linear step from between the multiples of the step goes to the nearest one, if it
    /// lies ahead. Off at first.
    bool isSnapToSteps() const { return m_snapToSteps; }
    void setSnapToSteps(bool on) { m_snapToSteps = on; }

    /// One tenth of the last decimal in fixed notation, else 1e-6; in the value unit.
    double tolerance() const { return m_tolerance; }
    /// A value outside the range by less than the tolerance as the limit; any other as it is.
    double toValidValue(double value) const;
    /// Whether the value, in the value unit, lies inside the limits that are to be checked, or
    /// outside by no more than @p tolerance.
    bool isValueInRange(double value, double tolerance, bool checkMinimum, bool checkMaximum) const;
    /// The multiple of @p step nearest to @p value; of two as near the lower one if @p direction is
    /// positive, else the higher one. The value as it is if @p tolerance is not below the step.
    static double round(double value, double step, int direction, double tolerance);
    /// The value, in the display unit, that @p count linear or logarithmic steps lead to.
    double linearSlide(double count) const;
    double logSlide(double count) const;

    bool isEmpty() const;
    void setEmpty(bool empty);
    /// Whether the user may empty the box. Off at first.
    bool acceptEmpty() const;
    void setAcceptEmpty(bool accept);

    /// Takes over a text being typed, as when it is left.
    void interpretText();
    /// Emits editingFinished().
    void emitEditingFinished();
    void clearSelection();
    /// The rectangle of the edit field, between frame and buttons.
    QRect getPaintingRect() const;
    /// Formats and parses the text; owned by the box. The range of its validator is the box's.
    BVFormatter *getFormatter() const { return m_formatter; }

    QString textFromValue(double value) const override;
    double valueFromText(const QString &text) const override;
    /// Judges a text, which may have prefix and suffix. A decimal point typed before another one
    /// takes its place, but not that of a denominator ("1./2.5").
    QValidator::State validate(QString &text, int &pos) const override;
    /// Writes a text that reads in full, moved into the range as correctionMode() or wrapping say.
    void fixup(QString &text) const override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QString referenceValueText(const QVariant &reference) const override;
    QString toolTipText() const override;

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    void setValue(double value);

Q_SIGNALS:
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);
    /// A key, the wheel, a button or dragging has moved the value; follows valueChanged().
    void valueStepped(double value);
    void emptyChanged(bool empty);
    /// The shown unit has changed; the value is shown in it already.
    void displayUnitChanged(const QString &unit);
    /// The value unit has changed; the number has stayed.
    void valueUnitChanged(const QString &valueUnit);

protected:
    StepEnabled stepEnabled() const override;
    QMenu *createContextMenu() override;
    void customEvent(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    friend class BVSpinBoxDrag; // for the style option of the buttons

    bool isReadOnlyOrLocked() const;
    bool isSteppingPossible() const;
    void stepUnlessRunning(int steps, bool accelerate, bool &running);
    void onFormatterChanged();
    void onValueChanged();
    void onTextChanged();
    void onAccessChanged();
    void takeLastTyped();
    void updateLock();
    void updateTolerance();
    void forgetSizeHint();

    BVFormatter *m_formatter; // child of this
    int m_decimals = -1;      // set by hand, or -1
    double m_tolerance = 0.0; // in the value unit
    double m_factor = 1.0;
    QString m_factorText; // at the end of the prefix
    int m_slideSteps = -1;
    int m_logSlideSteps = -1;
    bool m_logarithmic = false;
    bool m_snapToSteps = false;
    InputFieldSize m_inputFieldSize = FieldDefault;
    bool m_fitText = false;
    ComboType m_comboType = NoCombo;
    bool m_sliding = false;
    bool m_editable = true;       // what is typed counts
    bool m_ruvixDisabled = false; // by setReadOnlyAndDisableRuvix()
    std::unique_ptr<BVSpinBoxContent> m_content;
    std::unique_ptr<BVSpinBoxDrag> m_drag;
    std::unique_ptr<BVSpinBoxSize> m_size;
    std::unique_ptr<BVSpinBoxSteps> m_steps;
    QString m_announcedUnit; // the value unit that was announced last
    QString m_announcedDisplayUnit;
};
