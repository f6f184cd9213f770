#pragma once

#include <QCoreApplication>
#include <QString>

namespace qx {

// The captions and messages the engine puts on the table, each in one place, in the player's
// language (the English below under an English or C locale). They are made when shown, not kept,
// so that they follow the translation installed at start-up.
class GameTexts {
    Q_DECLARE_TR_FUNCTIONS(GameTexts)

public:
    // The caption while no game runs: "Press 'F2' to begin".
    static QString idleCaption() { return tr("Press 'F2' to begin"); }
    // The caption while a stock is being shuffled: "Shuffling . . .".
    static QString shufflingCaption() { return tr("Shuffling . . ."); }
    // The caption of a seat's turn, by its number or its player's name: "3's Turn".
    static QString turnCaption(const QString &who) { return tr("%1's Turn").arg(who); }
    static QString turnCaption(int seat) { return turnCaption(QString::number(seat)); }
    // A guest's caption and message when its own seat is to play.
    static QString yourTurn() { return tr("Your Turn"); }
    // The table's message for a person's turn: "Player 3's Turn".
    static QString playerTurn(int seat) { return tr("Player %1's Turn").arg(seat); }
    // The table's message for a computer seat's turn: "Computer Player 3's Turn".
    static QString computerTurn(int seat) { return tr("Computer Player %1's Turn").arg(seat); }
    // "Player 3\r\nStrike 2!", and with the third strike the seat's own words on going out, by its
    // kind of player: the computer speaks of itself in the first person.
    static QString strike(int seat, int strikes, bool out, int playerKind);
    // A guest's own strike: "Strike 2!", "Strike 3! You're Out!".
    static QString ownStrike(int strikes, bool out)
    {
        return out ? tr("Strike %1! You're Out!").arg(strikes) : tr("Strike %1!").arg(strikes);
    }
    // "Player 3 wins!"
    static QString wins(int seat) { return tr("Player %1 wins!").arg(seat); }
    // A guest whose own seat won.
    static QString youWin() { return tr("You Win!"); }
};

} // namespace qx
