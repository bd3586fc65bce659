// SPDX-License-Identifier: MIT
#pragma once

#include <QSortFilterProxyModel>

/// Shows those results that a text and a choice let through, with the rows above them, and sorts
/// them: rows of the first column in the order of the process, numbers by value.
class ResultsFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit ResultsFilter(QObject *parent = nullptr);

    /// Only values beyond their limits, or all.
    void setOnlyBeyond(bool only);
    bool isFiltering() const;

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    bool m_onlyBeyond = false;
};
