// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"
#include "layout/BVResizableWidgetHandle.h"

#include <QPointer>
#include <QScrollArea>

/// A scroll area that the user can make larger or smaller, within its form, with a handle at one of
/// its edges or corners.
///
/// A drag gives the area a size of its own in the directions of the handle: never less than its
/// smallest size, never more than its content fills or than it has anyway. In a layout that size is
/// the size hint, and the layout gives it as far as it has room; elsewhere the area takes it on at
/// once, and the edge across from the handle stays where it is. A double click on the handle,
/// Return or Space switches between the size that the content fills and the usual one; Escape gives
/// up a drag.
///
/// Its content fills the viewport. The size policy goes with the handle: Maximum where it drags,
/// Expanding elsewhere.
class BVWIDGETS_EXPORT ResizableScrollArea : public QScrollArea
{
    Q_OBJECT
    Q_PROPERTY(bool resizeHandle READ hasResizeHandle WRITE useResizeHandle)
    Q_PROPERTY(BVResizableWidgetHandle::Position handlePosition READ handlePosition WRITE
                   setHandlePosition)
    Q_PROPERTY(QSize userSize READ userSize WRITE setUserSize RESET unsetUserSize)

public:
    explicit ResizableScrollArea(QWidget *parent = nullptr);
    ~ResizableScrollArea() override;

    /// Takes @p widget over as the content, which scrolls over the surface that the area lies on;
    /// null is ignored.
    void setWidget(QWidget *widget);

    bool hasResizeHandle() const;
    /// Gives the area its handle, as at first, or takes it away.
    void useResizeHandle(bool on);
    /// Null while there is none.
    BVResizableWidgetHandle *resizeHandle() const;

    BVResizableWidgetHandle::Position handlePosition() const { return m_position; }
    /// The bottom edge at first. A position out of range is ignored.
    void setHandlePosition(BVResizableWidgetHandle::Position position);

    /// The size that the user has given the area, in pixels; -1 in a direction where there is none.
    QSize userSize() const { return m_userSize; }
    /// Sets it, between the smallest and the maximum size of the area; -1 takes it back.
    void setUserSize(const QSize &size);
    void unsetUserSize();

    /// The size at which nothing needs to scroll.
    QSize contentSize() const;
    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user or the program has given the area another size.
    void sigUserSizeChanged(const QSize &size);

public Q_SLOTS:
    /// Makes the area larger by @p growth pixels in the directions of the handle, smaller by
    /// negative ones.
    void resizeAbout(const QSize &growth);

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QSize edges() const;
    void onMoveStarted();
    void onMoveAbout(const QSize &growth);
    void onToggleRequested();
    void resizeAlongHandle(const QSize &wanted);
    void takeOn(const QSize &userSize);
    void updatePlace();
    void placeHandle();

    QPointer<BVResizableWidgetHandle> m_handle; // child of this
    QSize m_userSize;                           // px; -1 for none
    QSize m_userSizeAtPress;
    QSize m_wanted; // by the drag, within the limits or not
    BVResizableWidgetHandle::Position m_position = BVResizableWidgetHandle::BottomEdge;
};
