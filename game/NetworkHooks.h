#pragma once

namespace qx {

// The points where the turn engine meets network play. The game lines of net/ implement it; a local
// game has none. The rules core never sees a socket.
class NetworkHooks {
public:
    virtual ~NetworkHooks() = default;
    // Host: send every guest a game line of the current state.
    virtual void sendGameLine() = 0;
    // Host: send every guest the win line (a final game line, "WIN" and the winner as "00").
    virtual void sendWinLine(int winner) = 0;
    // Any copy in a network game: end the network session (the New Game dialog's Cancel).
    virtual void endNetworkSession() = 0;
};

} // namespace qx
