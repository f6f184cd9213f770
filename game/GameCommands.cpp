#include "TurnEngine.h"

#include "GameTexts.h"
#include "Table.h"

namespace qx {

void TurnEngine::StartNewGame(const NewGameSetup &setup)
{
    checkIndex(setup.numPlayers >= 2 && setup.numPlayers <= MaxSeats, "number of players", setup.numPlayers);
    // A game that sits in a wait underneath this call stops when its wait returns.
    const unsigned serial = ++m_gameSerial;
    m_state.ComputerClick = false;
    m_state.PileTag.clear();
    setPausing(false);
    m_table.hideResume();

    m_state.NumPlayers = static_cast<int16_t>(setup.numPlayers);
    for (int seat = 1; seat <= MaxSeats; ++seat) {
        const SeatChoice &choice = setup.seats[static_cast<size_t>(seat - 1)];
        m_state.PlayerType(seat) = choice.type;
        m_state.PlayerClient(seat) = choice.client;
        m_state.PlayerName(seat) = choice.name;
        m_state.Strikes(seat) = 0;
    }
    m_state.Total = 0;
    m_state.CurrentPlayer = 1;
    m_state.Direction = 1;
    m_table.setCaption(GameTexts::turnCaption(1));
    m_table.refresh();

    m_state.NetMode = setup.netMode;
    if (m_state.NetMode == NetGuestMode) {
        // A guest neither shuffles nor deals: the host's lines drive its game.
        m_table.setGuestMenusEnabled(false);
        return;
    }

    ShuffleDeck();
    DealCards();
    m_table.refreshStrikeMarks();
    if (m_state.PlayerType(1) == LocalHuman && !m_state.isOut(1)) {
        // Seat 1 moves first; its click starts the engine.
    } else {
        m_state.CurrentPlayer = m_state.NumPlayers;
        PlayTurns();
        if (!sameGame(serial))
            return;
    }

    // Made after the engine has returned, so a human who follows computer seats is announced
    // and paused for a second time.
    if (m_table.isChecked(Check::PauseBeforeHumans)) {
        m_table.setTakeOverEnabled(false);
        m_table.showMessage(GameTexts::playerTurn(m_state.CurrentPlayer));
        WaitForResume();
        if (!sameGame(serial))
            return;
    }
    m_table.setTakeOverEnabled(personMayMove());
}

bool TurnEngine::personMayMove() const
{
    const int seat = m_state.CurrentPlayer;
    return m_state.NetMode != NetGuestMode && seat >= 1 && seat <= m_state.NumPlayers && !m_state.Pausing
           && m_state.PlayerType(seat) == LocalHuman && !m_state.isOut(seat) && m_state.PileTag.isEmpty();
}

void TurnEngine::TakeOver()
{
    if (m_state.NetMode == NetGuestMode || m_state.CurrentPlayer < 1 || m_state.CurrentPlayer > MaxSeats)
        return;
    const int seat = m_state.CurrentPlayer;
    // Only between moves: during a pause the engine would not start again, and a human's card
    // still on its way must not be followed by a second move of the same seat.
    if (m_state.Pausing || (m_state.PlayerType(seat) == LocalHuman && !m_state.PileTag.isEmpty()))
        return;

    m_state.PlayerType(seat) = Computer;
    int back = seat - m_state.Direction;
    if (back < 1)
        back = m_state.NumPlayers;
    else if (back > m_state.NumPlayers)
        back = 1;
    m_state.CurrentPlayer = static_cast<int16_t>(back);
    PlayTurns();
}

void TurnEngine::AbandonGame()
{
    m_table.setCaption(GameTexts::idleCaption());
    m_table.showMessage(QString());
    m_table.setTakeOverEnabled(false);
    clearHand();
    clearPile();
    m_state.PileTag.clear();
    m_state.CurrentPlayer = 0;
    m_state.NumPlayers = 0;
    m_state.Total = -1;
    m_state.Pausing = false;
    m_state.ComputerClick = false;
    m_table.hideResume();
    m_table.refresh();
    ++m_gameSerial;
    m_table.wake();
}

} // namespace qx
