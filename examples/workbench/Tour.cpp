// SPDX-License-Identifier: MIT
#include "Tour.h"

#include "FieldEditor.h"
#include "FieldGroup.h"
#include "PreferencesDialog.h"
#include "SetupFields.h"
#include "SetupStack.h"
#include "StatusSummary.h"
#include "TourHands.h"
#include "WorkbenchWindow.h"

#include <BVCheckBox.h>
#include <BVComboBox.h>
#include <BVSlider.h>
#include <BVWidgetInterface.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>

using namespace TourHands;

namespace {

constexpr QSize s_narrowSize(640, 780); // px
constexpr int s_biggerFont = 13;        // pt

} // namespace

Tour::Tour(WorkbenchWindow &window, const QString &directory)
    : m_window(window)
    , m_directory(directory)
{
}

QString Tour::report() const
{
    return m_failure.isEmpty()
               ? QStringLiteral("Pictures: %1").arg(QDir(m_directory).absolutePath())
               : m_failure;
}

bool Tour::run()
{
    return prepare() && openSteel() && chooseInch() && typeMillimetres() && typeUnacceptable() &&
           openPreferences() && useLightVersion() && useBiggerFont() && openAluminium() &&
           refuseFile() && moveSliders() && dragLimit() && turnWheel() && beginNewSetup() &&
           useNarrowWindow() && showResults() && changeLimit() && uncheckResults() &&
           copyResults() && openContextMenu() && searchResults() && loadLongRun() &&
           planOperation() && typeOnStep() && beginOperations() && flyToEntry() &&
           arrangeOperations() && openNavigationMenu() && filterEntries();
}

bool Tour::prepare()
{
    QApplication::setCursorFlashTime(0); // a cursor that blinks would make the pictures differ
    m_window.resize(s_windowSize);
    m_window.show();
    activate(&m_window);
    return expect(QDir().mkpath(m_directory), QStringLiteral("the directory can be made"));
}

bool Tour::openSteel()
{
    m_window.openExample(QStringLiteral(":/Setups/square-cup-steel.xml"));
    m_window.showPageOf(field("tools", "gap")->edit());
    return expectText(field("blank", "thickness"), QStringLiteral("0.78 mm")) &&
           expectText(field("material", "youngsModulus"), QStringLiteral("206000 MPa")) &&
           picture(QStringLiteral("steel"));
}

bool Tour::chooseInch()
{
    const bool chosen = withPreferences([](PreferencesDialog *dialog) {
        BVComboBox *box = dialog->unitBox(UnitsConfiguration::Length);
        box->setCurrentIndex(box->findData(QStringLiteral("inch")));
    });
    return chosen && expectText(field("blank", "length"), QStringLiteral("5.9055 inch")) &&
           picture(QStringLiteral("inch"));
}

bool Tour::typeMillimetres()
{
    FieldEditor *width = field("tools", "punchWidth");
    type(width, QStringLiteral("25.4mm"));
    sendKey(width->edit(), Qt::Key_Return, QStringLiteral("\r"));
    settle();
    return expectText(width, QStringLiteral("1 inch")) &&
           expect(width->status()->isUserEditStatus() && width->status()->isDifferentStatus(),
                  QStringLiteral("the field is marked as edited and different")) &&
           expect(m_window.isWindowModified(), QStringLiteral("the window is modified")) &&
           picture(QStringLiteral("typed"));
}

bool Tour::typeUnacceptable()
{
    FieldEditor *gap = field("tools", "gap");
    type(gap, QStringLiteral("5 kg"));
    sendKey(gap->edit(), Qt::Key_Return, QStringLiteral("\r"));
    settle();
    const FieldGroup *tools =
        m_window.form()->group(SetupFields::findGroup(QStringLiteral("tools")));
    return expectText(gap, QStringLiteral("5 kg")) &&
           expect(gap->status()->isNeedInputStatus(), QStringLiteral("the field needs input")) &&
           expect(tools->property("needInputStatus").toBool(),
                  QStringLiteral("the group needs input")) &&
           expect(m_window.summary()->text() == QStringLiteral("1 field needs input"),
                  QStringLiteral("the status bar counts the field")) &&
           write(QStringLiteral("unacceptable"), withToolTip(&m_window, gap->edit()));
}

bool Tour::openPreferences()
{
    m_window.showPreferences();
    settle();
    PreferencesDialog *dialog = preferences();
    if (!expect(dialog, QStringLiteral("the preferences open")))
        return false;
    const bool written = write(QStringLiteral("preferences"), withDialog(&m_window, dialog));
    dialog->reject();
    settle();
    return written;
}

bool Tour::useLightVersion()
{
    const QString before = qApp->styleSheet();
    return withPreferences(
               [](PreferencesDialog *dialog) { dialog->lightVersionBox()->setChecked(true); }) &&
           expect(qApp->styleSheet() != before, QStringLiteral("the style sheet changes")) &&
           picture(QStringLiteral("light"));
}

bool Tour::useBiggerFont()
{
    const int before = m_window.form()->fontMetrics().height();
    return withPreferences([](PreferencesDialog *dialog) {
               BVComboBox *box = dialog->fontSizeBox();
               box->setCurrentIndex(box->findData(QString::number(s_biggerFont)));
           }) &&
           expect(m_window.form()->fontMetrics().height() > before,
                  QStringLiteral("the font grows")) &&
           picture(QStringLiteral("bigger_font"));
}

bool Tour::openAluminium()
{
    const bool restored =
        withPreferences([](PreferencesDialog *dialog) { dialog->showDefaults(); });
    m_window.openExample(QStringLiteral(":/Setups/square-cup-aluminium.xml"));
    return restored && expectText(field("blank", "thickness"), QStringLiteral("0.81 mm")) &&
           expect(!m_window.isWindowModified(), QStringLiteral("the window is not modified")) &&
           expect(m_window.summary()->text() == QStringLiteral("All values are set"),
                  QStringLiteral("no field needs input")) &&
           picture(QStringLiteral("aluminium"));
}

bool Tour::refuseFile()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("cup.xml"));
    QFile file(path);
    if (!expect(file.open(QIODevice::WriteOnly), QStringLiteral("a file can be written")))
        return false;
    file.write("<processSetup version=\"1\">\n  <blank>\n    <length unit=\"kg\">150</length>\n");
    file.close();
    const bool opened = m_window.openFile(path);
    settle();
    auto *box = m_window.findChild<QMessageBox *>(QStringLiteral("errorBox"));
    if (!expect(!opened && box, QStringLiteral("the file is refused")) ||
        !expect(box->informativeText().startsWith(QStringLiteral("cup.xml:3: ")),
                QStringLiteral("the message names file and line")) ||
        !write(QStringLiteral("refused"), withDialog(&m_window, box)))
        return false;
    box->accept();
    activate(&m_window);
    return expectText(field("blank", "thickness"), QStringLiteral("0.81 mm"));
}

bool Tour::moveSliders()
{
    BVSlider *radius = slider("dieProfileRadius");
    for (int i = 0; i < 3; ++i)
        sendKey(radius, Qt::Key_PageUp);
    const bool isMoved = expectText(field("tools", "dieProfileRadius"), QStringLiteral("8 mm")) &&
                         picture(QStringLiteral("sliders_of_tools"));
    BVSlider *speed = slider("punchSpeed");
    const QPoint groove(speed->width() * 2 / 3, speed->rect().center().y());
    sendMouse(speed, QEvent::MouseButtonPress, groove);
    sendMouse(speed, QEvent::MouseButtonRelease, groove);
    type(field("press", "blankHolderForce"), QStringLiteral("49.0375"));
    sendKey(field("press", "blankHolderForce")->edit(), Qt::Key_Return, QStringLiteral("\r"));
    settle();
    return isMoved &&
           expect(speed->value() == speed->pixelPosToValue(groove),
                  QStringLiteral("the slider jumps to the click")) &&
           expect(slider("blankHolderForce")->value() == 490,
                  QStringLiteral("the slider follows beyond its limit")) &&
           expect(speed->isUserEditStatus() && speed->isDifferentStatus(),
                  QStringLiteral("the slider is marked as edited and different")) &&
           picture(QStringLiteral("sliders")) &&
           write(QStringLiteral("high_resolution"), atTwiceTheResolution(m_window.form()));
}

bool Tour::dragLimit()
{
    BVSlider *force = slider("blankHolderForce");
    const QPoint begin = force->handleRect(BVSlider::UpperLimitHandle).center();
    const QPoint end(force->valueToPixelPos(150), begin.y());
    force->setFocus(Qt::MouseFocusReason);
    sendMouse(force, QEvent::MouseButtonPress, begin);
    sendMouse(force, QEvent::MouseMove, end);
    sendMouse(force, QEvent::MouseButtonRelease, end);
    settle();
    const ProcessSetup setup = m_window.form()->setup();
    const double value = setup.number(field("press", "blankHolderForce")->index());
    return expect(value < 17.0, QStringLiteral("the limit takes the force along")) &&
           write(QStringLiteral("limit"), withToolTip(&m_window, force));
}

bool Tour::turnWheel()
{
    FieldEditor *friction = field("tools", "friction");
    m_window.showPageOf(friction->edit());
    settle();
    turnWheelOver(friction->edit(), 1);
    settle();
    if (!expectText(friction, QStringLiteral("0.162")))
        return false;
    activate(&m_window);
    friction->edit()->setFocus(Qt::TabFocusReason);
    turnWheelOver(friction->edit(), 1);
    settle();
    sendKey(friction->edit(), Qt::Key_Up);
    becomes([friction] { return friction->text() == QStringLiteral("0.182"); });
    return expectText(friction, QStringLiteral("0.182")) &&
           write(QStringLiteral("spin_box"), withToolTip(&m_window, friction->edit()));
}

bool Tour::beginNewSetup()
{
    m_window.resetAll();
    m_window.newSetup();
    settle();
    return expectText(field("tools", "friction"), QString()) &&
           expect(m_window.form()->fieldsNeedingInput().size() == SetupFields::count(),
                  QStringLiteral("all fields need input")) &&
           picture(QStringLiteral("new"));
}

bool Tour::useNarrowWindow()
{
    m_window.openExample(QStringLiteral(":/Setups/square-cup-steel.xml"));
    m_window.resize(s_narrowSize);
    FieldEditor *last = field("tools", "friction");
    m_window.showPageOf(last->edit());
    settle();
    QScrollArea *area = nullptr;
    for (QWidget *around = last->edit(); around && !area; around = around->parentWidget())
        area = qobject_cast<QScrollArea *>(around);
    area->ensureWidgetVisible(last->edit());
    return expect(!area->horizontalScrollBar()->isVisible(),
                  QStringLiteral("the form has room in a narrow window")) &&
           picture(QStringLiteral("narrow"));
}

FieldEditor *Tour::field(const char *group, const char *key) const
{
    const int index =
        SetupFields::findField(SetupFields::findGroup(QLatin1String(group)), QLatin1String(key));
    return m_window.form()->editor(index);
}

BVSlider *Tour::slider(const char *key) const
{
    auto *slider =
        m_window.form()->findChild<BVSlider *>(QLatin1String(key) + QStringLiteral("Slider"));
    m_window.showPageOf(slider);
    settle();
    return slider;
}

void Tour::type(FieldEditor *field, const QString &text)
{
    m_window.showPageOf(field->edit());
    field->edit()->setFocus(Qt::TabFocusReason);
    field->selectAll();
    for (const QChar c : text)
        sendKey(field->edit(), c.toUpper().unicode(), QString(c));
    settle();
}

PreferencesDialog *Tour::preferences() const
{
    return m_window.findChild<PreferencesDialog *>();
}

template <typename Change>
bool Tour::withPreferences(Change change)
{
    m_window.showPreferences();
    settle();
    PreferencesDialog *dialog = preferences();
    if (!expect(dialog, QStringLiteral("the preferences open")))
        return false;
    change(dialog);
    dialog->apply();
    dialog->accept();
    // Its deletion is deferred; the next preferences must be the only ones.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
    activate(&m_window);
    return true;
}

bool Tour::expect(bool holds, const QString &what)
{
    if (!holds && m_failure.isEmpty())
        m_failure = QStringLiteral("After picture %1, expected that %2.").arg(m_number).arg(what);
    return holds;
}

bool Tour::expectText(FieldEditor *field, const QString &text)
{
    return expect(field->text() == text,
                  QStringLiteral("field \"%1\" shows \"%2\", not \"%3\"")
                      .arg(field->edit()->objectName(), text, field->text()));
}

bool Tour::picture(const QString &name)
{
    settle();
    return write(name, m_window.grab());
}

bool Tour::write(const QString &name, const QPixmap &pixmap)
{
    const QString file = QStringLiteral("%1/form_%2_%3.png")
                             .arg(m_directory)
                             .arg(++m_number, 2, 10, QLatin1Char('0'))
                             .arg(name);
    return expect(pixmap.save(file), QStringLiteral("\"%1\" can be written").arg(file));
}
