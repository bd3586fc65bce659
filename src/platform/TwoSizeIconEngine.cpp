// SPDX-License-Identifier: MIT
#include "platform/TwoSizeIconEngine_p.h"

#include <QPainter>
#include <QPixmap>

namespace {

constexpr qreal s_maxSmallSize = 16.0; // px, device-independent

/// The icon drawn into a picture of exactly @p size device pixels.
QPixmap drawn(const QIcon &icon, const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    if (size.isEmpty())
        return QPixmap();
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    icon.paint(&painter, QRect(QPoint(), size), Qt::AlignCenter, mode, state);
    return pixmap;
}

} // namespace

TwoSizeIconEngine::TwoSizeIconEngine(const QIcon &smallIcon, const QIcon &largeIcon)
    : m_smallIcon(smallIcon)
    , m_largeIcon(largeIcon)
{
}

void TwoSizeIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode,
                              QIcon::State state)
{
    iconFor(rect.size()).paint(painter, rect, Qt::AlignCenter, mode, state);
}

QSize TwoSizeIconEngine::actualSize(const QSize &size, QIcon::Mode, QIcon::State)
{
    return size;
}

QPixmap TwoSizeIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return drawn(iconFor(size), size, mode, state);
}

void TwoSizeIconEngine::virtual_hook(int id, void *data)
{
    if (id != QIconEngine::ScaledPixmapHook) {
        QIconEngine::virtual_hook(id, data);
        return;
    }
    auto *argument = static_cast<QIconEngine::ScaledPixmapArgument *>(data);
    const qreal scale = argument->scale > 0.0 ? argument->scale : 1.0;
    argument->pixmap = drawn(iconFor(QSizeF(argument->size) / scale), argument->size,
                             argument->mode, argument->state);
}

QString TwoSizeIconEngine::key() const
{
    return QStringLiteral("TwoSizeIconEngine");
}

QIconEngine *TwoSizeIconEngine::clone() const
{
    return new TwoSizeIconEngine(*this);
}

const QIcon &TwoSizeIconEngine::iconFor(const QSizeF &size) const
{
    return qMax(size.width(), size.height()) <= s_maxSmallSize ? m_smallIcon : m_largeIcon;
}
