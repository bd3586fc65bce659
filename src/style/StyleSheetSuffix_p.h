// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

namespace Brimvale {

/// Appends the suffix of the current block to the selectors of the lines that pass.
class SelectorSuffix
{
public:
    /// Begins a block, or changes the suffix of the one that is open. An empty suffix changes
    /// nothing.
    void open(QStringView suffix);
    void close();
    bool isOpen() const { return !m_suffix.isEmpty(); }

    /// Appends the line to @p output. Rules may span lines.
    void appendLine(QStringView line, QString &output);

private:
    void appendPiece(QStringView piece, QChar delimiter, QString &output) const;
    void followDepth(QChar delimiter);

    QString m_suffix;
    int m_depth = 0; // of braces, from the start of the block
};

} // namespace Brimvale
