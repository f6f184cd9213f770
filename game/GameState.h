#pragma once

#include <QString>

#include <array>
#include <cstdint>

namespace qx {

constexpr int MaxSeats = 10;
constexpr int MaxDecks = 4;
constexpr int CardsPerPack = 52;
constexpr int TotalLimit = 99;
constexpr int StrikesOut = 3;

// Who plays a seat; the three states of a seat box in the New Game dialog.
enum PlayerKind : int16_t { Computer = 0, LocalHuman = 1, RemoteHuman = 2 };

// How this copy takes part in the game.
enum NetModeKind : int16_t { LocalGame = 0, NetHostMode = 1, NetGuestMode = 2 };

// Table slots: 0 is the moving card, 1 the pile, 2..4 the hand shown; the stock has its own id.
constexpr int MovingSlot = 0;
constexpr int PileSlot = 1;
constexpr int FirstHandSlot = 2;
constexpr int DeckSlot = 5;

// Stops the program on an index that can only come from a programming error. Always on, so a bad
// index never becomes undefined behaviour in a release build.
[[noreturn]] void indexFault(const char *what, int index);

inline void checkIndex(bool ok, const char *what, int index)
{
    if (!ok)
        indexFault(what, index);
}

// The whole state of one game, under the names the rest of the program uses.
// Seat arrays are indexed 1..10. Hand also answers seat 0 (never dealt, all zero), because the
// host's final game line is built after the current seat has already become 0.
struct GameState {
    int16_t Total = -1;
    int16_t CurrentPlayer = 0;
    int16_t NumPlayers = 0;
    int16_t Direction = 1;
    int16_t DeckPos = 1;
    int16_t NumberOfDecks = 1;
    int16_t NetMode = LocalGame;
    bool Pausing = false;
    bool ComputerClick = false;
    int16_t Frames = 10;
    int16_t CardBack = 0;

    // The pile tag: "" while a local human may play; otherwise the played slot ("0".."2") or, on a
    // host, the played card ("00".."51").
    QString PileTag;
    // The deck tag: when not empty, the card code the next draw must return.
    QString DeckTag;
    // The card shown on the pile, -1 when the pile is empty.
    int16_t PileCard = -1;

    int16_t &Hand(int slot, int seat)
    {
        checkIndex(slot >= 0 && slot <= 2, "hand slot", slot);
        checkIndex(seat >= 0 && seat <= MaxSeats, "hand seat", seat);
        return m_hand[slot][seat];
    }
    int16_t Hand(int slot, int seat) const { return const_cast<GameState *>(this)->Hand(slot, seat); }

    int16_t &Strikes(int seat) { return seatRef(m_strikes, seat, "strikes seat"); }
    int16_t Strikes(int seat) const { return const_cast<GameState *>(this)->Strikes(seat); }
    int16_t &PlayerType(int seat) { return seatRef(m_playerType, seat, "player type seat"); }
    int16_t PlayerType(int seat) const { return const_cast<GameState *>(this)->PlayerType(seat); }
    int16_t &PlayerClient(int seat) { return seatRef(m_playerClient, seat, "player client seat"); }
    int16_t PlayerClient(int seat) const { return const_cast<GameState *>(this)->PlayerClient(seat); }
    QString &PlayerName(int seat) { return seatRef(m_playerName, seat, "player name seat"); }
    const QString &PlayerName(int seat) const { return const_cast<GameState *>(this)->PlayerName(seat); }

    // Stock entries 1..NumberOfDecks*52; entry 0 is never used.
    int16_t &Deck(int i)
    {
        checkIndex(i >= 1 && i <= MaxDecks * CardsPerPack, "deck entry", i);
        return m_deck[i];
    }
    int16_t Deck(int i) const { return const_cast<GameState *>(this)->Deck(i); }

    int stockSize() const { return NumberOfDecks * CardsPerPack; }
    bool gameRunning() const { return CurrentPlayer >= 1; }
    bool isOut(int seat) const { return Strikes(seat) >= StrikesOut; }

private:
    template <typename T>
    static T &seatRef(std::array<T, MaxSeats + 1> &a, int seat, const char *what)
    {
        checkIndex(seat >= 1 && seat <= MaxSeats, what, seat);
        return a[seat];
    }

    std::array<std::array<int16_t, MaxSeats + 1>, 3> m_hand{};
    std::array<int16_t, MaxSeats + 1> m_strikes{};
    std::array<int16_t, MaxSeats + 1> m_playerType{};
    std::array<int16_t, MaxSeats + 1> m_playerClient{};
    std::array<QString, MaxSeats + 1> m_playerName{};
    std::array<int16_t, MaxDecks * CardsPerPack + 1> m_deck{};
};

} // namespace qx
