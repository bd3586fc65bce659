// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QPointer>
#include <QString>
#include <QVariantAnimation>
#include <QWidget>

class QPainter;

/// The text at the bottom of a viewport that tells what a drag can do. It slides in and out, and
/// out of the way of the pointer.
class BVDragHint
{
public:
    explicit BVDragHint(QWidget *viewport);
    ~BVDragHint();

    QString text() const { return m_infoText; }
    void setText(const QString &text);

    /// Whether a running drag uses the hint.
    bool isActive() const { return m_infoActive; }
    void setActive() { m_infoActive = true; }
    /// Slides out; the drag is over.
    void finish();
    /// Whether any of it is to be seen.
    bool hasPixmap() const { return !m_infoPixmap.isNull(); }

    /// To be called with each position of the pointer in the viewport.
    void updateMouseOver(const QPoint &pos);
    /// Slides in, unless the pointer is where the hint goes, or out.
    void startAnimation(bool show);

    void paint(QPainter *painter);

private:
    QRect bandRect() const;
    QSize pillSize(const QString &text) const;
    void render();
    void animateTo(double opacity);
    void setOpacity(double opacity);

    QPointer<QWidget> m_viewport;
    QVariantAnimation m_animation; // of the opacity
    QString m_infoText;
    QPixmap m_infoPixmap;       // of the text; null while hidden
    int m_renderedWidth = 0;    // of the viewport for which the pixmap has been made
    double m_infoOpacity = 1.0; // 0 to 1, also how far it has slid in
    bool m_isShowing = false;   // it slides in, or has
    bool m_infoActive = false;
    bool m_mouseOverInfo = false; // the pointer is in the band
};
