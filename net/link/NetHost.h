#pragma once

#include <QHostAddress>
#include <QObject>
#include <QSet>
#include <QString>

#include <memory>
#include <vector>

class QTcpServer;
class QTcpSocket;

namespace qx {

// The host's side of the link: listens on one TCP port, gives each guest a numbered slot and moves
// link messages between the application and each guest.
//
// Slots are numbered from 1, created on demand and never removed; a guest that leaves frees its slot
// for the next one. A client number of 1 or more
// addresses one slot, 0 every slot, -n every slot but n.
//
// Signals are emitted directly from the socket handlers. The game connects its slots with
// Qt::QueuedConnection, because its handlers run nested event loops (pauses, animations) that must
// not run inside a socket handler. A directly connected handler may still call Kick, StopHost or
// any Send method during an emission; only deleting the host there is not allowed (use deleteLater).
//
// Socket errors arrive as Error(client, number, description), where number is the
// QAbstractSocket::SocketError value; a failure to listen is reported with client 0.
class NetHost : public QObject {
    Q_OBJECT
public:
    // The game's instance listens on this port and takes at most this many guests.
    static constexpr int GamePort = 1099;
    static constexpr int GameMaxConnections = 10;
    // The largest file a guest may announce; the game's guests never send files.
    static constexpr qint64 GameMaxFileSize = 1024 * 1024;
    // Thrown as a NetError by setLocalPort while hosting.
    static constexpr int PortChangeError = 1001;

    explicit NetHost(QObject *parent = nullptr);
    ~NetHost() override;

    void SendData(int client, const QString &data);
    void SendFile(int client, const QString &fileName, const QString &tag);
    void SendSetupInfo(int client, const QString &setupInfo);
    void SendProperTitle(int client, const QString &properTitle);
    void SendProperVersion(int client, const QString &properVersion);
    void BeginHost();
    // The configured port; 0 lets the system choose a free one when listening starts.
    int LocalPort() const { return m_localPort; }
    // Throws NetError 1001 "Cannot change port while listening." while hosting, keeping the old port.
    void setLocalPort(int port);
    int Connections() const;
    int MaxConnections() const { return m_maxConnections; }
    void setMaxConnections(int maxConnections) { m_maxConnections = maxConnections; }
    // A guest whose file header announces more bytes than this is kicked, as is one whose frame
    // grows past LinkReceiver::MaxIncompleteFrame without an end marker.
    qint64 MaxFileSize() const { return m_maxFileSize; }
    void setMaxFileSize(qint64 bytes);
    // Sends the leave notice to a connected guest and closes its slot; 0 kicks every slot, and
    // ClientLeft is emitted for every slot, also those already closed.
    void Kick(int client);
    void StopHost();
    bool Hosting() const { return m_hosting; }
    QString ClientIP(int client) const;
    // This machine's address as other computers see it (loopback when it has no other).
    QString HostIP() const;
    // With reset, starts over; returns the next connected slot, then 0 at the end.
    int EnumClients(bool reset);

    // The port actually listened on (the system's choice for LocalPort 0); 0 when not listening.
    int listeningPort() const;
    // The address listened on: any address by default; tests listen on loopback only.
    void setListenAddress(const QHostAddress &address) { m_listenAddress = address; }
    int highestSlot() const { return int(m_slots.size()); }
    int lastJoined() const { return m_lastJoined; }

signals:
    void ReceiveTitle(int client, const QString &appTitle);
    void ReceiveVersion(int client, const QString &version);
    void ReceiveSetupInfo(int client, const QString &setupInfo);
    // The file is deleted as soon as the emission returns: read or copy it in a direct connection.
    void ReceiveFile(int client, const QString &fileName, const QString &tag);
    void ReceiveData(int client, const QString &data);
    void ClientJoined(int client);
    void ClientLeft(int client);
    void Error(int client, int number, const QString &description);
    void MaxConnectionsReached();

private:
    struct Slot;

    void sendMessage(int client, const QByteArray &message);
    void sendFileTo(int client, const QString &fileName, const QByteArray &tag);
    QTcpSocket *socketOf(int client) const;
    bool isConnected(int client) const;
    int chooseSlot() const;
    bool isFull(int slot) const;
    void onNewConnection();
    void attach(int client, QTcpSocket *socket);
    QTcpSocket *detach(int client);
    void onReadyRead(int client, QTcpSocket *socket);
    void onClosed(int client, QTcpSocket *socket);
    void onSocketError(int client, QTcpSocket *socket, int error);
    void closeSlot(int client, bool sayGoodbye);

    QTcpServer *m_server;
    QHostAddress m_listenAddress = QHostAddress::Any;
    int m_localPort = 0;
    int m_maxConnections = 1;
    qint64 m_maxFileSize = GameMaxFileSize;
    bool m_hosting = false;
    int m_enumCursor = 0;
    int m_lastJoined = 0;
    QSet<int> m_kicking; // slots whose Kick is emitting ClientLeft
    std::vector<std::unique_ptr<Slot>> m_slots; // m_slots[n - 1] is slot n
};

} // namespace qx
