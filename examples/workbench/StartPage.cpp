// SPDX-License-Identifier: MIT
#include "StartPage.h"

#include "OperationKinds.h"

#include <BVStackAnimationWidget.h>

#include <QAction>

namespace {

constexpr int s_flightTime = 600; // ms

} // namespace

StartPage::StartPage(QWidget *sky, const std::function<QPoint()> &target, QWidget *parent)
    : BVStackStartPage(parent, sky)
{
    addTitleText(tr("Add an operation"));
    for (size_t i = 0; i < OperationKinds::kinds().size(); ++i) {
        m_actions.append(createAction(int(i)));
        addControl(m_actions.last());
    }
    animationWidget()->setDuration(s_flightTime);
    connect(this, &BVStackStartPage::animationStarted, this,
            [this, target] { animationWidget()->setTargetPoint(target()); });
}

QAction *StartPage::createAction(int kind)
{
    const OperationKind &operation = OperationKinds::kind(kind);
    auto *action = new QAction(SetupFields::translated(operation.name), this);
    action->setStatusTip(SetupFields::translated(operation.purpose));
    connect(action, &QAction::triggered, this, [this, kind] { Q_EMIT operationChosen(kind); });
    return action;
}
