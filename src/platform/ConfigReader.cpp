// SPDX-License-Identifier: MIT
#include "platform/ConfigReader.h"

#include "platform/ConfigFile_p.h"

#include <QStringList>
#include <QtDebug>

namespace Brimvale {

namespace {

/// The text of a stored value. Commas that somebody typed without quotes have made a list of it.
QString textOf(const QVariant &value)
{
    return value.type() == QVariant::StringList ? value.toStringList().join(QLatin1Char(','))
                                                : value.toString();
}

} // namespace

ConfigReader::ConfigReader(const QString &fileName)
{
    const ConfigFile::Content content = ConfigFile::read(fileName);
    m_error = content.error;
    for (const auto &[key, value] : content.values)
        m_values.insert(key, textOf(value));
    if (!m_error.isEmpty()) {
        qWarning("Configuration file \"%s\" is not used: %s", qUtf8Printable(fileName),
                 qUtf8Printable(m_error));
    }
}

bool ConfigReader::contains(const QString &objectName, const QString &valueName) const
{
    return m_values.contains(ConfigFile::key(objectName, valueName));
}

QString ConfigReader::value(const QString &objectName, const QString &valueName,
                            const QString &defaultValue) const
{
    return m_values.value(ConfigFile::key(objectName, valueName), defaultValue);
}

} // namespace Brimvale
