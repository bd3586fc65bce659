// SPDX-License-Identifier: MIT
#include "controls/BVTabWidget.h"

#include "controls/BVTabBar.h"
#include "foundation/BVReferenceValueInterface.h"
#include "foundation/BVWidgetStatusChangedEvent.h"
#include "foundation/BVWidgetStatusPropertyDispatcher.h"
#include "platform/BVMenu.h"

#include <QContextMenuEvent>
#include <QHelpEvent>

BVTabWidget::BVTabWidget(QWidget *parent)
    : QTabWidget(parent)
    , m_tabBar(new BVTabBar)
{
    setTabBar(m_tabBar);
    BVWidgetStatusPropertyDispatcher::dispatch(this, this);
}

BVTabWidget::~BVTabWidget() = default;

int BVTabWidget::currentIndex() const
{
    return QTabWidget::currentIndex();
}

void BVTabWidget::setCurrentIndex(int index)
{
    QTabWidget::setCurrentIndex(index);
}

void BVTabWidget::setItemText(int index, const QString &text)
{
    setTabText(index, text);
}

void BVTabWidget::setItemToolTip(int index, const QString &toolTip)
{
    setTabToolTip(index, toolTip);
}

bool BVTabWidget::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip &&
        BVReferenceValueInterface::showToolTip(this, static_cast<QHelpEvent *>(event)))
        return true;
    return QTabWidget::event(event);
}

bool BVTabWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == BVWidgetStatusChangedEvent::s_eventType) {
        const int index = indexOf(qobject_cast<QWidget *>(watched));
        m_tabBar->setTabStatus(index, static_cast<BVWidgetStatusChangedEvent *>(event)->status());
    } else if (event->type() == QEvent::StyleChange) { // follows a silent reset
        auto *page = qobject_cast<QWidget *>(watched);
        m_tabBar->setTabStatus(indexOf(page), BVWidgetStatus::status(page));
    }
    return QTabWidget::eventFilter(watched, event);
}

QWidget *BVTabWidget::getStatusWidget(int index) const
{
    return widget(index);
}

void BVTabWidget::updateWidget()
{
    QWidget *page = getStatusWidget();
    BVWidgetStatus::setStatusProperty(page, BVWidgetStatus::status(page));
    m_tabBar->setTabStatus(currentIndex(), BVWidgetStatus::status(page));
    onStatusChanged();
}

void BVTabWidget::updateWidget(int /*index*/) {}

void BVTabWidget::tabInserted(int index)
{
    QTabWidget::tabInserted(index);
    QWidget *page = widget(index);
    // Stays when the page leaves: a page without a tab changes nothing here.
    page->installEventFilter(this);
    m_tabBar->setTabStatus(index, BVWidgetStatus::status(page));
}

void BVTabWidget::contextMenuEvent(QContextMenuEvent *event)
{
    // The menu is that of the current page, so the tab under the pointer becomes it first.
    const int index = m_tabBar->tabAt(m_tabBar->mapFrom(this, event->pos()));
    if (index >= 0)
        setCurrentIndex(index);
    if (!popupStandardMenu(new BVMenu(this), this, event->globalPos()))
        QTabWidget::contextMenuEvent(event);
}
