#pragma once

// The guest's list of the hosts that answered: one row per host address, refreshed by each
// answer, dropped by a goodbye or after six seconds without an answer. A host of another
// version stays listed but cannot be chosen. The time is handed in (milliseconds of a steady
// clock), so that the aging can be tried without waiting.

#include "DiscoveryDatagram.h"

#include <QList>
#include <QString>

namespace qx::discovery {

struct ListedHost {
    QString address; // the sender of the answer, as the guest connects to it
    QString name;
    int players = 0;
    int freeSeats = 0;
    QString version;
    qint64 lastHeardMs = 0;
    // Another version cannot join this copy's game, nor this copy its.
    bool joinable(const QString &ownVersion) const { return version == ownVersion; }
};

class DiscoveredHosts {
public:
    static constexpr qint64 SilenceMs = 6000;
    // A list of this many hosts is full: further strangers are not added.
    static constexpr int MaxHosts = 64;

    // Takes in a datagram from address; true when the list changed.
    bool take(const Datagram &datagram, const QString &address, qint64 nowMs);
    // Drops the hosts silent for six seconds or more; true when the list changed.
    bool expire(qint64 nowMs);
    void clear() { m_hosts.clear(); }

    const QList<ListedHost> &hosts() const { return m_hosts; }

private:
    QList<ListedHost> m_hosts;
};

} // namespace qx::discovery
