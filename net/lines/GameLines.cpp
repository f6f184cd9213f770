#include "GameLines.h"

#include "GameState.h"
#include "GameTexts.h"
#include "Table.h"
#include "TurnEngine.h"

namespace qx {

namespace {

// A number written with at least two digits; a negative one keeps its sign in front.
QString twoDigits(int n)
{
    const QString digits = QStringLiteral("%1").arg(n < 0 ? -n : n, 2, 10, QLatin1Char('0'));
    return n < 0 ? QLatin1Char('-') + digits : digits;
}

bool isDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

bool allDigits(const QString &s, int pos, int count)
{
    if (pos < 0 || count < 0 || pos + count > s.size())
        return false;
    for (int i = pos; i < pos + count; ++i)
        if (!isDigit(s[i]))
            return false;
    return true;
}

// The value of `count` (1 to 4) digits at `pos`, or -1 when any of them is not a digit.
int digitsAt(const QString &s, int pos, int count)
{
    if (count < 1 || count > 4 || !allDigits(s, pos, count))
        return -1;
    int value = 0;
    for (int i = pos; i < pos + count; ++i)
        value = value * 10 + (s[i].unicode() - '0');
    return value;
}

bool isCard(int code) { return code >= 0 && code < CardsPerPack; }

} // namespace

GameLines::GameLines(TurnEngine &engine, Table &table)
    : m_engine(engine), m_state(engine.state()), m_table(table)
{
}

void GameLines::sendGameLine()
{
    if (m_sendToGuests)
        m_sendToGuests(CreateNetLine());
}

void GameLines::sendWinLine(int winner)
{
    if (m_sendToGuests)
        m_sendToGuests(CreateNetLine() + QStringLiteral("WIN") + twoDigits(winner));
}

void GameLines::endNetworkSession()
{
    if (m_endSession)
        m_endSession();
}

QString GameLines::CreateNetLine()
{
    QString line;
    if (m_state.NumPlayers != 0) {
        line += QString::number(m_state.NumPlayers - 1);
        // Only the first character: at the end of a game the current seat is 0, so this is "-".
        line += QString::number(m_state.CurrentPlayer - 1).left(1);
        line += QString::number(m_state.Direction + 1);
        line += QString::number(m_state.NumberOfDecks);
        m_lastDrawn = m_engine.DrawCard();
        line += twoDigits(m_lastDrawn);
    } else {
        line += QLatin1Char('N');
    }
    line += m_state.PileTag.isEmpty() ? QStringLiteral("-1") : twoDigits(m_state.PileTag.toInt());
    for (int seat = 1; seat <= m_state.NumPlayers; ++seat)
        line += QString::number(m_state.Strikes(seat));
    line += twoDigits(m_state.Total);
    for (int slot = 0; slot < 3; ++slot)
        line += twoDigits(m_state.Hand(slot, m_state.CurrentPlayer));
    return line;
}

bool GameLines::ProcessNetLine(QString &line)
{
    // Read and check every field first, so a damaged line changes nothing.
    int pos = 0;
    int numPlayers = 0, currentPlayer = m_state.CurrentPlayer, direction = 0, decks = 0;
    QString deckTag;
    const bool noGame = line.startsWith(QLatin1Char('N'));
    if (noGame) {
        pos = 1;
    } else {
        const int players = digitsAt(line, 0, 1);
        if (players < 0 || line.size() < 6)
            return false;
        numPlayers = players + 1;
        // The host writes "-" here at the end of a game; it reads as 0.
        currentPlayer = (line[1] == QLatin1Char('-') ? 0 : digitsAt(line, 1, 1)) + 1;
        direction = digitsAt(line, 2, 1) - 1;
        decks = digitsAt(line, 3, 1);
        const int drawn = digitsAt(line, 4, 2);
        if (numPlayers > MaxSeats || currentPlayer < 1 || currentPlayer > numPlayers
            || (direction != -1 && direction != 1) || decks < 1 || decks > MaxDecks || !isCard(drawn))
            return false;
        deckTag = line.mid(4, 2);
        pos = 6;
    }
    const bool emptyPile = line.mid(pos, 2) == QLatin1String("-1");
    const int pile = emptyPile ? -1 : digitsAt(line, pos, 2);
    if (!emptyPile && !isCard(pile))
        return false;
    pos += 2;
    const int strikesAt = pos;
    if (!allDigits(line, strikesAt, numPlayers))
        return false;
    pos += numPlayers;
    const int total = digitsAt(line, pos, 2);
    if (total < 0 || total > TotalLimit)
        return false;
    pos += 2;
    int hand[3];
    for (int slot = 0; slot < 3; ++slot) {
        hand[slot] = digitsAt(line, pos + 2 * slot, 2);
        if (!isCard(hand[slot]))
            return false;
    }

    // Apply.
    if (noGame) {
        m_state.NumPlayers = 0;
    } else {
        m_state.NumPlayers = static_cast<int16_t>(numPlayers);
        m_state.CurrentPlayer = static_cast<int16_t>(currentPlayer);
        m_state.Direction = static_cast<int16_t>(direction);
        m_state.NumberOfDecks = static_cast<int16_t>(decks);
        // The guest's next draw yields exactly the card the host chose.
        m_state.DeckTag = deckTag;
    }
    if (emptyPile)
        m_engine.clearPile();
    else
        m_engine.showPile(pile);
    m_strikeSeat = 0;
    for (int seat = 1; seat <= numPlayers; ++seat) {
        const int strikes = line[strikesAt + seat - 1].unicode() - '0';
        if (m_state.Strikes(seat) < strikes)
            m_strikeSeat = seat;
        m_state.Strikes(seat) = static_cast<int16_t>(strikes);
    }
    m_state.Total = static_cast<int16_t>(total);
    for (int slot = 0; slot < 3; ++slot)
        m_state.Hand(slot, m_state.CurrentPlayer) = static_cast<int16_t>(hand[slot]);

    // The last pair stays in the line unless more follows it: the caller then holds the tail.
    QString tail = line.mid(pos + 4);
    line = tail.size() > 2 ? tail.mid(2) : tail;

    m_engine.clearHand();
    return true;
}

void GameLines::NetworkGuest(const QString &received)
{
    if (m_state.NetMode != NetGuestMode) {
        m_parkedLine = received;
        return;
    }
    QString line = received;
    if (!ProcessNetLine(line))
        return;
    ++m_guestLines;
    // Each line starts a new moment of the game: Take Over waits until this guest is asked again.
    m_table.setTakeOverEnabled(false);
    m_table.refreshStrikeMarks();
    m_table.refresh();

    if (line.startsWith(QLatin1String("WIN"))) {
        announceGuestWinner(line);
        return;
    }
    if (m_strikeSeat > 0)
        showGuestStrike();
    // This guest's own strike is no turn to play: the host deals anew and sends the real turn.
    if (m_strikeSeat > 0 && m_strikeSeat == m_netSeat)
        return;
    if (m_state.CurrentPlayer != m_netSeat) {
        const QString &name = m_state.PlayerName(m_state.CurrentPlayer);
        m_table.setCaption(GameTexts::turnCaption(name.isEmpty() ? QString::number(m_state.CurrentPlayer) : name));
        return;
    }
    playGuestTurn();
}

void GameLines::showGuestStrike()
{
    const int count = m_state.Strikes(m_strikeSeat);
    const bool out = count >= StrikesOut;
    if (m_strikeSeat == m_netSeat)
        m_table.showMessage(GameTexts::ownStrike(count, out));
    else
        m_table.showMessage(GameTexts::strike(m_strikeSeat, count, out, RemoteHuman));
}

void GameLines::playGuestTurn()
{
    m_table.setNetworkTimer(false);
    m_table.hideWaitIndicator();
    m_table.setCaption(GameTexts::yourTurn());
    m_engine.showHand(m_netSeat);
    if (m_state.isOut(m_netSeat))
        return; // an eliminated seat does not play

    m_table.setTakeOverEnabled(true);
    m_engine.setPileTag(QString());
    m_table.showMessage(GameTexts::yourTurn());
    // The player's click fills the pile tag with the slot played and refills that slot with the
    // card of field 5. Taking over or losing the host ends this game instead.
    // A newer line ends this wait too, so an older wait never sends a second play after it.
    const unsigned game = m_engine.gameSerial();
    const unsigned lineSeen = m_guestLines;
    m_table.waitUntil([&] {
        return !m_state.PileTag.isEmpty() || m_engine.gameSerial() != game || m_guestLines != lineSeen;
    });
    if (m_engine.gameSerial() != game || m_state.NetMode != NetGuestMode || m_guestLines != lineSeen)
        return;

    m_table.setTakeOverEnabled(false);
    m_engine.clearHand();
    const int slot = qBound(0, m_state.PileTag.toInt(), 2);
    if (m_sendToHost)
        m_sendToHost(QStringLiteral("PLAY%1").arg(slot) + twoDigits(m_state.Hand(slot, m_netSeat)));
    m_table.setNetworkTimer(true);
}

void GameLines::announceGuestWinner(const QString &tail)
{
    const int winner = digitsAt(tail, 3, 2);
    if (winner < 1) {
        // A win line without a proper seat still ends the game.
    } else if (winner == m_netSeat) {
        m_table.showMessage(GameTexts::youWin());
        if (m_table.isChecked(Check::Sound))
            m_table.playCheer();
    } else {
        m_table.showMessage(GameTexts::wins(winner));
    }
    m_engine.GameOver();
}

void GameLines::NetworkHost(const QString &line)
{
    // Only the guest the host is waiting for may move, and only once.
    if (m_state.NetMode != NetHostMode || !m_table.networkTimerEnabled() || !m_state.gameRunning())
        return;

    if (line == QLatin1String("DROP")) {
        dropCurrentSeat();
        return;
    }
    if (!line.startsWith(QLatin1String("PLAY")) || line.size() < 6)
        return;
    const int slot = digitsAt(line, 4, 1);
    int digits = 0;
    while (5 + digits < line.size() && isDigit(line[5 + digits]) && digits < 3)
        ++digits;
    const int refill = digitsAt(line, 5, digits);
    const int card = slot >= 0 && slot <= 2 ? m_state.Hand(slot, m_state.CurrentPlayer) : -1;
    // A damaged line, or a card the rules would not allow, is ignored: the host keeps waiting.
    if (card < 0 || digits == 0 || !isCard(refill) || !m_engine.isLegal(card))
        return;
    // The host keeps the deck: a guest refills only with the card drawn for its turn's line.
    if (refill != m_lastDrawn)
        return;

    m_table.setNetworkTimer(false);
    m_table.hideWaitIndicator();
    m_engine.applyCardToTotal(card);
    m_engine.showPile(card);
    m_engine.setPileTag(twoDigits(card));
    m_state.Hand(slot, m_state.CurrentPlayer) = static_cast<int16_t>(refill);
    m_table.refresh();

    // A Resume wait the host sits in (the announcement of the next human) holds the turn cycle
    // back; it carries on once that wait has ended.
    const unsigned game = m_engine.gameSerial();
    m_table.waitUntil([&] { return !m_state.Pausing || m_engine.gameSerial() != game; });
    if (m_engine.gameSerial() == game)
        m_engine.PlayTurns();
}

void GameLines::dropCurrentSeat()
{
    if (!m_table.networkTimerEnabled() || !m_state.gameRunning())
        return;
    m_table.setNetworkTimer(false);
    m_table.hideWaitIndicator();
    const unsigned game = m_engine.gameSerial();
    m_table.waitUntil([&] { return !m_state.Pausing || m_engine.gameSerial() != game; });
    if (m_engine.gameSerial() == game)
        m_engine.TakeOver();
}

void GameLines::startGuestGame(int seat)
{
    m_netSeat = seat;
    m_table.setNetworkTimer(true);
    if (!m_parkedLine.isEmpty()) {
        const QString line = m_parkedLine;
        m_parkedLine.clear();
        NetworkGuest(line);
    }
}

} // namespace qx
