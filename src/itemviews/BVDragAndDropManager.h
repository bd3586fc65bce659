// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "itemviews/DragDropInfo.h"

#include <QMap>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QStringList>
#include <QStyleOptionViewItem>

#include <functional>
#include <memory>
#include <vector>

class BVDragHint;
class BVDropPainter;
class BVRegisteredDropWidgets;
class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;
class QKeyEvent;
class QMimeData;
class QMouseEvent;
class QPainter;

/// Row dragging for a tree view: ...
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
    void setSecondTreeView(QTreeView *view);
    QTreeView *getSecondTreeView() const;

    QModelIndex getDropIndex() const;
    DropIndicatorPosition getDropIndicatorPosition() const;
    QModelIndexList getDraggedIndexes() const;
    DragDropInfo getDragAndDropInfo() const;

    QString getDragAndDropInfoText() const;
    void setDragAndDropInfoText(const QString &text);
    QStringList getAcceptedFormats() const;
    void addAcceptedFormat(const QString &format);
    void removeAcceptedFormat(const QString &format);
    int getDragVisualizationColumn() const;
    void setDragVisualizationColumn(int column);
    bool isDragWholeRow() const;
    void setDragWholeRow(bool whole);
    bool isRenderAllColumns() const;
    void setRenderAllColumns(bool all);
    bool getUsePreview() const;
    void setUsePreview(bool use);
    bool getUseMoveVisualizationLine() const;
    void setUseMoveVisualizationLine(bool use);

    using DropListener = std::function<void(const DragDropInfo &info)>;
    /// Called after every drop on the view, in the order of registration. Gives an id, never 0.
    int addDropListener(const DropListener &listener);
    void removeDropListener(int id);

    void setMousePressedCallback(const std::function<bool(QMouseEvent *)> &callback);
    void setMouseMoveCallback(const std::function<bool(QMouseEvent *)> &callback);
    void setDragEnterCallback(const std::function<bool(QDragEnterEvent *)> &callback);
    void setDragMoveCallback(const std::function<bool(QDragMoveEvent *)> &callback);
    void setDragLeaveCallback(const std::function<bool(QDragLeaveEvent *)> &callback);
    void setDropCallback(const std::function<bool(QDropEvent *)> &callback);
    void setStateCallback(const std::function<void(DragState)> &callback);
    void setAutoScrollCallback(const std::function<void(bool)> &callback);
    void setGetViewOptionsCallback(const std::function<QStyleOptionViewItem()> &callback);

    /// What the view's paintEvent() calls after the tree has been painted.
    void paintDropTargetItemPreview(QPainter *painter);
    void paintDropTargetWidgetVisualization(QPainter *painter);
    void paintDragAndDropInfoText(QPainter *painter);

    /// The pure rule of where a drop goes.
    static DropIndicatorPosition dropIndicatorPosition(const QPoint &pos, const QRect &rect,
                                                       const QModelIndex &index);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// A drag of these rows begins. The slot fills the mime data, may change the pixmap, and notes
    /// the dragged indexes. ...
    void sigPrepareDrag(const QList<QModelIndex> &indexes, QMimeData &mime, QPixmap &pixmap,
                        QList<QModelIndex> &draggedIndexes);
    void sigDropEvent(QDropEvent *event);
    void sigDropTargetChanged(const QModelIndex &target, const QModelIndex &previous);
    void sigDropTargetColumnChanged(const QModelIndex &target, int column, int previousColumn,
                                    QDragMoveEvent *event);
};
