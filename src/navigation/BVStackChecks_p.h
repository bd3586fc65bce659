// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/BVControlledStackWidget.h"

/// Which entries have a check box, and which first states are not reported.
class BVStackChecks
{
public:
    using Mode = BVControlledStackWidget::CheckableItems;

    /// The flags of a row with the two that concern checking set as the mode wants them.
    static Qt::ItemFlags flags(Qt::ItemFlags flags, Mode mode, bool isTopLevel, bool hasChildren);
    /// Brings the flags of the entry's row in line. Emits nothing.
    static void update(BVControlledStackItem *item, Mode mode, bool isTopLevel);
    /// Writes the flags. Emits nothing.
    static void writeFlags(BVControlledStackItem *item, Qt::ItemFlags flags);
    /// Notes the state as reported for the entry and those below that are going to follow it, where
    /// nothing has been reported yet.
    static void seed(BVControlledStackItem *item, Qt::CheckState state);
    /// The entries above whose state is derived from that of the entry and has not been reported
    /// yet.
    static QList<BVControlledStackItem *> unreportedAbove(const BVControlledStackItem *item);
    static bool isReported(const BVControlledStackItem *item);
    /// Rows have come to the entry or gone: that the states of groups follow is not news. Of what
    /// has come, @p isChecked tells whether any of it is.
    static void followRows(BVControlledStackItem *item, bool isChecked);
};
