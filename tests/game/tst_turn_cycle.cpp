#include "EngineFixture.h"

#include <QTest>

using namespace qx;
using namespace qx::test;

// The turn cycle, human moves, strikes, the end of a game and the game commands, each from a
// prepared position.
class TurnCycleTest : public QObject {
    Q_OBJECT

private slots:
    void humanWithoutPlayableCardIsStruckAtOnce();
    void twoSeatsEndAtTheFirstThirdStrike();
    void outSeatIsDealtButNeverPlays();
    void strikeTexts_data();
    void strikeTexts();
    void cheer_data();
    void cheer();
    void pausesFollowTheirCheckMarks_data();
    void pausesFollowTheirCheckMarks();
    void humanPlayIsAnimatedAndRefilled();
    void keys_data();
    void keys();
    void illegalClick_data();
    void illegalClick();
    void ignoredClicks_data();
    void ignoredClicks();
    void shownComputerMoveGoesThroughTheClickHandler();
    void playTurnsReturnsWhenNobodyElseIsInPlay();
};

namespace {

// Two seats: a human at seat 1 waiting to move, a computer at seat 2.
void humanToMove(EngineFixture &f)
{
    f.setUpRound({LocalHuman, Computer});
    f.state.CurrentPlayer = 1;
    f.state.PileTag.clear();
}

int firstStrikeMessage(const QStringList &messages)
{
    for (int i = 0; i < messages.size(); ++i)
        if (messages[i].contains(QStringLiteral("Strike")))
            return i;
    return -1;
}

} // namespace

void TurnCycleTest::humanWithoutPlayableCardIsStruckAtOnce()
{
    EngineFixture f;
    f.setUpRound({LocalHuman, Computer});
    f.state.Total = 95;
    f.setHand(1, card(Jack), card(Queen), card(8));
    f.state.CurrentPlayer = 2;
    f.engine.PlayTurns();

    QCOMPARE(f.table.messages.value(0), QStringLiteral("Player 1's Turn"));
    QCOMPARE(f.table.messages.value(1), QStringLiteral("Player 1\r\nStrike 1!"));
    QVERIFY(f.state.Strikes(1) >= 1);
    QCOMPARE(int(f.state.Strikes(2)), 0);
    // The struck hand was shown face up; the new round put seat 1 to move (or struck it again).
    QVERIFY(f.table.log.indexOf(QStringLiteral("caption:1's Turn")) >= 0);
}

void TurnCycleTest::twoSeatsEndAtTheFirstThirdStrike()
{
    EngineFixture f;
    f.setUpRound({Computer, Computer});
    f.state.Strikes(2) = 2;
    f.state.Total = 95;
    f.setHand(2, card(Jack), card(Queen), card(8));
    f.state.CurrentPlayer = 1;
    f.engine.PlayTurns();

    QCOMPARE(f.table.messages,
             (QStringList{"Computer Player 2's Turn", "Player 2\r\nStrike 3! I'm Out!", "Player 1 wins!"}));
    QCOMPARE(f.table.resumeWaits, 1); // the result stays until Resume
    QCOMPARE(f.table.captionText, QStringLiteral("Press 'F2' to begin"));
    QCOMPARE(int(f.state.Total), -1);
    QCOMPARE(int(f.state.CurrentPlayer), 0);
    QCOMPARE(int(f.state.NumPlayers), 0);
    QCOMPARE(f.table.cheers, 0);
    QVERIFY(!f.table.takeOverEnabled);
    for (int slot = FirstHandSlot; slot <= FirstHandSlot + 2; ++slot)
        QCOMPARE(f.table.shown[slot], int(FakeTable::Empty));
    QCOMPARE(f.table.shown[PileSlot], int(FakeTable::Empty));
    QVERIFY(f.state.PileTag.isEmpty());
    QCOMPARE(f.table.failedWaits, 0);
}

void TurnCycleTest::outSeatIsDealtButNeverPlays()
{
    EngineFixture f{7};
    f.setUpRound({Computer, Computer, Computer});
    f.state.Strikes(2) = 2;
    f.state.Total = 95;
    f.setHand(2, card(Jack), card(Queen), card(8));
    f.state.CurrentPlayer = 1;

    int dealtAfterStrike = -1;
    f.table.onRefresh = [&] {
        // The first refresh after the new round's "1's Turn": all three seats were dealt.
        if (dealtAfterStrike < 0 && f.table.captionText == QStringLiteral("1's Turn") && f.state.isOut(2))
            dealtAfterStrike = f.state.DeckPos - 1;
    };
    f.engine.PlayTurns();

    QCOMPARE(dealtAfterStrike, 9);
    const int struck = f.table.messages.indexOf(QStringLiteral("Player 2\r\nStrike 3! I'm Out!"));
    QCOMPARE(struck, 1);
    for (int i = struck + 1; i < f.table.messages.size(); ++i)
        QVERIFY(f.table.messages[i] != QStringLiteral("Computer Player 2's Turn"));
    QVERIFY(f.table.messages.last().endsWith(QStringLiteral(" wins!")));
    QVERIFY(f.table.messages.last() != QStringLiteral("Player 2 wins!"));
    QCOMPARE(f.table.captionText, QStringLiteral("Press 'F2' to begin"));
}

void TurnCycleTest::strikeTexts_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("strikesBefore");
    QTest::addColumn<QString>("message");
    QTest::newRow("computer first") << int(Computer) << 0 << "Player 3\r\nStrike 1!";
    QTest::newRow("computer out") << int(Computer) << 2 << "Player 3\r\nStrike 3! I'm Out!";
    QTest::newRow("human second") << int(LocalHuman) << 1 << "Player 3\r\nStrike 2!";
    QTest::newRow("human out") << int(LocalHuman) << 2 << "Player 3\r\nStrike 3! You're Out!";
    QTest::newRow("network human out") << int(RemoteHuman) << 2 << "Player 3\r\nStrike 3! They're Out!";
    QTest::newRow("unknown kind out") << 7 << 2 << "Player 3\r\nStrike 3!";
}

void TurnCycleTest::strikeTexts()
{
    QFETCH(int, kind);
    QFETCH(int, strikesBefore);
    QFETCH(QString, message);
    EngineFixture f;
    f.setUpRound({Computer, Computer, Computer, Computer});
    f.state.PlayerType(3) = static_cast<int16_t>(kind);
    f.state.Strikes(3) = static_cast<int16_t>(strikesBefore);
    f.state.CurrentPlayer = 3;
    f.state.Total = 60;
    f.state.Direction = -1;
    f.state.PileTag = QStringLiteral("07");
    f.engine.TakeStrike();

    QCOMPARE(f.table.messages.value(0), message);
    QCOMPARE(int(f.state.Strikes(3)), strikesBefore + 1);
    QCOMPARE(f.table.pauses.value(0), 1.5);
    // A new round: total and direction reset, seat 1 next.
    QCOMPARE(int(f.state.Total), 0);
    QCOMPARE(int(f.state.Direction), 1);
    QCOMPARE(int(f.state.CurrentPlayer), 4);
    QCOMPARE(f.table.captionText, QStringLiteral("1's Turn"));
    QVERIFY(f.state.PileTag.isEmpty());
    QVERIFY(!f.table.takeOverEnabled);
}

void TurnCycleTest::cheer_data()
{
    QTest::addColumn<int>("winnerKind");
    QTest::addColumn<bool>("sound");
    QTest::addColumn<int>("cheers");
    QTest::newRow("human here, sound on") << int(LocalHuman) << true << 1;
    QTest::newRow("human here, sound off") << int(LocalHuman) << false << 0;
    QTest::newRow("computer, sound on") << int(Computer) << true << 0;
    QTest::newRow("network human, sound on") << int(RemoteHuman) << true << 0;
}

void TurnCycleTest::cheer()
{
    QFETCH(int, winnerKind);
    QFETCH(bool, sound);
    QFETCH(int, cheers);
    EngineFixture f;
    f.setUpRound({Computer, Computer});
    f.state.PlayerType(1) = static_cast<int16_t>(winnerKind);
    f.table.setChecked(Check::Sound, sound);
    f.state.Strikes(2) = 2;
    f.state.Total = 99;
    f.setHand(2, card(Ace), card(Jack), card(8));
    f.state.CurrentPlayer = 1;
    f.engine.PlayTurns();
    QCOMPARE(f.table.messages.last(), QStringLiteral("Player 1 wins!"));
    QCOMPARE(f.table.cheers, cheers);
    QCOMPARE(f.table.captionText, QStringLiteral("Press 'F2' to begin"));
}

void TurnCycleTest::pausesFollowTheirCheckMarks_data()
{
    QTest::addColumn<bool>("beforeHumans");
    QTest::addColumn<bool>("beforeComputers");
    QTest::addColumn<QList<double>>("pauses");
    QTest::addColumn<int>("resumeWaits");
    // Seat 2 (a computer) moves, then seat 1 (a human) is to move.
    QTest::newRow("none checked") << false << false << QList<double>{0.5, 0.5} << 0;
    QTest::newRow("before computers") << false << true << QList<double>{0.5} << 1;
    QTest::newRow("before humans") << true << false << QList<double>{0.5} << 1;
    QTest::newRow("both") << true << true << QList<double>{} << 2;
}

void TurnCycleTest::pausesFollowTheirCheckMarks()
{
    QFETCH(bool, beforeHumans);
    QFETCH(bool, beforeComputers);
    QFETCH(QList<double>, pauses);
    QFETCH(int, resumeWaits);
    EngineFixture f;
    f.setUpRound({LocalHuman, Computer});
    f.table.setChecked(Check::PauseBeforeHumans, beforeHumans);
    f.table.setChecked(Check::PauseBeforeComputers, beforeComputers);
    f.state.Total = 10;
    f.setHand(2, card(5), card(6), card(7));
    f.setHand(1, card(2), card(3), card(Ace));
    f.state.CurrentPlayer = 1;
    QList<bool> pausingDuringPause;
    f.table.onPause = [&](double) { pausingDuringPause << f.state.Pausing; };
    f.engine.PlayTurns();

    QCOMPARE(f.table.pauses, pauses);
    QCOMPARE(pausingDuringPause, QList<bool>(pauses.size(), true));
    QCOMPARE(f.table.resumeWaits, resumeWaits);
    QVERIFY(!f.state.Pausing);
    QCOMPARE(int(f.state.CurrentPlayer), 1);
    QVERIFY(f.state.PileTag.isEmpty());
    QVERIFY(f.table.takeOverEnabled);
    for (int slot = 0; slot < 3; ++slot)
        QCOMPARE(f.table.shown[FirstHandSlot + slot], int(f.state.Hand(slot, 1)));
}

void TurnCycleTest::humanPlayIsAnimatedAndRefilled()
{
    for (int16_t mode : {LocalGame, NetHostMode}) {
        EngineFixture f;
        humanToMove(f);
        f.state.NetMode = mode;
        f.state.Total = 20;
        f.setHand(1, card(2), card(7, 2), card(3));
        const int next = f.state.Deck(f.state.DeckPos);
        int tagAtFirstMove = -1;
        f.table.onRefresh = [&] {
            if (tagAtFirstMove < 0)
                tagAtFirstMove = f.state.PileTag.toInt();
        };
        // The engine goes on with seat 2: look at the table in the pause before its move.
        f.table.setChecked(Check::PauseBeforeComputers, true);
        GameState atPause;
        QStringList animationsAtPause;
        QList<double> pausesAtPause;
        f.table.onResume = [&] {
            atPause = f.state;
            animationsAtPause = f.table.animations;
            pausesAtPause = f.table.pauses;
            f.engine.cmdContinue_Click();
        };

        f.engine.picCard_Click(3);
        const int seven = card(7, 2);
        QCOMPARE(animationsAtPause, (QStringList{"move 3 1", QStringLiteral("move 5 3"),
                                                 QStringLiteral("flip 3 %1").arg(next)}));
        QCOMPARE(int(atPause.Total), 27);
        QCOMPARE(int(atPause.Hand(1, 1)), next);
        QCOMPARE(int(atPause.PileCard), seven);
        QCOMPARE(atPause.PileTag, mode == NetHostMode ? QStringLiteral("%1").arg(seven) : QStringLiteral("1"));
        QCOMPARE(tagAtFirstMove, mode == NetHostMode ? seven : 1);
        QCOMPARE(pausesAtPause, QList<double>{0.7});
        QCOMPARE(int(atPause.CurrentPlayer), 2);
        QVERIFY(atPause.Pausing);
        QCOMPARE(f.table.failedWaits, 0);
    }
}

void TurnCycleTest::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("slot"); // -1: the key is ignored
    QTest::newRow("1") << int('1') << 0;
    QTest::newRow("2") << int('2') << 1;
    QTest::newRow("3") << int('3') << 2;
    QTest::newRow("0") << int('0') << -1;
    QTest::newRow("4") << int('4') << -1;
    QTest::newRow("a") << int('a') << -1;
    QTest::newRow("enter") << 13 << -1;
}

void TurnCycleTest::keys()
{
    QFETCH(int, key);
    QFETCH(int, slot);
    EngineFixture f;
    humanToMove(f);
    f.state.Total = 0;
    f.setHand(1, card(2), card(3), card(5));
    f.table.setChecked(Check::PauseBeforeComputers, true);
    int totalAfterKey = -1;
    f.table.onResume = [&] {
        totalAfterKey = f.state.Total;
        f.engine.cmdContinue_Click();
    };
    f.engine.Form_KeyPress(key);
    if (slot < 0) {
        QVERIFY(f.table.animations.isEmpty());
        QCOMPARE(int(f.state.Total), 0);
        return;
    }
    QCOMPARE(f.table.animations.value(0), QStringLiteral("move %1 1").arg(slot + 2));
    const QList<int> values{2, 3, 5};
    QCOMPARE(totalAfterKey, values[slot]);

    // Outside a game every key is ignored.
    EngineFixture idle;
    idle.engine.Form_KeyPress(key);
    QVERIFY(idle.table.animations.isEmpty());
}

void TurnCycleTest::illegalClick_data()
{
    QTest::addColumn<bool>("sound");
    QTest::newRow("sound on") << true;
    QTest::newRow("sound off") << false;
}

void TurnCycleTest::illegalClick()
{
    QFETCH(bool, sound);
    EngineFixture f;
    humanToMove(f);
    f.table.setChecked(Check::Sound, sound);
    f.state.Total = 95;
    f.setHand(1, card(Jack), card(2), card(3));
    const int deckPos = f.state.DeckPos;
    f.engine.picCard_Click(2);
    QCOMPARE(f.table.beeps, sound ? 1 : 0);
    QCOMPARE(int(f.state.Total), 95);
    QCOMPARE(int(f.state.Hand(0, 1)), card(Jack));
    QCOMPARE(int(f.state.DeckPos), deckPos);
    QVERIFY(f.state.PileTag.isEmpty());
    QVERIFY(f.table.animations.isEmpty());
    QCOMPARE(int(f.state.CurrentPlayer), 1);
}

void TurnCycleTest::ignoredClicks_data()
{
    QTest::addColumn<QString>("situation");
    QTest::addColumn<int>("index");
    QTest::newRow("while pausing") << "pausing" << 2;
    QTest::newRow("pile tag set") << "tag" << 3;
    QTest::newRow("the pile") << "" << 1;
    QTest::newRow("the moving card") << "" << 0;
    QTest::newRow("past the hand") << "" << 5;
    QTest::newRow("computer to move") << "computer" << 2;
    QTest::newRow("network human to move") << "remote" << 2;
    QTest::newRow("no game") << "nogame" << 2;
}

void TurnCycleTest::ignoredClicks()
{
    QFETCH(QString, situation);
    QFETCH(int, index);
    EngineFixture f;
    humanToMove(f);
    f.state.Total = 10;
    if (situation == QLatin1String("pausing"))
        f.state.Pausing = true;
    else if (situation == QLatin1String("tag"))
        f.state.PileTag = QStringLiteral("0");
    else if (situation == QLatin1String("computer"))
        f.state.PlayerType(1) = Computer;
    else if (situation == QLatin1String("remote"))
        f.state.PlayerType(1) = RemoteHuman;
    else if (situation == QLatin1String("nogame"))
        f.state.CurrentPlayer = 0;
    const GameState before = f.state;
    f.engine.picCard_Click(index);
    if (!situation.isEmpty())
        f.engine.Form_KeyPress('1');
    QVERIFY(f.table.animations.isEmpty());
    QCOMPARE(f.table.beeps, 0);
    QCOMPARE(f.state.Total, before.Total);
    QCOMPARE(f.state.PileTag, before.PileTag);
    QCOMPARE(f.state.DeckPos, before.DeckPos);
    QCOMPARE(f.state.Hand(0, 1), before.Hand(0, 1));
}

void TurnCycleTest::shownComputerMoveGoesThroughTheClickHandler()
{
    EngineFixture f;
    f.setUpRound({LocalHuman, Computer});
    f.table.setChecked(Check::ShowComputerMoves, true);
    f.state.Total = 30;
    f.setHand(2, card(5), card(Jack), card(2));
    f.setHand(1, card(2), card(3), card(Ace));
    f.state.CurrentPlayer = 1;
    f.random.queue(0.1);
    bool clickFlagDuringMove = false;
    f.table.onRefresh = [&] {
        if (f.state.Total == 40 && f.table.animations.size() == 1)
            clickFlagDuringMove = f.state.ComputerClick;
    };
    f.engine.PlayTurns();

    QVERIFY(clickFlagDuringMove);
    QVERIFY(!f.state.ComputerClick);
    QCOMPARE(f.table.animations.value(0), QStringLiteral("move 3 1"));
    QCOMPARE(int(f.state.Total), 40);
    QCOMPARE(int(f.state.PileCard), card(Jack));
    // Back at the human, with the pile tag emptied for the click.
    QCOMPARE(int(f.state.CurrentPlayer), 1);
    QVERIFY(f.state.PileTag.isEmpty());
    QCOMPARE(f.table.pauses, (QList<double>{0.5, 0.7, 0.5}));
}

void TurnCycleTest::playTurnsReturnsWhenNobodyElseIsInPlay()
{
    EngineFixture f;
    f.setUpRound({Computer, Computer, Computer});
    f.state.Strikes(1) = 3;
    f.state.Strikes(3) = 3;
    f.state.CurrentPlayer = 2;
    f.table.captions.clear();
    f.engine.PlayTurns();
    QVERIFY(f.table.captions.isEmpty());
    QVERIFY(f.table.messages.isEmpty());
    QCOMPARE(int(f.state.CurrentPlayer), 2);
    QCOMPARE(firstStrikeMessage(f.table.messages), -1);
}

QTEST_GUILESS_MAIN(TurnCycleTest)
#include "tst_turn_cycle.moc"
