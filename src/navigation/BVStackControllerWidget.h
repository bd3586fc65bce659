// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "navigation/BVControlledStackItem.h"

#include <QFrame>
#include <QList>
#include <QPointer>

class BVContainerListControl;
class BVControlledStackWidget;
class BVDragTreeWidget;
class BVStackContextHandler;
class BVStackContextMenu;
class BVStackFilterLine;
class QAction;
class QBoxLayout;
class QSpacerItem;
class QTreeWidgetItem;
class QVBoxLayout;

/// The navigation of a controlled stack: a tree of its entries, to stand beside or above the pages.
///
/// At first it stands beside them (the dynamic property "leftRight", for the style sheet, is true),
/// 130 pixels wide, and the tree is as high as its rows. Once the width has been set free, the
/// controller is never narrower than its tree, and 15 pixels wider while the tree has a vertical
/// scroll bar.
///
/// **Context menu.** createCustomContextMenu() says what is in it. The menu key opens it for the
/// current entry, or for none, at what can be seen of its row, or else of one above. While it is
/// open, "Show" and "Don't Show" bear the name of the entry they are for: the entry itself, or the
/// next checkable one above one that is not checkable; "Show Current" bears that of the current
/// entry. An action that would change nothing is disabled. The actions also work while the menu is
/// closed: on the current entry. What the user checks this way is reported like a click.
class BVWIDGETS_EXPORT BVStackControllerWidget : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly)
    Q_PROPERTY(bool filterLineShown READ isFilterLineShown WRITE setFilterLineShown)

public:
    /// What can be in the context menu, as bits of one number, in the order of the menu. The data
    /// of each action is its option.
    enum MenuOptions {
        Rename = 16,
        ShowCurrent = 2048, ///< unchecks all but the current entry, which is checked
        Show = 32,
        DontShow = 64,
        ShowAllNeighbors = 128,    ///< checks the parent, if it is checkable
        DontShowAnyNeighbor = 256, ///< unchecks it
        ShowAll = 512,
        HideAll = 1024,
        /// Does nothing by itself and has no text. The application gives it text and icon (see
        /// menuAction()) and acts on onCustomActionTriggeredOnTree(); it is in the menu while it
        /// has a text.
        CustomOption = 4096,
    };
    Q_ENUM(MenuOptions)

    /// Takes the tree over; null makes one. The bool says whether there is a tool bar below it.
    explicit BVStackControllerWidget(QWidget *parent = nullptr, BVDragTreeWidget *tree = nullptr,
                                     bool showToolBar = false);
    ~BVStackControllerWidget() override;

    /// These are null only once someone else has deleted them.
    BVDragTreeWidget *tree() const;
    BVContainerListControl *listControl() const;
    /// The stack that is served, or null.
    BVControlledStackWidget *getControlledStack() const;
    /// Called by the stack itself. The one before loses its entries and this controller. Ignored
    /// for a stack of another controller and for one that was let go.
    void setControlledStack(BVControlledStackWidget *stack);

    // Place

    bool isControllerOnTop() const { return m_isOnTop; }
    /// Lays the navigation out to stand above the pages (@p onTop) or elsewhere without a fixed
    /// width; the stack's margins follow. A @p height in pixels is that of the tree, -1 keeps the
    /// heights; others are ignored.
    void setControllerOnTop(bool onTop, int height = -1);
    /// Takes the margins away.
    void setListOnTop();
    /// Lets the tree take all the height there is.
    void stretchVertical();
    /// The space below the tree: @p height in pixels, or what is left for -1. Less is ignored.
    void setBottomSpacer(int height);
    /// In pixels. -1 keeps a margin, as does any other negative number.
    void setMainLayoutMargins(int left, int top, int right, int bottom);
    /// Puts a widget, which is taken over, below what is there and above the bottom spacer. Null is
    /// ignored.
    void addAdditional(QWidget *widget, int horizontalMargin, int verticalMargin);
    void addAdditionalCentered(QWidget *widget);

    // Header: the tree's, hidden while its text is empty

    QWidget *headerWidget() const;
    QString getHeaderLabel() const;
    /// Sets the text. With @p alignRight it always stands at the right, else only above check
    /// boxes.
    void setHeaderLabel(const QString &text, bool alignRight = false);
    /// Whether the header stays where it is when entries get check boxes.
    bool isHeaderAlignmentFixed() const { return m_isHeaderRight; }

    // Behaviour

    bool isReadOnly() const { return m_readOnly; }
    /// Whether the user can rename, move and remove entries. Writable at first; drag and drop is
    /// enabled when that is set.
    void setReadOnly(bool readOnly);
    void setMouseTracking(bool enable);
    void enableMultiSelection(bool enable);
    bool isFilterLineShown() const { return m_filterLine != nullptr; }
    /// Whether there is a line above the tree that keeps entries with a text, or those that need
    /// input, and the entries above them in sight. Off at first.
    void setFilterLineShown(bool show);

    // Context menu

    /// Makes the actions of the menu anew, those whose option is a bit of @p options. With
    /// @p customPolicy the tree opens it, else the tree's own menu opens there. The number
    /// @p argument is for the application.
    void createCustomContextMenu(int options, bool customPolicy, int argument = -1);
    int menuArgument() const { return m_menuArgument; }
    QList<QAction *> menuActions() const;
    /// Null if the option is not in the menu. A text that the application sets stays as it is; one
    /// that it disables stays disabled.
    QAction *menuAction(MenuOptions option) const;
    /// Enables or disables the actions with that option.
    void enableMenuOption(MenuOptions option, bool enable);
    /// Opens the menu for a row of the tree, or none (null), at a point of its viewport, until it
    /// is closed. Rows of other trees are ignored.
    void showCustomContextMenu(BVDragTreeWidget *tree, QTreeWidgetItem *item,
                               const QPoint &position);
    /// The handler is not owned; null for none.
    void setCustomContextMenuHandler(BVStackContextHandler *handler);
    BVStackContextHandler *customContextMenuHandler() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// The mouse has left: no entry is shown as hovered.
    void onLeave();

Q_SIGNALS:
    /// An action of the context menu has been chosen and has done its work. The entry that the menu
    /// was opened on is null if there was none or it has been removed by that.
    void onCustomActionTriggeredOnTree(BVControlledStackItem *item, QAction *action);

protected:
    void changeEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void initTree();
    void initLayout();
    void insertAboveSpacer(QBoxLayout *layout, QWidget *widget);
    void updateMinimumWidth();
    bool openMenuByKey();
    void alignHeader();
    bool focusWithoutCurrent(Qt::FocusReason reason);

    QPointer<BVContainerListControl> m_listControl;   // child of this
    QPointer<BVControlledStackWidget> m_stack;        // not owned
    QPointer<BVStackContextHandler> m_contextHandler; // not owned
    BVStackContextMenu *m_contextMenu;                // child of this
    BVStackFilterLine *m_filterLine = nullptr;        // child of this; null while not shown
    QVBoxLayout *m_mainLayout;
    QSpacerItem *m_bottomSpacer; // the last in the main layout
    int m_menuArgument = -1;
    bool m_isOnTop = false;
    bool m_readOnly = false;
    bool m_isHeaderRight = false;
};
