#pragma once

#include <random>

namespace qx {

// The one uniform source in [0, 1) shared by the shuffle and the computer player.
class RandomSource {
public:
    virtual ~RandomSource() = default;
    virtual double next() = 0;
    // Reseeds from the time of day; the shuffle does this at every start of a stock.
    virtual void seedFromClock() = 0;
};

class ClockRandom : public RandomSource {
public:
    double next() override;
    void seedFromClock() override;

private:
    std::mt19937 m_engine{5489u};
    unsigned m_seeds = 0;
    std::uniform_real_distribution<double> m_uniform{0.0, 1.0};
};

} // namespace qx
