// The in-game lines byte for byte, and how host and guest react to good and damaged lines.
#include "EngineFixture.h"
#include "GameLines.h"
#include "SeatName.h"
#include "StockCount.h"

#include <QTest>

using namespace qx;
using namespace qx::test;

namespace {

struct LinesFixture : EngineFixture {
    GameLines lines{engine, table};
    QStringList toGuests, toHost;
    int sessionsEnded = 0;

    LinesFixture()
    {
        engine.setNetworkHooks(&lines);
        lines.setSendToGuests([this](const QString &l) { toGuests << l; });
        lines.setSendToHost([this](const QString &l) { toHost << l; });
        lines.setEndSession([this] { ++sessionsEnded; });
    }

    // A host mid-round: seats 1..n, seat `current` to move, the deck tag fixing the drawn card.
    void hostState(int players, int current, int drawn)
    {
        state.NetMode = NetHostMode;
        state.NumPlayers = static_cast<int16_t>(players);
        state.CurrentPlayer = static_cast<int16_t>(current);
        state.Direction = 1;
        state.NumberOfDecks = 1;
        state.Total = 0;
        state.DeckTag = QString::number(drawn);
        for (int seat = 1; seat <= MaxSeats; ++seat)
            state.Strikes(seat) = 0;
    }

    // A guest whose game has started, playing `seat`.
    void guestStarted(int seat)
    {
        state.NetMode = NetGuestMode;
        state.PlayerType(seat) = LocalHuman;
        state.CurrentPlayer = 1;
        state.NumPlayers = 2;
        lines.startGuestGame(seat);
    }
};

} // namespace

class TestGameLines : public QObject {
    Q_OBJECT

private slots:
    void createNetLine_data()
    {
        QTest::addColumn<int>("players");
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("direction");
        QTest::addColumn<QString>("pileTag");
        QTest::addColumn<QString>("expected");

        // players-1, current-1, direction+1, packs, drawn, pile, strikes, total, hand
        QTest::newRow("two seats") << 2 << 1 << 1 << "05" << "1021" "07" "05" "02" "42" "011251";
        QTest::newRow("ten seats") << 10 << 10 << 1 << "05" << "9921" "07" "05" "0200000000" "42" "000000";
        QTest::newRow("empty pile, reversed") << 3 << 2 << -1 << "" << "2101" "07" "-1" "020" "42" "000000";
        QTest::newRow("end of game") << 2 << 0 << 1 << "33" << "1-21" "07" "33" "02" "42" "000000";
    }
    void createNetLine()
    {
        QFETCH(int, players);
        QFETCH(int, current);
        QFETCH(int, direction);
        QFETCH(QString, pileTag);
        QFETCH(QString, expected);
        LinesFixture f;
        f.hostState(players, current, 7);
        f.state.Direction = static_cast<int16_t>(direction);
        f.state.PileTag = pileTag;
        f.state.Strikes(2) = 2;
        f.state.Total = 42;
        f.setHand(1, 1, 12, 51);
        QCOMPARE(f.lines.CreateNetLine(), expected);
        QVERIFY2(f.state.DeckTag.isEmpty(), "every line takes a card from the stock");
    }

    void createNetLineDrawsFromTheStock()
    {
        LinesFixture f;
        f.hostState(2, 1, 0);
        f.state.DeckTag.clear();
        f.engine.ShuffleDeck();
        const int next = f.state.Deck(f.state.DeckPos);
        const int before = f.state.DeckPos;
        QCOMPARE(f.lines.CreateNetLine().mid(4, 2).toInt(), next);
        QCOMPARE(int(f.state.DeckPos), before + 1);
    }

    void winLineCarriesTheWinner()
    {
        LinesFixture f;
        f.hostState(3, 0, 9);
        f.state.PileTag = QStringLiteral("12");
        f.lines.sendWinLine(3);
        QCOMPARE(f.toGuests, QStringList{QStringLiteral("2-21" "09" "12" "000" "00" "000000" "WIN03")});
    }

    void processNetLineAppliesEveryField()
    {
        LinesFixture f;
        f.state.NetMode = NetGuestMode;
        QString line = QStringLiteral("2101" "07" "33" "012" "42" "011251");
        QVERIFY(f.lines.ProcessNetLine(line));
        QCOMPARE(int(f.state.NumPlayers), 3);
        QCOMPARE(int(f.state.CurrentPlayer), 2);
        QCOMPARE(int(f.state.Direction), -1);
        QCOMPARE(int(f.state.NumberOfDecks), 1);
        QCOMPARE(f.state.DeckTag, QStringLiteral("07"));
        QCOMPARE(f.table.shown[PileSlot], 33);
        QCOMPARE(int(f.state.Strikes(2)), 1);
        QCOMPARE(int(f.state.Strikes(3)), 2);
        QCOMPARE(f.lines.StrikeSeat(), 3);
        QCOMPARE(int(f.state.Total), 42);
        QCOMPARE(int(f.state.Hand(0, 2)), 1);
        QCOMPARE(int(f.state.Hand(1, 2)), 12);
        QCOMPARE(int(f.state.Hand(2, 2)), 51);
        QCOMPARE(line, QStringLiteral("51")); // the last pair stays when nothing follows
        QCOMPARE(f.engine.DrawCard(), 7);       // the guest's next draw is the host's card
    }

    void processNetLineTail()
    {
        LinesFixture f;
        f.state.NetMode = NetGuestMode;
        QString line = QStringLiteral("1-21" "07" "-1" "03" "00" "000000" "WIN01");
        QVERIFY(f.lines.ProcessNetLine(line));
        QCOMPARE(line, QStringLiteral("WIN01"));
        QCOMPARE(int(f.state.CurrentPlayer), 1); // "-" reads as 0
        QCOMPARE(f.table.shown[PileSlot], int(FakeTable::Empty));
    }

    void processNetLineIgnoresDamagedLines_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("empty") << "";
        QTest::newRow("letter first") << "X021070501420112";
        QTest::newRow("too short") << "10210705";
        QTest::newRow("no hand") << "1021070501" "42";
        QTest::newRow("letters in the total") << "1021070501" "4x" "011251";
        QTest::newRow("zero packs") << "1020070501" "42" "011251";
        QTest::newRow("five packs") << "1025070501" "42" "011251";
        QTest::newRow("seat beyond players") << "1521070501" "42" "011251";
        QTest::newRow("card 52 drawn") << "1021520501" "42" "011251";
        QTest::newRow("card 60 in hand") << "1021070501" "42" "016051";
        QTest::newRow("direction 1") << "1011070501" "42" "011251";
        QTest::newRow("strike letter") << "10210705x1" "42" "011251";
    }
    void processNetLineIgnoresDamagedLines()
    {
        QFETCH(QString, line);
        LinesFixture f;
        f.state.NetMode = NetGuestMode;
        f.state.NumPlayers = 4;
        f.state.Total = 17;
        QString copy = line;
        QVERIFY(!f.lines.ProcessNetLine(copy));
        QCOMPARE(int(f.state.NumPlayers), 4);
        QCOMPARE(int(f.state.Total), 17);
        QVERIFY(f.state.DeckTag.isEmpty());
        f.lines.NetworkGuest(line); // the same line through the guest's handler: no effect either
        QCOMPARE(int(f.state.Total), 17);
    }

    void twoSeatsStruckReportsTheHigher()
    {
        LinesFixture f;
        f.state.NetMode = NetGuestMode;
        QString line = QStringLiteral("3021" "07" "-1" "1010" "00" "000102");
        QVERIFY(f.lines.ProcessNetLine(line));
        QCOMPARE(f.lines.StrikeSeat(), 3);
    }

    void guestParksALineUntilItsGameStarts()
    {
        LinesFixture f;
        f.lines.NetworkGuest(QStringLiteral("1121" "07" "-1" "00" "00" "011251"));
        QCOMPARE(f.lines.parkedLine(), QStringLiteral("1121" "07" "-1" "00" "00" "011251"));
        QCOMPARE(int(f.state.Total), -1);
        f.state.NetMode = NetGuestMode;
        f.state.PlayerType(1) = LocalHuman;
        f.lines.startGuestGame(1);
        QVERIFY(f.lines.parkedLine().isEmpty());
        QCOMPARE(int(f.state.CurrentPlayer), 2);
        QCOMPARE(f.table.captionText, QStringLiteral("2's Turn"));
        QVERIFY(f.table.networkTimer);
    }

    void guestPlaysItsTurn()
    {
        LinesFixture f;
        f.guestStarted(2);
        f.table.onWaitUntil = [&] { f.engine.picCard_Click(3); }; // the player clicks the middle card
        f.lines.NetworkGuest(QStringLiteral("1121" "07" "-1" "00" "50" "011051"));
        QCOMPARE(f.table.captionText, QStringLiteral("Your Turn"));
        QVERIFY(f.table.messages.contains(QStringLiteral("Your Turn")));
        QCOMPARE(f.toHost, QStringList{QStringLiteral("PLAY107")});
        QCOMPARE(int(f.state.Total), 60); // the jack added 10
        QVERIFY(f.table.networkTimer);
        QVERIFY(!f.table.takeOverEnabled);
    }

    void eliminatedGuestAnswersNothing()
    {
        LinesFixture f;
        f.guestStarted(2);
        f.table.onWaitUntil = [&] { f.engine.picCard_Click(2); };
        f.lines.NetworkGuest(QStringLiteral("1121" "07" "-1" "03" "50" "011251"));
        QVERIFY(f.toHost.isEmpty());
        QVERIFY(f.table.messages.contains(QStringLiteral("Strike 3! You're Out!")));
    }

    void ownStrikeIsNotATurn()
    {
        LinesFixture f;
        f.guestStarted(2);
        int waits = 0;
        f.table.onWaitUntil = [&] {
            ++waits;
            f.engine.picCard_Click(2);
        };
        f.lines.NetworkGuest(QStringLiteral("1121" "07" "-1" "01" "50" "011251"));
        QCOMPARE(f.table.messages.last(), QStringLiteral("Strike 1!"));
        QCOMPARE(waits, 0);
        QVERIFY(f.toHost.isEmpty());
        QVERIFY(f.table.captionText != QStringLiteral("Your Turn"));
    }

    void newerLineEndsTheWaitForACard()
    {
        LinesFixture f;
        f.guestStarted(2);
        int waits = 0;
        f.table.onWaitUntil = [&] {
            if (++waits == 1) // the host's next line arrives while the player still thinks
                f.lines.NetworkGuest(QStringLiteral("1121" "07" "-1" "00" "40" "011051"));
            else
                f.engine.picCard_Click(3);
        };
        f.lines.NetworkGuest(QStringLiteral("1121" "07" "-1" "00" "50" "011051"));
        QCOMPARE(waits, 2);
        QCOMPARE(f.toHost, QStringList{QStringLiteral("PLAY107")});
        QCOMPARE(int(f.state.Total), 50);
    }

    void takeOverOnlyWhileAskedForACard()
    {
        LinesFixture f;
        f.guestStarted(2);
        bool enabledWhileAsked = false;
        f.table.onWaitUntil = [&] {
            enabledWhileAsked = f.table.takeOverEnabled;
            // The host moves on to seat 1 while this player still thinks.
            f.lines.NetworkGuest(QStringLiteral("1021" "07" "-1" "00" "50" "011051"));
        };
        f.lines.NetworkGuest(QStringLiteral("1121" "07" "-1" "00" "50" "011051"));
        QVERIFY(enabledWhileAsked);
        QVERIFY(!f.table.takeOverEnabled);

        // A seat that is out is shown its cards and asked for nothing.
        f.table.onWaitUntil = nullptr;
        f.lines.NetworkGuest(QStringLiteral("1021" "07" "-1" "03" "50" "011051"));
        f.lines.NetworkGuest(QStringLiteral("1121" "07" "-1" "03" "50" "011051"));
        QVERIFY(!f.table.takeOverEnabled);
        QCOMPARE(f.table.failedWaits, 0);
    }

    void guestShowsOnlyWhatItKnows()
    {
        LinesFixture f;
        f.guestStarted(2);
        f.lines.NetworkGuest(QStringLiteral("1021" "07" "-1" "00" "50" "011051"));
        // Seat 1 may be the host's own player: the guest cannot tell, nor count the host's stock.
        QCOMPARE(seatDisplayName(f.state, 1), QStringLiteral("Player 1"));
        QVERIFY(stockCountText(f.state).isEmpty());
        f.state.NetMode = NetHostMode;
        QCOMPARE(seatDisplayName(f.state, 1), QStringLiteral("Computer 1"));
        QCOMPARE(stockCountText(f.state), QStringLiteral("52 cards left"));
    }

    void guestStrikeMessages()
    {
        LinesFixture f;
        f.guestStarted(2);
        f.lines.NetworkGuest(QStringLiteral("2001" "07" "-1" "000" "00" "011251"));
        f.lines.NetworkGuest(QStringLiteral("2001" "07" "-1" "003" "00" "011251"));
        QCOMPARE(f.table.messages.last(), QStringLiteral("Player 3\r\nStrike 3! They're Out!"));
        f.lines.NetworkGuest(QStringLiteral("2001" "07" "-1" "103" "00" "011251"));
        QCOMPARE(f.table.messages.last(), QStringLiteral("Player 1\r\nStrike 1!"));
    }

    void guestLearnsTheWinner_data()
    {
        QTest::addColumn<int>("winner");
        QTest::addColumn<bool>("sound");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("cheers");
        QTest::newRow("own seat, sound on") << 2 << true << "You Win!" << 1;
        QTest::newRow("own seat, sound off") << 2 << false << "You Win!" << 0;
        QTest::newRow("another seat") << 1 << true << "Player 1 wins!" << 0;
    }
    void guestLearnsTheWinner()
    {
        QFETCH(int, winner);
        QFETCH(bool, sound);
        QFETCH(QString, message);
        QFETCH(int, cheers);
        LinesFixture f;
        f.guestStarted(2);
        f.table.setChecked(Check::Sound, sound);
        f.lines.NetworkGuest(QStringLiteral("1-21" "07" "11" "33" "00" "000000" "WIN%1").arg(winner, 2, 10, QLatin1Char('0')));
        QCOMPARE(f.table.messages.last(), message);
        QCOMPARE(f.table.cheers, cheers);
        QCOMPARE(int(f.state.CurrentPlayer), 0);
        QCOMPARE(int(f.state.NetMode), int(LocalGame));
        QCOMPARE(f.sessionsEnded, 1);
    }

    void hostIgnoresPlaysItIsNotWaitingFor()
    {
        LinesFixture f;
        f.hostState(2, 2, 7);
        f.state.PlayerType(2) = RemoteHuman;
        f.setHand(2, 1, 12, 51);
        f.table.networkTimer = false;
        f.lines.NetworkHost(QStringLiteral("PLAY107"));
        QCOMPARE(int(f.state.Total), 0);
        QCOMPARE(int(f.state.Hand(1, 2)), 12);
    }

    void hostIgnoresDamagedPlays_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("slot 3") << "PLAY307";
        QTest::newRow("slot letter") << "PLAYx07";
        QTest::newRow("refill letters") << "PLAY1ab";
        QTest::newRow("refill 52") << "PLAY152";
        QTest::newRow("too short") << "PLAY1";
        QTest::newRow("other text") << "HELLO";
        QTest::newRow("empty") << "";
        QTest::newRow("illegal card") << "PLAY207"; // a queen on 95
        QTest::newRow("refill not the card drawn") << "PLAY108";
    }
    void hostIgnoresDamagedPlays()
    {
        QFETCH(QString, line);
        LinesFixture f;
        f.hostState(2, 2, 7);
        f.state.PlayerType(2) = RemoteHuman;
        f.setHand(2, 1, 12, 11);
        f.state.Total = 95;
        QCOMPARE(f.lines.CreateNetLine().mid(4, 2), QStringLiteral("07")); // the turn's line
        f.table.networkTimer = true;
        f.lines.NetworkHost(line);
        QCOMPARE(int(f.state.Total), 95);
        QCOMPARE(int(f.state.Hand(1, 2)), 12);
        QVERIFY2(f.table.networkTimer, "the host still waits for a proper play");
        QVERIFY(f.toGuests.isEmpty());
    }

    void hostAppliesAPlayAndPlaysOn()
    {
        LinesFixture f;
        f.engine.StartNewGame(LinesFixture::setup({RemoteHuman, RemoteHuman}, NetHostMode));
        QCOMPARE(int(f.state.CurrentPlayer), 1);
        QVERIFY(f.table.networkTimer);
        f.setHand(1, card(Ace), card(Queen), card(Four));
        f.state.Total = 20;
        const QString drawn = f.toGuests.last().mid(4, 2);
        f.toGuests.clear();
        f.lines.NetworkHost(QStringLiteral("PLAY1") + drawn);
        QCOMPARE(int(f.state.Total), 30);
        QCOMPARE(int(f.state.Hand(1, 1)), drawn.toInt());
        QCOMPARE(int(f.state.PileCard), card(Queen));
        QCOMPARE(f.state.PileTag, QStringLiteral("11"));
        // The turn passed to seat 2, announced with its game line; the host waits again.
        QCOMPARE(int(f.state.CurrentPlayer), 2);
        QCOMPARE(f.toGuests.size(), 1);
        QCOMPARE(f.toGuests.first().mid(1, 1), QStringLiteral("1"));
        QCOMPARE(f.toGuests.first().mid(6, 2), QStringLiteral("11"));
        QVERIFY(f.table.networkTimer);
    }

    void dropLetsTheComputerPlayTheSeat()
    {
        LinesFixture f;
        f.engine.StartNewGame(LinesFixture::setup({Computer, RemoteHuman}, NetHostMode));
        QCOMPARE(int(f.state.CurrentPlayer), 2);
        f.state.PlayerType(2) = Computer; // the dialog's client-left handling
        f.lines.NetworkHost(QStringLiteral("DROP"));
        // With both seats played by the computer the game runs to its end.
        QCOMPARE(int(f.state.CurrentPlayer), 0);
        QVERIFY(f.toGuests.last().contains(QStringLiteral("WIN")));
    }
};

QTEST_GUILESS_MAIN(TestGameLines)
#include "tst_game_lines.moc"
