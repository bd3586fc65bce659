// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

/// Texts laid out as a table, cell by cell: tabs between the cells of a row, newlines between rows.
///
/// A table of texts that hold tabs or newlines themselves cannot be read back from the plain text;
/// the HTML keeps such cells whole.
class BVTableText
{
public:
    /// A table without columns stays empty. The first @p headerRows rows are headers.
    explicit BVTableText(int columns, int headerRows = 0);

    /// Fills the next cell, row by row.
    void addCell(const QString &text);
    /// The rows begun so far, headers included.
    int rowCount() const;
    int headerRowCount() const { return m_headerRows; }

    const QString &plainText() const { return m_text; }
    QString html() const;

private:
    void appendHtmlRow(QString &html, int row) const;

    int m_columns;
    int m_headerRows;
    int m_column = 0; // of the next cell
    QString m_text;
    std::vector<int> m_cellEnds; // in m_text
};
