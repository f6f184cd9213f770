#pragma once

#include "GameState.h"

#include <QString>

#include <array>

namespace qx {

// What the New Game dialog hands to the game when it closes with OK.
struct SeatChoice {
    int16_t type = Computer; // PlayerKind
    QString name;            // the seat box's tool tip
    int16_t client = 0;      // guest slot that plays the seat on a host, 0 otherwise
};

struct NewGameSetup {
    int numPlayers = 2;                     // 2..10
    std::array<SeatChoice, MaxSeats> seats; // seats 1..10 at index 0..9
    int16_t netMode = LocalGame;            // NetModeKind
};

} // namespace qx
