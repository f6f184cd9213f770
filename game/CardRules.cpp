#include "TurnEngine.h"

namespace qx {

int TurnEngine::CardValue(int card)
{
    const int rank = rankOf(card);
    // The order of the tests is the rule's own: four and king, nine, ten, jack and queen.
    if (rank == 4 || rank == 13)
        return 0;
    if (rank == 9)
        return NineValue;
    if (rank == 10)
        return -10;
    if (rank == 11 || rank == 12)
        return 10;
    return rank;
}

bool TurnEngine::isLegal(int card) const
{
    const int value = CardValue(card);
    return value == NineValue || m_state.Total + value <= TotalLimit;
}

void TurnEngine::applyCardToTotal(int card)
{
    const int value = CardValue(card);
    // A nine briefly adds 99 before it sets the total, so the floor and the nine follow the sum.
    int total = m_state.Total + value;
    if (total < 0)
        total = 0;
    if (value == NineValue)
        total = TotalLimit;
    m_state.Total = static_cast<int16_t>(total);
    if (rankOf(card) == 13)
        m_state.Direction = static_cast<int16_t>(-m_state.Direction);
}

} // namespace qx
