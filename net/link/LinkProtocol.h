#pragma once

#include <QByteArray>
#include <QString>

// The byte format of one link connection between a host and a guest. A message travels as a frame:
// byte 255, a type code, the payload with every 255 written as 255 0, byte 255. There is no length
// field; the end marker alone closes a frame. A file travels as a header frame (not escaped) followed
// directly by the raw content. Strings travel one byte per character (Latin-1) on both ends.
namespace qx::link {

constexpr char Marker = char(255);

// Type codes, the byte right after the start marker.
constexpr char LinkLeave = char(248);
constexpr char LinkWelcome = char(249);
constexpr char LinkTitle = char(250);
constexpr char LinkVersion = char(251);
constexpr char LinkSetupInfo = char(252);
constexpr char LinkFileHeader = char(253);
constexpr char LinkData = char(254);

constexpr int TagLength = 10;
// Files are read and sent in pieces no larger than this.
constexpr qint64 FilePieceSize = 65000;

QByteArray EncodeData(const QByteArray &payload);
QByteArray DecodeData(const QByteArray &escaped);
// Byte 255, the body, byte 255.
QByteArray FrameMessage(const QByteArray &body);
// 1-based position of the first marker, 0 if none. A 255 followed by 0 is an escaped payload byte;
// a 255 that ends the text counts as a marker, since nothing after it can yet say otherwise.
qsizetype FindMarker(const QByteArray &text);
// 0-based index of the first marker at or after `from`, -1 if none. Same as FindMarker when no
// marker lies before `from` and the byte before `from` is not an unescaped 255.
qsizetype findMarkerFrom(const QByteArray &text, qsizetype from);

inline QByteArray toWire(const QString &text) { return text.toLatin1(); }
inline QString fromWire(const QByteArray &bytes) { return QString::fromLatin1(bytes); }

QByteArray dataMessage(const QByteArray &data);
QByteArray setupInfoMessage(const QByteArray &info);
QByteArray titleMessage(const QByteArray &title);
QByteArray versionMessage(const QByteArray &version);
// The guest's announcement: its title frame and its version frame in one buffer, title first.
QByteArray announceMessage(const QByteArray &title, const QByteArray &version);
QByteArray welcomeMessage();
QByteArray leaveMessage();
// The tag padded with blanks or cut to exactly TagLength bytes.
QByteArray fitTag(const QByteArray &tag);
// Header frame of a file: the fitted tag and the length in plain decimal, deliberately not escaped.
QByteArray fileHeaderMessage(const QByteArray &tag, qint64 length);

} // namespace qx::link
