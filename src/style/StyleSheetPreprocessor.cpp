// SPDX-License-Identifier: MIT
#include "style/StyleSheetPreprocessor_p.h"

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
constexpr int s_maximumLength = 16 * 1024 * 1024;    // characters of the expanded sheet
constexpr int s_maximumLineLength = 1 * 1024 * 1024; // characters that defines may swell a line to

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
    {"placeholder-text", QPalette::PlaceholderText},
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
    const auto role = paletteRole(define.mid(opening.size(), closing - opening.size()).trimmed());
    if (role && QColor::isValidColor(value))
        palette.setBrush(*role, QColor(value));
}

qsizetype skipSpaces(QStringView line, qsizetype from)
{
    while (from < line.size() && line.at(from).isSpace())
        ++from;
    return from;
}

qsizetype skipWord(QStringView line, qsizetype from)
{
    while (from < line.size() && !line.at(from).isSpace())
        ++from;
    return from;
}

void append(QString &output, QStringView text)
{
    output.append(text.data(), int(text.size()));
}

} // namespace

/// An include or a define, as it stands in its line.
struct StyleSheetPreprocessor::Directive
{
    QStringView whole;
    QStringView name; // or the included path
    QStringView value;

    // #include "path", at the very start of the line
    static std::optional<Directive> include(QStringView line)
    {
        const QLatin1String keyword("#include");
        if (!line.startsWith(keyword))
            return std::nullopt;
        const qsizetype opening = skipSpaces(line, keyword.size());
        if (opening == line.size() || line.at(opening) != QLatin1Char('"'))
            return std::nullopt;
        const qsizetype closing = line.indexOf(QLatin1Char('"'), opening + 1);
        if (closing < 0)
            return std::nullopt;
        return Directive{line.left(closing + 1), line.mid(opening + 1, closing - opening - 1), {}};
    }

    // #define name value
    static std::optional<Directive> define(QStringView line)
    {
        const QLatin1String keyword("#define");
        const qsizetype start = skipSpaces(line, 0);
        if (!line.mid(start).startsWith(keyword))
            return std::nullopt;
        const qsizetype keywordEnd = start + keyword.size();
        const qsizetype name = skipSpaces(line, keywordEnd);
        const qsizetype nameEnd = skipWord(line, name);
        const qsizetype value = skipSpaces(line, nameEnd);
        const qsizetype valueEnd = skipWord(line, value);
        if (name == keywordEnd || value == valueEnd)
            return std::nullopt;
        return Directive{line, line.mid(name, nameEnd - name), line.mid(value, valueEnd - value)};
    }
};

StyleSheetPreprocessor::StyleSheetPreprocessor(const QHash<QString, QString> &userDefines,
                                               PartReader readPart)
    : m_userDefines(userDefines)
    , m_readPart(std::move(readPart))
{
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
    SelectorSuffix suffix;
    for (UncommentedLines lines(sheet); lines.next();)
        expandLine(lines, suffix);
    m_openParts.removeLast();
}

void StyleSheetPreprocessor::expandLine(UncommentedLines &lines, SelectorSuffix &suffix)
{
    const QStringView line = lines.line();
    if (const auto included = Directive::include(line))
        include(*included, lines.number());
    else if (const auto defined = Directive::define(line))
        define(*defined);
    else if (line.startsWith(QLatin1String("<@")))
        suffix.open(line.mid(2).trimmed());
    else if (line.startsWith(QLatin1String("@>")))
        suffix.close();
    else
        appendPlainLine(lines, suffix);
}

void StyleSheetPreprocessor::include(const Directive &directive, int line)
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

void StyleSheetPreprocessor::define(const Directive &directive)
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
    if (suffix.isOpen())
        suffix.appendLine(line, m_result.text);
    else
        append(m_result.text, line);
    m_result.text.append(QLatin1Char('\n'));
}

// The current line with the defines put in; null if that leaves it as it is.
QString StyleSheetPreprocessor::substituted(UncommentedLines &lines)
{
    const int room = std::min(s_maximumLength - m_result.text.size(), s_maximumLineLength);
    QString refused;
    QString text = m_defines.substituted(lines.line(), room, &refused);
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
    if (!m_result.diagnostics.contains(finding))
        m_result.diagnostics.append(finding);
}

void StyleSheetPreprocessor::reportLimit(int line, const QString &text)
{
    if (!m_limitReported)
        report(StyleSheetDiagnostic::Kind::LimitReached, m_openParts.last(), line, text);
    m_limitReported = true;
}

} // namespace Brimvale
