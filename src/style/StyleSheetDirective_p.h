// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <optional>

namespace Brimvale {

/// An include or a define, as it stands in its line; the views point into that line.
struct StyleSheetDirective
{
    QStringView whole;
    QStringView name; ///< or the included path
    QStringView value;

    /// Reads `#include "path"`, which stands at the very start of a line.
    static std::optional<StyleSheetDirective> include(QStringView line);
    /// Reads `#define name value`.
    static std::optional<StyleSheetDirective> define(QStringView line);
};

} // namespace Brimvale
