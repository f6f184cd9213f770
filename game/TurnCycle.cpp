#include "TurnEngine.h"

#include "GameTexts.h"
#include "NetworkHooks.h"
#include "Table.h"

namespace qx {

void TurnEngine::WaitForResume()
{
    setPausing(true);
    m_table.waitForResume([this] { return !m_state.Pausing; });
    m_table.refresh();
}

void TurnEngine::cmdContinue_Click()
{
    m_table.hideResume();
    setPausing(false);
}

bool TurnEngine::pauseOrWait(Check item, double seconds)
{
    const unsigned serial = m_gameSerial;
    if (!m_table.isChecked(item)) {
        setPausing(true);
        m_table.pause(seconds);
        setPausing(false);
    } else {
        WaitForResume();
    }
    return sameGame(serial);
}

void TurnEngine::playComputerQuickly(int seat, int slot)
{
    const int card = m_state.Hand(slot, seat);
    applyCardToTotal(card);
    showPile(card);
    setPileTag(QStringLiteral("%1").arg(card, 2, 10, QLatin1Char('0')));
    m_state.Hand(slot, seat) = static_cast<int16_t>(DrawCard());
    m_table.refresh();
}

void TurnEngine::PlayTurns()
{
    const unsigned serial = m_gameSerial;
    for (;;) {
        // A click that arrives during a pause must not start a second engine, and a guest's
        // turns are driven by the host's lines.
        if (m_state.Pausing)
            return;
        if (m_state.CurrentPlayer == 0 || m_state.NetMode == NetGuestMode)
            return;

        clearHand();
        const int seat = nextSeat(m_state.CurrentPlayer, m_state.Direction);
        if (seat == m_state.CurrentPlayer)
            return;
        m_state.CurrentPlayer = static_cast<int16_t>(seat);
        // Nobody may hand a seat over until a person here is asked for a card.
        m_table.setTakeOverEnabled(false);
        m_table.setCaption(GameTexts::turnCaption(seat));
        m_table.refresh();
        m_table.refreshStrikeMarks();

        const int kind = m_state.PlayerType(seat);
        // Events run inside every wait; when one of them has moved the game on (Take Over, a
        // new game, the end of the game), this engine has nothing left to do.
        const auto turnGoesOn = [&] {
            return sameGame(serial) && m_state.CurrentPlayer == seat && m_state.PlayerType(seat) == kind;
        };
        if (m_state.NetMode == NetHostMode && kind != RemoteHuman && m_net)
            m_net->sendGameLine();

        if (kind == LocalHuman) {
            m_table.showMessage(GameTexts::playerTurn(seat));
            m_table.processEvents();
            if (!turnGoesOn() || !pauseOrWait(Check::PauseBeforeHumans) || !turnGoesOn())
                return;
            showHand(seat);
            if (ChooseCard(seat) >= 0) {
                setPileTag(QString()); // the engine now waits for the human's card
                m_table.setTakeOverEnabled(true);
                return;
            }
            TakeStrike();
        } else if (kind == RemoteHuman) {
            if (ChooseCard(seat) >= 0) {
                if (m_state.NetMode == NetHostMode && m_net)
                    m_net->sendGameLine();
                m_table.setNetworkTimer(true); // the remote player's card arrives as a game line
                return;
            }
            TakeStrike();
        } else {
            m_table.showMessage(GameTexts::computerTurn(seat));
            m_table.processEvents();
            if (!turnGoesOn() || !pauseOrWait(Check::PauseBeforeComputers) || !turnGoesOn())
                return;
            const int choice = ChooseCard(seat);
            if (choice < 0) {
                showHand(seat);
                TakeStrike();
            } else if (!m_table.isChecked(Check::ShowComputerMoves)) {
                playComputerQuickly(seat, choice);
            } else {
                // Played through the click handler so that the move is animated like a human's.
                showHand(seat);
                m_state.ComputerClick = true;
                setPileTag(QString());
                picCard_Click(choice + FirstHandSlot);
                m_state.ComputerClick = false;
                if (!turnGoesOn())
                    return;
            }
        }
        if (!sameGame(serial))
            return;
    }
}

} // namespace qx
