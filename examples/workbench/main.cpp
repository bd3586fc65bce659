// SPDX-License-Identifier: MIT
#include "Appearance.h"
#include "SetupStack.h"
#include "Tour.h"
#include "WorkbenchSettings.h"
#include "WorkbenchWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

QtMessageHandler s_defaultHandler = nullptr;
const QString s_firstExample = QStringLiteral(":/Setups/square-cup-steel.xml");

/// Drops the remarks of window systems about what they cannot do; nobody can act on them.
void logMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const bool remark = message.startsWith(QLatin1String("This plugin does not support")) ||
                        message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"));
    if (!remark)
        s_defaultHandler(type, context, message);
}

/// Opens what was asked for, else what was open last, else an example.
void openFirst(WorkbenchWindow &window, const QStringList &files)
{
    const QString recent = WorkbenchSettings::instance().recentFile();
    if (!files.isEmpty())
        window.openFile(files.constFirst());
    else if (!QFileInfo::exists(recent) || !window.openFile(recent))
        window.openExample(s_firstExample);
}

int runTour(const QString &directory)
{
    const QTemporaryDir settings;
    Preferences::load(settings.filePath(QStringLiteral("tour.ini")));
    Appearance appearance;
    WorkbenchWindow window(&appearance);
    window.applyAppearance();
    Tour tour(window, directory);
    const bool passed = tour.run();
    QTextStream(passed ? stdout : stderr) << tour.report() << Qt::endl;
    return passed ? 0 : 1;
}

int runWindow(const QString &configuration, const QStringList &files)
{
    Preferences::load(configuration);
    Appearance appearance;
    WorkbenchWindow window(&appearance);
    window.applyAppearance();
    window.resize(1040, 780);
    window.show();
    openFirst(window, files);
    window.form()->focusPage();
    return QApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    s_defaultHandler = qInstallMessageHandler(logMessage);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Workbench"));
    QCoreApplication::setOrganizationName(QStringLiteral("Presentation_BVWidgets"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Sets up deep-drawing processes."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("A set-up to open."),
                                 QStringLiteral("[file]"));
    const QCommandLineOption configuration(QStringLiteral("config"),
                                           QStringLiteral("Keep the preferences in <file>."),
                                           QStringLiteral("file"));
    const QCommandLineOption tour(
        QStringLiteral("tour"),
        QStringLiteral("Go through the program by itself and write pictures to <directory>."),
        QStringLiteral("directory"));
    parser.addOptions({configuration, tour});
    parser.process(application);

    if (parser.isSet(tour))
        return runTour(parser.value(tour));
    return runWindow(parser.value(configuration), parser.positionalArguments());
}
