#pragma once

#include <QString>

#include <map>
#include <utility>
#include <vector>

namespace qx {

// The tally shown while "&Tally Score" is checked: the games won by each seat name during this run
// of the program. Seat names rather than seat numbers, so that "Computer 3" and a network guest's
// name keep their own counts whatever seat they take next time.
class ScoreTally {
public:
    void recordWin(const QString &name);
    int gamesPlayed() const { return m_games; }
    int wins(const QString &name) const;
    // Names with their wins, most wins first, then by name.
    std::vector<std::pair<QString, int>> standings() const;

private:
    int m_games = 0;
    std::map<QString, int> m_wins;
};

} // namespace qx
