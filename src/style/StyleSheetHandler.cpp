// SPDX-License-Identifier: MIT
#include "style/StyleSheetHandler.h"

#include "style/StyleSheetPreprocessor_p.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStyle>
#include <QStyleFactory>

#include <algorithm>

namespace Brimvale {

namespace {

struct FontSizeDefine
{
    const char *name;
    int offset; // from the normal size, in points
};

constexpr FontSizeDefine s_fontSizes[] = {
    {"bvFontSize", 0},           {"bvFontSizeSmall", -1}, {"bvFontSizeSmaller", -2},
    {"bvFontSizeVerySmall", -3}, {"bvFontSizeBig", 1},
};
constexpr int s_smallestFontSize = 4; // points; the smallest derived size is then 1

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
    if (info.isDir()) {
        m_baseDirectory.setPath(path);
        return;
    }
    m_baseDirectory.setPath(info.absolutePath());
    const QString sheet = info.absoluteFilePath();
    setTopPart(sheet, StyleSheetHandler::readFromFile(sheet));
}

StyleSheetHandler::StyleSheetHandler(const char *path)
    : StyleSheetHandler(QString::fromUtf8(path))
{
}

StyleSheetHandler::StyleSheetHandler(const StyleSheetHandler &other) = default;
StyleSheetHandler &StyleSheetHandler::operator=(const StyleSheetHandler &other) = default;
StyleSheetHandler::~StyleSheetHandler() = default;

QString StyleSheetHandler::load()
{
    StyleSheetHandler handler(true);
    handler.load(s_defaultCSS);
    return handler.getStyleSheet();
}

void StyleSheetHandler::load(const QString &path)
{
    setTopPart(path, readFromFile(path));
}

void StyleSheetHandler::reload()
{
    if (!m_partNames.isEmpty())
        load(QString(m_partNames.first())); // a copy, since loading empties the list
}

void StyleSheetHandler::setTopPart(const QString &path, const QString &text)
{
    m_styleSheet.clear();
    m_parts.clear();
    m_defines.clear();
    m_partNames.clear();
    m_palette = QPalette();
    m_diagnostics.clear();
    m_dirty = true;
    if (path.isEmpty())
        return;
    m_partNames.append(path);
    m_parts.insert(path, text);
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
    StyleSheetPreprocessor preprocessor(m_userDefines, QPalette(),
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
    if (!getPartNames().contains(name) || m_parts.value(name) == text)
        return;
    m_parts.insert(name, text.isNull() ? QLatin1String("") : text); // a null text means no file
    m_dirty = true;
}

bool StyleSheetHandler::savePartToFile(const QString &name)
{
    if (!getPartNames().contains(name))
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
        setUserDefine(QLatin1String(size.name), QString::number(qint64(n) + size.offset));
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
    if (!isOneWord(name) || !isOneWord(value))
        return text;
    const QRegularExpression line(QStringLiteral("^([^\\S\\n]*#define[^\\S\\n]+%1[^\\S\\n]+)\\S+")
                                      .arg(QRegularExpression::escape(name)),
                                  QRegularExpression::MultilineOption |
                                      QRegularExpression::UseUnicodePropertiesOption);
    QString result;
    int copied = 0;
    for (auto matches = line.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += text.midRef(copied, match.capturedEnd(1) - copied) + value;
        copied = match.capturedEnd();
    }
    return result + text.midRef(copied);
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
    return m_palette;
}

QStyle *StyleSheetHandler::getBaseStyle() const
{
    static QPointer<QStyle>
        s_style; // may be given to the application, which deletes replaced styles
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
    const QString text = QString::fromUtf8(file.read(info.size()));
    return text.isNull() ? QLatin1String("") : text;
}

} // namespace Brimvale
