#pragma once

// Where discovery happens. Players always use UDP port 1099 and ask on every interface. Tests
// name another port in QX_DISCOVERY_PORT (0: the system picks one), because tests run side by
// side on one machine and each must hear only its own hosts; and QX_DISCOVERY_LOOPBACK=1 keeps
// their queries on the loopback, so that no test ever talks to the network the machine is on.

#include "DiscoveryDatagram.h"

#include <QtGlobal>

namespace qx::discovery {

inline quint16 portFromEnvironment()
{
    bool ok = false;
    const int port = qEnvironmentVariableIntValue("QX_DISCOVERY_PORT", &ok);
    return ok && port >= 0 && port <= 65535 ? quint16(port) : DiscoveryPort;
}

inline bool loopbackOnlyFromEnvironment() { return qEnvironmentVariableIntValue("QX_DISCOVERY_LOOPBACK") == 1; }

} // namespace qx::discovery
