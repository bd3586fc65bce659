// SPDX-License-Identifier: MIT
#pragma once

#include <QMimeData>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QTimer>
#include <QVector>

#include <functional>

class QAbstractItemModel;
class QDragMoveEvent;
class QDropEvent;
class QTreeView;

/// Keeps the last move of a drag over a view and repeats it when another row may have come under
/// the pointer at rest: the view scrolls, or the rows change.
class BVDragMoves
{
public:
    using Repeat = std::function<void(QDragMoveEvent *event)>;

    /// The function may be the end of this.
    BVDragMoves(QTreeView *view, const Repeat &repeat);
    ~BVDragMoves();

    void note(const QTreeView *view, const QDropEvent &event);
    /// Nothing is over the view any more.
    void forget();
    void repeat();

    /// Whether the move has been refused, and with it what the pointer shows.
    bool isRefused() const { return m_isRefused; }
    void setRefused(bool refused) { m_isRefused = refused; }

private:
    void watch(const QAbstractItemModel *model);

    Repeat m_repeat;
    QPoint m_pos;
    Qt::DropActions m_actions;
    QPointer<const QMimeData> m_mime;
    bool m_isRefused = false;
    QPointer<const QAbstractItemModel> m_model;     // that is watched
    QVector<QMetaObject::Connection> m_connections; // to it
    QTimer m_timer;                                 // not amidst the change
};
