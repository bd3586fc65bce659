// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

class BVTreeViewItem;

/// A look at items in a list, or at a single one, which then needs no list.
class BVItemSpan
{
public:
    BVItemSpan(const QVector<BVTreeViewItem *> &items) // a list is a span
        : m_begin(items.constData())
        , m_size(items.size())
    {
    }
    explicit BVItemSpan(BVTreeViewItem *const *item)
        : m_begin(item)
        , m_size(1)
    {
    }
    BVTreeViewItem *const *begin() const { return m_begin; }
    BVTreeViewItem *const *end() const { return m_begin + m_size; }
    int size() const { return m_size; }
    BVTreeViewItem *operator[](int i) const { return m_begin[i]; }

private:
    BVTreeViewItem *const *m_begin;
    int m_size;
};
