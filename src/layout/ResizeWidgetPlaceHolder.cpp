// SPDX-License-Identifier: MIT
#include "layout/ResizeWidgetPlaceHolder.h"

#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>

namespace {

constexpr int s_margin = 8;  // px, around the parts
constexpr int s_spacing = 6; // px, between them

} // namespace

ResizeWidgetPlaceHolder::ResizeWidgetPlaceHolder(QWidget *parent)
    : QFrame(parent)
    , m_label(new QLabel(this))
    , m_button(new QToolButton(this))
{
    setFrameShape(QFrame::StyledPanel);
    m_label->setAlignment(Qt::AlignCenter);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_button->setAutoRaise(true);
    m_button->setFocusPolicy(Qt::StrongFocus);
    connect(m_button, &QToolButton::clicked, this, &ResizeWidgetPlaceHolder::sigCloseRequested);
    updateTexts();
}

void ResizeWidgetPlaceHolder::standFor(QWidget *widget)
{
    if (!widget)
        return;
    m_widget = widget;
    m_size = widget->size();
    m_minimum = widget->minimumSizeHint();
    setMinimumSize(widget->minimumSize());
    setMaximumSize(widget->maximumSize());
    setSizePolicy(widget->sizePolicy());
    m_title = widget->windowTitle().isEmpty() ? widget->accessibleName() : widget->windowTitle();
    updateTexts();
    updateGeometry();
}

QSize ResizeWidgetPlaceHolder::sizeHint() const
{
    return m_size.isValid() ? m_size : QFrame::sizeHint();
}

QSize ResizeWidgetPlaceHolder::minimumSizeHint() const
{
    return m_minimum;
}

void ResizeWidgetPlaceHolder::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateTexts();
    else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateParts();
    QFrame::changeEvent(event);
}

void ResizeWidgetPlaceHolder::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT sigCloseRequested();
    else
        QFrame::mouseDoubleClickEvent(event);
}

void ResizeWidgetPlaceHolder::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    updateParts();
}

void ResizeWidgetPlaceHolder::updateTexts()
{
    m_label->setText(m_title.isEmpty() ? tr("Shown over the window")
                                       : tr("%1: shown over the window").arg(m_title));
    m_button->setText(tr("Bring back"));
    setAccessibleName(m_label->text());
    updateParts();
}

/// Centres the parts that fit, one above the other.
void ResizeWidgetPlaceHolder::updateParts()
{
    const QRect room = contentsRect().adjusted(s_margin, 0, -s_margin, 0);
    const QSize button = m_button->sizeHint();
    const int words = qMax(0, m_label->heightForWidth(room.width()));
    const bool showsButton = room.width() >= button.width() && room.height() >= button.height();
    const int both = words + s_spacing + button.height();
    const bool showsLabel = showsButton && room.height() >= both + 2 * s_margin;
    const int top = room.top() + (room.height() - (showsLabel ? both : button.height())) / 2;
    m_label->setGeometry(room.left(), top, room.width(), words);
    m_button->setGeometry(room.center().x() - button.width() / 2,
                          showsLabel ? top + words + s_spacing : top, button.width(),
                          button.height());
    m_label->setVisible(showsLabel);
    m_button->setVisible(showsButton);
}
