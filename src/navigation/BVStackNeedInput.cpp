// SPDX-License-Identifier: MIT
#include "navigation/BVStackNeedInput_p.h"

#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVStackControllerWidget.h"

#include <QAction>

#include <algorithm>

namespace {

bool needsInput(const BVControlledStackItem *item)
{
    return item->getBVWidgetStatus() & BVWidgetStatus::NeedInput;
}

} // namespace

QList<BVControlledStackItem *> BVStackNeedInput::items(const BVControlledStackWidget &stack)
{
    QList<BVControlledStackItem *> needing;
    const QList<BVControlledStackItem *> items = stack.getDFSItems();
    std::copy_if(items.cbegin(), items.cend(), std::back_inserter(needing), needsInput);
    return needing;
}

bool BVStackNeedInput::goToNext(const BVControlledStackWidget &stack)
{
    const QList<BVControlledStackItem *> items = stack.getDFSItems();
    const int current = stack.currentIndex();
    for (int step = 1; step <= items.size(); ++step) {
        BVControlledStackItem *item = items[(current + step) % items.size()];
        if (!needsInput(item) || !item->isEnabled() || item->isCurrent())
            continue;
        item->setCurrent();
        return true;
    }
    return false;
}

QAction *BVStackNeedInput::makeAction(BVControlledStackWidget *stack)
{
    auto *action =
        new QAction(BVControlledStackWidget::tr("Go to Next Entry that Needs Input"), stack);
    action->setShortcut(Qt::Key_F8);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(action, &QAction::triggered, stack,
                     &BVControlledStackWidget::goToNextNeedingInput);
    stack->addAction(action);
    if (stack->controller())
        stack->controller()->addAction(action);
    return action;
}
