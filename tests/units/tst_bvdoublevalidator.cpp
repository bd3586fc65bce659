// SPDX-License-Identifier: MIT
#include "units/BVDoubleValidator.h"

#include <QLocale>
#include <QRegularExpression>
#include <QTest>

#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(QValidator::State)
Q_DECLARE_METATYPE(QDoubleValidator::Notation)

namespace {

constexpr double s_inf = std::numeric_limits<double>::infinity();
constexpr auto Acceptable = QValidator::Acceptable;
constexpr auto Intermediate = QValidator::Intermediate;
constexpr auto Invalid = QValidator::Invalid;

} // namespace

class tst_BVDoubleValidator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void validates_data();
    void validates();
    void numberInLocale_data();
    void numberInLocale();
    void sharedValidatorFollowsTheLocale();
    void ownLocaleIsIgnored();
    void agreesWithTheToolkit_data();
    void agreesWithTheToolkit();
    void findsDecimalPoints();
    void readsFractions_data();
    void readsFractions();
};

void tst_BVDoubleValidator::validates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("bottom");
    QTest::addColumn<double>("top");
    QTest::addColumn<QValidator::State>("state");

    const auto row = [](const char *text, double bottom, double top, QValidator::State state) {
        QTest::addRow("%s in %g to %g", text, bottom, top) << QString(text) << bottom << top << state;
    };
    row("", 0, 10, Intermediate);
    row("5", 0, 10, Acceptable);
    row("11", 0, 10, Intermediate);
    row("-1", 0, 10, Invalid);
    row("-", -1, 10, Intermediate);
    row("5e", 0, 10, Intermediate);
    row("5e-1", 0, 10, Acceptable);
    row("abc", 0, 10, Invalid);
    row("1,500", -s_inf, s_inf, Invalid);
    row("3.14159", 0, 3.14, Acceptable); // like 3.14
    row("3.14159E0", 0, 3.14, Acceptable);
    row("3.15", 0, 3.14, Intermediate);
    row("inf", -s_inf, s_inf, Acceptable);
    row("-inf", -s_inf, s_inf, Acceptable);
    row("inf", 0, 10, Invalid);
    row("-inf", 0, s_inf, Invalid);
    row("1/4", 0, 10, Acceptable);
    row("1/4", 1, 10, Intermediate);
    row("1/", 0, 10, Intermediate);
    row("/4", 0, 10, Intermediate);
    row("x/4", 0, 10, Invalid);
    row("1/x", 0, 10, Intermediate);
    row("-1/x", 0, 10, Invalid);
    row("1/0", 0, 10, Intermediate);
    row("1/-0", 0, 10, Invalid);
    row("1/2/3", 0, 10, Invalid);
    row("i", 0, s_inf, Intermediate);
    row("in", 0, s_inf, Intermediate);
    row("-in", -s_inf, 0, Intermediate);
    row("-i", 0, s_inf, Invalid);
    row("in", 0, 10, Invalid);
    row("inf/2", 0, s_inf, Acceptable);
    row("inf/inf", 0, s_inf, Intermediate);
    row("1e300/1e-300", 0, s_inf, Intermediate);
}

void tst_BVDoubleValidator::validates()
{
    QFETCH(QString, text);
    QFETCH(double, bottom);
    QFETCH(double, top);
    const BVDoubleValidator validator(bottom, top, 2);
    QTEST(validator.validate(text), "state");
}

void tst_BVDoubleValidator::numberInLocale_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("state");
    QTest::addColumn<double>("value");

    const auto row = [](const QLocale &locale, const char *text, QValidator::State state, double value) {
        QTest::addRow("%s in %s", text, qPrintable(locale.name())) << locale << QString(text) << state << value;
    };
    const QLocale english(QLocale::English);
    const QLocale german(QLocale::German);
    const QLocale french(QLocale::French);
    row(english, "1.5", Acceptable, 1.5);
    row(english, "1,5", Invalid, 0);
    row(english, "1,500.25", Invalid, 0);
    row(german, "1,5", Acceptable, 1.5);
    row(german, "1.5", Acceptable, 1.5);
    row(german, "1,500", Acceptable, 1.5);
    row(german, "1.500", Acceptable, 1.5);
    row(german, "1.500,25", Invalid, 0);
    row(german, "1,500.25", Invalid, 0);
    row(german, "1,2,3", Invalid, 0);
    row(german, "1,5e3", Acceptable, 1500);
    row(german, "1,5/2.5", Acceptable, 0.6);
    row(french, "1,5", Acceptable, 1.5);
    row(QLocale(QLocale::Swedish), "-1,5E-3", Acceptable, -0.0015);
    row(QLocale(QLocale::Arabic, QLocale::Egypt), "-1.5", Acceptable, -1.5);
}

void tst_BVDoubleValidator::numberInLocale()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);
    QLocale::setDefault(locale);
    const QString before = text;
    QTEST(BVDoubleValidator::isValidNumber(text), "state");
    QCOMPARE(text, before);
    bool ok = false;
    QTEST(BVDoubleValidator::toDoubleValue(text, ok), "value");
    QCOMPARE(ok, state == Acceptable);
}

void tst_BVDoubleValidator::sharedValidatorFollowsTheLocale()
{
    const QString text = QStringLiteral("1,5");
    QCOMPARE(BVDoubleValidator::isValidNumber(text), Invalid);
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(BVDoubleValidator::isValidNumber(text), Acceptable);
    QLocale::setDefault(QLocale(QLocale::English));
    QCOMPARE(BVDoubleValidator::isValidNumber(text), Invalid);
}

void tst_BVDoubleValidator::ownLocaleIsIgnored()
{
    BVDoubleValidator validator;
    validator.setLocale(QLocale(QLocale::English));
    QCOMPARE(validator.validate(QStringLiteral("1,500")), Invalid);
    validator.setLocale(QLocale(QLocale::German));
    QCOMPARE(validator.validate(QStringLiteral("1.5e0")), Acceptable);
}

void tst_BVDoubleValidator::agreesWithTheToolkit_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QDoubleValidator::Notation>("notation");

    for (const int decimals : {0, 2, 20}) {
        QTest::addRow("%d decimals", decimals) << decimals << QDoubleValidator::ScientificNotation;
        QTest::addRow("%d decimals, standard", decimals) << decimals << QDoubleValidator::StandardNotation;
    }
}

// Plain numbers are judged and read without the toolkit; both must come to the same.
void tst_BVDoubleValidator::agreesWithTheToolkit()
{
    QFETCH(int, decimals);
    QFETCH(QDoubleValidator::Notation, notation);
    BVDoubleValidator validator(-2.5, 1e6, decimals);
    validator.setNotation(notation);
    QDoubleValidator toolkit(-2.5, 1e6, decimals);
    toolkit.setNotation(notation);
    toolkit.setLocale(QLocale::c());
    const QRegularExpression surplus(QStringLiteral("(^[^.]*\\.\\d{%1})\\d+").arg(decimals));
    const char alphabet[] = "0123456789.-";
    quint32 random = 12345;
    for (int i = 0; i < 20000; ++i) {
        QString text;
        for (quint32 size = i % 19; size > 0; --size) {
            random = random * 1664525u + 1013904223u;
            text += QLatin1Char(alphabet[(random >> 16) % (sizeof alphabet - 1)]);
        }
        int pos = 0;
        QString chopped = text;
        chopped.replace(surplus, QStringLiteral("\\1"));
        QVERIFY2(validator.validate(text) == toolkit.validate(chopped, pos), qPrintable(text));
        bool ok = false;
        bool toolkitOk = false;
        const double value = BVDoubleValidator::toDoubleValue(text, ok);
        QCOMPARE(value, QLocale::c().toDouble(text, &toolkitOk));
        QCOMPARE(ok, toolkitOk);
    }
}

void tst_BVDoubleValidator::findsDecimalPoints()
{
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(BVDoubleValidator::indexOfDecimalPoint(QStringLiteral("1,2.3")), 3);
    QCOMPARE(BVDoubleValidator::indexOfDecimalPoint(QStringLiteral("1,2.3"), 4), -1);
    QCOMPARE(BVDoubleValidator::indexOfDecimalPoint(QStringLiteral("1,2,3"), 2), 3);
    QVERIFY(BVDoubleValidator::isDecimalPoint(QLatin1Char(',')));
    QString text = QStringLiteral("1.2.3");
    BVDoubleValidator::convertDecimalPoint(text, true);
    QCOMPARE(text, QStringLiteral("1,2.3"));
    BVDoubleValidator::convertDecimalPoint(text, false);
    QCOMPARE(text, QStringLiteral("1.2.3"));
    QLocale::setDefault(QLocale(QLocale::English));
    QVERIFY(!BVDoubleValidator::isDecimalPoint(QLatin1Char(',')));
}

void tst_BVDoubleValidator::readsFractions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<double>("value");

    QTest::newRow("quarter") << "1/4" << true << 0.25;
    QTest::newRow("spaces") << " -1 / 4 " << true << -0.25;
    QTest::newRow("zero above") << "0/5" << false << 0.0;
    QTest::newRow("zero below") << "5/0" << false << 0.0;
    QTest::newRow("too large") << "1e300/1e-300" << false << 0.0;
    QTest::newRow("number too large") << "1e400" << false << 0.0;
    QTest::newRow("no number") << "nan" << false << 0.0;
    QTest::newRow("white space") << " \t5 " << true << 5.0;
    QTest::newRow("half of infinity") << "-inf/2" << true << -s_inf;
    QTest::newRow("infinity below") << "1/inf" << true << 0.0;
    QTest::newRow("infinities") << "inf/inf" << false << 0.0;
    QTest::newRow("infinity") << "-inf" << true << -s_inf;
    QTest::newRow("no text") << "" << false << 0.0;
}

void tst_BVDoubleValidator::readsFractions()
{
    QFETCH(QString, text);
    bool ok = false;
    QTEST(BVDoubleValidator::toDoubleValue(text, ok), "value");
    QTEST(ok, "ok");
}

QTEST_GUILESS_MAIN(tst_BVDoubleValidator)
#include "tst_bvdoublevalidator.moc"
