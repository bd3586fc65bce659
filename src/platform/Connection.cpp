// SPDX-License-Identifier: MIT
#include "platform/Connection.h"

namespace Signals {

Connection::Connection(const boost::signals2::connection &connection)
    : m_connection(connection)
{
}

bool Connection::isConnected() const
{
    return m_connection.connected();
}

void Connection::disconnect()
{
    m_connection.disconnect();
}

} // namespace Signals
