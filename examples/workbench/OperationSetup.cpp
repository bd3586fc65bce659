// SPDX-License-Identifier: MIT
#include "OperationSetup.h"

#include "OperationKinds.h"
#include "SetupFields.h"

#include <QCoreApplication>
#include <QStringList>

OperationSetup::OperationSetup(int kindIndex)
    : kind(kindIndex)
    , name(SetupFields::translated(OperationKinds::kind(kindIndex).name))
    , values(OperationKinds::kind(kindIndex).fields.size())
{
}

QStringList OperationSetup::missingFields() const
{
    QStringList names = SetupFields::missing(OperationKinds::kind(kind).fields, values);
    for (QString &field : names)
        field = fieldName(name, field);
    return names;
}

QString OperationSetup::fieldName(const QString &operation, const QString &field)
{
    //: %1 is the name of an operation, %2 that of one of its fields
    return QCoreApplication::translate("OperationSetup", "%1: %2").arg(operation, field);
}

bool OperationSetup::operator==(const OperationSetup &other) const
{
    return kind == other.kind && name == other.name && isSkipped == other.isSkipped &&
           values == other.values;
}
