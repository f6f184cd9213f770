#pragma once

#include <QCoreApplication>
#include <QString>

namespace qx::lobby {

// The seat (or player-count index) a lobby message names: the one digit after its code letter,
// or -1 when there is none. Messages come from other computers, so nothing is trusted.
inline int digitAfterCode(const QString &message)
{
    if (message.size() < 2)
        return -1;
    const QChar c = message[1];
    return c >= QLatin1Char('0') && c <= QLatin1Char('9') ? c.unicode() - '0' : -1;
}

// The status a host shows while its lobby is open.
inline QString connectionsStatus(int connections)
{
    return QCoreApplication::translate("qx::NewGameDialog", "Network Connections: %1").arg(connections);
}

} // namespace qx::lobby
