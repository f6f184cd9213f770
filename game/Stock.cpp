#include "TurnEngine.h"

#include "GameTexts.h"
#include "RandomSource.h"
#include "Table.h"

#include <utility>

namespace qx {

namespace {

// The numeric value of a text as the deck tag reads it: leading blanks, an optional sign and the
// digits that follow; anything else ends the number, and text without digits is 0.
int numericValue(const QString &text)
{
    int pos = 0;
    while (pos < text.size() && text[pos] == QLatin1Char(' '))
        ++pos;
    bool negative = false;
    if (pos < text.size() && (text[pos] == QLatin1Char('-') || text[pos] == QLatin1Char('+')))
        negative = text[pos++] == QLatin1Char('-');
    int value = 0;
    while (pos < text.size() && text[pos].isDigit() && value < 100000)
        value = value * 10 + text[pos++].digitValue();
    return negative ? -value : value;
}

} // namespace

std::vector<float> TurnEngine::freshStock()
{
    const int n = m_state.stockSize();
    checkIndex(m_state.NumberOfDecks >= 1 && m_state.NumberOfDecks <= MaxDecks, "number of decks",
               m_state.NumberOfDecks);
    std::vector<float> keys(static_cast<size_t>(n) + 1, 0.0f);
    m_random.seedFromClock();
    for (int i = 1; i <= n; ++i) {
        keys[static_cast<size_t>(i)] = static_cast<float>(m_random.next());
        m_state.Deck(i) = static_cast<int16_t>((i - 1) % CardsPerPack);
    }
    return keys;
}

void TurnEngine::sortStock(std::vector<float> &keys, int first, int last)
{
    // The exchange sort is the chosen method: at most 208 entries, and equal keys stay put.
    for (int i = first; i <= last; ++i) {
        for (int j = i + 1; j <= last; ++j) {
            if (keys[static_cast<size_t>(i)] > keys[static_cast<size_t>(j)]) {
                std::swap(keys[static_cast<size_t>(i)], keys[static_cast<size_t>(j)]);
                std::swap(m_state.Deck(i), m_state.Deck(j));
            }
        }
    }
}

void TurnEngine::ShuffleDeck()
{
    const QString saved = m_table.caption();
    m_table.setCaption(GameTexts::shufflingCaption());
    std::vector<float> keys = freshStock();
    sortStock(keys, 1, m_state.stockSize());
    m_state.DeckPos = 1;
    m_table.setCaption(saved);
}

void TurnEngine::takeOutHeldCards(int &removed)
{
    const int n = m_state.stockSize();
    for (int slot = 0; slot <= 2; ++slot) {
        for (int seat = 1; seat <= m_state.NumPlayers; ++seat) {
            const int held = m_state.Hand(slot, seat);
            for (int entry = 1; entry <= n; ++entry) {
                if (m_state.Deck(entry) != held)
                    continue;
                ++removed;
                // The shift starts at the front on purpose: each held card found takes the
                // front card out of the stock, and the held card itself stays in it.
                for (int m = 1; m <= n - removed; ++m)
                    m_state.Deck(m) = m_state.Deck(m + 1);
                break;
            }
        }
    }
}

void TurnEngine::takeOutPileCard(int &removed)
{
    if (m_state.PileCard < 0)
        return;
    const int n = m_state.stockSize();
    for (int entry = 1; entry <= n; ++entry) {
        if (m_state.Deck(entry) != m_state.PileCard)
            continue;
        for (int m = entry; m < n; ++m)
            m_state.Deck(m) = m_state.Deck(m + 1);
        ++removed;
        return;
    }
}

void TurnEngine::ReshuffleDeck()
{
    const QString saved = m_table.caption();
    m_table.setCaption(GameTexts::shufflingCaption());
    std::vector<float> keys = freshStock();
    int removed = 0;
    takeOutHeldCards(removed);
    takeOutPileCard(removed);
    sortStock(keys, removed + 1, m_state.stockSize());
    m_state.DeckPos = static_cast<int16_t>(removed + 1);
    m_table.setCaption(saved);
}

int TurnEngine::DrawCard()
{
    if (!m_state.DeckTag.isEmpty()) {
        const int card = numericValue(m_state.DeckTag);
        m_state.DeckTag.clear();
        // A tag that names no card yields card 0, like text that is not a number.
        return card >= 0 && card < CardsPerPack ? card : 0;
    }
    if (m_state.DeckPos > m_state.stockSize())
        ReshuffleDeck();
    return m_state.Deck(m_state.DeckPos++);
}

void TurnEngine::DealCards()
{
    for (int seat = 1; seat <= m_state.NumPlayers; ++seat) {
        for (int slot = 0; slot <= 2; ++slot) {
            m_state.Hand(slot, seat) = static_cast<int16_t>(DrawCard());
            if (seat == 1)
                m_table.showFace(FirstHandSlot + slot, m_state.Hand(slot, seat));
        }
    }
    clearPile();
    m_state.CurrentPlayer = 1;
}

} // namespace qx
