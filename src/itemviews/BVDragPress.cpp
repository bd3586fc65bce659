// SPDX-License-Identifier: MIT
#include "itemviews/BVDragPress_p.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTreeView>

#include <utility>

namespace {

/// Where the branches are drawn is no row.
bool hitsRow(const QTreeView *view, const QPoint &pos)
{
    return view->model() && view->visualRect(view->indexAt(pos)).contains(pos);
}

bool isLeftButton(const QEvent *event)
{
    return static_cast<const QMouseEvent *>(event)->button() == Qt::LeftButton;
}

} // namespace

void BVDragPress::begin(const QTreeView *view, const QMouseEvent *event)
{
    m_isPressed = hitsRow(view, event->pos());
    m_position = event->pos();
}

bool BVDragPress::becomesDrag(const QMouseEvent *event)
{
    // One pixel earlier than the toolkit.
    const int way = (m_position - event->pos()).manhattanLength();
    if (!m_isPressed || way < QApplication::startDragDistance() - 1)
        return false;
    m_isPressed = false;
    return true;
}

bool BVDragPress::endsDrag(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_wasDragged = m_wasDragged && !isLeftButton(event);
        return false;
    case QEvent::MouseButtonRelease:
        return isLeftButton(event) && std::exchange(m_wasDragged, false);
    default:
        return false;
    }
}
