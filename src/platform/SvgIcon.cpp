// SPDX-License-Identifier: MIT
#include "platform/SvgIcon.h"

#include "platform/TwoSizeIconEngine_p.h"

#include <QFile>
#include <QXmlStreamReader>
#include <QtDebug>

namespace {

/// What is wrong with the text of a picture; empty when nothing is.
QString faultOf(QIODevice *device)
{
    static const QByteArray s_gzipMark = QByteArrayLiteral("\x1f\x8b");
    if (device->peek(s_gzipMark.size()) == s_gzipMark)
        return QString(); // a packed picture, read by the icon engine alone
    QXmlStreamReader reader(device);
    if (reader.readNextStartElement() && reader.name() != QLatin1String("svg"))
        return QStringLiteral("it is no SVG picture");
    while (!reader.atEnd())
        reader.readNext();
    return reader.errorString();
}

/// Whether the file holds a picture; warns when it does not.
bool isReadable(const QString &fileName)
{
    QFile file(fileName);
    const QString fault = file.open(QIODevice::ReadOnly) ? faultOf(&file) : file.errorString();
    if (!fault.isEmpty())
        qWarning("Cannot read icon \"%s\": %s", qUtf8Printable(fileName), qUtf8Printable(fault));
    return fault.isEmpty();
}

} // namespace

QIcon createSvgIcon(const QString &fileName)
{
    return isReadable(fileName) ? QIcon(fileName) : QIcon();
}

QIcon createTwoSizeSvgIcon(const QString &smallFileName, const QString &largeFileName)
{
    if (!isReadable(smallFileName) || !isReadable(largeFileName))
        return QIcon();
    return QIcon(new TwoSizeIconEngine(QIcon(smallFileName), QIcon(largeFileName)));
}
