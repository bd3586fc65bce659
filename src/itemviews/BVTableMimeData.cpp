// SPDX-License-Identifier: MIT
#include "itemviews/BVTableMimeData_p.h"

#include <QStringList>
#include <QVariant>

#include <utility>

namespace {

const QLatin1String s_htmlFormat("text/html");

} // namespace

BVTableMimeData::BVTableMimeData(BVTableText table)
    : m_table(std::move(table))
{
    setText(m_table.plainText());
}

QStringList BVTableMimeData::formats() const
{
    return QMimeData::formats() << s_htmlFormat;
}

bool BVTableMimeData::hasFormat(const QString &format) const
{
    return format == s_htmlFormat || QMimeData::hasFormat(format);
}

QVariant BVTableMimeData::retrieveData(const QString &format, QVariant::Type type) const
{
    if (format != s_htmlFormat)
        return QMimeData::retrieveData(format, type);
    if (m_html.isEmpty())
        m_html = m_table.html();
    return type == QVariant::ByteArray ? QVariant(m_html.toUtf8()) : QVariant(m_html);
}
