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

/// What loses its check box or those below it keeps the state that they have shown.
void BVStackChecks::writeFlags(BVControlledStackItem *item, Qt::ItemFlags flags)
{
    BVStackTreeItem *const row = item->m_treeItem;
    if (!row)
        return;
    // The toolkit would take the state that a disabled row above brings along for the row's own.
    const QTreeWidgetItem *above = row->parent();
    const bool isBelowDisabled = above && !(above->flags() & Qt::ItemIsEnabled);
    if (row->flags() == flags && !isBelowDisabled)
        return;
    if (isBelowDisabled)
        flags.setFlag(Qt::ItemIsEnabled, !item->m_isDisabled);
    const BVControlledStackItem *parent = item->parent();
    if (parent && !(flags & Qt::ItemIsUserCheckable) && item->isCheckable())
        parent->m_treeItem->keepCheckState();
    row->keepCheckState();
    const BlockSignals blocker{item->m_stackWidget->controller(), row->treeWidget()};
    row->setFlags(flags);
}

void BVStackChecks::setFlags(BVControlledStackItem *item, Qt::ItemFlags flags)
{
    writeFlags(item, flags);
    noteStates(item);
}

bool BVStackChecks::isReported(const BVControlledStackItem *item)
{
    return item->data(BVControlledStackItem::ReportedCheckStateRole).isValid();
}

bool BVStackChecks::isNews(const BVControlledStackItem *item)
{
    return isReported(item) ? item->checkStateHasChanged() : item->getCheckState() != Qt::Unchecked;
}

void BVStackChecks::noteState(BVControlledStackItem *item)
{
    if (!item->m_treeItem || item->m_treeItem->isCheckStateOnItsWay() || !isNews(item))
        return;
    const BlockSignals blocker{item->m_treeItem->treeWidget()};
    item->setCurrentCheckStateInData();
}

void BVStackChecks::noteStates(BVControlledStackItem *item, bool isAnyChecked)
{
    do {
        if (isAnyChecked || isReported(item))
            noteState(item);
        item = item->parent();
    } while (item && item->flags() & Qt::ItemIsAutoTristate);
}

void BVStackChecks::keepState(const BVControlledStackItem *item, int first, int last)
{
    BVStackTreeItem *const row = item->m_treeItem;
    if (!row || !(row->flags() & Qt::ItemIsAutoTristate))
        return;
    for (int i = 0; i < row->childCount(); ++i)
        if ((i < first || i > last) && row->child(i)->data(0, Qt::CheckStateRole).isValid())
            return;
    row->keepCheckState();
}

/// A group does not become partly checked at will.
void BVStackChecks::seed(BVControlledStackItem *item, Qt::CheckState state)
{
    const bool follows = state == Qt::PartiallyChecked && item->m_treeItem->isCheckStateDerived();
    if (!isReported(item)) {
        const BlockSignals blocker{item->m_treeItem->treeWidget()}; // it does not differ for long
        item->setData(BVControlledStackItem::ReportedCheckStateRole,
                      int(follows ? item->getCheckState() : state));
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
