#pragma once

// The datagrams that let a guest find the games on its LAN: short texts on UDP, each beginning
// with "QX" and the version of the copy that sends it, fields separated by single blanks.
//   query   "QX 1.1 QUERY"                          a guest asking who hosts
//   answer  "QX 1.1 GAME <players> <free> <name>"   a host with an open lobby
//   goodbye "QX 1.1 CLOSED"                         a host whose lobby has just closed
// An answer tells what the guest's list shows and nothing more: the number of players, the free
// seats, the host's computer name (its address is the datagram's sender, its version the second
// field). Plain code without sockets, so that every damaged datagram can be tried on it.

#include <QByteArray>
#include <QString>

#include <optional>

namespace qx::discovery {

// The product's discovery port, the same number as the game's TCP port.
constexpr quint16 DiscoveryPort = 1099;
// Longer datagrams are not ours; a reader asks its socket for one byte more than this.
constexpr int MaxDatagramSize = 160;
// A computer name longer than this is cut when sent and refused when received.
constexpr int MaxNameLength = 63;

enum class Kind { Query, Answer, Goodbye };

struct Datagram {
    Kind kind = Kind::Query;
    QString version; // the sender's "major.minor"
    int players = 0; // answer only: 2 to 10
    int freeSeats = 0; // answer only: 0 to players
    QString name; // answer only: the host's computer name
};

QByteArray buildQuery(const QString &version);
QByteArray buildAnswer(const QString &version, int players, int freeSeats, const QString &name);
QByteArray buildGoodbye(const QString &version);

// The datagram's meaning, or nothing for anything that is not exactly one of the three forms.
std::optional<Datagram> parse(const QByteArray &bytes);

} // namespace qx::discovery
