// SPDX-License-Identifier: MIT
// What the pointer and the keyboard do to the bar.
#include "navigation/BVAnimatedTabBar.h"

#include "navigation/BVTabBarAccessible_p.h"
#include "navigation/BVTabBarParts_p.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPointer>

#include <cstdlib>
#include <optional>

namespace {

/// The tab that a key leads to from the current one, -1 at the end; nothing for other keys.
std::optional<int> targetOf(int key, const BVTabList &tabs, bool rightToLeft)
{
    switch (key) {
    case Qt::Key_Left:
        return tabs.nextEnabled(tabs.current(), rightToLeft ? 1 : -1);
    case Qt::Key_Right:
        return tabs.nextEnabled(tabs.current(), rightToLeft ? -1 : 1);
    case Qt::Key_Home:
        return tabs.nextEnabled(-1, 1);
    case Qt::Key_End:
        return tabs.nextEnabled(tabs.count(), -1);
    default:
        return std::nullopt;
    }
}

/// The tab so many enabled tabs from the current one, or the last one on the way.
int stepped(const BVTabList &tabs, int steps)
{
    int target = tabs.current();
    for (int i = 0; i < std::abs(steps); ++i) {
        const int next = tabs.nextEnabled(target, steps > 0 ? 1 : -1);
        target = next < 0 ? target : next;
    }
    return target;
}

} // namespace

/// The press is over, also if its release does not come.
void BVAnimatedTabBar::endInput()
{
    m_parts->m_autoScroll.stop();
    m_parts->m_press.endPress();
}

/// The bar can no longer be operated.
void BVAnimatedTabBar::cancelInput()
{
    m_parts->m_autoScroll.stop();
    m_parts->m_press.cancel();
}

void BVAnimatedTabBar::mousePressEvent(QMouseEvent *event)
{
    m_parts->m_hover.cancelToolTip();
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    endInput(); // of a press whose release has got lost
    if (!m_parts->m_autoScroll.pressArrow(event->pos()))
        m_parts->m_press.press(event->pos());
}

void BVAnimatedTabBar::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    m_parts->m_autoScroll.stop();
    m_parts->m_press.release(event->pos());
}

void BVAnimatedTabBar::mouseDoubleClickEvent(QMouseEvent *event)
{
    const auto hit = BVTabBarLayout::hitAt(m_parts->m_geometry.layout(), event->pos());
    const int tab = m_parts->m_tabs.idAt(hit.m_index);
    const QPointer<BVAnimatedTabBar> self = this;
    mousePressEvent(event);
    if (!self || event->button() != Qt::LeftButton || hit.m_part != BVTabBarLayout::Part::Tab)
        return;
    const int index = m_parts->m_tabs.indexOf(tab); // the press may have moved or removed it
    if (index >= 0)
        Q_EMIT doubleClicked(index);
}

void BVAnimatedTabBar::mouseMoveEvent(QMouseEvent *event)
{
    m_parts->m_hover.move(event->pos());
    if (event->buttons().testFlag(Qt::LeftButton))
        m_parts->m_autoScroll.drag(event->pos());
    else if (m_parts->m_press.isPressing() || m_parts->m_autoScroll.isOnArrow())
        endInput(); // the release has got lost
}

void BVAnimatedTabBar::leaveEvent(QEvent *event)
{
    m_parts->m_hover.leave();
    QWidget::leaveEvent(event);
}

void BVAnimatedTabBar::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    event->accept();
    m_parts->m_hover.cancelToolTip();
    const QPoint delta = event->angleDelta();
    m_parts->m_wheel += delta.y() != 0 ? delta.y() : delta.x();
    const int steps = m_parts->m_wheel / QWheelEvent::DefaultDeltasPerStep;
    m_parts->m_wheel %= QWheelEvent::DefaultDeltasPerStep;
    setCurrentIndex(stepped(m_parts->m_tabs, -steps));
}

void BVAnimatedTabBar::keyPressEvent(QKeyEvent *event)
{
    m_parts->m_hover.cancelToolTip();
    const auto target = targetOf(event->key(), m_parts->m_tabs, isRightToLeft());
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    const bool isMenuKey = event->modifiers() == Qt::AltModifier && event->key() == Qt::Key_Down;
    const bool isCloseKey =
        isPlain && event->key() == Qt::Key_Delete && hasCloseButton(currentIndex());
    if (isPlain && target)
        setCurrentIndex(*target);
    else if ((isCloseKey || isMenuKey) && event->isAutoRepeat())
        return; // holding the key down asks once
    else if (isCloseKey)
        Q_EMIT closeButtonClicked(currentIndex());
    else if (isMenuKey)
        m_parts->m_press.askForMenu(currentIndex());
    else
        QWidget::keyPressEvent(event);
}

void BVAnimatedTabBar::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard && hasMenuButton(currentIndex()))
        m_parts->m_press.askForMenu(currentIndex());
    else
        QWidget::contextMenuEvent(event);
}

void BVAnimatedTabBar::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    if (currentIndex() >= 0)
        BVTabBarAccessible::announce(this, currentIndex(), QAccessible::Focus);
}

void BVAnimatedTabBar::focusOutEvent(QFocusEvent *event)
{
    m_parts->m_hover.cancelToolTip();
    QWidget::focusOutEvent(event);
}
