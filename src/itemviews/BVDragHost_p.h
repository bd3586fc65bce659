// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/BVDragAndDropManager.h"

/// What tree views of different classes do for their drag-and-drop managers.
namespace BVDragHost {

/// The manager that a view of the library says to have, or one that another view is parent of.
BVDragAndDropManager *managerOf(const QTreeView *view);
/// Tells a view of the library.
void tellState(QTreeView *view, BVDragAndDropManager::DragState state);

/// A manager that scrolls the view and paints rows as the view does. A child of the view.
BVDragAndDropManager *makeManager(QTreeView *view);
/// To be called by a view that is being destroyed, whose managers must not see more of its events.
void deleteManagers(QTreeView *view);
/// Brings the view into the state of dragging, or out of it, back to editing or none.
void setDraggingState(QTreeView *view, BVDragAndDropManager::DragState state, bool isEditing);
/// The press in the view has become a drag that is over; its release is not for the view.
void endPress(QTreeView *view);
/// Keeps the toolkit's own drop indicator away while a manager works for the view.
class IndicatorHider
{
public:
    IndicatorHider(QTreeView *view, const BVDragAndDropManager *manager);
    ~IndicatorHider();
    IndicatorHider(const IndicatorHider &) = delete;
    IndicatorHider &operator=(const IndicatorHider &) = delete;

private:
    QTreeView *m_view;
    bool m_wasShown;
};

/// Paints what the manager has to show over the rows; null has nothing.
void paint(QTreeView *view, BVDragAndDropManager *manager);

} // namespace BVDragHost
