#pragma once

#include "NetworkHooks.h"

#include <QString>

#include <functional>

namespace qx {

class Table;
class TurnEngine;
struct GameState;

// The in-game lines that keep the copies of a network game in step. The host's copy is the
// authority: after every move it sends every guest a game line with the whole visible state, a
// guest whose turn it is answers with a play line, and the game ends with a win line.
//
// Game line: players-1, current-1, direction+1, packs, a card drawn for the guests' next draw
// ("00"), the pile card ("00" or "-1"), one strike digit per seat, the total ("00") and the
// current seat's three cards ("00" each). Play line: "PLAY", the slot, the refill card ("00").
class GameLines : public NetworkHooks {
public:
    using Send = std::function<void(const QString &line)>;

    GameLines(TurnEngine &engine, Table &table);

    // Host: sends a line to every guest. Guest: sends a line to the host.
    void setSendToGuests(Send send) { m_sendToGuests = std::move(send); }
    void setSendToHost(Send send) { m_sendToHost = std::move(send); }
    // Ends the network session (the New Game dialog's Cancel).
    void setEndSession(std::function<void()> end) { m_endSession = std::move(end); }

    // NetworkHooks: the turn engine's calls on the host.
    void sendGameLine() override;
    void sendWinLine(int winner) override;
    void endNetworkSession() override;

    // Host: the state as a game line. Draws the card of field 5 from the host's stock.
    QString CreateNetLine();
    // Guest: applies a game line and leaves the unparsed tail in `line`. Returns false (and
    // changes nothing) for a line that is not a well-formed game line.
    bool ProcessNetLine(QString &line);
    // Host: a line from the guest who plays the current seat, or "DROP" when that guest left.
    void NetworkHost(const QString &line);
    // Host: the guest who plays the seat to move has gone; the computer plays on, whether or
    // not this copy still calls itself the host (a New Game dialog may be open over the game).
    void dropCurrentSeat();
    // Guest: a line from the host.
    void NetworkGuest(const QString &line);

    // Guest: the game starts on this copy; `seat` is the seat it plays. A line that arrived
    // before the start is replayed now.
    void startGuestGame(int seat);

    int NetSeat() const { return m_netSeat; }
    int StrikeSeat() const { return m_strikeSeat; }
    // Host: field 5 of the last game line, -1 before the first.
    int lastDrawn() const { return m_lastDrawn; }
    const QString &parkedLine() const { return m_parkedLine; }
    void clearParkedLine() { m_parkedLine.clear(); }

private:
    void showGuestStrike();
    void playGuestTurn();
    void announceGuestWinner(const QString &tail);

    TurnEngine &m_engine;
    GameState &m_state;
    Table &m_table;
    Send m_sendToGuests;
    Send m_sendToHost;
    std::function<void()> m_endSession;
    int m_netSeat = 0;
    int m_strikeSeat = 0;
    int m_lastDrawn = -1;       // host: field 5 of the last game line, the only refill a guest can have
    unsigned m_guestLines = 0;  // guest: lines applied so far; a newer one ends a wait for a card
    QString m_parkedLine; // the network timer's tag: a line received before the guest's game began
};

} // namespace qx
