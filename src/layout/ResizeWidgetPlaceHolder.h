// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QFrame>
#include <QPointer>

class QAbstractButton;

/// What stands in the layout in place of a widget that floats over the main window.
///
/// It takes the room that the widget had when it left, and says with a title that the widget is
/// somewhere else. A button or a double click asks to bring the widget back. What does not fit is
/// left out, the words first.
class BVWIDGETS_EXPORT ResizeWidgetPlaceHolder : public QFrame
{
    Q_OBJECT

public:
    explicit ResizeWidgetPlaceHolder(QWidget *parent = nullptr);

    /// Takes over size, size limits, size policy and title of @p widget as they are now. Its title
    /// is its window title, else its accessible name. Null is ignored.
    void standFor(QWidget *widget);
    /// The widget that it stands for; null when there is none, or when it is gone.
    QWidget *widget() const { return m_widget; }

    /// The size that the widget had.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user wants the widget back.
    void sigCloseRequested();

protected:
    void changeEvent(QEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void updateTexts();
    void updateParts();

    QPointer<QWidget> m_widget;
    QAbstractButton *m_button; // child of this
    QString m_title;
    QString m_words;
    QRect m_wordsRect; // empty where there is no room
    QSize m_size;
    QSize m_minimum;
};
