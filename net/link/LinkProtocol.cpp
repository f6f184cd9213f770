#include "LinkProtocol.h"

namespace qx::link {

QByteArray EncodeData(const QByteArray &payload)
{
    QByteArray out;
    out.reserve(payload.size() + payload.count(Marker));
    for (char c : payload) {
        out.append(c);
        if (c == Marker)
            out.append('\0');
    }
    return out;
}

QByteArray DecodeData(const QByteArray &escaped)
{
    QByteArray out;
    out.reserve(escaped.size());
    const qsizetype n = escaped.size();
    for (qsizetype i = 0; i < n; ++i) {
        out.append(escaped.at(i));
        if (escaped.at(i) == Marker && i + 1 < n && escaped.at(i + 1) == '\0')
            ++i;
    }
    return out;
}

QByteArray FrameMessage(const QByteArray &body)
{
    QByteArray out;
    out.reserve(body.size() + 2);
    out.append(Marker).append(body).append(Marker);
    return out;
}

qsizetype findMarkerFrom(const QByteArray &text, qsizetype from)
{
    const qsizetype n = text.size();
    for (qsizetype i = from < 0 ? 0 : from; i < n; ++i) {
        if (text.at(i) != Marker)
            continue;
        if (i + 1 < n && text.at(i + 1) == '\0')
            continue;
        return i;
    }
    return -1;
}

qsizetype FindMarker(const QByteArray &text)
{
    return findMarkerFrom(text, 0) + 1;
}

static QByteArray typedFrame(char type, const QByteArray &payload)
{
    return FrameMessage(QByteArray(1, type) + EncodeData(payload));
}

QByteArray dataMessage(const QByteArray &data) { return typedFrame(LinkData, data); }
QByteArray setupInfoMessage(const QByteArray &info) { return typedFrame(LinkSetupInfo, info); }
QByteArray titleMessage(const QByteArray &title) { return typedFrame(LinkTitle, title); }
QByteArray versionMessage(const QByteArray &version) { return typedFrame(LinkVersion, version); }

QByteArray announceMessage(const QByteArray &title, const QByteArray &version)
{
    return titleMessage(title) + versionMessage(version);
}

QByteArray welcomeMessage() { return FrameMessage(QByteArray(1, LinkWelcome)); }
QByteArray leaveMessage() { return FrameMessage(QByteArray(1, LinkLeave)); }

QByteArray fitTag(const QByteArray &tag)
{
    return tag.leftJustified(TagLength, ' ', true);
}

QByteArray fileHeaderMessage(const QByteArray &tag, qint64 length)
{
    return FrameMessage(QByteArray(1, LinkFileHeader) + fitTag(tag) + QByteArray::number(length));
}

} // namespace qx::link
