// SPDX-License-Identifier: MIT
#pragma once

#include <QVariantAnimation>
#include <QWidget>

class QVBoxLayout;

/// Shows a widget, nothing of it, or while it opens and closes its upper part.
///
/// What is inside keeps its full size meanwhile, so that nothing in it is laid out anew. A closed
/// area hides its content and asks for the content's width, so that nothing moves sideways.
class BVDisclosureArea : public QWidget
{
    Q_OBJECT

public:
    explicit BVDisclosureArea(QWidget *parent);

    /// Null once someone else has taken or deleted it.
    QWidget *content() const;
    /// Takes @p content over; the one before is deleted.
    void setContent(QWidget *content);

    /// Opens or closes in @p duration ms, from whatever shows now; at once for 0 and while hidden.
    void setOpen(bool open, int duration);
    bool isQuiteOpen() const { return m_openness == 1.0; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

Q_SIGNALS:
    /// The area is quite open or quite closed.
    void settled();

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    int shown(int height) const;
    int fullHeight() const;
    void setOpenness(double openness);
    void updatePolicy();
    void place();

    QWidget *m_holder;     // has the content in its layout, so that it can be hidden in its stead
    QVBoxLayout *m_layout; // of m_holder
    QVariantAnimation m_animation;
    double m_openness = 1.0; // 0 to 1
    double m_from = 1.0;     // the flight's ends
    double m_to = 1.0;
};
