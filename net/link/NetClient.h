#pragma once

#include <QObject>
#include <QString>

#include <memory>

class QTcpSocket;

namespace qx {

namespace link {
class LinkReceiver;
}

// The guest's side of the link: connects to a host, announces the guest's title and version, and
// moves link messages between the application and the host.
//
// Every connection, attempt included, ends in exactly one Dropped: after the host closes, after a
// socket error (always Error first), and after this side's own Disconnect, so an application that
// reports drops must know whether it asked for the disconnection itself.
//
// Signals are emitted directly from the socket handlers. The game connects its slots with
// Qt::QueuedConnection, because its handlers run nested event loops that must not run inside a
// socket handler. A directly connected handler may still call Disconnect, Connect or a Send method
// during an emission; only deleting the client there is not allowed (use deleteLater).
//
// Error numbers are QAbstractSocket::SocketError values; the description is the socket's own text.
class NetClient : public QObject {
    Q_OBJECT
public:
    explicit NetClient(QObject *parent = nullptr);
    ~NetClient() override;

    // Starts connecting, only while no connection is open or in progress (otherwise ignored).
    void Connect(const QString &remoteHost, int remotePort, const QString &appTitle, const QString &appVersion);
    void Disconnect();
    void SendData(const QString &data);
    void SendFile(const QString &fileName, const QString &tag);
    void SendSetupInfo(const QString &setupInfo);
    bool IsConnected() const { return m_connected; }
    // The host's address while connected, else empty.
    QString HostIP() const;
    // True while resolving the host's name or connecting.
    bool Busy() const;
    // A host whose file header announces more bytes than this is dropped, as is one whose frame
    // grows past LinkReceiver::MaxIncompleteFrame without an end marker.
    static constexpr qint64 GameMaxFileSize = 1024 * 1024;
    qint64 MaxFileSize() const;
    void setMaxFileSize(qint64 bytes);

signals:
    // The file is deleted as soon as the emission returns: read or copy it in a direct connection.
    void ReceiveFile(const QString &fileName, const QString &tag);
    void ReceiveData(const QString &data);
    void ReceiveSetupInfo(const QString &setupInfo);
    void RejectTitle(const QString &properTitle);
    void RejectVersion(const QString &properVersion);
    void Connected();
    void Dropped();
    void Error(int number, const QString &description);

private:
    void onConnected();
    void onReadyRead();
    void onDisconnected();
    void onSocketError(int error);
    void sendWhileConnected(const QByteArray &message);
    void endConnection();

    QTcpSocket *m_socket;
    // Kept across connections: a guest that connects again does not start with an empty buffer.
    std::unique_ptr<link::LinkReceiver> m_receiver;
    QString m_appTitle;
    QString m_appVersion;
    bool m_connected = false;
    bool m_active = false; // a connection or attempt whose Dropped is still owed
};

} // namespace qx
