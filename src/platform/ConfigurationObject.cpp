// SPDX-License-Identifier: MIT
#include "platform/ConfigurationObject.h"

#include "platform/ConfigReader.h"
#include "platform/ConfigWriter.h"
#include "platform/ConfigurationValue.h"

#include <algorithm>

namespace Brimvale {

namespace {

using Values = std::vector<std::unique_ptr<ConfigurationValue>>;

Values::const_iterator findValue(const Values &values, const QString &name)
{
    return std::find_if(values.cbegin(), values.cend(),
                        [&name](const auto &value) { return value->name() == name; });
}

} // namespace

ConfigurationObject::ConfigurationObject(const QString &name)
    : m_name(name)
{
}

ConfigurationObject::ConfigurationObject(const ConfigurationObject &other)
    : m_name(other.m_name)
{
    m_values.reserve(other.m_values.size());
    for (const auto &value : other.m_values)
        m_values.push_back(std::make_unique<ConfigurationValue>(*value));
}

ConfigurationObject &ConfigurationObject::operator=(const ConfigurationObject &other)
{
    if (this == &other)
        return *this;
    Values values;
    values.reserve(other.m_values.size());
    for (const auto &source : other.m_values)
        values.push_back(assignedValue(*source));
    m_name = other.m_name;
    m_values = std::move(values);
    return *this;
}

std::unique_ptr<ConfigurationValue>
ConfigurationObject::assignedValue(const ConfigurationValue &source)
{
    const auto it = findValue(m_values, source.name());
    if (it == m_values.cend())
        return std::make_unique<ConfigurationValue>(source);
    const auto position = m_values.begin() + (it - m_values.cbegin());
    std::unique_ptr<ConfigurationValue> value = std::move(*position);
    m_values.erase(position);
    *value = source;
    return value;
}

ConfigurationObject::~ConfigurationObject() = default;

ConfigurationValue *
ConfigurationObject::addConfigurationValue(std::unique_ptr<ConfigurationValue> value)
{
    if (!value || value->name().isEmpty() || configurationValue(value->name()))
        return nullptr;
    m_values.push_back(std::move(value));
    return m_values.back().get();
}

ConfigurationValue *ConfigurationObject::configurationValue(const QString &name) const
{
    const auto it = findValue(m_values, name);
    return it == m_values.cend() ? nullptr : it->get();
}

std::vector<ConfigurationValue *> ConfigurationObject::configurationValues() const
{
    std::vector<ConfigurationValue *> values;
    values.reserve(m_values.size());
    for (const auto &value : m_values)
        values.push_back(value.get());
    return values;
}

void ConfigurationObject::loadContent(ConfigReader &reader)
{
    for (const auto &value : m_values) {
        if (reader.contains(m_name, value->name()))
            value->setValue(reader.value(m_name, value->name()));
    }
}

void ConfigurationObject::saveContent(ConfigWriter &writer) const
{
    for (const auto &value : m_values)
        writer.setValue(m_name, value->name(), value->value());
}

void ConfigurationObject::setDefaultValues()
{
    for (const auto &value : m_values)
        value->reset();
}

std::unique_ptr<ConfigurationObject> ConfigurationObject::createConfigurationObject() const
{
    return std::make_unique<ConfigurationObject>(*this);
}

} // namespace Brimvale
