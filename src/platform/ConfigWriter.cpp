// SPDX-License-Identifier: MIT
#include "platform/ConfigWriter.h"

#include "platform/ConfigFile_p.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QtDebug>

namespace Brimvale {

namespace {

/// Keeps the file under @p backupName in place of what is there. One that may not be read is moved.
bool keepBeside(const QString &fileName, const QString &backupName)
{
    QFile::remove(backupName);
    return QFile::copy(fileName, backupName) || QFile::rename(fileName, backupName);
}

/// Replaces the file in one step, keeping the old one when @p keepOld. Answers what went wrong.
QString replaceFile(const QString &fileName, const QByteArray &bytes, bool keepOld)
{
    const QFileInfo info(fileName);
    if (info.exists() && !info.isFile())
        return QStringLiteral("it is no regular file");
    QDir().mkpath(info.absolutePath());
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        return file.errorString();
    const QString backupName = fileName + QLatin1String(".bak");
    if (keepOld && !keepBeside(fileName, backupName))
        return QStringLiteral("the damaged file cannot be kept as \"%1\"").arg(backupName);
    if (file.commit())
        return QString();
    if (keepOld && !QFileInfo::exists(fileName))
        QFile::rename(backupName, fileName);
    return file.errorString();
}

} // namespace

ConfigWriter::ConfigWriter(const QString &fileName)
    : m_fileName(fileName)
{
}

void ConfigWriter::setValue(const QString &objectName, const QString &valueName,
                            const QString &value)
{
    if (!objectName.isEmpty() && !valueName.isEmpty())
        m_values[ConfigFile::key(objectName, valueName)] = value;
}

bool ConfigWriter::commit()
{
    // Read anew: what others have written since our own loading stays in the file.
    ConfigFile::Content content = ConfigFile::read(m_fileName);
    for (const auto &[key, value] : m_values)
        content.values[key] = value;
    const QByteArray bytes = ConfigFile::toBytes(content.values);
    const QString error = bytes.isEmpty()
                              ? QStringLiteral("there is no room for temporary files")
                              : replaceFile(m_fileName, bytes, !content.error.isEmpty());
    if (!error.isEmpty()) {
        qWarning("Configuration file \"%s\" cannot be saved: %s", qUtf8Printable(m_fileName),
                 qUtf8Printable(error));
    }
    return error.isEmpty();
}

} // namespace Brimvale
