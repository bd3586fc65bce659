// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"
#include "layout/BVResizableWidgetHandle.h"
#include "layout/ResizeableWidgetInterface.h"

#include <QPointer>
#include <QVariant>
#include <QWidget>

#include <memory>

class BVPanelDrag;
class BVPanelFloat;
class BVPanelHandles;
class BVPanelRegistration;
class BVPanelScroll;
class MainWidget;

/// A panel in a form that the user can drag larger than the place that its layout gives it.
///
/// When a drag asks for more room than the panel has, the panel leaves its layout, where a place
/// holder keeps its place, and floats over its main window: the nearest QMainWindow around it, or
/// its top-most widget. So a panel in a dialog or in an undocked dock floats in that window; it
/// returns when the dock is docked or undocked. A drag is limited to the window; it never makes the
/// panel smaller than its place, and a panel dragged back to that size returns when the handle is
/// let go. A request that the window has no room for leaves the panel where it is.
///
/// It floats from where its place can be kept: a splitter, a stack, a dock, the toolkit's other
/// layouts or a parent without one; not from a scroll area or the middle of a main window, nor in a
/// window that is itself a splitter.
///
/// While it floats it is visible and enabled as its place is, has the font and palette that its
/// form gives it, but not what a style sheet set on the form itself says, and it belongs to
/// whatever owns that place: when the form is deleted, the panel is too. When the program gives it
/// another parent, it stays there and floats no longer. When the place moves or changes its size,
/// as with the window, each edge of the panel does likewise.
///
/// The main window in the application's property "MainWindow" is told of the panel while it stands
/// in its layout. Each time that it has left the main widget, the main window gets, posted, the
/// registration and behind it a Brimvale::ResizeWidgetCloseEvent with the panel.
class BVWIDGETS_EXPORT BVResizableWidget :
    public QWidget,
    public Brimvale::ResizeableWidgetInterface
{
    Q_OBJECT
    Q_PROPERTY(bool verticalHandle READ hasVerticalHandle WRITE useVerticalHandle)
    Q_PROPERTY(bool horizontalHandle READ hasHorizontalHandle WRITE useHorizontalHandle)
    Q_PROPERTY(bool diagonalHandle READ hasDiagonalHandle WRITE useDiagonalHandle)
    Q_PROPERTY(bool scrollArea READ hasScrollArea WRITE useScrollArea)
    Q_PROPERTY(HorizontalPosition horizontalAnchor READ horizontalAnchorPosition WRITE
                   setHorizontalAnchorPosition)
    Q_PROPERTY(
        VerticalPosition verticalAnchor READ verticalAnchorPosition WRITE setVerticalAnchorPosition)
    Q_PROPERTY(bool floating READ isFloating STORED false)
    Q_PROPERTY(bool enlarged READ isEnlarged STORED false)

public:
    /// The side that stays where it is; the handles stand at the other one. Left and right change
    /// sides in a right-to-left layout.
    enum HorizontalPosition { AnchorLeft = 0, AnchorRight = 1 };
    Q_ENUM(HorizontalPosition)
    enum VerticalPosition { AnchorTop = 0, AnchorBottom = 1 };
    Q_ENUM(VerticalPosition)

    explicit BVResizableWidget(QWidget *parent = nullptr);
    ~BVResizableWidget() override;

    /// Puts @p container into the panel, which takes it over and deletes its former one unless that
    /// has left the panel; null leaves the panel empty. With @p registerPanel the main window is
    /// told of the panel.
    void setContainerWidget(QWidget *container, bool registerPanel = true);
    /// Null when there is none, or when it is gone.
    QWidget *containerWidget() const { return m_container; }

    /// The handle that drags the height.
    void useVerticalHandle(bool on);
    bool hasVerticalHandle() const { return verticalHandle(); }
    /// The handle that drags the width.
    void useHorizontalHandle(bool on);
    bool hasHorizontalHandle() const { return horizontalHandle(); }
    /// The handle that drags both.
    void useDiagonalHandle(bool on);
    bool hasDiagonalHandle() const { return diagonalHandle(); }
    /// Null for a handle that is not used.
    BVResizableWidgetHandle *verticalHandle() const;
    BVResizableWidgetHandle *horizontalHandle() const;
    BVResizableWidgetHandle *diagonalHandle() const;

    /// Lets the container scroll when the panel is smaller than it. One that has left the panel is
    /// let go.
    void useScrollArea(bool on);
    bool hasScrollArea() const;

    /// Values out of range are ignored.
    void setHorizontalAnchorPosition(HorizontalPosition position);
    HorizontalPosition horizontalAnchorPosition() const;
    void setVerticalAnchorPosition(VerticalPosition position);
    VerticalPosition verticalAnchorPosition() const;

    /// Tells the main window of the panel: false posts it an event with the flag true, true sends
    /// one with the flag false at once and takes back what is posted. Nothing without a main
    /// window.
    void registerResizeableWidgetToMainWindow(bool deregister);
    /// The widget in the application's property "MainWindow"; null when it holds none.
    static QWidget *getMainWindow();

    QWidget *getResizableWidget() override { return this; }
    /// Whether a drag of one of the handles by @p delta pixels needs more room than the panel has:
    /// more width for the horizontal handle, more height for the vertical one, either for the
    /// diagonal one. Never for another object, and never while resizing is disabled.
    bool checkResizingPossible(QObject *handle, const QSize &delta) override;
    /// Whether @p rect lies in the room that the main window has for panels, in the window's
    /// coordinates: inside its contents margins and 32 pixels above their bottom.
    bool fitToMainWindow(const QRect &rect) const;

    /// Sets a property of the widget that the panel floats in, now and each time that it floats.
    void setPropertyOfMainWidget(const QString &name, const QVariant &value);
    /// The widget that the panel floats in; null while it does not.
    MainWidget *mainWidget() const;
    bool isFloating() const;

    bool isEnlarged() const { return m_enlarged; }
    /// Returns to the place in the layout at once. Nothing while the panel does not float.
    void closeEnlarged() override;

    /// Whether the panel floats, where and how large, for restoreState(). One that is on its way
    /// back does not.
    QByteArray saveState() const;
    /// Takes over what saveState() has told, as far as the window has room for it, not smaller than
    /// the place and the minimum size and not larger than the maximum one. A panel that is
    /// not visible does so when it is shown. False, with nothing changed, for other data.
    bool restoreState(const QByteArray &state);

    QSize sizeHint() const override { return QWidget::sizeHint(); }
    QSize minimumSizeHint() const override { return QWidget::minimumSizeHint(); }

Q_SIGNALS:
    /// The panel begins to change its size.
    void sigResizedAbout(QSize oldSize, QSize newSize);
    /// The panel has reached its new size, or its place.
    void sigResiged();
    /// The panel has left its place, or returned to it.
    void sigFloatingChanged(bool floating);
    void sigEnlargedChanged(bool enlarged);

public Q_SLOTS:
    /// Asks for @p size at @p relativePosition in the coordinates of the main window. Only what
    /// does not fit in the container makes the panel float and grow, and only inside the window.
    void onResize(QSize size, QPoint relativePosition) override;
    /// Grows by @p delta pixels, less where it is negative, away from the anchors. With @p initial
    /// a new drag begins.
    void onResizeAbout(QSize delta, bool initial);
    /// Switches between the last size and the largest that the handles and the window allow.
    void onToggleEnlarge();
    /// Goes back from the enlarged size to the last one; nothing while it is not enlarged.
    void onRestoreEnlarge();

protected:
    /// Makes one of the handles, a child of the panel; null for none. A text handle follows the
    /// enlarged state.
    virtual BVResizableWidgetHandle *createHandle(BVResizableWidgetHandle::Position position);
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void useHandle(int kind, bool on);
    void connectHandle(BVResizableWidgetHandle *handle);

    void onMoveStarted();
    void onMoveAbout(BVResizableWidgetHandle *handle, const QSize &delta);
    void onMoved();
    void onMoveCanceled();

    QSize containerSize() const;
    QRect currentRect() const;
    void growTo(const QSize &wanted);
    QRect grown(const QSize &wanted) const;
    QRect restored(const QRect &rect) const;
    QRect availableArea() const;
    void moveTo(const QRect &target);
    bool makeFreeFloating();
    void onFloatEnded();
    void setEnlarged(bool enlarged);
    void applyState();

    QPointer<QWidget> m_container;
    std::unique_ptr<BVPanelHandles> m_handles; // never null
    std::unique_ptr<BVPanelFloat> m_float;     // the place and the main widget while floating
    std::unique_ptr<BVPanelScroll> m_scroll;   // never null
    std::unique_ptr<BVPanelRegistration> m_registration; // never null
    std::unique_ptr<BVPanelDrag> m_drag;                 // never null
    QVariantMap m_mainWidgetProperties;
    QByteArray m_pendingState; // applied when the panel is shown
    QRect m_lastRect;          // what the enlarged size goes back to, in the window's coordinates
    bool m_enlargedAtPress = false;
    bool m_enlarged = false;
    bool m_lastWasEmbedded = false; // the last size is that of the place
};
