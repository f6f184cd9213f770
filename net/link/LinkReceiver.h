#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <limits>
#include <memory>

class QFile;

namespace qx::link {

// What a receiver reports. Payloads are the decoded bytes after the type code; a missing handler
// simply drops that kind of message.
struct LinkHandlers {
    std::function<void(const QByteArray &)> title;
    std::function<void(const QByteArray &)> version;
    std::function<void(const QByteArray &)> setupInfo;
    std::function<void(const QByteArray &)> data;
    // The file is complete and closed; it is deleted as soon as this returns, so read or copy it here.
    std::function<void(const QString &fileName, const QByteArray &tag)> file;
    std::function<void()> leave;
    std::function<void()> welcome;
    // The peer overstepped a limit (an endless frame, a file too large); the receive state has been
    // cleared and the connection must be closed.
    std::function<void()> overflow;
};

// The receive state of one connection and the reassembly of its frames. Fed with each arrival of
// bytes exactly as the socket delivered them: the arrival boundaries matter, since a few deliberate
// quirks of the format depend on them (the bytes after a file's content wait for the next arrival,
// a single content byte that comes with its file header stays in the frame buffer).
//
// Handlers may re-enter: an arrival fed from inside a handler is queued and handled, as its own
// arrival, once the current one is done; a handler may even destroy the receiver.
class LinkReceiver {
public:
    // A frame still waiting for its end marker may grow to this many bytes; past it the peer is
    // taken for hostile and cut off, so no peer can fill the memory with one endless frame.
    static constexpr qsizetype MaxIncompleteFrame = 64 * 1024;

    explicit LinkReceiver(LinkHandlers handlers = {});
    ~LinkReceiver();
    LinkReceiver(const LinkReceiver &) = delete;
    LinkReceiver &operator=(const LinkReceiver &) = delete;

    void setHandlers(LinkHandlers handlers);
    void feed(const QByteArray &arrival);
    // A file header announcing more bytes than this is an overflow; unlimited unless set.
    void setMaxFileSize(qint64 bytes) { m_maxFileSize = bytes; }
    qint64 maxFileSize() const { return m_maxFileSize; }
    // Forgets everything received: buffer, queued arrivals, the file being received and its
    // temporary file. Called from a handler, it takes effect as soon as that handler returns and
    // nothing more of the current arrival is parsed.
    void reset();

    bool receivingFile() const { return m_receivingFile; }
    qint64 bytesRemaining() const { return m_bytesRemaining; }
    // The temporary file being received into, while receivingFile().
    const QString &fileName() const { return m_fileName; }
    const QByteArray &buffer() const { return m_buffer; }

private:
    // Each returns false when a handler destroyed the receiver.
    bool handleArrival(const QByteArray &arrival);
    bool parseBuffer();
    bool dispatch(const QByteArray &body);
    void startFile(const QByteArray &body);
    bool receiveFileContent(const QByteArray &data);
    // After a handler: false when the receiver is gone or was reset meanwhile (parsing stops).
    bool carryOn(bool alive);
    void clearState();
    bool refuse();

    LinkHandlers m_handlers;
    QByteArray m_buffer;
    // After an incomplete frame the buffer is its start marker followed by bytes already searched
    // for an end marker; the next search resumes after them, so a long frame is not rescanned.
    bool m_startMarkerKept = false;
    qsizetype m_searched = 0;

    bool m_receivingFile = false;
    std::unique_ptr<QFile> m_file; // null when no temporary file could be made: content is dropped
    QString m_fileName;
    QByteArray m_tag;
    qint64 m_bytesRemaining = 0;
    qint64 m_maxFileSize = std::numeric_limits<qint64>::max();

    bool m_busy = false;
    bool m_resetRequested = false;
    QList<QByteArray> m_queued;
    std::shared_ptr<char> m_life = std::make_shared<char>();
};

// An empty temporary file named NG... in the system's temporary directory, open for writing;
// null if none can be made.
std::unique_ptr<QFile> createTempFile();

} // namespace qx::link
