#pragma once

#include "GameState.h"
#include "Table.h"

#include <QStringList>

#include <array>
#include <functional>
#include <set>

namespace qx::test {

// A table that records what the engine asks of it and never waits: a Resume wait calls
// `onResume` (normally the Resume button's handler) and returns.
class FakeTable : public Table {
public:
    static constexpr int Empty = -1;
    static constexpr int Back = -2;

    std::array<int, DeckSlot + 1> shown{Empty, Empty, Empty, Empty, Empty, Back};
    QString captionText;
    QStringList captions;
    QStringList messages;
    // Captions, messages, strike-mark refreshes and anything a test adds, in order.
    QStringList log;
    QStringList animations;
    QList<double> pauses;
    int beeps = 0;
    int cheers = 0;
    int refreshes = 0;
    int resumeWaits = 0;
    int failedWaits = 0; // waits that returned with their condition still false
    int wakes = 0;
    // Pauses, Resume waits and card moves made while Take Over was enabled: none should be,
    // since nobody is asked for a card then.
    int takeOverDuringStandstills = 0;
    bool resumeShown = false;
    bool takeOverEnabled = false;
    bool guestMenusEnabled = true;
    bool networkTimer = false;
    bool waitIndicatorShown = true;
    std::set<Check> checked;

    std::function<void()> onResume;
    std::function<void()> onRefresh;
    std::function<void(double)> onPause;
    std::function<void()> onProcessEvents;
    std::function<void(int)> onClearSlot;
    // Runs inside a waitUntil before its condition is looked at (a test plays the awaited card).
    std::function<void()> onWaitUntil;

    void setChecked(Check option, bool on)
    {
        if (on)
            checked.insert(option);
        else
            checked.erase(option);
    }

    void showFace(int slot, int code) override { shown.at(static_cast<size_t>(slot)) = code; }
    void showBack(int slot) override { shown.at(static_cast<size_t>(slot)) = Back; }
    void clearSlot(int slot) override
    {
        shown.at(static_cast<size_t>(slot)) = Empty;
        if (onClearSlot)
            onClearSlot(slot);
    }
    bool slotShowsCard(int slot) const override { return shown.at(static_cast<size_t>(slot)) != Empty; }

    void setCaption(const QString &text) override
    {
        captionText = text;
        captions << text;
        log << QStringLiteral("caption:") + text;
    }
    QString caption() const override { return captionText; }
    void showMessage(const QString &text) override
    {
        messages << text;
        log << QStringLiteral("message:") + text;
    }
    void refresh() override
    {
        ++refreshes;
        if (onRefresh)
            onRefresh();
    }
    void refreshStrikeMarks() override { log << QStringLiteral("strikeMarks"); }

    void pause(double seconds) override
    {
        pauses << seconds;
        noteStandstill();
        if (onPause)
            onPause(seconds);
    }
    void processEvents() override
    {
        if (onProcessEvents)
            onProcessEvents();
    }
    void waitForResume(const std::function<bool()> &resumed) override
    {
        ++resumeWaits;
        noteStandstill();
        resumeShown = true;
        if (onResume)
            onResume();
        if (!resumed())
            ++failedWaits;
    }
    void hideResume() override { resumeShown = false; }
    void waitUntil(const std::function<bool()> &done) override
    {
        if (onWaitUntil && !done())
            onWaitUntil();
        if (!done())
            ++failedWaits;
    }
    void wake() override { ++wakes; }

    // Like the real table: the destination shows what the source showed; a played card leaves
    // its slot, the stock keeps its picture.
    void animateCardMove(int fromSlot, int toSlot) override
    {
        animations << QStringLiteral("move %1 %2").arg(fromSlot).arg(toSlot);
        noteStandstill();
        shown.at(static_cast<size_t>(toSlot)) = shown.at(static_cast<size_t>(fromSlot));
        if (fromSlot != DeckSlot)
            shown.at(static_cast<size_t>(fromSlot)) = Empty;
    }
    void animateCardFlip(int slot, int code) override
    {
        animations << QStringLiteral("flip %1 %2").arg(slot).arg(code);
        noteStandstill();
        shown.at(static_cast<size_t>(slot)) = code;
    }

    void beep() override { ++beeps; }
    void playCheer() override { ++cheers; }

    bool isChecked(Check option) const override { return checked.count(option) > 0; }
    void setTakeOverEnabled(bool enabled) override { takeOverEnabled = enabled; }
    void setGuestMenusEnabled(bool enabled) override { guestMenusEnabled = enabled; }
    void setNetworkTimer(bool enabled) override { networkTimer = enabled; }
    bool networkTimerEnabled() const override { return networkTimer; }
    void hideWaitIndicator() override { waitIndicatorShown = false; }

private:
    void noteStandstill() { takeOverDuringStandstills += takeOverEnabled ? 1 : 0; }
};

} // namespace qx::test
