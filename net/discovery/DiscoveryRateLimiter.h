#pragma once

// How often a host answers: at most once per sender address in any one second, however many
// queries arrive, and with a table of bounded size, so that a flood of queries (from one address
// or from many forged ones) costs the host almost nothing. The time is handed in, in
// milliseconds of a steady clock, so that the rule can be tried without waiting.

#include <QHash>
#include <QString>

namespace qx::discovery {

class DiscoveryRateLimiter {
public:
    static constexpr qint64 IntervalMs = 1000;
    // More senders than this within one second are not answered at all until the second is over.
    static constexpr int MaxSenders = 256;

    // True when the sender may be answered now; the answer is then counted.
    bool allow(const QString &sender, qint64 nowMs);
    int senders() const { return int(m_lastAnswer.size()); }

private:
    void forgetOld(qint64 nowMs);

    QHash<QString, qint64> m_lastAnswer;
};

} // namespace qx::discovery
