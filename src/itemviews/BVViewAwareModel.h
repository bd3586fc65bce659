// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

class BVTreeView;

/// What a model implements, beside QAbstractItemModel, to know the tree views that show it,
/// directly or through proxy models.
///
/// A view is announced when the model is set on it, and taken back when another one is set or the
/// view is destroyed; of a view that is being destroyed only the address is to be used.
class BVWIDGETS_EXPORT BVViewAwareModel
{
public:
    virtual ~BVViewAwareModel();

    virtual void attachView(BVTreeView *view) = 0;
    virtual void detachView(BVTreeView *view) = 0;
};
