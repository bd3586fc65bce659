// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeWidgetItem>
#include <QVariant>

class BVControlledStackItem;

/// The row of an entry of a controlled stack, or a plain one. Tells the stack when it is deleted.
///
/// A row that is not checkable has no check box, whatever its state. The state of one that is
/// checkable by groups is derived from the rows below it that have a check box.
class BVStackTreeItem : public QTreeWidgetItem
{
public:
    /// While an object of this class lives, rows compare by their entries' user order.
    class UserOrder
    {
    public:
        UserOrder() { s_byUserOrder = true; }
        ~UserOrder() { s_byUserOrder = false; }
        UserOrder(const UserOrder &) = delete;
        UserOrder &operator=(const UserOrder &) = delete;
    };

    /// Null makes a plain row.
    explicit BVStackTreeItem(BVControlledStackItem *item);
    ~BVStackTreeItem() override;

    /// The entry of @p row; null for a row without one.
    static BVControlledStackItem *entryOf(const QTreeWidgetItem *row);
    /// The entry of @p row or of the next row above it that has one.
    static BVControlledStackItem *entryAtOrAbove(const QTreeWidgetItem *row);
    static bool hasEntryBelow(const QTreeWidgetItem *row);
    /// The number of rows below, without the plain ones at the end.
    static int entryCount(const QTreeWidgetItem *row);

    /// The row belongs to no entry from now on. Emits nothing.
    void detach();

    /// The row's own state, whether it is shown or not.
    Qt::CheckState ownCheckState() const { return m_checkState; }
    /// Whether the state that is shown is that of rows below.
    bool isCheckStateDerived() const;
    /// Whether the state is being written: it is going to be told of.
    bool isCheckStateOnItsWay() const { return m_isCheckStateOnItsWay; }
    /// Makes the state that is shown the row's own. Emits nothing.
    void keepCheckState();

    /// A plain row.
    QTreeWidgetItem *clone() const override;
    QVariant data(int column, int role) const override;
    /// Also tells of a state that is shown when only rows below have made it another one.
    void setData(int column, int role, const QVariant &value) override;
    bool operator<(const QTreeWidgetItem &other) const override;

private:
    QVariant derivedCheckState() const;
    void tellOfCheckState();
    static int rank(const BVControlledStackItem *entry);

    static bool s_byUserOrder;

    BVControlledStackItem *m_item; // null for a plain row and once detached
    Qt::CheckState m_checkState = Qt::Unchecked;
    QVariant m_writtenCheckState; // as the toolkit has it
    bool m_isCheckStateOnItsWay = false;
};
