// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>

class BVContainerListControl;
class BVControlledStackItem;
class BVControlledStackWidget;
class BVDragTreeWidget;
class QModelIndex;
class QTreeWidgetItem;

/// Tells a controlled stack's listeners, as its signals, what happens in its tree, and keeps the
/// stack in line with the rows.
class BVStackNavigation : public QObject
{
    Q_OBJECT

public:
    /// While an object of this class lives, changes of current entry and selection wait, so that no
    /// slot meddles with rows that are on their way.
    class Hold
    {
    public:
        explicit Hold(BVStackNavigation *navigation);
        ~Hold();
        Hold(const Hold &) = delete;
        Hold &operator=(const Hold &) = delete;

    private:
        QPointer<BVStackNavigation> m_navigation;
    };

    /// While an object of this class lives, the entries' first states are noted, not reported.
    class Unreported
    {
    public:
        Unreported(BVStackNavigation *navigation, const QList<BVControlledStackItem *> &items);
        ~Unreported();
        Unreported(const Unreported &) = delete;
        Unreported &operator=(const Unreported &) = delete;

    private:
        QPointer<BVStackNavigation> m_navigation;
        QList<BVControlledStackItem *> m_items;
    };

    /// While an object of this class lives, toggles of the entry and those above wait. In the end
    /// each is told of if its state differs from the one that was told last.
    class NetToggles
    {
    public:
        /// Null for none.
        explicit NetToggles(BVControlledStackItem *item);
        ~NetToggles();
        NetToggles(const NetToggles &) = delete;
        NetToggles &operator=(const NetToggles &) = delete;

    private:
        QPointer<BVStackNavigation> m_navigation;
        QList<BVControlledStackItem *> m_items;
    };

    explicit BVStackNavigation(BVControlledStackWidget *stack);

    /// Reports no changes from here on.
    void hold();
    void holdUntilRowsAreRemoved();
    bool isHeld() const { return m_holdCount > 0; }
    /// Makes an enabled row current and then selects it. The view would do so in an order that does
    /// not bear slots that remove the row.
    void makeCurrent(QTreeWidgetItem *row);
    /// Selects the current row alone.
    void selectCurrent();

private:
    void watchTree(BVDragTreeWidget *tree);
    void watchRows(BVDragTreeWidget *tree);
    void watchDrops(BVContainerListControl *listControl);

    template <void (BVControlledStackWidget::*signal)(BVControlledStackItem *)>
    void forward(QTreeWidgetItem *row);
    void onCurrentItemChanged(QTreeWidgetItem *current, QTreeWidgetItem *previous);
    void reportCurrent(BVControlledStackItem *item, BVControlledStackItem *previous);
    void onSelectionChanged();
    void reportHeldSelection();
    void onItemChanged(QTreeWidgetItem *row, int column);
    void reportToggle(BVControlledStackItem *item);
    bool hasNews(BVControlledStackItem *item) const;

    void onRowsAboutToBeRemoved();
    void onRowsInserted(const QModelIndex &parent, int first, int last);
    void onRowsRemoved(const QModelIndex &parent);
    void placeEntry(BVControlledStackItem *item, bool isTopLevel);
    void updateParent(BVControlledStackItem *item, bool isAnyChecked);
    void keepStateOf(const QModelIndex &parent, int first, int last) const;
    void onDragEnter(QTreeWidgetItem *target, bool *mayDrop);
    void release();
    void releaseRows();

    BVControlledStackWidget *m_stack; // the parent
    QSet<const BVControlledStackItem *> m_unreported;
    QSet<const BVControlledStackItem *> m_waiting;   // their toggle waits
    QSet<const BVControlledStackItem *> m_reporting; // their toggle is being delivered
    int m_holdCount = 0;
    int m_deletedRows = 0; // each of them holds
    BVControlledStackItem *m_heldPrevious = nullptr;
    bool m_isSelectionHeld = false;
};
