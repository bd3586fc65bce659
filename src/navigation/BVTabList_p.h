// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/BVTab_p.h"

#include <vector>

/// The tabs of a bar in their order, and which of them is current and which marked.
///
/// Both move along with their tab when others come and go before it.
class BVTabList
{
public:
    int count() const { return static_cast<int>(m_tabs.size()); }
    bool isIndex(int index) const { return index >= 0 && index < count(); }
    /// The tab at a valid index.
    BVTab &at(int index) { return m_tabs[static_cast<size_t>(index)]; }
    const BVTab &at(int index) const { return m_tabs[static_cast<size_t>(index)]; }
    /// The tab at any index; null for one out of range.
    BVTab *find(int index) { return isIndex(index) ? &at(index) : nullptr; }
    const BVTab *find(int index) const { return isIndex(index) ? &at(index) : nullptr; }
    /// -1 for a tab that is not there.
    int indexOf(int id) const;
    int indexOf(const QString &text) const;
    /// -1 out of range.
    int idAt(int index) const { return isIndex(index) ? at(index).m_id : -1; }

    /// Answers the index that the tab got; out of range it comes last.
    int insert(int index, BVTab tab);
    /// Takes out a tab at a valid index. A current or marked tab leaves -1 behind.
    void remove(int index);

    int current() const { return m_current; }
    void setCurrent(int index) { m_current = index; }
    int marked() const { return m_marked; }
    void setMarked(int index) { m_marked = index; }

    /// The first enabled tab beside @p index in the direction of @p step, 1 or -1; -1 for none.
    int nextEnabled(int index, int step) const;
    /// The tab to become current in the place of one that stood at @p index; -1 without tabs.
    int successor(int index) const;

    std::vector<BVTab>::iterator begin() { return m_tabs.begin(); }
    std::vector<BVTab>::iterator end() { return m_tabs.end(); }
    std::vector<BVTab>::const_iterator begin() const { return m_tabs.begin(); }
    std::vector<BVTab>::const_iterator end() const { return m_tabs.end(); }

private:
    std::vector<BVTab> m_tabs;
    int m_current = -1;
    int m_marked = -1;
    int m_lastId = 0;
};
