// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "itemviews/DragDropInfo.h"

#include <QFrame>
#include <QList>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QVariant>

class BVDragAndDropManager;
class BVDragTreeWidget;
class BVListToolBar;
class QMimeData;
class QTimer;
class QTreeWidgetItem;

/// A tree of items with what a user needs to arrange them: renaming, moving rows by mouse, keyboard
/// or tool bar, also to other controls, and removing them.
///
/// **Tool bar.** A strip of buttons below the tree: Move Up, Move Down, Rename, Remove, and then
/// one for each action that is added to the control with addAction(). They are enabled while they
/// can do something to the selected rows.
///
/// **Dragging.** With drag and drop enabled, selected rows that may be dragged can be dropped
/// before, behind and on the rows of this control, in this or another one in the same process,
/// wherever the row that is to become their parent takes drops and sigItemDragEnter() does not
/// refuse it. They are moved, whatever action the user's keys propose: with their branches, data
/// and check states, never below themselves. Alt with the arrow keys moves them the same way. In a
/// sorted tree the sorting keeps rows of one parent in order; they cannot be moved among
/// themselves.
///
/// The drag carries "application/bvplannel" data: in a stream of version Qt_5_15 the number of rows
/// (int) and then, in the order in which they are shown, the value of role Qt::UserRole of each
/// row's first column (QVariant). Values travel that are a bool, an int, a uint, a qlonglong, a
/// qulonglong, a float, a double, a QChar, a QString, a QStringList, a QByteArray, a QUuid, a
/// QDate, a QTime, a QDateTime (of a time zone: as the offset from UTC), a QSize, a QPoint, a QRect
/// or a QColor (as RGB); others arrive as invalid ones.
///
/// Such data from elsewhere is not turned into rows; sigValuesDropped() hands over what it says, if
/// anything is connected to it. It is a copy: rows that another process would have to move away are
/// not taken. Data that is not sound is refused.
class BVWIDGETS_EXPORT BVContainerListControl : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(bool autoResize READ isAutoResize WRITE setAutoResize)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable)
    Q_PROPERTY(bool toolBarEnabled READ isToolBarEnabled WRITE setToolBarEnabled)
    Q_PROPERTY(bool dragAndDropEnabled READ isDragAndDropEnabled WRITE setDragAndDropEnabled)
    Q_PROPERTY(bool treeEditTriggersEnabled READ isTreeEditTriggersEnabled WRITE
                   setTreeEditTriggersEnabled)
    Q_PROPERTY(bool multiSelectionEnabled READ isMultiSelectionEnabled WRITE enableMultiSelection)

public:
    explicit BVContainerListControl(QWidget *parent = nullptr);
    /// Takes the tree over; null makes one.
    BVContainerListControl(QWidget *parent, BVDragTreeWidget *tree, bool showToolBar);
    ~BVContainerListControl() override;

    /// Null only once the tree has been deleted.
    BVDragTreeWidget *tree() const;
    /// The control that holds the tree, or null.
    static BVContainerListControl *controlOf(const QTreeView *tree);

    /// Whether the control asks for the height of its rows. Off at first.
    bool isAutoResize() const;
    void setAutoResize(bool on);
    /// Whether rows that are editable can be renamed. On at first.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);
    /// Whether the tree's edit triggers (as set when they are disabled) open the editor; without
    /// them the tool bar still does. On at first.
    bool isTreeEditTriggersEnabled() const { return m_editTriggersEnabled; }
    void setTreeEditTriggersEnabled(bool enable);
    bool isToolBarShown() const { return m_toolBar != nullptr; }
    /// On at first.
    bool isToolBarEnabled() const { return m_toolBarEnabled; }
    void setToolBarEnabled(bool enable);
    /// Whether rows can be dragged and dropped; the tree takes no drops without. Off at first.
    bool isDragAndDropEnabled() const { return m_dragAndDropEnabled; }
    void setDragAndDropEnabled(bool enable);
    /// Whether several rows can be selected. The tree decides at first.
    bool isMultiSelectionEnabled() const;
    void enableMultiSelection(bool enable);
    /// Also of the tree.
    void setMouseTracking(bool enable);

    QTreeWidgetItem *currentItem() const;
    /// Null for none.
    void setCurrentItem(QTreeWidgetItem *item);
    int topLevelItemCount() const;
    QTreeWidgetItem *topLevelItem(int index) const;
    int indexOfTopLevelItem(QTreeWidgetItem *item) const;
    /// A bad index is ignored, and the item stays with its maker.
    void insertTopLevelItem(int index, QTreeWidgetItem *item);
    /// The item belongs to its maker again; null for a bad index.
    QTreeWidgetItem *takeTopLevelItem(int index);
    /// Deletes the item with its branch. A bad index is ignored.
    void removeTopLevelItem(int index);

public Q_SLOTS:
    /// Moves the selected rows, if they have the same parent, over the row before or behind them.
    void moveUp();
    void moveDown();
    /// Opens the editor of the current item.
    void rename();
    /// Deletes the selected rows, unless a slot of sigItemsAboutToBeRemoved() objects.
    void removeSelected();

Q_SIGNALS:
    /// Rows are about to become children of @p target; null stands for the top level. A slot that
    /// sets @p mayDrop to false refuses it.
    void sigItemDragEnter(QTreeWidgetItem *target, bool *mayDrop);
    /// Rows of this control or of another one have been moved to become children of @p parent (null
    /// for the top level) here, by a drop, a key or the tool bar. Like sigItemsTakenOver() without
    /// those that other slots have deleted meanwhile.
    void sigItemsDropped(const QList<QTreeWidgetItem *> &items, QTreeWidgetItem *parent);
    /// Rows of this control have been moved to another one.
    void sigItemsTakenOver(const QList<QTreeWidgetItem *> &items, BVContainerListControl *target);
    /// Rows from elsewhere have been dropped, which have these values. They are meant to stand
    /// below @p parent (null for the top level) in @p row (-1 for the end).
    void sigValuesDropped(const QVariantList &values, QTreeWidgetItem *parent, int row);
    /// The user wants these rows to go. A slot that sets @p remove to false keeps them or removes
    /// them itself.
    void sigItemsAboutToBeRemoved(const QList<QTreeWidgetItem *> &items, bool *remove);
    void sigItemsRemoved();

protected:
    void actionEvent(QActionEvent *event) override;

private:
    using Rows = QList<QPersistentModelIndex>;

    void makeToolBar();
    void watchRows();
    void updateActions();
    void updateEditTriggers();
    QList<QTreeWidgetItem *> selectedRows() const;
    int stepTarget(const QList<QTreeWidgetItem *> &rows, bool up) const;
    void step(bool up);
    bool isRenamable(const QTreeWidgetItem *item) const;
    void selectCurrent();
    void watchManager(BVDragAndDropManager *manager);
    bool mayDrop(QTreeWidgetItem *parent);
    bool moveHere(const QList<QTreeWidgetItem *> &items, QTreeWidgetItem *parent, int row);
    void tellOfMove(const Rows &rows, QPointer<BVContainerListControl> source);
    void prepareDrag(const QModelIndexList &rows, QMimeData &mime, QModelIndexList &dragged) const;
    QModelIndex dropParentAt(const QPoint &pos) const;
    bool refuseMove(QDragMoveEvent *event);
    void onDrop(QDropEvent *event);
    bool takeDrop(QDropEvent *event, const DragDropInfo &info);
    bool takeValues(QDropEvent *event, const DragDropInfo &info);
    bool agreeToCopy(QDropEvent *event, const DragDropInfo &info) const;

    QPointer<BVDragTreeWidget> m_tree;
    BVListToolBar *m_toolBar = nullptr;             // child of this; null without a tool bar
    QPointer<BVDragAndDropManager> m_manager;       // the one that is listened to
    QTimer *m_updateTimer;                          // child of this
    QAbstractItemView::EditTriggers m_editTriggers; // while they are disabled
    bool m_areTriggersOff = false;
    bool m_editable = true;
    bool m_editTriggersEnabled = true;
    bool m_toolBarEnabled = true;
    bool m_dragAndDropEnabled = false;
};
