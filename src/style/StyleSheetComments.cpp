// SPDX-License-Identifier: MIT
#include "style/StyleSheetComments_p.h"

#include <algorithm>

namespace Brimvale {

namespace {

class CommentRemover
{
public:
    explicit CommentRemover(const QString &text)
        : m_text(text)
    {
    }

    UncommentedSheet run()
    {
        for (int mark = nextMark(); mark < m_text.size(); mark = nextMark())
            handleMark(mark);
        if (m_kept == 0)
            m_sheet.text = m_text;
        else
            keepUpTo(m_text.size());
        return std::move(m_sheet);
    }

private:
    // Every token that means something outside a comment holds one of two rare characters.
    int nextMark()
    {
        if (m_slash < m_scan)
            m_slash = find(QLatin1Char('/'));
        if (m_angle < m_scan)
            m_angle = find(QLatin1Char('<'));
        return std::min(m_slash, m_angle);
    }

    int find(QLatin1Char mark) const
    {
        const int found = m_text.indexOf(mark, m_scan);
        return found < 0 ? m_text.size() : found;
    }

    void handleMark(int mark)
    {
        const QStringView rest = QStringView(m_text).mid(mark);
        if (rest.startsWith(QLatin1String("<!--")))
            remove(mark, endOf(QLatin1String("-->"), mark + 4));
        else if (mark > m_scan && m_text.at(mark) == QLatin1Char('/') &&
                 m_text.at(mark - 1) == QLatin1Char('*'))
            reportStrayEnd(mark);
        else if (rest.startsWith(QLatin1String("/*")))
            remove(mark, endOf(QLatin1String("*/"), mark + 2));
        else if (rest.startsWith(QLatin1String("//")))
            remove(mark, endOfLine(mark + 2));
        else
            m_scan = mark + 1;
    }

    void reportStrayEnd(int slash)
    {
        m_breaks += countBreaks(m_counted, slash);
        m_counted = slash;
        m_sheet.strayEnds.push_back(m_breaks + 1);
        m_scan = slash + 1;
    }

    void remove(int from, int to)
    {
        keepUpTo(from);
        if (const int breaks = countBreaks(from, to))
            m_sheet.gaps.push_back({m_sheet.text.size(), breaks});
        m_kept = m_scan = to;
    }

    void keepUpTo(int end) { m_sheet.text.append(m_text.constData() + m_kept, end - m_kept); }

    int endOf(QLatin1String mark, int from) const
    {
        const int found = m_text.indexOf(mark, from);
        return found < 0 ? m_text.size() : found + mark.size();
    }

    int endOfLine(int from) const
    {
        const auto isBreak = [](QChar c) {
            return c == QLatin1Char('\n') || c == QLatin1Char('\r');
        };
        return int(std::find_if(m_text.cbegin() + from, m_text.cend(), isBreak) - m_text.cbegin());
    }

    int countBreaks(int from, int to) const
    {
        return int(std::count(m_text.cbegin() + from, m_text.cbegin() + to, QLatin1Char('\n')));
    }

    const QString m_text;
    UncommentedSheet m_sheet;
    int m_scan = 0;   // tokens begin here or later
    int m_kept = 0;   // what stands before is copied or removed
    int m_slash = -1; // the next "/" and "<" as far as they are known
    int m_angle = -1;
    int m_counted = 0; // line breaks are counted up to here
    int m_breaks = 0;
};

} // namespace

UncommentedSheet removeComments(const QString &text)
{
    return CommentRemover(text).run();
}

UncommentedLines::UncommentedLines(const UncommentedSheet &sheet)
    : m_sheet(sheet)
{
}

bool UncommentedLines::next()
{
    const QString &text = m_sheet.text;
    while (m_next < text.size()) {
        const int found = text.indexOf(QLatin1Char('\n'), m_next);
        const int end = found < 0 ? text.size() : found;
        m_line = QStringView(text).mid(m_next, end - m_next);
        m_next = end + 1;
        ++m_breaks;
        if (!m_line.isEmpty())
            return true;
    }
    return false;
}

int UncommentedLines::number()
{
    const auto start = m_line.utf16() - QStringView(m_sheet.text).utf16();
    for (; m_gap < m_sheet.gaps.size() && m_sheet.gaps[m_gap].position <= start; ++m_gap)
        m_removedBreaks += m_sheet.gaps[m_gap].lineBreaks;
    return m_breaks + m_removedBreaks;
}

} // namespace Brimvale
