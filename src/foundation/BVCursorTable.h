// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QCursor>

/// The cursors of the library, by what they tell the user.
class BVWIDGETS_EXPORT BVCursorTable
{
public:
    enum class Cursor {
        Default,          ///< nothing special
        Text,             ///< text can be typed here
        Locked,           ///< the value is locked or read-only
        SlideHorizontal,  ///< dragging sideways changes a value
        SlideVertical,    ///< dragging up and down changes a value
        Grab,             ///< the thing can be dragged
        Grabbing,         ///< the thing is being dragged
        Busy,             ///< the program works and takes no input
        ResizeHorizontal, ///< dragging moves a left or right edge
        ResizeVertical,   ///< dragging moves a top or bottom edge
        ResizeFalling,    ///< dragging moves the top left or the bottom right corner
        ResizeRising,     ///< dragging moves the bottom left or the top right corner
    };

    static QCursor cursor(Cursor cursor);
};
