// SPDX-License-Identifier: MIT
#include "TestRows.h"
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

// Every unit that is no currency and no base unit, its size, and the measure that the size counts.
const char s_sizes[] = "% 0.01 perc,GB 1073741824 B,Hz 60 1/min,J 1 W*s,KB 1024 B,MB 1048576 B,N 1 kg*m/s^2,Nm 1 J,P 0.1 Pa*s,Pa 1 N/m^2,"
                       "Pdl 0.13825495376 N,Pica 1/72 in,St 100 mm^2/s,TB 1024 GB,U 1.6605402e-27 kg,W 1 N*m/s,a 31556925.9747 s,"
                       "arcmin 1/60 deg,arcs 4.848136111e-6 rad,atm 101325 Pa,bar 0.1 MPa,bbl 158.987294928 l,cal 4.1868 J,d 24 h,"
                       "deg 3.14159265358979/180 rad,degC^1 1 K,degF^1 1/1.8 K,fermi 1 fm,ft 12 in,ftUS 1200/3937 m,ga 9.80665 m/s^2,"
                       "gal 3.785411784 l,galC 4.54609 l,galUK 4.546092 l,gf 0.00980665 N,grad 0.9 deg,h 60 min,in 25.4 mm,inch 25.4 mm,"
                       "kip 1000 lbf,kp 9.80665 N,kph 1 km/h,l 1 dm^3,lb 0.45359267 kg,lbf 4.44822161526 N,lbt 0.3732417216 kg,mi 5280 ft,"
                       "miUS 5280 ftUS,mil 0.001 in,min 60 s,mmHg 1/760 atm,mph 1 mi/h,mps 1 m/s,oz 28.349523125 g,p 0.00980665 N,"
                       "psi 1 lbf/in^2,rd 16.5 ftUS,t 1000 kg,tf 1000 kp,ton 907.18474 kg,tonUK 2240/2000 ton,tonf 2000 lbf,yr 1 a,° 1 deg,"
                       "°C^1 1 K,°F^1 1/1.8 K,Å 0.1 nm,μ 1 um";

const char s_prefixes[] = "Y1e24 Z1e21 E1e18 P1e15 T1e12 G1e9 M1e6 K1e3 k1e3 H1e2 h1e2 D1e1 "
                          "d1e-1 c1e-2 m1e-3 u1e-6 \u03BC1e-6 n1e-9 p1e-12 f1e-15 a1e-18 z1e-21 "
                          "y1e-24";

const char s_names[] =
    "Percentage100 ArgentinePeso AustralianDollar Byte BrazilianReal BelarussianRuble CanadianDollar SwissFranc "
    "ChineseYuanRenminbi CzechKoruna Euro GigaByte BritishPound HongKongSARDollar HungarianForint Hertz IndianRupee Joule "
    "JapaneseYen Kelvin KiloByte SouthKoreanWon MegaByte MexicanPeso MalaysianRinggit Newton NorwegianKroner NewtonMeter Poise "
    "PolishZloty Pascal Poundal Pica RussianRuble SwedishKrona Stokes TeraByte ThaiBaht TurkishLira TaiwanDollar UnifiedAtomicMass "
    "UkraineHryvnia USDollar Watt Yen SouthAfricanRand Year ArcMinute ArcSecond Attmosphere Bar Barrel Calorie day DegreeAngle "
    "DegreeCelsius DegreesFahrenheit Fermi Foot SurveyFoot Gram StandardFreefall USGallon CanadianGallon UKGallon GramForce Grade "
    "Hour Inch InchLong KilopoundForce Kilopond KilometersPerHour Liter AvoirdupoisPound PoundForce TroyPound Meter "
    "InternationalMile USStatuteMile Mil Minute MillimeterOfMercury MilesPerHour MeterPerSecond Ounce Pond Percentage "
    "PoundsPerSquareInch Radian Rod Second MetricTon TonneForce ShortTon UKLongTon USTonForce Year2 Degree DegreeCelsiusChar "
    "DegreesFahrenheitChar Angstrom Micron";

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
    void spansLongText();
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
    const Table<QString, QString, double, double> row("from", "to", "value", "expected");
    row("prefix on a symbol", "MPa", "N/mm^2", 1.0, 1.0);
    row("negative exponent", "mm^-2", "1/m^2", 1.0, 1e6);
    row("plus sign", "m^+2", "cm^2", 1.0, 1e4);
    row("exponent zero", "kN^0", "1", 7.0, 7.0);
    row("leading zeros", "m^002", "m*m", 7.0, 7.0);
    row("nano-metre, not newton-metre", "nm", "um", 5.0, 0.005);
    row("newton-metre", "kNm", "N*mm", 1.0, 1e6);
    row("minute, not milli-inch", "min", "s", 1.0, 60.0);
    row("micro as Greek letter", QString::fromUtf8("\u03bcm"), "nm", 1.0, 1e3);
    row("micron", QString::fromUtf8("\u03bc"), "um", 1.0, 1.0);
    row("yotta to yocto", "Ym", "ym", 1.0, 1e48);
    row("currencies are equal", "EUR", "USD", 12.5, 12.5);

    row("boiling", "degC", "degF", 100.0, 212.0);
    row("below zero", "degF", "degC", -40.0, -40.0);
    row("absolute zero", "K", "degC", 0.0, -273.15);
    row("offset with sign", QString::fromUtf8("°F"), "K", 32.0, 273.15);
    row("white space before keeps the offset", " degC", "K", 0.0, 273.15);
    row("white space behind makes it a factor", "degC ", "K", 5.0, 5.0);
    row("offset by name", "Kelvin", "degC", 273.15, 0.0);
    row("prefix makes it a factor", "degC", "mK", 1.0, 1000.0);
    row("exponent makes it a factor", "degF^1", "K", 9.0, 5.0);

    row("name in any case", "METER", "mm", 1.0, 1000.0);
    row("misspelt name", "attmosphere", "bar", 1.0, 1.01325);
    row("brackets", "(N)/(mm^2)", "Pa", 1.0, 1e6);
    row("product after an exponent", "N/mm^2s", "Pa/s", 1.0, 1e6);
    row("what follows the expression is dropped", "mm ?", "m", 1000.0, 1.0);
    row("powers out of range cancel out", "N^100/N^98", "N^2", 3.0, 3.0);
    row("product out of range cancels out", "m^127*m/m", "m^127", 3.0, 3.0);
    row("lowest exponent of a base unit", "N^64", "N^63*N", 3.0, 3.0);
    row("one unit out of range", "(N^100)", " N^100", 4.0, 4.0);
    row("identical texts that are no units", "foo", "foo", 4.0, 4.0);
    row("identical long texts", "0123456789abc", "0123456789abc", 4.0, 4.0);
}

void tst_UnitConverter::converts()
{
    auto [from, to, value, expected] = fetched<QString, QString, double, double>("from", "to", "value", "expected");
    double result = value;
    QVERIFY(UnitConverter::convert(result, from, to));
    QVERIFY2(qAbs(result - expected) <= 1e-11 * qMax(1.0, qAbs(expected)), qPrintable(QString::number(result, 'g', 17)));
    QVERIFY(UnitConverter::convert(result, to, from));
    QVERIFY(qAbs(result - value) <= 1e-11 * qMax(1.0, qAbs(value)));
}

void tst_UnitConverter::sizes_data()
{
    const Table<double, QString> row("size", "measure");
    for (const QString &text : QString::fromUtf8(s_sizes).split(',')) {
        const QStringList fields = text.split(' ');
        const QStringList ratio = (fields[1] + "/1").split('/');
        row(fields[0].toUtf8(), ratio[0].toDouble() / ratio[1].toDouble(), fields[2]);
    }
    for (const QString &currency : UnitConverter::getConversionUnits("EUR"))
        row(qPrintable(currency), 1.0, "EUR");
}

void tst_UnitConverter::sizes()
{
    auto [size, measure] = fetched<double, QString>("size", "measure");
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
    const Table<QString, QString> row("from", "to");
    row("other quantity", "EUR", "m");
    row("angle and number", "rad", "1");
    row("percentage and number", "%", "1");
    row("13 characters", "m*m*m*m*m*m*1", "m^6");
    row("name of 13 characters", "PoundsPerSqua", "psi");
    row("two texts that are no units", "foo", "bar?foo");
    row("brackets around no unit", "(foo)", "foo");
    row("empty and unit", "", "1");
    row("empty and brackets", "", "()");
    row("factor beyond double", "Ym^127", "m^127");
    row("factor below double", "ym^127", "m^127");
    row("factor beyond double is not 1", "Ym^127", "m");
    row("base exponent too low", "N^100", "N");
    row("base exponent too high", "m^127*m", "m^127");
    row("micro sign", QString::fromUtf8("µm"), "m");
}

void tst_UnitConverter::refuses()
{
    auto [from, to] = fetched<QString, QString>("from", "to");
    double value = 4.5;
    QVERIFY(!UnitConverter::convert(value, from, to));
    QVERIFY(!UnitConverter::convert(value, to, from));
    QCOMPARE(value, 4.5);
}

void tst_UnitConverter::readsText_data()
{
    const Table<QString, int, int, QString> row("text", "span", "check", "unit");
    row("empty", "", 0, 0, "");
    row("symbol", "mm", 2, 1, "mm");
    row("one", "1", 1, 1, "1");
    row("second slash", "Kg/m/s^2", 4, 3, "Kg/m");
    row("open product", "N*", 1, 3, "N");
    row("open power", "mm^", 2, 3, "mm");
    row("open sign", "mm^-", 2, 3, "mm");
    row("power of a power", "m^2^2", 3, 3, "m^2");
    row("white space everywhere", " N / m ^ - 2", 12, 1, " N / m ^ - 2");
    row("white space ends the digits", "m^1 2", 4, 3, "m^1 ");
    row("white space splits the prefix", "k m", 0, 0, "");
    row("no-break space", QString("mm") + QChar(0xa0), 2, 3, "mm");
    row("next line", QChar(0x85) + QString("mm"), 0, 0, "");

    row("start of a name", "mete", 0, 3, "");
    row("name", "meter", 0, 2, "m");
    row("name with which another one starts", "year", 0, 2, "a");
    row("brackets alone", "()", 0, 0, "");
    row("brackets inside", "N/(m*s)", 1, 1, "N/m*s");

    row("missing product", "mm^2s", 4, 3, "mm^2*s");
    row("missing product, bracket", "mm^2(s)", 4, 3, "mm^2");
    row("missing products", "m^1m^1m^1m", 3, 3, "m^1*m^1*m^1*m");
    row("missing product at the limit", "m^2m^2m^2m^2", 3, 3, "m^2*m^2*m^2*m^2");

    row("word goes on with a digit", "mm2", 0, 0, "");
    row("word goes on with _", "mm_", 0, 0, "");
    row("word goes on in Greek", QString::fromUtf8("mα"), 0, 0, "");
    row("word goes on with a script's digit", QString::fromUtf8("m٣"), 0, 0, "");
    row("superscript ends the word", QString::fromUtf8("m²"), 1, 3, "m");
    row("prefix before percent", "k%", 2, 1, "k%");
    row("degree sign before a letter", QString::fromUtf8("°m"), 0, 0, "");
    row("two prefixes", "kkg", 0, 0, "");
    row("prefix alone", "k", 0, 3, ""); // "Kelvin" starts so
    row("digit behind one", "12", 1, 3, "1");

    row("largest exponent", "m^127", 5, 1, "m^127");
    row("digit too many", "m^128", 4, 3, "m^12");
    row("digit too many, negative", "m^-128", 5, 3, "m^-12");
    row("base exponent out of range", "N^100", 5, 1, "N^100");
    row("factor out of range", "Ym^127*m", 8, 1, "Ym^127*m");
    row("denominator out of range", "s^-127/m*s^2", 12, 1, "s^-127/m*s^2");

    row("13 characters", "m*m*m*m*m*m*m", 13, 0, "");
    row("nul behind", QString("mm") + QChar(0), 2, 3, "mm");
    row("lone high surrogate", surrogate(0xd83d), 0, 0, "");
    row("lone low surrogate behind", surrogate('m', QChar(0xdc00)), 1, 3, "m");
    row("prefix before a surrogate", surrogate('k', QChar(0xd83d)), 0, 0, "");
    row("last code unit", surrogate(0xffff, "mm"), 0, 0, "");
}

void tst_UnitConverter::readsText()
{
    auto [text, unit] = fetched<QString, QString>("text", "unit");
    QTEST(UnitConverter::spanUnitStr(text), "span");
    QTEST(int(UnitConverter::isUnit(text)), "check");
    QCOMPARE(UnitConverter::getUnit(text), unit);
    if (!unit.isEmpty() && unit.size() <= 12)
        QVERIFY(UnitConverter::isConvertable(text, unit));
}

void tst_UnitConverter::spansLongText()
{
    QCOMPARE(UnitConverter::spanUnitStr("mm is the unit of this field"), 3);
    QCOMPARE(UnitConverter::spanUnitStr(QString("m*").repeated(500)), 999); // exponents out of range
    QCOMPARE(UnitConverter::spanUnitStr(QString("Ym^127*").repeated(500) + "m"), 3501);
    QCOMPARE(UnitConverter::spanUnitStr(QString("m").repeated(100000)), 0);
    QCOMPARE(UnitConverter::spanUnitStr(QString(" ").repeated(100000) + "m"), 100001);
}

void tst_UnitConverter::isConvertable()
{
    const QStringList equal[] = {{"(mm)", "inch"}, {"(foo)", "f(oo)"}, {"foo", "foo"}, {"((((((mm))))))", "mm"}};
    for (const QStringList &texts : equal)
        QVERIFY2(UnitConverter::isConvertable(texts[0], texts[1]) && UnitConverter::isConvertable(texts[1], texts[0]), qPrintable(texts[0]));
    const QStringList other[] = {{"foo", "fooo"}, {"((((((mm))))))", "m"}, {"mm", "kg"}, {"", "mm"}};
    for (const QStringList &texts : other)
        QVERIFY2(!UnitConverter::isConvertable(texts[0], texts[1]) && !UnitConverter::isConvertable(texts[1], texts[0]), qPrintable(texts[0]));
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
    const Table<QString, QString, QString> row("unit", "units", "names");
    row("volume", "mm^3", "bbl gal galC galUK l", "Barrel USGallon CanadianGallon UKGallon Liter");
    row("temperature", "mK", QString::fromUtf8("K degC degF °C °F"),
        "Kelvin DegreeCelsius DegreesFahrenheit DegreeCelsiusChar "
        "DegreesFahrenheitChar");
    row("by name", "byte", "B GB KB MB TB", "Byte GigaByte KiloByte MegaByte TeraByte");
    row("currency", "USD",
        "ARS AUD BRL BYR CAD CHF CNY CZK EUR GBP HKD HUF INR JPY KRW MXN MYR NOK PLN RUB SEK "
        "THB TRY TWD UAH USD Yen ZAR",
        "ArgentinePeso AustralianDollar BrazilianReal BelarussianRuble CanadianDollar "
        "SwissFranc ChineseYuanRenminbi CzechKoruna Euro BritishPound HongKongSARDollar "
        "HungarianForint IndianRupee JapaneseYen SouthKoreanWon MexicanPeso MalaysianRinggit "
        "NorwegianKroner PolishZloty RussianRuble SwedishKrona ThaiBaht TurkishLira "
        "TaiwanDollar UkraineHryvnia USDollar Yen SouthAfricanRand");
    row("out of range", "N^100", "", "");
    row("no unit", "foo", "", "");
}

void tst_UnitConverter::conversionUnits()
{
    QFETCH(QString, unit);
    QTEST(UnitConverter::getConversionUnits(unit).join(' '), "units");
    QTEST(UnitConverter::getConversionUnitNames(unit).join(' '), "names");
}

void tst_UnitConverter::tags_data()
{
    const Table<QString, int, QString> row("text", "tag", "textOfTag");
    const char *const texts[] = {"mm",  "m",     "in",  "deg", "rad", "N",   "kN",  "lbf",  "t",    "h",   "min",  "s",  "N/mm", "kg",    "1/min",
                                 "MPa", "N/m^2", "bar", "USD", "CHF", "EUR", "JPY", "degC", "degF", "m/s", "mm/s", "Nm", "kNm",  "deg/s", "rad/s"};
    int tag = 0;
    for (const char *text : texts)
        row(text, QString(text), tag++, QString(text));
    row("second text of a tag", "inch", 2, "in");
    row("equal unit, other text", "N/mm^2", -1, "");
    row("empty", "", -1, "");
}

void tst_UnitConverter::tags()
{
    auto [text, tag] = fetched<QString, int>("text", "tag");
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
