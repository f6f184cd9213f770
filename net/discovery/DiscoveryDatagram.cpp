#include "DiscoveryDatagram.h"

#include <QRegularExpression>

namespace qx::discovery {

namespace {
const QByteArray Title = QByteArrayLiteral("QX");

// A version is major.minor in plain decimal, as the game's handshake carries it.
bool isVersion(const QByteArray &text)
{
    static const QRegularExpression form(QStringLiteral("^[0-9]{1,3}\\.[0-9]{1,3}$"));
    return form.match(QString::fromLatin1(text)).hasMatch();
}

// A small count in plain decimal: no sign, no leading zero, no blanks.
int smallNumber(const QByteArray &text)
{
    if (text.isEmpty() || text.size() > 2 || (text.size() > 1 && text[0] == '0'))
        return -1;
    for (char c : text)
        if (c < '0' || c > '9')
            return -1;
    return text.toInt();
}

// A name shown in a list: no control characters, nothing that is not valid UTF-8.
bool isShowableName(const QByteArray &bytes, QString &name)
{
    QString decoded = QString::fromUtf8(bytes);
    if (decoded.isEmpty() || decoded.size() > MaxNameLength || decoded.toUtf8() != bytes)
        return false;
    for (QChar c : decoded)
        if (c.category() == QChar::Other_Control || c == QChar::ReplacementCharacter)
            return false;
    name = decoded;
    return true;
}

QByteArray head(const QString &version) { return Title + ' ' + version.toLatin1() + ' '; }
} // namespace

QByteArray buildQuery(const QString &version) { return head(version) + "QUERY"; }

QByteArray buildGoodbye(const QString &version) { return head(version) + "CLOSED"; }

QByteArray buildAnswer(const QString &version, int players, int freeSeats, const QString &name)
{
    // The name as a list can show it: control characters become blanks, and it is cut to fit.
    QString shown;
    for (QChar c : name)
        shown += c.category() == QChar::Other_Control ? QLatin1Char(' ') : c;
    shown = shown.trimmed().left(MaxNameLength);
    if (shown.isEmpty())
        shown = QStringLiteral("?");
    return head(version) + "GAME " + QByteArray::number(players) + ' ' + QByteArray::number(freeSeats) + ' '
           + shown.toUtf8();
}

std::optional<Datagram> parse(const QByteArray &bytes)
{
    if (bytes.size() > MaxDatagramSize || !bytes.startsWith(Title + ' '))
        return std::nullopt;
    // Title, version, word, and for an answer the two counts and the name (which may hold blanks).
    const qsizetype versionEnd = bytes.indexOf(' ', Title.size() + 1);
    if (versionEnd < 0)
        return std::nullopt;
    Datagram d;
    const QByteArray version = bytes.mid(Title.size() + 1, versionEnd - Title.size() - 1);
    if (!isVersion(version))
        return std::nullopt;
    d.version = QString::fromLatin1(version);
    const QByteArray rest = bytes.mid(versionEnd + 1);
    if (rest == "QUERY") {
        d.kind = Kind::Query;
        return d;
    }
    if (rest == "CLOSED") {
        d.kind = Kind::Goodbye;
        return d;
    }
    if (!rest.startsWith("GAME "))
        return std::nullopt;
    const QList<QByteArray> fields = rest.mid(5).split(' ');
    if (fields.size() < 3)
        return std::nullopt;
    d.kind = Kind::Answer;
    d.players = smallNumber(fields[0]);
    d.freeSeats = smallNumber(fields[1]);
    if (d.players < 2 || d.players > 10 || d.freeSeats < 0 || d.freeSeats > d.players)
        return std::nullopt;
    const qsizetype nameStart = 5 + fields[0].size() + 1 + fields[1].size() + 1;
    if (!isShowableName(rest.mid(nameStart), d.name))
        return std::nullopt;
    return d;
}

} // namespace qx::discovery
