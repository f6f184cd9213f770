// Thousands of computer-only games, headless and without animation, for every seat count and
// pack count: every game must reach one winner with the rules intact, and the state must come
// back to "no game" after each.
#include "EngineFixture.h"

#include <QTest>

using namespace qx;
using namespace qx::test;

class SoakTest : public QObject {
    Q_OBJECT

private slots:
    void manyGames_data()
    {
        QTest::addColumn<int>("players");
        QTest::addColumn<int>("packs");
        for (int players = 2; players <= MaxSeats; ++players)
            for (int packs = 1; packs <= MaxDecks; ++packs)
                QTest::addRow("%d seats, %d packs", players, packs) << players << packs;
    }

    void manyGames()
    {
        QFETCH(int, players);
        QFETCH(int, packs);
        // Nine or ten seats share out one pack so thinly that a stock rebuilt mid-round holds
        // little but copies of its last card; such a game may never end, so those tables are
        // played with a limit and only counted.
        const bool mayRunForever = packs == 1 && players >= 9;
        const int games = 120;
        const int playLimit = 20000;

        EngineFixture f(unsigned(players * 31 + packs));
        int plays = 0;
        int endless = 0;
        QString broken;
        f.table.onRefresh = [&] {
            const GameState &s = f.state;
            if (s.NumPlayers > 0 && (s.Total < 0 || s.Total > TotalLimit))
                broken = QStringLiteral("total %1").arg(s.Total);
            if (++plays > playLimit && s.gameRunning())
                f.engine.AbandonGame();
        };

        for (int game = 0; game < games; ++game) {
            plays = 0;
            f.table.messages.clear();
            f.state.NumberOfDecks = int16_t(packs);
            NewGameSetup setup;
            setup.numPlayers = players;
            f.engine.StartNewGame(setup);
            QVERIFY2(broken.isEmpty(), qPrintable(broken));
            QCOMPARE(int(f.state.CurrentPlayer), 0);
            QCOMPARE(int(f.state.NumPlayers), 0);
            QCOMPARE(int(f.state.Total), -1);
            if (plays > playLimit) {
                ++endless;
                continue;
            }
            const QStringList wins = f.table.messages.filter(QStringLiteral(" wins!"));
            QCOMPARE(wins.size(), 1);
        }
        if (!mayRunForever)
            QCOMPARE(endless, 0);
        else
            qInfo("%d of %d games at %d seats with one pack had no end", endless, games, players);
    }
};

QTEST_GUILESS_MAIN(SoakTest)
#include "tst_soak.moc"
