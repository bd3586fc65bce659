// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>
#include <Qt>

class QEvent;
class QKeyEvent;
class QMouseEvent;

/// Tells which events an event filter of the application has to swallow to keep the user's input
/// out: mouse, wheel, keys, shortcuts, composed text, touch, pen and requests for context menus.
///
/// The release of a button or key that was pressed before the block began passes, so that nothing
/// stays pressed behind it; so do windows being closed, painting, timers and everything else.
class BVInputBlock
{
public:
    /// To be called when a block begins.
    void reset();
    bool blocks(QEvent *event);

private:
    bool blocksKeyPress(const QKeyEvent *event);
    bool blocksMousePress(const QMouseEvent *event);

    Qt::MouseButtons m_pressedButtons; // since the block began
    QSet<int> m_pressedKeys;           // likewise
};
