// SPDX-License-Identifier: MIT
#include "style/StyleSheetPreprocessor_p.h"

#include "style/StyleSheetDirective_p.h"
#include "style/StyleSheetSuffix_p.h"

#include <QColor>
#include <QDebug>

#include <algorithm>
#include <optional>

namespace Brimvale {

namespace {

// Far beyond any sheet that a person writes; they end sheets that multiply themselves.
constexpr int s_maximumDepth = 64;
constexpr int s_maximumIncludes = 4096;
constexpr int s_maximumLength = 16 * 1024 * 1024; // characters of the expanded sheet
// Characters that the defines, and again the suffix, may add to one line.
constexpr int s_maximumGrowth = 1 * 1024 * 1024;

struct PaletteRole
{
    const char *name;
    QPalette::ColorRole role;
};

constexpr PaletteRole s_paletteRoles[] = {
    {"alternate-base", QPalette::AlternateBase},
    {"base", QPalette::Base},
    {"bright-text", QPalette::BrightText},
    {"button", QPalette::Button},
    {"button-text", QPalette::ButtonText},
    {"dark", QPalette::Dark},
    {"highlight", QPalette::Highlight},
    {"highlighted-text", QPalette::HighlightedText},
    {"light", QPalette::Light},
    {"link", QPalette::Link},
    {"link-visited", QPalette::LinkVisited},
    {"mid", QPalette::Mid},
    {"midlight", QPalette::Midlight},
    {"shadow", QPalette::Shadow},
    {"text", QPalette::Text},
    {"tooltip-base", QPalette::ToolTipBase},
    {"tooltip-text", QPalette::ToolTipText},
    {"window", QPalette::Window},
    {"window-text", QPalette::WindowText},
};

std::optional<QPalette::ColorRole> paletteRole(QStringView name)
{
    for (const PaletteRole &entry : s_paletteRoles) {
        if (name.compare(QLatin1String(entry.name), Qt::CaseInsensitive) == 0)
            return entry.role;
    }
    return std::nullopt;
}

bool namesPalette(QStringView name)
{
    return name.startsWith(QLatin1String("palette"), Qt::CaseInsensitive);
}

void setPaletteColor(QPalette &palette, QStringView define, const QString &value)
{
    const QLatin1String opening("palette(");
    const qsizetype closing = define.indexOf(QLatin1Char(')'));
    if (!define.startsWith(opening, Qt::CaseInsensitive) || closing < 0)
        return;
    const auto role = paletteRole(define.mid(opening.size(), closing - opening.size()));
    if (role && QColor::isValidColor(value))
        palette.setBrush(*role, QColor(value));
}

// Angle brackets are rare, and looking for one character is fast.
bool hasSuffixBlocks(const QString &text)
{
    int found = text.indexOf(QLatin1Char('<'));
    while (found >= 0 && QStringView(text).mid(found + 1, 1) != QLatin1String("@"))
        found = text.indexOf(QLatin1Char('<'), found + 1);
    return found >= 0;
}

void append(QString &output, QStringView text)
{
    output.append(text.data(), int(text.size()));
}

} // namespace

StyleSheetPreprocessor::StyleSheetPreprocessor(const QHash<QString, QString> &userDefines,
                                               const QPalette &palette, PartReader readPart)
    : m_userDefines(userDefines)
    , m_readPart(std::move(readPart))
{
    m_result.palette = palette;
}

ExpandedStyleSheet StyleSheetPreprocessor::expand(const QString &topPath)
{
    addPartName(topPath);
    part(topPath);
    if (m_missing.contains(topPath))
        report(StyleSheetDiagnostic::Kind::MissingFile, topPath, 0, topPath);
    expandPart(topPath);
    m_result.defines = m_defines.values();
    return std::move(m_result);
}

const UncommentedSheet &StyleSheetPreprocessor::part(const QString &path)
{
    const auto known = m_sheets.find(path);
    if (known != m_sheets.end())
        return known->second;
    const QString text = m_readPart(path);
    if (text.isNull())
        m_missing.insert(path);
    const UncommentedSheet &sheet = m_sheets.emplace(path, removeComments(text)).first->second;
    for (const int line : sheet.strayEnds) {
        qDebug("StyleSheet comment-block closed without open");
        report(StyleSheetDiagnostic::Kind::StrayCommentEnd, path, line, QStringLiteral("*/"));
    }
    return sheet;
}

void StyleSheetPreprocessor::expandPart(const QString &path)
{
    const UncommentedSheet &sheet = part(path);
    m_openParts.append(path);
    SelectorSuffix suffix(hasSuffixBlocks(sheet.text));
    for (UncommentedLines lines(sheet); lines.next();)
        expandLine(lines, suffix);
    m_openParts.removeLast();
}

void StyleSheetPreprocessor::expandLine(UncommentedLines &lines, SelectorSuffix &suffix)
{
    const QStringView line = lines.line();
    if (const auto included = StyleSheetDirective::include(line))
        include(*included, lines.number());
    else if (const auto defined = StyleSheetDirective::define(line))
        define(*defined);
    else if (line.startsWith(QLatin1String("<@")))
        suffix.open(line.mid(2).trimmed());
    else if (line.startsWith(QLatin1String("@>")))
        suffix.close();
    else
        appendPlainLine(lines, suffix);
}

void StyleSheetPreprocessor::include(const StyleSheetDirective &directive, int line)
{
    appendMarker(QLatin1String("/* "), directive.whole);
    const QString path = directive.name.toString();
    if (mayInclude(path, line))
        includePart(path, line);
    appendMarker(QLatin1String("/* End of "), directive.whole);
}

bool StyleSheetPreprocessor::mayInclude(const QString &path, int line)
{
    if (++m_includes > s_maximumIncludes || m_openParts.size() >= s_maximumDepth ||
        m_result.text.size() > s_maximumLength) {
        reportLimit(line, path);
        return false;
    }
    if (m_openParts.contains(path)) {
        report(StyleSheetDiagnostic::Kind::CircularInclude, m_openParts.last(), line, path);
        return false;
    }
    return true;
}

void StyleSheetPreprocessor::includePart(const QString &path, int line)
{
    addPartName(path);
    part(path);
    if (m_missing.contains(path))
        report(StyleSheetDiagnostic::Kind::MissingFile, m_openParts.last(), line, path);
    expandPart(path);
}

void StyleSheetPreprocessor::define(const StyleSheetDirective &directive)
{
    const QString name = directive.name.toString();
    const QString value = directive.value.toString();
    if (namesPalette(name))
        setPaletteColor(m_result.palette, name, value);
    else
        m_defines.define(name, m_userDefines.value(name, value));
}

void StyleSheetPreprocessor::appendPlainLine(UncommentedLines &lines, SelectorSuffix &suffix)
{
    const QString changed = substituted(lines);
    const QStringView line = changed.isNull() ? lines.line() : QStringView(changed);
    if (!suffix.isUsed())
        append(m_result.text, line);
    else if (!suffix.appendLine(line, room(), m_result.text))
        reportLimit(lines.number(), suffix.suffix());
    m_result.text.append(QLatin1Char('\n'));
}

// The number of characters by which one line may grow.
int StyleSheetPreprocessor::room() const
{
    return std::clamp(s_maximumLength - m_result.text.size(), 0, s_maximumGrowth);
}

// The current line with the defines put in; null if that leaves it as it is.
QString StyleSheetPreprocessor::substituted(UncommentedLines &lines)
{
    QString refused;
    QString text = m_defines.substituted(lines.line(), room(), &refused);
    if (!refused.isEmpty())
        reportLimit(lines.number(), refused);
    return text;
}

void StyleSheetPreprocessor::appendMarker(QLatin1String prefix, QStringView directive)
{
    m_result.text.append(prefix);
    append(m_result.text, directive);
    m_result.text.append(QLatin1String(" */\n"));
}

void StyleSheetPreprocessor::addPartName(const QString &path)
{
    if (m_knownNames.contains(path))
        return;
    m_knownNames.insert(path);
    m_result.partNames.append(path);
}

void StyleSheetPreprocessor::report(StyleSheetDiagnostic::Kind kind, const QString &file, int line,
                                    const QString &text)
{
    const StyleSheetDiagnostic finding{kind, file, line, text};
    if (m_knownFindings.contains(finding))
        return;
    m_knownFindings.insert(finding);
    m_result.diagnostics.append(finding);
}

void StyleSheetPreprocessor::reportLimit(int line, const QString &text)
{
    if (!m_limitReported)
        report(StyleSheetDiagnostic::Kind::LimitReached, m_openParts.last(), line, text);
    m_limitReported = true;
}

} // namespace Brimvale
