#pragma once

#include "GameState.h"

#include <QCoreApplication>
#include <QString>

#include <algorithm>

namespace qx {

// The words under the stock: how many cards it still holds, or nothing when this copy cannot know
// (no game, or a guest, whose stock lives on the host).
inline QString stockCountText(const GameState &state)
{
    if ((!state.gameRunning() && state.Total < 0) || state.NetMode == NetGuestMode)
        return {};
    const int left = std::max(0, state.stockSize() - state.DeckPos + 1);
    return left == 1 ? QCoreApplication::translate("qx::TablePainter", "1 card left")
                     : QCoreApplication::translate("qx::TablePainter", "%1 cards left").arg(left);
}

} // namespace qx
