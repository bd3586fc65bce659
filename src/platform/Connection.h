// SPDX-License-Identifier: MIT
#pragma once

#include "BVMServiceSignalsExport.h"

#include <boost/signals2/connection.hpp>

namespace Signals {

/// A link between a Signal and one slot. Destroying it disconnects the slot.
///
/// Movable, not copyable; a default-constructed one links nothing. It may outlive the signal, and a
/// slot may disconnect or destroy its own connection while it runs.
class BVMSERVICESIGNALS_EXPORT Connection
{
public:
    Connection() = default;
    explicit Connection(const boost::signals2::connection &connection);
    Connection(Connection &&other) noexcept = default;
    /// Disconnects what was held before.
    Connection &operator=(Connection &&other) noexcept = default;
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
    ~Connection() = default;

    bool isConnected() const;
    void disconnect();

private:
    boost::signals2::scoped_connection m_connection;
};

} // namespace Signals
