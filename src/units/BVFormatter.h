// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "platform/Connection.h"
#include "units/UnitConverter.h"

#include <QObject>
#include <QString>

#include <limits>
#include <string>

class BVUnitValidator;
class QFontMetrics;
class UnitsConfiguration;

/// Turns values into the text that people see, and typed text back into values.
///
/// A value is held in the value unit. It is shown in the display unit, which follows the user's
/// choice of units unless setGlobalOff() has fixed it, with as many decimals as that unit asks for
/// unless setDecimals() has fixed those. Texts have "." as decimal point in every locale and no
/// group separators; typed texts may have the locale's point instead.
///
/// Decimals and precision are kept within [0, 300], the magnitude of the field width within 1024;
/// what lies outside is moved to the nearest limit, also in the static functions. Every change of a
/// setting that can change the text emits settingsChanged() once; setting what is already set emits
/// nothing, but for setGlobalOff(), which announces every success.
///
/// The static functions may be called from any thread (those that look up the user's choice of
/// units only from the GUI thread); objects belong to the GUI thread.
class BVWIDGETS_EXPORT BVFormatter : public QObject
{
    Q_OBJECT

public:
    /// How numbers are written. Any other value behaves as Automatic.
    enum OutputNotation : qint32 {
        Fixed = 0,       ///< "1234.500"
        Scientific = 1,  ///< "1.235E+03"
        Automatic = 2,   ///< fixed, or with an exponent for the large and the tiny
        Engineering = 3, ///< exponents in steps of three: "1.235E+3"
        General = 4,     ///< decimals count all digits: "1.23E+03"
    };
    Q_ENUM(OutputNotation)

    static constexpr int s_maxDecimals = 300;
    static constexpr int s_maxFieldWidth = 1024;

    /// The sign for "no value".
    static const QString s_emptySign;

    explicit BVFormatter(QObject *parent = nullptr);
    ~BVFormatter() override;

    // Numbers

    /// The value in the given notation. Values above 1e-9 in magnitude are moved away from zero by
    /// 1e-14, so that halves round away from zero. With @p cut, fixed notation drops trailing zero
    /// decimals.
    static QString valueAsString(double value, int fieldWidth, int decimals,
                                 OutputNotation notation, int precision, bool cut, char fill);
    /// Fixed notation, or adapted engineering notation for magnitudes above 10^precision or below
    /// 10^-decimals and for values, not negative ones, from 10000.
    static QString getAutomaticRepresentation(double value, int fieldWidth, int precision,
                                              int decimals, bool cut, char fill);
    /// Engineering notation whose number of decimals shrinks with the digits before the point.
    /// Magnitudes below 1e-9 give "0"; that, "NaN", "INF" and "-INF" are not padded.
    static QString convertToAdaptedEngineeringNotation(double value, int fieldWidth, int decimals,
                                                       char fill);
    static QString convertToEngineeringNotation(double value, int fieldWidth, int decimals,
                                                bool cut, char fill);
    /// Engineering notation, not padded. With an exponent there are @p decimals decimals, or with
    /// @p cut one to three by the size of the mantissa, as there are without an exponent.
    static std::string convertValueToEngineeringNotation(double value, int decimals, bool cut);
    /// The same with three decimals, not cut.
    static std::string convertValueToEngineeringNotation(double value);
    /// The number of trailing zero decimals, at most @p decimals, of the magnitude @p value rounded
    /// to @p decimals decimals; 0 unless @p cut.
    static int countObsoleteDecimalDigits(double value, int decimals, bool cut);
    /// Drops trailing zero decimals beyond @p minDecimals, then a trailing point; for Scientific
    /// and Engineering from the mantissa. Exponents are never touched. Returns whether anything was
    /// dropped.
    static bool truncTextToDecimals(QString &text, int minDecimals, OutputNotation notation);

    // Units

    /// See BVUnitSymbols::replaceSymbols().
    static bool replaceSymbols(QString &text, bool reverse);
    static UnitConverter::UnitCheck isUnit(const QString &text);
    static bool isConvertable(const QString &from, const QString &to);

    // One text without a formatter; GUI thread

    /// A value in @p valueUnit, shown with unit in the user's unit, in fixed notation with @p
    /// decimals decimals; a negative number means those of the shown unit.
    static QString toString(double value, const QString &valueUnit, int decimals = -1);
    /// The same in automatic notation and without trailing zero decimals, for read-outs of
    /// measurements.
    static QString toStringMeasurement(double value, const QString &valueUnit);
    /// The same as a measurement; NaN and the default empty value show the sign for "no value".
    static QString toStringRuvixLabel(double value, const QString &valueUnit);
    /// As toString(), but shown in @p unit itself.
    static QString toStringWithoutConversion(double value, const QString &unit, int decimals = -1);
    /// As toString() in engineering notation.
    static QString toEngineeringString(double value, const QString &valueUnit, int decimals = -1);
    /// toString() in UTF-8.
    static std::string toStdString(double value, const QString &valueUnit, int decimals = -1);

    // Values and texts of this formatter

    /// The text of a value in the value unit. With @p full it is written with nine decimals,
    /// whatever those of the settings; zeros at its end are dropped as far as more decimals than
    /// those of the settings are left. "No value" is shown by the unit alone, or with
    /// formatEmptyForLabels() by sign and unit.
    ///
    /// Halves round away from zero as in valueAsString(), but a value so small or shown with so
    /// many digits that this would show is not moved: a finite value up to 1e307 in magnitude reads
    /// back within half of the last digit shown. Beyond, a text rounded up may exceed the doubles
    /// and not read.
    QString textFromValue(double value, bool full = false) const;
    /// The text in engineering notation, whatever the notation of the settings.
    QString textFromValueEng(double value) const;
    /// The value in the value unit; 0 if the text has no number. A text that is not acceptable but
    /// has a number, out of range for example, still gives its value.
    double valueFromText(const QString &text) const;
    /// The same; @p ok tells whether the text was acceptable and its unit converts.
    double valueFromText(const QString &text, bool &ok) const;
    /// The number as typed, and in @p unit its unit, as unit text: the display unit if there is
    /// none. @p ok tells whether the text was acceptable.
    double pureValueFromText(const QString &text, QString &unit, bool &ok) const;

    /// From the value unit into the display unit; unchanged unless both are set and convert.
    double valueToDisplayValue(double value) const;
    /// From the display unit into the value unit; unchanged unless both are set and convert.
    double displayValueToValue(double value) const;
    /// Converts from the value unit into @p unit. False, with @p result unchanged, if they do not
    /// convert.
    bool valueToUnit(double value, const QString &unit, double &result) const;
    /// Converts from @p unit into the value unit. False, with @p result unchanged, if they do not
    /// convert.
    bool valueFromUnit(double value, const QString &unit, double &result) const;

    /// Shortens a text wider than @p width pixels and ends it with an ellipsis, so that a number
    /// that lost digits cannot be taken for whole. Returns whether the text has changed.
    bool elideText(QString &text, int width, const QFontMetrics &metrics) const;
    /// How many of the decimals of the settings are zeros at the end when the value, given in the
    /// value unit, is rounded to them in the display unit; no cutting has to be on.
    int getUselessDigits(double value) const;

    // Settings

    /// Sets the unit in which values are held; empty for none. False, with nothing changed, if the
    /// text is neither a unit nor the name of one. A unit written as its symbol is taken as its
    /// unit text ("degC" for "°C"). A display unit fixed before stays, and the decimals with it, if
    /// the new unit converts into it.
    bool setValueUnit(const QString &unitOrSymbol);
    /// Fixes the display unit. False, with nothing changed, if it is no unit or the value unit does
    /// not convert into it; without a value unit only an empty display unit is taken. Symbols are
    /// taken as unit texts.
    bool setGlobalOff(const QString &unitOrSymbol);
    /// Lets the display unit follow the user's choice; the default.
    void setGlobalOn();

    /// Fixes the number of decimals; the number that the display unit asks for lets them follow the
    /// unit again.
    void setDecimals(int decimals);
    /// Decimals beyond those that the display unit asks for; may be negative.
    void setAdditionalDecimals(int decimals);
    /// The largest power of ten that automatic notation writes without exponent, and the decimals
    /// of the validator, which an unchanged precision leaves as they are.
    void setPrecision(int precision);
    /// The least number of characters of the number; negative to fill on the right.
    void setFieldWidth(int width);
    void setFillChar(char fill);
    void setNotation(OutputNotation notation);
    void setCutUnnecessaryDigits(bool cut);
    /// A text behind the unit; whatever follows it in a typed text is ignored.
    void setSuffix(const QString &suffix);
    void includeUnit(bool on);
    /// Shows "no value" for all values, or no longer. With @p announce off, settingsChanged() is
    /// not emitted.
    void setEmpty(bool empty, bool announce = true);
    /// Shows s_emptySign for "no value".
    void formatEmptyForLabels(bool on);
    /// Shows values equal to @p emptyValue as "no value", or no longer. NaN equals no value: it
    /// cannot be switched on, and switching off with it keeps the empty value.
    void checkForEmptyValue(bool on, double emptyValue = std::numeric_limits<double>::min());
    /// Takes over all settings, those of the validator included, and emits settingsChanged(). Null
    /// is ignored.
    void copyFrom(const BVFormatter *other);

    /// Judges typed texts; owned by the formatter. Its base unit is the value unit.
    BVUnitValidator *getValidator() const { return m_validator; }

    QString valueUnit() const { return m_valueUnit; }
    QString displayUnit() const { return m_displayUnit; }
    bool isGlobalOn() const { return m_globalOn; }
    bool isUnitIncluded() const { return m_includeUnit; }
    /// Whether texts carry a unit: it is included and there is one.
    bool hasUnit() const { return m_includeUnit && isValueUnitSet(); }
    bool isValueUnitSet() const { return !m_valueUnit.isEmpty(); }
    bool isDisplayUnitSet() const { return !m_displayUnit.isEmpty(); }
    int precision() const { return m_precision; }
    bool isPrecisionSet() const { return m_precisionSet; }
    int decimals() const { return m_decimals; }
    int additionalDecimals() const { return m_additionalDecimals; }
    bool areDecimalsExplicit() const { return m_decimalsExplicit; }
    int fieldWidth() const { return m_fieldWidth; }
    char fillChar() const { return m_fillChar; }
    OutputNotation notation() const { return m_notation; }
    bool isEmpty() const { return m_empty; }
    bool isFormatEmptyForLabels() const { return m_formatEmptyForLabels; }
    bool isCheckForEmptyValue() const { return m_checkForEmptyValue; }
    double emptyValue() const { return m_emptyValue; }
    bool getCutUnnecessaryDigits() const { return m_cutUnnecessaryDigits; }
    QString suffix() const { return m_suffix; }

Q_SIGNALS:
    /// Texts made before may be out of date.
    void settingsChanged();
    /// The user's choice has changed the display unit; emitted before settingsChanged().
    void unitChanged();

private:
    template <typename T>
    void change(T &setting, const T &value);
    bool isNoValue(double value) const;
    QString textOfNoValue() const;
    QString numberText(double displayValue) const;
    QString fullNumberText(double displayValue) const;
    void appendUnit(QString &text) const;
    void appendUnitAndSuffix(QString &text) const;
    QString withoutSuffix(const QString &text) const;
    bool makeAcceptable(QString &text) const;
    QString configuredUnit() const;
    int decimalsOfDisplayUnit() const;
    void showIn(const QString &unit);
    void updateUnitTexts();
    void unitConfChanged();
    void copyUnits(const BVFormatter &other);
    void copyNumberSettings(const BVFormatter &other);

    QString m_valueUnit;
    QString m_displayUnit;
    bool m_globalOn = true;
    bool m_includeUnit = true;
    BVUnitValidator *m_validator = nullptr; // child of this
    int m_precision = 9;                    // power of ten
    int m_decimals = 3;
    int m_additionalDecimals = 0;
    bool m_decimalsExplicit = false;
    int m_fieldWidth = 0; // characters
    char m_fillChar = '0';
    bool m_precisionSet = false;
    OutputNotation m_notation = Fixed;
    bool m_empty = false;
    bool m_formatEmptyForLabels = false;
    bool m_checkForEmptyValue = false;
    double m_emptyValue = std::numeric_limits<double>::min();
    bool m_cutUnnecessaryDigits = false;
    QString m_suffix;
    Signals::Connection m_connection;                   // to the unit choice
    UnitsConfiguration *m_unitsConfiguration = nullptr; // registered for the application's lifetime
    QString m_unitSymbol;                               // the shown unit as its symbol
    QString m_unitBehindNumber;                         // the same with the space before it
};
