// SPDX-License-Identifier: MIT
#pragma once

#include "SetupFields.h"

#include <QString>

#include <vector>

/// A kind of forming operation. Start page, pages and files follow from the table of these.
struct OperationKind
{
    const char *key;     ///< in files
    const char *name;    ///< to be translated as the texts of fields are
    const char *purpose; ///< in a few words, to be translated likewise
    std::vector<SetupField> fields;
};

namespace OperationKinds {

/// In the order in which a part goes through them.
const std::vector<OperationKind> &kinds();
const OperationKind &kind(int index);
/// The index of the kind of that key, or -1.
int find(const QString &key);
/// The index of the field of that key in the kind, or -1.
int findField(int kind, const QString &key);

} // namespace OperationKinds
