#pragma once

// The host's side of discovery: while its lobby is open, a host answers each query on the
// discovery port with what a guest's list shows, at most once per sender address and second,
// and ignores everything else that arrives. When the lobby closes it says goodbye to the guests
// that asked lately, so that they drop it from their lists at once.

#include "DiscoveryRateLimiter.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QList>
#include <QObject>
#include <QUdpSocket>

#include <functional>

namespace qx::discovery {

class DiscoveryResponder : public QObject {
    Q_OBJECT
public:
    // What the lobby tells: the same three facts as the guest's list.
    struct Lobby {
        int players = 0;
        int freeSeats = 0;
        QString name;
    };

    DiscoveryResponder(const QString &version, QObject *parent = nullptr);
    // A host that quits with its lobby open says goodbye too.
    ~DiscoveryResponder() override;

    void setPort(quint16 port) { m_port = port; }
    quint16 port() const { return m_port; }
    // Asked for the lobby as it stands at each answer.
    void setLobby(std::function<Lobby()> lobby) { m_lobby = std::move(lobby); }

    // Starts answering; false when the port cannot be had (the game can still be joined by
    // typing the host's address, so that is no failure to tell).
    bool start();
    // Says goodbye to the recent askers and stops answering.
    void stop();
    bool isAnswering() const { return m_socket.state() == QAbstractSocket::BoundState; }
    // The port actually bound (the one the system picked for port 0).
    quint16 boundPort() const { return m_socket.localPort(); }

private:
    struct Asker {
        QHostAddress address;
        quint16 port = 0;
        qint64 lastMs = 0;
    };
    void readQueries();
    void rememberAsker(const QHostAddress &address, quint16 port, qint64 nowMs);

    QString m_version;
    quint16 m_port;
    std::function<Lobby()> m_lobby;
    QUdpSocket m_socket;
    DiscoveryRateLimiter m_limiter;
    QElapsedTimer m_clock;
    QList<Asker> m_askers; // bounded: the guests that may be showing this host
};

} // namespace qx::discovery
