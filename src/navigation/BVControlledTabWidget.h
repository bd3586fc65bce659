// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QPointer>
#include <QWidget>

class BVControlledStackItem;
class BVControlledStackWidget;
class BVTabBar;
class QModelIndex;

/// A controlled stack whose top-level entries are chosen by tabs above its pages.
///
/// There is a tab for each top-level entry, in their order, with its text, icon and tool tip. It is
/// enabled as the entry is and shows the status of the entry and all below it. Choosing a tab makes
/// its entry current, or, if that has no page, the first enabled one below with a page; one that is
/// not enabled cannot be chosen. The tab of the entry that the current one is or lies below is
/// current, whoever chooses; a stack without a current entry gets the one of the first tab that is
/// enabled.
///
/// The navigation tree can be shown beside that, for what lies below the tabs.
class BVWIDGETS_EXPORT BVControlledTabWidget : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentChanged)

public:
    explicit BVControlledTabWidget(QWidget *parent = nullptr);
    BVControlledTabWidget(BVControlledStackWidget *stack, QWidget *parent);
    ~BVControlledTabWidget() override;

    BVTabBar *tabBar() const { return m_tabBar; }
    /// Null if there is none.
    BVControlledStackWidget *stack() const;
    /// Takes the stack over and shows it; the one before is hidden and belongs to the caller. Null
    /// leaves none. Ignored for a stack that this stands in.
    void setStack(BVControlledStackWidget *stack);

    int count() const;
    /// -1 without tabs.
    int currentIndex() const;

public Q_SLOTS:
    /// An index without a tab is ignored.
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// Another tab has become current; -1 for none.
    void currentChanged(int index);

private:
    void watch();
    void leaveStack();
    void updateTabs();
    void updateTab(int index);
    void updateCurrent();
    void onRowChanged(QModelIndex row);
    void chooseFirst();
    void onTabChosen(int index);

    BVTabBar *m_tabBar;                        // child of this
    QPointer<BVControlledStackWidget> m_stack; // child of this
    int m_currentIndex = -1;                   // as it was told
};
