// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVContainerWidgetInterface.h"
#include "foundation/BVStatusProperties.h"

#include <QTabWidget>

class BVTabBar;

/// A tab widget whose pages carry a status each, shown on their tabs.
///
/// The status of item i lives on page i; the tab bar follows it. The properties of the tab widget
/// itself show flags that are written to it, such as those a BVWidgetStatusHandler combines from
/// the pages.
class BVWIDGETS_EXPORT BVTabWidget : public QTabWidget, public BVContainerWidgetInterface
{
    Q_OBJECT
    BV_STATUS_PROPERTIES

public:
    explicit BVTabWidget(QWidget *parent = nullptr);
    ~BVTabWidget() override;

    int currentIndex() const override;
    void setCurrentIndex(int index) override;
    void setItemText(int index, const QString &text) override;
    void setItemToolTip(int index, const QString &toolTip) override;

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);

protected:
    using BVContainerWidgetInterface::getStatusWidget;
    QWidget *getStatusWidget(int index) const override;
    void updateWidget() override;
    /// Nothing: writing the page's style properties has re-applied its style.
    void updateWidget(int index) override;

    void tabInserted(int index) override;
    /// Opens the standard menu of the current page's status.
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    BVTabBar *m_tabBar; // owned by the tab widget
};
