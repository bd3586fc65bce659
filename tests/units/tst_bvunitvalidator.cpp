// SPDX-License-Identifier: MIT
#include "TestRows.h"
#include "units/BVUnitValidator.h"

#include <QLocale>
#include <QSignalSpy>
#include <QTest>

namespace {

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
    void copiesAtOnce();
    void appendsUnits();
};

void tst_BVUnitValidator::splits_data()
{
    const Table<QString, QString, QString> row("text", "number", "unit");
    row("", "", "");
    row("25.4mm", "25.4", "mm");
    row("  25.4  mm  ", "25.4", "mm");
    row("- mm", "-", "mm");
    row("5e3mm", "5e3", "mm");
    row("5E+3 mm", "5E+3", "mm");
    row("5e-", "5e-", "");
    row("5 EUR", "5", "EUR");
    row("1/4 in", "1/4", "in");
    row("1/", "1/", "");
    row("5 1/min", "5", "1/min");
    row("5/min", "5", "1/min");
    row("1/min", "", "1/min");
    row("1 / 4", "1 / 4", "");
    row("1,500 mm", "1,500", "mm");
    row("1.2.3", "1.2.3", "");
    row("inf mm", "inf", "mm");
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
    const Table<QString, double, double, int, QString, int> table("base", "bottom", "top", "decimals", "text", "state");
    const auto row = [&table](const QString &base, const QString &text, QValidator::State state, double bottom = -s_inf, double top = s_inf,
                              int decimals = 9) { table(base, bottom, top, decimals, text, state); };
    row("mm", "25 inch", Acceptable, 0, 635);
    row("mm", "25 inch", Intermediate, 0, 634.9);
    row("mm", "25 m", Acceptable, 25000, 25000);
    row("mm", "-1 inch", Invalid, 0, 100);
    row("K", QStringLiteral(u"-273.15\u00b0C"), Acceptable, 0, 100); // no "-0"
    row("mm", "25 kg", Intermediate);
    row("mm", "25 xyz", Invalid);
    row("mm", "25 mete", Intermediate);
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
    row("degC", QStringLiteral(u"20.00\u00b0C"), Acceptable);
    row(QStringLiteral(u"\u00b0C"), QStringLiteral(u"20.00\u00b0C"), Acceptable);
    row("1/s", "60/min", Acceptable, 1, 1);
    for (const char *rest :
         {"1 m 50 cm", "5 mm 1,500", "5 m 1,500", "5 mm,5", "5 m.5", "5 m + 3 mm", "5 m/xyz", "5 mm mm", "5 m mm", "5 m^", "5 m/", "5 cm*"})
        row("mm", rest, Intermediate);
    row("mm", "5 Meter", Acceptable);
    row("miUS", "-114.43inch", Invalid, 0, 100, 0); // less than nothing, though it is shown as 0
    row("K", QStringLiteral(u"-273.15\u00b0C"), Acceptable, 0, 100, 0);
    row("mm", "5emm", Intermediate);
    row("mm", "5e-%", Intermediate);
    row("mm", "5exyz", Invalid);
    row("mm", "1,5e mm", Invalid);
    row("EUR", "5EUR", Acceptable);
    row("EUR", "5 EURX", Invalid);
    row("mm", "1/xyz", Invalid);
    row("", "5/ mm", Invalid);
    row("kg", "i", Intermediate, 0, s_inf);
    row("kg", "i", Invalid, 0, 100);
    row("kg", "-in kg", Intermediate);
    row("", "in", Intermediate);
}

void tst_BVUnitValidator::validates()
{
    auto [base, bottom, top, text, decimals] = fetched<QString, double, double, QString, int>("base", "bottom", "top", "text", "decimals");
    BVUnitValidator validator(bottom, top, decimals);
    validator.setBaseUnit(base);
    QTEST(int(validator.validate(text)), "state");
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
    const Table<QString, QString, QString> table("base", "text", "behind"); // the cursor
    const auto row = [&table](const char *base, const QString &text, const QString &behind = QString()) { table(base, text, behind); };
    for (const char *number : {"-12.5E-3", "5e3", ".5", "1/4", "-1 / 2.5e-1", "inf", "-inf"}) {
        row("mm", number, " mm");
        row("mm", number, " inch");
        row("1/s", number, " 1/min");
        row("MPa", number, " N/mm^2");
        row("EUR", number, QStringLiteral(u" \u20ac"));
        row("EUR", number, " EUR");
        row("degC", number, QStringLiteral(u"\u00b0C"));
        row("rad", number, QStringLiteral(u"\u00b0"));
        row("%", number, "%");
    }
    row("mm", "1/4", "mm");
    row("mm", "5e+2", "mm");
    row("mm", "-12.5E-3 inch");
    row("mm", "1/4 ftUS");
    row("mm", QStringLiteral(u"5 \u00b5m"));
    row("dm^2", QStringLiteral(u"5 inch\u00b2"));
    row("dm^2", "5 inch^2");
    row("MPa", "5 N/mm^2");
    row("N*m", "5 lbf*inch");
    row("1/s", "5 1/min");
    row("1/s", "5/min");
    row("deg/s", QStringLiteral(u"5 \u00b0/min"));
    row("degC", QStringLiteral(u"5\u00b0F"));
    row("EUR", QStringLiteral(u"5 \u20bd"));
    row("EUR", "5 RUB");
}

void tst_BVUnitValidator::everyStepOfTypingIsAllowed()
{
    auto [base, text, behind] = fetched<QString, QString, QString>("base", "text", "behind");
    BVUnitValidator validator;
    validator.setBaseUnit(base);
    for (int size = 0; size <= text.size(); ++size) {
        const QString typed = text.left(size) + behind;
        QVERIFY2(validator.validate(typed) != Invalid, qUtf8Printable(typed));
    }
    QCOMPARE(validator.validate(text + behind), Acceptable);
}

void tst_BVUnitValidator::copiesAtOnce()
{
    BVUnitValidator source(-1.0, 2.0, 4);
    source.setNotation(QDoubleValidator::StandardNotation);
    source.setAcceptEmpty(true);
    source.setBaseUnit(QStringLiteral("mm"));
    BVUnitValidator copy;
    QSignalSpy changed(&copy, &QValidator::changed);
    copy.copyFrom(source);
    copy.copyFrom(source);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(copy.bottom(), -1.0);
    QCOMPARE(copy.top(), 2.0);
    QCOMPARE(copy.decimals(), 4);
    QCOMPARE(copy.notation(), QDoubleValidator::StandardNotation);
    QVERIFY(copy.acceptEmpty());
    QCOMPARE(copy.baseUnit(), QStringLiteral("mm"));
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
