// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/BVTreeViewModel.h"

/// Tells whether an item, and its model itself, have outlived the slots that were called since.
///
/// Watches stand on the stack, so that the innermost one goes first.
class BVModelWatch
{
public:
    /// Without a model there is nothing that could live.
    BVModelWatch(BVTreeViewModel *model, const BVTreeViewItem *item);
    ~BVModelWatch()
    {
        if (m_model)
            m_model->m_watches = m_outer;
    }
    BVModelWatch(const BVModelWatch &) = delete;
    BVModelWatch &operator=(const BVModelWatch &) = delete;

    bool isModelAlive() const { return m_model != nullptr; }
    /// Whether rows have kept their places; false when the model is gone.
    bool isStructureKept() const { return m_model && m_structure == m_model->m_structure; }
    /// Also false for an item that has been taken out of the model.
    bool isItemAlive() const { return isStructureKept() || isItemFound(); }
    /// To be called when the model goes.
    static void release(BVTreeViewModel *model);

private:
    bool isItemFound() const;

    BVTreeViewModel *m_model; // null when it is gone
    BVModelWatch *m_outer;
    quint64 m_structure;
    qint64 m_id;
};
