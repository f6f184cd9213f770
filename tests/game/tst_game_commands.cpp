#include "EngineFixture.h"

#include <QTest>

using namespace qx;
using namespace qx::test;

// New game, Take Over and the abandoned game, and menu commands that arrive while the engine
// sits in one of its waits.
class GameCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void newGameWithHumanAtSeatOneWaitsForTheClick_data();
    void newGameWithHumanAtSeatOneWaitsForTheClick();
    void newGameAnnouncesTheHumanTwice();
    void newGameReplacesARunningGame();
    void guestNewGameOnlySetsUp();
    void takeOverStepsBack_data();
    void takeOverStepsBack();
    void takeOverIsIgnoredBetweenMoves();
    void abandonGame();
    void newGameInsideAPauseStopsTheOldEngine();
    void abandonInsideAResumeWaitStopsTheEngine();
    void gameOverInsideTheStrikePauseDealsNoNewRound();
    void newGameInsideTheWinnersWaitIsNotEnded();
    void takeOverInsideTheHumansTurnLeavesTheTableToTheNewEngine();
};

void GameCommandsTest::newGameWithHumanAtSeatOneWaitsForTheClick_data()
{
    QTest::addColumn<bool>("beforeHumans");
    QTest::newRow("no pause") << false;
    QTest::newRow("pause before humans") << true;
}

void GameCommandsTest::newGameWithHumanAtSeatOneWaitsForTheClick()
{
    QFETCH(bool, beforeHumans);
    EngineFixture f;
    f.table.setChecked(Check::PauseBeforeHumans, beforeHumans);
    f.state.PileTag = QStringLiteral("12"); // left over from an earlier game
    NewGameSetup setup = EngineFixture::setup({LocalHuman, Computer, RemoteHuman});
    setup.seats[2].client = 4;
    f.engine.StartNewGame(setup);

    QCOMPARE(int(f.state.NumPlayers), 3);
    QCOMPARE(int(f.state.CurrentPlayer), 1);
    QCOMPARE(int(f.state.Total), 0);
    QCOMPARE(int(f.state.Direction), 1);
    QCOMPARE(int(f.state.NetMode), int(LocalGame));
    QCOMPARE(int(f.state.PlayerType(3)), int(RemoteHuman));
    QCOMPARE(int(f.state.PlayerClient(3)), 4);
    QCOMPARE(f.state.PlayerName(2), QStringLiteral("Seat 2"));
    QVERIFY(f.state.PileTag.isEmpty());
    QVERIFY(f.table.takeOverEnabled);
    QCOMPARE(f.random.clockSeeds, 1);
    QCOMPARE(int(f.state.DeckPos), 10);
    for (int slot = 0; slot < 3; ++slot)
        QCOMPARE(f.table.shown[FirstHandSlot + slot], int(f.state.Hand(slot, 1)));
    QCOMPARE(f.table.captionText, QStringLiteral("1's Turn"));
    QVERIFY(f.table.pauses.isEmpty());
    QCOMPARE(f.table.messages, beforeHumans ? QStringList{"Player 1's Turn"} : QStringList{});
    QCOMPARE(f.table.resumeWaits, beforeHumans ? 1 : 0);
    QVERIFY(!f.state.Pausing);
}

void GameCommandsTest::newGameAnnouncesTheHumanTwice()
{
    EngineFixture f;
    f.table.setChecked(Check::PauseBeforeHumans, true);
    f.engine.StartNewGame(EngineFixture::setup({Computer, LocalHuman}));
    // At a total of at most 10 every card is playable, so seat 1 plays and seat 2 is to move.
    QCOMPARE(f.table.messages, (QStringList{"Computer Player 1's Turn", "Player 2's Turn", "Player 2's Turn"}));
    QCOMPARE(f.table.resumeWaits, 2);
    QCOMPARE(f.table.pauses, QList<double>{0.5});
    QCOMPARE(int(f.state.CurrentPlayer), 2);
    QVERIFY(f.table.takeOverEnabled);
}

void GameCommandsTest::newGameReplacesARunningGame()
{
    EngineFixture f;
    f.engine.StartNewGame(EngineFixture::setup({LocalHuman, Computer, Computer}));
    f.state.Strikes(2) = 2;
    f.state.Total = 77;
    f.state.Direction = -1;
    const unsigned serial = f.engine.gameSerial();
    f.engine.StartNewGame(EngineFixture::setup({LocalHuman, LocalHuman}));
    QVERIFY(f.engine.gameSerial() != serial);
    QCOMPARE(int(f.state.NumPlayers), 2);
    QCOMPARE(int(f.state.Strikes(2)), 0);
    QCOMPARE(int(f.state.Total), 0);
    QCOMPARE(int(f.state.Direction), 1);
    QCOMPARE(int(f.state.PlayerType(3)), int(Computer));
}

void GameCommandsTest::guestNewGameOnlySetsUp()
{
    EngineFixture f;
    f.engine.StartNewGame(EngineFixture::setup({RemoteHuman, LocalHuman}, NetGuestMode));
    QCOMPARE(int(f.state.NetMode), int(NetGuestMode));
    QVERIFY(!f.table.guestMenusEnabled);
    QCOMPARE(f.random.clockSeeds, 0);
    QCOMPARE(int(f.state.CurrentPlayer), 1);
    QCOMPARE(f.table.captionText, QStringLiteral("1's Turn"));
    // The guest never runs the engine itself.
    f.engine.PlayTurns();
    QVERIFY(f.table.messages.isEmpty());
    QCOMPARE(int(f.state.CurrentPlayer), 1);
    // Its game ends through GameOver, which also ends the network session.
    f.engine.GameOver();
    QVERIFY(f.table.guestMenusEnabled);
    QCOMPARE(int(f.state.NetMode), int(LocalGame));
}

void GameCommandsTest::takeOverStepsBack_data()
{
    QTest::addColumn<int>("seat");
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("back");
    QTest::newRow("seat 3 going down") << 3 << -1 << 4;
    QTest::newRow("seat 3 going up") << 3 << 1 << 2;
    QTest::newRow("seat 1 going up wraps") << 1 << 1 << 4;
    QTest::newRow("seat 4 going down wraps") << 4 << -1 << 1;
}

void GameCommandsTest::takeOverStepsBack()
{
    QFETCH(int, seat);
    QFETCH(int, direction);
    QFETCH(int, back);
    EngineFixture f;
    f.setUpRound({Computer, Computer, Computer, Computer});
    f.state.PlayerType(seat) = LocalHuman;
    f.state.CurrentPlayer = static_cast<int16_t>(seat);
    f.state.Direction = static_cast<int16_t>(direction);
    f.state.PileTag.clear();
    f.table.captions.clear();
    int before = -1;
    f.table.onClearSlot = [&](int) {
        if (before < 0)
            before = f.state.CurrentPlayer;
    };
    f.engine.TakeOver();

    QCOMPARE(before, back);
    QCOMPARE(int(f.state.PlayerType(seat)), int(Computer));
    QCOMPARE(f.table.captions.value(0), QStringLiteral("%1's Turn").arg(seat));
    QCOMPARE(f.table.messages.value(0), QStringLiteral("Computer Player %1's Turn").arg(seat));
    // Every seat is a computer now: the game plays to its end.
    QCOMPARE(f.table.captionText, QStringLiteral("Press 'F2' to begin"));
}

void GameCommandsTest::takeOverIsIgnoredBetweenMoves()
{
    for (const char *situation : {"pausing", "playing", "guest", "nogame"}) {
        EngineFixture f;
        f.setUpRound({LocalHuman, Computer});
        f.state.CurrentPlayer = 1;
        const QByteArray s(situation);
        if (s == "pausing")
            f.state.Pausing = true;
        else if (s == "playing")
            f.state.PileTag = QStringLiteral("2");
        else if (s == "guest")
            f.state.NetMode = NetGuestMode;
        else
            f.state.CurrentPlayer = 0;
        f.engine.TakeOver();
        QVERIFY2(f.state.PlayerType(1) == LocalHuman, situation);
        QVERIFY2(f.table.messages.isEmpty(), situation);
    }
}

void GameCommandsTest::abandonGame()
{
    EngineFixture f;
    f.engine.StartNewGame(EngineFixture::setup({LocalHuman, Computer}));
    f.engine.showPile(card(3));
    f.state.Pausing = true;
    f.state.PileTag = QStringLiteral("1");
    f.table.resumeShown = true;
    const unsigned serial = f.engine.gameSerial();
    const int wakes = f.table.wakes;
    f.engine.AbandonGame();

    QCOMPARE(f.table.captionText, QStringLiteral("Press 'F2' to begin"));
    for (int slot = PileSlot; slot <= FirstHandSlot + 2; ++slot)
        QCOMPARE(f.table.shown[slot], int(FakeTable::Empty));
    QCOMPARE(int(f.state.PileCard), -1);
    QVERIFY(f.state.PileTag.isEmpty());
    QCOMPARE(int(f.state.CurrentPlayer), 0);
    QCOMPARE(int(f.state.NumPlayers), 0);
    QCOMPARE(int(f.state.Total), -1);
    QVERIFY(!f.state.Pausing);
    QVERIFY(!f.table.resumeShown);
    QVERIFY(f.engine.gameSerial() != serial);
    QVERIFY(f.table.wakes > wakes);
}

void GameCommandsTest::newGameInsideAPauseStopsTheOldEngine()
{
    EngineFixture f;
    int pauses = 0;
    int messagesAfterNewGame = -1;
    f.table.onPause = [&](double) {
        if (++pauses != 4)
            return;
        f.engine.StartNewGame(EngineFixture::setup({LocalHuman, Computer}));
        messagesAfterNewGame = int(f.table.messages.size());
    };
    f.engine.StartNewGame(EngineFixture::setup({Computer, Computer, Computer}));

    QVERIFY(messagesAfterNewGame > 0);
    // Nothing happened after the new game had set itself up: the old engine stopped.
    QCOMPARE(int(f.table.messages.size()), messagesAfterNewGame);
    QCOMPARE(int(f.state.NumPlayers), 2);
    QCOMPARE(int(f.state.CurrentPlayer), 1);
    QVERIFY(f.state.PileTag.isEmpty());
    QVERIFY(!f.state.Pausing);
    QVERIFY(f.table.takeOverEnabled);
    QCOMPARE(int(f.state.Total), 0);
}

void GameCommandsTest::abandonInsideAResumeWaitStopsTheEngine()
{
    EngineFixture f;
    f.table.setChecked(Check::PauseBeforeComputers, true);
    int waits = 0;
    f.table.onResume = [&] {
        if (++waits == 3)
            f.engine.AbandonGame();
        else
            f.engine.cmdContinue_Click();
    };
    f.engine.StartNewGame(EngineFixture::setup({Computer, Computer}));
    QCOMPARE(waits, 3);
    QCOMPARE(f.table.failedWaits, 0);
    QCOMPARE(f.table.captionText, QStringLiteral("Press 'F2' to begin"));
    QCOMPARE(int(f.state.Total), -1);
    QCOMPARE(int(f.state.CurrentPlayer), 0);
    // The engine said nothing after the abandon, which emptied the message area.
    QVERIFY(f.table.messages.last().isEmpty());
    QVERIFY(f.table.messages.value(f.table.messages.size() - 2).startsWith(QStringLiteral("Computer Player ")));
}

void GameCommandsTest::gameOverInsideTheStrikePauseDealsNoNewRound()
{
    EngineFixture f;
    f.setUpRound({Computer, Computer, Computer});
    f.state.Total = 95;
    f.setHand(2, card(Jack), card(Queen), card(8));
    f.state.CurrentPlayer = 1;
    f.table.onPause = [&](double seconds) {
        if (seconds == 1.5)
            f.engine.GameOver();
    };
    const int seeds = f.random.clockSeeds;
    f.engine.PlayTurns();
    QCOMPARE(f.random.clockSeeds, seeds);
    QCOMPARE(f.table.captionText, QStringLiteral("Press 'F2' to begin"));
    QCOMPARE(f.table.messages.last(), QStringLiteral("Player 2\r\nStrike 1!"));
    QCOMPARE(int(f.state.CurrentPlayer), 0);
    QVERIFY(!f.state.Pausing);
}

void GameCommandsTest::newGameInsideTheWinnersWaitIsNotEnded()
{
    EngineFixture f;
    f.setUpRound({Computer, Computer});
    f.state.Strikes(2) = 2;
    f.state.Total = 95;
    f.setHand(2, card(Jack), card(Queen), card(8));
    f.state.CurrentPlayer = 1;
    f.table.onResume = [&] {
        f.table.onResume = [&] { f.engine.cmdContinue_Click(); };
        f.engine.StartNewGame(EngineFixture::setup({LocalHuman, Computer, Computer}));
    };
    f.engine.PlayTurns();
    QCOMPARE(f.table.messages.value(2), QStringLiteral("Player 1 wins!"));
    QCOMPARE(int(f.state.NumPlayers), 3);
    QCOMPARE(int(f.state.CurrentPlayer), 1);
    QCOMPARE(f.table.captionText, QStringLiteral("1's Turn"));
    QCOMPARE(f.table.failedWaits, 0);
}

void GameCommandsTest::takeOverInsideTheHumansTurnLeavesTheTableToTheNewEngine()
{
    EngineFixture f;
    f.setUpRound({LocalHuman, Computer, LocalHuman});
    f.state.Total = 10;
    f.state.CurrentPlayer = 3;
    f.state.PileTag.clear();
    bool tookOver = false;
    f.table.onProcessEvents = [&] {
        // Take Over chosen while seat 1's turn is being announced.
        if (!tookOver && f.state.CurrentPlayer == 1) {
            tookOver = true;
            f.engine.TakeOver();
        }
    };
    f.engine.PlayTurns();

    QVERIFY(tookOver);
    QCOMPARE(int(f.state.PlayerType(1)), int(Computer));
    // The engine started by Take Over played seats 1 and 2 and waits for seat 3; the engine it
    // interrupted stopped without touching the table.
    QCOMPARE(int(f.state.CurrentPlayer), 3);
    QVERIFY(f.state.PileTag.isEmpty());
    for (int slot = 0; slot < 3; ++slot)
        QCOMPARE(f.table.shown[FirstHandSlot + slot], int(f.state.Hand(slot, 3)));
    QCOMPARE(f.table.messages.count(QStringLiteral("Computer Player 1's Turn")), 1);
}

QTEST_GUILESS_MAIN(GameCommandsTest)
#include "tst_game_commands.moc"
