#include "RandomSource.h"

#include <QTime>

namespace qx {

double ClockRandom::next()
{
    return m_uniform(m_engine);
}

void ClockRandom::seedFromClock()
{
    // Milliseconds since midnight give a new sequence for every stock as the clock moves on. Two
    // shuffles within one millisecond (a round that ends at once) must still differ, so the count
    // of earlier seeds is mixed in.
    const auto msecs = static_cast<unsigned>(QTime::currentTime().msecsSinceStartOfDay());
    m_engine.seed(msecs ^ (++m_seeds * 0x9E3779B9u));
}

} // namespace qx
