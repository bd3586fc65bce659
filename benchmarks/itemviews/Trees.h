// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/BVTreeViewModel.h"

#include <QStandardItemModel>
#include <QTreeWidget>

#include <vector>

// The same rows of three columns with the same shared texts in each kind of tree.

constexpr int s_rows = 100000;
constexpr int s_manyRows = 1000000;
constexpr int s_columns = 3;
constexpr int s_fanOut = 46; // 46 + 46 * 46 + 46 * 46 * 46 rows, about 100,000

/// One of a thousand texts, the same object each time.
const QString &text(int row, int column);
/// All rows in an order that is the same each time.
std::vector<int> shuffledRows(int count = s_rows);

// What each tree calls its rows and how it makes them. Rows are made as an application does that
// fills a tree in place: one after the other, each put into the tree that is there.

struct Ours
{
    using Item = BVTreeViewItem;
    Ours() { model.setColumnCount(s_columns); }
    Item *add(Item *parent, int row)
    {
        auto *item = new Item;
        for (int column = 0; column < s_columns; ++column)
            item->setText(column, text(row, column));
        (parent ? parent : model.invisibleRootItem())->appendChild(item);
        return item;
    }
    Item *row(int row) const { return model.getTopLevelItemFromIndex(row); }
    QAbstractItemModel &itemModel() { return model; }
    BVTreeViewModel model;
};

struct Widget
{
    using Item = QTreeWidgetItem;
    Widget() { widget.setColumnCount(s_columns); }
    Item *add(Item *parent, int row)
    {
        const QStringList texts{text(row, 0), text(row, 1), text(row, 2)};
        return parent ? new Item(parent, texts) : new Item(&widget, texts);
    }
    Item *row(int row) const { return widget.topLevelItem(row); }
    QAbstractItemModel &itemModel() { return *widget.model(); }
    QTreeWidget widget;
};

struct Standard
{
    using Item = QStandardItem;
    Standard() { model.setColumnCount(s_columns); }
    Item *add(Item *parent, int row)
    {
        auto *item = new Item(text(row, 0));
        const QList<Item *> cells{item, new Item(text(row, 1)), new Item(text(row, 2))};
        (parent ? parent : model.invisibleRootItem())->appendRow(cells);
        return item;
    }
    Item *row(int row) const { return model.item(row); }
    QAbstractItemModel &itemModel() { return model; }
    QStandardItemModel model;
};

template <typename Tree>
void fillFlat(Tree &tree, int count)
{
    for (int i = 0; i < count; ++i)
        tree.add(nullptr, i);
}

template <typename Tree>
void fillDeep(Tree &tree)
{
    for (int i = 0; i < s_fanOut; ++i) {
        auto *top = tree.add(nullptr, i);
        for (int j = 0; j < s_fanOut; ++j) {
            auto *child = tree.add(top, j);
            for (int k = 0; k < s_fanOut; ++k)
                tree.add(child, k);
        }
    }
}
