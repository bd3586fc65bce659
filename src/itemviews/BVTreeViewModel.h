// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "itemviews/BVTreeViewItem.h"

#include <QAbstractItemModel>
#include <QVector>

#include <functional>
#include <memory>

class BVItemIdMap;
class BVModelWatch;
class BVPendingChanges;
class QTimer;
class QTreeView;

/// The model of all trees and tables: a tree of BVTreeViewItem, built and changed directly.
///
/// Every change of an item is told twice, by dataChanged() for views and by itemsChanged() for the
/// application. In delayed mode both are collected by column and parent and told after an interval,
/// one dataChanged() for each range of neighbouring rows; in blocked mode they are not told at all.
/// Structure changes are always told, and tell first what is pending, unless an item is deleted
/// while it is in the model. Entering the blocked or the delayed mode saves the mode before, and
/// leaving either brings the saved mode back, whatever the present one is; but a mode that was
/// saved itself is left for the immediate mode. Leaving the delayed mode tells what is pending.
///
/// Rows of all depths have the columns of the model. As long as only the top-level rows exist,
/// column changes are told as such, else as a reset. The invisible root tells nothing of itself.
///
/// The model owns its items. Their horizontal headers are the values of a header item, which has
/// the model's columns; an item may have fewer values, or more, which are not shown. Slots may
/// change the tree while it tells of a change, callbacks must not. Sorting is stable. Whether
/// columns of numbers hold texts or numbers, they sort as texts.
class BVWIDGETS_EXPORT BVTreeViewModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    static constexpr int s_maximumRows = 10000000; ///< that can be inserted at once

    enum UpdateMode {
        ImmediateUpdate = 0,
        BlockedUpdate = 1,
        DelayedUpdate = 2,
    };
    Q_ENUM(UpdateMode)

    /// Roles of the library's trees.
    enum Role {
        NonEditableRowRole = 301,          ///< true: editor navigation skips the cell, or the row
        CountsForParentCheckRole = 339,    ///< false: not counted in the parent's check state
        HeaderCheckBoxRole = 457,          ///< true: the header section has a check box
        HeaderCheckBoxAlignmentRole = 458, ///< its Qt::Alignment, as an int
    };

    explicit BVTreeViewModel(QObject *parent = nullptr);
    ~BVTreeViewModel() override;

    /// The parent of the top-level items; its flags are those of the space below the rows.
    BVTreeViewItem *invisibleRootItem() const { return m_rootItem.get(); }
    /// Null for an invalid index and those of other models.
    BVTreeViewItem *item(const QModelIndex &index) const;
    /// Invalid unless the item is a row of this model and the column is one of it.
    QModelIndex index(const BVTreeViewItem *item, int column) const;

    /// As BVTreeViewItem's functions of this kind, on the invisible root.
    void appendTopLevelItem(BVTreeViewItem *item);
    void appendTopLevelItems(const QVector<BVTreeViewItem *> &items);
    void insertTopLevelItem(int row, BVTreeViewItem *item);
    void insertTopLevelItems(int row, const QVector<BVTreeViewItem *> &items);
    BVTreeViewItem *takeTopLevelItem(int row);
    QVector<BVTreeViewItem *> getTopLevelItems() const;
    BVTreeViewItem *getTopLevelItemFromIndex(int row) const;
    /// The row of the item if it is a top-level item at or behind @p from, else -1.
    int indexOfTopLevelItem(const BVTreeViewItem *item, int from = 0) const;
    /// All rows, each parent in front of its children.
    QVector<BVTreeViewItem *> getAllItems() const;
    /// The number of all rows at every depth.
    int childCount() const;

    void setColumnCount(int count);
    /// Deletes all rows.
    void clear();
    /// Removes all columns and what the headers say.
    void clearHeader();

    /// Lets views read all top-level rows anew.
    void updateModel();
    void updateModel(const QModelIndex &topLeft, const QModelIndex &bottomRight);
    /// Collects changes for @p intervalMs milliseconds after the first one, or no longer does.
    void useDelayedUpdate(bool on, int intervalMs = 0);
    bool isDelayedUpdateUsed() const { return m_updateMode == DelayedUpdate; }
    void setBlockUpdates(bool block);
    bool updatesBlocked() const { return m_updateMode == BlockedUpdate; }
    /// In delayed mode, whether itemsChanged() is emitted at once all the same.
    void sendItemsChangedImmediately(bool on);
    /// The column last sorted by, by which operator< compares; 0 at first.
    int sortColumn() const { return m_sortColumn; }
    /// Whether selections, and whatever else holds persistent indexes, follow their items when the
    /// model is sorted; otherwise they stay with their rows.
    void setKeepSelectedAfterSorting(bool keep);

    /// Called with an item and a role after each change of a value, in every mode.
    using ItemChangedCallback = std::function<void(BVTreeViewItem *, int)>;
    void setItemChangedCallback(const ItemChangedCallback &callback);
    ItemChangedCallback getItemChangedCallback() const { return m_itemChangedCallback; }
    /// Called with true before a check state is written to children and with false after it. Calls
    /// nest, since children may write to theirs.
    using BulkItemChangedCallback = std::function<void(bool)>;
    void setActivateBulkItemChangedCallback(const BulkItemChangedCallback &callback);
    BulkItemChangedCallback getActivateBulkItemChangedCallback() const
    {
        return m_activateBulkItemChangedCallback;
    }

    using QAbstractItemModel::parent;
    QModelIndex index(int row, int column,
                      const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QMap<int, QVariant> itemData(const QModelIndex &index) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Only horizontal headers have values.
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant &value,
                       int role = Qt::EditRole) override;
    /// Inserts up to s_maximumRows rows without values, enabled ones also below a disabled row.
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    /// Moves the values of all rows; only for the invalid parent, since all rows have the same
    /// columns.
    bool insertColumns(int column, int count, const QModelIndex &parent = QModelIndex()) override;
    /// Only below the first column, as with insertRows().
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    /// Sorts the rows of every depth among their siblings, with one layout change for all.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

Q_SIGNALS:
    /// Items have changed in a column, or as a whole if it is -1.
    void itemsChanged(QVector<BVTreeViewItem *> items, int column, QVector<int> roles);

protected:
    /// These keep track of who listens to changes, so that none is described to nobody. Subclasses
    /// that override them should call them; without, each change asks who listens.
    void connectNotify(const QMetaMethod &signal) override;
    void disconnectNotify(const QMetaMethod &signal) override;

private:
    friend class BVChangeFlush;
    friend class BVModelWatch;
    friend class BVTreeSort;
    friend class BVTreeStructure;
    friend class BVTreeViewItem;

    static constexpr int s_allColumns = -1;

    /// What to tell a change of a column as, if @p shifts were all when it happened.
    int columnSince(quint64 shifts, int column) const
    {
        return shifts == m_columnShifts ? column : s_allColumns;
    }
    BVTreeViewItem *holderOfRows(const QModelIndex &parent) const;
    BVTreeViewItem *itemOfId(qint64 id) const;
    QModelIndex cell(const BVTreeViewItem *item, int column) const;
    bool notify(BVTreeViewItem *item, int column, const QVector<int> &roles);
    bool emitDataChanged(BVTreeViewItem *item, int column, const QVector<int> &roles);
    bool callsNobody();
    bool emitHeader(int column);
    bool emitCells(BVTreeViewItem *item, int column, const QVector<int> &roles);
    bool emitItem(BVTreeViewItem *item, int column, const QVector<int> &roles);
    void findListeners();
    bool isShown() { return isKnown(m_isShown) ? m_isShown : (findListeners(), m_isShown); }
    bool isHeard() { return isKnown(m_isHeard) ? m_isHeard : (findListeners(), m_isHeard); }
    /// Emitting to nobody does no harm, so that only a missed connection matters.
    bool isKnown(bool listens) const { return !m_listenersChanged && (listens || m_isPlain); }
    bool flushPendingChanges();
    bool flushFor(const BVTreeViewItem *item);
    void enterMode(UpdateMode mode);
    void leaveMode(UpdateMode mode);
    void setModes(UpdateMode mode, UpdateMode saved);
    void activateBulkItemChanged(bool on);

    void beginInsertItems(BVTreeViewItem *parent, int row, int count);
    void endInsertItems();
    void beginRemoveItems(BVTreeViewItem *parent, int row, int count);
    void endRemoveItems();
    template <typename Begin, typename Change, typename End>
    void changeColumns(Begin begin, Change change, End end);
    void shiftColumns(int column, int count);
    void deleteRows();
    void propagateEnabledRecursively(BVTreeViewItem *item);
    void propagateEnabledBelow(BVTreeViewItem *item);

    std::unique_ptr<BVTreeViewItem> m_rootItem;
    std::unique_ptr<BVTreeViewItem> m_headerItem;
    int m_sortColumn = 0;
    bool m_keepSelectedAfterSorting = true;
    UpdateMode m_updateMode = ImmediateUpdate;
    UpdateMode m_savedUpdateMode = ImmediateUpdate;
    bool m_sendItemsChangedImmediately = false;
    ItemChangedCallback m_itemChangedCallback;
    BulkItemChangedCallback m_activateBulkItemChangedCallback;
    QTimer *m_delayTimer = nullptr; // child of this, in delayed mode
    std::unique_ptr<BVPendingChanges> m_pendingChanges;
    std::unique_ptr<BVItemIdMap> m_itemsById; // the root and all rows
    bool m_isShown = false;                   // dataChanged() is connected
    bool m_isHeard = false;                   // itemsChanged() is connected
    bool m_listenersChanged = true;           // since those were found out
    bool m_isPlain = false;                   // connectNotify() is certainly this class's own
    BVModelWatch *m_watches = nullptr;        // innermost first
    quint64 m_structure = 0;                  // another one after each change of the structure
    quint64 m_columnShifts = 0;               // how often columns have moved
};

/// What a view does with an item's row, also through proxy models. False, or nothing done, for an
/// item that the view does not show.
BVWIDGETS_EXPORT bool isItemExpanded(BVTreeViewItem *item, QTreeView *view);
BVWIDGETS_EXPORT bool isItemHidden(BVTreeViewItem *item, QTreeView *view);
BVWIDGETS_EXPORT bool isItemSelected(BVTreeViewItem *item, QTreeView *view);
BVWIDGETS_EXPORT void setItemExpanded(BVTreeViewItem *item, QTreeView *view, bool expanded);
/// A null item leaves the view without a current one.
BVWIDGETS_EXPORT void setCurrentItem(BVTreeViewItem *item, QTreeView *view);
