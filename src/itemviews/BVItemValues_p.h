// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

/// The values of an item by column, in a column as they were first set. They and their number stand
/// in one block of memory, which has to be made anew when it is full.
class BVItemValues
{
public:
    struct Value
    {
        int column;
        int role;
        QVariant value;
    };

    /// Whether two values of a role are the same. Texts and integers, which most are, need no
    /// conversion; check states may be numbers of any kind.
    static bool isSame(int role, const QVariant &a, const QVariant &b);

    static BVItemValues *make(int capacity);
    static BVItemValues *copy(const BVItemValues &other);
    /// With the same values and room for more; null is a block without values. The values given are
    /// destroyed unless there is no memory.
    static BVItemValues *enlarge(BVItemValues *values);
    static void destroy(BVItemValues *values);

    bool isFull() const { return m_size == m_capacity; }
    const Value *begin() const { return const_cast<BVItemValues *>(this)->first(); }
    const Value *end() const { return begin() + m_size; }
    const Value *columnBegin(int column) const;
    const QVariant *find(int column, int role) const
    {
        for (const Value *v = columnBegin(column); v != end() && v->column == column; ++v) {
            if (v->role == role)
                return &v->value;
        }
        return nullptr;
    }
    /// Behind the others of its column. Needs room.
    void insert(int column, int role, QVariant &&value);
    /// Makes room for @p count columns in front of @p column.
    void shiftColumns(int column, int count);
    /// Drops all columns from @p count on.
    void cutColumns(int count);

private:
    static constexpr int s_few = 16; // values that are looked through one after the other

    explicit BVItemValues(int capacity)
        : m_capacity(capacity)
    {
    }
    ~BVItemValues() = default;
    Value *first() { return reinterpret_cast<Value *>(this + 1); }

    int m_size = 0;
    int m_capacity;
};

inline const BVItemValues::Value *BVItemValues::columnBegin(int column) const
{
    const Value *first = begin();
    int count = m_size;
    while (count > s_few) {
        const int half = count / 2;
        if (first[half].column < column) {
            first += half;
            count -= half;
        } else {
            count = half;
        }
    }
    while (first != end() && first->column < column)
        ++first;
    return first;
}
