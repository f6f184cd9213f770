// Whole computer-only games per second, on a table that shows nothing and never waits.
#include "GameState.h"
#include "RandomSource.h"
#include "Table.h"
#include "TurnEngine.h"

#include <benchmark/benchmark.h>

#include <random>

namespace {

using namespace qx;

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
    // The winner's announcement waits for Resume: press it at once.
    void waitForResume(const std::function<bool()> &) override { engine->cmdContinue_Click(); }
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

// A fixed sequence, so every run plays the same games.
class SeededRandom : public RandomSource {
public:
    double next() override { return m_uniform(m_engine); }
    void seedFromClock() override {}

private:
    std::mt19937 m_engine{12345u};
    std::uniform_real_distribution<double> m_uniform{0.0, 1.0};
};

void wholeComputerGames(benchmark::State &bench)
{
    GameState state;
    NullTable table;
    SeededRandom random;
    TurnEngine engine(state, table, random);
    table.engine = &engine;

    NewGameSetup setup;
    setup.numPlayers = static_cast<int>(bench.range(0));
    state.NumberOfDecks = static_cast<int16_t>(bench.range(1));
    for (auto _ : bench) {
        engine.StartNewGame(setup);
        benchmark::DoNotOptimize(state.Total);
    }
    bench.SetItemsProcessed(bench.iterations());
    bench.SetLabel("games");
}

BENCHMARK(wholeComputerGames)->ArgNames({"seats", "packs"})->Args({2, 1})->Args({10, 4});

} // namespace

BENCHMARK_MAIN();
