// SPDX-License-Identifier: MIT
#include "platform/ConfigurationValue.h"

namespace Brimvale {

ConfigurationValue::ConfigurationValue(const QString &name, const QString &defaultValue,
                                       const QStringList &allowedValues, const QString &description)
    : m_name(name)
    , m_defaultValue(defaultValue)
    , m_allowedValues(allowedValues)
    , m_description(description)
    , m_value(defaultValue)
{
}

void ConfigurationValue::setValue(const QString &value)
{
    m_value = value;
}

bool ConfigurationValue::isAllowed(const QString &value) const
{
    return m_allowedValues.isEmpty() || m_allowedValues.contains(value);
}

void ConfigurationValue::reset()
{
    m_value = m_defaultValue;
}

} // namespace Brimvale
