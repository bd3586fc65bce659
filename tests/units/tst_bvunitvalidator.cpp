// SPDX-License-Identifier: MIT
#include "units/BVUnitValidator.h"

#include <QLocale>
#include <QTest>

#include <limits>

Q_DECLARE_METATYPE(QValidator::State)

namespace {

constexpr double s_inf = std::numeric_limits<double>::infinity();
constexpr auto Acceptable = QValidator::Acceptable;
constexpr auto Intermediate = QValidator::Intermediate;
constexpr auto Invalid = QValidator::Invalid;

} // namespace

class tst_BVUnitValidator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splits_data();
    void splits();
    void validates_data();
    void validates();
    void emptyText();
    void everyStepOfTypingIsAllowed_data();
    void everyStepOfTypingIsAllowed();
    void appendsUnits();
};

void tst_BVUnitValidator::splits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("unit");

    const auto row = [](const QString &text, const char *number, const QString &unit) {
        QTest::newRow(qUtf8Printable(text)) << text << QString(number) << unit;
    };
    row("", "", "");
    row("25.4mm", "25.4", "mm");
    row("  25.4  mm  ", "25.4", "mm");
    row("-5", "-5", "");
    row("- mm", "-", "mm");
    row("mm", "", "mm");
    row("5e3mm", "5e3", "mm");
    row("5E+3 mm", "5E+3", "mm");
    row("5e-", "5e-", "");
    row("5 EUR", "5", "EUR");
    row("5EUR", "5", "EUR");
    row("1/4 in", "1/4", "in");
    row("1/", "1/", "");
    row("5 1/min", "5", "1/min");
    row("5/min", "5", "1/min");
    row("1/min", "", "1/min");
    row("1 / 4", "1 / 4", "");
    row("1,500 mm", "1,500", "mm");
    row("1.2.3", "1.2.3", "");
    row("inf mm", "inf", "mm");
    row("-inf", "-inf", "");
    row("inch", "", "inch");
    row("inf/mm", "", "inf/mm");
    row(QStringLiteral(u"20.00\u00b0C"), "20.00", QStringLiteral(u"\u00b0C"));
    row(QStringLiteral(u"\u0661"), "",
        QStringLiteral(u"\u0661")); // digits of other scripts are none
    row(QStringLiteral(u"5\u00a0500"), "5", QStringLiteral("500"));
}

void tst_BVUnitValidator::splits()
{
    QFETCH(QString, text);
    QString number;
    QString unit;
    BVUnitValidator::split(text, number, unit);
    QTEST(number, "number");
    QTEST(unit, "unit");
}

void tst_BVUnitValidator::validates_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<double>("bottom");
    QTest::addColumn<double>("top");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("state");

    const auto row = [](const QString &base, const QString &text, QValidator::State state,
                        double bottom = -s_inf, double top = s_inf) {
        QTest::addRow("%s for '%s' in %g to %g", qUtf8Printable(text), qUtf8Printable(base), bottom,
                      top)
            << base << bottom << top << text << state;
    };
    row("mm", "25 inch", Acceptable, 0, 635);
    row("mm", "25 inch", Intermediate, 0, 634.9);
    row("mm", "25 m", Acceptable, 25000, 25000);
    row("mm", "-1 inch", Invalid, 0, 100);
    row("K", QStringLiteral(u"-273.15\u00b0C"), Acceptable, 0, 100); // no "-0"
    row("mm", "25 kg", Intermediate);
    row("mm", "25 xyz", Invalid);
    row("mm", "25 mete", Intermediate);
    row("mm", "1/4", Acceptable);
    row("mm", "1/4 inch", Acceptable, 6, 7);
    row("mm", "0/5 inch", Intermediate);
    row("mm", "mm", Intermediate);
    row("mm", QStringLiteral(u"\u00b5m"), Intermediate);
    row("mm", "kg", Invalid);
    row("mm", "- inch", Intermediate);
    row("mm", "1,5 mm", Invalid);
    row("mm", "1e400 inch", Intermediate);
    row("", "5", Acceptable);
    row("", "5 mm", Invalid);
    row("", "5e", Intermediate);
    row("dm^2", QStringLiteral(u"5 dm\u00b2"), Acceptable);
    row("um", QStringLiteral(u"5 \u00b5m"), Acceptable);
    row("USD", QStringLiteral(u"5 \u20ac"), Acceptable);
    row("degC", QStringLiteral(u"20.00\u00b0C"), Acceptable);
    row(QStringLiteral(u"\u00b0C"), QStringLiteral(u"20.00\u00b0C"), Acceptable);
    row("%", "50%", Acceptable);
    row("1/s", "60/min", Acceptable, 1, 1);
}

void tst_BVUnitValidator::validates()
{
    QFETCH(QString, base);
    QFETCH(double, bottom);
    QFETCH(double, top);
    QFETCH(QString, text);
    BVUnitValidator validator(bottom, top, 9);
    validator.setBaseUnit(base);
    QTEST(validator.validate(text), "state");
}

void tst_BVUnitValidator::emptyText()
{
    BVUnitValidator validator;
    QCOMPARE(validator.validate(QString()), Intermediate);
    validator.setAcceptEmpty(true);
    QCOMPARE(validator.validate(QString()), Acceptable);
    QCOMPARE(validator.validate(QStringLiteral("  ")), Acceptable);
}

// A line edit refuses the key that makes its text Invalid, so no start of an acceptable text may
// be.
void tst_BVUnitValidator::everyStepOfTypingIsAllowed_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *base, const QString &text) {
        QTest::newRow(qUtf8Printable(text)) << QString(base) << text;
    };
    row("mm", "-12.5E-3 inch");
    row("mm", "1/4 ftUS");
    row("mm", QStringLiteral(u"5 \u00b5m"));
    row("mm", QStringLiteral(u"5 \u03bcm"));
    row("m^3", "5 bbl");
    row("dm^2", QStringLiteral(u"5 inch\u00b2"));
    row("dm^2", "5 inch^2");
    row("J", "5 kcal");
    row("MPa", "5 N/mm^2");
    row("MPa", "5 mmHg");
    row("N*m", "5 lbf*inch");
    row("kN", "5 tonf");
    row("1/s", "5 1/min");
    row("1/s", "5/min");
    row("deg/s", QStringLiteral(u"5 \u00b0/min"));
    row("degC", QStringLiteral(u"5\u00b0F"));
    row("EUR", QStringLiteral(u"5 \u20bd"));
    row("EUR", "5 RUB");
}

void tst_BVUnitValidator::everyStepOfTypingIsAllowed()
{
    QFETCH(QString, base);
    QFETCH(QString, text);
    BVUnitValidator validator;
    validator.setBaseUnit(base);
    for (int size = 0; size <= text.size(); ++size)
        QVERIFY2(validator.validate(text.left(size)) != Invalid, qUtf8Printable(text.left(size)));
    QCOMPARE(validator.validate(text), Acceptable);
}

void tst_BVUnitValidator::appendsUnits()
{
    QString text = QStringLiteral("5");
    BVUnitValidator::appendUnitIfNone(text, QStringLiteral("degC"));
    QCOMPARE(text, QStringLiteral(u"5\u00b0C"));
    BVUnitValidator::appendUnitIfNone(text, QStringLiteral("mm"));
    QCOMPARE(text, QStringLiteral(u"5\u00b0C"));
    QString unit;
    QVERIFY(BVUnitValidator::hasUnitPostFix(text, &unit));
    QCOMPARE(unit, QStringLiteral(u"\u00b0C"));
    QVERIFY(!BVUnitValidator::hasUnitPostFix(QStringLiteral("5e3"), &unit));
    QString empty;
    BVUnitValidator::appendUnitIfNone(empty, QStringLiteral("mm"));
    QCOMPARE(empty, QString());
    BVUnitValidator::appendUnit(text, QString());
    QCOMPARE(text, QStringLiteral(u"5\u00b0C"));
}

QTEST_GUILESS_MAIN(tst_BVUnitValidator)
#include "tst_bvunitvalidator.moc"
