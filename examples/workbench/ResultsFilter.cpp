// SPDX-License-Identifier: MIT
#include "ResultsFilter.h"

#include "ResultsModel.h"

#include <BVWidgetStatus.h>

ResultsFilter::ResultsFilter(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    setRecursiveFilteringEnabled(true);
    setFilterCaseSensitivity(Qt::CaseInsensitive);
}

void ResultsFilter::setOnlyBeyond(bool only)
{
    m_onlyBeyond = only;
    invalidateFilter();
}

bool ResultsFilter::isFiltering() const
{
    return m_onlyBeyond || !filterRegExp().isEmpty();
}

bool ResultsFilter::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    if (!QSortFilterProxyModel::filterAcceptsRow(row, parent))
        return false;
    const QModelIndex index = sourceModel()->index(row, ResultsModel::Result, parent);
    return !m_onlyBeyond || (!sourceModel()->hasChildren(index) &&
                             getWidgetStatus(index).testFlag(BVWidgetStatus::NeedInput));
}

bool ResultsFilter::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    if (left.column() == ResultsModel::Result)
        return left.row() < right.row();
    if (left.column() == ResultsModel::Show)
        return left.data(Qt::CheckStateRole).toInt() < right.data(Qt::CheckStateRole).toInt();
    return QSortFilterProxyModel::lessThan(left, right);
}
