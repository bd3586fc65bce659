// SPDX-License-Identifier: MIT
#include "itemviews/BVTableText_p.h"

namespace {

/// The text of a cell. Line breaks stay in the cell also where programs would begin a new row.
QString toHtml(const QString &text)
{
    QString html = text.toHtmlEscaped();
    html.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    html.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    html.replace(QChar::LineSeparator, QLatin1Char('\n'));
    html.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    html.replace(QLatin1Char('\n'), QLatin1String("<br style=\"mso-data-placement:same-cell\">"));
    html.replace(QLatin1Char('\t'), QLatin1String("&#9;"));
    return html;
}

} // namespace

BVTableText::BVTableText(int columns, int headerRows)
    : m_columns(qMax(0, columns))
    , m_headerRows(headerRows)
{
}

void BVTableText::addCell(const QString &text)
{
    if (m_columns == 0)
        return;
    if (m_column == m_columns)
        m_column = 0;
    if (!m_cellEnds.empty())
        m_text += m_column > 0 ? QLatin1Char('\t') : QLatin1Char('\n');
    m_text += text;
    m_cellEnds.push_back(m_text.size());
    ++m_column;
}

int BVTableText::rowCount() const
{
    const int cells = int(m_cellEnds.size());
    return m_columns > 0 ? (cells + m_columns - 1) / m_columns : 0;
}

void BVTableText::appendHtmlRow(QString &html, int row) const
{
    const QLatin1String tag(row < m_headerRows ? "th" : "td");
    const int end = qMin((row + 1) * m_columns, int(m_cellEnds.size()));
    html += QLatin1String("<tr>");
    for (int cell = row * m_columns; cell < end; ++cell) {
        const int from = cell > 0 ? m_cellEnds[cell - 1] + 1 : 0; // behind the tab or newline
        html += QLatin1Char('<') + tag + QLatin1Char('>');
        html += toHtml(m_text.mid(from, m_cellEnds[cell] - from));
        html += QLatin1String("</") + tag + QLatin1Char('>');
    }
    html += QLatin1String("</tr>\n");
}

QString BVTableText::html() const
{
    QString html = QStringLiteral(
        "<html><head><meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">"
        "</head><body><table style=\"white-space:pre\">\n");
    const int rows = rowCount();
    for (int row = 0; row < rows; ++row)
        appendHtmlRow(html, row);
    html += QLatin1String("</table></body></html>");
    return html;
}
