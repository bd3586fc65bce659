// SPDX-License-Identifier: MIT
#include "foundation/BVWidgetStatusHandler.h"
#include "units/BVUnitValidator.h"
#include "units/BVValueEdit.h"
#include "units/UnitsConfiguration.h"

#include "TestRows.h"
#include "TestSupport.h"

#include <QDialog>
#include <QGroupBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

using S = BVWidgetStatus;

namespace {

/// An edit in a window of its own, with a second field to go to.
struct Form
{
    explicit Form(const QString &unit = QString())
    {
        auto *layout = new QVBoxLayout(&m_window);
        m_edit = new BVValueEdit;
        m_edit->setUnitString(unit);
        m_other = new QLineEdit;
        layout->addWidget(m_edit);
        layout->addWidget(m_other);
        m_window.show();
    }

    bool start()
    {
        m_edit->setFocus();
        return QTest::qWaitForWindowActive(&m_window) && m_edit->hasFocus();
    }

    void type(const QString &text)
    {
        m_edit->selectAll();
        QTest::keyClicks(m_edit, text);
    }

    void enter(const QString &text)
    {
        type(text);
        QTest::keyClick(m_edit, Qt::Key_Return);
    }

    QWidget m_window;
    BVValueEdit *m_edit;
    QLineEdit *m_other;
};

} // namespace

class tst_BVValueEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void cleanup();
    void takeOver_data();
    void takeOver();
    void returnOnce();
    void leaving();
    void keepsUntouchedDigits();
    void needInput();
    void problems_data();
    void problems();
    void range();
    void rangeInDisplayUnit();
    void unitChoice();
    void units();
    void values();
    void preselect();
    void toolTip();
    void plainToolTip();
    void anyTextCanBeTyped_data();
    void anyTextCanBeTyped();
    void suffix();
    void noValue();
    void completer();
    void dialogStaysOpen();
    void deletedBySlot();
    void announcedOrder();
    void properties();
};

void tst_BVValueEdit::cleanup()
{
    UnitsConfiguration::instance().setDefaultValues();
    QLocale::setDefault(QLocale::c());
}

void tst_BVValueEdit::takeOver_data()
{
    const Table<QString, QString, QLocale, QString, bool, double, QString> row("unit", "choice", "locale", "typed", "taken", "value",
                                                                               "text"); // value unit; for lengths
    const QLocale english(QLocale::English);
    const QLocale german(QLocale::German);
    row("mm into inch", "inch", "inch", english, "25.4mm", true, 1.0, "1.000 inch");
    row("inch shown in mm", "inch", "mm", english, "25.4mm", true, 1.0, "25.40 mm");
    row("no unit means the shown one", "inch", "mm", english, "50.8", true, 2.0, "50.80 mm");
    row("name of a unit", "mm", "mm", english, "2 inchlong", true, 50.8, "50.80 mm");
    row("point in a comma locale", "mm", "mm", german, "1.5", true, 1.5, "1.50 mm");
    row("other quantity", "mm", "mm", english, "5kg", false, 7.0, "5kg");
    row("empty", "mm", "mm", english, "", false, 7.0, "");
    row("half a number", "mm", "mm", english, "1e", false, 7.0, "1e");
    row("temperature", "degC", "mm", english, "212degF", true, 100.0, "100.00°C");
}

void tst_BVValueEdit::takeOver()
{
    auto [typed, taken, locale, choice, unit] = fetched<QString, bool, QLocale, QString, QString>("typed", "taken", "locale", "choice", "unit");
    QLocale::setDefault(locale);
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, choice);
    Form form(unit);
    form.m_edit->setValue(7.0);
    QVERIFY(form.start());
    QSignalSpy changed(form.m_edit, &BVValueEdit::valueChanged);
    QSignalSpy invalid(form.m_edit, &BVValueEdit::valueInvalid);
    form.type(typed);
    if (typed.isEmpty())
        QTest::keyClick(form.m_edit, Qt::Key_Delete);
    QTest::keyClick(form.m_edit, Qt::Key_Return);
    QCOMPARE(changed.count(), taken ? 1 : 0);
    QCOMPARE(invalid.count(), 0);
    QVERIFY(form.m_edit->isNeedInputStatus() != taken);
    QFETCH(double, value);
    QVERIFY(qAbs(form.m_edit->value() - value) < 1e-12);
    QTEST(form.m_edit->text(), "text");
    QCOMPARE(form.m_edit->hasSelectedText(), !form.m_edit->text().isEmpty());
}

void tst_BVValueEdit::returnOnce()
{
    Form form("mm");
    QVERIFY(form.start());
    connect(form.m_edit, &QLineEdit::returnPressed, form.m_other, QOverload<>::of(&QWidget::setFocus));
    QSignalSpy changed(form.m_edit, &BVValueEdit::valueChanged);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        form.m_edit->setFocus();
        form.type(key == Qt::Key_Return ? "2mm" : "3");
        QTest::keyClick(form.m_edit, key);
        QVERIFY(form.m_other->hasFocus());
    }
    QCOMPARE(changed, (QList<QVariantList>{{2.0}, {3.0}}));
}

void tst_BVValueEdit::leaving()
{
    Form form("mm");
    QVERIFY(form.start());
    QSignalSpy changed(form.m_edit, &BVValueEdit::valueChanged);
    QSignalSpy invalid(form.m_edit, &BVValueEdit::valueInvalid);
    form.m_other->setFocus();
    QCOMPARE(changed.count(), 1); // a new edit is dirty

    form.m_edit->setValue(3.0);
    changed.clear();
    form.m_edit->setFocus();
    form.m_other->setFocus();
    QCOMPARE(changed.count(), 0);

    form.m_edit->setDirty();
    form.m_edit->setFocus();
    form.m_other->setFocus();
    QCOMPARE(changed.count(), 1);

    form.m_edit->setFocus();
    form.type("5 kg");
    form.m_other->setFocus();
    QCOMPARE(form.m_edit->text(), "5 kg");
    QCOMPARE(form.m_edit->value(), 3.0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(invalid.count(), 0);
}

void tst_BVValueEdit::keepsUntouchedDigits()
{
    Form form("mm");
    form.m_edit->setValue(1.23456789);
    QVERIFY(form.start());
    QCOMPARE(form.m_edit->text(), "1.23 mm");
    form.m_edit->setDirty();
    QTest::keyClick(form.m_edit, Qt::Key_Return);
    QCOMPARE(form.m_edit->value(), 1.23456789);
    QTest::keyClick(form.m_edit, Qt::Key_End);
    QTest::keyClicks(form.m_edit, "m");
    QTest::keyClick(form.m_edit, Qt::Key_Backspace);
    QTest::keyClick(form.m_edit, Qt::Key_Return);
    QCOMPARE(form.m_edit->value(), 1.23456789);
}

void tst_BVValueEdit::needInput()
{
    Form form;
    QGroupBox group;
    auto *handler = new BVWidgetStatusHandler(&group);
    handler->attach(form.m_edit);
    form.m_edit->setUnitString("mm");
    form.m_edit->setAccessibleDescription("Length of the blank");
    QVERIFY(form.start());
    form.type("5 kg");
    QVERIFY(!form.m_edit->isNeedInputStatus()); // not while it is being typed
    QTest::keyClick(form.m_edit, Qt::Key_Return);
    QVERIFY(S::testStatusProperty(form.m_edit, S::NeedInput));
    QVERIFY(S::testStatusProperty(&group, S::NeedInput));
    QVERIFY(form.m_edit->accessibleDescription().contains(QLatin1String("kg")));
    form.type("5");
    QVERIFY(!S::testStatus(form.m_edit, S::NeedInput)); // mended, before it is taken over
    QVERIFY(!S::testStatusProperty(&group, S::NeedInput));
    QCOMPARE(form.m_edit->accessibleDescription(), "Length of the blank");
}

void tst_BVValueEdit::problems_data()
{
    const Table<QString, QString, QString> row("unit", "text", "problem");
    row("empty", "mm", "", "A value is needed here.");
    row("word", "mm", "abc", "is not a number");
    row("group separator", "mm", "1,500", "is not a number");
    row("unit alone", "mm", "mm", "is not a number");
    row("no unit", "mm", "3 qq", "\"qq\" is not a unit.");
    row("other quantity", "mm", "3 kg", "\"kg\" does not convert into \"mm\".");
    row("unit where none belongs", "", "3 mm", "This value has no unit");
    row("too small", "mm", "-1", "at least 0 mm");
    row("too large", "mm", "2 m", "at most 1000.00 mm");
}

void tst_BVValueEdit::problems()
{
    auto [unit, text, problem] = fetched<QString, QString, QString>("unit", "text", "problem");
    QLocale::setDefault(QLocale(QLocale::English));
    BVValueEdit edit;
    edit.setUnitString(unit);
    edit.setRange(0.0, 1000.0);
    edit.setText(text);
    edit.setModified(true);
    edit.storeValue();
    QVERIFY(edit.isNeedInputStatus());
    QVERIFY2(edit.accessibleDescription().contains(problem), qPrintable(edit.accessibleDescription()));
    QVERIFY(edit.toolTipText().contains(problem));
}

void tst_BVValueEdit::range()
{
    BVValueEdit edit;
    QSignalSpy minimum(&edit, &BVValueEdit::minChanged);
    QSignalSpy maximum(&edit, &BVValueEdit::maxChanged);
    edit.setValue(5.0);
    edit.setMaximum(4.0);
    QVERIFY(edit.isNeedInputStatus());
    QCOMPARE(edit.value(), 5.0);
    QSignalSpy changed(&edit, &BVValueEdit::valueChanged);
    QSignalSpy invalid(&edit, &BVValueEdit::valueInvalid);
    edit.setValue(6.0);
    QCOMPARE(invalid.count(), 1);
    QCOMPARE(changed.count(), 0);
    edit.setMinimum(8.0); // takes the maximum along
    QCOMPARE(edit.maximum(), 8.0);
    QCOMPARE(minimum.count(), 1);
    QCOMPARE(maximum.count(), 2);
    edit.setMaximum(s_nan);
    edit.setMaximum(8.0);
    QCOMPARE(maximum.count(), 2);
}

void tst_BVValueEdit::rangeInDisplayUnit()
{
    Form form("inch"); // shown in mm
    form.m_edit->setRange(0.0, 10.0);
    QVERIFY(form.start());
    form.enter("254");
    QCOMPARE(form.m_edit->value(), 10.0);
    form.enter("255");
    QVERIFY(form.m_edit->isNeedInputStatus());
    QVERIFY(form.m_edit->toolTipText().contains(QLatin1String("at most 254.00 mm")));
}

void tst_BVValueEdit::unitChoice()
{
    BVValueEdit edit;
    edit.setUnitString("mm");
    edit.setValue(25.4);
    BVValueEdit pinned;
    pinned.setUnitString("mm");
    pinned.setDisplayUnitTag(UnitConverter::Unit_m);
    pinned.setValue(25.4);
    BVValueEdit foreign; // in a unit of no quantity
    foreign.setUnitTag(UnitConverter::Unit_in);
    foreign.setValue(1.0);
    QSignalSpy units(&edit, &BVValueEdit::displayUnitChanged);
    QSignalSpy values(&edit, &BVValueEdit::valueChanged);
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, "inch");
    QCOMPARE(edit.text(), "1.000 inch");
    QCOMPARE(pinned.text(), "0.02540 m");
    QCOMPARE(foreign.text(), "1.000 in");
    QCOMPARE(units.count(), 1);
    QCOMPARE(units.first().first().toString(), "inch");
    QCOMPARE(values.count(), 0);
    pinned.setDisplayUnitTag(UnitConverter::Unit_None);
    QCOMPARE(pinned.text(), "1.000 inch");
}

void tst_BVValueEdit::units()
{
    BVValueEdit edit;
    QSignalSpy changed(&edit, &BVValueEdit::valueUnitChanged);
    edit.setUnitTag(UnitConverter::Unit_kN);
    QCOMPARE(edit.unitString(), "kN");
    edit.setUnitString("furlong");
    QCOMPARE(edit.getValueUnitTag(), UnitConverter::Unit_kN);
    QCOMPARE(changed.count(), 1);

    bool ok = false;
    edit.setValue(2.0);
    QCOMPARE(edit.value(UnitConverter::Unit_N, &ok), 2000.0);
    QVERIFY(ok);
    edit.value(UnitConverter::Unit_mm, &ok);
    QVERIFY(!ok);
    QCOMPARE(edit.value(QString(), &ok), 2.0);
    QVERIFY(ok);
    QVERIFY(edit.setValue(500.0, UnitConverter::Unit_N));
    QCOMPARE(edit.value(), 0.5);
    QVERIFY(!edit.setValue(1.0, "mm"));
    QCOMPARE(edit.value(), 0.5);
}

void tst_BVValueEdit::values()
{
    BVValueEdit edit;
    edit.setUnitString("inch"); // shown in mm
    edit.setDisplayValue(25.4);
    QCOMPARE(edit.value(), 1.0);
    QCOMPARE(edit.getDisplayValue(), 25.4); // with the unit behind it
    edit.setText("3");
    QCOMPARE(edit.getDisplayValue(), 3.0);
    QSignalSpy changed(&edit, &BVValueEdit::valueChanged);
    edit.setValue(s_nan);
    QCOMPARE(edit.value(), 1.0);
    QCOMPARE(changed.count(), 0);
}

void tst_BVValueEdit::preselect()
{
    Form form;
    form.m_edit->setValue(5.0);
    QVERIFY(form.start());
    form.m_edit->deselect();
    QTest::mouseClick(form.m_edit, Qt::LeftButton);
    QVERIFY(!form.m_edit->hasSelectedText());
    form.m_edit->setPreselect(true);
    QTest::mouseClick(form.m_edit, Qt::LeftButton);
    QCOMPARE(form.m_edit->selectedText(), form.m_edit->text());
    form.m_edit->deselect();
    form.m_edit->setDirty();
    form.m_edit->storeValue();
    QCOMPARE(form.m_edit->selectedText(), form.m_edit->text());
}

void tst_BVValueEdit::toolTip()
{
    Form form("mm");
    form.m_edit->setToolTip("Length of the blank");
    form.m_edit->setValue(25.4);
    form.m_edit->setProperty("ReferenceValue", 12.5);
    QVERIFY(form.start());
    QHelpEvent help(QEvent::ToolTip, QPoint(1, 1), form.m_edit->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(form.m_edit, &help);
    QCOMPARE(QToolTip::text(), "Length of the blank\n25.40 mm\n= 0.0254 m\n= 1 inch\nReference value: 12.50 mm");
    QToolTip::hideText();
}

void tst_BVValueEdit::plainToolTip()
{
    BVValueEdit edit;
    edit.setText("<b>5");
    QVERIFY(!edit.toolTipText().contains(QLatin1String("<b>"))); // typed text is no mark-up
    edit.setValue(5e-10);
    QVERIFY(edit.toolTipText().contains(QLatin1String("5e-10")));
}

void tst_BVValueEdit::anyTextCanBeTyped_data()
{
    const Table<QString, QString, QLocale, double> row("unit", "typed", "locale", "value"); // NaN for one that is not taken
    const QLocale english(QLocale::English);
    const QLocale german(QLocale::German);
    row("below the range", "mm", "-3", english, s_nan);
    row("sign in the display unit", "K", "-20", english, 253.15);
    row("unit on the way", "degC", "68degF", english, 20.0);
    row("group separator, comma locale", "mm", "1.500,5", german, s_nan);
    row("rubbish behind the unit", "mm", "5 mm abs", english, s_nan);
}

void tst_BVValueEdit::anyTextCanBeTyped()
{
    auto [unit, typed, locale, value] = fetched<QString, QString, QLocale, double>("unit", "typed", "locale", "value");
    QLocale::setDefault(locale);
    Form form(unit);
    form.m_edit->setRange(0.0, 1e6);
    form.m_edit->setValue(300.0);
    QVERIFY(form.start());
    form.type(typed);
    QCOMPARE(form.m_edit->text(), typed);
    QTest::keyClick(form.m_edit, Qt::Key_Return);
    QCOMPARE(form.m_edit->isNeedInputStatus(), qIsNaN(value));
    const double expected = qIsNaN(value) ? 300.0 : value;
    QVERIFY2(qAbs(form.m_edit->value() - expected) < 1e-9, qPrintable(QString::number(form.m_edit->value())));
}

void tst_BVValueEdit::suffix()
{
    Form form("inch"); // shown in mm
    form.m_edit->setRange(0.0, 10.0);
    form.m_edit->getFormatter()->setSuffix(" each");
    form.m_edit->setValue(1.0);
    QCOMPARE(form.m_edit->text(), "25.40 mm each");
    QVERIFY(form.start());
    form.enter("50.8 each");
    QCOMPARE(form.m_edit->value(), 2.0);
    QVERIFY(!form.m_edit->isNeedInputStatus());
}

void tst_BVValueEdit::noValue()
{
    Form form("mm");
    form.m_edit->getFormatter()->setEmpty(true);
    QVERIFY(form.m_edit->isNeedInputStatus());
    QCOMPARE(form.m_edit->toolTipText(), "A value is needed here.");
    QVERIFY(form.start());
    form.enter("5");
    QCOMPARE(form.m_edit->text(), "5.00 mm");
    QVERIFY(!form.m_edit->isNeedInputStatus());
}

void tst_BVValueEdit::completer()
{
    Form form("mm");
    QVERIFY(form.start());
    form.m_edit->setValue(1.0);
    form.m_edit->setText("abc");
    QVERIFY(form.m_edit->isNeedInputStatus());
    form.m_edit->setText("30 mm"); // as a completer's choice
    QVERIFY(!form.m_edit->isNeedInputStatus());
    form.m_other->setFocus();
    QCOMPARE(form.m_edit->value(), 30.0);
}

void tst_BVValueEdit::dialogStaysOpen()
{
    QDialog dialog;
    auto *layout = new QVBoxLayout(&dialog);
    auto *edit = new BVValueEdit;
    auto *button = new QPushButton("OK");
    layout->addWidget(edit);
    layout->addWidget(button);
    button->setDefault(true);
    edit->setUnitString("mm");
    connect(button, &QPushButton::clicked, &dialog, &QDialog::accept);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, "5 kg");
    QTest::keyClick(edit, Qt::Key_Return);
    QVERIFY(dialog.isVisible());
    edit->selectAll();
    QTest::keyClicks(edit, "5");
    QTest::keyClick(edit, Qt::Key_Return);
    QVERIFY(!dialog.isVisible());
}

void tst_BVValueEdit::deletedBySlot()
{
    for (const int key : {int(Qt::Key_Return), int(Qt::Key_Tab)}) {
        Form form;
        QPointer<BVValueEdit> edit = form.m_edit;
        edit->setPreselect(true);
        QVERIFY(form.start());
        connect(edit, &BVValueEdit::valueChanged, &form.m_window, [edit] { delete edit.data(); });
        form.type("5");
        QTest::keyClick(edit.data(), static_cast<Qt::Key>(key));
        QVERIFY(!edit);
    }
}

void tst_BVValueEdit::announcedOrder()
{
    BVValueEdit edit;
    edit.setUnitString("mm");
    edit.setMaximum(10.0);
    QStringList log;
    connect(&edit, &BVValueEdit::valueInvalid, this, [&] { log << QString("invalid %1 %2").arg(edit.isNeedInputStatus()).arg(edit.text()); });
    connect(&edit, &BVValueEdit::displayUnitChanged, this, [&](const QString &unit) { log << unit + edit.text(); });
    edit.setValue(50.0);
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, "m");
    QCOMPARE(log, (QStringList{"invalid 1 50.00 mm", "m0.05000 m"}));
}

void tst_BVValueEdit::properties()
{
    // As a form editor sets them, in any order; 3 are the decimals of a value without unit.
    for (const bool decimalsFirst : {true, false}) {
        BVValueEdit ordered;
        if (decimalsFirst)
            ordered.setProperty("decimals", 3);
        ordered.setProperty("unit", QVariant::fromValue(UnitConverter::Unit_mm));
        if (!decimalsFirst)
            ordered.setProperty("decimals", 3);
        ordered.setProperty("value", 1.2345);
        QCOMPARE(ordered.text(), "1.235 mm");
    }
    BVValueEdit edit;
    edit.setProperty("value", 1234.5678);
    edit.setProperty("decimals", 4);
    edit.setProperty("unit", QVariant::fromValue(UnitConverter::Unit_MPa));
    edit.setProperty("maximum", 2000.0);
    QCOMPARE(edit.text(), "1234.5678 MPa");
    edit.setUnitTag(static_cast<UnitConverter::Unit>(999));
    QCOMPARE(edit.unitTag(), UnitConverter::Unit_MPa);
    QCOMPARE(edit.property("unitString").toString(), "MPa");
    edit.setProperty("scientificNotation", true);
    QCOMPARE(edit.text(), "1.2346E+03 MPa");
    QVERIFY(!edit.isNeedInputStatus());
    QCOMPARE(edit.focusPolicy(), Qt::StrongFocus);
}

QTEST_MAIN(tst_BVValueEdit)

#include "tst_bvvalueedit.moc"
