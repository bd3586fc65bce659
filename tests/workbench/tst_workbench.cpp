// SPDX-License-Identifier: MIT
#include "FieldEditor.h"
#include "FieldGroup.h"
#include "PreferencesDialog.h"
#include "SetupFields.h"
#include "SetupFile.h"
#include "SetupStack.h"
#include "StatusSummary.h"
#include "TestSupport.h"
#include "WorkbenchSettings.h"
#include "WorkbenchWindow.h"

#include <BVCheckBox.h>
#include <BVComboBox.h>
#include <BVSlider.h>
#include <BVValueEdit.h>
#include <ConfigurationManager.h>

#include <QContextMenuEvent>
#include <QFile>
#include <QGroupBox>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <array>
#include <cmath>
#include <tuple>

namespace {

const QString s_steel = QStringLiteral(":/Setups/square-cup-steel.xml");
const QString s_aluminium = QStringLiteral(":/Setups/square-cup-aluminium.xml");

int fieldIndex(const char *path)
{
    const QStringList keys = QString::fromLatin1(path).split(QLatin1Char('/'));
    return SetupFields::findField(SetupFields::findGroup(keys.value(0)), keys.value(1));
}

QString fileText(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void writeText(const QString &path, const QByteArray &text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

ProcessSetup readSetup(const QString &path)
{
    ProcessSetup setup;
    QString error;
    if (!SetupFile::read(path, setup, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return setup;
}

/// The main window with the steel set-up, shown and active.
class Bench
{
public:
    Bench()
    {
        m_window.openExample(s_steel);
        m_window.show();
        QVERIFY(QTest::qWaitForWindowActive(&m_window));
    }

    WorkbenchWindow *operator->() { return &m_window; }
    FieldEditor *field(const char *path) { return m_window.form()->editor(fieldIndex(path)); }
    /// Its page comes into sight.
    QWidget *edit(const char *path)
    {
        m_window.showPageOf(field(path)->edit());
        return field(path)->edit();
    }
    const BVWidgetInterface *status(const char *path) { return field(path)->status(); }
    BVSlider *slider(const char *path)
    {
        const QString key = QString::fromLatin1(path).section(QLatin1Char('/'), 1);
        edit(path);
        return m_window.findChild<BVSlider *>(key + QStringLiteral("Slider"));
    }
    double value(const char *path) { return m_window.form()->setup().number(fieldIndex(path)); }

    void begin(const char *path, const QString &text)
    {
        edit(path)->setFocus();
        field(path)->selectAll();
        QTest::keyClicks(edit(path), text);
    }

    void type(const char *path, const QString &text)
    {
        begin(path, text);
        QTest::keyClick(edit(path), Qt::Key_Return);
        QCoreApplication::processEvents();
    }

    /// The text of the message that is open, which is then closed.
    QString takeMessage()
    {
        auto *box = m_window.findChild<QMessageBox *>();
        if (!box)
            return QString();
        const QString text = box->informativeText();
        delete box;
        return text;
    }

private:
    WorkbenchWindow m_window;
};

/// Chooses the first entry of the widget's context menu; returns its text.
QString chooseFromContextMenu(QWidget *widget)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(2, 2));
    QCoreApplication::sendEvent(widget, &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        return QString();
    QAction *first = menu->actions().constFirst();
    const QString text = first->text();
    first->trigger();
    menu->close();
    QCoreApplication::processEvents();
    return text;
}

/// Presses a button of the next modal message box.
void answerNextQuestion(QMessageBox::StandardButton button)
{
    QTimer::singleShot(0, qApp, [button] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        box->button(button)->click();
    });
}

} // namespace

class tst_Workbench : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void readsExamples();
    void roundTripsToTheLastBit();
    void refusesFile();
    void refusesWholeFile();
    void convertsUnitsOnReading();

    void refusalLeavesDocumentAlone();
    void reshowsAllValuesInChosenUnits();
    void acceptsLimitsInAllUnits();
    void typedValueIsConvertedAndMarked();
    void unacceptableTextReachesFormAndGoes();
    void newSetupNeedsInput();
    void contextMenuBringsReferenceBack();
    void sliderFollowsTypedValue();
    void movedSliderSetsValue();
    void movedSliderIsReset();
    void limitsBindSliderOnly();
    void spinBoxSteps();
    void savingTakesOverAndMakesReference();
    void savingIsRefusedWhileInputIsNeeded();
    void failedSavingIsToldAndClosingAsks();
    void preferencesPersist();
    void foreignFontSizeIsDefault();

private:
    QTemporaryDir m_directory;
};

void tst_Workbench::initTestCase()
{
    muteOffscreenWarnings();
    QVERIFY(m_directory.isValid());
}

void tst_Workbench::init()
{
    QFile::remove(m_directory.filePath(QStringLiteral("workbench.ini")));
    Preferences::load(m_directory.filePath(QStringLiteral("workbench.ini")));
    Brimvale::ConfigurationManager::instance().setDefaultValues();
}

void tst_Workbench::readsExamples()
{
    const std::tuple<QString, double, double, double> rows[] = {
        {s_steel, 0.78, 206000.0, 40.0},
        {s_aluminium, 0.81, 71000.0, 20.0},
    };
    for (const auto &[file, thickness, youngsModulus, stroke] : rows) {
        const ProcessSetup setup = readSetup(file);
        const auto number = [&setup](const char *path) { return setup.number(fieldIndex(path)); };
        QCOMPARE(number("blank/thickness"), thickness);
        QCOMPARE(number("material/youngsModulus"), youngsModulus);
        QCOMPARE(number("press/stroke"), stroke);
        QCOMPARE(number("tools/gap"), (number("tools/dieOpening") - number("tools/punchWidth")) / 2.0);
        QCOMPARE(number("material/yieldStress"),
                 number("material/hardeningCoefficient") * std::pow(number("material/prestrain"), number("material/hardeningExponent")));
        QVERIFY(setup.source().contains(QStringLiteral("NUMISHEET '93")));
    }
}

void tst_Workbench::roundTripsToTheLastBit()
{
    ProcessSetup setup;
    setup.setTitle(QStringLiteral("  a < b & \"c\"\n\u00e9\U0001f527\x01 "));
    for (int i = 0; i < SetupFields::count(); ++i) {
        const SetupField &field = SetupFields::field(i);
        const double inside = field.minimum + (field.maximum - field.minimum) / (3.0 + i);
        setup.setNumber(i, std::nextafter(inside, field.maximum));
        if (field.kind == SetupField::Text) {
            setup.setNumber(i, ProcessSetup::noValue());
            setup.setText(i, QStringLiteral("DC04 \u00b5 </name>"));
        }
    }
    const QString path = m_directory.filePath(QStringLiteral("round.xml"));
    QString error;
    QVERIFY2(SetupFile::write(path, setup, error), qPrintable(error));
    const ProcessSetup read = readSetup(path);
    QVERIFY(read == setup);
    QCOMPARE(read.title(), QStringLiteral("a < b & \"c\" \u00e9\U0001f527"));
}

void tst_Workbench::refusesFile()
{
    const QString path = m_directory.filePath(QStringLiteral("bad.xml"));
    // What is replaced by what, a text that stands in the line of the fault, and the reason.
    const std::array<QString, 5> rows[] = {
        {"end tag of another name", "</blank>", "</blanks>", "</blanks>", "not well-formed"},
        {"end tag missing", "</width>", "", "<width", "<width> holds an element"},
        {"bare ampersand", "Mild steel<", "A & B<", "A & B", "not well-formed"},
        {"text behind the root", "</processSetup>", "</processSetup>\nmore", "more", "not well-formed"},
        {"another root", "processSetup", "plan", "<plan", "begins with <plan>"},
        {"another version", "version=\"1\"", "version=\"2\"", "<processSetup", "version \"2\""},
        {"no version", " version=\"1\"", "", "<processSetup", "version \"\""},
        {"unknown group", "tools>", "dies>", "<dies>", "<dies> is not known"},
        {"unknown field", "gap", "slit", "<slit", "<slit> is not known in <tools>"},
        {"field of another group", "stroke", "gap", "<gap unit=\"mm\">40", "<gap> is not known in <press>"},
        {"unknown attribute", "<friction", "<friction kind=\"dry\"", "<friction", "attribute \"kind\""},
        {"unit where none belongs", "<friction", "<friction unit=\"mm\"", "<friction", "\"unit\""},
        {"unit missing", "<gap unit=\"mm\"", "<gap", "<gap", "no unit"},
        {"unit of another quantity", "<gap unit=\"mm\"", "<gap unit=\"kg\"", "<gap", "\"kg\" of <gap>"},
        {"no unit text", "<gap unit=\"mm\"", "<gap unit=\"mmm\"", "<gap", "\"mmm\" of <gap>"},
        {"no number", ">0.144<", ">slippery<", "slippery", "\"slippery\" in <friction>"},
        {"comma", ">0.144<", ">0,144<", "0,144", "not a number"},
        {"group separator", ">7800<", ">7,800<", "7,800", "not a number"},
        {"infinite", ">0.144<", ">inf<", "inf<", "not a number"},
        {"nan", ">0.144<", ">nan<", "nan", "not a number"},
        {"overflow", ">0.144<", ">1e999<", "1e999", "not a number"},
        {"too large", ">0.3<", ">0.51<", "0.51", "out of range: from 0 to 0.5."},
        {"too small", ">0.78<", ">0<", "thickness", "out of range: from 0.01 mm to 50 mm."},
        {"too large in its unit", "\"mm\">150</length", "\"m\">150</length", "length", "150 m in"},
        {"empty value", ">0.144<", "> <", "<friction", "<friction> has no value"},
        {"empty name", "Mild steel<", "<", "<name", "<name> has no value"},
        {"value missing", "<prestrain>0.007117</prestrain>", "", "</processSetup>", "<prestrain> is missing"},
        {"value twice", "<friction>", "<friction>0.1</friction>\n<friction>", "<friction>0.144", "twice"},
        {"group twice", "</tools>", "</tools>\n<tools/>", "<tools/>", "twice"},
        {"element in a value", ">0.144<", "><b>1</b><", "<friction", "holds an element"},
        {"text between elements", "</gap>", "</gap> mm", "<friction", "between the elements"},
    };
    for (const auto &[name, good, bad, line, reason] : rows) {
        QString text = fileText(s_steel);
        QVERIFY2(text.contains(good), qPrintable(name));
        text.replace(good, bad);
        const int position = text.indexOf(line);
        QVERIFY2(position >= 0, qPrintable(name));
        writeText(path, text.toUtf8());
        ProcessSetup setup;
        QString error;
        QVERIFY2(!SetupFile::read(path, setup, error), qPrintable(name));
        QVERIFY2(setup == ProcessSetup(), qPrintable(name));
        const int lineNumber = text.left(position).count(QLatin1Char('\n')) + 1;
        QVERIFY2(error.startsWith(QStringLiteral("bad.xml:%1: ").arg(lineNumber)), qPrintable(name + error));
        QVERIFY2(error.contains(reason), qPrintable(name + error));
    }
}

void tst_Workbench::refusesWholeFile()
{
    const std::tuple<const char *, QByteArray, QString> rows[] = {
        {"none.xml", QByteArray(), "none.xml: The file cannot be read"},
        {".", QByteArray(), "cannot be read"},
        {"f.xml", QByteArray(""), "f.xml:1: The file is not well-formed"},
        {"f.xml", QByteArray("\0\xff\x01", 3), "not well-formed"},
        {"f.xml", QByteArray(SetupFile::s_maximumSize + 1, ' '), "too large"},
        {"f.xml",
         QByteArray("<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\">"
                    "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
                    "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">"
                    "<!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\">]>"
                    "<processSetup version=\"1\"><title>&d;</title></processSetup>"),
         "not well-formed"},
    };
    for (const auto &[name, content, reason] : rows) {
        const QString path = m_directory.filePath(QString::fromLatin1(name));
        if (!content.isNull())
            writeText(path, content);
        ProcessSetup setup;
        QString error;
        QVERIFY2(!SetupFile::read(path, setup, error), qPrintable(reason));
        QVERIFY2(error.contains(reason), qPrintable(error));
    }
}

void tst_Workbench::convertsUnitsOnReading()
{
    const QString path = m_directory.filePath(QStringLiteral("units.xml"));
    writeText(path, fileText(s_steel)
                        .replace(QStringLiteral("\"mm\">0.78"), QStringLiteral("\"inch\">0.5"))
                        .replace(QStringLiteral("\"degC\">20"), QStringLiteral("\"degF\">212"))
                        .replace(QStringLiteral("\"kg/m^3\">7800"), QStringLiteral("\"t/m^3\">7.8"))
                        .toUtf8());
    const ProcessSetup setup = readSetup(path);
    QCOMPARE(setup.number(fieldIndex("blank/thickness")), 12.7);
    QCOMPARE(setup.number(fieldIndex("press/temperature")), 100.0);
    QCOMPARE(setup.number(fieldIndex("material/density")), 7800.0);
}

void tst_Workbench::refusalLeavesDocumentAlone()
{
    Bench bench;
    bench.type("tools/gap", QStringLiteral("3"));
    const ProcessSetup before = bench->form()->setup();
    const QString title = bench->windowTitle();
    const QString path = m_directory.filePath(QStringLiteral("half.xml"));
    writeText(path, fileText(s_aluminium).replace(QStringLiteral(">20<"), QStringLiteral(">x<")).toUtf8());

    QVERIFY(!bench->openFile(path));
    QVERIFY(bench.takeMessage().startsWith(QStringLiteral("half.xml:")));
    QVERIFY(bench->form()->setup() == before);
    QCOMPARE(bench->windowTitle(), title);
    QVERIFY(bench->isWindowModified());
    QVERIFY(bench.status("tools/gap")->isDifferentStatus());
}

void tst_Workbench::reshowsAllValuesInChosenUnits()
{
    Bench bench;
    const ProcessSetup before = bench->form()->setup();
    const std::tuple<UnitsConfiguration::Dimension, QString, QStringList> rows[] = {
        {UnitsConfiguration::Length, "inch", QStringList{"blank/length", "5.9055 inch", "tools/gap", "0.0787 inch", "press/stroke", "1.5748 inch"}},
        {UnitsConfiguration::Pressure, "psi", QStringList{"material/hardeningCoefficient", "81992.734 psi"}},
        {UnitsConfiguration::Force, "N", QStringList{"press/blankHolderForce", "19600 N"}},
        {UnitsConfiguration::Temperature, "degF", QStringList{"press/temperature", "68\u00b0F"}},
    };
    for (const auto &[dimension, unit, texts] : rows) {
        UnitsConfiguration::instance().setCurrentUnit(dimension, unit);
        for (int i = 0; i < texts.size(); i += 2)
            QCOMPARE(bench.field(texts[i].toLatin1())->text(), texts[i + 1]);
        bench->form()->takeOver();
        QVERIFY2(bench->form()->setup() == before, qPrintable(unit));
        QVERIFY2(!bench->isWindowModified(), qPrintable(unit));
    }
}

void tst_Workbench::acceptsLimitsInAllUnits()
{
    Bench bench;
    for (const bool upper : {false, true}) {
        ProcessSetup setup = readSetup(s_steel);
        for (int i = 0; i < SetupFields::count(); ++i) {
            const SetupField &field = SetupFields::field(i);
            setup.setNumber(i, upper ? field.maximum : field.minimum);
        }
        bench->form()->setSetup(setup);
        for (int d = 0; d < UnitsConfiguration::s_dimensionCount; ++d) {
            const auto dimension = UnitsConfiguration::Dimension(d);
            for (const QString &unit : UnitsConfiguration::allowedUnits(dimension)) {
                UnitsConfiguration::instance().setCurrentUnit(dimension, unit);
                QVERIFY2(bench->form()->fieldsNeedingInput().isEmpty(),
                         qPrintable(bench->form()->fieldsNeedingInput().join(QStringLiteral(", ")) + unit));
            }
        }
        Brimvale::ConfigurationManager::instance().setDefaultValues();
    }
}

void tst_Workbench::typedValueIsConvertedAndMarked()
{
    Bench bench;
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, QStringLiteral("inch"));
    FieldEditor *field = bench.field("tools/punchWidth");
    bench.type("tools/punchWidth", QStringLiteral("25.4mm"));
    QCOMPARE(field->text(), QStringLiteral("1 inch"));
    QCOMPARE(bench.value("tools/punchWidth"), 25.4);
    QVERIFY(field->status()->isUserEditStatus() && field->status()->isDifferentStatus());
    QCOMPARE(field->edit()->property("ReferenceValue").toDouble(), 70.0);
    QVERIFY(bench->isWindowModified());

    bench.type("tools/punchWidth", QStringLiteral("70 mm"));
    QVERIFY(field->status()->isUserEditStatus() && !field->status()->isDifferentStatus());
    QVERIFY(!field->edit()->property("ReferenceValue").isValid());
    QVERIFY(!bench->isWindowModified());
}

void tst_Workbench::unacceptableTextReachesFormAndGoes()
{
    Bench bench;
    QWidget *group = bench->form()->group(SetupFields::findGroup(QStringLiteral("tools")));
    QWidget *other = bench->form()->group(SetupFields::findGroup(QStringLiteral("press")));
    for (const QString &text : {QStringLiteral("5 kg"), QStringLiteral("101"), QStringLiteral("5 k")}) {
        bench.type("tools/gap", text);
        QCOMPARE(bench.field("tools/gap")->text(), text);
        QCOMPARE(bench.value("tools/gap"), 2.0);
        QVERIFY(group->property("needInputStatus").toBool());
        QVERIFY(bench->form()->property("needInputStatus").toBool());
        QVERIFY(!other->property("needInputStatus").toBool());
        QCOMPARE(bench->summary()->text(), QStringLiteral("1 field needs input"));
    }
    bench.type("tools/gap", QStringLiteral("2"));
    QVERIFY(!group->property("needInputStatus").toBool());
    QVERIFY(!bench->form()->property("needInputStatus").toBool());
    QCOMPARE(bench->summary()->text(), QStringLiteral("All values are set"));
}

void tst_Workbench::newSetupNeedsInput()
{
    Bench bench;
    bench->newSetup();
    QCOMPARE(bench->form()->fieldsNeedingInput().size(), SetupFields::count());
    QVERIFY(!bench->isWindowModified());
    bench.type("blank/thickness", QStringLiteral("0.8"));
    bench.type("material/name", QStringLiteral("DC04"));
    QCOMPARE(bench.field("blank/thickness")->text(), QStringLiteral("0.8 mm"));
    QCOMPARE(bench->form()->fieldsNeedingInput().size(), SetupFields::count() - 2);
    QVERIFY(!bench.status("blank/thickness")->isDifferentStatus()); // from nothing
    QVERIFY(bench->isWindowModified());
}

void tst_Workbench::contextMenuBringsReferenceBack()
{
    const std::pair<QByteArray, QString> rows[] = {
        {QByteArray("tools/gap"), "3.5"},
        {QByteArray("material/name"), "DC04"},
        {QByteArray("tools/gap"), "5 kg"},
        {QByteArray("material/name"), " "},
    };
    for (const auto &[field, typed] : rows) {
        Bench bench;
        const QString before = bench.field(field)->text();
        bench.type(field, typed);
        QCOMPARE(chooseFromContextMenu(bench.edit(field)), QStringLiteral("Reset Value to Standard"));
        QCOMPARE(bench.field(field)->text(), before);
        QCOMPARE(bench.status(field)->getBvStatus(), BVWidgetStatus::Stati());
        QVERIFY2(!bench->isWindowModified(), qPrintable(typed));
    }
}

void tst_Workbench::sliderFollowsTypedValue()
{
    Bench bench;
    const std::tuple<const char *, QString, double, int> rows[] = {
        {"press/blankHolderForce", "19.6375", 19.6375, 196},
        {"press/blankHolderForce", "2.5", 2.5, 25}, // outside of the limits
        {"press/blankHolderForce", "80", 80.0, 600},
        {"tools/dieProfileRadius", "0.125", 0.125, 0},
        {"tools/dieProfileRadius", "0.3 cm", 3.0, 10},
        {"press/punchSpeed", "31.622776", 31.622776, 150},
        {"press/punchSpeed", "0.01", 0.01, 0},
    };
    for (const auto &[path, typed, value, position] : rows) {
        bench.type(path, typed);
        QCOMPARE(bench.slider(path)->value(), position);
        bench->form()->takeOver();
        QCOMPARE(bench.value(path), value);
        if (position > 0 && position < bench.slider(path)->maximum()) {
            bench.slider(path)->setValue(position + 1);
            QVERIFY(bench.value(path) != value);
            bench.slider(path)->setValue(position);
            QCOMPARE(bench.value(path), value);
        }
    }
    bench->form()->resetToReference();
    QVERIFY(bench->form()->setup() == readSetup(s_steel));
    QCOMPARE(bench.slider("press/punchSpeed")->value(), 100);
}

void tst_Workbench::movedSliderSetsValue()
{
    Bench bench;
    for (const bool empty : {false, true}) {
        bench->form()->setSetup(empty ? ProcessSetup() : readSetup(s_steel));
        for (const char *path : {"press/blankHolderForce", "tools/dieProfileRadius", "press/punchSpeed"}) {
            BVSlider *slider = bench.slider(path);
            QVERIFY(!empty || (slider->value() == 0 && bench.value(path) == ProcessSetup::noValue()));
            for (int i = 1; i <= slider->maximum(); ++i) {
                slider->setValue(i);
                QCOMPARE(slider->value(), i); // its own value does not move it
            }
            QVERIFY(!bench.status(path)->isNeedInputStatus());
            const double maximum = slider->positionToValue(slider->maximum());
            QCOMPARE(bench.value(path), maximum);
        }
    }
}

void tst_Workbench::movedSliderIsReset()
{
    Bench bench;
    const std::tuple<const char *, int, double> rows[] = {
        {"press/blankHolderForce", Qt::Key_Right, 19.7},
        {"tools/dieProfileRadius", Qt::Key_Left, 4.9},
        {"press/punchSpeed", Qt::Key_Right, 10.2},
    };
    for (const auto &[path, key, value] : rows) {
        BVSlider *slider = bench.slider(path);
        const double before = bench.value(path);
        QTest::keyClick(slider, Qt::Key(key));
        QCOMPARE(bench.value(path), value);
        for (const BVWidgetInterface *status : {bench.status(path), static_cast<const BVWidgetInterface *>(slider)})
            QVERIFY(status->isUserEditStatus() && status->isDifferentStatus());
        QCOMPARE(chooseFromContextMenu(slider), QStringLiteral("Reset Value to Standard"));
        QCOMPARE(bench.value(path), before);
        QCOMPARE(slider->getBvStatus(), BVWidgetStatus::Stati());
        QVERIFY2(!bench->isWindowModified(), path);
    }
}

void tst_Workbench::limitsBindSliderOnly()
{
    Bench bench;
    const char *path = "press/blankHolderForce";
    BVSlider *slider = bench.slider(path);
    QTest::keyClick(slider, Qt::Key_End);
    QCOMPARE(bench.value(path), 40.0);
    bench.type(path, QStringLiteral("19.6375"));
    slider->moveHandle(BVSlider::UpperLimitHandle, 150); // takes the value along
    QCOMPARE(bench.value(path), 15.0);
    slider->moveHandle(BVSlider::UpperLimitHandle, 400);
    slider->setValue(196);
    QCOMPARE(bench.value(path), 19.6375);
    bench.type(path, QStringLiteral("50.125"));
    QCOMPARE(bench.value(path), 50.125);
    slider->moveHandle(BVSlider::LowerLimitHandle, 100);
    QCOMPARE(slider->admissibleMinimum(), 100);
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Force, QStringLiteral("N"));
    QVERIFY2(slider->toolTip().contains(QStringLiteral("10000 N")), qPrintable(slider->toolTip()));
    QTest::keyClick(slider, Qt::Key_Home);
    QCOMPARE(bench.field(path)->text(), QStringLiteral("10000 N"));
}

void tst_Workbench::spinBoxSteps()
{
    Bench bench;
    const std::tuple<const char *, int, double> rows[] = {
        {"tools/friction", Qt::Key_Up, 0.154},
        {"press/punchSpeed", Qt::Key_Down, 9.0},
    };
    for (const auto &[path, key, value] : rows) {
        bench.edit(path)->setFocus();
        QTest::keyClick(bench.edit(path), Qt::Key(key));
        QTRY_COMPARE(bench.value(path), value);
        QVERIFY(bench.status(path)->isUserEditStatus() && bench.status(path)->isDifferentStatus());
        QCOMPARE(chooseFromContextMenu(bench.edit(path)), QStringLiteral("Reset Value to Standard"));
        QVERIFY2(!bench->isWindowModified(), path);
    }
    bench.type("tools/friction", QStringLiteral("0.14432101"));
    QCOMPARE(bench.value("tools/friction"), 0.14432101);
    bench->form()->setSetup(ProcessSetup());
    for (const QString &typed : {QString(), QStringLiteral("x"), QStringLiteral("\b")}) {
        bench.type("tools/friction", typed);
        QCOMPARE(bench.field("tools/friction")->text(), QString());
        QVERIFY(bench.status("tools/friction")->isNeedInputStatus());
    }
    QCOMPARE(bench->form()->fieldsNeedingInput().size(), SetupFields::count());
    QTest::keyClick(bench.edit("tools/friction"), Qt::Key_Up);
    QTRY_VERIFY(!bench.status("tools/friction")->isNeedInputStatus());
    QVERIFY(bench.value("tools/friction") != ProcessSetup::noValue());
}

void tst_Workbench::savingTakesOverAndMakesReference()
{
    Bench bench;
    const QString path = m_directory.filePath(QStringLiteral("saved.xml"));
    bench.begin("tools/gap", QStringLiteral("3")); // and no Return
    QVERIFY(bench->isWindowModified());
    QVERIFY(bench->saveFile(path));
    QVERIFY(!bench->isWindowModified());
    QVERIFY(!bench.status("tools/gap")->isDifferentStatus());
    QVERIFY(bench.status("tools/gap")->isUserEditStatus());
    QCOMPARE(WorkbenchSettings::instance().recentFile(), path);

    const ProcessSetup read = readSetup(path);
    QVERIFY(read == bench->form()->setup());
    QCOMPARE(read.number(fieldIndex("tools/gap")), 3.0);
    QCOMPARE(read.source(), readSetup(s_steel).source());
}

void tst_Workbench::savingIsRefusedWhileInputIsNeeded()
{
    Bench bench;
    const QString path = m_directory.filePath(QStringLiteral("unsaved.xml"));
    bench.begin("tools/gap", QStringLiteral("5 kg"));
    QVERIFY(!bench->saveFile(path));
    QVERIFY(bench.takeMessage().contains(QStringLiteral("Gap")));
    QVERIFY(!QFile::exists(path));
    QCOMPARE(bench.field("tools/gap")->text(), QStringLiteral("5 kg"));
}

void tst_Workbench::failedSavingIsToldAndClosingAsks()
{
    Bench bench;
    bench.type("tools/gap", QStringLiteral("3"));
    QVERIFY(!bench->saveFile(m_directory.filePath(QStringLiteral("none/cup.xml"))));
    QVERIFY(bench.takeMessage().startsWith(QStringLiteral("cup.xml: ")));
    QVERIFY(bench->isWindowModified());

    answerNextQuestion(QMessageBox::Cancel);
    QVERIFY(!bench->close());
    answerNextQuestion(QMessageBox::Discard);
    QVERIFY(bench->close());
}

void tst_Workbench::preferencesPersist()
{
    const QString file = m_directory.filePath(QStringLiteral("workbench.ini"));
    {
        PreferencesDialog dialog;
        BVComboBox *pressure = dialog.unitBox(UnitsConfiguration::Pressure);
        pressure->setCurrentIndex(pressure->findText(QStringLiteral("N/mm\u00b2")));
        dialog.fontSizeBox()->setCurrentIndex(dialog.fontSizeBox()->findText(QStringLiteral("12 pt")));
        dialog.lightVersionBox()->setChecked(true);
        dialog.apply();
    }
    Brimvale::ConfigurationManager::instance().setDefaultValues();
    QCOMPARE(WorkbenchSettings::instance().fontSize(), WorkbenchSettings::s_defaultFontSize);
    Preferences::load(file);
    QCOMPARE(UnitsConfiguration::instance().currentUnit(UnitsConfiguration::Pressure), QStringLiteral("N/mm^2"));
    QCOMPARE(WorkbenchSettings::instance().fontSize(), 12);
    QVERIFY(WorkbenchSettings::instance().useLightVersion());

    PreferencesDialog dialog;
    QCOMPARE(dialog.unitBox(UnitsConfiguration::Pressure)->currentText(), QStringLiteral("N/mm\u00b2"));
    dialog.showDefaults();
    QCOMPARE(WorkbenchSettings::instance().fontSize(), 12); // until they are applied
    dialog.apply();
    QCOMPARE(UnitsConfiguration::instance().currentUnit(UnitsConfiguration::Pressure), QStringLiteral("MPa"));
    QVERIFY(!WorkbenchSettings::instance().useLightVersion());
}

void tst_Workbench::foreignFontSizeIsDefault()
{
    const QString file = m_directory.filePath(QStringLiteral("workbench.ini"));
    QVERIFY(Preferences::save());
    writeText(file, fileText(file).replace(QStringLiteral("FontSize=10"), QStringLiteral("FontSize=4000")).toUtf8());
    Preferences::load(file);
    QCOMPARE(WorkbenchSettings::instance().fontSize(), WorkbenchSettings::s_defaultFontSize);
}

QTEST_MAIN(tst_Workbench)
#include "tst_workbench.moc"
