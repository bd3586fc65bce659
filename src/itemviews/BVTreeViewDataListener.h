// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

class QModelIndex;

/// Is told which data of a BVTreeView's model have changed, before the view itself takes notice.
///
/// Registered with BVTreeView::addDataListener(); neither owns the other, and a listener has to be
/// removed before it is destroyed.
class BVWIDGETS_EXPORT BVTreeViewDataListener
{
public:
    /// The role of a change for which the model has named no roles: any may have changed.
    static constexpr int s_anyRole = -1;

    virtual ~BVTreeViewDataListener();

    /// Called once for each changed role. The listener may remove itself or others.
    virtual void onDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                               int role) = 0;
};
