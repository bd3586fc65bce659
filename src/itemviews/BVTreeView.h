// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "itemviews/BVDragAndDropManager.h"

#include <QModelIndexList>
#include <QTreeView>
#include <QVector>

#include <memory>

class BVTreeContentHeight;
class BVTreeCopying;
class BVTreeEditController;
class BVTreeGrid;
class BVTreeHeaderChecks;
class BVTreeHover;
class BVTreeModelLink;
class BVTreeViewDataListener;
class BVTreeVisibleRows;
class TreeViewCopyHandler;

/// The tree and table view of the library, over a BVTreeViewModel or any other model.
///
/// **Height.** A resizable view asks for the height of its content: the header, all rows with the
/// branches open, and the horizontal scroll bar while there is something to scroll. The height is
/// kept until rows, columns, fonts or the style change. Hidden rows count nothing. Views that are
/// adjusted on child items count children only while their parents are expanded; those adjusted on
/// top-level items count no children at all.
///
/// **Header check boxes.** A column with a check box in its header shows there what its cells say:
/// checked or unchecked if all that the user can check agree, else partially checked. The box
/// follows the cells within some milliseconds, once for many changes. Checking it checks all of
/// them, at every depth.
///
/// **Editing.** While a row of a selection of several rows is edited, clicks on rows leave the
/// selection as it is, up to the click that closes the editor. In extended selection Control
/// toggles a selected row when the mouse is released, so that the selection can be dragged. A click
/// on a selected cell with a number opens its editor at once unless there are no edit triggers at
/// all; one on a text only if no other row is selected. Going on to the
/// next cell passes over those that are not editable, that a delegate locks, or whose
/// BVTreeViewModel::NonEditableRowRole or that of the first cell of their row is true.
///
/// **Looks.** The grid has a line below each row, and with columns also one behind each column, in
/// the style's grid colour. The header selection tints the column whose header check box has the
/// keyboard.
class BVWIDGETS_EXPORT BVTreeView : public QTreeView
{
    Q_OBJECT
    Q_PROPERTY(bool resizable READ isResizable WRITE setResizable)
    Q_PROPERTY(int spaceToAdd READ getSpaceToAdd WRITE setSpaceToAdd)
    Q_PROPERTY(
        int minimumResizableHeight READ getMinimumResizableHeight WRITE setMinimumResizableHeight)
    Q_PROPERTY(int customFixedHeight READ getCustomFixedHeight WRITE setCustomFixedHeight)
    Q_PROPERTY(bool adjustOnChildItems READ isAdjustableOnChildItems WRITE setAdjustOnChildItems)
    Q_PROPERTY(bool onlyAdjustOnTopLevelItems READ isOnlyAdjustedOnTopLevelItems WRITE
                   setOnlyAdjustOnTopLevelItems)
    Q_PROPERTY(bool showGrid READ isGridShown WRITE setShowGrid)
    Q_PROPERTY(
        bool verticalScrollingOnly READ isVerticalScrollingOnly WRITE setVerticalScrollingOnly)

public:
    explicit BVTreeView(QWidget *parent = nullptr);
    ~BVTreeView() override;

    /// Whether the size hint's height is that of the content. Off at first.
    bool isResizable() const { return m_resizable; }
    void setResizable(bool resizable);
    /// Rows of space (20 pixels each) in the size hint below the content. 0 adds 2 pixels, a
    /// negative number nothing.
    int getSpaceToAdd() const { return m_spaceToAdd; }
    void setSpaceToAdd(int rows);
    /// The least height of the content, in pixels.
    int getMinimumResizableHeight() const { return m_minimumResizableHeight; }
    void setMinimumResizableHeight(int height);
    /// The height to ask for instead of that of the content; negative for none.
    int getCustomFixedHeight() const { return m_customFixedHeight; }
    void setCustomFixedHeight(int height);
    bool isAdjustableOnChildItems() const { return m_adjustOnChildItems; }
    void setAdjustOnChildItems(bool adjust);
    bool isOnlyAdjustedOnTopLevelItems() const { return m_onlyAdjustOnTopLevelItems; }
    void setOnlyAdjustOnTopLevelItems(bool adjust);
    /// The height of the content with header and scroll bar, in pixels, and at least
    /// minimumHeight() and what setMinimumResizableHeight() has set.
    int calculateHeight() const;
    /// The height of all rows below @p parent.
    int calculateRowHeight(const QModelIndex &parent) const;

    bool isGridShown() const { return m_showGrid; }
    bool isColumnGridShown() const { return m_showGrid && m_gridSecondFlag; }
    void setShowGrid(bool show, bool columns = false);
    void setPaintHeaderSelection(bool paint);
    /// Whether scrolling to a cell leaves the columns where they are. Off at first.
    bool isVerticalScrollingOnly() const { return m_verticalScrollingOnly; }
    void setVerticalScrollingOnly(bool only);
    /// Whether a click on the empty space clears an extended selection. On at first.
    void enableDeselection(bool enable);
    /// Starts or stops scrolling towards a pointer near the edge.
    void setAutoscroll(bool on);

    /// The cell under the mouse; setting it emits what the mouse would.
    QModelIndex getHoverItem() const;
    void setHoverItem(const QModelIndex &index);

    /// The manager of the rows that are dragged out of the view and over it; null for none.
    BVDragAndDropManager *getDragAndDropManager() const { return m_dragAndDropManager; }
    /// The manager belongs to its maker; the one before is put out of work.
    void setDragAndDropManager(BVDragAndDropManager *manager);
    /// The manager, made and owned by the view if it has none.
    BVDragAndDropManager *initDragAndDropManager();
    /// Whether the manager works. Off at first.
    void setDragEnabled(bool enable);
    /// Called by the manager while something is dragged over the view.
    void setDraggingState(BVDragAndDropManager::DragState state);
    /// Called by the manager when a press has been a drag, whose release selects nothing.
    void endPress();

    /// The handler belongs to the view. Null until copying is enabled.
    TreeViewCopyHandler *getCopyHandler() const;
    /// Whether all rows, or those selected, can be copied, by the context menu and, those
    /// selected, by the standard keys. Off at first.
    void enableCopyAllAction(bool enable);
    bool isCopyAllActionEnabled() const;
    void enableCopySelectedAction(bool enable);
    bool isCopySelectedActionEnabled() const;

    using QTreeView::edit;
    bool isEditingState() const;
    QStyleOptionViewItem getViewOptions() const { return viewOptions(); }

    /// The position of the row in a depth-first walk over the whole model, or -1.
    int getDFSIndex(const QModelIndex &index) const;
    /// The first cell of the row at that position; invalid if there is none.
    QModelIndex indexFromDFSIndex(int position) const;
    static Qt::CheckState boolToCheckState(bool checked);

    /// Gives the column's header a check box. The first time this makes a BVCustomHeaderView, which
    /// keeps what the header before showed, except that its columns stretch and stay in place.
    /// Without a model only the header is made; a proxy model that cannot tell its columns while it
    /// has no rows is told with the first ones.
    void useCheckStateHeader(int column, Qt::Alignment alignment);
    void setCheckBoxVisible(bool visible, int column);
    /// As a click on the box. False if the column's header has none.
    bool setCheckBoxChecked(bool checked, int column);
    /// Checks or unchecks the cells of the given rows in @p column, at the cost of one repaint. The
    /// rows may also be those of a model behind the view's own.
    void setCheckStateBulk(const QList<QModelIndex> &indexes, int column, bool checked);

    /// Null and registered listeners are ignored.
    void addDataListener(BVTreeViewDataListener *listener);
    void removeDataListener(BVTreeViewDataListener *listener);

    /// Takes the header over and deletes the one before. Null is ignored.
    void setHeader(QHeaderView *header);
    void setModel(QAbstractItemModel *model) override;
    void setSelectionModel(QItemSelectionModel *selectionModel) override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    QRect visualRect(const QModelIndex &index) const override;
    QModelIndex indexAt(const QPoint &point) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void doItemsLayout() override;

public Q_SLOTS:
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;
    /// Lets the header check boxes follow the cells, soon.
    void updateCheckStateHeader();
    /// Makes the cell the current one. Unless it is selected, it, or its row, becomes the
    /// selection.
    void updateIndexSelection(const QModelIndex &index);

Q_SIGNALS:
    /// The user has checked or unchecked all cells of a column by its header.
    void sigCheckStateToggled(bool checked, int column);
    /// An editor has closed; the next one is not open yet.
    void sigEditingFinished();
    void sigItemHoverEnter(const QModelIndex &index, int column);
    void sigItemHoverLeave(const QModelIndex &index, int column);
    /// The mouse has left the viewport.
    void sigLeaveEvent();

protected:
    /// Whether the cell is to be passed over although it is editable: by default, if its delegate
    /// is a BVItemDelegate that says so.
    virtual bool isEditingPrevented(const QModelIndex &index) const;
    /// Opens the menu for a click at @p position in the viewport, negative for none: a
    /// TreeViewContextMenu with what can be copied. Nothing opens if it has no entries.
    virtual void showContextMenu(const QPoint &position);

    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
    void updateGeometries() override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void scrollContentsBy(int dx, int dy) override;
    QStyleOptionViewItem viewOptions() const override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void drawBranches(QPainter *painter, const QRect &rect,
                      const QModelIndex &index) const override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    friend class BVTreeEditController;
    friend class BVTreeGrid;
    friend class BVTreeVisibleRows;

    void connectHeader();
    void headerChanged();
    void onSectionResized(int before, int after);
    void onExpandChanged();
    void onContentChanged();
    void onStructureChanged();
    void updateGeometryIfResizable();

    std::unique_ptr<BVTreeEditController> m_editController;
    std::unique_ptr<BVTreeHover> m_hover;
    std::unique_ptr<BVTreeContentHeight> m_contentHeight;
    std::unique_ptr<BVTreeCopying> m_copying;
    std::unique_ptr<BVTreeHeaderChecks> m_headerChecks;
    std::unique_ptr<BVTreeVisibleRows> m_visibleRows;
    std::unique_ptr<BVTreeModelLink> m_modelLink;
    QPointer<BVDragAndDropManager> m_dragAndDropManager;
    bool m_resizable = false;
    int m_spaceToAdd = 0; // rows
    int m_minimumResizableHeight = 0;
    int m_customFixedHeight = -1;
    bool m_adjustOnChildItems = false;
    bool m_onlyAdjustOnTopLevelItems = false;
    bool m_paintHeaderSelection = false;
    bool m_showGrid = false;
    bool m_gridSecondFlag = false; // lines behind columns
    bool m_verticalScrollingOnly = false;
    bool m_hadHorizontalScrolling = false;
};
