#include "GameTexts.h"

#include "GameState.h"

namespace qx {

QString GameTexts::strike(int seat, int strikes, bool out, int playerKind)
{
    if (out) {
        switch (playerKind) {
        case LocalHuman: return tr("Player %1\r\nStrike %2! You're Out!").arg(seat).arg(strikes);
        case RemoteHuman: return tr("Player %1\r\nStrike %2! They're Out!").arg(seat).arg(strikes);
        case Computer: return tr("Player %1\r\nStrike %2! I'm Out!").arg(seat).arg(strikes);
        default: break;
        }
    }
    return tr("Player %1\r\nStrike %2!").arg(seat).arg(strikes);
}

} // namespace qx
