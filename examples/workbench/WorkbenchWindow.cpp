// SPDX-License-Identifier: MIT
#include "WorkbenchWindow.h"

#include "Appearance.h"
#include "OperationsPage.h"
#include "PreferencesDialog.h"
#include "ResultsPage.h"
#include "SetupFile.h"
#include "SetupStack.h"
#include "StatusSummary.h"
#include "WorkbenchSettings.h"

#include <BVFormatter.h>
#include <BVMenu.h>
#include <BVWidgetsVersion.h>
#include <SvgIcon.h>
#include <UnitsChangedEvent.h>
#include <UnitsConfiguration.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

constexpr int s_messageTime = 6000;      // ms
constexpr QSize s_minimumSize(640, 420); // px
constexpr int s_iconSize = 20;           // px
const char s_mainWindowProperty[] = "MainWindow";

struct Example
{
    const char *text;
    const char *resource;
};

const Example s_examples[] = {
    {QT_TRANSLATE_NOOP("WorkbenchWindow", "Square cup, mild &steel"),
     ":/Setups/square-cup-steel.xml"},
    {QT_TRANSLATE_NOOP("WorkbenchWindow", "Square cup, &aluminium alloy"),
     ":/Setups/square-cup-aluminium.xml"},
};

QString fileFilter()
{
    return WorkbenchWindow::tr("Process set-ups (*.xml);;All files (*)");
}

QString shownUnit(UnitsConfiguration::Dimension dimension)
{
    QString unit = UnitsConfiguration::instance().currentUnit(dimension);
    BVFormatter::replaceSymbols(unit, false);
    return unit;
}

} // namespace

WorkbenchWindow::WorkbenchWindow(Appearance *appearance)
    : m_appearance(appearance)
    , m_form(new SetupStack)
    , m_results(new ResultsPage)
    , m_operations(new OperationsPage)
{
    qApp->setProperty(s_mainWindowProperty, QVariant::fromValue<QObject *>(this));
    setWindowIcon(createSvgIcon(QStringLiteral(":/Icons/ruler.svg")));

    setCentralWidget(createCentre());
    createActions();
    m_summary = new StatusSummary(m_form, this);
    statusBar()->addPermanentWidget(m_summary);
    connect(m_form, &SetupStack::changed, this, &WorkbenchWindow::updateTitle);
    setMinimumSize(s_minimumSize);
    newSetup();
}

WorkbenchWindow::~WorkbenchWindow()
{
    m_form->disconnect(this); // fields that are hidden next may still take a text over
    if (qApp->property(s_mainWindowProperty).value<QObject *>() == this)
        qApp->setProperty(s_mainWindowProperty, QVariant());
}

/// The steps fill it; what is to stand above or beside them has its place here.
QWidget *WorkbenchWindow::createCentre()
{
    m_form->addPage(m_results, tr("Results"));
    m_form->addPage(m_operations, tr("Plan"));
    auto *centre = new QWidget(this);
    auto *layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_form, 1);
    return centre;
}

QAction *WorkbenchWindow::addCommand(QMenu *menu, const QString &icon, const QString &text,
                                     const QKeySequence &shortcut, const QString &toolTip)
{
    const QString file = QStringLiteral(":/Icons/%1.svg").arg(icon);
    QAction *action = menu->addAction(createSvgIcon(file), text);
    action->setShortcut(shortcut);
    const QString keys = shortcut.toString(QKeySequence::NativeText);
    action->setToolTip(keys.isEmpty() ? toolTip : tr("%1 (%2)").arg(toolTip, keys));
    action->setStatusTip(toolTip);
    return action;
}

void WorkbenchWindow::createActions()
{
    auto *file = new BVMenu(tr("&File"), this);
    auto *edit = new BVMenu(tr("&Edit"), this);
    menuBar()->addMenu(file);
    menuBar()->addMenu(edit);
    createExamplesMenu();
    auto *help = new BVMenu(tr("&Help"), this);
    menuBar()->addMenu(help);

    QAction *create = addCommand(file, QStringLiteral("new"), tr("&New"), QKeySequence::New,
                                 tr("Begin a new set-up"));
    QAction *read = addCommand(file, QStringLiteral("open"), tr("&Open..."), QKeySequence::Open,
                               tr("Open a set-up"));
    file->addSeparator();
    QAction *write = addCommand(file, QStringLiteral("save"), tr("&Save"), QKeySequence::Save,
                                tr("Save the set-up"));
    QAction *writeAs =
        addCommand(file, QStringLiteral("save-as"), tr("Save &as..."),
                   QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), tr("Save under another name"));
    file->addSeparator();
    file->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);
    QAction *reset = addCommand(edit, QStringLiteral("undo"), tr("&Reset all values"), {},
                                tr("Bring back all values as they are in the file"));
    QAction *next = addCommand(edit, QStringLiteral("next"), tr("&Next entry that needs input"),
                               Qt::Key_F8, tr("Go to the next entry that needs input"));
    edit->addSeparator();
    QAction *preferences = addCommand(edit, QStringLiteral("settings"), tr("&Preferences..."),
                                      Qt::CTRL | Qt::Key_Comma, tr("Choose units and appearance"));
    QAction *about =
        addCommand(help, QStringLiteral("info"), tr("&About"), {}, tr("What this program is"));

    connect(create, &QAction::triggered, this, [this] {
        if (mayDropChanges())
            newSetup();
    });
    connect(read, &QAction::triggered, this, &WorkbenchWindow::open);
    connect(write, &QAction::triggered, this, &WorkbenchWindow::save);
    connect(writeAs, &QAction::triggered, this, &WorkbenchWindow::saveAs);
    connect(reset, &QAction::triggered, this, &WorkbenchWindow::resetAll);
    connect(next, &QAction::triggered, this, &WorkbenchWindow::goToNextNeedingInput);
    connect(preferences, &QAction::triggered, this, &WorkbenchWindow::showPreferences);
    connect(about, &QAction::triggered, this, &WorkbenchWindow::showAbout);

    QToolBar *bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setMovable(false);
    bar->setIconSize(QSize(s_iconSize, s_iconSize));
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->addActions({create, read, write, writeAs});
    bar->addSeparator();
    bar->addActions({reset, next});
    bar->addSeparator();
    bar->addAction(preferences);
}

void WorkbenchWindow::createExamplesMenu()
{
    auto *menu = new BVMenu(tr("E&xamples"), this);
    menuBar()->addMenu(menu);
    for (const Example &example : s_examples) {
        const QString resource = QString::fromLatin1(example.resource);
        menu->addAction(tr(example.text), this, [this, resource] {
            if (mayDropChanges())
                openExample(resource);
        });
    }
}

void WorkbenchWindow::newSetup()
{
    m_form->setSetup(ProcessSetup());
    setFileName(QString());
}

void WorkbenchWindow::open()
{
    if (!mayDropChanges())
        return;
    const QString path = QFileDialog::getOpenFileName(this, tr("Open a set-up"),
                                                      QFileInfo(m_fileName).path(), fileFilter());
    if (!path.isEmpty())
        openFile(path);
}

bool WorkbenchWindow::openFile(const QString &path)
{
    if (!readSetup(path))
        return false;
    setFileName(path);
    rememberFile();
    return true;
}

bool WorkbenchWindow::openExample(const QString &resource)
{
    if (!readSetup(resource))
        return false;
    setFileName(QString());
    m_documentName = QFileInfo(resource).fileName();
    updateTitle();
    return true;
}

bool WorkbenchWindow::readSetup(const QString &path)
{
    ProcessSetup setup;
    QString error;
    if (SetupFile::read(path, setup, error)) {
        m_form->setSetup(setup);
        return true;
    }
    showError(tr("The set-up cannot be opened."), error);
    return false;
}

bool WorkbenchWindow::save()
{
    return m_fileName.isEmpty() ? saveAs() : saveFile(m_fileName);
}

bool WorkbenchWindow::saveAs()
{
    if (!isReadyToSave())
        return false;
    QFileDialog dialog(this, tr("Save the set-up"), QFileInfo(m_fileName).path(), fileFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("xml"));
    dialog.selectFile(m_documentName);
    return dialog.exec() == QDialog::Accepted && saveFile(dialog.selectedFiles().constFirst());
}

/// Takes over what is being typed; tells the user when that leaves fields that need input.
bool WorkbenchWindow::isReadyToSave()
{
    m_form->takeOver();
    const QStringList fields = m_form->fieldsNeedingInput();
    if (fields.isEmpty())
        return true;
    showError(tr("The set-up cannot be saved yet."),
              tr("These fields need input: %1.").arg(fields.join(QStringLiteral(", "))));
    goToNextNeedingInput();
    return false;
}

void WorkbenchWindow::showPageOf(QWidget *widget)
{
    m_form->showPageOf(widget);
}

void WorkbenchWindow::goToNextNeedingInput()
{
    m_form->goToNextNeedingInput();
}

bool WorkbenchWindow::saveFile(const QString &path)
{
    if (!isReadyToSave())
        return false;
    QString error;
    if (!SetupFile::write(path, m_form->setup(), error)) {
        showError(tr("The set-up cannot be saved."), error);
        return false;
    }
    m_form->acceptAsReference();
    setFileName(path);
    rememberFile();
    statusBar()->showMessage(tr("Saved"), s_messageTime);
    return true;
}

void WorkbenchWindow::resetAll()
{
    m_form->resetToReference();
}

void WorkbenchWindow::setFileName(const QString &path)
{
    m_fileName = path;
    m_documentName = path.isEmpty() ? tr("untitled.xml") : QFileInfo(path).fileName();
    const ProcessSetup setup = m_form->setup();
    const QString substitute = path.isEmpty() ? tr("New set-up") : m_documentName;
    m_form->setHeading(setup.title().isEmpty() ? substitute : setup.title(), setup.source());
    updateTitle();
}

void WorkbenchWindow::rememberFile()
{
    WorkbenchSettings::instance().setRecentFile(QFileInfo(m_fileName).absoluteFilePath());
    Preferences::save();
}

void WorkbenchWindow::updateTitle()
{
    setWindowTitle(tr("%1[*] - Workbench").arg(m_documentName));
    setWindowModified(m_form->isChanged());
}

bool WorkbenchWindow::mayDropChanges()
{
    if (!m_form->isChanged())
        return true;
    const QMessageBox::StandardButton answer = QMessageBox::warning(
        this, tr("Workbench"), tr("\"%1\" has changes that are not saved.").arg(m_documentName),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return save();
    return answer == QMessageBox::Discard;
}

void WorkbenchWindow::showError(const QString &text, const QString &detail)
{
    auto *box = new QMessageBox(QMessageBox::Warning, tr("Workbench"), text, QMessageBox::Ok, this);
    box->setObjectName(QStringLiteral("errorBox"));
    box->setInformativeText(detail);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void WorkbenchWindow::showPreferences()
{
    auto *dialog = new PreferencesDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &PreferencesDialog::sigApplied, this, &WorkbenchWindow::applyAppearance);
    dialog->open();
}

void WorkbenchWindow::applyAppearance()
{
    const WorkbenchSettings &settings = WorkbenchSettings::instance();
    if (m_appearance)
        m_appearance->apply(settings.fontSize(), settings.useLightVersion());
}

void WorkbenchWindow::showAbout()
{
    auto *box = new QMessageBox(QMessageBox::Information, tr("About"),
                                tr("Workbench %1").arg(QStringLiteral(BVWIDGETS_VERSION_STRING)),
                                QMessageBox::Ok, this);
    box->setInformativeText(
        tr("Sets up deep-drawing processes with the widgets of Presentation_BVWidgets.\n\n"
           "The examples are the square-cup benchmark of NUMISHEET '93: A. Makinouchi, E. "
           "Nakamachi, E. Onate, R. H. Wagoner (eds.), Numerical Simulation of 3-D Sheet Metal "
           "Forming Processes - Verification of Simulation with Experiment, Proc. 2nd Int. Conf. "
           "NUMISHEET '93, Isehara, Japan, 1993."));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

bool WorkbenchWindow::event(QEvent *event)
{
    if (event->type() != UnitsChangedEvent::s_eventType)
        return QMainWindow::event(event);
    showUnits();
    return true;
}

void WorkbenchWindow::showUnits()
{
    statusBar()->showMessage(
        tr("Units: %1, %2, %3, %4, %5")
            .arg(shownUnit(UnitsConfiguration::Length), shownUnit(UnitsConfiguration::Pressure),
                 shownUnit(UnitsConfiguration::Force), shownUnit(UnitsConfiguration::Temperature),
                 shownUnit(UnitsConfiguration::Angle)),
        s_messageTime);
}

void WorkbenchWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(mayDropChanges());
}
