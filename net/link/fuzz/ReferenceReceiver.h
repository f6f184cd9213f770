#pragma once

#include "LinkProtocol.h"
#include "LinkReceiver.h"

#include <QByteArray>
#include <QList>

#include <limits>

namespace qx::link {

// The reassembly written out step by step, as plainly as possible: whole-buffer searches, bytes
// removed from the front one frame at a time, the start marker put back in front, and the file kept
// in memory. Slow, but obviously right; LinkReceiver, which avoids rescanning a long frame, must
// report exactly the same events after every arrival and hold exactly the same buffer.
//
// Events are written as "title:<payload>", "version:", "setup:", "data:", "leave", "welcome",
// "file:<tag>:<content>" and "overflow" (everything forgotten: the sender must be cut off).
class ReferenceReceiver {
public:
    QList<QByteArray> feed(const QByteArray &newData)
    {
        QList<QByteArray> events;
        if (m_receivingFile) {
            fileContent(newData, events);
            return events;
        }
        m_buffer.append(newData);
        qsizetype p = FindMarker(m_buffer);
        if (p == 0) {
            if (m_buffer.size() > LinkReceiver::MaxIncompleteFrame)
                overflow(events);
            return events;
        }
        for (;;) {
            m_buffer.remove(0, p);
            qsizetype q = FindMarker(m_buffer);
            while (q == 1) {
                m_buffer.remove(0, 1);
                q = FindMarker(m_buffer);
            }
            if (q == 0) {
                m_buffer.prepend(Marker);
                if (m_buffer.size() > LinkReceiver::MaxIncompleteFrame)
                    overflow(events);
                return events;
            }
            const QByteArray body = DecodeData(m_buffer.left(q - 1));
            p = q;
            if (body.isEmpty())
                continue;
            if (body.at(0) == LinkFileHeader) {
                QByteArray tag = body.mid(1, TagLength);
                while (tag.endsWith(' '))
                    tag.chop(1);
                if (leadingNumber(body.mid(1 + TagLength)) > m_maxFileSize) {
                    overflow(events);
                    return events;
                }
                m_tag = tag;
                m_bytesRemaining = leadingNumber(body.mid(1 + TagLength));
                m_file.clear();
                m_receivingFile = true;
                if (m_buffer.size() - q - 1 > 0) {
                    const QByteArray content = m_buffer.mid(q);
                    m_buffer.clear();
                    fileContent(content, events);
                    return events;
                }
                continue;
            }
            const QByteArray payload = body.mid(1);
            switch (body.at(0)) {
            case LinkTitle: events.append("title:" + payload); break;
            case LinkVersion: events.append("version:" + payload); break;
            case LinkSetupInfo: events.append("setup:" + payload); break;
            case LinkData: events.append("data:" + payload); break;
            case LinkLeave: events.append("leave"); break;
            case LinkWelcome: events.append("welcome"); break;
            default: break;
            }
        }
    }

    void setMaxFileSize(qint64 bytes) { m_maxFileSize = bytes; }
    const QByteArray &buffer() const { return m_buffer; }
    bool receivingFile() const { return m_receivingFile; }
    qint64 bytesRemaining() const { return m_bytesRemaining; }

private:
    static qint64 leadingNumber(const QByteArray &text)
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

    void overflow(QList<QByteArray> &events)
    {
        m_buffer.clear();
        m_file.clear();
        m_tag.clear();
        m_bytesRemaining = 0;
        m_receivingFile = false;
        events.append("overflow");
    }

    void fileContent(const QByteArray &data, QList<QByteArray> &events)
    {
        if (data.size() < m_bytesRemaining) {
            m_file.append(data);
            m_bytesRemaining -= data.size();
            return;
        }
        m_file.append(data.left(m_bytesRemaining));
        m_buffer = data.mid(m_bytesRemaining);
        events.append("file:" + m_tag + ":" + m_file);
        m_file.clear();
        m_tag.clear();
        m_bytesRemaining = 0;
        m_receivingFile = false;
    }

    QByteArray m_buffer;
    bool m_receivingFile = false;
    qint64 m_bytesRemaining = 0;
    QByteArray m_tag;
    QByteArray m_file;
    qint64 m_maxFileSize = std::numeric_limits<qint64>::max();
};

} // namespace qx::link
