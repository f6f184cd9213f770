#include "LinkReceiver.h"

#include "LinkProtocol.h"

#include <QDir>
#include <QFile>
#include <QTemporaryFile>

#include <limits>

namespace qx::link {

namespace {

// Calls a handler through a copy, so a handler that replaces the handlers cannot pull the function
// out from under itself; reports whether the receiver outlived the call.
template <typename Fn, typename... Args>
bool report(const std::shared_ptr<char> &life, const Fn &handler, const Args &...args)
{
    if (!handler)
        return true;
    const std::weak_ptr<char> alive = life;
    const Fn call = handler;
    call(args...);
    return !alive.expired();
}

// The file length of a header: its leading decimal digits, 0 if none, held at the largest value
// rather than overflowing.
qint64 leadingNumber(const QByteArray &text)
{
    constexpr qint64 limit = std::numeric_limits<qint64>::max();
    qint64 value = 0;
    for (char c : text) {
        if (c < '0' || c > '9')
            break;
        const int digit = c - '0';
        value = value > (limit - digit) / 10 ? limit : value * 10 + digit;
    }
    return value;
}

QByteArray withoutTrailingBlanks(QByteArray text)
{
    qsizetype end = text.size();
    while (end > 0 && text.at(end - 1) == ' ')
        --end;
    text.truncate(end);
    return text;
}

} // namespace

std::unique_ptr<QFile> createTempFile()
{
    auto file = std::make_unique<QTemporaryFile>(QDir::tempPath() + QStringLiteral("/NGXXXXXX"));
    file->setAutoRemove(false);
    if (!file->open())
        return nullptr;
    return file;
}

LinkReceiver::LinkReceiver(LinkHandlers handlers) : m_handlers(std::move(handlers)) {}

LinkReceiver::~LinkReceiver()
{
    if (m_file) {
        m_file->close();
        QFile::remove(m_fileName);
    }
}

void LinkReceiver::reset()
{
    if (m_busy) {
        m_resetRequested = true;
        m_queued.clear();
        return;
    }
    clearState();
}

void LinkReceiver::clearState()
{
    m_resetRequested = false;
    m_queued.clear();
    m_buffer.clear();
    m_startMarkerKept = false;
    m_searched = 0;
    if (m_file) {
        m_file->close();
        QFile::remove(m_fileName);
    }
    m_file.reset();
    m_fileName.clear();
    m_tag.clear();
    m_bytesRemaining = 0;
    m_receivingFile = false;
}

bool LinkReceiver::carryOn(bool alive)
{
    if (!alive)
        return false;
    if (m_resetRequested) {
        clearState();
        return false;
    }
    return true;
}

bool LinkReceiver::refuse()
{
    clearState();
    carryOn(report(m_life, m_handlers.overflow));
    return false;
}

void LinkReceiver::setHandlers(LinkHandlers handlers)
{
    m_handlers = std::move(handlers);
}

void LinkReceiver::feed(const QByteArray &arrival)
{
    if (m_busy) {
        m_queued.append(arrival);
        return;
    }
    // Clears the busy flag even if a handler throws, unless the receiver is gone.
    struct BusyGuard {
        LinkReceiver *receiver;
        std::weak_ptr<char> alive;
        ~BusyGuard()
        {
            if (!alive.expired())
                receiver->m_busy = false;
        }
    } guard{this, m_life};
    m_busy = true;
    if (!handleArrival(arrival))
        return;
    while (!m_queued.isEmpty()) {
        if (!handleArrival(m_queued.takeFirst()))
            return;
    }
}

bool LinkReceiver::handleArrival(const QByteArray &arrival)
{
    if (m_receivingFile)
        return receiveFileContent(arrival);
    m_buffer.append(arrival);
    return parseBuffer();
}

bool LinkReceiver::parseBuffer()
{
    const bool kept = m_startMarkerKept;
    const qsizetype searched = m_searched;
    m_startMarkerKept = false;
    m_searched = 0;

    // The first marker. A kept start marker stays one unless the new bytes begin with 0, which
    // makes it read as an escaped payload byte.
    qsizetype start;
    if (kept && (m_buffer.size() == 1 || m_buffer.at(1) != '\0'))
        start = 0;
    else
        start = findMarkerFrom(m_buffer, kept ? 1 + searched : searched);
    if (start < 0) {
        m_searched = m_buffer.size();
        // Bytes that never reach a marker would otherwise pile up without end.
        return m_buffer.size() > MaxIncompleteFrame ? refuse() : true;
    }

    // Bytes before the start marker are dropped with it.
    qsizetype pos = start + 1;
    qsizetype from = (kept && start == 0) ? 1 + searched : pos;
    for (;;) {
        qsizetype end = findMarkerFrom(m_buffer, from);
        // Markers back to back: an end marker followed by the next start marker, or an empty frame.
        while (end == pos) {
            ++pos;
            end = findMarkerFrom(m_buffer, pos);
        }
        if (end < 0) {
            // Incomplete: keep the start marker (the byte before pos is always a 255) and wait.
            m_buffer.remove(0, pos - 1);
            m_startMarkerKept = true;
            m_searched = m_buffer.size() - 1;
            // A frame that never ends would otherwise fill the memory: its sender is cut off.
            return m_buffer.size() > MaxIncompleteFrame ? refuse() : true;
        }
        const QByteArray body = DecodeData(m_buffer.mid(pos, end - pos));
        if (body.at(0) == LinkFileHeader) {
            // A file larger than this side ever takes would only fill the disk.
            if (leadingNumber(body.mid(1 + TagLength)) > m_maxFileSize)
                return refuse();
            startFile(body);
            // Content that came with the header goes to the file, but only from two bytes on: a single
            // byte stays in the frame buffer, as the format has always done.
            if (m_buffer.size() - end - 1 >= 2) {
                const QByteArray content = m_buffer.mid(end + 1);
                m_buffer.clear();
                return receiveFileContent(content);
            }
        } else if (!dispatch(body)) {
            return false;
        }
        pos = end + 1;
        from = pos;
    }
}

bool LinkReceiver::dispatch(const QByteArray &body)
{
    switch (body.at(0)) {
    case LinkTitle:
        return carryOn(report(m_life, m_handlers.title, body.mid(1)));
    case LinkVersion:
        return carryOn(report(m_life, m_handlers.version, body.mid(1)));
    case LinkSetupInfo:
        return carryOn(report(m_life, m_handlers.setupInfo, body.mid(1)));
    case LinkData:
        return carryOn(report(m_life, m_handlers.data, body.mid(1)));
    case LinkLeave:
        return carryOn(report(m_life, m_handlers.leave));
    case LinkWelcome:
        return carryOn(report(m_life, m_handlers.welcome));
    default:
        return true; // unknown codes are ignored without a word
    }
}

void LinkReceiver::startFile(const QByteArray &body)
{
    if (m_file) {
        m_file->close();
        QFile::remove(m_fileName);
    }
    m_tag = withoutTrailingBlanks(body.mid(1, TagLength));
    m_bytesRemaining = leadingNumber(body.mid(1 + TagLength));
    m_file = createTempFile();
    m_fileName = m_file ? m_file->fileName() : QString();
    m_receivingFile = true;
}

bool LinkReceiver::receiveFileContent(const QByteArray &data)
{
    if (data.size() < m_bytesRemaining) {
        if (m_file)
            m_file->write(data);
        m_bytesRemaining -= data.size();
        return true;
    }
    if (m_file)
        m_file->write(data.constData(), m_bytesRemaining);
    // What follows the content waits for the next arrival, as the format has always done.
    m_buffer = data.mid(m_bytesRemaining);
    m_startMarkerKept = false;
    m_searched = 0;

    const bool hadFile = m_file != nullptr;
    const QString fileName = m_fileName;
    const QByteArray tag = m_tag;
    if (m_file)
        m_file->close();
    m_file.reset();
    m_fileName.clear();
    m_tag.clear();
    m_bytesRemaining = 0;
    m_receivingFile = false;
    if (!hadFile)
        return true;
    const bool alive = report(m_life, m_handlers.file, fileName, tag);
    QFile::remove(fileName);
    return carryOn(alive);
}

} // namespace qx::link
