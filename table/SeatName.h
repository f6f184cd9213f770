#pragma once

#include "GameState.h"

#include <QString>

namespace qx {

// The name a seat goes by on the table: the name the New Game dialog gave it (a network guest's
// computer name), else "Player n" for a person and "Computer n" for the computer.
inline QString seatDisplayName(const GameState &state, int seat)
{
    const QString &given = state.PlayerName(seat);
    if (!given.isEmpty())
        return given;
    return (state.PlayerType(seat) == Computer ? QStringLiteral("Computer ") : QStringLiteral("Player "))
           + QString::number(seat);
}

} // namespace qx
