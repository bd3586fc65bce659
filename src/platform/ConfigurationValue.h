// SPDX-License-Identifier: MIT
#pragma once

#include "BVMServiceConfigurationFrameworkExport.h"

#include <QString>
#include <QStringList>

namespace Brimvale {

/// One named setting: a text with a default, a description and, possibly, a list of allowed texts.
class BVMSERVICECONFIGURATIONFRAMEWORK_EXPORT ConfigurationValue
{
public:
    /// An empty @p allowedValues allows every text. The value starts as @p defaultValue.
    explicit ConfigurationValue(const QString &name, const QString &defaultValue = QString(),
                                const QStringList &allowedValues = QStringList(),
                                const QString &description = QString());

    const QString &name() const { return m_name; }
    const QString &defaultValue() const { return m_defaultValue; }
    const QStringList &allowedValues() const { return m_allowedValues; }
    const QString &description() const { return m_description; }

    const QString &value() const { return m_value; }
    /// Stores @p value, allowed or not; who must refuse asks isAllowed() first.
    void setValue(const QString &value);
    bool isAllowed(const QString &value) const;

    /// Goes back to the default.
    void reset();

private:
    QString m_name;
    QString m_defaultValue;
    QStringList m_allowedValues;
    QString m_description;
    QString m_value;
};

} // namespace Brimvale
