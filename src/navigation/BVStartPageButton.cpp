// SPDX-License-Identifier: MIT
#include "navigation/BVStartPageButton_p.h"

#include "navigation/BVArrowStep_p.h"

#include <QAction>
#include <QKeyEvent>

BVStartPageButton::BVStartPageButton(QAction *action, const QIcon &icon, QWidget *page)
    : QCommandLinkButton(page)
    , m_action(action)
    , m_page(page)
    , m_ownIcon(icon)
    , m_arrow(this->icon())
{
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed, QSizePolicy::PushButton);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void BVStartPageButton::updateButton()
{
    if (!m_action)
        return;
    const QIcon icon = m_ownIcon.isNull() ? m_action->icon() : m_ownIcon;
    setText(m_action->text());
    setDescription(m_action->statusTip());
    setAccessibleDescription(m_action->statusTip());
    setIcon(icon.isNull() ? m_arrow : icon);
    setToolTip(m_action->toolTip());
    setEnabled(m_action->isEnabled());
    setVisible(m_action->isVisible());
}

QImage BVStartPageButton::picture()
{
    if (size().isEmpty())
        return QImage();
    const qreal ratio = devicePixelRatioF();
    QImage image((QSizeF(size()) * ratio).toSize(), QImage::Format_ARGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

void BVStartPageButton::pair(BVStartPageButton *left, BVStartPageButton *right)
{
    left->m_partner = right;
    right->m_partner = left;
}

QSize BVStartPageButton::sizeHint() const
{
    const QSize size = QCommandLinkButton::sizeHint();
    const int other = m_partner ? m_partner->QCommandLinkButton::sizeHint().height() : 0;
    return QSize(size.width(), qMax(size.height(), other));
}

/// The toolkit's is too low for the second line.
QSize BVStartPageButton::minimumSizeHint() const
{
    return QSize(QCommandLinkButton::minimumSizeHint().width(), sizeHint().height());
}

int BVStartPageButton::heightForWidth(int width) const
{
    const int other = m_partner ? m_partner->QCommandLinkButton::heightForWidth(width) : 0;
    return qMax(QCommandLinkButton::heightForWidth(width), other);
}

void BVStartPageButton::keyPressEvent(QKeyEvent *event)
{
    const auto key = Qt::Key(event->key());
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        if (!event->isAutoRepeat())
            click();
    } else if (!isPlain || !moveFocus(key)) {
        QCommandLinkButton::keyPressEvent(event);
    }
}

/// Whether the key is one of those that move the focus, also if there is no button to move it to.
bool BVStartPageButton::moveFocus(Qt::Key key)
{
    static const QVector<Qt::Key> s_keys = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,
                                            Qt::Key_Down, Qt::Key_Home,  Qt::Key_End};
    if (!m_page || !s_keys.contains(key))
        return false;
    QVector<QAbstractButton *> buttons;
    QVector<QRect> rects;
    const QList<QAbstractButton *> all = m_page->findChildren<QAbstractButton *>();
    for (QAbstractButton *button : all) {
        if (button->isVisible() && button->isEnabled() && button->focusPolicy() & Qt::TabFocus) {
            buttons.append(button);
            rects.append(QRect(button->mapTo(m_page, QPoint()), button->size()));
        }
    }
    const int next = BVArrowStep::next(rects, buttons.indexOf(this), key);
    if (next >= 0)
        buttons[next]->setFocus(Qt::OtherFocusReason);
    return true;
}
