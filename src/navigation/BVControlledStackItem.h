// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVWidgetStatus.h"

#include <QColor>
#include <QIcon>
#include <QList>
#include <QMetaObject>
#include <QMetaType>
#include <QString>
#include <QVariant>

class BVControlledStackWidget;
class BVStackTreeItem;
class QTreeWidgetItem;

/// An entry of a controlled stack: a row in the navigation tree and the page that it leads to, or
/// none.
///
/// Entries are made by their stack or by the entry above them, and belong to the stack. Their order
/// and nesting are those of the rows. An entry that is removed, also with a row that someone
/// deletes, has neither row nor page nor stack from then on, and is deleted when control is back in
/// the event loop: until then pointers to it stay good and its setters do nothing. GUI thread only.
///
/// **Page.** The page goes with its entry: it is deleted when control is back in the event loop.
/// Take it with removeContainerWidget() to keep it. A page that is deleted elsewhere leaves its
/// entry in place.
///
/// **Status.** The entry shows the status of its page, whenever that changes (see BVWidgetStatus
/// and BVWidgetStatusHandler), or the one that is set on it, whichever came last. A status that
/// came from the page goes with it.
///
/// **Check state.** An entry that is not checkable shows no check box and keeps its state. One with
/// entries below that is checkable by groups derives its state from those of them that are
/// checkable, and gives its own to them.
///
/// Plain rows (addChildItem()) are notes below the entry: they are no entries, stand behind these
/// and lead to the page of the entry.
class BVWIDGETS_EXPORT BVControlledStackItem
{
public:
    /// The data of an entry's row, in the first column.
    enum Role {
        StatusRole = BVWidgetStatus::s_itemRole, ///< the flags, an int
        BoldRole = 283,
        ItalicRole = 284,
        MarkedRole = 285,
        ShowAsHeaderRole = 300,        ///< true, or invalid
        UserOrderRole = 452,           ///< an int, or invalid
        ReportedCheckStateRole = 453,  ///< the last one that was reported, an int, or invalid
        ControlledStackItemRole = 454, ///< the BVControlledStackItem *
    };

    BVControlledStackItem(const BVControlledStackItem &) = delete;
    BVControlledStackItem &operator=(const BVControlledStackItem &) = delete;

    /// Null once the entry has been removed, as is the row.
    BVControlledStackWidget *stackWidget() const { return m_stackWidget; }
    /// The row belongs to its tree.
    QTreeWidgetItem *treeItem() const;
    /// The column with the check box.
    int checkColumn() const { return m_checkColumn; }

    /// The entry of a row; null for none.
    static BVControlledStackItem *itemFromTreeItem(const QTreeWidgetItem *treeItem);
    /// The entry of a page; null for none.
    static BVControlledStackItem *itemFromWidget(QWidget *widget);

    // Below the entry

    /// Makes an entry below this one, at position @p index; -1 and one too large append. The page
    /// may be null; one that is in a stack already moves here. Null if the entry has been removed.
    BVControlledStackItem *addItem(QWidget *container, int index = -1);
    /// Makes a plain row below @p parent, which is the row of this entry (null) or a row below it.
    /// A @p dot of 1 is yellow, one of 2 is red; any other is none. Null for another parent.
    QTreeWidgetItem *addChildItem(QTreeWidgetItem *parent, const QString &text, int dot = 0);
    /// Removes everything below.
    void clear();

    /// Null for a position without an entry.
    BVControlledStackItem *itemAt(int index) const;
    /// The number of entries right below, or of all below.
    int itemCount(bool recursive = false) const;
    QList<BVControlledStackItem *> getChildItems() const;

    // Looks

    QString getText() const { return m_text; }
    /// Emits nothing.
    void setText(const QString &text);
    void setToolTip(const QString &toolTip);
    void setIcon(const QIcon &icon);
    void setShowAsHeader(bool show);
    bool isShownAsHeader() const;
    void setBold(bool bold);
    bool isBold() const;
    void setItalic(bool italic);
    bool isItalic() const;
    void setMarked(bool marked);
    bool isMarked() const;

    void setBVWidgetStatus(BVWidgetStatus::Stati stati);
    BVWidgetStatus::Stati getBVWidgetStatus() const { return m_status; }
    /// Writes the status to the row again.
    void setColorFromWidgetStatus();

    // Checking

    /// Emits nothing.
    void setCheckable(bool checkable);
    bool isCheckable() const;
    void setChecked(bool checked);
    /// Sets the state. The first one that is set, here or on entries whose states follow, is not
    /// reported as a toggle.
    void setCheckState(Qt::CheckState state);
    bool checked() const { return getCheckState() == Qt::Checked; }
    Qt::CheckState getCheckState() const;
    /// Whether the state differs from the last one that was reported; false if there is none.
    bool checkStateHasChanged() const;
    /// Notes the state as reported.
    void setCurrentCheckStateInData();

    // Place. Moving keeps check states, what is open, the selection and the current entry.

    /// The position of the row below its parent, or on the top level; -1 for none.
    int getIndex() const;
    /// Ignored if there is no such position.
    void setIndex(int index);
    /// Null on the top level.
    BVControlledStackItem *parent() const;
    /// Moves the entry with all below it, to position @p index; -1 and one too large append. Null
    /// stands for the top level. Ignored for a parent in another stack, the entry itself and what
    /// is below it.
    void setParent(BVControlledStackItem *parent, int index = -1);
    /// Moves the entries right below this one to @p parent likewise.
    void reparentChildren(BVControlledStackItem *parent, int index = -1);
    bool isTopLevelItem() const;

    /// Where the entry stands among its siblings when the stack is sorted.
    void setUserOrder(int order);
    /// 0 for none.
    int getUserOrder() const;
    bool hasUserOrder() const;
    void clearUserOrder();

    // Page

    /// Null for none.
    QWidget *getContainerWidget() const { return m_containerWidget; }
    /// Gives the entry the page, which the stack takes over; the one before is deleted. A page that
    /// is in a stack already moves here. Null takes the page away. What the stack is inside of is
    /// ignored.
    void setContainerWidget(QWidget *widget);
    /// The page, or null; it belongs to the caller, has no parent and is hidden.
    QWidget *removeContainerWidget();
    /// Puts the widget into the layout of the page, below what is in it. An entry without a page
    /// gets one, a page without a layout a vertical one. Null is ignored.
    void setupLayoutItem(QWidget *widget);

    // State

    /// Makes the entry current and shows its page. Ignored for one that is not enabled.
    void setCurrent();
    bool isCurrent() const;
    /// Shows the entry as hovered, in that colour or, if it is invalid, as the style does; or no
    /// longer.
    void setHover(bool hover, const QColor &color = QColor());
    bool isHover() const;
    void setSelected(bool selected);
    bool isSelected() const;
    void setExpanded(bool expanded);
    bool isExpanded() const;
    /// Opens or closes the entry and all below.
    void setExpandedAll(bool expanded);
    void setEditable(bool editable);
    bool isEditable() const;
    void setEnabled(bool enabled);
    bool isEnabled() const;
    void setFlag(Qt::ItemFlag flag, bool on);
    Qt::ItemFlags flags() const;

private:
    friend class BVStackChecks;
    friend class BVStackEntries;
    friend class BVStackRemains;
    friend class BVControlledStackWidget;

    explicit BVControlledStackItem(BVControlledStackWidget *stack);
    ~BVControlledStackItem();

    QVariant data(int role) const;
    void setData(int role, const QVariant &value);

    BVControlledStackWidget *m_stackWidget;  // the owner; null once removed
    BVStackTreeItem *m_treeItem = nullptr;   // owned by its tree; null once removed
    QWidget *m_containerWidget = nullptr;    // child of the stack's pages
    QMetaObject::Connection m_pageDestroyed; // of the page
    QString m_text;
    QVariant m_layoutKey; // the key of a layout entry
    BVWidgetStatus::Stati m_status;
    bool m_isStatusOfPage = false;
    bool m_isDisabled = false; // itself, not only below a disabled one
    int m_checkColumn = 0;
};

Q_DECLARE_METATYPE(BVControlledStackItem *)
