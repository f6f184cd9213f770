#include "EngineFixture.h"
#include "NetworkHooks.h"

#include <QRegularExpression>
#include <QTest>

using namespace qx;
using namespace qx::test;

// Whole games played headless to their single winner, with the rules' invariants checked at
// every repaint and pause, and a host's game checked for its network lines.
class WholeGamesTest : public QObject {
    Q_OBJECT

private slots:
    void wholeGame_data();
    void wholeGame();
    void hostGame();
};

namespace {

enum Mode { ComputersOnly, HumansPausing, ShownMoves };

// Records a problem the first time the state breaks a rule of the game.
struct Invariants {
    const GameState &s;
    QString problem;
    std::array<int, MaxSeats + 1> strikes{};

    void check()
    {
        if (!problem.isEmpty() || s.NumPlayers == 0)
            return;
        if (s.Total < 0 || s.Total > TotalLimit)
            problem = QStringLiteral("total %1").arg(s.Total);
        if (s.Direction != 1 && s.Direction != -1)
            problem = QStringLiteral("direction %1").arg(s.Direction);
        for (int seat = 1; seat <= s.NumPlayers; ++seat) {
            if (s.Strikes(seat) < strikes[static_cast<size_t>(seat)])
                problem = QStringLiteral("strikes of seat %1 went down").arg(seat);
            strikes[static_cast<size_t>(seat)] = s.Strikes(seat);
            for (int slot = 0; slot < 3; ++slot) {
                if (s.Hand(slot, seat) < 0 || s.Hand(slot, seat) >= CardsPerPack)
                    problem = QStringLiteral("seat %1 holds %2").arg(seat).arg(s.Hand(slot, seat));
            }
        }
    }
};

int firstLegalSlot(const TurnEngine &engine, const GameState &s)
{
    for (int slot = 0; slot < 3; ++slot)
        if (engine.isLegal(s.Hand(slot, s.CurrentPlayer)))
            return slot;
    return -1;
}

// The one "wins!" message, or 0 when there is none or more than one.
int winnerOf(const QStringList &messages)
{
    static const QRegularExpression wins(QStringLiteral("^Player (\\d+) wins!$"));
    int winner = 0;
    for (const QString &m : messages) {
        const auto match = wins.match(m);
        if (!match.hasMatch())
            continue;
        if (winner != 0)
            return 0;
        winner = match.captured(1).toInt();
    }
    return winner;
}

class RecordingHooks : public NetworkHooks {
public:
    explicit RecordingHooks(QStringList &log) : m_log(log) {}
    void sendGameLine() override { m_log << QStringLiteral("line"); }
    void sendWinLine(int winner) override { m_log << QStringLiteral("win:%1").arg(winner); }
    void endNetworkSession() override { m_log << QStringLiteral("end"); }

private:
    QStringList &m_log;
};

} // namespace

void WholeGamesTest::wholeGame_data()
{
    QTest::addColumn<int>("seats");
    QTest::addColumn<int>("packs");
    QTest::addColumn<int>("mode");
    const char *names[] = {"computers", "humans pausing", "shown moves"};
    for (int mode : {ComputersOnly, HumansPausing, ShownMoves})
        for (int seats = 2; seats <= MaxSeats; ++seats)
            for (int packs = 1; packs <= MaxDecks; ++packs)
                QTest::addRow("%s, %d seats, %d packs", names[mode], seats, packs) << seats << packs << mode;
}

void WholeGamesTest::wholeGame()
{
    QFETCH(int, seats);
    QFETCH(int, packs);
    QFETCH(int, mode);

    EngineFixture f{unsigned(seats * 100 + packs * 10 + mode)};
    NewGameSetup setup;
    setup.numPlayers = seats;
    for (int seat = 1; seat <= seats; ++seat) {
        const bool human = (mode == HumansPausing && seat % 2 == 1) || (mode == ShownMoves && seat % 3 == 2);
        setup.seats[static_cast<size_t>(seat - 1)].type = human ? LocalHuman : Computer;
    }
    f.state.NumberOfDecks = static_cast<int16_t>(packs);
    f.table.setChecked(Check::Sound, mode != ComputersOnly);
    f.table.setChecked(Check::PauseBeforeHumans, mode == HumansPausing);
    f.table.setChecked(Check::PauseAfterStrikes, mode == HumansPausing);
    f.table.setChecked(Check::PauseBeforeComputers, mode == ShownMoves);
    f.table.setChecked(Check::ShowComputerMoves, mode == ShownMoves);

    // With nine or ten seats and one pack a rebuilt stock can hold little but the last king, and a
    // round in which every hand holds a king goes on for ever; these seeds end before that. A
    // game that runs away is abandoned so the test fails instead of hanging.
    Invariants invariants{f.state, {}, {}};
    int refreshes = 0;
    f.table.onRefresh = [&] {
        invariants.check();
        if (++refreshes == 500000) {
            invariants.problem = QStringLiteral("the game does not end");
            f.engine.AbandonGame();
        }
    };
    f.table.onPause = [&](double) { invariants.check(); };

    f.engine.StartNewGame(setup);
    int humanMoves = 0;
    while (f.state.CurrentPlayer != 0) {
        QVERIFY2(++humanMoves < 50000, "the game does not end");
        // The engine only ever stops for a human at this computer who holds a playable card.
        QCOMPARE(int(f.state.PlayerType(f.state.CurrentPlayer)), int(LocalHuman));
        QVERIFY(f.state.PileTag.isEmpty());
        QVERIFY(!f.state.Pausing);
        QVERIFY(f.table.takeOverEnabled);
        // The scripted human plays as the computer would.
        const int slot = f.engine.ChooseCard(f.state.CurrentPlayer);
        QVERIFY(slot >= 0);
        if (humanMoves % 2)
            f.engine.picCard_Click(slot + FirstHandSlot);
        else
            f.engine.Form_KeyPress('1' + slot);
    }
    QVERIFY2(invariants.problem.isEmpty(), qPrintable(invariants.problem));
    QCOMPARE(humanMoves > 0, mode != ComputersOnly);

    const int winner = winnerOf(f.table.messages);
    QVERIFY(winner >= 1 && winner <= seats);
    for (int seat = 1; seat <= seats; ++seat)
        QCOMPARE(f.state.isOut(seat), seat != winner);
    const bool humanWon = setup.seats[static_cast<size_t>(winner - 1)].type == LocalHuman;
    QCOMPARE(f.table.cheers, humanWon && mode != ComputersOnly ? 1 : 0);
    QCOMPARE(f.table.captionText, QStringLiteral("Press 'F2' to begin"));
    QCOMPARE(int(f.state.Total), -1);
    QCOMPARE(int(f.state.NumPlayers), 0);
    QCOMPARE(f.table.failedWaits, 0);
    QVERIFY(!f.state.Pausing);
    QVERIFY(!f.state.ComputerClick);
    QVERIFY(!f.table.takeOverEnabled);
    QCOMPARE(f.table.takeOverDuringStandstills, 0);
}

void WholeGamesTest::hostGame()
{
    EngineFixture f{42};
    RecordingHooks hooks(f.table.log);
    f.engine.setNetworkHooks(&hooks);
    const NewGameSetup setup =
        EngineFixture::setup({LocalHuman, RemoteHuman, Computer, RemoteHuman}, NetHostMode);

    f.engine.StartNewGame(setup);
    int moves = 0;
    while (f.state.CurrentPlayer != 0) {
        QVERIFY2(++moves < 50000, "the game does not end");
        const int seat = f.state.CurrentPlayer;
        const int slot = firstLegalSlot(f.engine, f.state);
        QVERIFY(slot >= 0);
        if (f.state.PlayerType(seat) == LocalHuman) {
            QVERIFY(!f.table.networkTimer);
            f.engine.picCard_Click(slot + FirstHandSlot);
            continue;
        }
        // A remote seat: the host waits with its network timer on, and the guest's play line
        // arrives; the game lines apply it as a local play and run the engine on.
        QCOMPARE(int(f.state.PlayerType(seat)), int(RemoteHuman));
        QVERIFY(f.table.networkTimer);
        f.table.setNetworkTimer(false);
        const int played = f.state.Hand(slot, seat);
        f.engine.applyCardToTotal(played);
        f.engine.showPile(played);
        f.engine.setPileTag(QStringLiteral("%1").arg(played, 2, 10, QLatin1Char('0')));
        f.state.Hand(slot, seat) = static_cast<int16_t>(f.engine.DrawCard());
        f.engine.PlayTurns();
    }

    const QStringList &log = f.table.log;
    static const QRegularExpression turn(QStringLiteral("^caption:(\\d+)'s Turn$"));
    int turns = 0;
    int strikes = 0;
    for (int i = 0; i + 1 < log.size(); ++i) {
        // A turn's caption is followed by the strike marks; the caption a shuffle puts back is not
        // a turn.
        const auto match = turn.match(log[i]);
        const bool restored = i > 0 && log[i - 1] == QLatin1String("caption:Shuffling . . .");
        if (match.hasMatch() && !restored && log[i + 1] == QLatin1String("strikeMarks")) {
            ++turns;
            // Every turn is announced at once, also a remote seat's (after its card check);
            // a remote seat without a playable card is announced by its strike line.
            const int seat = match.captured(1).toInt();
            const bool remote = setup.seats[static_cast<size_t>(seat - 1)].type == RemoteHuman;
            const bool announced = log.value(i + 2) == QLatin1String("line");
            const bool struckRemote = remote && log.value(i + 2) == QLatin1String("strikeMarks")
                                      && log.value(i + 3) == QLatin1String("line");
            QVERIFY2(announced || struckRemote, qPrintable(QStringLiteral("turn at %1").arg(i)));
            if (struckRemote)
                --turns;
        }
        if (log[i + 1].startsWith(QLatin1String("message:Player ")) && log[i + 1].contains(QLatin1String("Strike"))) {
            ++strikes;
            QCOMPARE(log[i], QStringLiteral("line"));
        }
    }
    QVERIFY(turns > 0);
    QVERIFY(strikes >= 2);
    QCOMPARE(int(log.count(QStringLiteral("line"))), turns + strikes);

    const int winner = winnerOf(f.table.messages);
    QVERIFY(winner >= 1);
    const int winAt = int(log.indexOf(QStringLiteral("win:%1").arg(winner)));
    QCOMPARE(log.value(winAt - 1), QStringLiteral("message:Player %1 wins!").arg(winner));
    QCOMPARE(int(log.filter(QStringLiteral("win:")).size()), 1);
    QCOMPARE(int(log.count(QStringLiteral("end"))), 1);
    QVERIFY(log.indexOf(QStringLiteral("end")) > winAt);
    QCOMPARE(int(f.state.NetMode), int(LocalGame));
    QVERIFY(!f.table.networkTimer);
    QVERIFY(!f.table.waitIndicatorShown);
}

QTEST_GUILESS_MAIN(WholeGamesTest)
#include "tst_whole_games.moc"
