// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "itemviews/ItemData.h"

#include <Qt>

#include <cstddef>
#include <memory>
#include <new>
#include <typeinfo>

class BVItemSpan;
class BVItemValues;
class BVRowTexts;
class BVTreeViewModel;
class QIcon;
class QString;

/// One row of a BVTreeViewModel, with its values by column and role, and its child rows.
///
/// A parent owns its children, the model its top-level items, whose parentItem() is null. An item
/// that is taken out belongs to the caller; deleting an item takes it out first and deletes its
/// children. Items are built free or in a model, in any order. Display and edit role are one value.
///
/// The check state (Qt::CheckStateRole) of an item with Qt::ItemIsAutoTristate and children is
/// derived from theirs: Unchecked or Checked where all counted children agree, else
/// PartiallyChecked; invalid as soon as a counted child without a check state is met, or when none
/// counts. A child whose CountsForParentCheckRole is false in the same column does not count.
/// Any other value than Unchecked and Checked counts as PartiallyChecked. Writing anything but
/// PartiallyChecked to such an item writes it to all children that have a check state; while a
/// child is written the item's flag is off. Deriving and writing recurse once a level: trees of
/// many thousand levels overflow the stack.
///
/// Every item has an id of its own for life, also a copy. Columns are limited to s_maximumColumns;
/// what lies outside is ignored, as are null items and rows that do not exist. Values of different
/// types are different, but check states are compared as numbers.
///
/// Reading a derived check state is cheap however many children there are, as long as all of them
/// are of this class itself; items that override data() are asked each time.
class BVWIDGETS_EXPORT BVTreeViewItem
{
public:
    static constexpr int s_maximumColumns = 1 << 16;

    BVTreeViewItem();
    /// Appends the item to @p parent if there is one.
    explicit BVTreeViewItem(BVTreeViewItem *parent);
    /// The values by column. Of two equal roles in a column the first one counts; edit values are
    /// display values.
    explicit BVTreeViewItem(const QVector<QVector<ItemData>> &values,
                            BVTreeViewItem *parent = nullptr);
    /// A free item with the values and flags of the other, without its children.
    BVTreeViewItem(const BVTreeViewItem &other);
    /// Takes over values and flags; place, children and id stay.
    BVTreeViewItem &operator=(const BVTreeViewItem &other);
    virtual ~BVTreeViewItem();

    /// Items of this class itself come from a pool.
    static void *operator new(size_t size);
    static void operator delete(void *item, size_t size);
    /// Subclasses of a stricter alignment come from the heap.
    static void *operator new(size_t size, std::align_val_t alignment);
    static void operator delete(void *item, std::align_val_t alignment);
    /// Null when there is no memory. What a constructor throws costs the block then.
    static void *operator new(size_t size, const std::nothrow_t &) noexcept;
    static void *operator new(size_t size, std::align_val_t alignment,
                              const std::nothrow_t &) noexcept;
    static void *operator new(size_t /*size*/, void *place) noexcept { return place; }
    static void operator delete(void * /*item*/, void * /*place*/) noexcept {}

    virtual QVariant data(int column, int role) const;
    /// Stores a value and tells the model's views, unless it is there already. A column that does
    /// not exist is made; the header item then widens its model.
    virtual void setData(int column, int role, const QVariant &value);
    /// Whether the item sorts before the other: by the texts of the model's sort column, as the
    /// user's language sorts them.
    virtual bool operator<(const BVTreeViewItem &other) const;
    /// For items that keep their expansion or visibility themselves; these here keep nothing and
    /// answer false.
    virtual bool setExpanded(bool expanded);
    virtual bool isExpanded() const;
    virtual bool setHidden(bool hidden);
    virtual bool isHidden() const;

    BVTreeViewItem *child(int row) const;
    int childCount() const { return m_childCount; }
    const QVector<BVTreeViewItem *> &children() const;
    /// The row of a child, or -1.
    int indexOfChild(const BVTreeViewItem *child) const;
    /// The item's row among its siblings; -1 for an item without a place.
    int row() const;
    /// Null for free items and top-level items.
    BVTreeViewItem *parentItem() const { return m_parent; }
    /// Null for items that are in no model.
    BVTreeViewModel *model() const { return m_model; }
    qint64 id() const { return m_id; }
    int columnCount() const { return m_columnCount; }

    Qt::ItemFlags flags() const { return m_flags; }
    void setFlags(Qt::ItemFlags flags);
    bool isDisabled() const { return !(m_flags & Qt::ItemIsEnabled); }
    /// In a model, all rows below follow.
    void setDisabled(bool disabled);
    /// Whether the item is @p root or lies anywhere below it.
    bool inTree(const BVTreeViewItem *root) const;

    QString text(int column) const;
    void setText(int column, const QString &text);
    void setIcon(int column, const QIcon &icon);
    QString toolTip(int column) const;
    void setToolTip(int column, const QString &toolTip);

    /// These take free items over. Null, repeated and owned items, and those that hold this item,
    /// are left out; a row outside [0, childCount()] inserts nothing. A list is one notification.
    /// In a model, under a disabled row, they and all below them become disabled.
    void appendChild(BVTreeViewItem *child);
    void appendChildren(const QVector<BVTreeViewItem *> &children);
    void insertChild(int row, BVTreeViewItem *child);
    void insertChildren(int row, const QVector<BVTreeViewItem *> &children);
    /// These give items back to the caller; takeChild() null when there is none.
    void removeChild(BVTreeViewItem *child);
    BVTreeViewItem *takeChild(int row);
    QVector<BVTreeViewItem *> takeChildren();
    /// Deletes all children.
    void removeChildren();

    /// Sorts all rows below by operator<, stably; see BVTreeViewModel::sort(). Only in a model.
    void sortChildren(int column, Qt::SortOrder order);

private:
    friend class BVChangeFlush;
    friend class BVCheckCounters;
    friend class BVRowTexts;
    friend class BVSiblingSort;
    friend class BVTreeSort;
    friend class BVTreeStructure;
    friend class BVTreeViewModel;

    struct Branch;
    struct Deletion;
    struct PushDown;
    struct ValuesDeleter
    {
        void operator()(BVItemValues *values) const;
    };

    static int storedRole(int role) { return role == Qt::EditRole ? int(Qt::DisplayRole) : role; }
    const QVariant *find(int column, int role) const;
    void write(int column, int role, QVariant &&value);
    void replaceText(QString *stored, int column, const QString &text);
    bool store(int column, int role, QVariant &&value);
    static BVItemValues *copyOf(const BVItemValues *values);
    void shiftColumns(int column, int count);
    void cutColumns(int count);
    /// Whether the item is of this class itself, so that nothing is overridden.
    bool isPlain() const { return typeid(*this) == typeid(BVTreeViewItem); }
    bool isHeader() const;
    bool isRoot() const;
    bool setModelColumns(int count);
    bool hasCheckState(int column) const;
    bool derivesCheckState() const;
    bool isPushingDown() const;
    bool pushDownCheckState(int column, const QVariant &value);
    bool change(int column, int role, QVariant &&value);
    void announce(int column, int role);
    void notify(int column, int role);
    void notifyCheckState(int column);
    static const QVector<int> &checkStateRoles();
    void releaseFlags();
    void changeFlags(Qt::ItemFlags flags);
    void setEnabledFlag(bool enabled);
    void appendTo(BVTreeViewItem *parent);
    BVTreeViewItem *holder() const;
    void insert(int row, const BVItemSpan &items);
    void insertFree(int row, const BVItemSpan &items);
    bool isInsertable(const BVTreeViewItem *item) const;
    QVector<BVTreeViewItem *> insertable(const BVItemSpan &items) const;
    void adopt(int row, const BVItemSpan &items);
    QVector<BVTreeViewItem *> release(int row, int count);
    int rowOf(const BVTreeViewItem *child) const;
    int findRow(const BVTreeViewItem *child) const;
    void doubtRows();
    void numberChildren(int from) const;
    Branch &branch();
    void deleteChildren();
    void handChildrenTo(BVTreeViewItem *doomed);

    static qint64 s_nextId;
    static PushDown *s_pushDowns; // running ones, innermost first
    static Deletion *s_deletions; // likewise

    // One line of a processor's cache: rows are many, and reached in any order.
    BVTreeViewItem *m_parent = nullptr;
    BVTreeViewModel *m_model = nullptr;
    mutable int m_row = 0; // a hint, unless the parent's rows are beyond doubt
    Qt::ItemFlags m_flags = Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsEnabled;
    qint64 m_id;
    std::unique_ptr<BVItemValues, ValuesDeleter> m_values; // null while there are none
    std::unique_ptr<Branch> m_branch;                      // null while there were no children
    int m_columnCount = 0;
    int m_childCount = 0;
};

Q_DECLARE_METATYPE(BVTreeViewItem *)
