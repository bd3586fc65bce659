// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeModelLink_p.h"

#include "itemviews/BVProxyChain_p.h"
#include "itemviews/BVTreeView.h"
#include "itemviews/BVTreeViewDataListener.h"
#include "itemviews/BVViewAwareModel.h"

#include <QAbstractProxyModel>
#include <QPersistentModelIndex>

BVTreeModelLink::BVTreeModelLink(BVTreeView *view)
    : m_view(view)
{
}

BVTreeModelLink::~BVTreeModelLink()
{
    detach();
}

void BVTreeModelLink::attach()
{
    QAbstractItemModel *model = m_view->model();
    if (!model)
        return;
    using Model = QAbstractItemModel;
    const auto onRows = [this] { m_onRowsChanged(); };
    const auto onOrder = [this] { m_onOrderChanged(); };
    m_connections = {
        QObject::connect(model, &Model::layoutChanged, m_view, onOrder),
        QObject::connect(model, &Model::headerDataChanged, m_view, onOrder),
        QObject::connect(model, &Model::rowsInserted, m_view, onRows),
        QObject::connect(model, &Model::rowsRemoved, m_view, onRows),
        QObject::connect(model, &Model::rowsMoved, m_view, onRows),
        QObject::connect(model, &Model::columnsInserted, m_view, onRows),
        QObject::connect(model, &Model::columnsRemoved, m_view, onRows),
        QObject::connect(model, &Model::modelReset, m_view, onRows),
    };
    attachToSource();
}

void BVTreeModelLink::attachToSource()
{
    const QVector<QAbstractItemModel *> models = BVProxyChain::models(m_view->model());
    for (QAbstractItemModel *model : models) {
        if (auto *proxy = qobject_cast<QAbstractProxyModel *>(model))
            m_proxyConnections.append(QObject::connect(proxy,
                                                       &QAbstractProxyModel::sourceModelChanged,
                                                       m_view, [this] { onSourceChanged(); }));
    }
    QAbstractItemModel *source = models.isEmpty() ? nullptr : models.constLast();
    if (auto *aware = dynamic_cast<BVViewAwareModel *>(source)) {
        m_attachedModel = source;
        aware->attachView(m_view);
    }
}

void BVTreeModelLink::onSourceChanged()
{
    detachFromSource();
    attachToSource();
}

void BVTreeModelLink::detach()
{
    for (const QMetaObject::Connection &connection : qAsConst(m_connections))
        QObject::disconnect(connection);
    m_connections.clear();
    detachFromSource();
}

void BVTreeModelLink::detachFromSource()
{
    for (const QMetaObject::Connection &connection : qAsConst(m_proxyConnections))
        QObject::disconnect(connection);
    m_proxyConnections.clear();
    if (auto *aware = dynamic_cast<BVViewAwareModel *>(m_attachedModel.data())) {
        m_attachedModel = nullptr;
        aware->detachView(m_view);
    }
}

void BVTreeModelLink::addListener(BVTreeViewDataListener *listener)
{
    if (listener && !m_listeners.contains(listener))
        m_listeners.append(listener);
}

void BVTreeModelLink::removeListener(BVTreeViewDataListener *listener)
{
    m_listeners.removeAll(listener);
}

bool BVTreeModelLink::notifyListeners(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                      const QVector<int> &roles)
{
    if (m_listeners.isEmpty())
        return true;
    const QPersistentModelIndex first = topLeft;
    const QPersistentModelIndex last = bottomRight;
    const QVector<int> told =
        roles.isEmpty() ? QVector<int>{BVTreeViewDataListener::s_anyRole} : roles;
    const QPointer<BVTreeView> view(m_view);
    const QVector<BVTreeViewDataListener *> listeners = m_listeners;
    for (BVTreeViewDataListener *listener : listeners) {
        for (const int role : told) {
            if (m_listeners.contains(listener)) // none has removed it
                listener->onDataChanged(first, last, role);
            if (!view || first != topLeft || last != bottomRight)
                return false;
        }
    }
    return true;
}
