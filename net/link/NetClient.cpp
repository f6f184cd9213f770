#include "NetClient.h"

#include "LinkProtocol.h"
#include "LinkReceiver.h"
#include "LinkSend.h"

#include <QHostAddress>
#include <QPointer>
#include <QTcpSocket>

namespace qx {

NetClient::NetClient(QObject *parent)
    : QObject(parent), m_socket(new QTcpSocket(this)), m_receiver(std::make_unique<link::LinkReceiver>())
{
    link::LinkHandlers handlers;
    handlers.title = [this](const QByteArray &title) { emit RejectTitle(link::fromWire(title)); };
    handlers.version = [this](const QByteArray &version) { emit RejectVersion(link::fromWire(version)); };
    handlers.setupInfo = [this](const QByteArray &info) { emit ReceiveSetupInfo(link::fromWire(info)); };
    handlers.data = [this](const QByteArray &data) { emit ReceiveData(link::fromWire(data)); };
    handlers.file = [this](const QString &fileName, const QByteArray &tag) {
        emit ReceiveFile(fileName, link::fromWire(tag));
    };
    // A host that floods this guest with an endless frame or a huge file is left.
    handlers.overflow = [this] { endConnection(); };
    // A kicked guest learns it from the close that follows the leave notice.
    m_receiver->setHandlers(std::move(handlers));
    m_receiver->setMaxFileSize(GameMaxFileSize);

    connect(m_socket, &QTcpSocket::connected, this, &NetClient::onConnected);
    connect(m_socket, &QTcpSocket::readyRead, this, &NetClient::onReadyRead);
    connect(m_socket, &QTcpSocket::disconnected, this, &NetClient::onDisconnected);
    connect(m_socket, &QTcpSocket::errorOccurred, this,
            [this](QAbstractSocket::SocketError error) { onSocketError(int(error)); });
}

NetClient::~NetClient()
{
    QObject::disconnect(m_socket, nullptr, this, nullptr);
    m_socket->abort();
}

void NetClient::Connect(const QString &remoteHost, int remotePort, const QString &appTitle, const QString &appVersion)
{
    if (m_active || m_socket->state() != QAbstractSocket::UnconnectedState)
        return;
    m_appTitle = appTitle;
    m_appVersion = appVersion;
    m_active = true;
    m_socket->connectToHost(remoteHost, quint16(remotePort));
}

void NetClient::Disconnect()
{
    // No leave notice: the host learns of it from the closed connection.
    if (m_socket->state() == QAbstractSocket::ConnectedState)
        m_socket->flush();
    endConnection();
}

void NetClient::endConnection()
{
    const bool owed = m_active;
    m_active = false;
    m_connected = false;
    m_socket->abort();
    if (owed)
        emit Dropped();
}

void NetClient::SendData(const QString &data)
{
    sendWhileConnected(link::dataMessage(link::toWire(data)));
}

void NetClient::SendSetupInfo(const QString &setupInfo)
{
    sendWhileConnected(link::setupInfoMessage(link::toWire(setupInfo)));
}

void NetClient::SendFile(const QString &fileName, const QString &tag)
{
    if (m_socket->state() == QAbstractSocket::ConnectedState)
        link::writeFileMessage(*m_socket, fileName, link::toWire(tag));
}

void NetClient::sendWhileConnected(const QByteArray &message)
{
    if (m_socket->state() == QAbstractSocket::ConnectedState)
        m_socket->write(message);
}

QString NetClient::HostIP() const
{
    if (m_socket->state() != QAbstractSocket::ConnectedState)
        return {};
    const QHostAddress address = m_socket->peerAddress();
    bool isV4 = false;
    const quint32 v4 = address.toIPv4Address(&isV4);
    return isV4 ? QHostAddress(v4).toString() : address.toString();
}

qint64 NetClient::MaxFileSize() const { return m_receiver->maxFileSize(); }

void NetClient::setMaxFileSize(qint64 bytes) { m_receiver->setMaxFileSize(bytes); }

bool NetClient::Busy() const
{
    const auto state = m_socket->state();
    return state != QAbstractSocket::UnconnectedState && state != QAbstractSocket::ConnectedState;
}

void NetClient::onConnected()
{
    if (!m_active)
        return;
    // Play lines are short and answered at once: waiting to fill a packet would only add delay.
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_socket->write(link::announceMessage(link::toWire(m_appTitle), link::toWire(m_appVersion)));
    m_connected = true;
    emit Connected();
}

void NetClient::onReadyRead()
{
    m_receiver->feed(m_socket->readAll());
}

void NetClient::onDisconnected()
{
    if (!m_active)
        return;
    // Whatever the host sent just before closing (a proper title, say) still counts.
    if (m_socket->bytesAvailable() > 0) {
        const QPointer<NetClient> self(this);
        m_receiver->feed(m_socket->readAll());
        if (!self || !m_active)
            return;
    }
    endConnection();
}

void NetClient::onSocketError(int error)
{
    if (!m_active)
        return;
    // The host hanging up is a plain drop, not an error.
    if (error == QAbstractSocket::RemoteHostClosedError) {
        onDisconnected();
        return;
    }
    const QPointer<NetClient> self(this);
    emit Error(error, m_socket->errorString());
    if (self && m_active)
        endConnection();
}

} // namespace qx
