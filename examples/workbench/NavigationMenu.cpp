// SPDX-License-Identifier: MIT
#include "NavigationMenu.h"

#include "OperationList.h"

#include <BVStackControllerWidget.h>

#include <QAction>
#include <QMenu>

namespace {

using Controller = BVStackControllerWidget;

constexpr int s_options = Controller::Rename | Controller::ShowCurrent | Controller::Show |
                          Controller::DontShow | Controller::ShowAll | Controller::HideAll;
const QString s_removing = QStringLiteral("removeOperation");

} // namespace

NavigationMenu::NavigationMenu(BVStackControllerWidget *controller, OperationList *operations,
                               const QList<QAction *> &addingActions)
    : BVStackContextHandler(controller)
    , m_operations(operations)
    , m_addingActions(addingActions)
{
    controller->createCustomContextMenu(s_options, true);
    controller->setCustomContextMenuHandler(this);
    connect(controller, &Controller::onCustomActionTriggeredOnTree, this,
            &NavigationMenu::onTriggered);
}

void NavigationMenu::addActions(BVControlledStackItem *item, QMenu *menu)
{
    menu->addSeparator();
    menu->addMenu(tr("Add Operation"))->addActions(m_addingActions);
    QAction *removing = menu->addAction(tr("Remove Operation"));
    removing->setObjectName(s_removing);
    removing->setEnabled(m_operations->isOperation(item));
}

void NavigationMenu::onTriggered(BVControlledStackItem *item, const QAction *action)
{
    if (action->objectName() == s_removing)
        m_operations->remove(item);
}
