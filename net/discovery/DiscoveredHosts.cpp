#include "DiscoveredHosts.h"

#include <algorithm>

namespace qx::discovery {

bool DiscoveredHosts::take(const Datagram &datagram, const QString &address, qint64 nowMs)
{
    const auto it = std::find_if(m_hosts.begin(), m_hosts.end(),
                                 [&](const ListedHost &h) { return h.address == address; });
    switch (datagram.kind) {
    case Kind::Query:
        return false;
    case Kind::Goodbye:
        if (it == m_hosts.end())
            return false;
        m_hosts.erase(it);
        return true;
    case Kind::Answer:
        break;
    }
    ListedHost heard{address, datagram.name, datagram.players, datagram.freeSeats, datagram.version, nowMs};
    if (it == m_hosts.end()) {
        if (m_hosts.size() >= MaxHosts)
            return false;
        m_hosts.append(heard);
        return true;
    }
    const bool changed = it->name != heard.name || it->players != heard.players
                         || it->freeSeats != heard.freeSeats || it->version != heard.version;
    *it = heard;
    return changed;
}

bool DiscoveredHosts::expire(qint64 nowMs)
{
    return m_hosts.removeIf([nowMs](const ListedHost &h) { return nowMs - h.lastHeardMs >= SilenceMs; }) > 0;
}

} // namespace qx::discovery
