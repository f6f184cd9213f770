#pragma once

#include "GameState.h"
#include "NewGameSetup.h"

#include <QString>

#include <vector>

namespace qx {

class Table;
class RandomSource;
class NetworkHooks;
enum class Check;

// The game itself: stock, rules, computer player, turn cycle, strikes and the game commands.
// Everything it shows goes through Table; everything it sends goes through NetworkHooks.
class TurnEngine {
public:
    TurnEngine(GameState &state, Table &table, RandomSource &random);

    void setNetworkHooks(NetworkHooks *hooks) { m_net = hooks; }
    GameState &state() { return m_state; }
    const GameState &state() const { return m_state; }

    // Card rules. A nine's value is a marker: the total becomes 99, nothing is added.
    static constexpr int NineValue = 99;
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
    // A person at this computer is being asked for a card now: Take Over may hand the seat over.
    bool personMayMove() const;
    // The game is dropped without a winner (a change of the number of decks).
    void AbandonGame();

    // Shows a card on the pile and remembers it as the pile card.
    void showPile(int card);
    void clearPile();
    // Sets the pile tag and wakes every wait that watches it.
    void setPileTag(const QString &tag);
    // The seat's three cards face up in the hand slots 2..4; clearHand empties those slots.
    void showHand(int seat);
    void clearHand();

    // Seat that comes after `from` in `direction`, skipping seats that are out; `from` itself when
    // no other seat is in play.
    int nextSeat(int from, int direction) const;

    // Counts every game this engine started, abandoned or ended; a wait that returns into a game
    // that has been replaced or ended meanwhile uses it to stop instead of playing on.
    unsigned gameSerial() const { return m_gameSerial; }

private:
    // The standstill before a move or after a strike: a timed pause while the option is unchecked,
    // else a wait for "&Resume". False when the game was replaced or ended during the wait.
    bool pauseOrWait(Check item, double seconds = 0.5);
    void playComputerQuickly(int seat, int slot);
    void setPausing(bool pausing);
    bool sameGame(unsigned serial) const { return serial == m_gameSerial; }
    void announceWinner();
    void startNewRound();

    // Stock helpers: a full stock in pack order with one random key per entry, and the exchange
    // sort of the entries first..last by their keys.
    std::vector<float> freshStock();
    void sortStock(std::vector<float> &keys, int first, int last);
    void takeOutHeldCards(int &removed);
    void takeOutPileCard(int &removed);

    GameState &m_state;
    Table &m_table;
    RandomSource &m_random;
    NetworkHooks *m_net = nullptr;
    unsigned m_gameSerial = 0;
};

} // namespace qx
