#pragma once

#include "GameLines.h"

#include <QObject>
#include <QString>

namespace qx {

class NewGameDialog;
class Table;
class TurnEngine;
struct GameState;

// A network game on this copy: the game lines wired to the engine and to the New Game dialog's
// connections. The host's Host passes each guest's line to NetworkHost, but only the line of the
// guest that plays the seat to move; the guest's Guest passes the host's lines to NetworkGuest.
// It also carries out what a guest leaving (on the host) or the host dropping (on a guest) means
// for a running game. Every handler here may run the game on, through nested waits, so all of
// them are queued behind the sockets' signals.
class NetworkSession : public QObject {
    Q_OBJECT
public:
    NetworkSession(TurnEngine &engine, Table &table, NewGameDialog &dialog, QObject *parent = nullptr);

    GameLines &lines() { return m_lines; }

    // Guest: where a host's line waits when it arrives before this copy's game has started (the
    // network timer's tag, replayed by the New command), and the seat this copy plays.
    void setParkedLine(QString *tag) { m_parked = tag; }
    void setGuestSeat(const int *seat) { m_guestSeat = seat; }

    // Guest: a line from the host, applied to this copy's game.
    void NetworkGuest(const QString &line);
    // Guest: Take Over leaves the host and ends this copy's game.
    void guestTakeOver();

private:
    void hostReceiveData(int client, const QString &line);
    void hostClientLeft(int client);
    void guestReceiveData(const QString &line);
    void guestLostHost();

    TurnEngine &m_engine;
    GameState &m_state;
    Table &m_table;
    NewGameDialog &m_dialog;
    GameLines m_lines;
    QString *m_parked = nullptr;
    const int *m_guestSeat = nullptr;
};

} // namespace qx
