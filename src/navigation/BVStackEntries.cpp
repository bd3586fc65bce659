// SPDX-License-Identifier: MIT
#include "navigation/BVStackEntries_p.h"

#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVStackChecks_p.h"
#include "navigation/BVStackNavigation_p.h"
#include "navigation/BVStackOrder_p.h"
#include "navigation/BVStackPageSwitch_p.h"
#include "navigation/BVStackTreeItem_p.h"
#include "navigation/BVStackedWidget.h"

#include "foundation/BVWidgetStatusChangedEvent.h"
#include "foundation/BlockSignals.h"
#include "itemviews/BVDragTreeWidget.h"

#include <QChildEvent>
#include <QCoreApplication>
#include <QPointer>

#include <memory>
#include <utility>

namespace {

/// The rows of a branch, each before those below it.
QVector<QTreeWidgetItem *> branchOf(QTreeWidgetItem *row)
{
    QVector<QTreeWidgetItem *> rows{row};
    for (int i = 0; i < rows.size(); ++i)
        for (int child = 0; child < rows[i]->childCount(); ++child)
            rows.append(rows[i]->child(child));
    return rows;
}

} // namespace

/// What is left of removed entries: whoever is in the middle of a call with them still finds them.
class BVStackRemains : public QObject
{
public:
    /// Belongs to the application, so that a slot may delete even the stack and the tree.
    explicit BVStackRemains(BVControlledStackWidget *stack)
        : QObject(QCoreApplication::instance())
        , m_tree(stack->tree())
    {
        deleteLater();
    }
    ~BVStackRemains() override
    {
        forgetCurrentRow();
        qDeleteAll(m_rows);
        for (BVControlledStackItem *item : qAsConst(m_items))
            delete item;
    }

    void add(BVControlledStackItem *item) { m_items.append(item); }
    /// The rows get apart: one that is being written tells those above in its tree, which may go.
    void addRow(QTreeWidgetItem *row)
    {
        const QVector<QTreeWidgetItem *> rows = branchOf(row);
        for (QTreeWidgetItem *branchRow : rows) {
            branchRow->takeChildren();
            m_rows.append(branchRow);
        }
    }

private:
    /// A row that goes while it is being selected becomes the current one of the toolkit's
    /// selection nevertheless.
    void forgetCurrentRow() const
    {
        if (m_tree && m_rows.contains(m_tree->currentItem()))
            m_tree->selectionModel()->clearCurrentIndex();
    }

    QPointer<BVDragTreeWidget> m_tree;
    QVector<BVControlledStackItem *> m_items;
    QVector<QTreeWidgetItem *> m_rows;
};

BVStackEntries::BVStackEntries(BVControlledStackWidget *stack)
    : QObject(stack)
    , m_stack(stack)
{
    QStackedWidget *const pages = stack->stackedWidget();
    connect(pages, &QStackedWidget::currentChanged, this, &BVStackEntries::updateVisibility);
    connect(pages, &QStackedWidget::widgetRemoved, this, &BVStackEntries::onPageRemoved);
    pages->installEventFilter(this);
}

// Entries

BVControlledStackItem *BVStackEntries::insert(QWidget *page, BVControlledStackItem *parent,
                                              int index)
{
    if (!m_stack->tree() || (parent && !contains(parent)))
        return nullptr;
    const QPointer<BVStackEntries> guard(this);
    const QPointer<QWidget> pageGuard(page);
    auto *item = new BVControlledStackItem(m_stack);
    m_items.insert(item);
    putIntoTree(item, parent, index);
    if (guard && contains(item))
        setPage(item, pageGuard);
    if (guard && contains(item))
        Q_EMIT m_stack->itemAdded(item);
    return guard && contains(item) ? item : nullptr;
}

void BVStackEntries::putIntoTree(BVControlledStackItem *item, BVControlledStackItem *parent,
                                 int index)
{
    QTreeWidgetItem *const above = m_stack->rowOf(parent);
    const int count = BVStackTreeItem::entryCount(above);
    item->m_treeItem = new BVStackTreeItem(item);
    BVStackChecks::update(item, m_stack->checkableItems(), !parent);
    above->insertChild(index < 0 || index > count ? count : index, item->m_treeItem);
}

void BVStackEntries::removeRow(QTreeWidgetItem *row)
{
    const QPointer<BVStackEntries> guard(this);
    const BVStackNavigation::Hold hold(m_stack->m_navigation);
    const QPointer<BVDragTreeWidget> tree(m_stack->tree());
    QPointer<BVStackRemains> remains(detachBranch(row));
    if (!guard || !tree || !remains)
        return;
    std::unique_ptr<QTreeWidgetItem> taken(tree->takeItem(row));
    if (remains && taken)
        remains->addRow(taken.release());
}

/// Changes are held for ever, as there is nothing left to tell of.
void BVStackEntries::leaveTree()
{
    const QPointer<BVDragTreeWidget> tree(m_stack->tree());
    if (!tree)
        return;
    const QPointer<BVStackEntries> guard(this);
    m_stack->m_navigation->hold();
    const QPointer<BVStackRemains> remains(detachBranch(tree->invisibleRootItem()));
    if (!guard || !tree || !remains)
        return;
    const BlockSignals blocker{tree.data()};
    const QList<QTreeWidgetItem *> rows = tree->invisibleRootItem()->takeChildren();
    for (QTreeWidgetItem *row : rows)
        remains->addRow(row);
    leaveRows();
    m_stack->updateStackVisibility();
}

void BVStackEntries::leaveRows()
{
    if (!m_items.isEmpty())
        detach(QVector<BVControlledStackItem *>(m_items.cbegin(), m_items.cend()));
}

void BVStackEntries::keepModels(BVDragTreeWidget *tree)
{
    const std::initializer_list<QObject *> models{tree->model(), tree->selectionModel()};
    for (QObject *model : models)
        connect(tree, &QObject::destroyed, model, [model] {
            model->setParent(QCoreApplication::instance());
            model->deleteLater();
        });
}

void BVStackEntries::clear()
{
    const QPointer<BVDragTreeWidget> tree(m_stack->tree());
    if (!tree)
        return;
    const QPointer<BVStackEntries> guard(this);
    const BVStackNavigation::Hold hold(m_stack->m_navigation);
    for (int i = tree->topLevelItemCount() - 1; guard && tree && i >= 0; --i)
        if (BVStackTreeItem::entryOf(tree->topLevelItem(i))) // slots may have removed others
            removeRow(tree->topLevelItem(i));
}

void BVStackEntries::rowDeleted(BVControlledStackItem *item)
{
    BVStackEntries *const entries = item->m_stackWidget->m_entries;
    QTreeWidgetItem *const row = item->m_treeItem;
    if (row->treeWidget())
        entries->m_stack->m_navigation->holdUntilRowsAreRemoved();
    entries->detachBranch(row);
}

BVStackRemains *BVStackEntries::detachBranch(QTreeWidgetItem *row)
{
    QVector<BVControlledStackItem *> items;
    const QVector<QTreeWidgetItem *> rows = branchOf(row);
    for (QTreeWidgetItem *branchRow : rows)
        if (BVControlledStackItem *item = BVStackTreeItem::entryOf(branchRow))
            items.append(item);
    return detach(items);
}

/// Pages go from the end, so that those before the last do not come into sight one after the other.
/// No slot is called before all are out, so that it may put one of them to use again.
BVStackRemains *BVStackEntries::detach(const QVector<BVControlledStackItem *> &items)
{
    const QPointer<BVStackEntries> guard(this);
    const QPointer<BVStackRemains> remains(new BVStackRemains(m_stack));
    for (BVControlledStackItem *item : items) {
        remains->add(item);
        m_items.remove(item);
        m_layoutItems.remove(item->m_layoutKey.toString(), item);
        item->m_treeItem->detach();
        item->m_treeItem = nullptr;
        item->m_stackWidget = nullptr;
    }
    m_stack->m_order->invalidate();
    for (int i = items.size() - 1; i >= 0 && guard && remains; --i)
        deletePage(items[i]);
    if (guard)
        reportPageCount();
    return remains;
}

void BVStackEntries::setLayoutKey(BVControlledStackItem *item, const QVariant &key)
{
    item->m_layoutKey = key;
    m_layoutItems.insert(key.toString(), item);
}

BVControlledStackItem *BVStackEntries::layoutItem(const QVariant &key) const
{
    const QList<BVControlledStackItem *> items = m_layoutItems.values(key.toString());
    for (BVControlledStackItem *item : items)
        if (item->m_layoutKey == key)
            return item;
    return nullptr;
}

// Pages

void BVStackEntries::setPage(BVControlledStackItem *item, QWidget *page)
{
    if (page == item->m_containerWidget || isAround(page))
        return;
    const QPointer<BVStackEntries> guard(this);
    const QPointer<QWidget> pageGuard(page);
    deletePage(item);
    if (BVControlledStackItem *other = BVControlledStackItem::itemFromWidget(pageGuard))
        other->removeContainerWidget();
    if (!guard)
        return;
    if (pageGuard && contains(item) && !item->m_containerWidget)
        attachPage(item, page);
    else
        reportPageCount();
}

bool BVStackEntries::isAround(const QWidget *widget) const
{
    const QWidget *pages = m_stack->stackedWidget();
    return widget && (widget == pages || widget->isAncestorOf(pages));
}

bool BVStackEntries::takeFromEntry(QWidget *page)
{
    const QPointer<BVStackEntries> guard(this);
    const QPointer<QWidget> pageGuard(page);
    if (BVControlledStackItem *item = BVControlledStackItem::itemFromWidget(page))
        item->removeContainerWidget();
    return guard && pageGuard;
}

void BVStackEntries::attachPage(BVControlledStackItem *item, QWidget *page)
{
    // The page may have been on its way out with another entry.
    QCoreApplication::removePostedEvents(page, QEvent::DeferredDelete);
    page->setProperty(s_pageProperty, QVariant::fromValue(item));
    page->installEventFilter(this);
    item->m_containerWidget = page;
    item->m_pageDestroyed =
        connect(page, &QObject::destroyed, this, [this, item] { onPageDestroyed(item); });
    if (page == m_stack->startPage())
        m_stack->m_switch->releaseStartPage();
    const QPointer<BVStackEntries> guard(this);
    const QPointer<QWidget> pageGuard(page);
    m_stack->stackedWidget()->addWidget(page);
    if (!guard || !pageGuard || item->m_containerWidget != page)
        return;
    if (BVWidgetStatus::status(page) != BVWidgetStatus::Normal)
        followPage(item, int(BVWidgetStatus::status(page)));
    if (guard && item->isCurrent())
        showPage(item);
    if (!guard)
        return;
    m_isPageCountDue = true;
    updateVisibility();
    if (guard)
        reportPageCount();
}

/// The page stays what it is, but for that it leaves the stack and is hidden. That is not told yet.
QWidget *BVStackEntries::takePage(BVControlledStackItem *item)
{
    const QPointer<QWidget> page(item->m_containerWidget);
    if (!page)
        return nullptr;
    page->removeEventFilter(this);
    page->setProperty(s_pageProperty, QVariant());
    disconnect(item->m_pageDestroyed);
    item->m_containerWidget = nullptr;
    m_stack->stackedWidget()->removeWidget(page);
    if (page)
        page->hide();
    forgetPage(item);
    return page;
}

void BVStackEntries::onPageDestroyed(BVControlledStackItem *item)
{
    m_dyingPage = item->m_containerWidget;
    forgetPage(item);
}

void BVStackEntries::forgetPage(BVControlledStackItem *item)
{
    disconnect(item->m_pageDestroyed);
    item->m_containerWidget = nullptr;
    if (item->m_isStatusOfPage)
        item->setBVWidgetStatus(BVWidgetStatus::Normal);
}

void BVStackEntries::deletePage(BVControlledStackItem *item)
{
    if (QWidget *page = takePage(item))
        page->deleteLater();
}

QWidget *BVStackEntries::releasePage(BVControlledStackItem *item)
{
    const QPointer<BVStackEntries> guard(this);
    const QPointer<QWidget> page(takePage(item));
    if (page)
        page->setParent(nullptr);
    if (guard)
        reportPageCount();
    return page;
}

void BVStackEntries::showPage(const BVControlledStackItem *item)
{
    QStackedWidget *const pages = m_stack->stackedWidget();
    QWidget *const page = item ? item->m_containerWidget : nullptr;
    if (page && pages->indexOf(page) >= 0)
        pages->setCurrentWidget(page);
}

void BVStackEntries::updateVisibility()
{
    const QPointer<BVStackEntries> guard(this);
    m_stack->m_switch->updateStartPage();
    if (guard)
        m_stack->updateStackVisibility();
}

/// The toolkit's layout is in the middle of it, and does not bear the end of the stack: whoever has
/// removed the page tells of it afterwards.
void BVStackEntries::onPageRemoved()
{
    if (!std::exchange(m_isPageCountDue, true)) // somebody else may have removed it
        QMetaObject::invokeMethod(this, &BVStackEntries::reportPageCount, Qt::QueuedConnection);
    updateVisibility();
}

/// While rows are on their way, it waits with all that is told of them.
void BVStackEntries::reportPageCount()
{
    if (!m_stack->tree() || !m_stack->m_navigation->isHeld())
        tellPageCount();
}

void BVStackEntries::tellPageCount()
{
    if (std::exchange(m_isPageCountDue, false))
        Q_EMIT m_stack->widgetCountChanged(m_stack->stackedWidget()->count());
}

void BVStackEntries::followPage(BVControlledStackItem *item, int stati)
{
    item->setBVWidgetStatus(BVWidgetStatus::Stati(stati));
    item->m_isStatusOfPage = true;
}

/// The layout has heard of it before. True if there is nobody left to hear of it.
bool BVStackEntries::onChildRemoved(const QObject *child)
{
    if (child != m_dyingPage)
        return false;
    const QPointer<BVStackEntries> guard(this);
    m_dyingPage = nullptr;
    reportPageCount();
    return !guard;
}

bool BVStackEntries::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ChildRemoved && watched == m_stack->stackedWidget())
        return onChildRemoved(static_cast<QChildEvent *>(event)->child());
    if (event->type() != BVWidgetStatusChangedEvent::s_eventType)
        return false;
    auto *page = qobject_cast<QWidget *>(watched);
    BVControlledStackItem *item = BVControlledStackItem::itemFromWidget(page);
    if (item && contains(item) && item->m_containerWidget == page)
        followPage(item, int(static_cast<BVWidgetStatusChangedEvent *>(event)->status()));
    return false;
}
