#pragma once

#include <QString>

#include <functional>

namespace qx {

// The option check marks the game reads while it plays.
enum class Check {
    Sound,                // "Sou&nd"
    TallyScore,           // "&Tally Score"
    ShowComputerMoves,    // "S&how Computer Moves"
    PauseBeforeHumans,    // "Before &Humans"
    PauseBeforeComputers, // "Before &Computers"
    PauseAfterStrikes,    // "After &Strikes"
};

// Everything the turn engine needs from a screen. The main window implements it; tests use a fake
// that records the calls and never waits. Slot numbers are those of GameState.h (DeckSlot = stock).
class Table {
public:
    virtual ~Table() = default;

    // Card slots.
    virtual void showFace(int slot, int code) = 0;
    virtual void showBack(int slot) = 0;
    virtual void clearSlot(int slot) = 0;
    virtual bool slotShowsCard(int slot) const = 0;

    // Texts on the table.
    virtual void setCaption(const QString &text) = 0;
    virtual QString caption() const = 0;
    virtual void showMessage(const QString &text) = 0;
    virtual void refresh() = 0;
    virtual void refreshStrikeMarks() = 0;

    // Waiting. None of these busy-waits.
    // A timed standstill: timers, painting and sockets go on, user input is held back.
    virtual void pause(double seconds) = 0;
    // Lets pending events run once ("yield once").
    virtual void processEvents() = 0;
    // Shows "&Resume" (default and cancel button) and returns once the condition holds; the
    // condition is looked at again every time wake() is called.
    virtual void waitForResume(const std::function<bool()> &resumed) = 0;
    virtual void hideResume() = 0;
    // Waits, letting every event run, until the condition holds; re-checked at each wake().
    virtual void waitUntil(const std::function<bool()> &done) = 0;
    // Something a wait may be waiting for has changed.
    virtual void wake() = 0;

    // Animations (blocking, yielding between frames).
    virtual void animateCardMove(int fromSlot, int toSlot) = 0;
    virtual void animateCardFlip(int slot, int code) = 0;

    // Sounds; both are no-ops unless the caller decided sound is wanted.
    virtual void beep() = 0;
    virtual void playCheer() = 0;

    // Option check marks and menu states the game reads or sets.
    virtual bool isChecked(Check option) const = 0;
    virtual void setTakeOverEnabled(bool enabled) = 0;
    // The items a guest may not use: Pause Game, Show Computer Moves, Number Of Decks, Save,
    // Restore and Restore Default Options.
    virtual void setGuestMenusEnabled(bool enabled) = 0;

    // The network waiting indicator and its timer (tmrNetwork).
    virtual void setNetworkTimer(bool enabled) = 0;
    virtual bool networkTimerEnabled() const = 0;
    virtual void hideWaitIndicator() = 0;
};

} // namespace qx
