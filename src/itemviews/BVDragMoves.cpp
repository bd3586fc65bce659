// SPDX-License-Identifier: MIT
#include "itemviews/BVDragMoves_p.h"

#include <QApplication>
#include <QDropEvent>
#include <QScrollBar>
#include <QTreeView>

BVDragMoves::BVDragMoves(QTreeView *view, const Repeat &repeat)
    : m_repeat(repeat)
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { this->repeat(); });
    if (!view)
        return;
    for (const QScrollBar *bar : {view->verticalScrollBar(), view->horizontalScrollBar()})
        QObject::connect(bar, &QScrollBar::valueChanged, &m_timer, [this] { this->repeat(); });
}

BVDragMoves::~BVDragMoves()
{
    forget();
}

void BVDragMoves::note(const QTreeView *view, const QDropEvent &event)
{
    m_pos = event.pos();
    m_actions = event.possibleActions();
    m_mime = event.mimeData();
    watch(view->model());
}

void BVDragMoves::forget()
{
    m_timer.stop();
    m_mime.clear();
    m_isRefused = false;
    watch(nullptr);
}

void BVDragMoves::watch(const QAbstractItemModel *model)
{
    if (model == m_model)
        return;
    for (const QMetaObject::Connection &connection : std::as_const(m_connections))
        QObject::disconnect(connection);
    m_connections.clear();
    m_model = model;
    if (!model)
        return;
    const auto repeatSoon = [this] { m_timer.start(0); };
    m_connections = {
        QObject::connect(model, &QAbstractItemModel::rowsInserted, &m_timer, repeatSoon),
        QObject::connect(model, &QAbstractItemModel::rowsRemoved, &m_timer, repeatSoon),
        QObject::connect(model, &QAbstractItemModel::rowsMoved, &m_timer, repeatSoon),
        QObject::connect(model, &QAbstractItemModel::layoutChanged, &m_timer, repeatSoon),
        QObject::connect(model, &QAbstractItemModel::modelReset, &m_timer, repeatSoon),
    };
}

void BVDragMoves::repeat()
{
    if (!m_mime)
        return;
    QDragMoveEvent again(m_pos, m_actions, m_mime, Qt::LeftButton,
                         QApplication::keyboardModifiers());
    const Repeat repeat = m_repeat;
    repeat(&again);
}
