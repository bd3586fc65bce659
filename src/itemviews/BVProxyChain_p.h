// SPDX-License-Identifier: MIT
#pragma once

#include <QModelIndex>
#include <QVector>

class QAbstractItemModel;

/// Models that stand behind proxy models.
namespace BVProxyChain {

/// The model itself and those behind it, the one that is no proxy last. Null ends the list early.
QVector<QAbstractItemModel *> models(QAbstractItemModel *model);

/// The cell itself, behind all proxy models.
QModelIndex mapToSource(QModelIndex index);
/// The cell of @p model that shows a cell of a model behind it; invalid if there is none.
QModelIndex mapFromSource(const QModelIndex &sourceIndex, QAbstractItemModel *model);

} // namespace BVProxyChain
