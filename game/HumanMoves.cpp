#include "TurnEngine.h"

#include "Table.h"

namespace qx {

void TurnEngine::picCard_Click(int index)
{
    if (m_state.Pausing || m_state.CurrentPlayer < 1 || m_state.CurrentPlayer > MaxSeats)
        return;
    const int seat = m_state.CurrentPlayer;
    const int kind = m_state.PlayerType(seat);
    if (kind == RemoteHuman || (kind != LocalHuman && !m_state.ComputerClick))
        return;
    if (index < FirstHandSlot || index > FirstHandSlot + 2 || !m_state.PileTag.isEmpty())
        return;

    const int slot = index - FirstHandSlot;
    const int card = m_state.Hand(slot, seat);
    if (!isLegal(card)) {
        if (m_table.isChecked(Check::Sound))
            m_table.beep();
        return;
    }

    const unsigned serial = m_gameSerial;
    const auto playGoesOn = [&] { return sameGame(serial) && m_state.CurrentPlayer == seat; };
    // The tag is filled before the card starts to move: the animation lets events run, and a
    // second click meanwhile must find a play in progress.
    setPileTag(m_state.NetMode == NetHostMode ? QStringLiteral("%1").arg(card, 2, 10, QLatin1Char('0'))
                                              : QString::number(slot));
    m_table.setTakeOverEnabled(false); // the seat has moved; its card is on its way
    m_table.animateCardMove(index, PileSlot);
    if (!playGoesOn())
        return;
    showPile(card);
    applyCardToTotal(card);
    m_table.refresh();

    m_table.animateCardMove(DeckSlot, index);
    if (!playGoesOn())
        return;
    m_state.Hand(slot, seat) = static_cast<int16_t>(DrawCard());
    m_table.animateCardFlip(index, m_state.Hand(slot, seat));
    if (!playGoesOn())
        return;
    m_table.pause(0.7);
    if (!playGoesOn())
        return;

    // A shown computer play returns to the engine that made it.
    if (!m_state.ComputerClick)
        PlayTurns();
}

void TurnEngine::Form_KeyPress(int keyAscii)
{
    // Outside a game there is no seat to read; the key is ignored.
    if (m_state.CurrentPlayer < 1 || m_state.CurrentPlayer > MaxSeats)
        return;
    if (m_state.PlayerType(m_state.CurrentPlayer) != Computer && keyAscii >= '1' && keyAscii <= '3')
        picCard_Click(keyAscii - 47);
}

} // namespace qx
