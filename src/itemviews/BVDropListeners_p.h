// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/DragDropInfo.h"

#include <functional>
#include <utility>
#include <vector>

class QObject;

/// Functions to be called after drops, which may remove themselves and one another.
class BVDropListeners
{
public:
    using Listener = std::function<void(const DragDropInfo &info)>;
    using GetInfo = std::function<DragDropInfo()>;

    /// Gives an id, never 0.
    int add(const Listener &listener);
    void remove(int id);
    /// Calls all in the order of their addition, with what is so then. @p owner owns this; its
    /// death ends the calls.
    void notify(const QObject *owner, const GetInfo &info) const;

private:
    bool contains(int id) const;

    std::vector<std::pair<int, Listener>> m_listeners; // with their ids
    int m_lastId = 0;
};
