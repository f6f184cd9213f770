#include "TurnEngine.h"

#include "Table.h"

namespace qx {

TurnEngine::TurnEngine(GameState &state, Table &table, RandomSource &random)
    : m_state(state), m_table(table), m_random(random)
{
}

void TurnEngine::showPile(int card)
{
    m_state.PileCard = static_cast<int16_t>(card);
    m_table.showFace(PileSlot, card);
}

void TurnEngine::clearPile()
{
    m_state.PileCard = -1;
    m_table.clearSlot(PileSlot);
}

void TurnEngine::setPileTag(const QString &tag)
{
    m_state.PileTag = tag;
    m_table.wake();
}

void TurnEngine::setPausing(bool pausing)
{
    m_state.Pausing = pausing;
    m_table.wake();
}

void TurnEngine::showHand(int seat)
{
    for (int slot = 0; slot < 3; ++slot)
        m_table.showFace(FirstHandSlot + slot, m_state.Hand(slot, seat));
}

void TurnEngine::clearHand()
{
    for (int slot = 0; slot < 3; ++slot)
        m_table.clearSlot(FirstHandSlot + slot);
}

int TurnEngine::nextSeat(int from, int direction) const
{
    const int count = m_state.NumPlayers;
    int seat = from;
    // At most one lap: coming back to the start means nobody else is in play.
    for (int step = 0; step < count; ++step) {
        seat += direction;
        if (seat > count)
            seat = 1;
        else if (seat < 1)
            seat = count;
        if (seat == from)
            return from;
        if (!m_state.isOut(seat))
            return seat;
    }
    return from;
}

} // namespace qx
