// SPDX-License-Identifier: MIT
#pragma once

#include "BVMServiceConfigurationFrameworkExport.h"

#include <QString>

#include <map>
#include <memory>

namespace Brimvale {

class ConfigurationObject;

/// The application's configuration objects, one for each name.
class BVMSERVICECONFIGURATIONFRAMEWORK_EXPORT ConfigurationManager
{
public:
    static ConfigurationManager &instance();

    ConfigurationManager();
    ~ConfigurationManager();
    ConfigurationManager(const ConfigurationManager &) = delete;
    ConfigurationManager &operator=(const ConfigurationManager &) = delete;

    /// Takes @p object over and returns it; when the name is registered already, returns the
    /// registered object and drops the new one. Null for null.
    ConfigurationObject *registerObject(std::unique_ptr<ConfigurationObject> object);
    /// The registered object of that name, or null.
    ConfigurationObject *object(const QString &name) const;

    /// Loads all registered objects from the file. False when the file is unusable: then nothing
    /// changes.
    bool load(const QString &fileName);
    /// Saves all registered objects to the file. False, with a warning, when that fails.
    bool save(const QString &fileName) const;
    /// Sets all registered objects to their defaults.
    void setDefaultValues();

private:
    std::map<QString, std::unique_ptr<ConfigurationObject>> m_objects;
};

} // namespace Brimvale
