#include "DiscoveryResponder.h"

#include "DiscoveredHosts.h"
#include "DiscoverySettings.h"

#include <QNetworkDatagram>

namespace qx::discovery {

namespace {
// Goodbyes go to at most this many recent askers; the others see the host fall silent.
constexpr int MaxAskers = 32;
} // namespace

DiscoveryResponder::DiscoveryResponder(const QString &version, QObject *parent)
    : QObject(parent), m_version(version), m_port(portFromEnvironment())
{
    m_clock.start();
    connect(&m_socket, &QUdpSocket::readyRead, this, &DiscoveryResponder::readQueries);
}

DiscoveryResponder::~DiscoveryResponder() { stop(); }

bool DiscoveryResponder::start()
{
    if (isAnswering())
        return true;
    m_askers.clear();
    return m_socket.bind(QHostAddress::AnyIPv4, m_port);
}

void DiscoveryResponder::stop()
{
    if (!isAnswering())
        return;
    const QByteArray goodbye = buildGoodbye(m_version);
    const qint64 now = m_clock.elapsed();
    for (const Asker &a : std::as_const(m_askers))
        if (now - a.lastMs < DiscoveredHosts::SilenceMs)
            m_socket.writeDatagram(goodbye, a.address, a.port);
    m_askers.clear();
    m_socket.close();
}

void DiscoveryResponder::readQueries()
{
    while (m_socket.hasPendingDatagrams()) {
        // One byte more than the longest datagram of ours, so that a longer one shows as such.
        const QNetworkDatagram datagram = m_socket.receiveDatagram(MaxDatagramSize + 1);
        const std::optional<Datagram> query = parse(datagram.data());
        if (!query || query->kind != Kind::Query || !m_lobby)
            continue;
        const QHostAddress sender = datagram.senderAddress();
        const qint64 now = m_clock.elapsed();
        if (!m_limiter.allow(sender.toString(), now))
            continue;
        const Lobby lobby = m_lobby();
        m_socket.writeDatagram(buildAnswer(m_version, lobby.players, lobby.freeSeats, lobby.name), sender,
                               quint16(datagram.senderPort()));
        rememberAsker(sender, quint16(datagram.senderPort()), now);
    }
}

void DiscoveryResponder::rememberAsker(const QHostAddress &address, quint16 port, qint64 nowMs)
{
    // Kept in the order of their last question, so that the first is the one silent longest.
    m_askers.removeIf([&](const Asker &a) { return a.address == address && a.port == port; });
    if (m_askers.size() >= MaxAskers)
        m_askers.removeFirst(); // the one that asked longest ago
    m_askers.append({address, port, nowMs});
}

} // namespace qx::discovery
