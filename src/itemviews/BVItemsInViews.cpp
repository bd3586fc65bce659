// SPDX-License-Identifier: MIT
// The functions of BVTreeViewModel.h that look at items through a view.
#include "itemviews/BVProxyChain_p.h"
#include "itemviews/BVTreeViewModel.h"

#include <QItemSelectionModel>
#include <QTreeView>

namespace {

/// The item's first cell in the view's model.
QModelIndex viewIndex(const BVTreeViewItem *item, const QTreeView *view)
{
    if (!item || !item->model() || !view)
        return QModelIndex();
    return BVProxyChain::mapFromSource(item->model()->index(item, 0), view->model());
}

} // namespace

bool isItemExpanded(BVTreeViewItem *item, QTreeView *view)
{
    const QModelIndex index = viewIndex(item, view);
    return index.isValid() && view->isExpanded(index);
}

bool isItemHidden(BVTreeViewItem *item, QTreeView *view)
{
    const QModelIndex index = viewIndex(item, view);
    return index.isValid() && view->isRowHidden(index.row(), index.parent());
}

bool isItemSelected(BVTreeViewItem *item, QTreeView *view)
{
    const QModelIndex index = viewIndex(item, view);
    return index.isValid() && view->selectionModel()->isSelected(index);
}

void setItemExpanded(BVTreeViewItem *item, QTreeView *view, bool expanded)
{
    const QModelIndex index = viewIndex(item, view);
    if (index.isValid())
        view->setExpanded(index, expanded);
}

void setCurrentItem(BVTreeViewItem *item, QTreeView *view)
{
    const QModelIndex index = viewIndex(item, view);
    if (view && (index.isValid() || !item))
        view->setCurrentIndex(index);
}
