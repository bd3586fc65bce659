// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QIconEngine>

/// Shows one icon at small sizes and another at all larger ones.
///
/// The size in device-independent pixels decides, so that a small icon stays the small picture on a
/// dense screen. A picture that is not square stands in the middle of the square.
class TwoSizeIconEngine : public QIconEngine
{
public:
    TwoSizeIconEngine(const QIcon &smallIcon, const QIcon &largeIcon);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    void virtual_hook(int id, void *data) override;
    QString key() const override;
    QIconEngine *clone() const override;

private:
    /// The icon for a size in device-independent pixels.
    const QIcon &iconFor(const QSizeF &size) const;

    QIcon m_smallIcon;
    QIcon m_largeIcon;
};
