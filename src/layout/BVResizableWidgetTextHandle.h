// SPDX-License-Identifier: MIT
#pragma once

#include "layout/BVResizableWidgetHandle.h"

/// A handle with a text that tells what a click on it does.
///
/// It is as thick as its text needs, at least as other handles. A click without a drag asks for
/// sigToggleRequested(); its double click is two clicks. On the left and right edge the text runs
/// upwards; on a corner there is none.
class BVWIDGETS_EXPORT BVResizableWidgetTextHandle : public BVResizableWidgetHandle
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(QString enlargedText READ enlargedText WRITE setEnlargedText)

public:
    explicit BVResizableWidgetTextHandle(Position position, QWidget *parent = nullptr,
                                         bool alien = true);

    /// The text while the widget has its small size; "Enlarge" by default.
    QString text() const;
    void setText(const QString &text);
    /// The text while the widget is enlarged; "Restore" by default.
    QString enlargedText() const;
    void setEnlargedText(const QString &text);
    /// The one of both that shows.
    QString shownText() const;

    void updatePosition() override;
    QSize sizeHint() const override;

public Q_SLOTS:
    /// Shows the text that suits.
    void onWidgedResized(bool enlarged);

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintGrip(QPainter *painter, const QColor &color) override;
    void changeEvent(QEvent *event) override;

private:
    void takeThickness();
    void updateText();

    QString m_text;
    QString m_enlargedText;
    bool m_enlarged = false;
};
