// SPDX-License-Identifier: MIT
#include "layout/ResizeWidgetPlaceHolder.h"

#include <QAbstractButton>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace {

constexpr int s_margin = 8;  // px, around the parts
constexpr int s_spacing = 6; // px, between them
constexpr int s_wordsFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;

/// A word to click on in the text colour of the place holder.
class Link : public QAbstractButton
{
public:
    explicit Link(QWidget *parent)
        : QAbstractButton(parent)
    {
        setAttribute(Qt::WA_Hover);
        setCursor(Qt::PointingHandCursor);
        setFocusPolicy(Qt::StrongFocus);
    }

    QSize sizeHint() const override
    {
        return fontMetrics().size(Qt::TextShowMnemonic, text()) + QSize(s_margin, s_spacing);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        QFont underlined = font();
        underlined.setUnderline(true);
        painter.setFont(underMouse() ? font() : underlined);
        painter.setPen(parentWidget()->palette().color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
        if (!hasFocus())
            return;
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
};

} // namespace

ResizeWidgetPlaceHolder::ResizeWidgetPlaceHolder(QWidget *parent)
    : QFrame(parent)
    , m_button(new Link(this))
{
    setAutoFillBackground(true);
    setFrameShape(QFrame::StyledPanel);
    connect(m_button, &QAbstractButton::clicked, this, &ResizeWidgetPlaceHolder::sigCloseRequested);
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

void ResizeWidgetPlaceHolder::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    if (m_wordsRect.isEmpty())
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(m_wordsRect, s_wordsFlags, m_words);
}

void ResizeWidgetPlaceHolder::updateTexts()
{
    m_words = m_title.isEmpty() ? tr("Shown over the window")
                                : tr("%1: shown over the window").arg(m_title);
    m_button->setText(tr("Bring back"));
    setAccessibleName(m_words);
    updateParts();
}

/// Centres the parts that fit, one above the other.
void ResizeWidgetPlaceHolder::updateParts()
{
    const QRect room = contentsRect().adjusted(s_margin, s_margin, -s_margin, -s_margin);
    const QSize button = m_button->sizeHint();
    const bool showsButton =
        contentsRect().width() >= button.width() && contentsRect().height() >= button.height();
    const QSize words = fontMetrics().boundingRect(room, s_wordsFlags, m_words).size();
    const int both = words.height() + s_spacing + button.height();
    const bool showsWords = words.width() <= room.width() && both <= room.height();
    QRect buttonRect(QPoint(), button);
    buttonRect.moveCenter(contentsRect().center());
    m_wordsRect = QRect();
    if (showsWords) {
        const int top = room.top() + (room.height() - both) / 2;
        m_wordsRect = QRect(room.left(), top, room.width(), words.height());
        buttonRect.moveTop(m_wordsRect.bottom() + 1 + s_spacing);
    }
    m_button->setGeometry(buttonRect);
    m_button->setVisible(showsButton);
    update();
}
