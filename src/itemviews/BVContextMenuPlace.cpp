// SPDX-License-Identifier: MIT
#include "itemviews/BVContextMenuPlace_p.h"

#include <QContextMenuEvent>
#include <QPointer>
#include <QStyle>
#include <QTreeView>

bool BVContextMenuPlace::isSomewhere(const QPoint &place)
{
    return place.x() >= 0 && place.y() >= 0;
}

/// For the keys, the event tells the middle of the widget if no cell is current.
QPoint BVContextMenuPlace::of(QTreeView &view, const QContextMenuEvent &event)
{
    if (event.reason() != QContextMenuEvent::Keyboard)
        return event.pos();
    const QPointer<QTreeView> guard(&view);
    if (view.currentIndex().isValid())
        view.scrollTo(view.currentIndex()); // opens branches
    if (!guard)
        return s_nowhere;
    const QRect cell = view.visualRect(view.currentIndex()) & view.viewport()->rect();
    return cell.isEmpty() ? s_nowhere : cell.center();
}

QPoint BVContextMenuPlace::onScreen(const QTreeView &view, const QPoint &place)
{
    const QRect rect = view.viewport()->rect();
    const QPoint corner = QStyle::visualPos(view.layoutDirection(), rect, rect.topLeft());
    return view.viewport()->mapToGlobal(isSomewhere(place) ? place : corner);
}
