#include "TurnEngine.h"

#include "GameTexts.h"
#include "NetworkHooks.h"
#include "Table.h"

namespace qx {

void TurnEngine::TakeStrike()
{
    const int seat = m_state.CurrentPlayer;
    if (seat < 1 || seat > MaxSeats)
        return;

    const int strikes = ++m_state.Strikes(seat);
    m_table.refresh();
    m_table.refreshStrikeMarks();
    if (m_state.NetMode == NetHostMode && m_net)
        m_net->sendGameLine();
    setPileTag(QString());

    const bool out = strikes >= StrikesOut;
    m_table.showMessage(GameTexts::strike(seat, strikes, out, m_state.PlayerType(seat)));
    if (!pauseOrWait(Check::PauseAfterStrikes, 1.5))
        return;

    // A guest that is out leaves what follows to the host's lines.
    if (m_state.NetMode == NetGuestMode && m_state.PlayerType(seat) == LocalHuman && out)
        return;

    if (out) {
        int outSeats = 0;
        for (int i = 1; i <= m_state.NumPlayers; ++i)
            outSeats += m_state.isOut(i) ? 1 : 0;
        if (outSeats == m_state.NumPlayers - 1) {
            announceWinner();
            return;
        }
    }
    startNewRound();
}

void TurnEngine::announceWinner()
{
    const unsigned serial = m_gameSerial;
    m_state.CurrentPlayer = 0;
    for (int seat = 1; seat <= m_state.NumPlayers; ++seat) {
        if (m_state.isOut(seat))
            continue;
        m_table.showMessage(GameTexts::wins(seat));
        if (m_table.isChecked(Check::Sound) && m_state.PlayerType(seat) == LocalHuman)
            m_table.playCheer();
        if (m_state.NetMode == NetHostMode && m_net)
            m_net->sendWinLine(seat);
        // The result stays on the table until "&Resume" is pressed.
        WaitForResume();
        if (!sameGame(serial))
            return;
    }
    GameOver();
}

void TurnEngine::startNewRound()
{
    // Take Over stays off until seat 1 is really asked for a card: the pause before its turn
    // comes first, and a person may not act during it.
    m_table.setTakeOverEnabled(false);
    m_state.Total = 0;
    m_state.Direction = 1;
    // Every seat, out or not, is dealt from a full new stock.
    ShuffleDeck();
    DealCards();
    m_table.setCaption(GameTexts::turnCaption(1));
    // The engine's next advance lands on seat 1, or the next seat still in play.
    m_state.CurrentPlayer = m_state.NumPlayers;
    m_table.refresh();
}

void TurnEngine::GameOver()
{
    // Whatever waits inside the game that ends here must not play on when it returns.
    ++m_gameSerial;
    m_table.setGuestMenusEnabled(true);
    m_table.hideWaitIndicator();
    m_table.setNetworkTimer(false);
    m_table.setCaption(GameTexts::idleCaption());
    clearHand();
    clearPile();
    setPileTag(QString());
    m_table.setTakeOverEnabled(false);
    m_state.CurrentPlayer = 0;
    m_state.NumPlayers = 0;
    m_state.Total = -1;
    m_table.refresh();
    m_table.refreshStrikeMarks();
    if (m_state.NetMode != LocalGame) {
        if (m_net)
            m_net->endNetworkSession();
        m_state.NetMode = LocalGame;
    }
    m_table.wake();
}

} // namespace qx
