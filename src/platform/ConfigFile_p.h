// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <map>

namespace Brimvale {

/// Content and syntax of a configuration file, for ConfigReader and ConfigWriter.
namespace ConfigFile {

using Values = std::map<QString, QVariant>; // by the key of the settings file

/// What a file holds. With an error it holds nothing.
struct Content
{
    Values values;
    QString error;
};

/// The key under which a value of an object is stored. Slashes in the names do not separate groups.
QString key(const QString &objectName, const QString &valueName);

/// Reads the file. A missing or an empty one holds nothing and is no error.
Content read(const QString &fileName);

/// The values in the form of a file; empty, which no file is, when that fails.
QByteArray toBytes(const Values &values);

} // namespace ConfigFile
} // namespace Brimvale
