// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/BVControlledStackItem.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPointer>

class BVDragTreeWidget;
class BVStackContextHandler;
class BVStackControllerWidget;
class QAction;
class QPoint;
class QTreeWidgetItem;
class TreeViewContextMenu;

/// The context menu of a stack's navigation: its actions, when they are enabled and what they do.
class BVStackContextMenu : public QObject
{
    Q_OBJECT

public:
    explicit BVStackContextMenu(BVStackControllerWidget *controller);
    ~BVStackContextMenu() override;

    /// Makes the actions anew.
    void create(int options);
    QList<QAction *> actions() const { return m_actions; }
    /// Null if there is none.
    QAction *action(int option) const;
    void enable(int option, bool enable);
    /// Gives the actions their texts anew, but for those that the application has given.
    void retranslate();
    /// Opens the menu for a row of the tree, or null, at a point of the viewport. Slots may delete
    /// everything meanwhile.
    void show(BVDragTreeWidget *tree, QTreeWidgetItem *row, const QPoint &position,
              BVStackContextHandler *handler);

Q_SIGNALS:
    /// The action has been chosen and has done its work; the entry may be null.
    void sigTriggered(BVControlledStackItem *item, QAction *action);

private:
    struct Option;
    static const Option s_options[];

    /// A menu that is open.
    struct Opened
    {
        QPointer<BVDragTreeWidget> m_tree;
        QPersistentModelIndex m_row;
        BVControlledStackItem *m_item = nullptr; // perhaps no more there
    };

    static const Option *optionOf(const QAction *action);
    static Opened placeOf(BVDragTreeWidget *tree, QTreeWidgetItem *row);
    /// What the application has made of an action that is in the open menu.
    struct State
    {
        bool m_wasEnabled;
        bool m_isEnabled; // as it was shown
    };

    void fill(TreeViewContextMenu *menu);
    void prepare(QAction *action);
    bool hasOwnText(const QAction *action) const;
    void setOwnText(QAction *action, const QString &text);
    void forget(QAction *action);
    void reset();
    void onTriggered(QAction *action);
    void report(const Opened &place, QAction *action);

    BVStackControllerWidget *m_controller;      // parent of this
    QList<QAction *> m_actions;                 // children of this
    QHash<const QAction *, QString> m_ownTexts; // the last ones that were not the application's
    QHash<QAction *, State> m_shown;            // those in the open menu
    Opened m_opened;
    bool m_isOpen = false;
};
