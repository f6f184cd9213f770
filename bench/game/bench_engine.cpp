// Whole computer-only games per second, on a table that shows nothing and never waits.
#include "GameState.h"
#include "NullTable.h"
#include "RandomSource.h"
#include "Table.h"
#include "TurnEngine.h"

#include <benchmark/benchmark.h>

#include <random>

namespace {

using namespace qx;

using bench::NullTable;

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
