// SPDX-License-Identifier: MIT
#include "navigation/BVTabPictures_p.h"

#include "platform/SvgIcon.h"

#include <QImageReader>
#include <QPainter>

namespace {

constexpr int s_maximumPixmaps = 256; // more than the states of a bar need; then all are dropped
constexpr QRgb s_bright = qRgb(0xf5, 0xf5, 0xf5);

QString keyOf(const QString &url, const QSize &size, qreal ratio, BVTabPictures::Look look)
{
    return QStringLiteral("%1|%2|%3|%4|%5")
        .arg(size.width())
        .arg(size.height())
        .arg(ratio)
        .arg(int(look))
        .arg(url);
}

/// The picture at exactly @p ratio, whatever the ratio of the application.
QPixmap drawn(const QIcon &icon, const QSize &size, qreal ratio)
{
    QPixmap pixmap(size * ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    icon.paint(&painter, QRect(QPoint(), pixmap.size()));
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

void makeBright(QPixmap *pixmap)
{
    QPainter painter(pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap->rect(), QColor(s_bright));
}

} // namespace

const QIcon &BVTabPictures::icon(const QString &url)
{
    const auto known = m_icons.constFind(url);
    return known != m_icons.constEnd() ? *known : *m_icons.insert(url, createSvgIcon(url));
}

QSize BVTabPictures::sizeOf(const QString &url, int height)
{
    if (url.isEmpty())
        return QSize();
    auto known = m_sizes.constFind(url);
    if (known == m_sizes.constEnd())
        known = m_sizes.insert(url, icon(url).isNull() ? QSize() : QImageReader(url).size());
    if (known->isEmpty() || known->height() <= height)
        return *known;
    return known->scaled(known->width(), height, Qt::KeepAspectRatio);
}

void BVTabPictures::draw(QPainter *painter, const QString &url, const QRect &rect, Look look)
{
    const QSize own = sizeOf(url, rect.height());
    if (own.isEmpty() || rect.isEmpty())
        return;
    const QSize size =
        own.width() <= rect.width() ? own : own.scaled(rect.size(), Qt::KeepAspectRatio);
    QRect place(QPoint(), size);
    place.moveCenter(rect.center());
    painter->drawPixmap(place.topLeft(),
                        pixmap(url, size, painter->device()->devicePixelRatioF(), look));
}

QPixmap BVTabPictures::pixmap(const QString &url, const QSize &size, qreal ratio, Look look)
{
    const QString key = keyOf(url, size, ratio, look);
    const auto known = m_pixmaps.constFind(key);
    if (known != m_pixmaps.constEnd())
        return *known;
    if (m_pixmaps.size() >= s_maximumPixmaps)
        m_pixmaps.clear();
    QPixmap made = drawn(icon(url), size, ratio);
    if (look == Look::Mirrored)
        made = made.transformed(QTransform::fromScale(-1, 1));
    else if (look == Look::Bright)
        makeBright(&made);
    m_pixmaps.insert(key, made);
    return made;
}
