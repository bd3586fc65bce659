// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "itemviews/BVDragAndDropManager.h"

#include <QColor>
#include <QPersistentModelIndex>
#include <QTreeWidget>

#include <memory>

class BVTreeContentHeight;
class BVTreeCopying;
class BVTreeItemMove;
class TreeViewCopyHandler;

/// A tree of items to be navigated, checked, renamed and moved by the user, painted by a
/// BVItemDelegate.
///
/// **Current item.** Once there is one, the user can choose another, but not none, unless
/// deselection is enabled: then a click on the empty space and Control with a click or the space
/// bar on the current item leave no current item, and the focus coming in makes none.
///
/// **Height.** A resizable tree asks for the height of its rows in open branches with header and
/// frame, and of the horizontal scroll bar while there is something to scroll.
///
/// **Dragging.** Rows are dragged and dropped by a drag-and-drop manager, see
/// BVContainerListControl for one that moves them. Without a manager nothing is dragged or dropped;
/// a class that has use for the toolkit's own drops says so in supportedDropActions().
///
/// **Context menu.** Copying, if enabled, the entries of the cell's delegate, and opening and
/// closing branches; with another context menu policy than the default one none of it.
class BVWIDGETS_EXPORT BVDragTreeWidget : public QTreeWidget
{
    Q_OBJECT
    Q_PROPERTY(bool resizable READ isResizable WRITE setResizable)
    Q_PROPERTY(bool deselectionEnabled READ isDeselectionEnabled WRITE enableDeselection)
    Q_PROPERTY(
        bool topLevelSeparatorShown READ isTopLevelSeparatorShown WRITE setShowTopLevelSeparator)

public:
    explicit BVDragTreeWidget(QWidget *parent = nullptr);
    ~BVDragTreeWidget() override;

    using QTreeWidget::indexFromItem;
    using QTreeWidget::itemFromIndex;

    /// The item under the mouse, or the one that has been set; null for none.
    QTreeWidgetItem *getHoverItem() const;
    /// Shows the item as hovered until the mouse finds another one: tinted in the colour, with a
    /// bar of it in front. An invalid colour leaves the looks to the style. Emits what the mouse
    /// would. Items of other trees are ignored; null for none.
    void setHoverItem(QTreeWidgetItem *item, const QColor &color = QColor());

    /// Whether the user may leave no current item. Off at first.
    bool isDeselectionEnabled() const { return m_deselectionEnabled; }
    void enableDeselection(bool enable);
    /// Whether there is a line above each top-level item but the first in sight. Off at first.
    bool isTopLevelSeparatorShown() const { return m_topLevelSeparatorShown; }
    void setShowTopLevelSeparator(bool show);
    /// Whether the size hint's height is that of the content. Off at first.
    bool isResizable() const { return m_resizable; }
    void setResizable(bool resizable);

    /// Moves rows with their branches to become children of @p parent, in front of the child in
    /// @p row; null for the top level, -1 or a row too large for the end. They keep their order,
    /// data, check states and what is open, hidden or spanned; widgets set on cells are lost.
    ///
    /// Rows of this tree also stay selected and current, without a signal. Rows may come from
    /// another tree widget, which tells of its own selection afterwards; the selection here changes
    /// to them. False, and nothing done, if there is nothing to change (as within the children of
    /// one item in a sorted tree) or @p parent is one of them or below one.
    bool moveItems(const QList<QTreeWidgetItem *> &items, QTreeWidgetItem *parent, int row);
    /// Takes an item out of the tree; its maker owns it from then on. Null for one that is not in
    /// the tree.
    QTreeWidgetItem *takeItem(QTreeWidgetItem *item);

    /// The manager of the rows that are dragged out of the tree and over it; null for none.
    BVDragAndDropManager *getDragAndDropManager() const { return m_dragAndDropManager; }
    /// The manager belongs to its maker; the one before is put out of work.
    void setDragAndDropManager(BVDragAndDropManager *manager);
    /// The manager, made and owned by the tree if it has none.
    BVDragAndDropManager *initDragAndDropManager();
    /// Whether the manager works. Off at first.
    void setDragEnabled(bool enable);
    /// Called by the manager while something is dragged over the tree.
    void setDraggingState(BVDragAndDropManager::DragState state);

    /// The handler belongs to the tree. Null until copying is enabled.
    TreeViewCopyHandler *getCopyHandler() const;
    /// Whether all rows, or those selected, can be copied, by the context menu and, those
    /// selected, by the standard keys. Off at first.
    void enableCopyAllAction(bool enable);
    bool isCopyAllActionEnabled() const;
    void enableCopySelectedAction(bool enable);
    bool isCopySelectedActionEnabled() const;

    void setSelectionModel(QItemSelectionModel *selectionModel) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void doItemsLayout() override;

Q_SIGNALS:
    void sigItemHoverEnter(QTreeWidgetItem *item);
    void sigItemHoverLeave(QTreeWidgetItem *item);
    /// The mouse has left the tree.
    void sigLeaveEvent();
    /// Rows are about to go. The current row and the selection are still what they were.
    void sigRowsAboutToBeRemoved();

protected:
    /// Opens the menu for a click at @p position in the viewport, negative for none.
    virtual void showContextMenu(const QPoint &position);

    /// None: the toolkit would make rows of what any other item view lets go.
    Qt::DropActions supportedDropActions() const override;
    /// Does nothing, as there is a manager for it.
    void startDrag(Qt::DropActions supportedActions) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                 const QModelIndex &index) const override;
    void drawBranches(QPainter *painter, const QRect &rect,
                      const QModelIndex &index) const override;
    void paintEvent(QPaintEvent *event) override;
    QItemSelectionModel::SelectionFlags
    selectionCommand(const QModelIndex &index, const QEvent *event = nullptr) const override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
    void updateGeometries() override;

private:
    friend class BVContainerListControl;
    class RowHover;

    int contentHeight() const;
    void onContentChanged();
    void leaveBranches(const QModelIndex &parent, int start, int end);
    QList<QPersistentModelIndex> moveRows(const BVTreeItemMove &move, QTreeWidgetItem *parent,
                                          int row);
    void selectMoved(const QList<QPersistentModelIndex> &rows);
    void clearCurrentByClick(const QMouseEvent *event);
    void paintHoverTint(QPainter *painter, const QRect &row) const;

    std::unique_ptr<RowHover> m_hover;
    std::unique_ptr<BVTreeContentHeight> m_contentHeight;
    std::unique_ptr<BVTreeCopying> m_copying;
    QPointer<BVDragAndDropManager> m_dragAndDropManager;
    QPersistentModelIndex m_tintedRow;
    QColor m_hoverColor; // of it
    QPoint m_pressPosition;
    QPersistentModelIndex m_pressedCurrent; // the row, if it was selected and current
    bool m_deselectionEnabled = false;
    bool m_topLevelSeparatorShown = false;
    bool m_resizable = false;
    bool m_hadHorizontalScrolling = false;
};
