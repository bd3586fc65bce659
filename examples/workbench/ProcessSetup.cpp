// SPDX-License-Identifier: MIT
#include "ProcessSetup.h"

#include "SetupFields.h"

#include <QStringList>

ProcessSetup::ProcessSetup()
    : FieldValues(SetupFields::fields().size())
{
}

void ProcessSetup::setTitle(const QString &title)
{
    m_title = storableText(title);
}

void ProcessSetup::setSource(const QString &source)
{
    m_source = storableText(source);
}

QStringList ProcessSetup::missingFields() const
{
    QStringList names = SetupFields::missing(SetupFields::fields(), *this);
    for (const OperationSetup &operation : m_operations) {
        if (!operation.isSkipped)
            names << operation.missingFields();
    }
    return names;
}

bool ProcessSetup::operator==(const ProcessSetup &other) const
{
    return FieldValues::operator==(other) && m_title == other.m_title &&
           m_source == other.m_source && m_operations == other.m_operations;
}
