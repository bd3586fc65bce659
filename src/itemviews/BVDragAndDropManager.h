// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "itemviews/DragDropInfo.h"

#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QStringList>
#include <QStyleOptionViewItem>

#include <functional>
#include <memory>

class BVDragHint;
class BVDragKeys;
class BVDragMoves;
class BVDragPress;
class BVDragSource;
class BVDropListeners;
class BVDropTarget;
class BVRegisteredDropWidgets;
class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;
class QKeyEvent;
class QMimeData;
class QMouseEvent;
class QPainter;

/// Row dragging for a tree view: rows are dragged with their picture under the pointer, the view
/// shows where they would go, a hint at its bottom tells what can be done, and the owner decides
/// what a drag carries and what a drop does.
///
/// The manager is an event filter on the view and its viewport and works only while dragging is
/// enabled on the view (setDragEnabled()); the view has to accept drops. That of a BVTreeView works
/// only while the view has it (setDragAndDropManager()), so that there is one at most.
///
/// **Dragging.** Rows that are selected and whose flags hold Qt::ItemIsDragEnabled are dragged, if
/// the left button has been pressed on any row, but not on the branches in front of it. A press
/// gets one chance: once it has come to nothing, as no such row was selected or a callback has
/// consumed it, no later move drags. The release that follows a drag is no click.
///
/// sigPrepareDrag lets the owner fill the mime data. Rows are sorted from top to bottom, one index
/// each. Where the owner notes no dragged indexes, these rows are the dragged indexes. The view is
/// also the source that the toolkit tells of; if it dies, the drag is cancelled.
///
/// **Acceptance.** A view takes drags that carry one of its accepted formats, wherever they come
/// from. Without accepted formats it takes those that come from itself or the second tree view and
/// carry anything at all.
///
/// **Dropping.** The manager moves no rows: sigDropEvent (or the drop callback instead of it) does,
/// with what getDragAndDropInfo() tells. The target is on a cell, above or below it, or, on no
/// cell, behind everything; DragDropInfo::dropParent() and dropRow() put that into a model's words.
/// It goes with the rows: when others come under a pointer at rest, the last move is repeated. At a
/// place that the move callback refuses nothing is shown, and a drop there is a leave. The drop
/// listeners follow a drop, first the functions, then the filters of registered widgets. All may
/// delete view and manager.
///
/// \code
/// auto *manager = view->initDragAndDropManager();
/// view->setDragEnabled(true);
/// manager->addAcceptedFormat("application/x-steps");
/// connect(manager, &BVDragAndDropManager::sigPrepareDrag, this,
///         [this](const QList<QModelIndex> &rows, QMimeData &mime, QPixmap &, QList<QModelIndex> &)
///         {
///             mime.setData("application/x-steps", idsOf(rows));
///         });
/// connect(manager, &BVDragAndDropManager::sigDropEvent, this, [this, manager](QDropEvent *event) {
///     const DragDropInfo info = manager->getDragAndDropInfo();
///     moveSteps(event->mimeData()->data("application/x-steps"), info.dropParent(),
///     info.dropRow());
/// });
/// \endcode
///
/// **Keyboard.** Alt with an arrow key moves the selected rows in the same way, so that the owner
/// has nothing more to do: up, down, behind their parent (left), or below the row above them as its
/// children (right) if that takes drops. Where there is no such place, or it is refused, left and
/// right move them into a second tree view that stands there, behind its current row. The drag
/// carries the same data, passes the same callbacks with a Qt::MoveAction, and ends in the same
/// drop. The selection afterwards is the owner's business.
///
/// **Other widgets** take rows from the view when they are registered with a
/// Brimvale::RegisterDragAndDropWidgetEvent, sent to the view or, for all views, to the main
/// window; see Brimvale::DragAndDropBaseFilter.
class BVWIDGETS_EXPORT BVDragAndDropManager : public QObject
{
    Q_OBJECT

public:
    enum DragState {
        NoDrag,
        Dragging, // something that the view may take is over it
    };
    Q_ENUM(DragState)

    using DropIndicatorPosition = ::DropIndicatorPosition;

    /// A child of the view, whose events it handles.
    explicit BVDragAndDropManager(QTreeView *view);
    ~BVDragAndDropManager() override;

    /// The manager of a view, or null.
    static BVDragAndDropManager *managerOf(const QTreeView *view);

    QTreeView *getTreeView() const;
    /// A view with which rows are exchanged; null for none. It needs a manager of its own.
    void setSecondTreeView(QTreeView *view) { m_secondTreeView = view; }
    QTreeView *getSecondTreeView() const;

    /// The cell under the pointer of a drag; invalid if there is none.
    QModelIndex getDropIndex() const;
    DropIndicatorPosition getDropIndicatorPosition() const;
    /// What is being dragged out of this view, as far as it still exists.
    QModelIndexList getDraggedIndexes() const;
    /// All of the drag over this view that a slot or callback may want to know.
    DragDropInfo getDragAndDropInfo() const;

    /// The hint, shown during a drag and with tool tips. None at first.
    QString getDragAndDropInfoText() const;
    void setDragAndDropInfoText(const QString &text);
    QStringList getAcceptedFormats() const { return m_acceptedFormats; }
    /// Empty and known formats are ignored.
    void addAcceptedFormat(const QString &format);
    void removeAcceptedFormat(const QString &format);
    /// The column whose cells make the picture; the first one that is shown for -1 or a hidden one.
    int getDragVisualizationColumn() const { return m_dragVisualizationColumn; }
    void setDragVisualizationColumn(int column) { m_dragVisualizationColumn = qMax(column, -1); }
    /// Whether rows are taken as a whole: one selected cell is enough to drag its row, and the row
    /// is the target of a drop rather than one of its cells.
    bool isDragWholeRow() const { return m_dragWholeRow; }
    void setDragWholeRow(bool whole) { m_dragWholeRow = whole; }
    /// Whether the picture shows all columns.
    bool isRenderAllColumns() const { return m_renderAllColumns; }
    void setRenderAllColumns(bool all) { m_renderAllColumns = all; }
    /// Whether the rows are also shown where they would go.
    bool getUsePreview() const { return m_usePreview; }
    void setUsePreview(bool use) { m_usePreview = use; }
    /// Whether an arrow leads from the rows to their target, with the target chosen in wide bands
    /// (advancedDropIndicatorPosition()).
    bool getUseMoveVisualizationLine() const { return m_useMoveVisualizationLine; }
    void setUseMoveVisualizationLine(bool use) { m_useMoveVisualizationLine = use; }

    using DropListener = std::function<void(const DragDropInfo &info)>;
    /// Called after every drop on the view that no callback has consumed, in the order of
    /// registration. Gives an id, never 0.
    int addDropListener(const DropListener &listener);
    void removeDropListener(int id);

    /// The callbacks are asked before the manager does its own work; true consumes the event. Those
    /// for drags then decide themselves whether it is accepted.
    void setMousePressedCallback(const std::function<bool(QMouseEvent *)> &callback)
    {
        m_mousePressedCallback = callback;
    }
    void setMouseMoveCallback(const std::function<bool(QMouseEvent *)> &callback)
    {
        m_mouseMoveCallback = callback;
    }
    void setDragEnterCallback(const std::function<bool(QDragEnterEvent *)> &callback)
    {
        m_dragEnterCallback = callback;
    }
    void setDragMoveCallback(const std::function<bool(QDragMoveEvent *)> &callback)
    {
        m_dragMoveCallback = callback;
    }
    /// The view is tidied up in any case.
    void setDragLeaveCallback(const std::function<bool(QDragLeaveEvent *)> &callback)
    {
        m_dragLeaveCallback = callback;
    }
    void setDropCallback(const std::function<bool(QDropEvent *)> &callback)
    {
        m_dropCallback = callback;
    }
    /// Told when a drag comes over the view and when it ends there. A BVTreeView knows without.
    void setStateCallback(const std::function<void(DragState)> &callback)
    {
        m_stateCallback = callback;
    }
    /// Told with each move of a drag whether the view is to scroll, and at its end.
    void setAutoScrollCallback(const std::function<void(bool)> &callback)
    {
        m_autoScrollCallback = callback;
    }
    /// Gives the options with which rows are painted.
    void setGetViewOptionsCallback(const std::function<QStyleOptionViewItem()> &callback)
    {
        m_getViewOptionsCallback = callback;
    }

    /// What the view's paintEvent() calls after the tree has been painted: the first two while
    /// something is dragged over the view, the last always.
    void paintDropTargetItemPreview(QPainter *painter);
    void paintDropTargetWidgetVisualization(QPainter *painter);
    void paintDragAndDropInfoText(QPainter *painter);

    /// Where a drop at @p pos goes relative to a cell in @p rect.
    static DropIndicatorPosition dropIndicatorPosition(const QPoint &pos, const QRect &rect,
                                                       const QModelIndex &index);
    /// The same with wide bands over the whole row.
    DropIndicatorPosition advancedDropIndicatorPosition(const QPoint &pos,
                                                        const QModelIndex &index) const;

    /// Ends what it shows and does for a drag over the view, which gets another manager.
    void retire();

    /// The picture of rows that are dragged.
    QPixmap renderToPixmap(const QModelIndexList &rows) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// A drag of these rows begins. The slot fills the mime data, may change the pixmap, and notes
    /// the dragged indexes. Only direct connections work.
    void sigPrepareDrag(const QList<QModelIndex> &indexes, QMimeData &mime, QPixmap &pixmap,
                        QList<QModelIndex> &draggedIndexes);
    /// Something has been dropped on the view. It counts as accepted.
    void sigDropEvent(QDropEvent *event);
    /// The cell under the pointer of a drag, or what would be done there, changes. Getters still
    /// tell of the previous one.
    void sigDropTargetChanged(const QModelIndex &target, const QModelIndex &previous);
    /// The same for the column. @p previousColumn is -1 if there was no target.
    void sigDropTargetColumnChanged(const QModelIndex &target, int column, int previousColumn,
                                    QDragMoveEvent *event);

private:
    friend class BVDragKeys;
    friend class BVDragSource;
    friend class BVDropRun;

    bool handleViewEvent(QEvent *event);
    bool handleViewportEvent(QEvent *event);
    bool processMousePressEvent(QMouseEvent *event);
    void processMouseMoveEvent(QMouseEvent *event);
    void processDragEnterEvent(QDragEnterEvent *event);
    void processDragMoveEvent(QDragMoveEvent *event);
    void processDragLeaveEvent(QDragLeaveEvent *event);
    void processDropEvent(QDropEvent *event);

    void startDrag();
    void endDrag();

    void leaveDisabled(const QEvent *event);
    bool isAccepted(const QMimeData *mime) const;
    QModelIndex getDropTarget(const QPoint &pos) const;
    void handleMove(QDragMoveEvent *event);
    void repeatMove(QDragMoveEvent *event);
    void followDrag(QDragMoveEvent *event);
    bool announceTarget(const QModelIndex &target, QDragMoveEvent *event);
    void setDragAndDropTargetInfo(const QModelIndex &target, DropIndicatorPosition position,
                                  Qt::DropAction action);
    void resetTarget();
    bool hasTarget() const;
    void updateAutoScroll(const QPoint &pos);
    void tellAutoScroll(bool on);
    void setDragState(DragState state);
    void tidyUp();

    QPointer<QWidget> m_treeView;
    QPointer<QWidget> m_secondTreeView;
    std::unique_ptr<BVDragSource> m_source;
    std::unique_ptr<BVDropTarget> m_target;
    std::unique_ptr<BVDragHint> m_hint;
    std::unique_ptr<BVDragKeys> m_keys;
    std::unique_ptr<BVDragPress> m_press;
    std::unique_ptr<BVDragMoves> m_moves;
    DragState m_dragState = NoDrag;
    QStringList m_acceptedFormats;
    int m_dragVisualizationColumn = -1;
    bool m_dragWholeRow = false;
    bool m_renderAllColumns = false;
    bool m_usePreview = false;
    bool m_useMoveVisualizationLine = false;

    std::function<bool(QMouseEvent *)> m_mousePressedCallback;
    std::function<bool(QMouseEvent *)> m_mouseMoveCallback;
    std::function<bool(QDragEnterEvent *)> m_dragEnterCallback;
    std::function<bool(QDragMoveEvent *)> m_dragMoveCallback;
    std::function<bool(QDragLeaveEvent *)> m_dragLeaveCallback;
    std::function<bool(QDropEvent *)> m_dropCallback;
    std::function<void(DragState)> m_stateCallback;
    std::function<void(bool)> m_autoScrollCallback;
    std::function<QStyleOptionViewItem()> m_getViewOptionsCallback;

    std::unique_ptr<BVDropListeners> m_dropListeners;
    std::unique_ptr<BVRegisteredDropWidgets> m_registered;
};
