// SPDX-License-Identifier: MIT
#pragma once

#include "FieldValues.h"

#include <QString>

class QStringList;

/// One operation of a process: what it does, its name, and the values of the fields of its kind.
struct OperationSetup
{
    /// Named after its kind and without values. @p kindIndex is an index of OperationKinds.
    explicit OperationSetup(int kindIndex);

    int kind;
    QString name;
    bool isSkipped = false;
    FieldValues values;

    /// The names of the fields without a value, each behind that of the operation.
    QStringList missingFields() const;
    /// The name of a field, behind that of the operation.
    static QString fieldName(const QString &operation, const QString &field);

    bool operator==(const OperationSetup &other) const;
};
