// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

class QPainter;

/// The scalable pictures of tab bars by file name, drawn once for each size and device pixel ratio.
class BVTabPictures
{
public:
    /// The picture's own size, made smaller to fit @p height; empty if there is none.
    QSize sizeOf(const QString &url, int height);
    enum class Look {
        Own,
        Mirrored,
        Bright, // the shape alone, for dark surfaces
    };
    /// Draws the picture in the middle of @p rect, at its whole size or fitted in.
    void draw(QPainter *painter, const QString &url, const QRect &rect, Look look = Look::Own);

private:
    const QIcon &icon(const QString &url);
    QPixmap pixmap(const QString &url, const QSize &size, qreal ratio, Look look);

    QHash<QString, QIcon> m_icons;
    QHash<QString, QSize> m_sizes;
    QHash<QString, QPixmap> m_pixmaps;
};
