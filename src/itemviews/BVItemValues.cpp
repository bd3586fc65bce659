// SPDX-License-Identifier: MIT
#include "itemviews/BVItemValues_p.h"

#include "itemviews/BVBlockPool_p.h"

#include <algorithm>
#include <array>
#include <new>

namespace {

constexpr int s_firstCapacity = 3;
constexpr size_t s_header = 2 * sizeof(int);

constexpr size_t sizeOf(int capacity)
{
    return s_header + size_t(capacity) * sizeof(BVItemValues::Value);
}

// By capacity, of blocks as most rows have them.
std::array<BVBlockPool, 9> s_pools{
    BVBlockPool(sizeOf(1)), BVBlockPool(sizeOf(1)), BVBlockPool(sizeOf(2)),
    BVBlockPool(sizeOf(3)), BVBlockPool(sizeOf(4)), BVBlockPool(sizeOf(5)),
    BVBlockPool(sizeOf(6)), BVBlockPool(sizeOf(7)), BVBlockPool(sizeOf(8)),
};

bool isIntegral(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return QMetaType::typeFlags(value.userType()) & QMetaType::IsEnumeration;
    }
}

} // namespace

static_assert(sizeof(BVItemValues) == s_header && alignof(BVItemValues::Value) <= s_header,
              "the values follow their header at once");

bool BVItemValues::isSame(int role, const QVariant &a, const QVariant &b)
{
    if (a.userType() != b.userType())
        return role == Qt::CheckStateRole && isIntegral(a) && isIntegral(b) &&
               a.toLongLong() == b.toLongLong();
    switch (a.userType()) {
    case QMetaType::Int:
        return *static_cast<const int *>(a.constData()) == *static_cast<const int *>(b.constData());
    case QMetaType::QString:
        return *static_cast<const QString *>(a.constData()) ==
               *static_cast<const QString *>(b.constData());
    default:
        return a == b;
    }
}

BVItemValues *BVItemValues::make(int capacity)
{
    void *block = size_t(capacity) < s_pools.size() ? s_pools[size_t(capacity)].take()
                                                    : ::operator new(sizeOf(capacity));
    return new (block) BVItemValues(capacity);
}

BVItemValues *BVItemValues::copy(const BVItemValues &other)
{
    BVItemValues *values = make(other.m_size);
    std::uninitialized_copy(other.begin(), other.end(), values->first());
    values->m_size = other.m_size;
    return values;
}

BVItemValues *BVItemValues::enlarge(BVItemValues *values)
{
    if (!values)
        return make(s_firstCapacity);
    BVItemValues *larger = make(values->m_capacity + std::max(1, values->m_capacity / 2));
    std::uninitialized_move(values->first(), values->first() + values->m_size, larger->first());
    larger->m_size = values->m_size;
    destroy(values);
    return larger;
}

void BVItemValues::destroy(BVItemValues *values)
{
    std::destroy(values->first(), values->first() + values->m_size);
    const int capacity = values->m_capacity;
    if (size_t(capacity) < s_pools.size())
        s_pools[size_t(capacity)].give(values);
    else
        ::operator delete(values);
}

void BVItemValues::insert(int column, int role, QVariant &&value)
{
    Value *last = first() + m_size;
    new (last) Value{column, role, std::move(value)};
    ++m_size;
    Value *position = last;
    while (position != first() && (position - 1)->column > column)
        --position;
    std::rotate(position, last, last + 1);
}

void BVItemValues::shiftColumns(int column, int count)
{
    for (Value *value = first(); value != end(); ++value) {
        if (value->column >= column)
            value->column += count;
    }
}

void BVItemValues::cutColumns(int count)
{
    Value *cut = first() + (columnBegin(count) - begin());
    std::destroy(cut, first() + m_size);
    m_size = int(cut - first());
}
