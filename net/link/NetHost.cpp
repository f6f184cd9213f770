#include "NetHost.h"

#include "LinkProtocol.h"
#include "LinkReceiver.h"
#include "LinkSend.h"
#include "NetError.h"

#include <QNetworkInterface>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace qx {

namespace {

// How long a kicked guest's socket may take to hand over its last bytes before it is cut off.
constexpr int LingerMs = 10000;

// Lets the leave notice go out before the connection closes, without waiting for it here.
void closeGracefully(QTcpSocket *socket)
{
    if (socket->state() == QAbstractSocket::UnconnectedState) {
        socket->deleteLater();
        return;
    }
    QObject::connect(socket, &QAbstractSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QAbstractSocket::errorOccurred, socket, &QObject::deleteLater);
    QTimer::singleShot(LingerMs, socket, [socket] {
        socket->abort();
        socket->deleteLater();
    });
    socket->disconnectFromHost();
}

void closeAtOnce(QTcpSocket *socket)
{
    socket->abort();
    socket->deleteLater();
}

} // namespace

struct NetHost::Slot {
    QTcpSocket *socket = nullptr; // the current guest's connection; null while the slot is closed
    link::LinkReceiver receiver;
};

NetHost::NetHost(QObject *parent) : QObject(parent), m_server(new QTcpServer(this))
{
    connect(m_server, &QTcpServer::newConnection, this, &NetHost::onNewConnection);
}

NetHost::~NetHost()
{
    for (int client = 1; client <= highestSlot(); ++client) {
        if (QTcpSocket *socket = detach(client))
            socket->abort();
    }
}

void NetHost::sendMessage(int client, const QByteArray &message)
{
    if (client >= 1) {
        if (isConnected(client))
            socketOf(client)->write(message);
        return;
    }
    for (int n = 1; n <= highestSlot(); ++n) {
        if (n != -client)
            sendMessage(n, message);
    }
}

void NetHost::SendData(int client, const QString &data)
{
    sendMessage(client, link::dataMessage(link::toWire(data)));
}

void NetHost::SendSetupInfo(int client, const QString &setupInfo)
{
    sendMessage(client, link::setupInfoMessage(link::toWire(setupInfo)));
}

void NetHost::SendProperTitle(int client, const QString &properTitle)
{
    sendMessage(client, link::titleMessage(link::toWire(properTitle)));
}

void NetHost::SendProperVersion(int client, const QString &properVersion)
{
    sendMessage(client, link::versionMessage(link::toWire(properVersion)));
}

void NetHost::SendFile(int client, const QString &fileName, const QString &tag)
{
    sendFileTo(client, fileName, link::toWire(tag));
}

void NetHost::sendFileTo(int client, const QString &fileName, const QByteArray &tag)
{
    if (client >= 1) {
        if (isConnected(client))
            link::writeFileMessage(*socketOf(client), fileName, tag);
        return;
    }
    for (int n = 1; n <= highestSlot(); ++n) {
        if (n != -client)
            sendFileTo(n, fileName, tag);
    }
}

void NetHost::BeginHost()
{
    if (m_server->isListening())
        m_server->close();
    if (!m_server->listen(m_listenAddress, quint16(m_localPort))) {
        m_hosting = false;
        emit Error(0, int(m_server->serverError()),
                   tr("Cannot listen on port %1: %2").arg(m_localPort).arg(m_server->errorString()));
        return;
    }
    m_hosting = true;
}

void NetHost::setLocalPort(int port)
{
    if (m_hosting)
        throw NetError(PortChangeError, QStringLiteral("NetGroup"), QStringLiteral("Cannot change port while listening."));
    m_localPort = port;
}

int NetHost::listeningPort() const
{
    return m_server->isListening() ? int(m_server->serverPort()) : 0;
}

void NetHost::setMaxFileSize(qint64 bytes)
{
    m_maxFileSize = bytes;
    for (const auto &slot : m_slots)
        slot->receiver.setMaxFileSize(bytes);
}

int NetHost::Connections() const
{
    int count = 0;
    for (int client = 1; client <= highestSlot(); ++client) {
        if (isConnected(client))
            ++count;
    }
    return count;
}

void NetHost::Kick(int client)
{
    if (client < 0 || client > highestSlot())
        return;
    if (client == 0) {
        const QPointer<NetHost> self(this);
        for (int n = 1; self && n <= highestSlot(); ++n)
            Kick(n);
        return;
    }
    // A ClientLeft handler that kicks again (even every slot) must not recurse without end.
    if (m_kicking.contains(client))
        return;
    m_kicking.insert(client);
    closeSlot(client, true);
    const QPointer<NetHost> self(this);
    emit ClientLeft(client);
    if (self)
        m_kicking.remove(client);
}

void NetHost::StopHost()
{
    m_hosting = false;
    const QPointer<NetHost> self(this);
    Kick(0);
    if (self)
        m_server->close();
}

QString NetHost::ClientIP(int client) const
{
    if (client < 1 || client > highestSlot())
        return {};
    const QTcpSocket *socket = socketOf(client);
    if (!socket || socket->state() == QAbstractSocket::UnconnectedState)
        return {};
    const QHostAddress address = socket->peerAddress();
    bool isV4 = false;
    const quint32 v4 = address.toIPv4Address(&isV4);
    return isV4 ? QHostAddress(v4).toString() : address.toString();
}

QString NetHost::HostIP() const
{
    const QList<QHostAddress> addresses = QNetworkInterface::allAddresses();
    for (const QHostAddress &address : addresses) {
        if (address.protocol() == QAbstractSocket::IPv4Protocol && !address.isLoopback())
            return address.toString();
    }
    return QHostAddress(QHostAddress::LocalHost).toString();
}

int NetHost::EnumClients(bool reset)
{
    if (reset)
        m_enumCursor = 0;
    for (;;) {
        ++m_enumCursor;
        if (m_enumCursor > highestSlot()) {
            m_enumCursor = 0;
            return 0;
        }
        if (isConnected(m_enumCursor))
            return m_enumCursor;
    }
}

QTcpSocket *NetHost::socketOf(int client) const
{
    if (client < 1 || client > highestSlot())
        return nullptr;
    return m_slots[std::size_t(client - 1)]->socket;
}

bool NetHost::isConnected(int client) const
{
    const QTcpSocket *socket = socketOf(client);
    return socket && socket->state() == QAbstractSocket::ConnectedState;
}

int NetHost::chooseSlot() const
{
    for (int client = 1; client <= highestSlot(); ++client) {
        const QTcpSocket *socket = socketOf(client);
        if (!socket || socket->state() == QAbstractSocket::UnconnectedState)
            return client;
    }
    return highestSlot() + 1;
}

bool NetHost::isFull(int slot) const
{
    return Connections() + 1 > m_maxConnections || slot > m_maxConnections;
}

void NetHost::onNewConnection()
{
    const QPointer<NetHost> self(this);
    while (m_server->hasPendingConnections()) {
        int client = chooseSlot();
        if (isFull(client)) {
            // The handler may raise the limit or free a slot; if it does not, the request is refused.
            emit MaxConnectionsReached();
            if (!self)
                return;
            client = chooseSlot();
            if (isFull(client)) {
                if (QTcpSocket *refused = m_server->nextPendingConnection())
                    closeAtOnce(refused);
                continue;
            }
        }
        QTcpSocket *socket = m_server->nextPendingConnection();
        if (!socket)
            return; // the handler stopped hosting
        // Game lines are short and answered at once: waiting to fill a packet would only add delay.
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        if (client > highestSlot()) {
            auto slot = std::make_unique<Slot>();
            const int n = client;
            link::LinkHandlers handlers;
            handlers.title = [this, n](const QByteArray &title) { emit ReceiveTitle(n, link::fromWire(title)); };
            handlers.version = [this, n](const QByteArray &version) { emit ReceiveVersion(n, link::fromWire(version)); };
            handlers.setupInfo = [this, n](const QByteArray &info) { emit ReceiveSetupInfo(n, link::fromWire(info)); };
            handlers.data = [this, n](const QByteArray &data) { emit ReceiveData(n, link::fromWire(data)); };
            handlers.file = [this, n](const QString &fileName, const QByteArray &tag) {
                emit ReceiveFile(n, fileName, link::fromWire(tag));
            };
            handlers.leave = [this, n] {
                closeSlot(n, false);
                emit ClientLeft(n);
            };
            // A peer that floods the host with an endless frame or a huge file is shown the door.
            handlers.overflow = [this, n] { Kick(n); };
            slot->receiver.setHandlers(std::move(handlers));
            slot->receiver.setMaxFileSize(m_maxFileSize);
            m_slots.push_back(std::move(slot));
        }
        attach(client, socket);
        socket->write(link::welcomeMessage());
        m_lastJoined = client;
        emit ClientJoined(client);
        if (!self)
            return;
    }
}

void NetHost::attach(int client, QTcpSocket *socket)
{
    socket->setParent(this);
    m_slots[std::size_t(client - 1)]->socket = socket;
    connect(socket, &QTcpSocket::readyRead, this, [this, client, socket] { onReadyRead(client, socket); });
    connect(socket, &QTcpSocket::disconnected, this, [this, client, socket] { onClosed(client, socket); });
    connect(socket, &QTcpSocket::errorOccurred, this,
            [this, client, socket](QAbstractSocket::SocketError error) { onSocketError(client, socket, int(error)); });
}

QTcpSocket *NetHost::detach(int client)
{
    QTcpSocket *socket = socketOf(client);
    if (socket) {
        m_slots[std::size_t(client - 1)]->socket = nullptr;
        QObject::disconnect(socket, nullptr, this, nullptr);
    }
    return socket;
}

void NetHost::closeSlot(int client, bool sayGoodbye)
{
    QTcpSocket *socket = detach(client);
    if (!socket)
        return;
    // The slot's next guest starts clean, so nothing half-sent by this one can swallow its handshake.
    m_slots[std::size_t(client - 1)]->receiver.reset();
    if (sayGoodbye && socket->state() == QAbstractSocket::ConnectedState) {
        socket->write(link::leaveMessage());
        socket->flush();
        closeGracefully(socket);
    } else {
        closeAtOnce(socket);
    }
}

void NetHost::onReadyRead(int client, QTcpSocket *socket)
{
    if (!socket || socketOf(client) != socket)
        return;
    m_slots[std::size_t(client - 1)]->receiver.feed(socket->readAll());
}

void NetHost::onClosed(int client, QTcpSocket *socket)
{
    if (!socket || socketOf(client) != socket)
        return;
    // Whatever the guest sent just before closing still counts.
    if (socket->bytesAvailable() > 0) {
        const QPointer<NetHost> self(this);
        m_slots[std::size_t(client - 1)]->receiver.feed(socket->readAll());
        if (!self || socketOf(client) != socket)
            return;
    }
    closeSlot(client, false);
    emit ClientLeft(client);
}

void NetHost::onSocketError(int client, QTcpSocket *socket, int error)
{
    if (socketOf(client) != socket)
        return;
    // A guest hanging up is a plain close, not an error.
    if (error == QAbstractSocket::RemoteHostClosedError) {
        onClosed(client, socket);
        return;
    }
    const QPointer<NetHost> self(this);
    emit Error(client, error, socket->errorString());
    if (!self || socketOf(client) != socket)
        return; // the handler already closed the slot
    closeSlot(client, false);
    emit ClientLeft(client);
}

} // namespace qx
