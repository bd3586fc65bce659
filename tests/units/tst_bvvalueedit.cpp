// SPDX-License-Identifier: MIT
#include "foundation/BVWidgetStatusHandler.h"
#include "units/BVUnitValidator.h"
#include "units/BVValueEdit.h"
#include "units/UnitsConfiguration.h"

#include "TestSupport.h"

#include <QDialog>
#include <QGroupBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <limits>

using S = BVWidgetStatus;

namespace {

/// An edit in a window of its own, with a second field to go to.
struct Form
{
    Form()
    {
        auto *layout = new QVBoxLayout(&m_window);
        m_edit = new BVValueEdit;
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
    void returnOnce_data();
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
    QTest::addColumn<QString>("unit");   // value unit
    QTest::addColumn<QString>("choice"); // for lengths
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("taken");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");

    const QLocale english(QLocale::English);
    const QLocale german(QLocale::German);
    QTest::newRow("mm into inch") << "inch"
                                  << "inch" << english << "25.4mm" << true << 1.0 << "1.000 inch";
    QTest::newRow("inch shown in mm") << "inch"
                                      << "mm" << english << "25.4mm" << true << 1.0 << "25.40 mm";
    QTest::newRow("no unit means the shown one") << "inch"
                                                 << "mm" << english << "50.8" << true << 2.0 << "50.80 mm";
    QTest::newRow("name of a unit") << "mm"
                                    << "mm" << english << "2 inchlong" << true << 50.8 << "50.80 mm";
    QTest::newRow("fraction") << "mm"
                              << "mm" << english << "1/4" << true << 0.25 << "0.25 mm";
    QTest::newRow("decimal comma") << "mm"
                                   << "mm" << german << "1,5" << true << 1.5 << "1.50 mm";
    QTest::newRow("point in a comma locale") << "mm"
                                             << "mm" << german << "1.5" << true << 1.5 << "1.50 mm";
    QTest::newRow("other quantity") << "mm"
                                    << "mm" << english << "5kg" << false << 7.0 << "5kg";
    QTest::newRow("empty") << "mm"
                           << "mm" << english << "" << false << 7.0 << "";
    QTest::newRow("half a number") << "mm"
                                   << "mm" << english << "1e" << false << 7.0 << "1e";
    QTest::newRow("temperature") << "degC"
                                 << "mm" << english << "212degF" << true << 100.0 << QStringLiteral("100.00°C");
}

void tst_BVValueEdit::takeOver()
{
    QFETCH(QString, typed);
    QFETCH(bool, taken);
    QFETCH(QLocale, locale);
    QFETCH(QString, choice);
    QFETCH(QString, unit);

    QLocale::setDefault(locale);
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, choice);
    Form form;
    form.m_edit->setUnitString(unit);
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

void tst_BVValueEdit::returnOnce_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << "2mm" << int(Qt::Key_Return);
    QTest::newRow("Enter") << "2" << int(Qt::Key_Enter);
}

void tst_BVValueEdit::returnOnce()
{
    QFETCH(QString, typed);
    QFETCH(int, key);
    Form form;
    form.m_edit->setUnitString(QStringLiteral("mm"));
    QVERIFY(form.start());
    connect(form.m_edit, &QLineEdit::returnPressed, form.m_other, QOverload<>::of(&QWidget::setFocus));
    QSignalSpy changed(form.m_edit, &BVValueEdit::valueChanged);
    form.type(typed);
    QTest::keyClick(form.m_edit, static_cast<Qt::Key>(key));
    QVERIFY(form.m_other->hasFocus());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toDouble(), 2.0);
}

void tst_BVValueEdit::leaving()
{
    Form form;
    form.m_edit->setUnitString(QStringLiteral("mm"));
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
    form.type(QStringLiteral("5 kg"));
    form.m_other->setFocus();
    QCOMPARE(form.m_edit->text(), QStringLiteral("5 kg"));
    QCOMPARE(form.m_edit->value(), 3.0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(invalid.count(), 0);
}

void tst_BVValueEdit::keepsUntouchedDigits()
{
    Form form;
    form.m_edit->setUnitString(QStringLiteral("mm"));
    form.m_edit->setValue(1.23456789);
    QVERIFY(form.start());
    QCOMPARE(form.m_edit->text(), QStringLiteral("1.23 mm"));
    form.m_edit->setDirty();
    QTest::keyClick(form.m_edit, Qt::Key_Return);
    QCOMPARE(form.m_edit->value(), 1.23456789);
    QTest::keyClick(form.m_edit, Qt::Key_End);
    QTest::keyClicks(form.m_edit, QStringLiteral("m"));
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
    form.m_edit->setUnitString(QStringLiteral("mm"));
    form.m_edit->setAccessibleDescription(QStringLiteral("Length of the blank"));
    QVERIFY(form.start());
    form.type(QStringLiteral("5 kg"));
    QVERIFY(!form.m_edit->isNeedInputStatus()); // not while it is being typed
    QTest::keyClick(form.m_edit, Qt::Key_Return);
    QVERIFY(S::testStatusProperty(form.m_edit, S::NeedInput));
    QVERIFY(S::testStatusProperty(&group, S::NeedInput));
    QVERIFY(form.m_edit->accessibleDescription().contains(QLatin1String("kg")));
    form.type(QStringLiteral("5"));
    QVERIFY(!S::testStatus(form.m_edit, S::NeedInput)); // mended, before it is taken over
    QVERIFY(!S::testStatusProperty(&group, S::NeedInput));
    QCOMPARE(form.m_edit->accessibleDescription(), QStringLiteral("Length of the blank"));
}

void tst_BVValueEdit::problems_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("problem");

    QTest::newRow("empty") << "mm"
                           << ""
                           << "A value is needed here.";
    QTest::newRow("word") << "mm"
                          << "abc"
                          << "is not a number";
    QTest::newRow("group separator") << "mm"
                                     << "1,500"
                                     << "is not a number";
    QTest::newRow("unit alone") << "mm"
                                << "mm"
                                << "is not a number";
    QTest::newRow("no unit") << "mm"
                             << "3 qq"
                             << "\"qq\" is not a unit.";
    QTest::newRow("other quantity") << "mm"
                                    << "3 kg"
                                    << "\"kg\" does not convert into \"mm\".";
    QTest::newRow("unit where none belongs") << ""
                                             << "3 mm"
                                             << "This value has no unit";
    QTest::newRow("too small") << "mm"
                               << "-1"
                               << "at least 0 mm";
    QTest::newRow("too large") << "mm"
                               << "2 m"
                               << "at most 1000.00 mm";
}

void tst_BVValueEdit::problems()
{
    QFETCH(QString, unit);
    QFETCH(QString, text);
    QFETCH(QString, problem);
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
    edit.setMaximum(std::numeric_limits<double>::quiet_NaN());
    edit.setMaximum(8.0);
    QCOMPARE(maximum.count(), 2);
}

void tst_BVValueEdit::rangeInDisplayUnit()
{
    Form form;
    form.m_edit->setUnitString(QStringLiteral("inch")); // shown in mm
    form.m_edit->setRange(0.0, 10.0);
    QVERIFY(form.start());
    form.type(QStringLiteral("254"));
    QTest::keyClick(form.m_edit, Qt::Key_Return);
    QCOMPARE(form.m_edit->value(), 10.0);
    form.type(QStringLiteral("255"));
    QTest::keyClick(form.m_edit, Qt::Key_Return);
    QVERIFY(form.m_edit->isNeedInputStatus());
    QVERIFY(form.m_edit->toolTipText().contains(QLatin1String("at most 254.00 mm")));
}

void tst_BVValueEdit::unitChoice()
{
    BVValueEdit edit;
    edit.setUnitString(QStringLiteral("mm"));
    edit.setValue(25.4);
    BVValueEdit pinned;
    pinned.setUnitString(QStringLiteral("mm"));
    pinned.setDisplayUnitTag(UnitConverter::Unit_m);
    pinned.setValue(25.4);
    BVValueEdit foreign; // in a unit of no quantity
    foreign.setUnitTag(UnitConverter::Unit_in);
    foreign.setValue(1.0);
    QSignalSpy units(&edit, &BVValueEdit::displayUnitChanged);
    QSignalSpy values(&edit, &BVValueEdit::valueChanged);
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, QStringLiteral("inch"));
    QCOMPARE(edit.text(), QStringLiteral("1.000 inch"));
    QCOMPARE(pinned.text(), QStringLiteral("0.02540 m"));
    QCOMPARE(foreign.text(), QStringLiteral("1.000 in"));
    QCOMPARE(units.count(), 1);
    QCOMPARE(units.first().first().toString(), QStringLiteral("inch"));
    QCOMPARE(values.count(), 0);
    pinned.setDisplayUnitTag(UnitConverter::Unit_None);
    QCOMPARE(pinned.text(), QStringLiteral("1.000 inch"));
}

void tst_BVValueEdit::units()
{
    BVValueEdit edit;
    QSignalSpy changed(&edit, &BVValueEdit::valueUnitChanged);
    edit.setUnitTag(UnitConverter::Unit_kN);
    QCOMPARE(edit.unitString(), QStringLiteral("kN"));
    edit.setUnitString(QStringLiteral("furlong"));
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
    QVERIFY(!edit.setValue(1.0, QStringLiteral("mm")));
    QCOMPARE(edit.value(), 0.5);
}

void tst_BVValueEdit::values()
{
    BVValueEdit edit;
    edit.setUnitString(QStringLiteral("inch")); // shown in mm
    edit.setDisplayValue(25.4);
    QCOMPARE(edit.value(), 1.0);
    QCOMPARE(edit.getDisplayValue(), 25.4); // with the unit behind it
    edit.setText(QStringLiteral("3"));
    QCOMPARE(edit.getDisplayValue(), 3.0);
    QSignalSpy changed(&edit, &BVValueEdit::valueChanged);
    edit.setValue(std::numeric_limits<double>::quiet_NaN());
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
    Form form;
    form.m_edit->setToolTip(QStringLiteral("Length of the blank"));
    form.m_edit->setUnitString(QStringLiteral("mm"));
    form.m_edit->setValue(25.4);
    form.m_edit->setProperty("ReferenceValue", 12.5);
    QVERIFY(form.start());
    QHelpEvent help(QEvent::ToolTip, QPoint(1, 1), form.m_edit->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(form.m_edit, &help);
    QCOMPARE(QToolTip::text(), QStringLiteral("Length of the blank\n25.40 mm\n= 0.0254 m\n= 1 inch\nReference value: 12.50 mm"));
    QToolTip::hideText();
}

void tst_BVValueEdit::plainToolTip()
{
    BVValueEdit edit;
    edit.setText(QStringLiteral("<b>5"));
    QVERIFY(!edit.toolTipText().contains(QLatin1String("<b>"))); // typed text is no mark-up
    edit.setValue(5e-10);
    QVERIFY(edit.toolTipText().contains(QLatin1String("5e-10")));
}

void tst_BVValueEdit::anyTextCanBeTyped_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<double>("value"); // NaN for one that is not taken

    const double none = std::numeric_limits<double>::quiet_NaN();
    const QLocale english(QLocale::English);
    const QLocale german(QLocale::German);
    QTest::newRow("below the range") << "mm" << 0.0 << "-3" << english << none;
    QTest::newRow("below the range, unit") << "degC" << 0.0 << "100K" << english << none;
    QTest::newRow("sign in the display unit") << "K" << 0.0 << "-20" << english << 253.15;
    QTest::newRow("unit on the way") << "degC" << 0.0 << "68degF" << english << 20.0;
    QTest::newRow("group separator") << "mm" << 0.0 << "1,500" << english << none;
    QTest::newRow("group separator, comma locale") << "mm" << 0.0 << "1.500,5" << german << none;
    QTest::newRow("rubbish behind the unit") << "mm" << 0.0 << "5 mm abs" << english << none;
    QTest::newRow("word") << "mm" << 0.0 << "abc" << english << none;
}

void tst_BVValueEdit::anyTextCanBeTyped()
{
    QFETCH(QString, unit);
    QFETCH(double, minimum);
    QFETCH(QString, typed);
    QFETCH(QLocale, locale);
    QFETCH(double, value);

    QLocale::setDefault(locale);
    Form form;
    form.m_edit->setUnitString(unit);
    form.m_edit->setRange(minimum, 1e6);
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
    Form form;
    form.m_edit->setUnitString(QStringLiteral("inch")); // shown in mm
    form.m_edit->setRange(0.0, 10.0);
    form.m_edit->getFormatter()->setSuffix(QStringLiteral(" each"));
    form.m_edit->setValue(1.0);
    QCOMPARE(form.m_edit->text(), QStringLiteral("25.40 mm each"));
    QVERIFY(form.start());
    form.type(QStringLiteral("50.8 each"));
    QTest::keyClick(form.m_edit, Qt::Key_Return);
    QCOMPARE(form.m_edit->value(), 2.0);
    QVERIFY(!form.m_edit->isNeedInputStatus());
}

void tst_BVValueEdit::noValue()
{
    Form form;
    form.m_edit->setUnitString(QStringLiteral("mm"));
    form.m_edit->getFormatter()->setEmpty(true);
    QVERIFY(form.m_edit->isNeedInputStatus());
    QCOMPARE(form.m_edit->toolTipText(), QStringLiteral("A value is needed here."));
    QVERIFY(form.start());
    form.type(QStringLiteral("5"));
    QTest::keyClick(form.m_edit, Qt::Key_Return);
    QCOMPARE(form.m_edit->text(), QStringLiteral("5.00 mm"));
    QVERIFY(!form.m_edit->isNeedInputStatus());
}

void tst_BVValueEdit::completer()
{
    Form form;
    form.m_edit->setUnitString(QStringLiteral("mm"));
    QVERIFY(form.start());
    form.m_edit->setValue(1.0);
    form.m_edit->setText(QStringLiteral("abc"));
    QVERIFY(form.m_edit->isNeedInputStatus());
    form.m_edit->setText(QStringLiteral("30 mm")); // as a completer's choice
    QVERIFY(!form.m_edit->isNeedInputStatus());
    form.m_other->setFocus();
    QCOMPARE(form.m_edit->value(), 30.0);
}

void tst_BVValueEdit::dialogStaysOpen()
{
    QDialog dialog;
    auto *layout = new QVBoxLayout(&dialog);
    auto *edit = new BVValueEdit;
    auto *button = new QPushButton(QStringLiteral("OK"));
    layout->addWidget(edit);
    layout->addWidget(button);
    button->setDefault(true);
    edit->setUnitString(QStringLiteral("mm"));
    connect(button, &QPushButton::clicked, &dialog, &QDialog::accept);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("5 kg"));
    QTest::keyClick(edit, Qt::Key_Return);
    QVERIFY(dialog.isVisible());
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("5"));
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
        form.type(QStringLiteral("5"));
        QTest::keyClick(edit.data(), static_cast<Qt::Key>(key));
        QVERIFY(!edit);
    }
}

void tst_BVValueEdit::announcedOrder()
{
    BVValueEdit edit;
    edit.setUnitString(QStringLiteral("mm"));
    edit.setMaximum(10.0);
    QStringList log;
    connect(&edit, &BVValueEdit::valueInvalid, this, [&] { log << QStringLiteral("invalid %1 %2").arg(edit.isNeedInputStatus()).arg(edit.text()); });
    connect(&edit, &BVValueEdit::displayUnitChanged, this, [&](const QString &unit) { log << unit + edit.text(); });
    edit.setValue(50.0);
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, QStringLiteral("m"));
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
        QCOMPARE(ordered.text(), QStringLiteral("1.235 mm"));
    }
    BVValueEdit edit;
    edit.setProperty("value", 1234.5678);
    edit.setProperty("decimals", 4);
    edit.setProperty("unit", QVariant::fromValue(UnitConverter::Unit_MPa));
    edit.setProperty("maximum", 2000.0);
    QCOMPARE(edit.text(), QStringLiteral("1234.5678 MPa"));
    edit.setUnitTag(static_cast<UnitConverter::Unit>(999));
    QCOMPARE(edit.unitTag(), UnitConverter::Unit_MPa);
    QCOMPARE(edit.property("unitString").toString(), QStringLiteral("MPa"));
    edit.setProperty("scientificNotation", true);
    QCOMPARE(edit.text(), QStringLiteral("1.2346E+03 MPa"));
    QVERIFY(!edit.isNeedInputStatus());
    QCOMPARE(edit.focusPolicy(), Qt::StrongFocus);
}

QTEST_MAIN(tst_BVValueEdit)

#include "tst_bvvalueedit.moc"
