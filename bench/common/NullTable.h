#pragma once

#include "Table.h"
#include "TurnEngine.h"

namespace qx::bench {

// A table that shows nothing and never waits, so a benchmark measures the game and the wire
// alone. A Resume wait (the winner's announcement) presses Resume at once when an engine is set.
class NullTable : public Table {
public:
    TurnEngine *engine = nullptr;

    void showFace(int, int) override {}
    void showBack(int) override {}
    void clearSlot(int) override {}
    bool slotShowsCard(int) const override { return false; }
    void setCaption(const QString &text) override { m_caption = text; }
    QString caption() const override { return m_caption; }
    void showMessage(const QString &) override {}
    void refresh() override {}
    void refreshStrikeMarks() override {}
    void pause(double) override {}
    void processEvents() override {}
    void waitForResume(const std::function<bool()> &) override
    {
        if (engine)
            engine->cmdContinue_Click();
    }
    void hideResume() override {}
    void waitUntil(const std::function<bool()> &) override {}
    void wake() override {}
    void animateCardMove(int, int) override {}
    void animateCardFlip(int, int) override {}
    void beep() override {}
    void playCheer() override {}
    bool isChecked(Check) const override { return false; }
    void setTakeOverEnabled(bool) override {}
    void setGuestMenusEnabled(bool) override {}
    void setNetworkTimer(bool) override {}
    bool networkTimerEnabled() const override { return false; }
    void hideWaitIndicator() override {}

private:
    QString m_caption;
};

} // namespace qx::bench
