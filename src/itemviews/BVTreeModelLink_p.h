// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QVector>

#include <functional>

class BVTreeView;
class BVTreeViewDataListener;
class QAbstractItemModel;
class QModelIndex;

/// What ties a tree view to its model beside the toolkit's own connections.
class BVTreeModelLink
{
public:
    explicit BVTreeModelLink(BVTreeView *view);
    ~BVTreeModelLink();

    /// Follows the view's model; tells the one before, and it, if they want to know their views.
    void attach();
    void detach();

    void addListener(BVTreeViewDataListener *listener);
    void removeListener(BVTreeViewDataListener *listener);
    /// False if a listener has moved or removed the cells, or deleted the view.
    bool notifyListeners(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                         const QVector<int> &roles);

    std::function<void()> m_onRowsChanged;  // rows or columns were added, removed or moved
    std::function<void()> m_onOrderChanged; // or headers have changed

private:
    void attachToSource();
    void detachFromSource();
    void onSourceChanged();

    BVTreeView *m_view;
    QVector<BVTreeViewDataListener *> m_listeners;
    QPointer<QAbstractItemModel> m_attachedModel; // that knows of the view
    QVector<QMetaObject::Connection> m_connections;
    QVector<QMetaObject::Connection> m_proxyConnections; // which may change their sources
};
