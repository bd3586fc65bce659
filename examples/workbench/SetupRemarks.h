// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class ProcessSetup;

/// Something about a set-up that a person should look at.
struct SetupRemark
{
    int field; ///< index of SetupFields
    QString text;
};

namespace SetupRemarks {

/// What does not go together, though each value makes sense by itself. Values that are missing are
/// not judged.
std::vector<SetupRemark> of(const ProcessSetup &setup);

} // namespace SetupRemarks
