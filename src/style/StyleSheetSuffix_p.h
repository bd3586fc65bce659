// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

namespace Brimvale {

/// Follows the lines of one file and appends the suffix of the current block to their selectors.
class SelectorSuffix
{
public:
    /// A file without any block, where @p used is false, need not pass its lines.
    explicit SelectorSuffix(bool used);
    bool isUsed() const { return m_used; }

    /// Begins a block, or changes the suffix of the one that is open. An empty suffix closes it.
    void open(QStringView suffix);
    void close();

    const QString &suffix() const { return m_suffix; }

    /// Appends the line to @p output. Rules may span lines, and blocks may begin or end in a rule.
    /// If the suffixes would add more than about @p maximumGrowth characters, the line is appended
    /// without any, and the result is false.
    bool appendLine(QStringView line, int maximumGrowth, QString &output);

private:
    int appendPiece(QStringView piece, QChar delimiter, QString &output) const;
    void followDepth(QChar delimiter);

    bool m_used;
    QString m_suffix;
    int m_depth = 0; // of braces in the file
};

} // namespace Brimvale
