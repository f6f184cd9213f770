#include "TurnEngine.h"

#include "RandomSource.h"

namespace qx {

namespace {
constexpr double NineChance = 0.7; // the nine is preferred when the draw lies above this
} // namespace

int TurnEngine::ChooseCard(int seat)
{
    int value[3];
    bool bad[3];
    for (int s = 0; s <= 2; ++s) {
        value[s] = CardValue(m_state.Hand(s, seat));
        bad[s] = !isLegal(m_state.Hand(s, seat));
    }

    // The highest ordinary card; ties keep the lower slot, and a nine is never chosen here.
    int best = -1;
    int bestValue = -11;
    for (int s = 0; s <= 2; ++s) {
        if (!bad[s] && value[s] != NineValue && value[s] > bestValue) {
            best = s;
            bestValue = value[s];
        }
    }

    // Drawn on every call, so a choice always advances the sequence by exactly one.
    const double r = m_random.next();
    const bool preferNine = r > NineChance || (bestValue <= 0 && best >= 0);
    if (preferNine) {
        for (int s = 0; s <= 2; ++s) {
            if (!bad[s] && value[s] == NineValue)
                return s;
        }
        return best;
    }
    if (best > 0)
        return best;
    // Falling through here is what lets a seat holding nothing playable but a nine play it.
    for (int s = 0; s <= 2; ++s) {
        if (!bad[s])
            return s;
    }
    return -1;
}

} // namespace qx
