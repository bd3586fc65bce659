// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"
#include "layout/BVResizableWidgetHandle.h"
#include "layout/ResizeableWidgetInterface.h"

#include <QPointer>

#include <memory>

class BVFloatOwner;
class BVPanelDrag;
class BVPanelFloat;
class BVPanelRegistration;
class MainWidget;
class ResizeWidgetPlaceHolder;

/// A handle that lets any widget grow out of its layout over the main window.
///
/// The handle lies over an edge or corner of the widget that it is made in; it brings the widget
/// the service that BVResizableWidget has built in. A drag that asks for more room than the widget
/// has lets it float: over the nearest QMainWindow around it, or over its top-most widget, inside
/// of which it stays, within its maximum size. So a widget in a dialog or in an undocked dock
/// floats in that window; it returns when the dock is docked or undocked. In its layout or splitter
/// stands a ResizeWidgetPlaceHolder. The sides across from the handle stay where they are.
///
/// A drag never makes the floating widget smaller than its place, and at that size the widget
/// returns when the handle is let go; Escape undoes a drag. A double click on the handle, Return or
/// Space lets the widget grow as far as the window has room, or return. So does the place holder.
///
/// The main window in the application's property "MainWindow" is told of the widget while that
/// stands in its layout, and gets a Brimvale::ResizeWidgetCloseEvent with the widget, posted, each
/// time that the place holder has closed. The widget belongs to whatever owns its place; when the
/// program gives it another parent, it stays there and floats no longer. When the last of its
/// handles is deleted, the widget returns first.
///
/// A widget can have several handles, say at an edge and a corner. It floats for all of them at
/// once, and each registers it. A handle that gets another parent lets go of its widget, as if it
/// were deleted, and does nothing from then on.
class BVWIDGETS_EXPORT ResizeableWidgetHandle :
    public BVResizableWidgetHandle,
    public Brimvale::ResizeableWidgetInterface
{
    Q_OBJECT
    Q_PROPERTY(bool floating READ isFloating STORED false)

public:
    /// Makes a handle for @p widget, which owns it; without one it does nothing.
    explicit ResizeableWidgetHandle(QWidget *widget = nullptr,
                                    Position position = BottomRightCorner);
    ~ResizeableWidgetHandle() override;

    /// The widget that the handle serves; the handle itself when there is none.
    QWidget *getResizableWidget() override;
    QWidget *resizedWidget() const override;
    /// Whether a drag of this handle by @p delta pixels needs more room than the widget has, in one
    /// of its directions. Never for another object, and never while resizing is disabled.
    bool checkResizingPossible(QObject *handle, const QSize &delta) override;
    /// Asks for @p size at @p relativePosition in the coordinates of the window. Only what is
    /// larger than the widget makes it float and grow, and only inside the window.
    void onResize(QSize size, QPoint relativePosition) override;
    /// Brings the widget back to its place at once; nothing while it does not float.
    void closeEnlarged() override;

    bool isFloating() const;
    /// The container in which the widget floats; null while it does not.
    MainWidget *mainWidget() const;
    /// What stands in the widget's place; null while it does not float.
    ResizeWidgetPlaceHolder *placeHolder() const;

    void updatePosition() override;

Q_SIGNALS:
    /// The widget has left its place, or returned to it.
    void sigFloatingChanged(bool floating);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    friend class BVFloatOwner;
    void onMoveStarted();
    void onMoveAbout(const QSize &delta);
    void onMoved();
    void onMoveCanceled();
    void onToggleRequested();

    void placeOverWidget();
    QRect currentRect() const;
    QRect grown(const QSize &wanted) const;
    BVPanelFloat *panelFloat() const;
    bool leavePlace();
    void returnToPlace();
    void tellFloating(bool floating);
    void letGoOfWidget();

    QPointer<QWidget> m_widget;
    QPointer<BVFloatOwner> m_owner;                      // null without a widget; child of that
    std::unique_ptr<BVPanelRegistration> m_registration; // never null
    std::unique_ptr<BVPanelDrag> m_drag;                 // never null
    bool m_toldFloating = false;                         // what the program has heard last
};
