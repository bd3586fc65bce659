// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

class QWidget;

/// While an object of this class lives, status changes re-apply the style once, at the next turn of
/// the event loop, instead of at each change.
///
/// For code that changes many flags in one go, such as loading a document into a form: flags, style
/// properties and change events are up to date at once, only the new colours wait. Scopes may nest.
/// GUI thread only.
class BVWIDGETS_EXPORT BVStatusBatch
{
public:
    BVStatusBatch();
    ~BVStatusBatch();
    BVStatusBatch(const BVStatusBatch &) = delete;
    BVStatusBatch &operator=(const BVStatusBatch &) = delete;

    static bool isActive();
    /// Re-applies the style to @p widget and its children: posted while a batch lives, else at
    /// once.
    static void repolish(QWidget *widget);
};
