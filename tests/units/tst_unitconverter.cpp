// SPDX-License-Identifier: MIT
#include "units/UnitConverter.h"

#include <QRegularExpression>
#include <QTest>

#include <atomic>
#include <random>
#include <thread>
#include <vector>

namespace {

/// The unit text as the rewriting rules give it, by regular expressions.
QString rewritten(QString text)
{
    static const QRegularExpression s_product(QStringLiteral("(\\^\\d+)(?!\\*)([a-zA-Z]+)"));
    static const QRegularExpression s_brackets(QStringLiteral("[()]"));
    return text.replace(s_product, QStringLiteral("\\1*\\2")).remove(s_brackets);
}

struct Size
{
    const char *unit;
    double size;
    const char *measure; // that the size counts
};

// Every unit that is no currency and no base unit.
const Size s_sizes[] = {
    {"%", 0.01, "perc"},
    {"GB", 1073741824, "B"},
    {"Hz", 60, "1/min"},
    {"J", 1, "W*s"},
    {"KB", 1024, "B"},
    {"MB", 1048576, "B"},
    {"N", 1, "kg*m/s^2"},
    {"Nm", 1, "J"},
    {"P", 0.1, "Pa*s"},
    {"Pa", 1, "N/m^2"},
    {"Pdl", 0.13825495376, "N"},
    {"Pica", 1.0 / 72, "in"},
    {"St", 100, "mm^2/s"},
    {"TB", 1024, "GB"},
    {"U", 1.6605402e-27, "kg"},
    {"W", 1, "N*m/s"},
    {"a", 31556925.9747, "s"},
    {"arcmin", 1.0 / 60, "deg"},
    {"arcs", 4.848136111e-6, "rad"},
    {"atm", 101325, "Pa"},
    {"bar", 0.1, "MPa"},
    {"bbl", 158.987294928, "l"},
    {"cal", 4.1868, "J"},
    {"d", 24, "h"},
    {"deg", 3.14159265358979 / 180, "rad"},
    {"degC^1", 1, "K"},
    {"degF^1", 1 / 1.8, "K"},
    {"fermi", 1, "fm"},
    {"ft", 12, "in"},
    {"ftUS", 1200.0 / 3937, "m"},
    {"ga", 9.80665, "m/s^2"},
    {"gal", 3.785411784, "l"},
    {"galC", 4.54609, "l"},
    {"galUK", 4.546092, "l"},
    {"gf", 0.00980665, "N"},
    {"grad", 0.9, "deg"},
    {"h", 60, "min"},
    {"in", 25.4, "mm"},
    {"inch", 25.4, "mm"},
    {"kip", 1000, "lbf"},
    {"kp", 9.80665, "N"},
    {"kph", 1, "km/h"},
    {"l", 1, "dm^3"},
    {"lb", 0.45359267, "kg"},
    {"lbf", 4.44822161526, "N"},
    {"lbt", 0.3732417216, "kg"},
    {"mi", 5280, "ft"},
    {"miUS", 5280, "ftUS"},
    {"mil", 0.001, "in"},
    {"min", 60, "s"},
    {"mmHg", 1.0 / 760, "atm"},
    {"mph", 1, "mi/h"},
    {"mps", 1, "m/s"},
    {"oz", 28.349523125, "g"},
    {"p", 0.00980665, "N"},
    {"psi", 1, "lbf/in^2"},
    {"rd", 16.5, "ftUS"},
    {"t", 1000, "kg"},
    {"tf", 1000, "kp"},
    {"ton", 907.18474, "kg"},
    {"tonUK", 2240.0 / 2000, "ton"},
    {"tonf", 2000, "lbf"},
    {"yr", 1, "a"},
    {"\u00B0", 1, "deg"},
    {"\u00B0C^1", 1, "K"},
    {"\u00B0F^1", 1 / 1.8, "K"},
    {"\u00C5", 0.1, "nm"},
    {"\u03BC", 1, "um"},
};

const char s_prefixes[] = "Y1e24 Z1e21 E1e18 P1e15 T1e12 G1e9 M1e6 K1e3 k1e3 H1e2 h1e2 D1e1 "
                          "d1e-1 c1e-2 m1e-3 u1e-6 \u03BC1e-6 n1e-9 p1e-12 f1e-15 a1e-18 z1e-21 "
                          "y1e-24";

const char s_names[] = "Percentage100 ArgentinePeso AustralianDollar Byte BrazilianReal BelarussianRuble "
                       "CanadianDollar SwissFranc ChineseYuanRenminbi CzechKoruna Euro GigaByte BritishPound "
                       "HongKongSARDollar HungarianForint Hertz IndianRupee Joule JapaneseYen Kelvin KiloByte "
                       "SouthKoreanWon MegaByte MexicanPeso MalaysianRinggit Newton NorwegianKroner NewtonMeter "
                       "Poise PolishZloty Pascal Poundal Pica RussianRuble SwedishKrona Stokes TeraByte ThaiBaht "
                       "TurkishLira TaiwanDollar UnifiedAtomicMass UkraineHryvnia USDollar Watt Yen "
                       "SouthAfricanRand Year ArcMinute ArcSecond Attmosphere Bar Barrel Calorie day DegreeAngle "
                       "DegreeCelsius DegreesFahrenheit Fermi Foot SurveyFoot Gram StandardFreefall USGallon "
                       "CanadianGallon UKGallon GramForce Grade Hour Inch InchLong KilopoundForce Kilopond "
                       "KilometersPerHour Liter AvoirdupoisPound PoundForce TroyPound Meter InternationalMile "
                       "USStatuteMile Mil Minute MillimeterOfMercury MilesPerHour MeterPerSecond Ounce Pond "
                       "Percentage PoundsPerSquareInch Radian Rod Second MetricTon TonneForce ShortTon UKLongTon "
                       "USTonForce Year2 Degree DegreeCelsiusChar DegreesFahrenheitChar Angstrom Micron";

QString surrogate(ushort unit, const QString &rest = QString())
{
    return QChar(unit) + rest;
}

} // namespace

class tst_UnitConverter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void threadsAgree(); // first, while the tables are still to be built
    void converts_data();
    void converts();
    void sizes_data();
    void sizes();
    void prefixes();
    void refuses_data();
    void refuses();
    void readsText_data();
    void readsText();
    void spansLongText_data();
    void spansLongText();
    void isConvertable_data();
    void isConvertable();
    void table();
    void namesLeadToSymbols();
    void conversionUnits_data();
    void conversionUnits();
    void tags_data();
    void tags();
    void tagsConvert();
    void normalizesLikeRegularExpression();
};

void tst_UnitConverter::threadsAgree()
{
    // No NUL follows it, so that asking for one would change what the threads share.
    static const QChar s_units[] = {'N', '/', 'm', 'm', '^', '2', '2'};
    const QStringList texts = QStringList{QString::fromRawData(s_units, 6), "foo", "1/min", QChar(0xd800), "(mm)", "mete", ""} +
                              UnitConverter::getUnits() + UnitConverter::getUnitNames();
    std::atomic<bool> started{false};
    std::atomic<int> faults{0};
    const auto work = [&](int start) {
        while (!started)
            std::this_thread::yield();
        for (int i = 0; i < 20 * texts.size(); ++i) {
            const QString &text = texts[(start + 7 * i) % texts.size()];
            double value = 1.0;
            const bool converts = UnitConverter::convert(value, text, QStringLiteral("m"));
            const bool isListed = UnitConverter::isConvertable(QStringLiteral("m"), text);
            const bool isTagged = UnitConverter::TagFromUnit(text) >= 0;
            faults += converts != isListed || (isTagged && !UnitConverter::isUnit(text));
        }
    };
    std::vector<std::thread> threads;
    for (int start = 0; start < 4; ++start)
        threads.emplace_back(work, start);
    started = true;
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(faults.load(), 0);
    QCOMPARE(texts.first().constData(), s_units);
}

void tst_UnitConverter::converts_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");

    QTest::newRow("prefix on a symbol") << "MPa"
                                        << "N/mm^2" << 1.0 << 1.0;
    QTest::newRow("whole denominator") << "Kg/m*s^2"
                                       << "Pa" << 3.0 << 3.0;
    QTest::newRow("area") << "dm^2"
                          << "inch^2" << 1.0 << 15.500031000062;
    QTest::newRow("negative exponent") << "mm^-2"
                                       << "1/m^2" << 1.0 << 1e6;
    QTest::newRow("plus sign") << "m^+2"
                               << "cm^2" << 1.0 << 1e4;
    QTest::newRow("exponent zero") << "kN^0"
                                   << "1" << 7.0 << 7.0;
    QTest::newRow("leading zeros") << "m^002"
                                   << "m*m" << 7.0 << 7.0;
    QTest::newRow("nano-metre, not newton-metre") << "nm"
                                                  << "um" << 5.0 << 0.005;
    QTest::newRow("newton-metre") << "kNm"
                                  << "N*mm" << 1.0 << 1e6;
    QTest::newRow("minute, not milli-inch") << "min"
                                            << "s" << 1.0 << 60.0;
    QTest::newRow("upper-case kilo") << "Kg"
                                     << "kg" << 1.5 << 1.5;
    QTest::newRow("micro as Greek letter") << QString::fromUtf8("\u03bcm") << "nm" << 1.0 << 1e3;
    QTest::newRow("micron") << QString::fromUtf8("\u03bc") << "um" << 1.0 << 1.0;
    QTest::newRow("yotta to yocto") << "Ym"
                                    << "ym" << 1.0 << 1e48;
    QTest::newRow("currencies are equal") << "EUR"
                                          << "USD" << 12.5 << 12.5;

    QTest::newRow("boiling") << "degC"
                             << "degF" << 100.0 << 212.0;
    QTest::newRow("below zero") << "degF"
                                << "degC" << -40.0 << -40.0;
    QTest::newRow("absolute zero") << "K"
                                   << "degC" << 0.0 << -273.15;
    QTest::newRow("offset with sign") << QString::fromUtf8("°F") << "K" << 32.0 << 273.15;
    QTest::newRow("one scale, two texts") << QString::fromUtf8("°C") << "degC" << 20.0 << 20.0;
    QTest::newRow("white space before keeps the offset") << " degC"
                                                         << "K" << 0.0 << 273.15;
    QTest::newRow("white space behind makes it a factor") << "degC "
                                                          << "K" << 5.0 << 5.0;
    QTest::newRow("offset by name") << "Kelvin"
                                    << "degC" << 273.15 << 0.0;
    QTest::newRow("prefix makes it a factor") << "degC"
                                              << "mK" << 1.0 << 1000.0;
    QTest::newRow("exponent makes it a factor") << "degF^1"
                                                << "K" << 9.0 << 5.0;

    QTest::newRow("name in any case") << "METER"
                                      << "mm" << 1.0 << 1000.0;
    QTest::newRow("misspelt name") << "attmosphere"
                                   << "bar" << 1.0 << 1.01325;
    QTest::newRow("brackets") << "(N)/(mm^2)"
                              << "Pa" << 1.0 << 1e6;
    QTest::newRow("product after an exponent") << "N/mm^2s"
                                               << "Pa/s" << 1.0 << 1e6;
    QTest::newRow("what follows the expression is dropped") << "mm ?"
                                                            << "m" << 1000.0 << 1.0;
    QTest::newRow("powers out of range cancel out") << "N^100/N^98"
                                                    << "N^2" << 3.0 << 3.0;
    QTest::newRow("product out of range cancels out") << "m^127*m/m"
                                                      << "m^127" << 3.0 << 3.0;
    QTest::newRow("lowest exponent of a base unit") << "N^64"
                                                    << "N^63*N" << 3.0 << 3.0;
    QTest::newRow("one unit out of range") << "(N^100)"
                                           << " N^100" << 4.0 << 4.0;
    QTest::newRow("identical texts that are no units") << "foo"
                                                       << "foo" << 4.0 << 4.0;
    QTest::newRow("identical long texts") << "0123456789abc"
                                          << "0123456789abc" << 4.0 << 4.0;
}

void tst_UnitConverter::converts()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(double, value);
    QFETCH(double, expected);
    double result = value;
    QVERIFY(UnitConverter::convert(result, from, to));
    QVERIFY2(qAbs(result - expected) <= 1e-11 * qMax(1.0, qAbs(expected)), qPrintable(QString::number(result, 'g', 17)));
    QVERIFY(UnitConverter::convert(result, to, from));
    QVERIFY(qAbs(result - value) <= 1e-11 * qMax(1.0, qAbs(value)));
}

void tst_UnitConverter::sizes_data()
{
    QTest::addColumn<double>("size");
    QTest::addColumn<QString>("measure");

    for (const Size &row : s_sizes)
        QTest::newRow(row.unit) << row.size << QString(row.measure);
    for (const QString &currency : UnitConverter::getConversionUnits("EUR"))
        QTest::newRow(qPrintable(currency)) << 1.0 << "EUR";
}

void tst_UnitConverter::sizes()
{
    QFETCH(double, size);
    QFETCH(QString, measure);
    double value = 1.0;
    QVERIFY(UnitConverter::convert(value, QString::fromUtf8(QTest::currentDataTag()), measure));
    QVERIFY2(qAbs(value / size - 1.0) < 1e-10, qPrintable(QString::number(value, 'g', 17)));
}

void tst_UnitConverter::prefixes()
{
    for (const QString &prefix : QString::fromUtf8(s_prefixes).split(' ')) {
        double value = 1.0;
        QVERIFY(UnitConverter::convert(value, prefix.at(0) + QString("rad"), "rad"));
        QVERIFY2(qAbs(value / prefix.mid(1).toDouble() - 1.0) < 1e-14, qPrintable(prefix));
    }
    int fitting = 0;
    for (int unit = 0; unit <= 0xffff; ++unit)
        fitting += UnitConverter::spanUnitStr(QChar(unit) + QString("rad")) == 4;
    QCOMPARE(fitting, 23 + 6 + 1); // the prefixes, white space, "grad"
}

void tst_UnitConverter::refuses_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");

    QTest::newRow("other quantity") << "EUR"
                                    << "m";
    QTest::newRow("angle and number") << "rad"
                                      << "1";
    QTest::newRow("percentage and number") << "%"
                                           << "1";
    QTest::newRow("temperature and length") << "degC"
                                            << "m";
    QTest::newRow("13 characters") << "m*m*m*m*m*m*1"
                                   << "m^6";
    QTest::newRow("name of 13 characters") << "PoundsPerSqua"
                                           << "psi";
    QTest::newRow("two texts that are no units") << "foo"
                                                 << "bar?foo";
    QTest::newRow("brackets around no unit") << "(foo)"
                                             << "foo";
    QTest::newRow("empty and unit") << ""
                                    << "1";
    QTest::newRow("empty and brackets") << ""
                                        << "()";
    QTest::newRow("factor beyond double") << "Ym^127"
                                          << "m^127";
    QTest::newRow("factor below double") << "ym^127"
                                         << "m^127";
    QTest::newRow("factor beyond double is not 1") << "Ym^127"
                                                   << "m";
    QTest::newRow("infinite in both parts") << "Ym^99/Ym^99"
                                            << "1";
    QTest::newRow("base exponent too low") << "N^100"
                                           << "N";
    QTest::newRow("base exponent too high") << "m^127*m"
                                            << "m^127";
    QTest::newRow("two units out of range") << "N^100"
                                            << "N^101";
    QTest::newRow("micro sign") << QString::fromUtf8("µm") << "m";
}

void tst_UnitConverter::refuses()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    double value = 4.5;
    QVERIFY(!UnitConverter::convert(value, from, to));
    QVERIFY(!UnitConverter::convert(value, to, from));
    QCOMPARE(value, 4.5);
}

void tst_UnitConverter::readsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("span");
    QTest::addColumn<int>("check");
    QTest::addColumn<QString>("unit");

    QTest::newRow("empty") << "" << 0 << 0 << "";
    QTest::newRow("symbol") << "mm" << 2 << 1 << "mm";
    QTest::newRow("one") << "1" << 1 << 1 << "1";
    QTest::newRow("second slash") << "Kg/m/s^2" << 4 << 3 << "Kg/m";
    QTest::newRow("open product") << "N*" << 1 << 3 << "N";
    QTest::newRow("open quotient") << "1/" << 1 << 3 << "1";
    QTest::newRow("open power") << "mm^" << 2 << 3 << "mm";
    QTest::newRow("open sign") << "mm^-" << 2 << 3 << "mm";
    QTest::newRow("two signs") << "mm^+-2" << 2 << 3 << "mm";
    QTest::newRow("power of a power") << "m^2^2" << 3 << 3 << "m^2";
    QTest::newRow("white space everywhere") << " N / m ^ - 2" << 12 << 1 << " N / m ^ - 2";
    QTest::newRow("white space behind") << "mm \t" << 4 << 1 << "mm \t";
    QTest::newRow("only white space") << "  " << 0 << 0 << "";
    QTest::newRow("white space ends the digits") << "m^1 2" << 4 << 3 << "m^1 ";
    QTest::newRow("white space splits the prefix") << "k m" << 0 << 0 << "";
    QTest::newRow("no-break space") << QString("mm") + QChar(0xa0) << 2 << 3 << "mm";
    QTest::newRow("next line") << QChar(0x85) + QString("mm") << 0 << 0 << "";

    QTest::newRow("start of a name") << "mete" << 0 << 3 << "";
    QTest::newRow("name") << "meter" << 0 << 2 << "m";
    QTest::newRow("name in brackets") << "(meter)" << 0 << 2 << "m";
    QTest::newRow("name with which another one starts") << "year" << 0 << 2 << "a";
    QTest::newRow("no name") << "metre" << 0 << 0 << "";
    QTest::newRow("brackets alone") << "()" << 0 << 0 << "";
    QTest::newRow("brackets around") << "(mm)" << 0 << 1 << "mm";
    QTest::newRow("brackets inside") << "N/(m*s)" << 1 << 1 << "N/m*s";

    QTest::newRow("missing product") << "mm^2s" << 4 << 3 << "mm^2*s";
    QTest::newRow("missing product, signed") << "mm^-2s" << 5 << 3 << "mm^-2";
    QTest::newRow("missing product, bracket") << "mm^2(s)" << 4 << 3 << "mm^2";
    QTest::newRow("missing products") << "m^1m^1m^1m" << 3 << 3 << "m^1*m^1*m^1*m";
    QTest::newRow("missing product at the limit") << "m^2m^2m^2m^2" << 3 << 3 << "m^2*m^2*m^2*m^2";

    QTest::newRow("word goes on with a letter") << "mmx" << 0 << 0 << "";
    QTest::newRow("word goes on with a digit") << "mm2" << 0 << 0 << "";
    QTest::newRow("word goes on with _") << "mm_" << 0 << 0 << "";
    QTest::newRow("word goes on in Greek") << QString::fromUtf8("mα") << 0 << 0 << "";
    QTest::newRow("word goes on with a script's digit") << QString::fromUtf8("m٣") << 0 << 0 << "";
    QTest::newRow("superscript ends the word") << QString::fromUtf8("m²") << 1 << 3 << "m";
    QTest::newRow("symbol before percent") << "m%" << 1 << 3 << "m";
    QTest::newRow("prefix before percent") << "k%" << 2 << 1 << "k%";
    QTest::newRow("degree sign before a letter") << QString::fromUtf8("°m") << 0 << 0 << "";
    QTest::newRow("two prefixes") << "kkg" << 0 << 0 << "";
    QTest::newRow("prefix alone") << "k" << 0 << 3 << ""; // "Kelvin" starts so
    QTest::newRow("digit behind one") << "12" << 1 << 3 << "1";

    QTest::newRow("largest exponent") << "m^127" << 5 << 1 << "m^127";
    QTest::newRow("digit too many") << "m^128" << 4 << 3 << "m^12";
    QTest::newRow("digit too many, negative") << "m^-128" << 5 << 3 << "m^-12";
    QTest::newRow("many digits") << "m^9999999999" << 4 << 3 << "m^99";
    QTest::newRow("base exponent out of range") << "N^100" << 5 << 1 << "N^100";
    QTest::newRow("factor out of range") << "Ym^127*m" << 8 << 1 << "Ym^127*m";
    QTest::newRow("denominator out of range") << "s^-127/m*s^2" << 12 << 1 << "s^-127/m*s^2";

    QTest::newRow("12 characters") << "m*m*m*m*m*mm" << 12 << 1 << "m*m*m*m*m*mm";
    QTest::newRow("13 characters") << "m*m*m*m*m*m*m" << 13 << 0 << "";
    QTest::newRow("nul behind") << QString("mm") + QChar(0) << 2 << 3 << "mm";
    QTest::newRow("nul alone") << QString(QChar(0)) << 0 << 0 << "";
    QTest::newRow("lone high surrogate") << surrogate(0xd83d) << 0 << 0 << "";
    QTest::newRow("lone low surrogate behind") << surrogate('m', QChar(0xdc00)) << 1 << 3 << "m";
    QTest::newRow("prefix before a surrogate") << surrogate('k', QChar(0xd83d)) << 0 << 0 << "";
    QTest::newRow("last code unit") << surrogate(0xffff, "mm") << 0 << 0 << "";
}

void tst_UnitConverter::readsText()
{
    QFETCH(QString, text);
    QFETCH(QString, unit);
    QTEST(UnitConverter::spanUnitStr(text), "span");
    QTEST(int(UnitConverter::isUnit(text)), "check");
    QCOMPARE(UnitConverter::getUnit(text), unit);
    if (!unit.isEmpty() && unit.size() <= 12)
        QVERIFY(UnitConverter::isConvertable(text, unit));
}

void tst_UnitConverter::spansLongText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("span");

    QTest::newRow("unit before prose") << "mm is the unit of this field" << 3;
    QTest::newRow("long product") << QString("m*").repeated(60) + "m" << 121;
    QTest::newRow("sum of exponents out of range") << QString("m*").repeated(500) << 999;
    QTest::newRow("factor out of range") << QString("Ym^127*").repeated(500) + "m" << 3501;
    QTest::newRow("long word") << QString("m").repeated(100000) << 0;
    QTest::newRow("long white space") << QString(" ").repeated(100000) + "m" << 100001;
}

void tst_UnitConverter::spansLongText()
{
    QFETCH(QString, text);
    QTEST(UnitConverter::spanUnitStr(text), "span");
}

void tst_UnitConverter::isConvertable_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<bool>("expected");

    QTest::newRow("brackets") << "(mm)"
                              << "inch" << true;
    QTest::newRow("no units, other brackets") << "(foo)"
                                              << "f(oo)" << true;
    QTest::newRow("identical no units") << "foo"
                                        << "foo" << true;
    QTest::newRow("two no units") << "foo"
                                  << "fooo" << false;
    QTest::newRow("too long") << "((((((mm))))))"
                              << "m" << false;
    QTest::newRow("too long, other brackets") << "((((((mm))))))"
                                              << "mm" << true;
    QTest::newRow("other quantity") << "mm"
                                    << "kg" << false;
    QTest::newRow("empty") << ""
                           << "mm" << false;
}

void tst_UnitConverter::isConvertable()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QTEST(UnitConverter::isConvertable(from, to), "expected");
    QTEST(UnitConverter::isConvertable(to, from), "expected");
}

void tst_UnitConverter::table()
{
    const QStringList units = UnitConverter::getUnits();
    QCOMPARE(units.size(), 103);
    QCOMPARE(UnitConverter::getUnitNames().join(' '), QString(s_names));
    for (int row = 0; row < units.size(); ++row) {
        QVERIFY2(row == 0 || units[row - 1] < units[row], qPrintable(units[row]));
        QCOMPARE(UnitConverter::isUnit(units[row]), UnitConverter::CompleteUnit);
        QCOMPARE(UnitConverter::getUnit(units[row]), units[row]);
        QCOMPARE(UnitConverter::spanUnitStr("k" + units[row]), units[row].size() + 1);
    }
}

void tst_UnitConverter::namesLeadToSymbols()
{
    const QStringList units = UnitConverter::getUnits();
    const QStringList names = UnitConverter::getUnitNames();
    for (int row = 0; row < names.size(); ++row) {
        const QString name = names[row].toUpper();
        const bool isShort = name.size() <= 12;
        QCOMPARE(UnitConverter::isUnit(name), isShort ? UnitConverter::UnitName : UnitConverter::NotAUnit);
        QCOMPARE(UnitConverter::getUnit(name), isShort ? units[row] : QString());
    }
}

void tst_UnitConverter::conversionUnits_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("units");
    QTest::addColumn<QString>("names");

    QTest::newRow("volume") << "mm^3"
                            << "bbl gal galC galUK l"
                            << "Barrel USGallon CanadianGallon UKGallon Liter";
    QTest::newRow("temperature") << "mK" << QString::fromUtf8("K degC degF °C °F")
                                 << "Kelvin DegreeCelsius DegreesFahrenheit DegreeCelsiusChar "
                                    "DegreesFahrenheitChar";
    QTest::newRow("by name") << "byte"
                             << "B GB KB MB TB"
                             << "Byte GigaByte KiloByte MegaByte TeraByte";
    QTest::newRow("currency") << "USD"
                              << "ARS AUD BRL BYR CAD CHF CNY CZK EUR GBP HKD HUF INR JPY KRW MXN MYR NOK PLN RUB SEK "
                                 "THB TRY TWD UAH USD Yen ZAR"
                              << "ArgentinePeso AustralianDollar BrazilianReal BelarussianRuble CanadianDollar "
                                 "SwissFranc ChineseYuanRenminbi CzechKoruna Euro BritishPound HongKongSARDollar "
                                 "HungarianForint IndianRupee JapaneseYen SouthKoreanWon MexicanPeso MalaysianRinggit "
                                 "NorwegianKroner PolishZloty RussianRuble SwedishKrona ThaiBaht TurkishLira "
                                 "TaiwanDollar UkraineHryvnia USDollar Yen SouthAfricanRand";
    QTest::newRow("out of range") << "N^100"
                                  << ""
                                  << "";
    QTest::newRow("not in the table") << "kg^3"
                                      << ""
                                      << "";
    QTest::newRow("no unit") << "foo"
                             << ""
                             << "";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
}

void tst_UnitConverter::conversionUnits()
{
    QFETCH(QString, unit);
    QTEST(UnitConverter::getConversionUnits(unit).join(' '), "units");
    QTEST(UnitConverter::getConversionUnitNames(unit).join(' '), "names");
}

void tst_UnitConverter::tags_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("tag");
    QTest::addColumn<QString>("textOfTag");

    const char *const texts[] = {"mm",  "m",     "in",  "deg", "rad", "N",   "kN",  "lbf",  "t",    "h",   "min",  "s",  "N/mm", "kg",    "1/min",
                                 "MPa", "N/m^2", "bar", "USD", "CHF", "EUR", "JPY", "degC", "degF", "m/s", "mm/s", "Nm", "kNm",  "deg/s", "rad/s"};
    int tag = 0;
    for (const char *text : texts)
        QTest::newRow(text) << QString(text) << tag++ << QString(text);
    QTest::newRow("second text of a tag") << "inch" << 2 << "in";
    QTest::newRow("equal unit, other text") << "N/mm^2" << -1 << "";
    QTest::newRow("empty") << "" << -1 << "";
}

void tst_UnitConverter::tags()
{
    QFETCH(QString, text);
    QFETCH(int, tag);
    QCOMPARE(int(UnitConverter::TagFromUnit(text)), tag);
    QTEST(UnitConverter::UnitFromTag(UnitConverter::Unit(tag)), "textOfTag");
}

void tst_UnitConverter::tagsConvert()
{
    double value = 1.0;
    QVERIFY(UnitConverter::convert(value, UnitConverter::Unit_in, UnitConverter::Unit_mm));
    QCOMPARE(value, 25.4);
    QVERIFY(!UnitConverter::convert(value, UnitConverter::Unit_in, UnitConverter::Unit_kg));
    QVERIFY(!UnitConverter::convert(value, UnitConverter::Unit_in, UnitConverter::Unit(30)));
    QCOMPARE(value, 25.4);
}

void tst_UnitConverter::normalizesLikeRegularExpression()
{
    const QString alphabet = QString::fromUtf8("mmsNk^^^22-1*/() °");
    std::mt19937 random(20u); // any fixed seed
    for (int round = 0; round < 20000; ++round) {
        QString text;
        for (std::size_t size = random() % 13; size > 0; --size)
            text += alphabet[int(random() % std::size_t(alphabet.size()))];
        const QString expected = rewritten(text);
        const QString unit = UnitConverter::getUnit(text);
        QCOMPARE(unit, expected.left(UnitConverter::spanUnitStr(expected)));
        double value = 3.25;
        if (!unit.isEmpty() && unit.size() <= 12)
            QVERIFY2(UnitConverter::convert(value, text, unit), qPrintable(text));
        QCOMPARE(value, 3.25);
    }
}

QTEST_GUILESS_MAIN(tst_UnitConverter)
#include "tst_unitconverter.moc"
