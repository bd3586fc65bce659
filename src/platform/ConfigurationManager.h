// SPDX-License-Identifier: MIT
#pragma once

#include "BVMServiceConfigurationFrameworkExport.h"

#include <QString>

#include <map>
#include <memory>

namespace Brimvale {

class ConfigReader;
class ConfigurationObject;

/// The application's configuration objects, one for each name.
///
/// The manager remembers what the file that was loaded last holds, so that an object which is
/// registered later gets its stored values, too. An unusable file changes nothing in that; saving
/// to the same file brings it up to date; setDefaultValues() forgets it.
class BVMSERVICECONFIGURATIONFRAMEWORK_EXPORT ConfigurationManager
{
public:
    static ConfigurationManager &instance();

    ConfigurationManager();
    ~ConfigurationManager();
    ConfigurationManager(const ConfigurationManager &) = delete;
    ConfigurationManager &operator=(const ConfigurationManager &) = delete;

    /// Takes @p object over, loads it from what is remembered and returns it. Where the name is
    /// registered already, drops it and returns the registered object as it is. Null for null.
    ConfigurationObject *registerObject(std::unique_ptr<ConfigurationObject> object);
    /// The registered object of that name, or null.
    ConfigurationObject *object(const QString &name) const;

    /// Loads all registered objects from the file. False, and no change, when that is unusable.
    bool load(const QString &fileName);
    /// Loads one registered object anew from what is remembered, for one that has come to take
    /// stored values only now. Does nothing while no file has been loaded.
    void reload(ConfigurationObject &object) const;
    /// Saves all registered objects to the file. False, with a warning, when that fails.
    bool save(const QString &fileName);
    /// Sets all registered objects to their defaults.
    void setDefaultValues();

private:
    QString m_loadedFile;                   // path of the remembered file
    std::shared_ptr<ConfigReader> m_loaded; // null while nothing is remembered
    std::map<QString, std::unique_ptr<ConfigurationObject>> m_objects;
};

} // namespace Brimvale
