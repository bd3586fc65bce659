// SPDX-License-Identifier: MIT
#include "style/StyleSheetSuffix_p.h"

namespace Brimvale {

namespace {

// The character that closes what @p c opens, or null.
QChar closingOf(QChar c)
{
    switch (c.unicode()) {
    case '[':
        return QLatin1Char(']');
    case '"':
    case '\'':
        return c;
    default:
        return QChar();
    }
}

bool isDelimiter(QChar c)
{
    return c == QLatin1Char('{') || c == QLatin1Char('}') || c == QLatin1Char(',') ||
           c == QLatin1Char('\r');
}

// The position of the next delimiter outside brackets and quotes, or the size of the line.
qsizetype nextDelimiter(QStringView line, qsizetype from)
{
    for (qsizetype i = from; i < line.size(); ++i) {
        if (isDelimiter(line.at(i)))
            return i;
        const QChar closing = closingOf(line.at(i));
        const qsizetype end = closing.isNull() ? -1 : line.indexOf(closing, i + 1);
        if (end > 0)
            i = end;
    }
    return line.size();
}

} // namespace

void SelectorSuffix::open(QStringView suffix)
{
    if (!isOpen())
        m_depth = 0;
    m_suffix = suffix.toString();
}

void SelectorSuffix::close()
{
    m_suffix.clear();
}

void SelectorSuffix::appendLine(QStringView line, QString &output)
{
    for (qsizetype begin = 0; begin < line.size();) {
        const qsizetype end = nextDelimiter(line, begin);
        const QChar delimiter = end < line.size() ? line.at(end) : QChar();
        appendPiece(line.mid(begin, end - begin), delimiter, output);
        if (end < line.size())
            output.append(delimiter);
        followDepth(delimiter);
        begin = end + 1;
    }
}

void SelectorSuffix::appendPiece(QStringView piece, QChar delimiter, QString &output) const
{
    const QStringView selector = piece.trimmed();
    // Text before a closing brace belongs to a rule that began before the block.
    if (m_depth > 0 || selector.isEmpty() || delimiter == QLatin1Char('}')) {
        output.append(piece.data(), int(piece.size()));
        return;
    }
    output.append(selector.data(), int(selector.size()));
    output.append(m_suffix);
}

void SelectorSuffix::followDepth(QChar delimiter)
{
    if (delimiter == QLatin1Char('{'))
        ++m_depth;
    else if (delimiter == QLatin1Char('}') && m_depth > 0)
        --m_depth;
}

} // namespace Brimvale
