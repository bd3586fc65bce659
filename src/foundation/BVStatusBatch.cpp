// SPDX-License-Identifier: MIT
#include "foundation/BVStatusBatch.h"

#include "platform/PropertyChangeFilter.h"

namespace {

int s_depth = 0; // batches alive

}

BVStatusBatch::BVStatusBatch()
{
    ++s_depth;
}

BVStatusBatch::~BVStatusBatch()
{
    --s_depth;
}

bool BVStatusBatch::isActive()
{
    return s_depth > 0;
}

void BVStatusBatch::repolish(QWidget *widget)
{
    if (isActive())
        PropertyChangeFilter::repolishPost(widget, true);
    else
        PropertyChangeFilter::repolish(widget, true);
}
