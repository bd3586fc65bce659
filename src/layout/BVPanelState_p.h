// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QPoint>
#include <QRect>

/// What a panel stores of where it is.
struct BVPanelState
{
    bool floating = false;
    bool enlarged = false;
    bool lastWasEmbedded = false; // what the enlarged size goes back to is the place
    QRect rect;                   // in the coordinates of the window, while floating
    QRect lastRect;               // likewise, while enlarged

    QByteArray toBytes() const;
    /// Reads what toBytes() has written. False, with the state as before, for anything else.
    bool fromBytes(const QByteArray &bytes);
};
