// SPDX-License-Identifier: MIT
#include "itemviews/BVRowTexts_p.h"

#include "itemviews/BVTableText_p.h"
#include "itemviews/BVTreeViewModel.h"

#include <typeinfo>

void BVRowTexts::append(BVTableText &table, const QModelIndex &row, const QVector<int> &columns)
{
    const QAbstractItemModel &model = *row.model();
    if (typeid(model) == typeid(BVTreeViewModel)) {
        append(table, *static_cast<const BVTreeViewModel &>(model).item(row), columns);
        return;
    }
    const QModelIndex parent = row.parent();
    for (const int column : columns) // a row may have fewer
        table.addCell(model.index(row.row(), column, parent).data(Qt::DisplayRole));
}

void BVRowTexts::append(BVTableText &table, const BVTreeViewItem &item, const QVector<int> &columns)
{
    const bool isPlain = item.isPlain();
    for (const int column : columns) {
        if (!isPlain)
            table.addCell(item.data(column, Qt::DisplayRole));
        else if (const QVariant *value = item.find(column, Qt::DisplayRole))
            table.addCell(*value);
        else
            table.addCell(QString());
    }
}
