// SPDX-License-Identifier: MIT
#include "TestRows.h"
#include "units/BVDoubleValidator.h"

#include <QLocale>
#include <QRegularExpression>
#include <QTest>

#include <cmath>

namespace {

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
    void ownLocaleIsIgnored();
    void agreesWithTheToolkit_data();
    void agreesWithTheToolkit();
    void findsDecimalPoints();
    void readsFractions_data();
    void readsFractions();
};

void tst_BVDoubleValidator::validates_data()
{
    const Table<QString, double, double, int> row("text", "bottom", "top", "state");
    row("", 0, 10, Intermediate);
    row("5", 0, 10, Acceptable);
    row("11", 0, 10, Intermediate);
    row("-1", 0, 10, Invalid);
    row("-", -1, 10, Intermediate);
    row("5e", 0, 10, Intermediate);
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
    row("x/4", 0, 10, Invalid);
    row("1/x", 0, 10, Intermediate);
    row("-1/x", 0, 10, Invalid);
    row("1/0", 0, 10, Intermediate);
    row("1/-0", 0, 10, Invalid);
    row("1/2/3", 0, 10, Invalid);
    row("i", 0, s_inf, Intermediate);
    row("-in", -s_inf, 0, Intermediate);
    row("-i", 0, s_inf, Invalid);
    row("in", 0, 10, Invalid);
    row("inf/2", 0, s_inf, Acceptable);
    row("inf/inf", 0, s_inf, Intermediate);
    row("1e300/1e-300", 0, s_inf, Intermediate);
}

void tst_BVDoubleValidator::validates()
{
    auto [text, bottom, top] = fetched<QString, double, double>("text", "bottom", "top");
    const BVDoubleValidator validator(bottom, top, 2);
    QTEST(int(validator.validate(text)), "state");
}

void tst_BVDoubleValidator::numberInLocale_data()
{
    const Table<QLocale, QString, int, double> row("locale", "text", "state", "value");
    const QLocale english(QLocale::English);
    const QLocale german(QLocale::German);
    row(english, "1.5", Acceptable, 1.5);
    row(english, "1,5", Invalid, 0);
    row(english, "1,500.25", Invalid, 0);
    row(german, "1,5", Acceptable, 1.5);
    row(german, "1.5", Acceptable, 1.5);
    row(german, "1.500", Acceptable, 1.5);
    row(german, "1.500,25", Invalid, 0);
    row(german, "1,500.25", Invalid, 0);
    row(german, "1,2,3", Invalid, 0);
    row(german, "1,5e3", Acceptable, 1500);
    row(german, "1,5/2.5", Acceptable, 0.6);
    row(QLocale(QLocale::Swedish), "-1,5E-3", Acceptable, -0.0015);
    row(QLocale(QLocale::Arabic, QLocale::Egypt), "-1.5", Acceptable, -1.5);
    row(QLocale::c(), "1,5", Invalid, 0); // the shared validator follows back
}

void tst_BVDoubleValidator::numberInLocale()
{
    auto [locale, text, state] = fetched<QLocale, QString, int>("locale", "text", "state");
    QLocale::setDefault(locale);
    const QString before = text;
    QCOMPARE(int(BVDoubleValidator::isValidNumber(text)), state);
    QCOMPARE(text, before);
    bool ok = false;
    QTEST(BVDoubleValidator::toDoubleValue(text, ok), "value");
    QCOMPARE(ok, state == Acceptable);
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
    const Table<int, int> row("decimals", "notation");
    for (const int decimals : {0, 2, 20}) {
        row(decimals, QDoubleValidator::ScientificNotation);
        row(decimals, QDoubleValidator::StandardNotation);
    }
}

// Plain numbers are judged and read without the toolkit; both must come to the same.
void tst_BVDoubleValidator::agreesWithTheToolkit()
{
    auto [decimals, notation] = fetched<int, int>("decimals", "notation");
    BVDoubleValidator validator(-2.5, 1e6, decimals);
    validator.setNotation(QDoubleValidator::Notation(notation));
    QDoubleValidator toolkit(-2.5, 1e6, decimals);
    toolkit.setNotation(QDoubleValidator::Notation(notation));
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
    const Table<QString, bool, double> row("text", "ok", "value");
    row("quarter", "1/4", true, 0.25);
    row("spaces", " -1 / 4 ", true, -0.25);
    row("zero above", "0/5", false, 0.0);
    row("zero below", "5/0", false, 0.0);
    row("too large", "1e300/1e-300", false, 0.0);
    row("number too large", "1e400", false, 0.0);
    row("no number", "nan", false, 0.0);
    row("white space", " \t5 ", true, 5.0);
    row("half of infinity", "-inf/2", true, -s_inf);
    row("infinity below", "1/inf", true, 0.0);
    row("infinities", "inf/inf", false, 0.0);
    row("no text", "", false, 0.0);
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
