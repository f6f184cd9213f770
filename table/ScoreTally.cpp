#include "ScoreTally.h"

#include <algorithm>

namespace qx {

void ScoreTally::recordWin(const QString &name)
{
    ++m_games;
    ++m_wins[name];
}

int ScoreTally::wins(const QString &name) const
{
    const auto it = m_wins.find(name);
    return it == m_wins.end() ? 0 : it->second;
}

std::vector<std::pair<QString, int>> ScoreTally::standings() const
{
    std::vector<std::pair<QString, int>> rows(m_wins.begin(), m_wins.end());
    std::stable_sort(rows.begin(), rows.end(), [](const auto &a, const auto &b) { return a.second > b.second; });
    return rows;
}

} // namespace qx
