#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
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
    explicit LinkReceiver(LinkHandlers handlers = {});
    ~LinkReceiver();
    LinkReceiver(const LinkReceiver &) = delete;
    LinkReceiver &operator=(const LinkReceiver &) = delete;

    void setHandlers(LinkHandlers handlers);
    void feed(const QByteArray &arrival);

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

    bool m_busy = false;
    QList<QByteArray> m_queued;
    std::shared_ptr<char> m_life = std::make_shared<char>();
};

// An empty temporary file named NG... in the system's temporary directory, open for writing;
// null if none can be made.
std::unique_ptr<QFile> createTempFile();

} // namespace qx::link
