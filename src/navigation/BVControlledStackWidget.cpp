// SPDX-License-Identifier: MIT
#include "navigation/BVControlledStackWidget.h"

#include "navigation/BVControlledStackItem.h"
#include "navigation/BVStackChecks_p.h"
#include "navigation/BVStackControllerWidget.h"
#include "navigation/BVStackEntries_p.h"
#include "navigation/BVStackGroups_p.h"
#include "navigation/BVStackLooks_p.h"
#include "navigation/BVStackNavigation_p.h"
#include "navigation/BVStackNeedInput_p.h"
#include "navigation/BVStackOrder_p.h"
#include "navigation/BVStackPageSwitch_p.h"
#include "navigation/BVStackSelection_p.h"
#include "navigation/BVStackTreeItem_p.h"
#include "navigation/BVStackedWidget.h"

#include "foundation/BVWidgetStatusPropertyDispatcher.h"
#include "itemviews/BVDragTreeWidget.h"

#include <QAction>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QVBoxLayout>

namespace {

constexpr int s_leftMargin = 3; // px
constexpr int s_topMargin = 6;  // px

} // namespace

BVControlledStackWidget::BVControlledStackWidget(BVStackControllerWidget *controller,
                                                 QWidget *parent)
    : QFrame(parent)
    , BVWidgetInterface(this)
    , m_controller(controller)
    , m_tree(controller ? controller->tree() : nullptr)
    , m_pages(new BVStackedWidget(this))
    , m_order(std::make_unique<BVStackOrder>())
    , m_switch(std::make_unique<BVStackPageSwitch>(m_pages))
    , m_entries(new BVStackEntries(this))
    , m_navigation(new BVStackNavigation(this))
{
    setObjectName(QStringLiteral("bv_controlledstackwidget"));
    auto *layout = new QHBoxLayout(this);
    layout->setSpacing(0);
    layout->addWidget(m_pages);
    updateMargins(false, false);
    BVWidgetStatusPropertyDispatcher::dispatch(this, this);
    if (controller)
        controller->setControlledStack(this);
    updateAutoRootDecoration();
}

BVControlledStackWidget::~BVControlledStackWidget()
{
    blockSignals(true);
    m_entries->clear();
    m_entries->leaveRows();
    if (m_controller && m_controller->getControlledStack() == this)
        resetController();
    delete m_navigation;
    delete m_entries;
    m_entries = nullptr;
    if (m_controller && m_controller->getControlledStack() == this)
        m_controller->setControlledStack(nullptr);
}

/// Nothing is told of the current entry, as there is none left to go on with.
void BVControlledStackWidget::leaveController()
{
    if (!m_entries) // at its end
        return;
    const QPointer<BVControlledStackWidget> guard(this);
    m_navigation->hold();
    m_entries->clear();
    if (guard)
        m_entries->leaveRows();
    if (!guard)
        return;
    if (m_controller && m_needInputAction)
        m_controller->removeAction(m_needInputAction);
    resetController();
    m_tree = nullptr;
    m_order->invalidate();
    m_controller = nullptr;
    delete m_navigation;
    m_navigation = new BVStackNavigation(this); // of no tree
    updateStackVisibility();
}

/// Takes back what this has set there, so that the next stack finds it as it was.
void BVControlledStackWidget::resetController()
{
    if (!m_controller || !tree())
        return;
    if (m_topLevelAsHeader)
        tree()->setShowTopLevelSeparator(false);
    if (m_deselectionEnabled)
        tree()->enableDeselection(false);
    if (!m_headerLabel.isEmpty())
        m_controller->setHeaderLabel(QString());
    BVStackLooks::alignHeader(*m_controller, false);
}

BVStackControllerWidget *BVControlledStackWidget::controller() const
{
    return m_controller;
}

bool BVControlledStackWidget::isOwn(const BVControlledStackItem *item) const
{
    return m_entries->contains(item);
}

/// The row of the entry, or the one above the top level for null.
QTreeWidgetItem *BVControlledStackWidget::rowOf(const BVControlledStackItem *parent) const
{
    return parent ? parent->treeItem() : tree()->invisibleRootItem();
}

QWidget *BVControlledStackWidget::getStatusWidget(int index) const
{
    const BVControlledStackItem *item = itemAtDFSIndex(index);
    return item ? item->getContainerWidget() : nullptr;
}

// Adding

BVControlledStackItem *BVControlledStackWidget::addItem(QWidget *page, int index)
{
    return m_entries->insert(page, nullptr, index);
}

BVControlledStackItem *BVControlledStackWidget::addItem(QWidget *page, int parentIndex, int index)
{
    BVControlledStackItem *parent = itemAtDFSIndex(parentIndex);
    return parent || parentIndex == -1 ? m_entries->insert(page, parent, index) : nullptr;
}

BVControlledStackItem *BVControlledStackWidget::addItem(QWidget *page, QWidget *parentPage,
                                                        int index)
{
    BVControlledStackItem *parent = BVControlledStackItem::itemFromWidget(parentPage);
    return parent || !parentPage ? m_entries->insert(page, parent, index) : nullptr;
}

BVControlledStackItem *BVControlledStackWidget::addItem(QWidget *page,
                                                        BVControlledStackItem *parent, int index)
{
    return m_entries->insert(page, parent, index);
}

BVControlledStackItem *BVControlledStackWidget::addItemAtDfsIndex(QWidget *page, int dfsIndex)
{
    const BVControlledStackItem *follower = itemAtDFSIndex(dfsIndex);
    return follower ? m_entries->insert(page, follower->parent(), follower->getIndex())
                    : m_entries->insert(page, nullptr, -1);
}

void BVControlledStackWidget::addChildItem(BVControlledStackItem *parent,
                                           BVControlledStackItem *child, int index)
{
    if (isOwn(child))
        child->setParent(parent, index);
}

BVControlledStackItem *BVControlledStackWidget::addLayoutItem(const QVariant &key, int index)
{
    if (!key.isValid() || getLayoutItem(key) || !tree())
        return nullptr;
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    BVControlledStackItem *item = addItem(page, index);
    if (item)
        m_entries->setLayoutKey(item, key);
    return item;
}

BVControlledStackItem *BVControlledStackWidget::getLayoutItem(const QVariant &key) const
{
    return m_entries->layoutItem(key);
}

QList<BVControlledStackItem *> BVControlledStackWidget::getLayoutItems() const
{
    QList<BVControlledStackItem *> layoutItems;
    const QList<BVControlledStackItem *> items = getDFSItems();
    for (BVControlledStackItem *item : items)
        if (item->m_layoutKey.isValid())
            layoutItems.append(item);
    return layoutItems;
}

QVariant BVControlledStackWidget::getLayoutItemData(const BVControlledStackItem *item)
{
    return item ? item->m_layoutKey : QVariant();
}

// Removing

void BVControlledStackWidget::removeItem(int dfsIndex)
{
    removeItem(itemAtDFSIndex(dfsIndex));
}

void BVControlledStackWidget::removeItem(BVControlledStackItem *item)
{
    if (isOwn(item))
        m_entries->removeRow(item->treeItem());
}

void BVControlledStackWidget::removeItem(QWidget *page)
{
    removeItem(BVControlledStackItem::itemFromWidget(page));
}

void BVControlledStackWidget::clear()
{
    m_entries->clear();
}

// Entries

int BVControlledStackWidget::currentIndex() const
{
    return getDFSIndex(getCurrentItem());
}

BVControlledStackItem *BVControlledStackWidget::getCurrentItem() const
{
    return tree() ? BVStackTreeItem::entryAtOrAbove(tree()->currentItem()) : nullptr;
}

BVControlledStackItem *BVControlledStackWidget::itemAt(int index) const
{
    return tree() ? BVStackTreeItem::entryOf(tree()->topLevelItem(index)) : nullptr;
}

BVControlledStackItem *BVControlledStackWidget::itemAtDFSIndex(int dfsIndex) const
{
    const bool isPossible = dfsIndex >= 0 && dfsIndex < m_entries->count();
    return isPossible ? m_order->at(tree(), dfsIndex) : nullptr;
}

int BVControlledStackWidget::getDFSIndex(const BVControlledStackItem *item) const
{
    return isOwn(item) ? m_order->indexOf(tree(), item) : -1;
}

QList<BVControlledStackItem *> BVControlledStackWidget::getDFSItems() const
{
    return m_order->items(tree());
}

int BVControlledStackWidget::itemCount(bool recursive) const
{
    if (recursive || !tree())
        return m_order->items(tree()).size();
    return BVStackTreeItem::entryCount(tree()->invisibleRootItem());
}

BVControlledStackItem *BVControlledStackWidget::getItemByText(const QString &text) const
{
    const QList<BVControlledStackItem *> items = getDFSItems();
    for (BVControlledStackItem *item : items)
        if (item->getText() == text)
            return item;
    return nullptr;
}

void BVControlledStackWidget::setItemText(int dfsIndex, const QString &text)
{
    if (BVControlledStackItem *item = itemAtDFSIndex(dfsIndex))
        item->setText(text);
}

void BVControlledStackWidget::setItemToolTip(int dfsIndex, const QString &toolTip)
{
    if (BVControlledStackItem *item = itemAtDFSIndex(dfsIndex))
        item->setToolTip(toolTip);
}

void BVControlledStackWidget::sortItems()
{
    const BVStackTreeItem::UserOrder order;
    if (tree())
        tree()->model()->sort(0, Qt::AscendingOrder);
}

// Current entry

void BVControlledStackWidget::setCurrentIndex(int index)
{
    const QPointer<BVControlledStackWidget> guard(this);
    BVControlledStackItem *item = itemAtDFSIndex(index);
    if (index < 0 && tree()) // the view would not bear a slot that deletes it
        tree()->selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::Clear);
    if (item)
        item->setCurrent();
    if (guard && item)
        m_switch->updateStartPage();
    if (guard)
        updateStackVisibility();
}

void BVControlledStackWidget::updateCurrentSelection()
{
    if (!getCurrentItem())
        return;
    const QPointer<BVControlledStackWidget> guard(this);
    if (!tree()->currentItem()->isSelected())
        m_navigation->selectCurrent();
    if (guard)
        m_entries->showPage(getCurrentItem());
    if (guard)
        updateStackVisibility();
}

void BVControlledStackWidget::updateStackVisibility()
{
    if (m_deselectionEnabled)
        m_switch->updateForCurrent(getCurrentItem());
}

// Selection

bool BVControlledStackWidget::hasSelection() const
{
    return !getDfsIndexOfSelectedElements().isEmpty();
}

QList<int> BVControlledStackWidget::getDfsIndexOfSelectedElements() const
{
    return BVStackSelection::selected(*this);
}

QList<int> BVControlledStackWidget::getIndexOfSelectedElements() const
{
    QList<int> indexes = getDfsIndexOfSelectedElements();
    for (int &index : indexes)
        index = itemAtDFSIndex(index)->getIndex();
    return indexes;
}

void BVControlledStackWidget::setSelectedElementsByDfsIndex(const QList<int> &dfsIndexes)
{
    BVStackSelection::select(*this, rowsAt(dfsIndexes));
}

QList<QTreeWidgetItem *> BVControlledStackWidget::rowsAt(const QList<int> &dfsIndexes) const
{
    QList<QTreeWidgetItem *> rows;
    for (const int index : dfsIndexes)
        if (const BVControlledStackItem *item = itemAtDFSIndex(index))
            rows.append(item->treeItem());
    return rows;
}

// Marking

void BVControlledStackWidget::setItemMarked(int dfsIndex, bool marked, bool exclusive)
{
    BVControlledStackItem *item = itemAtDFSIndex(dfsIndex);
    if (!item)
        return;
    if (exclusive)
        clearMarkedItems();
    item->setMarked(marked);
}

bool BVControlledStackWidget::isItemMarked(int dfsIndex) const
{
    const BVControlledStackItem *item = itemAtDFSIndex(dfsIndex);
    return item && item->isMarked();
}

void BVControlledStackWidget::clearMarkedItems()
{
    BVStackSelection::clearMarks(*this);
}

// Groups

BVControlledStackItem *BVControlledStackWidget::createGroup(int index, const QList<int> &dfsIndexes)
{
    if (!tree())
        return nullptr;
    const QList<QTreeWidgetItem *> rows = rowsAt(dfsIndexes);
    const int place = index < 0 ? BVStackGroups::topLevelPlaceOf(tree(), rows) : index;
    BVControlledStackItem *group = addItem(nullptr, place);
    if (group)
        BVStackGroups::move(rows, group->treeItem(), -1);
    return group;
}

void BVControlledStackWidget::addToGroup(int group, const QList<int> &dfsIndexes, bool atFront)
{
    insertItemsToGroup(group, dfsIndexes, atFront ? 0 : -1);
}

void BVControlledStackWidget::insertItemsToGroup(int group, const QList<int> &dfsIndexes, int index)
{
    if (BVControlledStackItem *item = itemAtDFSIndex(group))
        BVStackGroups::move(rowsAt(dfsIndexes), item->treeItem(), index);
}

bool BVControlledStackWidget::isInGroup(int dfsIndex) const
{
    return isInGroup(itemAtDFSIndex(dfsIndex));
}

bool BVControlledStackWidget::isInGroup(const BVControlledStackItem *item) const
{
    const BVControlledStackItem *parent = isOwn(item) ? item->parent() : nullptr;
    return parent && !parent->getContainerWidget();
}

void BVControlledStackWidget::removeAllItemsFromGroup(int group)
{
    if (BVControlledStackItem *item = itemAtDFSIndex(group))
        item->reparentChildren(item->parent(), item->getIndex() + 1);
}

// Presentation

void BVControlledStackWidget::setCheckableItems(CheckableItems mode)
{
    if (mode < NoCheckableItems || mode > AllItemsCheckable)
        return;
    m_checkableItems = mode;
    const QList<BVControlledStackItem *> items = getDFSItems();
    for (BVControlledStackItem *item : items) // each before those that its state is derived from
        BVStackChecks::update(item, mode, item->isTopLevelItem());
    for (BVControlledStackItem *item : items)
        BVStackChecks::noteState(item);
    updateHeaderAlignment();
}

void BVControlledStackWidget::updateHeaderAlignment()
{
    if (m_controller)
        BVStackLooks::alignHeader(*m_controller, isCheckableItems());
}

void BVControlledStackWidget::setHeaderLabel(const QString &text, bool alignRight)
{
    m_headerLabel = text;
    if (!m_controller)
        return;
    m_controller->setHeaderLabel(text, alignRight);
    updateHeaderAlignment();
}

void BVControlledStackWidget::setDeselectionOfCurrentEnabled(bool enable)
{
    const bool wasEnabled = m_deselectionEnabled;
    m_deselectionEnabled = enable;
    if (tree())
        tree()->enableDeselection(enable);
    if (wasEnabled && !enable)
        m_switch->forgetCurrent();
    updateStackVisibility();
}

void BVControlledStackWidget::setShowTopLevelItemsAsGroupHeader(bool show)
{
    if (show == m_topLevelAsHeader)
        return;
    m_topLevelAsHeader = show;
    if (!tree())
        return;
    tree()->setShowTopLevelSeparator(show);
    updateAutoRootDecoration();
    for (int i = tree()->topLevelItemCount() - 1; i >= 0; --i)
        if (BVControlledStackItem *item = itemAt(i))
            item->setShowAsHeader(show);
}

void BVControlledStackWidget::updateAutoRootDecoration()
{
    if (tree())
        BVStackLooks::decorateRoot(tree(), m_topLevelAsHeader);
}

void BVControlledStackWidget::setHoverItem(BVControlledStackItem *item)
{
    if (isOwn(item))
        item->setHover(true);
    else if (!item && tree())
        tree()->setHoverItem(nullptr);
}

BVControlledStackItem *BVControlledStackWidget::getHoverItem() const
{
    return tree() ? BVStackTreeItem::entryOf(tree()->getHoverItem()) : nullptr;
}

void BVControlledStackWidget::updateMargins(bool noLeft, bool noTop)
{
    layout()->setContentsMargins(noLeft ? 0 : s_leftMargin, noTop ? 0 : s_topMargin, 0, 0);
}

// Start page

void BVControlledStackWidget::setStartPage(QWidget *page, int threshold)
{
    m_switch->setThreshold(threshold);
    if (!page || m_entries->isAround(page) || !m_entries->takeFromEntry(page))
        return;
    m_switch->setStartPage(page, layout());
    m_switch->updateStartPage();
    updateStackVisibility();
}

QWidget *BVControlledStackWidget::startPage() const
{
    return m_switch->startPage();
}

int BVControlledStackWidget::startPageThreshold() const
{
    return m_switch->threshold();
}

void BVControlledStackWidget::showStartPage(bool show)
{
    m_switch->showStartPage(show);
}

// Entries that need input

QList<BVControlledStackItem *> BVControlledStackWidget::needInputItems() const
{
    return BVStackNeedInput::items(*this);
}

bool BVControlledStackWidget::goToNextNeedingInput()
{
    return BVStackNeedInput::goToNext(*this);
}

void BVControlledStackWidget::setNeedInputShortcutEnabled(bool enable)
{
    if (enable == isNeedInputShortcutEnabled())
        return;
    delete m_needInputAction;
    m_needInputAction = enable ? BVStackNeedInput::makeAction(this) : nullptr;
}
