// SPDX-License-Identifier: MIT
#include "WorkbenchSettings.h"

#include <ConfigurationManager.h>
#include <ConfigurationValue.h>
#include <UnitsConfiguration.h>

#include <QStandardPaths>
#include <QStringList>

namespace {

const QString s_objectName = QStringLiteral("Workbench");
const QString s_fontSize = QStringLiteral("FontSize");
const QString s_lightVersion = QStringLiteral("LightVersion");
const QString s_recentFile = QStringLiteral("RecentFile");
const char *const s_panels[] = {"messagePanel", "curvePanel"};
const QString s_on = QStringLiteral("on");
const QString s_off = QStringLiteral("off");

QStringList fontSizes()
{
    QStringList sizes;
    for (int size = WorkbenchSettings::s_minimumFontSize;
         size <= WorkbenchSettings::s_maximumFontSize; ++size)
        sizes << QString::number(size);
    return sizes;
}

QString &preferencesFile()
{
    static QString s_path;
    return s_path;
}

} // namespace

WorkbenchSettings::WorkbenchSettings()
    : Brimvale::ConfigurationObject(s_objectName)
{
    using Brimvale::ConfigurationValue;
    addConfigurationValue(std::make_unique<ConfigurationValue>(
        s_fontSize, QString::number(s_defaultFontSize), fontSizes(),
        QStringLiteral("size of the normal font in points")));
    addConfigurationValue(std::make_unique<ConfigurationValue>(
        s_lightVersion, s_off, QStringList{s_off, s_on},
        QStringLiteral("whether errors are shown in lighter colours")));
    addConfigurationValue(std::make_unique<ConfigurationValue>(
        s_recentFile, QString(), QStringList(), QStringLiteral("the set-up that was open last")));
    for (const char *panel : s_panels)
        addConfigurationValue(std::make_unique<ConfigurationValue>(
            QString::fromLatin1(panel), QString(), QStringList(),
            QStringLiteral("whether the panel floats, and where")));
}

WorkbenchSettings &WorkbenchSettings::instance()
{
    static auto *s_instance =
        static_cast<WorkbenchSettings *>(Brimvale::ConfigurationManager::instance().registerObject(
            std::make_unique<WorkbenchSettings>()));
    return *s_instance;
}

int WorkbenchSettings::fontSize() const
{
    const Brimvale::ConfigurationValue *size = configurationValue(s_fontSize);
    return size->isAllowed(size->value()) ? size->value().toInt() : s_defaultFontSize;
}

void WorkbenchSettings::setFontSize(int points)
{
    const int size = qBound(s_minimumFontSize, points, s_maximumFontSize);
    configurationValue(s_fontSize)->setValue(QString::number(size));
}

bool WorkbenchSettings::useLightVersion() const
{
    return configurationValue(s_lightVersion)->value() == s_on;
}

void WorkbenchSettings::setUseLightVersion(bool on)
{
    configurationValue(s_lightVersion)->setValue(on ? s_on : s_off);
}

QString WorkbenchSettings::recentFile() const
{
    return configurationValue(s_recentFile)->value();
}

void WorkbenchSettings::setRecentFile(const QString &path)
{
    configurationValue(s_recentFile)->setValue(path);
}

QByteArray WorkbenchSettings::panelState(const QString &panel) const
{
    const Brimvale::ConfigurationValue *state = configurationValue(panel);
    return state ? QByteArray::fromBase64(state->value().toLatin1()) : QByteArray();
}

void WorkbenchSettings::setPanelState(const QString &panel, const QByteArray &state)
{
    if (Brimvale::ConfigurationValue *value = configurationValue(panel))
        value->setValue(QString::fromLatin1(state.toBase64()));
}

void Preferences::load(const QString &path)
{
    preferencesFile() = path;
    if (path.isEmpty())
        preferencesFile() = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                            QStringLiteral("/workbench.ini");
    UnitsConfiguration::instance();
    WorkbenchSettings::instance();
    Brimvale::ConfigurationManager::instance().load(preferencesFile());
}

bool Preferences::save()
{
    return Brimvale::ConfigurationManager::instance().save(preferencesFile());
}
