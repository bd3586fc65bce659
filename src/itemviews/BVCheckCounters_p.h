// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/BVItemValues_p.h"
#include "itemviews/BVTreeViewModel.h"

#include <QVariant>

#include <array>
#include <vector>

class BVItemSpan;

/// How many children of an item have which check state, by column.
///
/// Counters stand only where every child is of the class BVTreeViewItem itself and the same holds
/// for whatever the child's own state is derived from; nothing else can be relied on to report its
/// changes. Where an item has counters for a column, its counted children that derive their state
/// have them, too: so a change travels up until an item without counters is met. The invisible
/// root, which its children do not know as their parent, has none.
class BVCheckCounters
{
public:
    /// What a child contributes to its parent's state.
    enum Kind { NotCounted, Missing, Unchecked, Checked, Mixed };

    /// The state derived from the item's children.
    static QVariant derivedState(const BVTreeViewItem &item, int column);

    /// Reports what a change of an item's value in a column does to the states above it: made
    /// before the change and destroyed after it.
    class Change
    {
    public:
        Change(BVTreeViewItem *item, int column);
        ~Change();
        /// To be called when the item did not live to the end of the change.
        void abandon() { m_item = nullptr; }
        Change(const Change &) = delete;
        Change &operator=(const Change &) = delete;

    private:
        BVTreeViewItem *m_item; // null when it is gone
        int m_column;
        Kind m_before = NotCounted;
        quint64 m_serial = 0; // of the counters that hold m_before; 0 if there are none
    };

    /// What an item of the class itself, which does not derive its state, contributes.
    struct Stored
    {
        Stored(const BVTreeViewItem &item, int column);

        const QVariant *counts = nullptr; // of CountsForParentCheckRole; null where there is none
        const QVariant *state = nullptr;
    };
    /// A check state, read once.
    struct State
    {
        explicit State(const QVariant &value);

        bool isInt;
        int number; // 0 if it is none
        Kind kind = Mixed;
    };
    /// Counts a child that is about to store another state, by what tells whether it counts at all.
    /// Nothing above the parent may have counters. The parent may be null.
    static void recount(const BVTreeViewItem *parent, int column, const QVariant *counts,
                        Kind before, Kind after);

    /// Report children that are about to join the item's others or to leave them.
    static void join(BVTreeViewItem *parent, const BVItemSpan &children);
    static void leave(BVTreeViewItem *parent, const BVItemSpan &children);

    /// Forgets what was counted for the item's children and for all above it.
    static void forget(const BVTreeViewItem *item);

private:
    using Counts = std::array<int, Mixed + 1>; // by Kind

    struct Column
    {
        int column;
        quint64 serial; // another one each time the children are counted
        Counts counts;
    };

    static Kind kindOf(const BVTreeViewItem &item, int column);
    static Kind storedKind(const BVTreeViewItem &item, int column);
    static Kind kindOf(const QVariant *counts, const QVariant *state);
    static bool isReliable(const BVTreeViewItem &item, int column);
    static Column *find(const BVTreeViewItem &item, int column);
    static Column *countersOf(const BVTreeViewItem &item, int column);
    static bool isMixed(const Counts &counts);
    static bool dependsOnOrder(const Counts &counts);
    static void add(BVTreeViewItem *parent, const BVItemSpan &children, int sign);
    static void apply(BVTreeViewItem *parent, int column, const Counts &difference);
    static QVariant walk(const BVTreeViewItem &item, int column);

    std::vector<Column> m_columns;
};

/// Nearly all are integers, which need no conversion.
inline BVCheckCounters::State::State(const QVariant &value)
    : isInt(value.userType() == QMetaType::Int)
{
    bool isNumber = isInt;
    number = isInt ? *static_cast<const int *>(value.constData()) : value.toInt(&isNumber);
    if (!isInt && !value.isValid())
        kind = Missing;
    else if (isNumber && number == Qt::Unchecked)
        kind = Unchecked;
    else if (isNumber && number == Qt::Checked)
        kind = Checked;
}

inline BVCheckCounters::Stored::Stored(const BVTreeViewItem &item, int column)
{
    if (!item.m_values)
        return;
    const BVItemValues::Value *const end = item.m_values->end();
    for (auto *value = item.m_values->columnBegin(column); value != end && value->column == column;
         ++value) {
        if (value->role == BVTreeViewModel::CountsForParentCheckRole)
            counts = &value->value;
        else if (value->role == Qt::CheckStateRole)
            state = &value->value;
    }
}
