#pragma once

#include "GameState.h"
#include "NewGameSetup.h"

#include <QString>

namespace qx {

class Table;
class RandomSource;
class NetworkHooks;

// The game itself: stock, rules, computer player, turn cycle, strikes and the game commands.
// Everything it shows goes through Table; everything it sends goes through NetworkHooks.
class TurnEngine {
public:
    TurnEngine(GameState &state, Table &table, RandomSource &random);

    void setNetworkHooks(NetworkHooks *hooks) { m_net = hooks; }
    GameState &state() { return m_state; }
    const GameState &state() const { return m_state; }

    // Card rules.
    static int CardValue(int card);
    static int rankOf(int card) { return card % 13 + 1; }
    bool isLegal(int card) const;
    // Adds a played card to the total and direction (floor at 0, nine to 99, king reverses).
    void applyCardToTotal(int card);

    // Stock.
    void ShuffleDeck();
    void ReshuffleDeck();
    int DrawCard();
    void DealCards();

    // Computer player: the slot to play, or -1 when no card is playable. Draws one random number.
    int ChooseCard(int seat);

    // Turn cycle and human moves.
    void PlayTurns();
    void picCard_Click(int index);
    void Form_KeyPress(int keyAscii);
    void cmdContinue_Click();
    void WaitForResume();
    void TakeStrike();
    void GameOver();

    // Game commands (engine side; the questions and the dialog belong to the window).
    // Starts a game from the dialog's choices: steps from "Pausing = False" on. For a guest it only
    // sets the state up and returns; the game lines drive the rest.
    void StartNewGame(const NewGameSetup &setup);
    // Take Over on a host or a local game: the current seat becomes a computer seat.
    void TakeOver();
    // The game is dropped without a winner (a change of the number of decks).
    void AbandonGame();

    // Shows a card on the pile and remembers it as the pile card.
    void showPile(int card);
    void clearPile();

    // Seat that comes after `from` in `direction`, skipping seats that are out; `from` itself when
    // no other seat is in play.
    int nextSeat(int from, int direction) const;

    // Counts every game this engine started or abandoned; a wait that returns into a game that has
    // been replaced meanwhile uses it to stop instead of playing on.
    unsigned gameSerial() const { return m_gameSerial; }

private:
    void pauseBeforeMove(int item);
    void playComputerQuickly(int seat, int slot);

    GameState &m_state;
    Table &m_table;
    RandomSource &m_random;
    NetworkHooks *m_net = nullptr;
    unsigned m_gameSerial = 0;
};

} // namespace qx
