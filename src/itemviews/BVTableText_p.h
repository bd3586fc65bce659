// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

#include <vector>

/// Texts laid out as a table, cell by cell: tabs between the cells of a row, newlines between rows.
///
/// A table of texts that hold tabs or newlines themselves cannot be read back from the plain text;
/// the HTML keeps such cells whole. A text too large for a clipboard is given up.
class BVTableText
{
public:
    enum Form { Plain, PlainAndHtml };

    /// A table without columns stays empty. The first @p headerRows rows are headers.
    BVTableText(int columns, int headerRows, Form form);

    /// Makes room for rows of short texts.
    void reserve(int rows);
    /// Fills the next cell, row by row.
    void addCell(const QString &text);
    void addCell(const QVariant &value);
    /// Whether a cell did not fit in; nothing is added any more.
    bool isFull() const { return m_isFull; }

    const QString &plainText() const { return m_text; }
    /// Whether html() has something to answer with: not in the plain form, nor for huge tables.
    bool hasHtml() const;
    QString html() const;

private:
    int rowCount() const;
    void appendHtmlRow(QString &html, int row) const;

    int m_columns;
    int m_headerRows;
    Form m_form;
    int m_column = 0; // of the next cell
    bool m_isBegun = false;
    bool m_isFull = false;
    QString m_text;
    std::vector<int> m_cellEnds; // in m_text, for the HTML
};
