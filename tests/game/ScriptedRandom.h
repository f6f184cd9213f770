#pragma once

#include "RandomSource.h"

#include <QQueue>

#include <random>

namespace qx::test {

// Hands out the queued values first, then a seeded sequence, so every test is repeatable.
// Reseeding "from the clock" only counts: the sequence goes on undisturbed.
class ScriptedRandom : public RandomSource {
public:
    explicit ScriptedRandom(unsigned seed = 1) : m_engine(seed) {}

    QQueue<double> script;
    int draws = 0;
    int clockSeeds = 0;

    void queue(double value, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            script.enqueue(value);
    }

    double next() override
    {
        ++draws;
        return script.isEmpty() ? m_uniform(m_engine) : script.dequeue();
    }
    void seedFromClock() override { ++clockSeeds; }

private:
    std::mt19937 m_engine;
    std::uniform_real_distribution<double> m_uniform{0.0, 1.0};
};

} // namespace qx::test
