// SPDX-License-Identifier: MIT
#include "platform/ConfigurationManager.h"

#include "platform/ConfigReader.h"
#include "platform/ConfigWriter.h"
#include "platform/ConfigurationObject.h"

namespace Brimvale {

ConfigurationManager &ConfigurationManager::instance()
{
    static ConfigurationManager s_instance;
    return s_instance;
}

ConfigurationManager::ConfigurationManager() = default;
ConfigurationManager::~ConfigurationManager() = default;

ConfigurationObject *
ConfigurationManager::registerObject(std::unique_ptr<ConfigurationObject> object)
{
    if (!object)
        return nullptr;
    const QString name = object->name();
    return m_objects.try_emplace(name, std::move(object)).first->second.get();
}

ConfigurationObject *ConfigurationManager::object(const QString &name) const
{
    const auto it = m_objects.find(name);
    return it == m_objects.end() ? nullptr : it->second.get();
}

bool ConfigurationManager::load(const QString &fileName)
{
    ConfigReader reader(fileName);
    if (!reader.isValid())
        return false;
    for (const auto &[name, object] : m_objects)
        object->loadContent(reader);
    return true;
}

bool ConfigurationManager::save(const QString &fileName) const
{
    ConfigWriter writer(fileName);
    for (const auto &[name, object] : m_objects)
        object->saveContent(writer);
    return writer.commit();
}

void ConfigurationManager::setDefaultValues()
{
    for (const auto &[name, object] : m_objects)
        object->setDefaultValues();
}

} // namespace Brimvale
