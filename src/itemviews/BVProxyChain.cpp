// SPDX-License-Identifier: MIT
#include "itemviews/BVProxyChain_p.h"

#include <QAbstractProxyModel>

QVector<QAbstractItemModel *> BVProxyChain::models(QAbstractItemModel *model)
{
    QVector<QAbstractItemModel *> chain;
    while (model) {
        chain.append(model);
        const auto *proxy = qobject_cast<QAbstractProxyModel *>(model);
        model = proxy ? proxy->sourceModel() : nullptr;
    }
    return chain;
}

QModelIndex BVProxyChain::mapToSource(QModelIndex index)
{
    while (const auto *proxy = qobject_cast<const QAbstractProxyModel *>(index.model()))
        index = proxy->mapToSource(index);
    return index;
}

QModelIndex BVProxyChain::mapFromSource(const QModelIndex &sourceIndex, QAbstractItemModel *model)
{
    if (!model || !sourceIndex.isValid() || sourceIndex.model() == model)
        return model ? sourceIndex : QModelIndex();
    const auto *proxy = qobject_cast<QAbstractProxyModel *>(model);
    if (!proxy)
        return QModelIndex();
    const QModelIndex behind = mapFromSource(sourceIndex, proxy->sourceModel());
    return behind.isValid() ? proxy->mapFromSource(behind) : QModelIndex();
}
