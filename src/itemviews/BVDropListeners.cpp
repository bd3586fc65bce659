// SPDX-License-Identifier: MIT
#include "itemviews/BVDropListeners_p.h"

#include <algorithm>

int BVDropListeners::add(const Listener &listener)
{
    m_listeners.emplace_back(++m_lastId, listener);
    return m_lastId;
}

void BVDropListeners::remove(int id)
{
    const auto isIt = [id](const auto &entry) { return entry.first == id; };
    m_listeners.erase(std::remove_if(m_listeners.begin(), m_listeners.end(), isIt),
                      m_listeners.end());
}

bool BVDropListeners::contains(int id) const
{
    const auto isIt = [id](const auto &entry) { return entry.first == id; };
    return std::any_of(m_listeners.begin(), m_listeners.end(), isIt);
}

void BVDropListeners::notify(const QObject *owner, const GetInfo &info) const
{
    const QPointer<const QObject> guard(owner);
    const auto listeners = m_listeners;
    for (const auto &listener : listeners) {
        if (!guard)
            return;
        if (listener.second && contains(listener.first))
            listener.second(info());
    }
}
