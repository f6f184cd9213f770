// A host and two guests, each with its own engine, joined by an in-memory wire: whole network
// games are played to their end and every copy must agree on the outcome.
#include "EngineFixture.h"
#include "GameLines.h"

#include <QTest>

#include <deque>
#include <memory>

using namespace qx;
using namespace qx::test;

namespace {

struct Copy : EngineFixture {
    GameLines lines{engine, table};
    explicit Copy(unsigned seed) : EngineFixture(seed) { engine.setNetworkHooks(&lines); }
};

// Lines travel through a queue, as they do over sockets: a copy never handles a line inside the
// call that sent it.
struct Wire {
    struct Line {
        int to; // 0 the host, 1.. a guest
        QString text;
    };
    std::deque<Line> queue;
    int delivered = 0;
};

struct NetworkGame {
    Copy host{11};
    std::vector<std::unique_ptr<Copy>> guests;
    std::vector<int> guestSeats;
    Wire wire;
    bool guestDropped = false;

    NetworkGame(const std::vector<int16_t> &kinds, std::vector<int> seatsOfGuests, int decks = 1)
        : guestSeats(std::move(seatsOfGuests))
    {
        host.lines.setSendToGuests([this](const QString &l) {
            for (size_t g = 0; g < guests.size(); ++g)
                wire.queue.push_back({int(g) + 1, l});
        });
        host.lines.setEndSession([] {});
        for (size_t g = 0; g < guestSeats.size(); ++g) {
            auto guest = std::make_unique<Copy>(100 + unsigned(g));
            Copy *c = guest.get();
            const int seat = guestSeats[g];
            c->lines.setSendToHost([this](const QString &l) { wire.queue.push_back({0, l}); });
            c->lines.setEndSession([] {});
            // The player at this guest clicks the card the computer would choose.
            c->table.onWaitUntil = [c, seat] {
                const int slot = c->engine.ChooseCard(seat);
                if (slot >= 0)
                    c->engine.picCard_Click(slot + FirstHandSlot);
            };
            guests.push_back(std::move(guest));
        }
        NewGameSetup setup;
        setup.numPlayers = int(kinds.size());
        setup.netMode = NetHostMode;
        for (size_t s = 0; s < kinds.size(); ++s)
            setup.seats[s].type = kinds[s];
        for (size_t g = 0; g < guestSeats.size(); ++g)
            setup.seats[size_t(guestSeats[g] - 1)].client = int16_t(g + 1);
        // The guests' New Game dialogs close first; their games begin with no line yet.
        for (size_t g = 0; g < guests.size(); ++g) {
            Copy &c = *guests[g];
            NewGameSetup mine = EngineFixture::setup({Computer, Computer}, NetGuestMode);
            mine.numPlayers = setup.numPlayers;
            mine.seats[size_t(guestSeats[g] - 1)].type = LocalHuman;
            c.engine.StartNewGame(mine);
            c.lines.startGuestGame(guestSeats[g]);
        }
        host.state.NumberOfDecks = int16_t(decks);
        host.engine.StartNewGame(setup);
    }

    // Delivers lines until the wire is quiet; `dropAt` makes the first guest vanish after that
    // many deliveries (the host's dialog then hands the seat to the computer).
    void run(int dropAt = -1)
    {
        while (!wire.queue.empty() && wire.delivered < 100000) {
            Wire::Line line = wire.queue.front();
            wire.queue.pop_front();
            ++wire.delivered;
            if (wire.delivered == dropAt)
                dropFirstGuest();
            if (line.to == 0)
                host.lines.NetworkHost(line.text);
            else if (!(guestDropped && line.to == 1))
                guests[size_t(line.to - 1)]->lines.NetworkGuest(line.text);
        }
    }

    void dropFirstGuest()
    {
        guestDropped = true;
        const int seat = guestSeats[0];
        host.state.PlayerType(seat) = Computer;
        host.state.PlayerName(seat).clear();
        host.state.PlayerClient(seat) = 0;
        if (host.state.CurrentPlayer == seat)
            host.lines.NetworkHost(QStringLiteral("DROP"));
    }

    int hostWinner() const
    {
        const QString &last = host.table.messages.last();
        return last.startsWith(QLatin1String("Player ")) && last.endsWith(QLatin1String(" wins!"))
            ? last.mid(7, last.size() - 13).toInt() : 0;
    }
};

} // namespace

class TestNetworkGame : public QObject {
    Q_OBJECT

private slots:
    void wholeGames_data()
    {
        QTest::addColumn<int>("players");
        QTest::addColumn<int>("decks");
        // Many seats share out one pack so thinly that a reshuffled stock holds little but copies
        // of its last cards; those tables get four packs here.
        const std::pair<int, int> tables[] = {{2, 1}, {2, 4}, {3, 1}, {3, 2}, {5, 2}, {5, 4}, {10, 4}};
        for (auto [players, decks] : tables)
            QTest::addRow("%d seats, %d packs", players, decks) << players << decks;
    }
    void wholeGames()
    {
        QFETCH(int, players);
        QFETCH(int, decks);
        for (int round = 0; round < 5; ++round) {
            std::vector<int16_t> kinds(size_t(players), Computer);
            kinds[1] = RemoteHuman;
            kinds[size_t(players - 1)] = RemoteHuman;
            std::vector<int> seats{2, players};
            if (players == 2)
                seats = {2};
            NetworkGame game(kinds, seats, decks);
            game.run();

            QCOMPARE(int(game.host.state.CurrentPlayer), 0);
            const int winner = game.hostWinner();
            QVERIFY(winner >= 1 && winner <= players);
            for (size_t g = 0; g < game.guests.size(); ++g) {
                Copy &guest = *game.guests[g];
                QCOMPARE(int(guest.state.CurrentPlayer), 0);
                const QString expected = winner == seats[g] ? QStringLiteral("You Win!")
                                                            : QStringLiteral("Player %1 wins!").arg(winner);
                QCOMPARE(guest.table.messages.last(), expected);
                for (int s = 1; s <= players; ++s)
                    QCOMPARE(guest.state.Strikes(s), game.host.state.Strikes(s));
            }
        }
    }

    void guestDropsMidGame()
    {
        for (int dropAt : {3, 10, 25}) {
            NetworkGame game({Computer, RemoteHuman, RemoteHuman}, {2, 3});
            game.run(dropAt);
            QCOMPARE(int(game.host.state.CurrentPlayer), 0);
            QVERIFY(game.hostWinner() >= 1);
            Copy &remaining = *game.guests[1];
            QCOMPARE(int(remaining.state.CurrentPlayer), 0);
        }
    }
};

QTEST_GUILESS_MAIN(TestNetworkGame)
#include "tst_network_game.moc"
