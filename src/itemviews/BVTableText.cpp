// SPDX-License-Identifier: MIT
#include "itemviews/BVTableText_p.h"

#include <limits>

namespace {

constexpr int s_shortText = 12;            // characters of a cell, with what follows it
constexpr qint64 s_mostReserved = 1 << 24; // characters

/// What the toolkit's strings and byte arrays hold in UTF-8, too, with some space to spare.
constexpr qint64 s_mostCharacters = (std::numeric_limits<int>::max() - 1024) / 3;
const QLatin1String s_htmlBreak("<br style=\"mso-data-placement:same-cell\">");
constexpr qint64 s_mostHtmlPerCharacter = 64; // the longest break, and the tags of a cell and a row

/// The text of a cell. Line breaks stay in the cell also where programs would begin a new row.
QString toHtml(const QString &text)
{
    QString html = text.toHtmlEscaped();
    html.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    html.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    html.replace(QChar::LineSeparator, QLatin1Char('\n'));
    html.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    html.replace(QLatin1Char('\n'), s_htmlBreak);
    html.replace(QLatin1Char('\t'), QLatin1String("&#9;"));
    return html;
}

} // namespace

BVTableText::BVTableText(int columns, int headerRows, Form form)
    : m_columns(qMax(0, columns))
    , m_headerRows(headerRows)
    , m_form(form)
{
}

void BVTableText::reserve(int rows)
{
    const qint64 cells = qint64(rows) * m_columns;
    m_text.reserve(int(qMin(cells * s_shortText, s_mostReserved)));
    if (m_form == PlainAndHtml)
        m_cellEnds.reserve(size_t(qMin(cells, s_mostReserved)));
}

void BVTableText::addCell(const QString &text)
{
    m_isFull = m_isFull || m_text.size() + qint64(text.size()) >= s_mostCharacters;
    if (m_columns == 0 || m_isFull)
        return;
    if (m_column == m_columns)
        m_column = 0;
    if (m_isBegun)
        m_text += m_column > 0 ? QLatin1Char('\t') : QLatin1Char('\n');
    m_isBegun = true;
    m_text += text;
    if (m_form == PlainAndHtml)
        m_cellEnds.push_back(m_text.size());
    ++m_column;
}

void BVTableText::addCell(const QVariant &value)
{
    if (value.userType() == QMetaType::QString)
        addCell(*static_cast<const QString *>(value.constData()));
    else
        addCell(value.toString());
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

/// The text holds at least a character between two cells.
bool BVTableText::hasHtml() const
{
    return m_form == PlainAndHtml &&
           (m_text.size() + 1) * s_mostHtmlPerCharacter < s_mostCharacters;
}

QString BVTableText::html() const
{
    if (!hasHtml())
        return QString();
    QString html = QStringLiteral(
        "<html><head><meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">"
        "</head><body><table style=\"white-space:pre\">\n");
    const int rows = rowCount();
    for (int row = 0; row < rows; ++row)
        appendHtmlRow(html, row);
    html += QLatin1String("</table></body></html>");
    return html;
}
