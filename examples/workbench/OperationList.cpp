// SPDX-License-Identifier: MIT
#include "OperationList.h"

#include "OperationPage.h"
#include "StepHeader.h"

#include <BVContainerListControl.h>
#include <BVControlledStackItem.h>
#include <BVControlledStackWidget.h>
#include <BVDragTreeWidget.h>
#include <BVStackControllerWidget.h>

#include <QSet>

#include <algorithm>

namespace {

OperationPage *pageOf(const BVControlledStackItem *item)
{
    return item ? qobject_cast<OperationPage *>(item->getContainerWidget()) : nullptr;
}

void showSkipped(BVControlledStackItem *item, bool skipped)
{
    item->setItalic(skipped);
    item->setToolTip(skipped ? OperationList::tr("This operation is skipped.") : QString());
    pageOf(item)->setSkipped(skipped);
}

} // namespace

OperationList::OperationList(BVControlledStackItem *group, QObject *parent)
    : QObject(parent)
    , m_group(group)
{
    const BVControlledStackWidget *stack = group->stackWidget();
    connect(stack, &BVControlledStackWidget::itemToggled, this, &OperationList::onToggled);
    connect(stack, &BVControlledStackWidget::itemTextChanged, this, &OperationList::onRenamed);
    connect(stack, &BVControlledStackWidget::itemDropped, this, &OperationList::changed);
    connect(stack, &BVControlledStackWidget::itemDragEnter, this,
            [this](const BVControlledStackItem *target, bool *mayDrop) {
                *mayDrop = *mayDrop && target == m_group;
            });
    const BVContainerListControl *list = stack->controller()->listControl();
    connect(list, &BVContainerListControl::sigItemsAboutToBeRemoved, this,
            &OperationList::onAboutToBeRemoved);
    connect(list, &BVContainerListControl::sigItemsRemoved, this, &OperationList::changed);
}

void OperationList::setOperations(const std::vector<OperationSetup> &operations)
{
    const QList<BVControlledStackItem *> before = m_group->getChildItems();
    const auto current =
        std::find_if(before.begin(), before.end(),
                     [](const BVControlledStackItem *item) { return item->isCurrent(); });
    const int index = current == before.end() ? -1 : int(current - before.begin());
    if (index >= 0)
        m_group->setCurrent(); // else the pages in between come into sight
    m_group->clear();
    for (const OperationSetup &operation : operations)
        append(operation);
    if (index >= 0 && m_group->itemAt(index))
        m_group->itemAt(index)->setCurrent();
}

std::vector<OperationSetup> OperationList::operations() const
{
    std::vector<OperationSetup> operations;
    const QList<OperationPage *> pages = this->pages();
    for (const OperationPage *page : pages)
        operations.push_back(page->operation());
    return operations;
}

QList<OperationPage *> OperationList::pages() const
{
    QList<OperationPage *> pages;
    const QList<BVControlledStackItem *> items = m_group->getChildItems();
    for (const BVControlledStackItem *item : items)
        pages.append(pageOf(item));
    return pages;
}

BVControlledStackItem *OperationList::add(int kind)
{
    OperationSetup operation(kind);
    operation.name = freeName(operation.name);
    BVControlledStackItem *item = append(operation);
    Q_EMIT changed();
    return item;
}

BVControlledStackItem *OperationList::append(const OperationSetup &operation)
{
    auto *page = new OperationPage(operation);
    BVControlledStackItem *item = m_group->addItem(page);
    item->setText(operation.name);
    item->setEditable(true);
    item->setFlag(Qt::ItemIsDragEnabled, true);
    item->setFlag(Qt::ItemIsDropEnabled, false);
    item->setCheckable(true);
    item->setChecked(!operation.isSkipped);
    showSkipped(item, operation.isSkipped);
    m_group->setExpanded(true);
    Q_EMIT pageAdded(page);
    return item;
}

QString OperationList::freeName(const QString &name) const
{
    QSet<QString> taken;
    for (const OperationSetup &operation : operations())
        taken.insert(operation.name);
    QString free = name;
    for (int i = 2; taken.contains(free); ++i)
        free = tr("%1 %2").arg(name).arg(i);
    return free;
}

void OperationList::remove(BVControlledStackItem *item)
{
    if (!isOperation(item))
        return;
    item->stackWidget()->removeItem(item);
    Q_EMIT changed();
}

bool OperationList::isOperation(const BVControlledStackItem *item) const
{
    return item && item->parent() == m_group;
}

QPoint OperationList::nextPosition() const
{
    const auto *tree = m_group->stackWidget()->tree();
    const int count = m_group->itemCount();
    const QTreeWidgetItem *row =
        count ? m_group->itemAt(count - 1)->treeItem() : m_group->treeItem();
    const QRect rect = tree->visualItemRect(row);
    const int indent = count ? 0 : 2 * tree->indentation(); // the group gets a mark to close it
    const int bottom = rect.bottom() + rect.height() / 2;
    return QPoint(rect.left() + indent, std::min(bottom, tree->viewport()->height()));
}

void OperationList::onToggled(BVControlledStackItem *item)
{
    if (!isOperation(item))
        return;
    showSkipped(item, !item->checked());
    Q_EMIT changed();
}

void OperationList::onRenamed(BVControlledStackItem *item)
{
    if (!isOperation(item))
        return;
    const QString name = FieldValues::storableText(item->getText());
    if (name.isEmpty()) {
        item->setText(pageOf(item)->header()->title());
        return;
    }
    item->setText(name);
    pageOf(item)->setName(name);
    Q_EMIT changed();
}

void OperationList::onAboutToBeRemoved(const QList<QTreeWidgetItem *> &rows, bool *remove)
{
    for (const QTreeWidgetItem *row : rows)
        *remove = *remove && isOperation(BVControlledStackItem::itemFromTreeItem(row));
}
