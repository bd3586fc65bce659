// SPDX-License-Identifier: MIT
#pragma once

#include <BVStackContextHandler.h>

#include <QList>

class BVStackControllerWidget;
class OperationList;
class QAction;

/// The context menu of the navigation: renaming and skipping, and what the workbench adds to that:
/// operations are added at any entry and removed at their own.
class NavigationMenu : public BVStackContextHandler
{
    Q_OBJECT

public:
    /// Gives the menu to the controller. The actions, which are not owned, add operations.
    NavigationMenu(BVStackControllerWidget *controller, OperationList *operations,
                   const QList<QAction *> &addingActions);

    void addActions(BVControlledStackItem *item, QMenu *menu) override;

private:
    void onTriggered(BVControlledStackItem *item, const QAction *action);

    OperationList *m_operations; // not owned
    QList<QAction *> m_addingActions;
};
