// SPDX-License-Identifier: MIT
#pragma once

#include "BVMServiceConfigurationFrameworkExport.h"

#include <QHash>
#include <QString>

namespace Brimvale {

/// Reads the settings of configuration objects from one INI file.
///
/// The file is read once, by the constructor. One that cannot be read, is damaged or belongs to
/// another program gives one warning and holds nothing, so that every setting keeps its default; a
/// missing or empty file is no fault and holds nothing either. The file itself is never touched. An
/// application's own file is known by its entry "ConfigurationFormat", which ConfigWriter puts into
/// every file.
class BVMSERVICECONFIGURATIONFRAMEWORK_EXPORT ConfigReader
{
public:
    explicit ConfigReader(const QString &fileName);

    /// Whether the file was read, or is missing.
    bool isValid() const { return m_error.isEmpty(); }
    /// What is wrong with the file; empty when nothing is.
    const QString &errorString() const { return m_error; }

    bool contains(const QString &objectName, const QString &valueName) const;
    /// The stored text, or @p defaultValue when there is none.
    QString value(const QString &objectName, const QString &valueName,
                  const QString &defaultValue = QString()) const;

private:
    QString m_error;
    QHash<QString, QString> m_values; // by the key of the settings file
};

} // namespace Brimvale
