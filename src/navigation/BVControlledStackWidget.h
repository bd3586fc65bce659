// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVStatusProperties.h"
#include "foundation/BVWidgetInterface.h"
#include "foundation/NavigationInterface.h"

#include <QFrame>
#include <QList>
#include <QPointer>
#include <QVariant>

#include <memory>

class BVControlledStackItem;
class BVDragTreeWidget;
class BVStackControllerWidget;
class BVStackEntries;
class BVStackNavigation;
class BVStackOrder;
class BVStackPageSwitch;
class BVStackedWidget;
class QAction;
class QTreeWidgetItem;

/// A stack of pages that are chosen in a navigation tree, which a controller shows elsewhere.
///
/// Each row of the tree is an entry (BVControlledStackItem) with or without a page. Indexes without
/// another description are those of the entries in depth-first order: each entry comes before those
/// below it. Setters ignore an index out of range and entries of other stacks.
///
/// **Current entry.** The page of the current entry is shown; an entry without a page leaves the
/// one before in sight. The signal with entries comes before the one with the index. When a slot
/// makes another entry current, that is reported at once and what was to follow is left out. The
/// first entry does not become current by itself.
///
/// **No current entry.** With deselection enabled, only a current entry lets pages be seen; without
/// one, the start page takes their place, if there is one.
///
/// **Start page.** With a threshold of 0 or more, the start page is in sight instead of the pages
/// as long as there are no more pages than that. Deselection has the last word.
///
/// **Changes inside slots.** Entries can be added, moved and removed, and pages deleted, while a
/// signal is being delivered. What is removed is told of once at most: as the previous entry, which
/// has lost its row and page.
///
/// **Groups.** An entry without a page groups those right below it. Marks are a highlight of
/// entries that the application sets, whatever is current.
///
/// **Controller.** It serves one stack. One that comes into its service takes the place of the one
/// before, which loses its entries and is without a controller from then on: nothing can be added
/// to it.
///
/// **User.** Rows are renamed, checked, dragged and removed in the tree as far as the controller's
/// list control and the entries' flags allow it; a removed row takes its page along. Rows of other
/// trees are not taken, and those of the stack come back from there.
class BVWIDGETS_EXPORT BVControlledStackWidget :
    public QFrame,
    public NavigationInterface,
    public BVWidgetInterface
{
    Q_OBJECT
    BV_STATUS_PROPERTIES
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex)
    Q_PROPERTY(CheckableItems checkableItems READ checkableItems WRITE setCheckableItems)
    Q_PROPERTY(bool deselectionOfCurrentEnabled READ isDeselectionOfCurrentEnabled WRITE
                   setDeselectionOfCurrentEnabled)
    Q_PROPERTY(bool showTopLevelItemsAsGroupHeader READ isShowTopLevelItemsAsGroupHeader WRITE
                   setShowTopLevelItemsAsGroupHeader)
    Q_PROPERTY(bool needInputShortcutEnabled READ isNeedInputShortcutEnabled WRITE
                   setNeedInputShortcutEnabled)

public:
    /// Which entries have a check box.
    enum CheckableItems {
        NoCheckableItems = 0,
        TopLevelItemsCheckable = 1,
        ChildItemsCheckable = 2,
        GroupItemsCheckable = 3, ///< all but those on the top level with none below; by groups
        KeepCheckableFlags = 4,  ///< as set on each entry
        AllItemsCheckable = 5,   ///< by groups
    };
    Q_ENUM(CheckableItems)

    /// Puts the stack into the service of the controller, which is not owned. Without one, entries
    /// cannot be added.
    explicit BVControlledStackWidget(BVStackControllerWidget *controller,
                                     QWidget *parent = nullptr);
    /// Takes the entries out of the tree.
    ~BVControlledStackWidget() override;

    BVStackControllerWidget *controller() const;
    /// The controller's tree; null without a controller.
    BVDragTreeWidget *tree() const { return m_tree; }
    BVStackedWidget *stackedWidget() const { return m_pages; }

    // Adding. A page may be null and is taken over; one that is in a stack already moves. Positions
    // are those below a parent; -1 and one too large append. The new entry, which belongs to the
    // stack, or null if nothing could be added.

    BVControlledStackItem *addItem(QWidget *page, int index = -1);
    /// Below the entry with that index; on the top level for -1.
    BVControlledStackItem *addItem(QWidget *page, int parentIndex, int index);
    BVControlledStackItem *addItem(QWidget *page, QWidget *parentPage, int index);
    BVControlledStackItem *addItem(QWidget *page, BVControlledStackItem *parent, int index);
    /// In front of the entry with that index, as its sibling, so that the new one has the index
    /// then. -1 and an index too large append on the top level.
    BVControlledStackItem *addItemAtDfsIndex(QWidget *page, int dfsIndex);
    /// Moves an entry with all below it.
    void addChildItem(BVControlledStackItem *parent, BVControlledStackItem *child, int index);
    /// Makes an entry with an empty page and a vertical layout, to be filled by
    /// BVControlledStackItem::setupLayoutItem(). The key that it is found by is valid and not in
    /// use yet; else nothing is added.
    BVControlledStackItem *addLayoutItem(const QVariant &key, int index = -1);
    BVControlledStackItem *getLayoutItem(const QVariant &key) const;
    /// In depth-first order.
    QList<BVControlledStackItem *> getLayoutItems() const;
    /// The key; invalid for other entries and null.
    static QVariant getLayoutItemData(const BVControlledStackItem *item);

    // Removing, with all that is below and the pages

    void removeItem(int dfsIndex);
    void removeItem(BVControlledStackItem *item);
    void removeItem(QWidget *page);
    void clear();

    // Entries

    int currentIndex() const override;
    /// The current entry, or the one that a current plain row belongs to; null for none.
    BVControlledStackItem *getCurrentItem() const;
    /// The entry at a position on the top level.
    BVControlledStackItem *itemAt(int index) const;
    BVControlledStackItem *itemAtDFSIndex(int dfsIndex) const;
    /// -1 for none.
    int getDFSIndex(const BVControlledStackItem *item) const;
    QList<BVControlledStackItem *> getDFSItems() const;
    /// The number of entries on the top level, or of all.
    int itemCount(bool recursive = false) const;
    /// The first entry with that text.
    BVControlledStackItem *getItemByText(const QString &text) const;
    void setItemText(int dfsIndex, const QString &text) override;
    void setItemToolTip(int dfsIndex, const QString &toolTip) override;
    /// Sorts siblings, on all levels, by their user order. Those without one come last; else the
    /// order stays as it is.
    void sortItems();

    // Selection, in depth-first order

    bool hasSelection() const;
    /// The positions of the selected entries among their siblings.
    QList<int> getIndexOfSelectedElements() const;
    QList<int> getDfsIndexOfSelectedElements() const;
    /// Selects these entries and no others; the first of them where only one can be.
    void setSelectedElementsByDfsIndex(const QList<int> &dfsIndexes);

    // Marking

    /// Marks the entry, or not; an exclusive mark takes away all others.
    void setItemMarked(int dfsIndex, bool marked, bool exclusive = false);
    bool isItemMarked(int dfsIndex) const;
    void clearMarkedItems();

    // Groups. Entries that are moved keep their depth-first order; those below others of the list
    // go with them.

    /// Makes an entry without a page at position @p index of the top level and moves entries below
    /// it. -1 takes the place of the first of them.
    BVControlledStackItem *createGroup(int index, const QList<int> &dfsIndexes);
    /// Moves entries behind those of the group, or in front of them.
    void addToGroup(int group, const QList<int> &dfsIndexes, bool atFront = false);
    void insertItemsToGroup(int group, const QList<int> &dfsIndexes, int index);
    /// Whether the entry stands right below one without a page.
    bool isInGroup(int dfsIndex) const;
    bool isInGroup(const BVControlledStackItem *item) const;
    /// Moves the entries of the group behind it, on its own level.
    void removeAllItemsFromGroup(int group);

    // Presentation

    void setCheckableItems(CheckableItems mode);
    CheckableItems checkableItems() const { return m_checkableItems; }
    bool isCheckableItems() const { return m_checkableItems != NoCheckableItems; }
    /// Whether the user may leave no current entry. Off at first.
    void setDeselectionOfCurrentEnabled(bool enable);
    bool isDeselectionOfCurrentEnabled() const { return m_deselectionEnabled; }
    /// The text above the navigation tree; empty for none.
    void setHeaderLabel(const QString &text, bool alignRight = false);
    QString getHeaderLabel() const { return m_headerLabel; }
    void setShowTopLevelItemsAsGroupHeader(bool show);
    bool isShowTopLevelItemsAsGroupHeader() const { return m_topLevelAsHeader; }
    /// Gives top-level rows the marks that open and close them while one has rows below and they
    /// are not shown as group headers. Called whenever that may have changed.
    void updateAutoRootDecoration();
    void setHoverItem(BVControlledStackItem *item);
    BVControlledStackItem *getHoverItem() const;
    /// The margins at the left (3) and top (6) can be left out.
    void updateMargins(bool noLeft, bool noTop);

    // Start page

    /// Takes the page over and shows it when it is due; until then it is hidden. The one before is
    /// hidden and belongs to the caller. A page of an entry is one no longer. Null changes the
    /// threshold only, without effect until the next change.
    void setStartPage(QWidget *page, int threshold);
    QWidget *startPage() const;
    int startPageThreshold() const;
    /// Until the next change of pages. Ignored without a start page.
    void showStartPage(bool show);

    // Entries that need input

    QList<BVControlledStackItem *> needInputItems() const;
    /// Makes the next entry behind the current one current that needs input, from the first again
    /// after the last. False if no other needs it.
    bool goToNextNeedingInput();
    /// Whether F8 in the stack or its controller does so. Off at first.
    void setNeedInputShortcutEnabled(bool enable);
    bool isNeedInputShortcutEnabled() const { return m_needInputAction != nullptr; }

public Q_SLOTS:
    /// Has selection and page follow the current entry again.
    void updateCurrentSelection();
    /// Makes the entry current, none for a negative index.
    void setCurrentIndex(int index) override;

Q_SIGNALS:
    void currentChanged(BVControlledStackItem *current, BVControlledStackItem *prev);
    /// @p selectedItem is the current entry if it is selected, else the first that is; null for
    /// none.
    void itemSelectionChanged(BVControlledStackItem *selectedItem);
    void itemClicked(BVControlledStackItem *item);
    void itemToggled(BVControlledStackItem *item, Qt::CheckState checkState);
    void itemCollapsed(BVControlledStackItem *item);
    void itemExpanded(BVControlledStackItem *item);
    void itemHoverEnter(BVControlledStackItem *item);
    void itemHoverLeave(BVControlledStackItem *item);
    void itemTextChanged(BVControlledStackItem *item);
    void itemAdded(BVControlledStackItem *item);
    /// Entries have been moved below @p target, null for the top level, by the user.
    void itemDropped(BVControlledStackItem *target);
    /// Entries are about to be moved below @p target, null for the top level. A slot that sets
    /// @p mayDrop to false refuses it.
    void itemDragEnter(BVControlledStackItem *target, bool *mayDrop);
    /// The number of pages; once for all that go with a removal, when the rows are gone.
    void widgetCountChanged(int count);
    void currentChanged(int index);

protected:
    using BVWidgetInterface::getStatusWidget;
    /// The page of the entry.
    QWidget *getStatusWidget(int index) const override;

private:
    friend class BVControlledStackItem;
    friend class BVControlledStackWidgetInterface;
    friend class BVStackControllerWidget;
    friend class BVStackEntries;
    friend class BVStackNavigation;

    void leaveController();
    void resetController();
    bool isOwn(const BVControlledStackItem *item) const;
    QTreeWidgetItem *rowOf(const BVControlledStackItem *parent) const;
    QList<QTreeWidgetItem *> rowsAt(const QList<int> &dfsIndexes) const;
    void updateHeaderAlignment();
    void updateStackVisibility();

    QPointer<BVStackControllerWidget> m_controller; // null also after another stack has come
    BVDragTreeWidget *m_tree; // of the controller; null as soon as its end begins
    BVStackedWidget *m_pages; // child of this
    std::unique_ptr<BVStackOrder> m_order;
    std::unique_ptr<BVStackPageSwitch> m_switch;
    BVStackEntries *m_entries;            // child of this
    BVStackNavigation *m_navigation;      // child of this
    QAction *m_needInputAction = nullptr; // child of this; null while F8 does nothing
    CheckableItems m_checkableItems = NoCheckableItems;
    QString m_headerLabel;
    bool m_deselectionEnabled = false;
    bool m_topLevelAsHeader = false;
};
