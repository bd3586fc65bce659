// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QVariant>
#include <QVector>

class BVControlledStackItem;
class BVControlledStackWidget;
class BVDragTreeWidget;
class BVStackRemains;
class QTreeWidgetItem;
class QWidget;

/// Makes and removes the entries of a controlled stack, and ties pages to them.
class BVStackEntries : public QObject
{
    Q_OBJECT

public:
    /// The property of a page that leads to its entry.
    static constexpr char s_pageProperty[] = "BVControlledStackItemWidgetProperty";

    explicit BVStackEntries(BVControlledStackWidget *stack);

    bool contains(const BVControlledStackItem *item) const
    {
        return m_items.contains(const_cast<BVControlledStackItem *>(item));
    }
    int count() const { return m_items.size(); }
    /// Null if there is no tree, or if a slot has removed the new entry again.
    BVControlledStackItem *insert(QWidget *page, BVControlledStackItem *parent, int index);
    /// Removes a row with all below, whether they are entries or not.
    void removeRow(QTreeWidgetItem *row);
    void clear();
    /// Takes all rows out of the tree, which is about to go.
    void leaveTree();
    /// Lets all entries go that are left. Their rows stay where they are: they belong to others, or
    /// go with their tree.
    void leaveRows();
    /// Has the models of the tree, which is about to go, outlive it: whoever is in the middle of a
    /// change goes on to speak to them.
    static void keepModels(BVDragTreeWidget *tree);
    /// The row of the entry is being deleted.
    static void rowDeleted(BVControlledStackItem *item);

    void setLayoutKey(BVControlledStackItem *item, const QVariant &key);
    /// Null for none.
    BVControlledStackItem *layoutItem(const QVariant &key) const;

    void setPage(BVControlledStackItem *item, QWidget *page);
    /// Takes the page out of the stack; it belongs to the caller.
    QWidget *releasePage(BVControlledStackItem *item);
    /// Whether the widget (or null) is that with the pages or something that this is inside of.
    bool isAround(const QWidget *widget) const;
    /// Takes the page from its entry, if it has one. False if a slot has deleted it or the stack.
    bool takeFromEntry(QWidget *page);
    /// Makes the page of the entry, if it has one, that of the stack.
    void showPage(const BVControlledStackItem *item);

    bool isPageCountDue() const { return m_isPageCountDue; }
    /// Tells of the number of pages if that is due.
    void tellPageCount();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void putIntoTree(BVControlledStackItem *item, BVControlledStackItem *parent, int index);
    void attachPage(BVControlledStackItem *item, QWidget *page);
    QWidget *takePage(BVControlledStackItem *item);
    void forgetPage(BVControlledStackItem *item);
    void deletePage(BVControlledStackItem *item);
    void followPage(BVControlledStackItem *item, int stati);
    BVStackRemains *detachBranch(QTreeWidgetItem *row);
    BVStackRemains *detach(const QVector<BVControlledStackItem *> &items);
    void onPageDestroyed(BVControlledStackItem *item);
    void onPageRemoved();
    bool onChildRemoved(const QObject *child);
    void updateVisibility();
    void reportPageCount();

    BVControlledStackWidget *m_stack; // the parent
    QSet<BVControlledStackItem *> m_items;
    QMultiHash<QString, BVControlledStackItem *> m_layoutItems; // by their keys as text
    const QObject *m_dyingPage = nullptr;                       // only to be compared
    bool m_isPageCountDue = false;
};
