#pragma once

// The guest's side of discovery: while it browses, it asks every two seconds (a broadcast on
// every IPv4 interface that can broadcast, and the loopback) and keeps the list of the hosts
// that answer. A host leaves the list when it says goodbye or has been silent for six seconds.

#include "DiscoveredHosts.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QUdpSocket>

namespace qx::discovery {

class DiscoveryBrowser : public QObject {
    Q_OBJECT
public:
    // Every two seconds on average. The exact moment wanders by up to half a second either way:
    // a host answers one address once a second, so two guests on one computer (or behind one
    // router) that asked in step would otherwise find that only one of them ever hears it.
    static constexpr int AskIntervalMs = 2000;
    static constexpr int AskJitterMs = 500;

    DiscoveryBrowser(const QString &version, QObject *parent = nullptr);

    // The port the hosts answer on.
    void setPort(quint16 port) { m_port = port; }
    quint16 port() const { return m_port; }
    // Asks on the loopback only (tests: see DiscoverySettings.h).
    void setLoopbackOnly(bool only) { m_loopbackOnly = only; }

    void start();
    // Stops asking and empties the list.
    void stop();
    bool isBrowsing() const { return m_browsing; }

    const QList<ListedHost> &hosts() const { return m_hosts.hosts(); }
    const QString &version() const { return m_version; }

signals:
    void hostsChanged();

private:
    void ask();
    void readAnswers();
    void age();
    void scheduleAging();

    QString m_version;
    quint16 m_port;
    bool m_loopbackOnly;
    bool m_browsing = false;
    QUdpSocket m_socket;
    QTimer m_askTimer;
    QTimer m_ageTimer; // fires when the host heard longest ago turns six seconds silent
    QElapsedTimer m_clock;
    DiscoveredHosts m_hosts;
};

} // namespace qx::discovery
