// SPDX-License-Identifier: MIT
#pragma once

#include "BVMServiceConfigurationFrameworkExport.h"

#include <QString>

#include <memory>
#include <vector>

namespace Brimvale {

class ConfigReader;
class ConfigurationValue;
class ConfigWriter;

/// A named group of settings that is loaded and saved as a whole.
///
/// The object owns its values; copying it copies them, and a derived class that keeps pointers to
/// values looks them up again with configurationValue(). Assignment writes into the values of equal
/// name, so that pointers to those stay good, adds what is missing and removes what the other does
/// not have.
class BVMSERVICECONFIGURATIONFRAMEWORK_EXPORT ConfigurationObject
{
public:
    explicit ConfigurationObject(const QString &name);
    ConfigurationObject(const ConfigurationObject &other);
    ConfigurationObject &operator=(const ConfigurationObject &other);
    virtual ~ConfigurationObject();

    const QString &name() const { return m_name; }

    /// Takes @p value over and returns it; null when it is null, its name empty or taken already.
    ConfigurationValue *addConfigurationValue(std::unique_ptr<ConfigurationValue> value);
    /// The value of that name, or null.
    ConfigurationValue *configurationValue(const QString &name) const;
    /// All values in the order in which they were added; owned by the object.
    std::vector<ConfigurationValue *> configurationValues() const;

    /// Takes every value that @p reader holds for this object; the others keep what they have.
    virtual void loadContent(ConfigReader &reader);
    /// Hands all values to @p writer.
    virtual void saveContent(ConfigWriter &writer) const;
    /// Resets every value to its default.
    virtual void setDefaultValues();
    /// A new copy of the object.
    virtual std::unique_ptr<ConfigurationObject> createConfigurationObject() const;

private:
    /// Takes the value of the source's name out of this object, or makes one, and assigns to it.
    std::unique_ptr<ConfigurationValue> assignedValue(const ConfigurationValue &source);

    QString m_name;
    std::vector<std::unique_ptr<ConfigurationValue>> m_values;
};

} // namespace Brimvale
