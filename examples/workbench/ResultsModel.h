// SPDX-License-Identifier: MIT
#pragma once

#include "ResultsData.h"

#include <BVTreeViewModel.h>

/// The tree of results: operations, their steps, and the ranges of the variables at each step.
///
/// Values are held in the units of ResultsData. A variable beyond its limit carries NeedInput, one
/// near it StandardChanged; steps and operations carry the worst of what is below them. A limit
/// that the user has changed carries UserEdit. Tool tips say why. Changes are told in delayed mode,
/// so that the header's check box costs one notification for each list of rows.
class ResultsModel : public BVTreeViewModel
{
    Q_OBJECT

public:
    enum Column { Result, Minimum, Maximum, Limit, Show, ColumnCount };
    /// What kind of value a row has, in the first column: s_time, s_stroke, or a variable's index.
    static constexpr int s_kindRole = Qt::UserRole;
    static constexpr int s_time = -1;
    static constexpr int s_stroke = -2;

    explicit ResultsModel(QObject *parent = nullptr);

    /// Replaces all rows.
    void setResults(const ResultOperations &operations);
    /// How many rows there are, and how many values lie beyond their limits.
    QString summary() const;

Q_SIGNALS:
    void summaryChanged();

private:
    void onItemsChanged(const QVector<BVTreeViewItem *> &items, int column,
                        const QVector<int> &roles);

    int m_rows = 0;
    int m_beyond = 0;
};
