// SPDX-License-Identifier: MIT
#pragma once

#include <BVAnimatedOPTabBar.h>

class BVControlledStackItem;
class BVControlledStackWidget;
class OperationList;

/// The operations of a set-up as a bar of numbered tabs, in step with their entries in the stack:
/// order, names, states, status and the current one. Each tab has a menu with the states and a
/// button that removes the operation. Without operations the bar is hidden.
///
/// While another page than one of an operation is in sight, no tab is current.
class OperationTabs : public BVAnimatedOPTabBar
{
    Q_OBJECT

public:
    /// Both outlive the bar.
    OperationTabs(OperationList *operations, BVControlledStackWidget *stack,
                  QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    BVControlledStackItem *entryAt(int index) const;
    int indexOf(const BVControlledStackItem *entry) const;
    void follow();
    void followEntries();
    void followCurrent();
    void showEntry(int index);
    void showStatus(int index);
    void openMenu(int index);

    OperationList *m_operations;
    BVControlledStackWidget *m_stack;
};
