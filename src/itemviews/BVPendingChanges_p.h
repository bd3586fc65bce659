// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QPair>
#include <QVector>

#include <vector>

/// Changes of items with one parent in one column.
struct BVPendingGroup
{
    int column;
    qint64 parent;
    std::vector<qint64> items; // once taken, each once and rising
    QVector<int> roles;        // each once, as they first came
};

/// Changes of items that wait to be announced together, grouped by column and parent.
///
/// Items are kept by id, since they may be gone when their turn comes.
class BVPendingChanges
{
public:
    bool isEmpty() const { return m_groups.empty(); }
    void add(int column, qint64 parent, qint64 item, const QVector<int> &roles);
    /// Drops what is pending. The memory of a list of items, up to a megabyte, serves the next one.
    void clear();
    /// Hands over all groups, in the order of their first changes.
    std::vector<BVPendingGroup> take();

private:
    struct Entry
    {
        BVPendingGroup group;
        size_t limit;           // of the items, before repeated ones are dropped
        QVector<int> lastRoles; // to know them again when the next change comes with them
    };

    static void addRoles(Entry &pending, const QVector<int> &roles);
    Entry &entry(int column, qint64 parent);

    std::vector<Entry> m_groups;
    std::vector<qint64> m_spareItems;         // empty, for the next group
    QHash<QPair<int, qint64>, int> m_indexes; // into m_groups
};
