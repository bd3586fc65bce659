// SPDX-License-Identifier: MIT
// What BVTreeViewItem.h says of an item's place among its siblings and of its children.
#include "itemviews/BVCheckCounters_p.h"
#include "itemviews/BVCheckPush_p.h"
#include "itemviews/BVItemBranch_p.h"
#include "itemviews/BVItemSpan_p.h"
#include "itemviews/BVTreeSort_p.h"
#include "itemviews/BVTreeStructure_p.h"
#include "itemviews/BVTreeViewItem.h"
#include "itemviews/BVTreeViewModel.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int s_nearRows = 16; // rows around the hint that are worth a look

} // namespace

/// The item in whose list this one stands; the invisible root for a top-level item.
BVTreeViewItem *BVTreeViewItem::holder() const
{
    if (m_parent || !m_model)
        return m_parent;
    BVTreeViewItem *root = m_model->m_rootItem.get();
    return this == root || isHeader() ? nullptr : root;
}

BVTreeViewItem *BVTreeViewItem::child(int row) const
{
    return row >= 0 && row < m_childCount ? m_branch->children.at(row) : nullptr;
}

const QVector<BVTreeViewItem *> &BVTreeViewItem::children() const
{
    static const QVector<BVTreeViewItem *> s_none;
    return m_branch ? m_branch->children : s_none;
}

BVTreeViewItem::Branch &BVTreeViewItem::branch()
{
    if (!m_branch)
        m_branch = std::make_unique<Branch>();
    return *m_branch;
}

int BVTreeViewItem::row() const
{
    const BVTreeViewItem *parent = holder();
    return parent ? parent->rowOf(this) : -1;
}

int BVTreeViewItem::indexOfChild(const BVTreeViewItem *child) const
{
    return child && child->holder() == this ? rowOf(child) : -1;
}

/// The row of an item that is known to be a child.
int BVTreeViewItem::rowOf(const BVTreeViewItem *child) const
{
    return m_branch->rowDoubt == 0 ? child->m_row : findRow(child);
}

/// Once rows were inserted or taken in front, the hint is mostly off by a few rows. Where many rows
/// are asked for, all hints are made anew, at a cost that does not weigh much among so many.
int BVTreeViewItem::findRow(const BVTreeViewItem *child) const
{
    const bool isAskedOften = ++m_branch->rowDoubt > m_childCount / s_nearRows;
    for (int distance = 0; distance <= s_nearRows && !isAskedOften; ++distance) {
        for (const int row : {child->m_row - distance, child->m_row + distance}) {
            if (row >= 0 && row < m_childCount && m_branch->children.at(row) == child) {
                child->m_row = row;
                return row;
            }
        }
    }
    numberChildren(0);
    return child->m_row;
}

void BVTreeViewItem::doubtRows()
{
    m_branch->rowDoubt = qMax(m_branch->rowDoubt, 1);
}

/// The rows in front of @p from are known to be right if all were.
void BVTreeViewItem::numberChildren(int from) const
{
    for (int row = from; row < m_childCount; ++row)
        m_branch->children.at(row)->m_row = row;
    if (from == 0)
        m_branch->rowDoubt = 0;
}

void BVTreeViewItem::appendChild(BVTreeViewItem *child)
{
    if (!m_model || m_model->flushFor(this))
        insert(m_childCount, BVItemSpan(&child));
}

void BVTreeViewItem::appendChildren(const QVector<BVTreeViewItem *> &children)
{
    if (!m_model || m_model->flushFor(this))
        insertChildren(m_childCount, children);
}

void BVTreeViewItem::insertChild(int row, BVTreeViewItem *child)
{
    insert(row, BVItemSpan(&child));
}

void BVTreeViewItem::insertChildren(int row, const QVector<BVTreeViewItem *> &children)
{
    const QVector<BVTreeViewItem *> kept = children; // whatever slots do
    insert(row, kept);
}

void BVTreeViewItem::insert(int row, const BVItemSpan &items)
{
    const auto isPossible = [&] { return row >= 0 && row <= m_childCount && !isHeader(); };
    if (!isPossible() || (m_model && (!m_model->flushFor(this) || !isPossible())))
        return;
    if (items.size() != 1)
        insertFree(row, insertable(items));
    else if (isInsertable(items[0]))
        insertFree(row, items);
}

void BVTreeViewItem::insertFree(int row, const BVItemSpan &items)
{
    if (items.size() == 0)
        return;
    if (m_model)
        BVTreeStructure(m_model).insert(this, row, items);
    else
        adopt(row, items);
}

bool BVTreeViewItem::isInsertable(const BVTreeViewItem *item) const
{
    return item && item != this && !item->m_model && !item->m_parent &&
           (item->m_childCount == 0 || !inTree(item));
}

QVector<BVTreeViewItem *> BVTreeViewItem::insertable(const BVItemSpan &items) const
{
    // Free items have no row of their own: the hint can tell where in the list each stands first.
    for (int i = items.size() - 1; i >= 0; --i) {
        if (items[i] && !items[i]->m_model && !items[i]->m_parent)
            items[i]->m_row = i;
    }
    QVector<BVTreeViewItem *> result;
    result.reserve(items.size());
    for (int i = 0; i < items.size(); ++i) {
        if (isInsertable(items[i]) && items[i]->m_row == i)
            result.append(items[i]);
    }
    return result;
}

/// Takes free items into the list, without a word to anyone.
void BVTreeViewItem::adopt(int row, const BVItemSpan &items)
{
    if (s_pushDowns)
        BVCheckCounters::forget(this); // it may hold states from before
    else
        BVCheckCounters::join(this, items);
    BVTreeViewItem *parent = isRoot() ? nullptr : this;
    const bool isLast = row == m_childCount;
    QVector<BVTreeViewItem *> &children = branch().children;
    if (items.size() == 1) {
        children.insert(row, items[0]);
    } else {
        children.insert(row, items.size(), nullptr);
        std::copy(items.begin(), items.end(), children.begin() + row);
    }
    m_childCount = children.size();
    for (int i = 0; i < items.size(); ++i) {
        items[i]->m_parent = parent;
        items[i]->m_row = row + i;
    }
    if (!isLast && items.size() > s_nearRows)
        numberChildren(row + items.size());
    else if (!isLast)
        doubtRows();
}

void BVTreeViewItem::removeChild(BVTreeViewItem *child)
{
    takeChild(indexOfChild(child));
}

BVTreeViewItem *BVTreeViewItem::takeChild(int row)
{
    if (row < 0 || row >= m_childCount)
        return nullptr;
    if (m_model)
        return BVTreeStructure(m_model).take(this, row);
    return release(row, 1).front();
}

QVector<BVTreeViewItem *> BVTreeViewItem::takeChildren()
{
    if (m_model)
        return BVTreeStructure(m_model).takeAll(this);
    return release(0, m_childCount);
}

void BVTreeViewItem::removeChildren()
{
    if (m_model) {
        BVTreeStructure(m_model).deleteAll(this);
        return;
    }
    BVTreeViewItem doomed;
    doomed.adopt(0, release(0, m_childCount));
}

/// Gives items out of the list, without a word to anyone.
QVector<BVTreeViewItem *> BVTreeViewItem::release(int row, int count)
{
    const QVector<BVTreeViewItem *> items = children().mid(row, count);
    if (s_pushDowns)
        BVCheckCounters::forget(this);
    else
        BVCheckCounters::leave(this, items);
    if (count > 0)
        m_branch->children.remove(row, count);
    m_childCount -= count;
    for (BVTreeViewItem *item : items)
        item->m_parent = nullptr;
    if (count > s_nearRows)
        numberChildren(row);
    else if (row < m_childCount)
        doubtRows();
    return items;
}

/// An item whose children are being deleted.
struct BVTreeViewItem::Deletion
{
    explicit Deletion(BVTreeViewItem *parent)
        : holder(parent)
        , outer(s_deletions)
    {
        s_deletions = this;
    }
    ~Deletion() { s_deletions = outer; }
    Deletion(const Deletion &) = delete;
    Deletion &operator=(const Deletion &) = delete;

    BVTreeViewItem *const holder;
    const BVTreeViewItem *child = nullptr; // that is being deleted
    Deletion *const outer;
};

BVTreeViewItem::Deletion *BVTreeViewItem::s_deletions = nullptr;

/// A child that is deleted here leaves its own children to this item, so that a long chain of items
/// takes no recursion. Children have their place until it is their turn: they may be deleted by the
/// destructors of others.
void BVTreeViewItem::deleteChildren()
{
    if (m_childCount == 0)
        return;
    if (s_deletions && s_deletions->child == this) {
        handChildrenTo(s_deletions->holder);
        return;
    }
    Deletion running(this);
    m_branch->checkCounters.reset();
    std::reverse(m_branch->children.begin(), m_branch->children.end()); // the first goes first
    doubtRows();
    while (m_childCount > 0) {
        BVTreeViewItem *child = m_branch->children.takeLast();
        --m_childCount;
        child->m_parent = nullptr;
        running.child = child;
        delete child;
    }
}

/// For an item that is deleting its children: these here come next.
void BVTreeViewItem::handChildrenTo(BVTreeViewItem *doomed)
{
    QVector<BVTreeViewItem *> &others = doomed->m_branch->children;
    for (auto child = children().crbegin(); child != children().crend(); ++child) {
        (*child)->m_parent = doomed;
        (*child)->m_row = others.size();
        others.append(*child);
    }
    doomed->m_childCount = others.size();
    m_branch->children.clear();
    m_childCount = 0;
}

void BVTreeViewItem::sortChildren(int column, Qt::SortOrder order)
{
    if (m_model)
        BVTreeSort(m_model).sort(this, column, order);
}
