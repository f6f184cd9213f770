#pragma once

#include "GameState.h"

#include <QCoreApplication>
#include <QCoreApplication>
#include <QString>

namespace qx {

// The name a seat goes by on the table: the name the New Game dialog gave it (a network guest's
// computer name), else "Player n" for a person and "Computer n" for the computer. A guest cannot
// tell who plays the other seats, so there every unnamed seat is "Player n".
inline QString seatDisplayName(const GameState &state, int seat)
{
    const QString &given = state.PlayerName(seat);
    if (!given.isEmpty())
        return given;
    const bool computer = state.PlayerType(seat) == Computer && state.NetMode != NetGuestMode;
    return computer ? QCoreApplication::translate("qx::SeatName", "Computer %1").arg(seat)
                    : QCoreApplication::translate("qx::SeatName", "Player %1").arg(seat);
}

} // namespace qx
