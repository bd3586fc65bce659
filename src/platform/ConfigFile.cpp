// SPDX-License-Identifier: MIT
#include "platform/ConfigFile_p.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

namespace Brimvale {
namespace ConfigFile {

namespace {

const QString s_formatKey = QStringLiteral("ConfigurationFormat"); // tells our files from others
constexpr int s_format = 1;
constexpr qint64 s_maxSize = qint64(16) * 1024 * 1024; // bytes

/// The name without slashes, which separate groups, and without a percent sign of its own.
QString escapedName(QString name)
{
    // The format spells this one group name its own way.
    static const QString s_general = QStringLiteral("General");
    if (name.compare(s_general, Qt::CaseInsensitive) == 0 && name != s_general)
        return QLatin1Char('%') + name;
    return name.replace(QLatin1Char('%'), QLatin1String("%25"))
        .replace(QLatin1Char('/'), QLatin1String("%2F"));
}

/// Reads the bytes of the file; sets @p error when they cannot be the text of a settings file.
QByteArray readBytes(const QString &fileName, QString *error)
{
    const QFileInfo info(fileName);
    if (!info.exists())
        return QByteArray();
    QFile file(fileName);
    QByteArray bytes;
    if (!info.isFile())
        *error = QStringLiteral("it is no regular file");
    else if (file.open(QIODevice::ReadOnly) && file.size() > s_maxSize)
        *error = QStringLiteral("it is too large for a configuration file");
    else if (bytes = file.readAll(); file.error() != QFileDevice::NoError)
        *error = file.errorString();
    else if (bytes.contains('\0'))
        *error = QStringLiteral("it is no text file");
    return bytes;
}

bool writeBytes(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

/// What forbids to take the settings for a configuration file; empty when nothing does.
QString faultOf(const QSettings &settings)
{
    if (settings.status() == QSettings::FormatError)
        return QStringLiteral("it is damaged or no settings file");
    if (settings.status() != QSettings::NoError)
        return QStringLiteral("it cannot be read");
    if (!settings.contains(s_formatKey))
        return QStringLiteral("it is no configuration file of this application (no \"%1\" entry)")
            .arg(s_formatKey);
    bool isNumber = false;
    const int format = settings.value(s_formatKey).toInt(&isNumber);
    if (!isNumber || format < 1)
        return QStringLiteral("its \"%1\" entry is damaged").arg(s_formatKey);
    if (format > s_format)
        return QStringLiteral("it was written by a newer version");
    return QString();
}

Content parse(const QString &fileName)
{
    QSettings settings(fileName, QSettings::IniFormat);
    settings.setIniCodec("UTF-8"); // for texts typed by hand; our own are plain ASCII
    const QStringList keys =
        settings.allKeys(); // parses the groups, so the status is known after it
    Content content{{}, faultOf(settings)};
    if (!content.error.isEmpty())
        return content;
    for (const QString &settingsKey : keys)
        content.values[settingsKey] = settings.value(settingsKey);
    return content;
}

} // namespace

QString key(const QString &objectName, const QString &valueName)
{
    return escapedName(objectName) + QLatin1Char('/') + escapedName(valueName);
}

Content read(const QString &fileName)
{
    Content content;
    const QByteArray bytes = readBytes(fileName, &content.error);
    if (!content.error.isEmpty() || bytes.trimmed().isEmpty())
        return content;
    // QSettings parses a copy: it keeps what it has read of a file for as long as size and time of
    // the file look the same, and two saves within one clock tick do.
    const QTemporaryDir folder;
    const QString copyName = folder.filePath(QStringLiteral("settings.ini"));
    if (!folder.isValid() || !writeBytes(copyName, bytes)) {
        content.error = QStringLiteral("there is no room for temporary files");
        return content;
    }
    return parse(copyName);
}

QByteArray toBytes(const Values &values)
{
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("settings.ini"));
    if (!folder.isValid())
        return QByteArray();
    QSettings settings(fileName, QSettings::IniFormat);
    for (const auto &[settingsKey, value] : values)
        settings.setValue(settingsKey, value);
    settings.setValue(s_formatKey, s_format);
    settings.sync();
    QFile file(fileName);
    if (settings.status() != QSettings::NoError || !file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

} // namespace ConfigFile
} // namespace Brimvale
