// SPDX-License-Identifier: MIT
#include "style/StyleSheetDirective_p.h"

#include <QString>

namespace Brimvale {

namespace {

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

} // namespace

std::optional<StyleSheetDirective> StyleSheetDirective::include(QStringView line)
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
    return StyleSheetDirective{
        line.left(closing + 1), line.mid(opening + 1, closing - opening - 1), {}};
}

std::optional<StyleSheetDirective> StyleSheetDirective::define(QStringView line)
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
    return StyleSheetDirective{line, line.mid(name, nameEnd - name),
                               line.mid(value, valueEnd - value)};
}

} // namespace Brimvale
