// SPDX-License-Identifier: MIT
#include "itemviews/BVModelWatch_p.h"

BVModelWatch::BVModelWatch(BVTreeViewModel *model, const BVTreeViewItem *item)
    : m_model(model)
    , m_outer(model ? model->m_watches : nullptr)
    , m_structure(model ? model->m_structure : 0)
    , m_id(item->id())
{
    if (m_model)
        m_model->m_watches = this;
}

bool BVModelWatch::isItemFound() const
{
    return m_model && (m_id == m_model->m_headerItem->id() || m_model->itemOfId(m_id));
}

void BVModelWatch::release(BVTreeViewModel *model)
{
    for (BVModelWatch *watch = model->m_watches; watch; watch = watch->m_outer)
        watch->m_model = nullptr;
}
