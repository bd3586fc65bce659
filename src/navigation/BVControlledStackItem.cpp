// SPDX-License-Identifier: MIT
#include "navigation/BVControlledStackItem.h"

#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVStackChecks_p.h"
#include "navigation/BVStackControllerWidget.h"
#include "navigation/BVStackEntries_p.h"
#include "navigation/BVStackGroups_p.h"
#include "navigation/BVStackNavigation_p.h"
#include "navigation/BVStackTreeItem_p.h"
#include "navigation/BVStackedWidget.h"

#include "itemviews/BVDragTreeWidget.h"
#include "platform/SvgIcon.h"

#include <QCoreApplication>
#include <QHash>
#include <QPointer>
#include <QVBoxLayout>

namespace {

struct Dot
{
    int dot;
    const char *picture;
};

constexpr Dot s_dots[] = {
    {1, ":/Style/BvWidgets/BVControlledStackItem/yellow_dot.svg"},
    {2, ":/Style/BvWidgets/BVControlledStackItem/red_dot.svg"},
};

QHash<int, QIcon> s_dotIcons; // loaded when first used, gone with the application

QIcon dotIcon(int dot)
{
    if (s_dotIcons.isEmpty()) {
        for (const Dot &known : s_dots)
            s_dotIcons.insert(known.dot, createSvgIcon(QString::fromLatin1(known.picture)));
        qAddPostRoutine([] { s_dotIcons.clear(); });
    }
    return s_dotIcons.value(dot);
}

bool isAtOrBelow(const QTreeWidgetItem *row, const QTreeWidgetItem *above)
{
    while (row && row != above)
        row = row->parent();
    return row != nullptr;
}

} // namespace

BVControlledStackItem::BVControlledStackItem(BVControlledStackWidget *stack)
    : m_stackWidget(stack)
{
}

BVControlledStackItem::~BVControlledStackItem() = default;

QTreeWidgetItem *BVControlledStackItem::treeItem() const
{
    return m_treeItem;
}

BVControlledStackItem *BVControlledStackItem::itemFromTreeItem(const QTreeWidgetItem *treeItem)
{
    return treeItem ? treeItem->data(0, ControlledStackItemRole).value<BVControlledStackItem *>()
                    : nullptr;
}

BVControlledStackItem *BVControlledStackItem::itemFromWidget(QWidget *widget)
{
    return widget
               ? widget->property(BVStackEntries::s_pageProperty).value<BVControlledStackItem *>()
               : nullptr;
}

QVariant BVControlledStackItem::data(int role) const
{
    return m_treeItem ? m_treeItem->data(0, role) : QVariant();
}

void BVControlledStackItem::setData(int role, const QVariant &value)
{
    if (m_treeItem)
        m_treeItem->setData(0, role, value);
}

// Below the entry

BVControlledStackItem *BVControlledStackItem::addItem(QWidget *container, int index)
{
    return m_stackWidget ? m_stackWidget->addItem(container, this, index) : nullptr;
}

QTreeWidgetItem *BVControlledStackItem::addChildItem(QTreeWidgetItem *parent, const QString &text,
                                                     int dot)
{
    QTreeWidgetItem *const above = parent ? parent : m_treeItem;
    if (!m_treeItem || !isAtOrBelow(above, m_treeItem))
        return nullptr;
    auto *row = new BVStackTreeItem(nullptr);
    row->setText(0, text);
    row->setIcon(0, dotIcon(dot));
    above->addChild(row);
    return row;
}

void BVControlledStackItem::clear()
{
    const QPointer<BVControlledStackWidget> stack(m_stackWidget);
    while (stack && m_treeItem && m_treeItem->childCount() > 0)
        stack->m_entries->removeRow(m_treeItem->child(0));
}

BVControlledStackItem *BVControlledStackItem::itemAt(int index) const
{
    return m_treeItem ? BVStackTreeItem::entryOf(m_treeItem->child(index)) : nullptr;
}

int BVControlledStackItem::itemCount(bool recursive) const
{
    const QList<BVControlledStackItem *> children = getChildItems();
    int count = children.size();
    if (recursive)
        for (const BVControlledStackItem *child : children)
            count += child->itemCount(true);
    return count;
}

QList<BVControlledStackItem *> BVControlledStackItem::getChildItems() const
{
    QList<BVControlledStackItem *> children;
    for (int i = 0; m_treeItem && i < m_treeItem->childCount(); ++i)
        if (BVControlledStackItem *child = BVStackTreeItem::entryOf(m_treeItem->child(i)))
            children.append(child);
    return children;
}

// Looks

void BVControlledStackItem::setText(const QString &text)
{
    if (!m_treeItem)
        return;
    m_text = text;
    m_treeItem->setText(0, text);
}

void BVControlledStackItem::setToolTip(const QString &toolTip)
{
    setData(Qt::ToolTipRole, toolTip);
}

void BVControlledStackItem::setIcon(const QIcon &icon)
{
    setData(Qt::DecorationRole, icon);
}

void BVControlledStackItem::setShowAsHeader(bool show)
{
    setData(ShowAsHeaderRole, show ? QVariant(true) : QVariant());
}

bool BVControlledStackItem::isShownAsHeader() const
{
    return data(ShowAsHeaderRole).toBool();
}

void BVControlledStackItem::setBold(bool bold)
{
    setData(BoldRole, bold);
}

bool BVControlledStackItem::isBold() const
{
    return data(BoldRole).toBool();
}

void BVControlledStackItem::setItalic(bool italic)
{
    setData(ItalicRole, italic);
}

bool BVControlledStackItem::isItalic() const
{
    return data(ItalicRole).toBool();
}

void BVControlledStackItem::setMarked(bool marked)
{
    setData(MarkedRole, marked);
}

bool BVControlledStackItem::isMarked() const
{
    return data(MarkedRole).toBool();
}

void BVControlledStackItem::setBVWidgetStatus(BVWidgetStatus::Stati stati)
{
    m_isStatusOfPage = false;
    if (stati == m_status)
        return;
    m_status = stati;
    setColorFromWidgetStatus();
}

void BVControlledStackItem::setColorFromWidgetStatus()
{
    setData(StatusRole, int(m_status));
}

// Checking

void BVControlledStackItem::setCheckable(bool checkable)
{
    Qt::ItemFlags wanted = flags();
    BVStackChecks::setFlags(this, wanted.setFlag(Qt::ItemIsUserCheckable, checkable));
}

bool BVControlledStackItem::isCheckable() const
{
    return flags() & Qt::ItemIsUserCheckable;
}

void BVControlledStackItem::setChecked(bool checked)
{
    setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

void BVControlledStackItem::setCheckState(Qt::CheckState state)
{
    if (!m_treeItem)
        return;
    const auto valid = Qt::CheckState(qBound(int(Qt::Unchecked), int(state), int(Qt::Checked)));
    BVStackChecks::seed(this, valid);
    const BVStackNavigation::Unreported silence(m_stackWidget->m_navigation,
                                                BVStackChecks::unreportedAbove(this));
    m_treeItem->setCheckState(m_checkColumn, valid);
}

Qt::CheckState BVControlledStackItem::getCheckState() const
{
    if (!m_treeItem)
        return Qt::Unchecked;
    return isCheckable() ? m_treeItem->checkState(m_checkColumn) : m_treeItem->ownCheckState();
}

bool BVControlledStackItem::checkStateHasChanged() const
{
    const QVariant reported = data(ReportedCheckStateRole);
    return reported.isValid() && reported.toInt() != getCheckState();
}

void BVControlledStackItem::setCurrentCheckStateInData()
{
    setData(ReportedCheckStateRole, int(getCheckState()));
}

// Place

int BVControlledStackItem::getIndex() const
{
    if (!m_treeItem)
        return -1;
    if (const QTreeWidgetItem *above = m_treeItem->parent())
        return above->indexOfChild(m_treeItem);
    return m_stackWidget->tree()->indexOfTopLevelItem(m_treeItem);
}

void BVControlledStackItem::setIndex(int index)
{
    if (!m_treeItem || index == getIndex())
        return;
    QTreeWidgetItem *const above = m_stackWidget->rowOf(parent());
    if (index >= 0 && index < BVStackTreeItem::entryCount(above))
        BVStackGroups::move({m_treeItem}, above, index);
}

BVControlledStackItem *BVControlledStackItem::parent() const
{
    return m_treeItem ? BVStackTreeItem::entryOf(m_treeItem->parent()) : nullptr;
}

void BVControlledStackItem::setParent(BVControlledStackItem *parent, int index)
{
    if (m_treeItem && (!parent || m_stackWidget->isOwn(parent)))
        BVStackGroups::move({m_treeItem}, m_stackWidget->rowOf(parent), index);
}

void BVControlledStackItem::reparentChildren(BVControlledStackItem *parent, int index)
{
    if (!m_treeItem || parent == this || (parent && !m_stackWidget->isOwn(parent)))
        return;
    QList<QTreeWidgetItem *> rows;
    const QList<BVControlledStackItem *> children = getChildItems();
    for (const BVControlledStackItem *child : children)
        rows.append(child->m_treeItem);
    BVStackGroups::move(rows, m_stackWidget->rowOf(parent), index);
}

bool BVControlledStackItem::isTopLevelItem() const
{
    return m_treeItem && !m_treeItem->parent();
}

void BVControlledStackItem::setUserOrder(int order)
{
    setData(UserOrderRole, order);
}

int BVControlledStackItem::getUserOrder() const
{
    return data(UserOrderRole).toInt();
}

bool BVControlledStackItem::hasUserOrder() const
{
    return data(UserOrderRole).isValid();
}

void BVControlledStackItem::clearUserOrder()
{
    setData(UserOrderRole, QVariant());
}

// Page

void BVControlledStackItem::setContainerWidget(QWidget *widget)
{
    if (m_stackWidget)
        m_stackWidget->m_entries->setPage(this, widget);
}

QWidget *BVControlledStackItem::removeContainerWidget()
{
    return m_stackWidget ? m_stackWidget->m_entries->releasePage(this) : nullptr;
}

void BVControlledStackItem::setupLayoutItem(QWidget *widget)
{
    if (!m_stackWidget || !widget || widget == m_containerWidget ||
        m_stackWidget->m_entries->isAround(widget) ||
        !m_stackWidget->m_entries->takeFromEntry(widget))
        return;
    const QPointer<QWidget> guard(widget);
    if (!m_containerWidget)
        setContainerWidget(new QWidget);
    if (!guard || !m_containerWidget)
        return;
    if (!m_containerWidget->layout()) {
        auto *layout = new QVBoxLayout(m_containerWidget);
        layout->setContentsMargins(0, 0, 0, 0);
    }
    m_containerWidget->layout()->addWidget(widget);
}

// State

void BVControlledStackItem::setCurrent()
{
    if (!m_treeItem)
        return;
    const QPointer<BVControlledStackWidget> stack(m_stackWidget);
    stack->m_navigation->makeCurrent(m_treeItem);
    if (stack && stack->getCurrentItem() == this) // or a slot has gone on
        stack->m_entries->showPage(this);
}

bool BVControlledStackItem::isCurrent() const
{
    return m_stackWidget && m_stackWidget->getCurrentItem() == this;
}

void BVControlledStackItem::setHover(bool hover, const QColor &color)
{
    if (m_treeItem && (hover || isHover()))
        m_stackWidget->tree()->setHoverItem(hover ? m_treeItem : nullptr, color);
}

bool BVControlledStackItem::isHover() const
{
    return m_treeItem && m_stackWidget->tree()->getHoverItem() == m_treeItem;
}

void BVControlledStackItem::setSelected(bool selected)
{
    if (m_treeItem)
        m_treeItem->setSelected(selected);
}

bool BVControlledStackItem::isSelected() const
{
    return m_treeItem && m_treeItem->isSelected();
}

void BVControlledStackItem::setExpanded(bool expanded)
{
    if (m_treeItem)
        m_treeItem->setExpanded(expanded);
}

bool BVControlledStackItem::isExpanded() const
{
    return m_treeItem && m_treeItem->isExpanded();
}

void BVControlledStackItem::setExpandedAll(bool expanded)
{
    const QPointer<BVControlledStackWidget> stack(m_stackWidget);
    // An open row without any below would take the first arrow to the left to close it.
    if (!expanded || (m_treeItem && m_treeItem->childCount() > 0))
        setExpanded(expanded);
    if (!stack)
        return;
    const QList<BVControlledStackItem *> children = getChildItems();
    for (BVControlledStackItem *child : children)
        if (stack && stack->isOwn(child)) // or a slot has removed it
            child->setExpandedAll(expanded);
}

void BVControlledStackItem::setEditable(bool editable)
{
    setFlag(Qt::ItemIsEditable, editable);
}

bool BVControlledStackItem::isEditable() const
{
    return flags() & Qt::ItemIsEditable;
}

void BVControlledStackItem::setEnabled(bool enabled)
{
    setFlag(Qt::ItemIsEnabled, enabled);
}

bool BVControlledStackItem::isEnabled() const
{
    return flags() & Qt::ItemIsEnabled;
}

void BVControlledStackItem::setFlag(Qt::ItemFlag flag, bool on)
{
    if (flag == Qt::ItemIsEnabled)
        m_isDisabled = !on;
    Qt::ItemFlags wanted = flags();
    BVStackChecks::setFlags(this, wanted.setFlag(flag, on));
}

Qt::ItemFlags BVControlledStackItem::flags() const
{
    return m_treeItem ? m_treeItem->flags() : Qt::ItemFlags();
}
