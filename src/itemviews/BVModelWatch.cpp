// SPDX-License-Identifier: MIT
#include "itemviews/BVModelWatch_p.h"

bool BVModelWatch::isItemFound() const
{
    return m_model && (m_id == m_model->m_headerItem->id() || m_model->itemOfId(m_id));
}

void BVModelWatch::release(BVTreeViewModel *model)
{
    for (BVModelWatch *watch = model->m_watches; watch; watch = watch->m_outer)
        watch->m_model = nullptr;
}
