// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace Brimvale {

/// The text of a sheet without its comments, with what it takes to tell lines of the original.
struct UncommentedSheet
{
    /// A place in the text where a comment was removed.
    struct Gap
    {
        int position;
        int length; ///< of the comment
        int lineBreaks;
    };

    QString text;
    std::vector<Gap> gaps;
    std::vector<int> strayEnds; ///< the lines, from 1, of each "*/" without a comment
};

/// Removes the comments. Inside one, the marks of the other forms mean nothing.
UncommentedSheet removeComments(const QString &text);

/// Walks over the lines of a sheet that are not empty. The sheet must outlive the walk.
class UncommentedLines
{
public:
    explicit UncommentedLines(const UncommentedSheet &sheet);

    /// Steps to the next line; returns false after the last one.
    bool next();
    /// The current line without its line break.
    QStringView line() const { return m_line; }
    /// The number of the current line in the original text, from 1.
    int number();

private:
    const UncommentedSheet &m_sheet;
    QStringView m_line;
    int m_next = 0;          // where the line after the current one begins
    int m_breaks = 0;        // line breaks up to m_next
    std::size_t m_gap = 0;   // the first gap not yet passed
    int m_removedBreaks = 0; // in the gaps passed
};

} // namespace Brimvale
