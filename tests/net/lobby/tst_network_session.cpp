// The network session between the dialog's connections and a running game, on an engine with a
// fake table: which guest may move, a guest leaving in the middle of a game, the host dropping a
// guest's game, and lines that arrive before a guest's game has begun. The connections' signals
// are raised by the test; the session receives them queued, as it does from the sockets.

#include "EngineFixture.h"
#include "NetClient.h"
#include "NetHost.h"
#include "NetworkSession.h"
#include "NewGameDialog.h"

#include <QtTest>

using namespace qx;
using namespace qx::test;

namespace {

struct Session : EngineFixture {
    NewGameDialog dialog;
    NetworkSession session{engine, table, dialog};
    QStringList told;
    QString parked;
    int seat = 0;

    explicit Session(unsigned seed = 3) : EngineFixture(seed)
    {
        dialog.tell = [this](const QString &text) { told << text; };
        session.setParkedLine(&parked);
        session.setGuestSeat(&seat);
    }

    // A host's game of three seats in which seat 2 is the guest in slot `client`; returns once
    // the host waits for that guest's card.
    bool hostWaitingForSeat2(int client = 2)
    {
        NewGameSetup s = setup({Computer, RemoteHuman, Computer}, NetHostMode);
        s.seats[1].client = int16_t(client);
        engine.StartNewGame(s);
        return state.CurrentPlayer == 2 && table.networkTimer;
    }
    int playableSlot(int seatNo) const
    {
        for (int slot = 0; slot < 3; ++slot)
            if (engine.isLegal(state.Hand(slot, seatNo)))
                return slot;
        return -1;
    }
    static void deliver() { QCoreApplication::processEvents(); }
};

} // namespace

class NetworkSessionTest : public QObject {
    Q_OBJECT

private slots:
    void onlyTheSeatsGuestMayMove();
    void guestLeavingMidGameIsPlayedByTheComputer();
    void guestLeavingAnotherSeatWaitsForItsTurn();
    void guestsLeavingAfterTheGameChangeNothing();
    void guestLeavingUnderTheNewGameDialogIsPlayedAtOnce();
    void dropFromTheLinkIsIgnored();
    void lostHostEndsTheGuestsGame();
    void cancelledSessionDropsQuietly();
    void takeOverOnAGuestLeavesQuietly();
    void linesBeforeTheStartAreParkedAndReplayed();
};

void NetworkSessionTest::onlyTheSeatsGuestMayMove()
{
    Session h;
    QVERIFY(h.hostWaitingForSeat2());
    const int slot = h.playableSlot(2);
    QVERIFY(slot >= 0);
    const int turns = h.table.captions.size();
    const QString play = QStringLiteral("PLAY%1%2").arg(slot).arg(h.session.lines().lastDrawn(), 2, 10, QLatin1Char('0'));

    emit h.dialog.Host->ReceiveData(1, play); // another guest
    emit h.dialog.Host->ReceiveData(0, play);
    Session::deliver();
    QCOMPARE(h.table.captions.size(), turns);
    QVERIFY(h.table.networkTimer);

    emit h.dialog.Host->ReceiveData(2, play);
    Session::deliver();
    QVERIFY(h.table.captions.size() > turns); // the turn cycle went on
}

void NetworkSessionTest::guestLeavingMidGameIsPlayedByTheComputer()
{
    Session h;
    QVERIFY(h.hostWaitingForSeat2());
    emit h.dialog.Host->ClientLeft(2);
    Session::deliver();
    QCOMPARE(h.told, QStringList{QStringLiteral("Seat 2 left the game and will be run by the computer.")});
    // Every seat is the computer's now: the game plays itself to its end.
    QCOMPARE(int(h.state.CurrentPlayer), 0);
    QCOMPARE(int(h.state.NetMode), int(LocalGame));
    QCOMPARE(h.dialog.Tag, QStringLiteral("CANCEL")); // the session ended with the game
}

void NetworkSessionTest::guestLeavingAnotherSeatWaitsForItsTurn()
{
    Session h;
    NewGameSetup s = EngineFixture::setup({Computer, RemoteHuman, RemoteHuman}, NetHostMode);
    s.seats[1].client = 1;
    s.seats[2].client = 2;
    s.seats[2].name.clear();
    h.engine.StartNewGame(s);
    QCOMPARE(int(h.state.CurrentPlayer), 2);
    emit h.dialog.Host->ClientLeft(2);
    Session::deliver();
    QCOMPARE(h.told, QStringList{QStringLiteral("Player 3 left the game and will be run by the computer.")});
    QCOMPARE(int(h.state.PlayerType(3)), int(Computer));
    QCOMPARE(int(h.state.PlayerClient(3)), 0);
    QVERIFY(h.state.PlayerName(3).isEmpty());
    // Seat 2 still waits for its own guest.
    QCOMPARE(int(h.state.CurrentPlayer), 2);
    QVERIFY(h.table.networkTimer);
    QCOMPARE(int(h.state.PlayerType(2)), int(RemoteHuman));
}

void NetworkSessionTest::guestsLeavingAfterTheGameChangeNothing()
{
    Session h;
    emit h.dialog.Host->ClientLeft(1);
    Session::deliver();
    QVERIFY(h.told.isEmpty());
}

void NetworkSessionTest::guestLeavingUnderTheNewGameDialogIsPlayedAtOnce()
{
    Session h;
    QVERIFY(h.hostWaitingForSeat2());
    h.state.NetMode = LocalGame; // New was answered with Yes; its dialog is open over the game
    emit h.dialog.Host->ClientLeft(2);
    Session::deliver();
    QCOMPARE(h.told, QStringList{QStringLiteral("Seat 2 left the game and will be run by the computer.")});
    QCOMPARE(int(h.state.CurrentPlayer), 0); // the computers played the old game to its end
}

void NetworkSessionTest::dropFromTheLinkIsIgnored()
{
    Session h;
    QVERIFY(h.hostWaitingForSeat2());
    emit h.dialog.Host->ReceiveData(2, QStringLiteral("DROP"));
    Session::deliver();
    QCOMPARE(int(h.state.PlayerType(2)), int(RemoteHuman));
    QCOMPARE(int(h.state.CurrentPlayer), 2);
    QVERIFY(h.table.networkTimer);
}

void NetworkSessionTest::lostHostEndsTheGuestsGame()
{
    Session g;
    g.seat = 2;
    g.engine.StartNewGame(EngineFixture::setup({Computer, LocalHuman, Computer}, NetGuestMode));
    QVERIFY(g.state.gameRunning());
    emit g.dialog.Guest->Dropped(); // the dialog is hidden: the game was under way
    Session::deliver();
    QCOMPARE(g.told, QStringList{QStringLiteral("The connection to the host has dropped.")});
    QCOMPARE(int(g.state.CurrentPlayer), 0);
    QCOMPARE(int(g.state.NetMode), int(LocalGame));
    QCOMPARE(g.table.captionText, QStringLiteral("Press 'F2' to begin"));
}

void NetworkSessionTest::cancelledSessionDropsQuietly()
{
    Session g;
    g.engine.StartNewGame(EngineFixture::setup({Computer, LocalHuman}, NetGuestMode));
    g.dialog.Tag = QStringLiteral("CANCEL");
    emit g.dialog.Guest->Dropped();
    Session::deliver();
    QVERIFY(g.told.isEmpty());
    QVERIFY(g.state.gameRunning());
}

void NetworkSessionTest::takeOverOnAGuestLeavesQuietly()
{
    Session g;
    g.seat = 2;
    g.engine.StartNewGame(EngineFixture::setup({Computer, LocalHuman}, NetGuestMode));
    g.session.guestTakeOver();
    QCOMPARE(int(g.state.CurrentPlayer), 0);
    QCOMPARE(int(g.state.NetMode), int(LocalGame));
    QCOMPARE(g.dialog.Tag, QStringLiteral("CANCEL"));
    Session::deliver();
    QVERIFY(g.told.isEmpty());
}

void NetworkSessionTest::linesBeforeTheStartAreParkedAndReplayed()
{
    Session g;
    // Three seats, seat 2 to move, upwards, one pack, card 7 drawn next, empty pile, no strikes,
    // total 5, seat 2's cards 1, 2 and 3.
    const QString line = QStringLiteral("2121") + QStringLiteral("07") + QStringLiteral("-1") + QStringLiteral("000")
                         + QStringLiteral("05") + QStringLiteral("010203");
    emit g.dialog.Guest->ReceiveData(QStringLiteral("0121"));
    emit g.dialog.Guest->ReceiveData(line);
    Session::deliver();
    QCOMPARE(g.parked, line); // only the last one is kept
    QCOMPARE(int(g.state.Total), -1);

    g.seat = 3;
    g.engine.StartNewGame(EngineFixture::setup({Computer, Computer, LocalHuman}, NetGuestMode));
    g.session.NetworkGuest(g.parked);
    QCOMPARE(g.session.lines().NetSeat(), 3);
    QCOMPARE(int(g.state.Total), 5);
    QCOMPARE(int(g.state.CurrentPlayer), 2);
    QCOMPARE(g.table.captionText, QStringLiteral("Seat 2's Turn"));

    // Once the game runs, lines go straight to it.
    emit g.dialog.Guest->ReceiveData(QStringLiteral("2121") + QStringLiteral("07") + QStringLiteral("09")
                                     + QStringLiteral("000") + QStringLiteral("14") + QStringLiteral("010203"));
    Session::deliver();
    QCOMPARE(int(g.state.Total), 14);
}

QTEST_MAIN(NetworkSessionTest)
#include "tst_network_session.moc"
