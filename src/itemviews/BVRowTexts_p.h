// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

class BVTableText;
class BVTreeViewItem;
class QModelIndex;

/// Reads what a model displays in a row, as texts.
///
/// From the rows of a BVTreeViewModel the values are taken without an index and a copy for each
/// cell, unless a derived class may have other ones to show.
class BVRowTexts
{
public:
    /// Adds the texts in the given columns of a row to the table.
    static void append(BVTableText &table, const QModelIndex &row, const QVector<int> &columns);

private:
    static void append(BVTableText &table, const BVTreeViewItem &item, const QVector<int> &columns);
};
