// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QHash>
#include <QIcon>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QPointer>

class BVMenu;
class QAction;
class QMenu;
class QTreeView;

/// The context menu of a tree view, made for one click and deleted after it has been shown.
///
/// The entries added before show() come first. Then follow, behind a separator, those of the
/// delegate of the clicked cell, if it is a BVItemDelegate, and, if any row directly below the
/// view's root has children, those that expand and collapse branches, all of them below that root;
/// "Collapse Other" is disabled where no row was clicked. Showing the menu again adds nothing more.
///
/// An entry with an id carries it in its data, as an int. Adding an action again, or an id that
/// this object has made an entry for, leaves the entry in its place; actions that others have given
/// the same id stay beside it. A disabled menu shows its entries disabled, without a change to
/// them.
///
/// The menu is shown as a child of the view. Slots and filters, also those of the chosen entry, may
/// delete the view, its model or this object while it is open; the menu itself goes a little later.
class BVWIDGETS_EXPORT TreeViewContextMenu : public QObject
{
    Q_OBJECT

public:
    enum ActionId {
        NoAction = -1,
        ExpandAllAction = 97,
        CollapseAllAction = 98,
        CollapseOtherAction = 99,
    };

    /// For a click at @p position in the view's viewport; a negative one hits no row, and the menu
    /// opens in the corner. Without a view nothing is ever shown.
    TreeViewContextMenu(QTreeView *view, const QPoint &position);
    ~TreeViewContextMenu() override;

    /// Shows the menu until it is closed, unless it is empty, and answers with the id of the chosen
    /// entry: -1 for none and for one without an id. The entry itself is put into @p chosen, null
    /// for none.
    int show(QAction **chosen = nullptr);
    /// Null after the view has been deleted.
    QMenu *getMenu() const;
    void setDisabled(bool disabled) { m_disabled = disabled; }
    /// Whether the entries added by show() follow without a separator.
    void setSuppressAdditionalSeparator(bool suppress) { m_suppressAdditionalSeparator = suppress; }

    /// Adds an action that stays with its owner, and enables or disables it. Null is ignored.
    void appendAction(QAction *action, bool enabled);
    /// Adds an entry with an id and answers with it; null without a menu.
    QAction *appendAction(int id, bool enabled);
    void appendSeparator();
    /// Adds a menu to fill, which belongs to this one; null without a menu.
    QMenu *appendSubMenu(const QString &title);
    /// The entry with the id, also in a submenu, first of those made here; null if there is none.
    QAction *actionAt(int id) const;

    /// What the entry with the id shows; "UNKNOWN", and nothing, if there is none. Override these
    /// for ids of your own, or other texts: they are also asked when an entry is made. An empty
    /// text and "UNKNOWN" leave the standard entries theirs.
    virtual QString actionText(int id) const;
    virtual QString actionToolTip(int id) const;
    virtual QIcon actionIcon(int id) const;
    /// Called by show() to add entries, by default none.
    virtual void adjustMenu();

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// Makes an entry, which does what its id says if it is one of those here.
    QAction *createAction(int id, QObject *parent);
    /// Adds what the cell's delegate and this class have to add.
    void appendAdditionalActions();

protected Q_SLOTS:
    void onExpandAll();
    void onCollapseAll();
    /// Collapses all branches but the clicked row's, as it was or else open, and those around it.
    void onCollapseOther();

private:
    struct StandardAction;
    static const StandardAction s_standardActions[];

    static const StandardAction *standardAction(int id);
    const QAction *describedAction(int id) const;
    void releaseMenu();
    void complete();
    QAction *run();
    bool hasBranches() const;

    QPointer<QTreeView> m_view;
    QPointer<BVMenu> m_menu; // child of the view, deleted by this
    QHash<int, QPointer<QAction>> m_ownActions;
    QPoint m_position; // in the viewport
    QPersistentModelIndex m_index;
    bool m_disabled = false;
    bool m_suppressAdditionalSeparator = false;
    bool m_isComplete = false;
};
