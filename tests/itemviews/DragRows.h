// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/BVDragAndDropManager.h"
#include "itemviews/BVTreeView.h"
#include "itemviews/BVTreeViewModel.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>

/// A tree whose owner moves rows by their names: "a(b!,c),d-" has the rows a and d, and below a the
/// rows b, which takes drops, and c; d cannot be dragged.
struct DragTree
{
    static constexpr char s_format[] = "application/x-rows";

    explicit DragTree(const QString &tree)
    {
        m_model.setColumnCount(2);
        build(tree);
        m_view->setModel(&m_model);
        m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
        m_view->expandAll();
        m_view->setDragEnabled(true);
        m_view->resize(300, 300);
        QObject::connect(
            m_manager, &BVDragAndDropManager::sigPrepareDrag, m_manager,
            [](const QList<QModelIndex> &rows, QMimeData &mime, QPixmap &, QList<QModelIndex> &) { mime.setData(s_format, namesOf(rows).toUtf8()); });
    }
    ~DragTree() { delete m_view; }

    void build(const QString &tree)
    {
        QVector<BVTreeViewItem *> path{m_model.invisibleRootItem()};
        BVTreeViewItem *last = nullptr;
        for (const QChar c : tree) {
            if (c == '(') {
                path.append(last);
            } else if (c == ')') {
                path.removeLast();
            } else if (c == '!') {
                last->setFlags(last->flags() | Qt::ItemIsDropEnabled);
            } else if (c == '-') {
                last->setFlags(last->flags() & ~Qt::ItemIsDragEnabled);
            } else if (c.isLetter()) {
                last = new BVTreeViewItem({{{Qt::DisplayRole, QString(c)}}, {{Qt::DisplayRole, 1.0}}}, path.constLast());
                last->setFlags((last->flags() | Qt::ItemIsDragEnabled) & ~Qt::ItemIsDropEnabled);
            }
        }
    }

    static QString namesOf(const QModelIndexList &rows)
    {
        QString names;
        for (const QModelIndex &row : rows)
            names += row.sibling(row.row(), 0).data().toString();
        return names;
    }

    QModelIndex cell(const QString &name, int column = 0)
    {
        for (BVTreeViewItem *item : m_model.getAllItems()) {
            if (item->text(0) == name)
                return m_model.index(item, column);
        }
        return QModelIndex();
    }

    void select(const QString &names)
    {
        m_view->clearSelection();
        for (const QChar name : names)
            m_view->selectionModel()->select(cell(name), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }

    /// A point in the row; 0 is its top, 1 its bottom.
    QPoint at(const QString &name, double height = 0.5, int column = 0)
    {
        const QRect rect = m_view->visualRect(cell(name, column));
        return QPoint(rect.center().x(), rect.top() + qRound((rect.height() - 1) * height));
    }

    BVTreeViewModel m_model;
    QPointer<BVTreeView> m_view = new BVTreeView;
    QPointer<BVDragAndDropManager> m_manager = m_view->initDragAndDropManager();
};

/// "a.2", for the parent and the row at which rows are to be inserted; ".-1" is the end.
inline QString placeOf(const DragDropInfo &info)
{
    return info.dropParent().data().toString() + '.' + QString::number(info.dropRow());
}

inline void sendMove(QWidget *widget, const QPoint &pos, Qt::MouseButtons buttons = Qt::LeftButton)
{
    QMouseEvent move(QEvent::MouseMove, pos, Qt::NoButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}

template <typename Event>
bool send(QWidget *widget, const QPoint &pos, const QMimeData *mime, Qt::DropActions actions = Qt::MoveAction)
{
    Event event(pos, actions, mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
    return event.isAccepted();
}
