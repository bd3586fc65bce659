// SPDX-License-Identifier: MIT
#include "style/StyleSheetSuffix_p.h"

#include <algorithm>

namespace Brimvale {

namespace {

bool isDelimiter(QChar c)
{
    return c == QLatin1Char('{') || c == QLatin1Char('}') || c == QLatin1Char(',') ||
           c == QLatin1Char('\r') || c == QLatin1Char('\n');
}

bool isQuote(QChar c)
{
    return c == QLatin1Char('"') || c == QLatin1Char('\'');
}

bool endsDeclaration(QChar c)
{
    return c == QLatin1Char(';') || c == QLatin1Char('{') || c == QLatin1Char('}');
}

// Finds the delimiters of one line from left to right, in a time that is linear for every line.
class DelimiterFinder
{
public:
    explicit DelimiterFinder(QStringView line)
        : m_line(line)
    {
    }

    // The position of the next delimiter, or the size of the line.
    qsizetype next(qsizetype from, bool inDeclarations)
    {
        for (qsizetype i = from; i < m_line.size(); ++i) {
            const QChar c = m_line.at(i);
            if (isDelimiter(c))
                return i;
            if (inDeclarations && isQuote(c))
                i = endOfQuoted(i);
            else if (!inDeclarations && c == QLatin1Char('['))
                i = endOfBracket(i);
        }
        return m_line.size();
    }

private:
    // Each of these answers the position of the opening mark itself if nothing closes it.
    qsizetype endOfBracket(qsizetype opening)
    {
        for (qsizetype i = opening + 1; m_bracketsClose && i < m_line.size(); ++i) {
            if (m_line.at(i) == QLatin1Char(']'))
                return i;
            if (isQuote(m_line.at(i)))
                i = std::max(i, m_line.indexOf(m_line.at(i), i + 1));
        }
        m_bracketsClose = false;
        return opening;
    }

    // An apostrophe may stand alone in a declaration: what it seems to open must end before the
    // declaration does, or look like the end of a value.
    qsizetype endOfQuoted(qsizetype opening) const
    {
        const qsizetype closing = m_line.indexOf(m_line.at(opening), opening + 1);
        if (closing < 0)
            return opening;
        const QStringView quoted = m_line.mid(opening + 1, closing - opening - 1);
        const bool closes = std::none_of(quoted.begin(), quoted.end(), endsDeclaration);
        return closes || endsValue(closing) ? closing : opening;
    }

    bool endsValue(qsizetype closing) const
    {
        const auto isText = [](QChar c) { return !c.isSpace(); };
        const auto *const after = std::find_if(m_line.begin() + closing + 1, m_line.end(), isText);
        return after == m_line.end() || endsDeclaration(*after) || *after == QLatin1Char(',') ||
               *after == QLatin1Char(')');
    }

    QStringView m_line;
    bool m_bracketsClose = true;
};

void append(QString &output, QStringView text)
{
    output.append(text.data(), int(text.size()));
}

} // namespace

SelectorSuffix::SelectorSuffix(bool used)
    : m_used(used)
{
}

void SelectorSuffix::open(QStringView suffix)
{
    m_suffix = suffix.toString();
}

void SelectorSuffix::close()
{
    m_suffix.clear();
}

bool SelectorSuffix::appendLine(QStringView line, int maximumGrowth, QString &output)
{
    const int start = output.size();
    int growth = 0;
    DelimiterFinder delimiters(line);
    for (qsizetype begin = 0; begin < line.size();) {
        const qsizetype end = delimiters.next(begin, m_depth > 0);
        const QChar delimiter = end < line.size() ? line.at(end) : QChar();
        if (growth <= maximumGrowth) {
            growth += appendPiece(line.mid(begin, end - begin), delimiter, output);
            append(output, line.mid(end, 1));
        }
        followDepth(delimiter);
        begin = end + 1;
    }
    if (growth <= maximumGrowth)
        return true;
    output.truncate(start);
    append(output, line);
    return false;
}

// Returns the number of characters added.
int SelectorSuffix::appendPiece(QStringView piece, QChar delimiter, QString &output) const
{
    const QStringView selector = piece.trimmed();
    // What stands before a closing brace is no selector, even if no brace is open.
    if (m_suffix.isEmpty() || m_depth > 0 || selector.isEmpty() || delimiter == QLatin1Char('}')) {
        append(output, piece);
        return 0;
    }
    append(output, selector);
    output.append(m_suffix);
    return m_suffix.size();
}

void SelectorSuffix::followDepth(QChar delimiter)
{
    if (delimiter == QLatin1Char('{'))
        ++m_depth;
    else if (delimiter == QLatin1Char('}') && m_depth > 0)
        --m_depth;
}

} // namespace Brimvale
