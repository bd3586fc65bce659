// SPDX-License-Identifier: MIT
#pragma once

class QPoint;
class QTreeView;
class TreeViewCopyHandler;

/// The copying of a tree view and the context menu that offers it, for views of different classes.
class BVTreeCopying
{
public:
    explicit BVTreeCopying(QTreeView *view)
        : m_view(view)
    {
    }

    /// Null until something has been enabled.
    TreeViewCopyHandler *handler() const { return m_handler; }
    void enableAll(bool enable);
    bool isAllEnabled() const;
    void enableSelected(bool enable);
    bool isSelectedEnabled() const;
    void selectionModelChanged();
    /// Opens the menu for a click at @p position in the viewport, which may be the end of the view.
    void showMenu(const QPoint &position) const;

private:
    void makeHandler();

    QTreeView *m_view;                        // owns this
    TreeViewCopyHandler *m_handler = nullptr; // child of the view
};
