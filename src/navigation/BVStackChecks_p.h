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
    /// Writes the flags and notes the states that follow. Emits nothing.
    static void setFlags(BVControlledStackItem *item, Qt::ItemFlags flags);
    /// Notes the present state as reported if it is news. Emits nothing.
    static void noteState(BVControlledStackItem *item);
    /// Likewise of the entry and those above whose states are derived from it: flags or rows have
    /// changed, which no user has done by a click. Those without a reported state are left out if
    /// nothing that is checked has come.
    static void noteStates(BVControlledStackItem *item, bool isAnyChecked = true);
    /// These rows right below the entry are about to go: it keeps the state that it has from them.
    static void keepState(const BVControlledStackItem *item, int first, int last);
    /// Notes the state as reported for the entry and those below that are going to follow it, where
    /// nothing has been reported yet.
    static void seed(BVControlledStackItem *item, Qt::CheckState state);
    /// The entries above whose state is derived from that of the entry and has not been reported
    /// yet.
    static QList<BVControlledStackItem *> unreportedAbove(const BVControlledStackItem *item);
    static bool isReported(const BVControlledStackItem *item);
    /// Whether the state is another one than that which was reported last. One that the program has
    /// never set is new to the user when it is no longer unchecked.
    static bool isNews(const BVControlledStackItem *item);

private:
    static void writeFlags(BVControlledStackItem *item, Qt::ItemFlags flags);
};
