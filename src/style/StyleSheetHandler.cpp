// SPDX-License-Identifier: MIT
#include "style/StyleSheetHandler.h"

#include "style/StyleSheetComments_p.h"
#include "style/StyleSheetDirective_p.h"
#include "style/StyleSheetPreprocessor_p.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QSaveFile>
#include <QStyle>
#include <QStyleFactory>

#include <algorithm>

namespace Brimvale {

namespace {

struct FontSizeDefine
{
    const char *name;
    qint64 offset; // from the normal size, in points
};

constexpr FontSizeDefine s_fontSizes[] = {
    {"bvFontSize", 0},           {"bvFontSizeSmall", -1}, {"bvFontSizeSmaller", -2},
    {"bvFontSizeVerySmall", -3}, {"bvFontSizeBig", 1},
};
constexpr qint64 s_smallestFontSize = 1; // points

struct LightDefine
{
    const char *name;
    const char *light;
    const char *normal;
};

constexpr LightDefine s_lightDefines[] = {
    {"textColorError", "#ffaaaa", "#ff4d4d"},
    {"textColorError2", "#b30000", "#990000"},
};

QString resourceDirectory()
{
    // Without an application object the folder of the program is unknown.
    const QString program =
        QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QStringLiteral(".");
    return program + QLatin1String("/../Resources/");
}

// Rules out devices and pipes, which may have no end.
bool isReadableFile(const QFileInfo &info)
{
    return !info.filePath().contains(QChar()) && info.isFile();
}

bool writeFile(const QString &fileName, const QString &text)
{
    if (fileName.isEmpty() || fileName.contains(QChar()) ||
        !QDir().mkpath(QFileInfo(fileName).absolutePath()))
        return false;
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(text.toUtf8());
    return file.commit();
}

bool isOneWord(const QString &text)
{
    return !text.isEmpty() &&
           std::none_of(text.cbegin(), text.cend(), [](QChar c) { return c.isSpace(); });
}

bool holdsCommentMarks(const QString &text)
{
    const UncommentedSheet sheet = removeComments(text);
    return !sheet.gaps.empty() || !sheet.strayEnds.empty();
}

// Copies a sheet and replaces pieces of it that are found in the text without its comments, which
// are all kept. Positions are those in that text and grow from call to call.
class CommentedSheetEditor
{
public:
    CommentedSheetEditor(const QString &original, const UncommentedSheet &sheet)
        : m_original(original)
        , m_gaps(sheet.gaps)
    {
    }

    void replace(int from, int to, const QString &value)
    {
        keepUpTo(from);
        m_result += value;
        // Together with the comment that follows, this would make another mark.
        if (hasGapUpTo(to) &&
            (value.endsWith(QLatin1Char('/')) || value.endsWith(QLatin1Char('*'))))
            m_result += QLatin1Char(' ');
        while (hasGapUpTo(to - 1)) {
            passText(m_gaps[m_gap].position);
            keepComment();
        }
        passText(to);
    }

    QString finish() { return m_result += m_original.midRef(m_copied); }

private:
    bool hasGapUpTo(int position) const
    {
        return m_gap < m_gaps.size() && m_gaps[m_gap].position <= position;
    }

    void keepUpTo(int position)
    {
        while (hasGapUpTo(position)) {
            keepText(m_gaps[m_gap].position);
            keepComment();
        }
        keepText(position);
    }

    void keepText(int to)
    {
        m_result += m_original.midRef(m_copied, to - m_position);
        passText(to);
    }

    void passText(int to)
    {
        m_copied += to - m_position;
        m_position = to;
    }

    void keepComment()
    {
        const int length = m_gaps[m_gap++].length;
        m_result += m_original.midRef(m_copied, length);
        m_copied += length;
    }

    const QString &m_original;
    const std::vector<UncommentedSheet::Gap> &m_gaps;
    QString m_result;
    int m_copied = 0;   // up to here in the original
    int m_position = 0; // the same place without comments
    std::size_t m_gap = 0;
};

} // namespace

const QString StyleSheetHandler::s_defaultCSS = QStringLiteral(":/Style/General/BVMarlo.css");

StyleSheetHandler::StyleSheetHandler(bool resourceMode)
    : m_resourceMode(resourceMode)
{
    if (resourceMode)
        m_baseDirectory.setPath(resourceDirectory());
}

StyleSheetHandler::StyleSheetHandler(const QString &path)
{
    const QFileInfo info(path);
    if (path.isEmpty())
        return;
    if (info.isDir() || info.fileName().isEmpty()) {
        m_baseDirectory.setPath(path);
        return;
    }
    m_baseDirectory.setPath(info.absolutePath());
    load(path.startsWith(QLatin1Char(':')) ? path : info.fileName());
}

StyleSheetHandler::StyleSheetHandler(const char *path)
    : StyleSheetHandler(QString::fromUtf8(path))
{
}

StyleSheetHandler::StyleSheetHandler(const QByteArray &path)
    : StyleSheetHandler(QString::fromUtf8(path))
{
}

StyleSheetHandler::StyleSheetHandler(const StyleSheetHandler &other) = default;
StyleSheetHandler::StyleSheetHandler(StyleSheetHandler &&other) noexcept = default;
StyleSheetHandler &StyleSheetHandler::operator=(const StyleSheetHandler &other) = default;
StyleSheetHandler &StyleSheetHandler::operator=(StyleSheetHandler &&other) noexcept = default;
StyleSheetHandler::~StyleSheetHandler() = default;

QString StyleSheetHandler::load()
{
    StyleSheetHandler handler(true);
    handler.load(s_defaultCSS);
    return handler.getStyleSheet();
}

void StyleSheetHandler::load(const QString &path)
{
    m_styleSheet.clear();
    m_parts.clear();
    m_defines.clear();
    m_partNames.clear();
    m_diagnostics.clear();
    m_dirty = true;
    if (!path.isEmpty())
        m_partNames.append(path);
}

void StyleSheetHandler::reload()
{
    if (!m_partNames.isEmpty())
        load(QString(m_partNames.first())); // a copy, since loading empties the list
}

void StyleSheetHandler::setPath(const QString &path)
{
    m_baseDirectory.setPath(path);
}

QString StyleSheetHandler::getPath() const
{
    return m_baseDirectory.path();
}

QString StyleSheetHandler::getStyleSheet()
{
    expandIfDirty();
    return m_styleSheet;
}

QString StyleSheetHandler::getReduced()
{
    return getStyleSheet();
}

void StyleSheetHandler::expandIfDirty()
{
    if (!m_dirty || m_partNames.isEmpty())
        return;
    StyleSheetPreprocessor preprocessor(m_userDefines, basePalette(),
                                        [this](const QString &path) { return part(path); });
    ExpandedStyleSheet expanded = preprocessor.expand(m_partNames.first());
    m_styleSheet = std::move(expanded.text);
    m_defines = std::move(expanded.defines);
    m_partNames = std::move(expanded.partNames);
    m_palette = expanded.palette;
    m_diagnostics = std::move(expanded.diagnostics);
    m_dirty = false;
}

QString StyleSheetHandler::part(const QString &path)
{
    const auto known = m_parts.constFind(path);
    return known != m_parts.constEnd() ? *known : *m_parts.insert(path, readFromFile(path));
}

QStringList StyleSheetHandler::getPartNames()
{
    expandIfDirty();
    return m_partNames;
}

QString StyleSheetHandler::getPart(const QString &name)
{
    return getPartNames().contains(name) ? m_parts.value(name) : QString();
}

void StyleSheetHandler::setPart(const QString &name, const QString &text)
{
    if (!getPartNames().contains(name))
        return;
    const QString known = m_parts.value(name);
    if (known == text && !known.isNull()) // a null text means that there is no file
        return;
    m_parts.insert(name, text.isNull() ? QLatin1String("") : text);
    m_dirty = true;
}

bool StyleSheetHandler::savePartToFile(const QString &name)
{
    if (!getPartNames().contains(name) || m_parts.value(name).isNull())
        return false;
    const QString path = replacePath(name, AbsolutePath);
    return writeFile(m_baseDirectory.absoluteFilePath(path), m_parts.value(name));
}

bool StyleSheetHandler::save(const QString &fileName)
{
    return writeFile(fileName, getStyleSheet());
}

void StyleSheetHandler::setUserDefine(const QString &name, const QString &value)
{
    const auto known = m_userDefines.constFind(name);
    if (known != m_userDefines.constEnd() && *known == value)
        return;
    m_userDefines.insert(name, value);
    m_dirty = true;
}

QString StyleSheetHandler::getDefined(const QString &name)
{
    expandIfDirty();
    return m_defines.value(name, m_userDefines.value(name));
}

void StyleSheetHandler::setDefinedFontSize(int n)
{
    if (n < s_smallestFontSize)
        return;
    for (const FontSizeDefine &size : s_fontSizes)
        setUserDefine(QLatin1String(size.name),
                      QString::number(std::max(n + size.offset, s_smallestFontSize)));
}

bool StyleSheetHandler::setUseLightVersion(bool on)
{
    if (on == m_lightVersion)
        return false;
    m_lightVersion = on;
    for (const LightDefine &define : s_lightDefines)
        setUserDefine(QLatin1String(define.name), QLatin1String(on ? define.light : define.normal));
    return true;
}

QString StyleSheetHandler::replaceDefine(const QString &text, const QString &name,
                                         const QString &value)
{
    if (!isOneWord(name) || !isOneWord(value) || holdsCommentMarks(value))
        return text;
    const UncommentedSheet sheet = removeComments(text);
    CommentedSheetEditor editor(text, sheet);
    for (UncommentedLines lines(sheet); lines.next();) {
        const auto define = StyleSheetDirective::define(lines.line());
        if (!define || define->name != name)
            continue;
        const int from = int(define->value.data() - sheet.text.constData());
        editor.replace(from, from + int(define->value.size()), value);
    }
    return editor.finish();
}

QString StyleSheetHandler::replacePath(const QString &path, StylePathType type) const
{
    const QString base = m_baseDirectory.absolutePath();
    const bool isResource = path.startsWith(QLatin1Char(':'));
    if (type == AbsolutePath)
        return isResource ? QDir::cleanPath(base + QLatin1Char('/') + path.midRef(1)) : path;
    const QString prefix = base.endsWith(QLatin1Char('/')) ? base : base + QLatin1Char('/');
    const QString clean = QDir::cleanPath(path);
    return !isResource && clean.startsWith(prefix) ? QLatin1String(":/") + clean.mid(prefix.size())
                                                   : path;
}

QPalette StyleSheetHandler::getPalette()
{
    expandIfDirty();
    return m_partNames.isEmpty() ? basePalette() : m_palette;
}

QPalette StyleSheetHandler::basePalette() const
{
    const QStyle *const style = getBaseStyle();
    return style ? style->standardPalette() : QPalette();
}

QStyle *StyleSheetHandler::getBaseStyle() const
{
    // The application may be given it, and deletes the styles that it replaces.
    static QPointer<QStyle> s_style;
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return nullptr;
    if (!s_style)
        s_style = QStyleFactory::create(QStringLiteral("Fusion"));
    if (!s_style)
        return QApplication::style();
    if (!s_style->parent())
        s_style->setParent(qApp);
    return s_style;
}

QList<StyleSheetDiagnostic> StyleSheetHandler::diagnostics()
{
    expandIfDirty();
    return m_diagnostics;
}

QString StyleSheetHandler::filePath(const QString &path) const
{
    if (m_resourceMode)
        return path.startsWith(QLatin1String(":/")) ? path : QLatin1String(":/") + path;
    if (!path.startsWith(QLatin1Char(':')))
        return m_baseDirectory.absoluteFilePath(path);
    const QString local = replacePath(path, AbsolutePath);
    return isReadableFile(QFileInfo(local)) ? local : path;
}

QString StyleSheetHandler::readFromFile(const QString &path)
{
    const QString fileName = filePath(path);
    const QFileInfo info(fileName);
    QFile file(fileName);
    if (!isReadableFile(info) || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return QString();
    const QString text = QString::fromUtf8(file.readAll());
    return text.isNull() ? QLatin1String("") : text;
}

} // namespace Brimvale
