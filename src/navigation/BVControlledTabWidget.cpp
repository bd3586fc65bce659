// SPDX-License-Identifier: MIT
#include "navigation/BVControlledTabWidget.h"

#include "controls/BVTabBar.h"
#include "itemviews/BVDragTreeWidget.h"
#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

using Entry = BVControlledStackItem;

BVWidgetStatus::Stati combinedStatus(const Entry *entry)
{
    BVWidgetStatus::Stati stati = entry->getBVWidgetStatus();
    const QList<Entry *> children = entry->getChildItems();
    for (const Entry *child : children)
        stati |= combinedStatus(child);
    return stati;
}

/// The entry itself or the first below that has a page and is enabled; null for none.
Entry *firstWithPage(Entry *entry)
{
    if (!entry->isEnabled())
        return nullptr;
    if (entry->getContainerWidget())
        return entry;
    const QList<Entry *> children = entry->getChildItems();
    for (Entry *child : children)
        if (Entry *found = firstWithPage(child))
            return found;
    return nullptr;
}

const Entry *topOf(const Entry *entry)
{
    while (entry && entry->parent())
        entry = entry->parent();
    return entry;
}

QString inTab(QString text)
{
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

BVControlledTabWidget::BVControlledTabWidget(QWidget *parent)
    : BVControlledTabWidget(nullptr, parent)
{
}

BVControlledTabWidget::BVControlledTabWidget(BVControlledStackWidget *stack, QWidget *parent)
    : QWidget(parent)
    , m_tabBar(new BVTabBar(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tabBar);
    layout->addStretch();
    m_tabBar->setExpanding(false);
    setFocusProxy(m_tabBar);
    connect(m_tabBar, &QTabBar::currentChanged, this, &BVControlledTabWidget::onTabChosen);
    setStack(stack);
}

/// The stack tells of its entries when it goes.
BVControlledTabWidget::~BVControlledTabWidget()
{
    leaveStack();
}

BVControlledStackWidget *BVControlledTabWidget::stack() const
{
    return m_stack;
}

void BVControlledTabWidget::leaveStack()
{
    if (!m_stack)
        return;
    m_stack->disconnect(this);
    if (m_stack->tree())
        m_stack->tree()->model()->disconnect(this);
}

void BVControlledTabWidget::setStack(BVControlledStackWidget *stack)
{
    if (stack == m_stack || (stack && stack->isAncestorOf(this)))
        return;
    leaveStack();
    if (m_stack) {
        m_stack->hide();
        m_stack->setParent(nullptr);
    }
    m_stack = stack;
    if (stack) {
        static_cast<QVBoxLayout *>(layout())->insertWidget(1, stack, 1);
        stack->show();
        watch();
    }
    updateTabs();
}

void BVControlledTabWidget::watch()
{
    const auto update = [this] { updateTabs(); };
    using CurrentChanged = void (BVControlledStackWidget::*)(Entry *, Entry *);
    connect(m_stack, CurrentChanged(&BVControlledStackWidget::currentChanged), this,
            &BVControlledTabWidget::updateCurrent);
    connect(m_stack, &BVControlledStackWidget::itemAdded, this, update);
    connect(m_stack, &QObject::destroyed, this, [this] {
        m_stack = nullptr; // some of it is gone already
        updateTabs();
    });
    if (!m_stack->tree())
        return;
    const QAbstractItemModel *model = m_stack->tree()->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, update);
    connect(model, &QAbstractItemModel::rowsRemoved, this, update);
    connect(model, &QAbstractItemModel::layoutChanged, this, update);
    connect(model, &QAbstractItemModel::modelReset, this, update);
    connect(model, &QAbstractItemModel::dataChanged, this, &BVControlledTabWidget::onRowChanged);
}

// Tabs

int BVControlledTabWidget::count() const
{
    return m_tabBar->count();
}

int BVControlledTabWidget::currentIndex() const
{
    return m_tabBar->currentIndex();
}

void BVControlledTabWidget::setCurrentIndex(int index)
{
    m_tabBar->setCurrentIndex(index);
}

void BVControlledTabWidget::updateTabs()
{
    const int count = m_stack ? m_stack->itemCount() : 0;
    {
        const QSignalBlocker blocker(m_tabBar); // the tabs follow, nobody has chosen one
        while (m_tabBar->count() > count)
            m_tabBar->removeTab(count);
        while (m_tabBar->count() < count)
            m_tabBar->addTab(QString());
        for (int i = 0; i < count; ++i)
            updateTab(i);
    }
    updateCurrent();
}

void BVControlledTabWidget::updateTab(int index)
{
    const Entry *entry = m_stack->itemAt(index);
    const QTreeWidgetItem *row = entry ? entry->treeItem() : nullptr;
    if (!row)
        return;
    const QString text = inTab(entry->getText());
    if (m_tabBar->tabText(index) != text)
        m_tabBar->setTabText(index, text);
    m_tabBar->setTabIcon(index, row->icon(0));
    m_tabBar->setTabToolTip(index, row->toolTip(0));
    m_tabBar->setTabEnabled(index, entry->isEnabled());
    m_tabBar->setTabStatus(index, combinedStatus(entry));
}

void BVControlledTabWidget::onRowChanged(QModelIndex row)
{
    if (!m_stack || !m_stack->tree()) // it is about to go
        return;
    while (row.parent().isValid())
        row = row.parent();
    const Entry *entry = Entry::itemFromTreeItem(m_stack->tree()->itemFromIndex(row));
    const int index = entry ? entry->getIndex() : -1;
    const QSignalBlocker blocker(m_tabBar);
    if (index >= 0 && index < m_tabBar->count())
        updateTab(index);
}

// Current tab

void BVControlledTabWidget::updateCurrent()
{
    const Entry *entry = m_stack ? topOf(m_stack->getCurrentItem()) : nullptr;
    const int index = entry ? entry->getIndex() : -1;
    if (index < 0 && count() > 0) // later: the stack may be in the middle of a change
        QMetaObject::invokeMethod(this, &BVControlledTabWidget::chooseFirst, Qt::QueuedConnection);
    {
        const QSignalBlocker blocker(m_tabBar);
        m_tabBar->setCurrentIndex(index);
    }
    if (m_currentIndex == currentIndex())
        return;
    m_currentIndex = currentIndex();
    Q_EMIT currentChanged(m_currentIndex); // last: the receiver may delete this
}

void BVControlledTabWidget::chooseFirst()
{
    if (!m_stack || m_stack->getCurrentItem())
        return;
    const int entries = m_stack->itemCount();
    for (int i = 0; i < entries; ++i) {
        if (m_stack->itemAt(i)->isEnabled()) {
            onTabChosen(i);
            return;
        }
    }
}

/// The tab stays what the stack makes of it.
void BVControlledTabWidget::onTabChosen(int index)
{
    Entry *entry = m_stack ? m_stack->itemAt(index) : nullptr;
    if (!entry || !entry->isEnabled() || topOf(m_stack->getCurrentItem()) == entry) {
        updateCurrent();
        return;
    }
    const QPointer<BVControlledTabWidget> guard(this);
    Entry *withPage = firstWithPage(entry);
    (withPage ? withPage : entry)->setCurrent();
    if (guard && m_stack && m_stack->getCurrentItem())
        updateCurrent();
}
