// SPDX-License-Identifier: MIT
#include "platform/ConfigurationManager.h"

#include "platform/ConfigReader.h"
#include "platform/ConfigWriter.h"
#include "platform/ConfigurationObject.h"

#include <QFileInfo>

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
    const auto [it, isNew] = m_objects.try_emplace(name, std::move(object));
    ConfigurationObject *const registered = it->second.get();
    if (isNew)
        reload(*registered);
    return registered;
}

ConfigurationObject *ConfigurationManager::object(const QString &name) const
{
    const auto it = m_objects.find(name);
    return it == m_objects.end() ? nullptr : it->second.get();
}

bool ConfigurationManager::load(const QString &fileName)
{
    const auto reader = std::make_shared<ConfigReader>(fileName);
    if (!reader->isValid())
        return false;
    m_loadedFile = QFileInfo(fileName).absoluteFilePath();
    m_loaded = reader; // first: an object that is being loaded may have another one registered
    for (const auto &[name, object] : m_objects)
        object->loadContent(*reader);
    return true;
}

void ConfigurationManager::reload(ConfigurationObject &object) const
{
    const std::shared_ptr<ConfigReader> reader = m_loaded; // the object may have a file loaded
    if (reader)
        object.loadContent(*reader);
}

bool ConfigurationManager::save(const QString &fileName)
{
    ConfigWriter writer(fileName);
    for (const auto &[name, object] : m_objects)
        object->saveContent(writer);
    if (!writer.commit())
        return false;
    if (m_loaded && m_loadedFile == QFileInfo(fileName).absoluteFilePath())
        m_loaded = std::make_shared<ConfigReader>(fileName);
    return true;
}

void ConfigurationManager::setDefaultValues()
{
    m_loaded.reset();
    for (const auto &[name, object] : m_objects)
        object->setDefaultValues();
}

} // namespace Brimvale
