// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Connection.h"

#include <boost/signals2/signal.hpp>

#include <memory>
#include <utility>

namespace Signals {

template <typename Signature>
class Signal;

/// A list of slots that are called in the order of their connection.
///
/// Copying a signal copies no connections: the copy starts without slots, so that objects which own
/// a signal stay copyable. While the signal is being emitted, slots may connect others, which take
/// part from the next emission on, disconnect any, which are then left out, and destroy the signal
/// itself, after which no further slot is called.
template <typename... Args>
class Signal<void(Args...)>
{
public:
    Signal() = default;
    Signal(const Signal &) {}
    Signal &operator=(const Signal &) { return *this; }
    ~Signal() { m_signal->disconnect_all_slots(); }

    /// Calls @p slot at every emission until the returned connection is destroyed.
    template <typename Slot>
    [[nodiscard]] Connection connect(Slot &&slot)
    {
        return Connection(m_signal->connect(std::forward<Slot>(slot)));
    }

    void operator()(Args... args) const
    {
        const auto signal = m_signal; // a slot may destroy this object
        (*signal)(args...);
    }

private:
    struct NoGroups
    { // the order of connection alone counts
        bool operator()(int, int) const { return false; }
    };
    using BoostSignal =
        boost::signals2::signal<void(Args...), boost::signals2::optional_last_value<void>, int,
                                NoGroups>;

    std::shared_ptr<BoostSignal> m_signal = std::make_shared<BoostSignal>();
};

} // namespace Signals
