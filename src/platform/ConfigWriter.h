// SPDX-License-Identifier: MIT
#pragma once

#include "BVMServiceConfigurationFrameworkExport.h"

#include <QString>

#include <map>

namespace Brimvale {

/// Collects the settings of configuration objects and writes them to one INI file in one step.
///
/// Settings that the file holds already and nobody sets anew stay in it. The file is replaced
/// atomically, its folder made when it is missing. A file that ConfigReader does not use is kept
/// beside the new one with the ending ".bak" and takes the place of an earlier one of that name.
class BVMSERVICECONFIGURATIONFRAMEWORK_EXPORT ConfigWriter
{
public:
    explicit ConfigWriter(const QString &fileName);

    /// Any text is stored as it is; without an object's or a value's name nothing is.
    void setValue(const QString &objectName, const QString &valueName, const QString &value);
    /// Writes the file. On failure warns, leaves the old file untouched and returns false.
    bool commit();

private:
    QString m_fileName;
    std::map<QString, QString> m_values; // by the key of the settings file
};

} // namespace Brimvale
