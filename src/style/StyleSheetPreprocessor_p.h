// SPDX-License-Identifier: MIT
#pragma once

#include "style/StyleSheetComments_p.h"
#include "style/StyleSheetDefines_p.h"
#include "style/StyleSheetDiagnostic.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QPalette>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>

namespace Brimvale {

class SelectorSuffix;
struct StyleSheetDirective;

/// What the expansion of a top-level sheet gives.
struct ExpandedStyleSheet
{
    QString text;
    QMap<QString, QString> defines;
    QStringList partNames;
    QPalette palette;
    QList<StyleSheetDiagnostic> diagnostics;
};

/// Expands one top-level sheet: a pure function of the texts of the parts, of the user defines and
/// of the palette that the sheets change.
class StyleSheetPreprocessor
{
public:
    /// Gives the text of a part; a null one if there is none. Asked at most once for each path.
    using PartReader = std::function<QString(const QString &path)>;

    StyleSheetPreprocessor(const QHash<QString, QString> &userDefines, const QPalette &palette,
                           PartReader readPart);

    ExpandedStyleSheet expand(const QString &topPath);

private:
    const UncommentedSheet &part(const QString &path);
    void expandPart(const QString &path);
    void expandLine(UncommentedLines &lines, SelectorSuffix &suffix);
    void include(const StyleSheetDirective &directive, int line);
    void includePart(const QString &path, int line);
    bool mayInclude(const QString &path, int line);
    void define(const StyleSheetDirective &directive);
    void appendPlainLine(UncommentedLines &lines, SelectorSuffix &suffix);
    int room() const;
    QString substituted(UncommentedLines &lines);
    void appendMarker(QLatin1String prefix, QStringView directive);
    void addPartName(const QString &path);
    void report(StyleSheetDiagnostic::Kind kind, const QString &file, int line,
                const QString &text);
    void reportLimit(int line, const QString &text);

    const QHash<QString, QString> &m_userDefines;
    PartReader m_readPart;
    ExpandedStyleSheet m_result;
    StyleSheetDefines m_defines;
    std::map<QString, UncommentedSheet> m_sheets; // references stay valid while it grows
    QSet<QString> m_missing;
    QSet<QString> m_knownNames;
    QSet<StyleSheetDiagnostic> m_knownFindings;
    QStringList m_openParts; // the chain of includes, the top-level sheet first
    int m_includes = 0;
    bool m_limitReported = false;
};

} // namespace Brimvale
