// SPDX-License-Identifier: MIT
#include "LastDigit.h"
#include "TestRows.h"
#include "units/BVFormatter.h"
#include "units/BVUnitSymbols.h"
#include "units/BVUnitValidator.h"
#include "units/UnitsConfiguration.h"

#include <QFontMetrics>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <random>
#include <thread>
#include <vector>

namespace {

constexpr double s_nudge = 1e-14; // what valueAsString() moves halves away from zero by

constexpr double s_shareOfNudge = 0.002; // of the last digit, in texts made to be read

QString shown(double value, int decimals, BVFormatter::OutputNotation notation, bool cut = false)
{
    return BVFormatter::valueAsString(value, 0, decimals, notation, 9, cut, '0');
}

/// A value whose magnitude is spread evenly over the powers of ten.
double randomValue(std::mt19937_64 &random, int maxExponent)
{
    const double mantissa = std::uniform_real_distribution<double>(-10.0, 10.0)(random);
    const int exponent = std::uniform_int_distribution<int>(-maxExponent, maxExponent)(random);
    return mantissa * std::pow(10.0, exponent);
}

/// Whether the text is the word for the value, or a number that is at least of its sign.
bool tells(const QString &text, double value)
{
    if (std::isnan(value))
        return text.toLower() == QStringLiteral("nan");
    if (std::isinf(value))
        return text.toLower() == (value > 0 ? QStringLiteral("inf") : QStringLiteral("-inf"));
    bool ok = false;
    const double read = QLocale::c().toDouble(text, &ok);
    const bool roundedUp = std::isinf(read) && std::fabs(value) > 1e307;
    return (ok || roundedUp) && read * value >= 0.0;
}

QVariantList settingsOf(const BVFormatter &formatter)
{
    return {formatter.valueUnit(),
            formatter.displayUnit(),
            formatter.isGlobalOn(),
            formatter.isUnitIncluded(),
            formatter.precision(),
            formatter.isPrecisionSet(),
            formatter.decimals(),
            formatter.additionalDecimals(),
            formatter.areDecimalsExplicit(),
            formatter.fieldWidth(),
            formatter.fillChar(),
            int(formatter.notation()),
            formatter.isEmpty(),
            formatter.isFormatEmptyForLabels(),
            formatter.isCheckForEmptyValue(),
            formatter.emptyValue(),
            formatter.getCutUnnecessaryDigits(),
            formatter.suffix()};
}

} // namespace

class tst_BVFormatter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void valueAsString_data();
    void valueAsString();
    void fixedEqualsTheToolkit();
    void engineering_data();
    void engineering();
    void truncTextToDecimals_data();
    void truncTextToDecimals();
    void extremesEnd();
    void symbols_data();
    void symbols();
    void symbolsFromManyThreads();

    void textWithUnit_data();
    void textWithUnit();
    void padding();
    void notations_data();
    void notations();
    void noValue_data();
    void noValue();
    void typedText_data();
    void typedText();
    void suffixIsIgnoredInTypedText();
    void roundTrip_data();
    void roundTrip();

    void valueUnit();
    void symbolsAreUnits();
    void noHalfChangeIsSeen();
    void displayUnitFollowsTheChoice();
    void fixedDisplayUnit();
    void decimalsFollowTheUnitUntilSet();
    void settingsAreClampedAndAnnounced();
    void copiesAllSettings();
    void elides();
    void oneShots();
};

void tst_BVFormatter::cleanup()
{
    QLocale::setDefault(QLocale::c());
    UnitsConfiguration::instance().setDefaultValues();
}

void tst_BVFormatter::valueAsString_data()
{
    const Table<double, int, int, int, bool, QString> table("value", "width", "decimals", "notation", "cut", "text");
    const auto row = [&table](const char *name, double value, int notation, int decimals, bool cut, const char *text, int width = 0) {
        table(name, value, width, decimals, notation, cut, text);
    };
    row("fixed", 1234.5, BVFormatter::Fixed, 3, false, "1234.500");
    row("fixed, decimal half that is below in binary", 1.005, BVFormatter::Fixed, 2, false, "1.01");
    row("fixed, negative half", -2.5, BVFormatter::Fixed, 0, false, "-3");
    row("the nudge shows where it is asked for", 2e-9, BVFormatter::Scientific, 9, false, "2.000010000E-09");
    row("fixed, half beyond the nudge", 128.5, BVFormatter::Fixed, 0, false, "129");
    row("fixed, cut to none", 2.0, BVFormatter::Fixed, 3, true, "2");
    row("fixed, cut after rounding up", 0.9996, BVFormatter::Fixed, 3, true, "1");
    row("fixed, cut keeps inner zeros", 1.203, BVFormatter::Fixed, 5, true, "1.203");
    row("fixed, padded behind the sign", -5.25, BVFormatter::Fixed, 2, false, "-00005.25", 9);
    row("scientific", 12345.0, BVFormatter::Scientific, 3, false, "1.235E+04");
    row("scientific is never cut", 1000.0, BVFormatter::Scientific, 3, true, "1.000E+03");
    row("general counts digits", 1234.5, BVFormatter::General, 3, false, "1.23E+03");
    row("general, no digits", 1234.5, BVFormatter::General, 0, false, "1E+03");
    row("engineering", 12345.0, BVFormatter::Engineering, 3, false, "12.345E+3");
    row("engineering, cut", 12345.0, BVFormatter::Engineering, 5, true, "12.35E+3");
    row("automatic, plain", 0.5, BVFormatter::Automatic, 3, false, "0.500");
    row("automatic, cut", 0.5, BVFormatter::Automatic, 3, true, "0.5");
    row("automatic, large", 12345.0, BVFormatter::Automatic, 3, false, "12.3E+3");
    row("automatic, large negative stays plain", -12345.0, BVFormatter::Automatic, 3, false, "-12345.000");
    row("automatic, beyond the precision", -2e9, BVFormatter::Automatic, 3, false, "-2.00E+9");
    row("automatic, tiny", 0.0005, BVFormatter::Automatic, 3, false, "0.500E-3");
    row("width pads engineering in front of the sign", -12345.0, BVFormatter::Engineering, 1, false, "00-12.3E+3", 10);
}

void tst_BVFormatter::valueAsString()
{
    auto [value, width, decimals, notation, cut] = fetched<double, int, int, int, bool>("value", "width", "decimals", "notation", "cut");
    QTEST(BVFormatter::valueAsString(value, width, decimals, static_cast<BVFormatter::OutputNotation>(notation), 9, cut, '0'), "text");
}

void tst_BVFormatter::fixedEqualsTheToolkit()
{
    std::mt19937_64 random(20240607);
    for (int i = 0; i < 40000; ++i) {
        double value = randomValue(random, 18);
        if (i % 4 == 0) // a number that ends in a binary half, quarter or eighth
            value = std::ldexp(std::floor(value), -static_cast<int>(random() % 8));
        const int decimals = static_cast<int>(random() % 12);
        const double magnitude = std::fabs(value);
        const double nudged = magnitude > 1e-9 ? std::copysign(magnitude + s_nudge, value) : value;
        const QString expected = QStringLiteral("%1").arg(nudged, 0, 'f', decimals);
        QCOMPARE(shown(value, decimals, BVFormatter::Fixed), expected);
    }
}

void tst_BVFormatter::engineering_data()
{
    const Table<double, int, QString, QString, QString> row("value", "decimals", "adapted", "plain", "cut");
    row("hundreds", 123.456, 3, "123.5", "123.5", "123.5");
    row("hundreds of thousands", 123456.0, 5, "123.46E+3", "123.45600E+3", "123.5E+3");
    row("tens of thousands", 12345.0, 3, "12.3E+3", "12.345E+3", "12.35E+3");
    row("few decimals", 123456.0, 1, "123E+3", "123.5E+3", "123.5E+3");
    row("tenths of a thousandth", 0.0005, 3, "0.500E-3", "0.500E-3", "0.500E-3");
    row("tenths, one decimal", 0.0005, 1, "0.50E-3", "0.5E-3", "0.500E-3");
    row("hundredths of a thousandth", 0.00002, 1, "0.020E-3", "0.0E-3", "0.020E-3");
    row("just a hundredth", 0.01, 3, "0.01", "0.01", "0.01");
    row("hundredths without exponent", -0.05, 3, "-0.050", "-0.050", "-0.050");
    row("ones of thousandths", 0.005, 3, "5.00E-3", "5.000E-3", "5.000E-3");
    row("below what is shown", -9e-10, 3, "0", "0", "0");
    row("sign of nothing shown", -2e-5, 0, "-0.020E-3", "0E-3", "-0.020E-3");
    row("infinite", -s_inf, 3, "-INF", "-INF", "-INF");
    row("no number", s_nan, 3, "NaN", "NaN", "NaN");
}

void tst_BVFormatter::engineering()
{
    auto [value, decimals] = fetched<double, int>("value", "decimals");
    QTEST(BVFormatter::convertToAdaptedEngineeringNotation(value, 0, decimals, '0'), "adapted");
    QTEST(BVFormatter::convertToEngineeringNotation(value, 0, decimals, false, '0'), "plain");
    QTEST(QString::fromStdString(BVFormatter::convertValueToEngineeringNotation(value, decimals, true)), "cut");
}

void tst_BVFormatter::truncTextToDecimals_data()
{
    const Table<QString, int, int, QString> row("text", "minDecimals", "notation", "result");
    row("1.250000000", 3, BVFormatter::Fixed, "1.250");
    row("1.250000000", 0, BVFormatter::Fixed, "1.25");
    row("100.000", 0, BVFormatter::Fixed, "100");
    row("100", 0, BVFormatter::Fixed, "100");
    row("1.000", -1, BVFormatter::Fixed, "1.000");
    row("1.500E+10", 1, BVFormatter::Scientific, "1.5E+10");
    row("2.000E+30", 0, BVFormatter::Engineering, "2E+30");
    row("1.5E+20", 0, BVFormatter::General, "1.5E+20");
    row("1.500E+30", 0, BVFormatter::Automatic, "1.500E+30");
}

void tst_BVFormatter::truncTextToDecimals()
{
    auto [text, minDecimals, notation, result] = fetched<QString, int, int, QString>("text", "minDecimals", "notation", "result");
    const bool expected = text != result;
    QCOMPARE(BVFormatter::truncTextToDecimals(text, minDecimals, static_cast<BVFormatter::OutputNotation>(notation)), expected);
    QCOMPARE(text, result);
}

void tst_BVFormatter::extremesEnd()
{
    const double values[] = {s_inf, -s_inf, s_nan, std::numeric_limits<double>::max(), -0.0, -1e308, 5e-324, std::numeric_limits<double>::min()};
    const int limits[] = {std::numeric_limits<int>::min(), -1, 0, 17, 300, std::numeric_limits<int>::max()};
    for (double value : values) {
        for (int limit : limits) {
            for (int notation = -1; notation < 6; ++notation) {
                const auto kind = static_cast<BVFormatter::OutputNotation>(notation);
                const QString text = BVFormatter::valueAsString(value, limit, limit, kind, limit, true, ' ');
                QVERIFY(text.size() < 2000);
                QVERIFY2(tells(text.trimmed(), value), qPrintable(text));
            }
        }
    }
}

void tst_BVFormatter::symbols_data()
{
    const Table<QString, QString> row("unit", "symbol");
    row("um", QStringLiteral(u"\u00b5m"));
    row("um^2", QStringLiteral(u"\u00b5m\u00b2"));
    row("deg", QStringLiteral(u"\u00b0"));
    row("deg/s", QStringLiteral(u"\u00b0/s"));
    row("degC", QStringLiteral(u"\u00b0C"));
    row("EUR/m^2", QStringLiteral(u"\u20ac/m\u00b2"));
    row("RUB", QStringLiteral(u"\u20bd"));
    row("%", QStringLiteral("%"));
    row("mm", QStringLiteral("mm"));
}

void tst_BVFormatter::symbols()
{
    auto [unit, symbol] = fetched<QString, QString>("unit", "symbol");
    QString text = unit;
    QCOMPARE(BVFormatter::replaceSymbols(text, false), unit != symbol);
    QCOMPARE(text, symbol);
    QCOMPARE(BVFormatter::replaceSymbols(text, true), unit != symbol);
    QCOMPARE(text, unit);
}

void tst_BVFormatter::symbolsFromManyThreads()
{
    std::vector<std::thread> threads;
    std::vector<int> faults(4, 0);
    for (std::size_t t = 0; t < faults.size(); ++t) {
        threads.emplace_back([t, &faults] {
            for (int i = 0; i < 2000; ++i) { // more than are kept, so that they are dropped as well
                const QString unit = QStringLiteral("um*x%1").arg((i * 7 + static_cast<int>(t)) % 900);
                QString text = unit;
                BVFormatter::replaceSymbols(text, false);
                faults[t] += text.startsWith(QChar(0xb5)) ? 0 : 1;
                BVFormatter::replaceSymbols(text, true);
                faults[t] += text == unit ? 0 : 1;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(faults, std::vector<int>(4, 0));
}

void tst_BVFormatter::textWithUnit_data()
{
    const Table<QString, double, QString> row("unit", "value", "text");
    row("none", QString(), 1.5, "1.500");
    row("converted", "inch", 1.0, "25.40 mm");
    row("unit name", "meter", 1.5, "1.500 meter");
    row("of no dimension", "in", 1.5, "1.500 in");
    row("degC", "degC", 20.0, QStringLiteral(u"20.00\u00b0C"));
    row("kelvin", "K", 0.0, QStringLiteral(u"-273.15\u00b0C"));
    row("deg", "deg", 90.0, QStringLiteral(u"90.00\u00b0"));
    row("angular velocity", "deg/s", 5.0, QStringLiteral(u"5.00 \u00b0/s"));
    row("percent", "%", 12.5, "12.5%");
    row("currency", "EUR", 5.0, QStringLiteral(u"5.000 \u20ac"));
    row("area", "dm^2", 5.0, QStringLiteral(u"5.00 dm\u00b2"));
    row("micron", "um", 5.0, QStringLiteral(u"5.000 \u00b5m"));
    row("negative zero", "mm", -0.001, "0.00 mm");
    row("negative infinity keeps its sign", "mm", -s_inf, "-inf mm");
}

void tst_BVFormatter::textWithUnit()
{
    auto [unit, value] = fetched<QString, double>("unit", "value");
    BVFormatter formatter;
    QVERIFY(formatter.setValueUnit(unit));
    QTEST(formatter.textFromValue(value), "text");
}

void tst_BVFormatter::padding()
{
    QCOMPARE(BVFormatter::convertToEngineeringNotation(0.0, 4, 1, false, '*'), QString("***0"));
    QCOMPARE(BVFormatter::convertToEngineeringNotation(s_nan, 4, 1, false, '*'), QString("*NaN"));
    QCOMPARE(BVFormatter::convertToAdaptedEngineeringNotation(0.0, 4, 1, '*'), QString("0"));
    QCOMPARE(BVFormatter::convertToAdaptedEngineeringNotation(s_nan, 4, 1, '*'), QString("NaN"));
    QCOMPARE(BVFormatter::convertToAdaptedEngineeringNotation(250e3, 8, 1, '*'), QString("**250E+3"));
}

void tst_BVFormatter::notations_data()
{
    const Table<int, int, bool, double, QString> row("notation", "decimals", "full", "value", "text");
    row("scientific, small", BVFormatter::Scientific, 9, false, 2e-9, "2.000000000E-09");
    row("engineering, small", BVFormatter::Engineering, 9, false, -3e-8, "-0.030000000E-6");
    row("fixed, no nudge shows", BVFormatter::Fixed, 15, false, 0.25, "0.250000000000000");
    row("fixed, half that is below in binary", BVFormatter::Fixed, 2, false, -0.145, "-0.15");
    row("scientific, half", BVFormatter::Scientific, 2, false, -1.005e-3, "-1.01E-03");
    row("full, fixed", BVFormatter::Fixed, 3, true, 1.23456, "1.23456");
    row("full, at least the decimals", BVFormatter::Fixed, 3, true, 1.5, "1.500");
    row("full, scientific", BVFormatter::Scientific, 3, true, 1.5e10, "1.500E+10");
    row("full, automatic, small", BVFormatter::Automatic, 3, true, 0.00125, "0.00125");
    row("full, automatic, medium keeps its zeros", BVFormatter::Automatic, 3, true, 12500.0, "12.5000000E+3");
    row("full, automatic, large", BVFormatter::Automatic, 3, true, 1.25e30, "1.250E+30");
    row("full, negative zero", BVFormatter::Fixed, 3, true, -1e-12, "0.000");
}

void tst_BVFormatter::notations()
{
    auto [notation, decimals, full, value] = fetched<int, int, bool, double>("notation", "decimals", "full", "value");
    BVFormatter formatter;
    formatter.setDecimals(decimals);
    formatter.setNotation(static_cast<BVFormatter::OutputNotation>(notation));
    QTEST(formatter.textFromValue(value, full), "text");
}

void tst_BVFormatter::noValue_data()
{
    const Table<bool, bool, bool, QString, QString> row("empty", "checked", "labels", "unit", "text");
    row("empty", true, false, false, "mm", "mm");
    row("empty with a sign", true, false, true, "mm", "- mm");
    row("empty value", false, true, false, "mm", "mm");
    row("empty value, no space", false, true, true, "deg", QStringLiteral(u"-\u00b0"));
    row("empty, no unit", true, false, false, QString(), QString());
    row("empty value is not checked for", false, false, true, "mm", "0.00 mm !");
}

void tst_BVFormatter::noValue()
{
    auto [empty, checked, labels, unit] = fetched<bool, bool, bool, QString>("empty", "checked", "labels", "unit");
    BVFormatter formatter;
    formatter.setValueUnit(unit);
    formatter.setSuffix(QStringLiteral(" !"));
    formatter.setEmpty(empty);
    formatter.checkForEmptyValue(checked);
    formatter.formatEmptyForLabels(labels);
    QTEST(formatter.textFromValue(std::numeric_limits<double>::min()), "text");
}

void tst_BVFormatter::typedText_data()
{
    const Table<bool, QString, bool, double> table("german", "text", "ok", "inches");
    const auto row = [&table](const QString &text, bool ok, double inches, bool german = false) { table(german, text, ok, inches); };
    row("25.4mm", true, 1.0);
    row(" 2.54 cm ", true, 1.0);
    row("25.4", true, 1.0); // in the display unit
    row("1 inch", true, 1.0);
    row("1/4 in", true, 0.25);
    row("1 Inch", true, 1.0);
    row(QStringLiteral(u"25400 \u00b5m"), true, 1.0);
    row(QStringLiteral(u"25400 \u03bcm"), true, 1.0);
    row("2.54E-2 m", true, 1.0);
    row("1,500 mm", false, 0.0);
    row("1,500", false, 0.0);
    row("1 500", false, 1.0); // no groups of any kind
    row(QStringLiteral(u"1\u00a0500"), false, 1.0);
    row(QStringLiteral(u"1\u202f500"), false, 1.0);
    row("1'500", false, 1.0);
    row(QStringLiteral(u"1\u2019500"), false, 1.0);
    row("1 500 mm", false, 1.0);
    row("25.4 kg", false, 25.4);  // the number as typed
    row("-254 mm", false, -10.0); // below the range
    row("mm", false, 0.0);
    row(QString(), false, 0.0);
    row("25,4mm", true, 1.0, true);
    row("25.4mm", true, 1.0, true);
    row("1.500,25 mm", false, 0.0, true);
    row("1/2,5 in", true, 0.4, true);
}

void tst_BVFormatter::typedText()
{
    auto [german, text, inches] = fetched<bool, QString, double>("german", "text", "inches");
    if (german)
        QLocale::setDefault(QLocale(QLocale::German));
    BVFormatter formatter;
    formatter.setValueUnit(QStringLiteral("inch"));
    formatter.getValidator()->setBottom(0.0);
    bool ok = false;
    const double value = formatter.valueFromText(text, ok);
    QTEST(ok, "ok");
    QVERIFY2(std::fabs(value - inches) < 1e-12, qPrintable(QString::number(value, 'g', 17)));
}

void tst_BVFormatter::suffixIsIgnoredInTypedText()
{
    BVFormatter formatter;
    formatter.setValueUnit(QStringLiteral("mm"));
    formatter.setSuffix(QStringLiteral(" (min. 5)"));
    const QString text = formatter.textFromValue(7.5);
    QCOMPARE(text, QStringLiteral("7.50 mm (min. 5)"));
    bool ok = false;
    QCOMPARE(formatter.valueFromText(text, ok), 7.5);
    QVERIFY(ok);
}

void tst_BVFormatter::roundTrip_data()
{
    const Table<int, QString, bool> row("notation", "unit", "german");
    const char *const notations[] = {"fixed", "scientific", "automatic", "engineering", "general"};
    const QString units[] = {QString(),
                             QStringLiteral("inch"),
                             QStringLiteral("degF"),
                             QStringLiteral("um"),
                             QStringLiteral("dm^2"),
                             QStringLiteral("1/min"),
                             QStringLiteral("EUR"),
                             QStringLiteral("%")};
    for (int notation = 0; notation < 5; ++notation) {
        for (const QString &unit : units) {
            for (const bool german : {false, true})
                QTest::addRow("%s, %s, %s", notations[notation], unit.isEmpty() ? "no unit" : qPrintable(unit), german ? "german" : "english")
                    << notation << unit << german;
        }
    }
}

void tst_BVFormatter::roundTrip()
{
    auto [notation, unit, german] = fetched<int, QString, bool>("notation", "unit", "german");
    QLocale::setDefault(QLocale(german ? QLocale::German : QLocale::English));
    BVFormatter formatter;
    QVERIFY(formatter.setValueUnit(unit));
    formatter.setNotation(static_cast<BVFormatter::OutputNotation>(notation));
    std::mt19937_64 random(qHash(unit) + static_cast<uint>(notation));
    for (int i = 0; i < 400; ++i) {
        const double value = randomValue(random, i % 2 == 0 ? 300 : 12); // tiny and huge as well
        formatter.setDecimals(i % 16);
        formatter.setCutUnnecessaryDigits(i % 3 == 0);
        for (const bool full : {false, true}) {
            const QString text = formatter.textFromValue(value, full);
            QString typedUnit;
            bool ok = false;
            const double read = formatter.pureValueFromText(text, typedUnit, ok);
            QVERIFY2(ok, qPrintable(text));
            QCOMPARE(typedUnit, formatter.displayUnit());
            const double display = formatter.valueToDisplayValue(value);
            const double slack = 1e-15 * std::fabs(display); // of reading and of pow()
            const double allowed = 0.5 * lastDigit(text) * (1.0 + s_shareOfNudge) + slack;
            QVERIFY2(std::fabs(read - display) <= allowed, qPrintable(QStringLiteral("%1 shown as %2").arg(display, 0, 'g', 17).arg(text)));
            QCOMPARE(formatter.valueFromText(text, ok), formatter.displayValueToValue(read));
        }
    }
}

void tst_BVFormatter::valueUnit()
{
    BVFormatter formatter;
    QSignalSpy changed(&formatter, &BVFormatter::settingsChanged);
    QVERIFY(!formatter.setValueUnit(QStringLiteral("nonsense")));
    QVERIFY(!formatter.setValueUnit(QStringLiteral("mete"))); // only the start of a name
    QVERIFY(formatter.setValueUnit(QString()));               // as before
    QCOMPARE(changed.count(), 0);
    QVERIFY(formatter.setValueUnit(QStringLiteral("inch")));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(formatter.displayUnit(), QStringLiteral("mm"));
    QCOMPARE(formatter.decimals(), 2);
    QCOMPARE(formatter.getValidator()->baseUnit(), QStringLiteral("inch"));

    double result = 7.0;
    QVERIFY(!formatter.valueToUnit(1.0, QStringLiteral("kg"), result));
    QCOMPARE(result, 7.0);
    QVERIFY(formatter.valueToUnit(1.0, QStringLiteral("cm"), result));
    QCOMPARE(result, 2.54);
    QVERIFY(formatter.valueFromUnit(2.54, QStringLiteral("cm"), result));
    QCOMPARE(result, 1.0);
    QVERIFY(formatter.setValueUnit(QString()));
    QCOMPARE(formatter.textFromValue(1.0), QStringLiteral("1.000"));
}

void tst_BVFormatter::symbolsAreUnits()
{
    const QString celsius = QStringLiteral(u"\u00b0C");
    BVFormatter formatter;
    QVERIFY(formatter.setValueUnit(celsius));
    QCOMPARE(formatter.valueUnit(), QStringLiteral("degC"));
    QCOMPARE(formatter.textFromValue(20.0), QStringLiteral("20.00") + celsius);
    QVERIFY(formatter.setValueUnit(QStringLiteral("K")));
    QVERIFY(formatter.setGlobalOff(celsius));
    QCOMPARE(formatter.displayUnit(), QStringLiteral("degC"));
    QVERIFY(formatter.setValueUnit(QStringLiteral(u"dm\u00b2")));
    QCOMPARE(formatter.valueUnit(), QStringLiteral("dm^2"));
}

// Whoever hears of a change must find all of it made.
void tst_BVFormatter::noHalfChangeIsSeen()
{
    BVFormatter formatter;
    formatter.setValueUnit(QStringLiteral("mm"));
    QStringList seen;
    connect(formatter.getValidator(), &QValidator::changed, this, [&] { seen << formatter.textFromValue(1.0); });
    formatter.setValueUnit(QStringLiteral("deg"));
    QCOMPARE(seen, QStringList{QStringLiteral(u"1.00\u00b0")});

    BVFormatter source;
    source.setValueUnit(QStringLiteral("kg"));
    source.setSuffix(QStringLiteral("!"));
    source.setPrecision(3);
    seen.clear();
    formatter.copyFrom(&source);
    QCOMPARE(seen, QStringList{source.textFromValue(1.0)});

    seen.clear();
    connect(formatter.getValidator(), &QValidator::changed, this, [&] { QCOMPARE(formatter.precision(), 5); });
    formatter.setPrecision(5);
    QCOMPARE(seen.size(), 1);
}

void tst_BVFormatter::displayUnitFollowsTheChoice()
{
    UnitsConfiguration &choice = UnitsConfiguration::instance();
    BVFormatter formatter;
    formatter.setValueUnit(QStringLiteral("mm"));
    QStringList order;
    connect(&formatter, &BVFormatter::unitChanged, this, [&] { order << QStringLiteral("unit"); });
    connect(&formatter, &BVFormatter::settingsChanged, this, [&] { order << QStringLiteral("settings"); });

    choice.setCurrentUnit(UnitsConfiguration::Mass, QStringLiteral("t"));
    QCOMPARE(order, QStringList());
    choice.setCurrentUnit(UnitsConfiguration::Length, QStringLiteral("m"));
    QCOMPARE(order, (QStringList{QStringLiteral("unit"), QStringLiteral("settings")}));
    QCOMPARE(formatter.textFromValue(1500.0), QStringLiteral("1.50000 m"));

    formatter.setGlobalOff(QStringLiteral("inch"));
    order.clear();
    choice.setCurrentUnit(UnitsConfiguration::Length, QStringLiteral("mm"));
    QCOMPARE(order, QStringList());
    formatter.setGlobalOn();
    QCOMPARE(order, QStringList{QStringLiteral("settings")});
    QCOMPARE(formatter.textFromValue(1500.0), QStringLiteral("1500.00 mm"));
    order.clear();
    formatter.setGlobalOn();
    formatter.setGlobalOff(QStringLiteral("mm"));
    order.clear();
    formatter.setGlobalOn(); // shows what was shown before
    QVERIFY(formatter.isGlobalOn());
    QCOMPARE(order, QStringList());
}

void tst_BVFormatter::fixedDisplayUnit()
{
    BVFormatter formatter;
    formatter.setValueUnit(QStringLiteral("mm"));
    QVERIFY(!formatter.setGlobalOff(QStringLiteral("nonsense")));
    QVERIFY(!formatter.setGlobalOff(QStringLiteral("kg")));
    QVERIFY(formatter.isGlobalOn());
    QVERIFY(formatter.setGlobalOff(QStringLiteral("m")));
    QCOMPARE(formatter.textFromValue(1500.0), QStringLiteral("1.50000 m"));

    formatter.setAdditionalDecimals(2);
    formatter.setDecimals(5);                                // what "m" asks for
    QVERIFY(formatter.setValueUnit(QStringLiteral("inch"))); // keeps the display unit
    QCOMPARE(formatter.displayUnit(), QStringLiteral("m"));
    QCOMPARE(formatter.decimals(), 5); // and with it the decimals
    formatter.setAdditionalDecimals(0);
    QVERIFY(formatter.setValueUnit(QStringLiteral("kg"))); // cannot keep it
    QCOMPARE(formatter.textFromValue(1.5), QStringLiteral("1.500 kg"));

    BVFormatter without;
    QVERIFY(!without.setGlobalOff(QStringLiteral("mm")));
    QVERIFY(without.setGlobalOff(QString()));
    QVERIFY(without.setValueUnit(QStringLiteral("psi")));
    QCOMPARE(without.textFromValue(1.5), QStringLiteral("1.50 psi"));
}

void tst_BVFormatter::decimalsFollowTheUnitUntilSet()
{
    BVFormatter formatter;
    formatter.setValueUnit(QStringLiteral("N"));
    QCOMPARE(formatter.decimals(), 1); // kN
    formatter.setAdditionalDecimals(2);
    QCOMPARE(formatter.decimals(), 3);
    formatter.setDecimals(5);
    formatter.setAdditionalDecimals(0);
    formatter.setGlobalOff(QStringLiteral("N"));
    QCOMPARE(formatter.decimals(), 5);
    formatter.setDecimals(0); // what "N" asks for
    formatter.setGlobalOn();
    QCOMPARE(formatter.decimals(), 1);
}

void tst_BVFormatter::settingsAreClampedAndAnnounced()
{
    BVFormatter formatter;
    QSignalSpy changed(&formatter, &BVFormatter::settingsChanged);
    formatter.setDecimals(-4);
    QCOMPARE(formatter.decimals(), 0);
    formatter.setDecimals(100000);
    QCOMPARE(formatter.decimals(), BVFormatter::s_maxDecimals);
    formatter.setFieldWidth(std::numeric_limits<int>::min());
    QCOMPARE(formatter.fieldWidth(), -BVFormatter::s_maxFieldWidth);
    formatter.setPrecision(4);
    QCOMPARE(formatter.getValidator()->decimals(), 4);
    QCOMPARE(changed.count(), 4);
    formatter.getValidator()->setDecimals(7);
    formatter.setPrecision(4);
    QCOMPARE(formatter.getValidator()->decimals(), 7);
    formatter.setFillChar('0');
    formatter.includeUnit(true);
    formatter.setEmpty(true, false);
    formatter.checkForEmptyValue(true, s_nan);
    QCOMPARE(changed.count(), 4);
    QVERIFY(!formatter.isCheckForEmptyValue());
    formatter.checkForEmptyValue(true, 5.0);
    formatter.checkForEmptyValue(false, s_nan);
    QCOMPARE(changed.count(), 6);
    QVERIFY(!formatter.isCheckForEmptyValue());
    QCOMPARE(formatter.emptyValue(), 5.0);
}

void tst_BVFormatter::copiesAllSettings()
{
    BVFormatter source;
    source.setValueUnit(QStringLiteral("mm"));
    source.setGlobalOff(QStringLiteral("m"));
    source.includeUnit(false);
    source.setAdditionalDecimals(2);
    source.setDecimals(4);
    source.setPrecision(6);
    source.setFieldWidth(12);
    source.setFillChar('*');
    source.setNotation(BVFormatter::Scientific);
    source.formatEmptyForLabels(true);
    source.checkForEmptyValue(true, 7.0);
    source.setCutUnnecessaryDigits(true);
    source.setSuffix(QStringLiteral("!"));
    source.setEmpty(true);
    source.getValidator()->setRange(0.0, 10.0, 4);
    BVFormatter copy;
    QSignalSpy changed(&copy, &BVFormatter::settingsChanged);
    copy.copyFrom(nullptr);
    QCOMPARE(changed.count(), 0);
    copy.copyFrom(&source);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(settingsOf(copy), settingsOf(source));
    const QVariantList defaults = settingsOf(BVFormatter());
    for (int i = 0; i < defaults.size(); ++i)
        QVERIFY2(settingsOf(copy).at(i) != defaults.at(i), qPrintable(QString::number(i)));
    QCOMPARE(copy.textFromValue(1500.0), QStringLiteral("-"));
    copy.setEmpty(false);
    copy.includeUnit(true);
    QCOMPARE(copy.textFromValue(1500.0), QStringLiteral("**1.5000E+00 m!"));
    bool ok = true;
    copy.valueFromText(QStringLiteral("11 mm"), ok);
    QVERIFY(!ok);
}

void tst_BVFormatter::elides()
{
    const QFontMetrics metrics(QGuiApplication::font());
    const BVFormatter formatter;
    QString text = QStringLiteral("123456.789 mm");
    QVERIFY(!formatter.elideText(text, 10000, metrics));
    QVERIFY(formatter.elideText(text, metrics.horizontalAdvance(QStringLiteral("123456")), metrics));
    QVERIFY(text.endsWith(QChar(0x2026)));
}

void tst_BVFormatter::oneShots()
{
    const QString inch = QStringLiteral("inch");
    QCOMPARE(BVFormatter::toString(1.0, inch), QString("25.40 mm"));
    QCOMPARE(BVFormatter::toString(1.0, inch, 0), QString("25 mm"));
    QCOMPARE(QString::fromStdString(BVFormatter::toStdString(1.0, QStringLiteral("um"))), QStringLiteral(u"1.000 \u00b5m"));
    QCOMPARE(BVFormatter::toStringWithoutConversion(1.0, inch), QString("1.000 inch"));
    QCOMPARE(BVFormatter::toStringMeasurement(1.0, inch), QString("25.4 mm"));
    QCOMPARE(BVFormatter::toStringMeasurement(1e4, inch), QString("254E+3 mm"));
    QCOMPARE(BVFormatter::toEngineeringString(1e4, inch), QString("254.00E+3 mm"));
    QCOMPARE(BVFormatter::toStringRuvixLabel(2.0, inch), QString("50.8 mm"));
    QCOMPARE(BVFormatter::toStringRuvixLabel(s_nan, inch), QString("- mm"));
    QCOMPARE(BVFormatter::toString(-0.0001, QString()), QString("0.000"));
    QCOMPARE(BVFormatter::toString(1.0, QStringLiteral("foo")), QString("1.000 foo"));
}

QTEST_MAIN(tst_BVFormatter)
#include "tst_bvformatter.moc"
