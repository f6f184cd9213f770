#include "DiscoveryBrowser.h"

#include "DiscoverySettings.h"

#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QRandomGenerator>

#include <algorithm>

namespace qx::discovery {

namespace {
// The address a guest connects to: a plain IPv4 address, never its IPv6-mapped form.
QString plainAddress(const QHostAddress &address)
{
    bool isV4 = false;
    const quint32 v4 = address.toIPv4Address(&isV4);
    return isV4 ? QHostAddress(v4).toString() : address.toString();
}
} // namespace

DiscoveryBrowser::DiscoveryBrowser(const QString &version, QObject *parent)
    : QObject(parent), m_version(version), m_port(portFromEnvironment()), m_loopbackOnly(loopbackOnlyFromEnvironment())
{
    m_clock.start();
    m_askTimer.setSingleShot(true);
    m_ageTimer.setSingleShot(true);
    connect(&m_askTimer, &QTimer::timeout, this, &DiscoveryBrowser::ask);
    connect(&m_ageTimer, &QTimer::timeout, this, &DiscoveryBrowser::age);
    connect(&m_socket, &QUdpSocket::readyRead, this, &DiscoveryBrowser::readAnswers);
}

void DiscoveryBrowser::start()
{
    if (isBrowsing())
        return;
    if (m_socket.state() != QAbstractSocket::BoundState && !m_socket.bind(QHostAddress::AnyIPv4, 0))
        return; // no list then; the host's address can still be typed
    m_browsing = true;
    ask();
}

void DiscoveryBrowser::stop()
{
    m_browsing = false;
    m_askTimer.stop();
    m_ageTimer.stop();
    m_socket.close();
    if (!m_hosts.hosts().isEmpty()) {
        m_hosts.clear();
        emit hostsChanged();
    }
}

void DiscoveryBrowser::ask()
{
    m_askTimer.start(AskIntervalMs - AskJitterMs + int(QRandomGenerator::global()->bounded(2 * AskJitterMs + 1)));
    const QByteArray query = buildQuery(m_version);
    m_socket.writeDatagram(query, QHostAddress(QHostAddress::LocalHost), m_port);
    if (m_loopbackOnly)
        return;
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &i : interfaces) {
        const auto flags = i.flags();
        if (!flags.testFlag(QNetworkInterface::IsUp) || !flags.testFlag(QNetworkInterface::IsRunning)
            || !flags.testFlag(QNetworkInterface::CanBroadcast) || flags.testFlag(QNetworkInterface::IsLoopBack))
            continue;
        for (const QNetworkAddressEntry &entry : i.addressEntries())
            if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol && !entry.broadcast().isNull())
                m_socket.writeDatagram(query, entry.broadcast(), m_port);
    }
}

void DiscoveryBrowser::readAnswers()
{
    bool changed = false;
    while (m_socket.hasPendingDatagrams()) {
        const QNetworkDatagram datagram = m_socket.receiveDatagram(MaxDatagramSize + 1);
        // Only what came from the hosts' port: another guest's query is no answer.
        if (datagram.senderPort() != m_port)
            continue;
        if (const std::optional<Datagram> d = parse(datagram.data()))
            changed |= m_hosts.take(*d, plainAddress(datagram.senderAddress()), m_clock.elapsed());
    }
    scheduleAging();
    if (changed)
        emit hostsChanged();
}

void DiscoveryBrowser::age()
{
    if (m_hosts.expire(m_clock.elapsed()))
        emit hostsChanged();
    scheduleAging();
}

void DiscoveryBrowser::scheduleAging()
{
    const QList<ListedHost> &hosts = m_hosts.hosts();
    if (hosts.isEmpty()) {
        m_ageTimer.stop();
        return;
    }
    const auto oldest = std::min_element(hosts.begin(), hosts.end(), [](const ListedHost &a, const ListedHost &b) {
        return a.lastHeardMs < b.lastHeardMs;
    });
    m_ageTimer.start(int(std::max<qint64>(0, oldest->lastHeardMs + DiscoveredHosts::SilenceMs - m_clock.elapsed())));
}

} // namespace qx::discovery
