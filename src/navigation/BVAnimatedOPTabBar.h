// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "navigation/BVAnimatedTabBar.h"

/// A tab bar that shows a sequence of forming operations: an arrow after each one and an icon for
/// its state.
///
/// The states are stored as item data, so setData() with one of the roles and updateOPState() do
/// the same as a setter. The icon shows the first state that is set, in the order of the roles. In
/// a reversed sequence the operations run from the last tab to the first: the arrows point the
/// other way, tabs and indexes stay where they are. When room runs out, all texts are shortened
/// together as fillTextReducingMap() says.
class BVWIDGETS_EXPORT BVAnimatedOPTabBar : public BVAnimatedTabBar
{
    Q_OBJECT
    Q_PROPERTY(bool sequenceReversed READ isSequenceReversed WRITE reverseSequence)

public:
    /// Item data roles that hold a bool.
    enum OperationRole {
        OperationSkipped = 270,
        OperationLocked = 271,
        OperationSemiLocked = 272,
        OperationCycled = 273,
    };
    Q_ENUM(OperationRole)

    explicit BVAnimatedOPTabBar(QWidget *parent = nullptr);

    void setOperationSkipped(int index, bool skipped);
    void setOperationLocked(int index, bool locked);
    void setOperationSemiLocked(int index, bool semiLocked);
    void setOperationCycled(int index, bool cycled);
    /// Makes the tab's icon show its state.
    void updateOPState(int index);
    void removeAllOperations();
    bool isSequenceReversed() const { return isImageAfterTabsMirrored(); }
    void reverseSequence(bool reverse);

    /// Fills @p map, whatever it held, with ever shorter forms of @p text: at 0 the text itself, at
    /// 1 without "-", at 2 only digits, parentheses and full stops, at 3 the first letter, or the
    /// first three characters of letters in parentheses. A form may be empty.
    static void fillTextReducingMap(QMap<int, QString> &map, const QString &text);
};
