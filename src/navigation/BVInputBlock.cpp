// SPDX-License-Identifier: MIT
#include "navigation/BVInputBlock_p.h"

#include <QKeyEvent>
#include <QMouseEvent>

void BVInputBlock::reset()
{
    m_pressedButtons = Qt::NoButton;
    m_pressedKeys.clear();
}

bool BVInputBlock::blocks(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return blocksMousePress(static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return m_pressedButtons.testFlag(static_cast<QMouseEvent *>(event)->button());
    case QEvent::KeyPress:
        return blocksKeyPress(static_cast<QKeyEvent *>(event));
    case QEvent::KeyRelease:
        return m_pressedKeys.contains(static_cast<QKeyEvent *>(event)->key());
    case QEvent::ShortcutOverride:
        event->accept(); // the key goes on as a press, which is blocked, instead of as a shortcut
        return true;
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::NativeGesture:
        return true;
    default:
        return false;
    }
}

bool BVInputBlock::blocksMousePress(const QMouseEvent *event)
{
    m_pressedButtons |= event->button();
    return true;
}

bool BVInputBlock::blocksKeyPress(const QKeyEvent *event)
{
    if (!event->isAutoRepeat()) // a repeated key may have been down before
        m_pressedKeys.insert(event->key());
    return true;
}
