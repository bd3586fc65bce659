// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

namespace Brimvale {

/// One finding of the expansion of a style sheet; the expansion itself goes on past every one.
struct StyleSheetDiagnostic
{
    enum class Kind {
        MissingFile,     ///< a sheet could not be read; it contributes an empty text
        CircularInclude, ///< a sheet includes itself, directly or through others; left out there
        StrayCommentEnd, ///< a "*/" that closes no comment; it stays in the text
        LimitReached,    ///< the sheet grows without end; from here on it grows no further
    };

    Kind kind = Kind::MissingFile;
    QString file; ///< the sheet with the finding, as its path is written
    int line = 0; ///< in that sheet, from 1; 0 when the top-level sheet itself is missing
    QString text; ///< what it is about: the included path, "*/", the name of a define, a suffix

    friend bool operator==(const StyleSheetDiagnostic &first, const StyleSheetDiagnostic &second)
    {
        return first.line == second.line && first.kind == second.kind &&
               first.file == second.file && first.text == second.text;
    }
    friend bool operator!=(const StyleSheetDiagnostic &first, const StyleSheetDiagnostic &second)
    {
        return !(first == second);
    }
    friend uint qHash(const StyleSheetDiagnostic &finding, uint seed = 0)
    {
        return qHash(finding.file, seed) ^ qHash(finding.text, ~seed) ^
               qHash(finding.line * 4 + int(finding.kind), seed);
    }
};

} // namespace Brimvale
