#pragma once

#include "FakeTable.h"
#include "ScriptedRandom.h"
#include "TurnEngine.h"

namespace qx::test {

// Card codes by rank in the first suit: ace 0, two 1, ..., nine 8, ten 9, jack 10, queen 11, king 12.
constexpr int card(int rank, int suit = 0) { return suit * 13 + rank - 1; }
constexpr int Ace = 1, Four = 4, Nine = 9, Ten = 10, Jack = 11, Queen = 12, King = 13;

// One engine on a fake table, with the Resume button pressed whenever the engine waits for it.
struct EngineFixture {
    GameState state;
    FakeTable table;
    ScriptedRandom random;
    TurnEngine engine{state, table, random};

    explicit EngineFixture(unsigned seed = 1) : random(seed)
    {
        table.onResume = [this] { engine.cmdContinue_Click(); };
    }

    void setHand(int seat, int a, int b, int c)
    {
        state.Hand(0, seat) = static_cast<int16_t>(a);
        state.Hand(1, seat) = static_cast<int16_t>(b);
        state.Hand(2, seat) = static_cast<int16_t>(c);
    }

    // A round in progress without the New Game command: seats of the given kinds, a shuffled
    // stock and dealt hands, the pile empty, `current` to move next after `PlayTurns` advances.
    void setUpRound(std::initializer_list<int16_t> kinds, int decks = 1)
    {
        state.NumPlayers = static_cast<int16_t>(kinds.size());
        state.NumberOfDecks = static_cast<int16_t>(decks);
        int seat = 1;
        for (int16_t kind : kinds)
            state.PlayerType(seat++) = kind;
        state.Total = 0;
        state.Direction = 1;
        engine.ShuffleDeck();
        engine.DealCards();
    }

    static NewGameSetup setup(std::initializer_list<int16_t> kinds, int16_t netMode = LocalGame)
    {
        NewGameSetup s;
        s.numPlayers = static_cast<int>(kinds.size());
        int i = 0;
        for (int16_t kind : kinds) {
            s.seats[static_cast<size_t>(i)].type = kind;
            s.seats[static_cast<size_t>(i)].name = QStringLiteral("Seat %1").arg(i + 1);
            ++i;
        }
        s.netMode = netMode;
        return s;
    }
};

} // namespace qx::test
