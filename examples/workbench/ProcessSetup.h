// SPDX-License-Identifier: MIT
#pragma once

#include "FieldValues.h"
#include "OperationSetup.h"

#include <QString>

#include <vector>

class QStringList;

/// One deep-drawing process: the values of SetupFields, and the operations in their order.
///
/// A new set-up has no values and no operations yet.
class ProcessSetup : public FieldValues
{
public:
    ProcessSetup();

    const QString &title() const { return m_title; }
    void setTitle(const QString &title);
    /// Where the values come from.
    const QString &source() const { return m_source; }
    void setSource(const QString &source);
    const std::vector<OperationSetup> &operations() const { return m_operations; }
    void setOperations(const std::vector<OperationSetup> &operations) { m_operations = operations; }

    /// The names of the fields without a value; those of operations that are skipped may be
    /// missing.
    QStringList missingFields() const;

    /// Equal to the last bit.
    bool operator==(const ProcessSetup &other) const;
    bool operator!=(const ProcessSetup &other) const { return !(*this == other); }

private:
    QString m_title;
    QString m_source;
    std::vector<OperationSetup> m_operations;
};
