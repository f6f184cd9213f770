#include "RandomSource.h"

#include <QTime>

namespace qx {

double ClockRandom::next()
{
    return m_uniform(m_engine);
}

void ClockRandom::seedFromClock()
{
    // Milliseconds since midnight: a new sequence for every stock, as the clock moves on.
    m_engine.seed(static_cast<unsigned>(QTime::currentTime().msecsSinceStartOfDay()));
}

} // namespace qx
