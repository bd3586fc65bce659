// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>

class BVPanelFloat;
class QWidget;

/// A drag of a panel by one of its handles: where it has begun, and what it asks for.
///
/// The functions take the time that the panel floats, which is null while it does not.
class BVPanelDrag
{
public:
    /// The rectangle in the window's coordinates that the panel has, or gets with its animation.
    static QRect currentRect(const QWidget *panel, const BVPanelFloat *panelFloat);
    /// What asking for that size makes of the rectangle: within the window, and not smaller than
    /// the place.
    static QRect grown(const QWidget *panel, const BVPanelFloat *panelFloat, const QSize &wanted,
                       bool keepsRight, bool keepsBottom);

    void begin(const QWidget *panel, const BVPanelFloat *panelFloat);
    void end();
    bool isGoingOn() const;
    /// Asks for so much more; what has been asked for since the drag has begun, within the window
    /// or not.
    QSize wants(const QSize &growth);
    /// Puts the panel where it was at the press. The panel may be deleted then.
    void undo(BVPanelFloat *panelFloat) const;

private:
    QRect m_rectAtPress;
    QSize m_wantedSize; // invalid without a drag
    bool m_floatedAtPress = false;
};
