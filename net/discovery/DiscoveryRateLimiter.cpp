#include "DiscoveryRateLimiter.h"

namespace qx::discovery {

bool DiscoveryRateLimiter::allow(const QString &sender, qint64 nowMs)
{
    const auto it = m_lastAnswer.constFind(sender);
    if (it != m_lastAnswer.constEnd() && nowMs - it.value() < IntervalMs)
        return false;
    if (it == m_lastAnswer.constEnd() && m_lastAnswer.size() >= MaxSenders) {
        forgetOld(nowMs);
        if (m_lastAnswer.size() >= MaxSenders)
            return false;
    }
    m_lastAnswer.insert(sender, nowMs);
    return true;
}

void DiscoveryRateLimiter::forgetOld(qint64 nowMs)
{
    for (auto it = m_lastAnswer.begin(); it != m_lastAnswer.end();)
        it = nowMs - it.value() >= IntervalMs ? m_lastAnswer.erase(it) : std::next(it);
}

} // namespace qx::discovery
