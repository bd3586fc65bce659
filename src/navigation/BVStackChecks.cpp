// SPDX-License-Identifier: MIT
#include "navigation/BVStackChecks_p.h"

#include "navigation/BVControlledStackItem.h"
#include "navigation/BVStackControllerWidget.h"
#include "navigation/BVStackTreeItem_p.h"

#include "foundation/BlockSignals.h"

#include <QTreeWidget>

namespace {

enum class Checkable { None, TopLevel, Children, AllButEmptyTopLevel, All };

struct ModeRule
{
    BVStackChecks::Mode mode;
    Checkable checkable;
    bool isByGroups;
};

// clang-format off
constexpr ModeRule s_rules[] = {
    {BVControlledStackWidget::NoCheckableItems,       Checkable::None,                false},
    {BVControlledStackWidget::TopLevelItemsCheckable, Checkable::TopLevel,            false},
    {BVControlledStackWidget::ChildItemsCheckable,    Checkable::Children,            false},
    {BVControlledStackWidget::GroupItemsCheckable,    Checkable::AllButEmptyTopLevel, true},
    {BVControlledStackWidget::AllItemsCheckable,      Checkable::All,                 true},
};
// clang-format on

bool isCheckable(Checkable checkable, bool isTopLevel, bool hasChildren)
{
    switch (checkable) {
    case Checkable::None:
        return false;
    case Checkable::TopLevel:
        return isTopLevel;
    case Checkable::Children:
        return !isTopLevel;
    case Checkable::AllButEmptyTopLevel:
        return !isTopLevel || hasChildren;
    case Checkable::All:
        break;
    }
    return true;
}

} // namespace

Qt::ItemFlags BVStackChecks::flags(Qt::ItemFlags flags, Mode mode, bool isTopLevel,
                                   bool hasChildren)
{
    for (const ModeRule &rule : s_rules) {
        if (rule.mode != mode)
            continue;
        flags.setFlag(Qt::ItemIsUserCheckable,
                      isCheckable(rule.checkable, isTopLevel, hasChildren));
        flags.setFlag(Qt::ItemIsAutoTristate, rule.isByGroups && hasChildren);
    }
    return flags;
}

void BVStackChecks::update(BVControlledStackItem *item, Mode mode, bool isTopLevel)
{
    const BVStackTreeItem *row = item->m_treeItem;
    if (row)
        writeFlags(item,
                   flags(row->flags(), mode, isTopLevel, BVStackTreeItem::hasEntryBelow(row)));
}

void BVStackChecks::writeFlags(BVControlledStackItem *item, Qt::ItemFlags flags)
{
    if (!item->m_treeItem)
        return;
    // The toolkit would take the state that a disabled row above brings along for the row's own.
    const QTreeWidgetItem *above = item->m_treeItem->parent();
    const bool isBelowDisabled = above && !(above->flags() & Qt::ItemIsEnabled);
    if (item->m_treeItem->flags() == flags && !isBelowDisabled)
        return;
    if (isBelowDisabled)
        flags.setFlag(Qt::ItemIsEnabled, !item->m_isDisabled);
    const BlockSignals blocker{item->m_stackWidget->controller(), item->m_treeItem->treeWidget()};
    item->m_treeItem->setFlags(flags);
}

bool BVStackChecks::isReported(const BVControlledStackItem *item)
{
    return item->data(BVControlledStackItem::ReportedCheckStateRole).isValid();
}

void BVStackChecks::seed(BVControlledStackItem *item, Qt::CheckState state)
{
    if (!isReported(item)) {
        const BlockSignals blocker{item->m_treeItem->treeWidget()}; // it does not differ for long
        item->setData(BVControlledStackItem::ReportedCheckStateRole, int(state));
    }
    if (!(item->flags() & Qt::ItemIsAutoTristate) || state == Qt::PartiallyChecked)
        return;
    const QList<BVControlledStackItem *> children = item->getChildItems();
    for (BVControlledStackItem *child : children)
        if (child->isCheckable())
            seed(child, state);
}

QList<BVControlledStackItem *> BVStackChecks::unreportedAbove(const BVControlledStackItem *item)
{
    QList<BVControlledStackItem *> above;
    BVControlledStackItem *parent = item->parent();
    for (; parent && parent->flags() & Qt::ItemIsAutoTristate; parent = parent->parent())
        if (!isReported(parent))
            above.append(parent);
    return above;
}

void BVStackChecks::followRows(BVControlledStackItem *item, bool isChecked)
{
    for (; item && item->flags() & Qt::ItemIsAutoTristate; item = item->parent()) {
        const bool isReported = BVStackChecks::isReported(item);
        if (isReported ? !item->checkStateHasChanged() : !isChecked)
            continue;
        const BlockSignals blocker{item->m_treeItem->treeWidget()};
        item->setCurrentCheckStateInData();
    }
}
