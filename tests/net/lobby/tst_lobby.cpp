// The network lobby of the New Game dialog: a host and its guests in one process over loopback.
// Seats asked for, granted and refused, the host's layout reaching its guests, removing a guest,
// wrong titles and versions, the start of the game, the lobby closing, and the roles' controls.

#include "LobbyFixture.h"

#include "LinkProtocol.h"

#include <QTcpServer>
#include <QTcpSocket>

using namespace qx;
using namespace qx::test;

namespace {
const QString Kicked = QStringLiteral("You were kicked out of the game.");
} // namespace

class LobbyTest : public QObject {
    Q_OBJECT

private slots:
    void rolesSetUpTheirControls();
    void guestSeesTheLobbyOnJoining();
    void seatsAreGrantedOnceAndTakenSeatsRefused();
    void hostSeatClicksReachTheGuests();
    void playerCountReachesTheGuests();
    void removingAGuestAsksFirst();
    void wrongVersionIsToldAndDropped();
    void wrongTitleIsToldAndDropped();
    void startSendsSeatedGuestsOffAndClosesTheLobby();
    void nobodyJoinsAfterTheStart();
    void lobbyIsOnlyForGuestsThatShookHands();
    void guestLeavingFreesItsSeat();
    void hostCancelEndsTheLobby();
    void guestSelectChecks_data();
    void guestSelectChecks();
    void unreachableHostIsAnErrorNotAKick();
    void busyPortIsToldClearly();
    void damagedLobbyMessagesAreIgnored();
};

void LobbyTest::rolesSetUpTheirControls()
{
    Copy c;
    c.dialog.setGamePort(0);
    c.dialog.Host->setListenAddress(QHostAddress::LocalHost);
    c.dialog.chkNetwork->click();
    QVERIFY(c.dialog.Host->Hosting());
    QCOMPARE(c.status(), QStringLiteral("Network Connections: 0"));
    QCOMPARE(c.dialog.cmdOK->text(), QStringLiteral("&OK"));
    QVERIFY(!c.dialog.txtHost->isEnabled());

    c.dialog.optGuest->click();
    QVERIFY(!c.dialog.Host->Hosting());
    QCOMPARE(c.dialog.cmdOK->text(), QStringLiteral("&Select"));
    QCOMPARE(c.status(), QStringLiteral("Not Connected"));
    QVERIFY(c.dialog.txtHost->isEnabled());
    QVERIFY(c.dialog.lblHost->isEnabled());
    QVERIFY(c.dialog.tmrCheck->isActive());
    QVERIFY(!c.dialog.Frame1->isEnabled()); // the host decides the number of players
    // With no host named, the timer has nobody to call.
    c.dialog.tmrCheck_Timer();
    QCOMPARE(c.status(), QStringLiteral("Not Connected"));

    c.dialog.optHost->click();
    QVERIFY(c.dialog.Host->Hosting());
    QVERIFY(!c.dialog.tmrCheck->isActive());
    QCOMPARE(c.dialog.cmdOK->text(), QStringLiteral("&OK"));
    QVERIFY(c.dialog.Frame1->isEnabled());

    c.dialog.chkNetwork->click(); // leaving network play ends hosting
    QVERIFY(!c.dialog.Host->Hosting());
    QCOMPARE(c.dialog.cmdOK->text(), QStringLiteral("&OK"));
    QVERIFY(c.told.isEmpty());
}

void LobbyTest::guestSeesTheLobbyOnJoining()
{
    Lobby lobby;
    lobby.host.seat(0)->setValue(LocalHuman); // the host's own seat
    lobby.host.dialog.optPlayers[3]->click();  // five seats
    lobby.openHost();
    Copy &g = lobby.addGuest(QStringLiteral("ada"));
    Lobby::waitUntil([&] { return g.status() == QStringLiteral("Connection Established"); });
    Lobby::waitUntil([&] { return g.dialog.optPlayers[3]->isChecked(); });
    Lobby::waitUntil([&] { return !g.seat(0)->isEnabled(); });
    QCOMPARE(g.seat(0)->value(), int(Computer));
    for (int i = 1; i < MaxSeats; ++i)
        QCOMPARE(g.seat(i)->isEnabled(), i < 5);
    QCOMPARE(lobby.host.status(), QStringLiteral("Network Connections: 1"));
    QVERIFY(g.told.isEmpty());
}

void LobbyTest::seatsAreGrantedOnceAndTakenSeatsRefused()
{
    Lobby lobby;
    lobby.openHost();
    Copy &ada = lobby.joinGuest(QStringLiteral("ada"));
    Copy &bob = lobby.joinGuest(QStringLiteral("bob"));

    Lobby::choose(ada, 1);
    Lobby::waitUntil([&] { return ada.status() == QStringLiteral("Choice Accepted, Waiting to Start"); });
    SeatBox *granted = lobby.host.seat(1);
    QCOMPARE(granted->value(), int(RemoteHuman));
    QCOMPARE(granted->toolTip(), QStringLiteral("ada"));
    QCOMPARE(lobby.host.dialog.seatTag(1), QStringLiteral("1"));
    QCOMPARE(ada.seat(1)->value(), int(LocalHuman));
    QVERIFY(!ada.dialog.cmdOK->isEnabled());
    QVERIFY(!ada.dialog.Frame2->isEnabled());
    // The others hear that the seat is gone.
    Lobby::waitUntil([&] { return !bob.seat(1)->isEnabled(); });

    // Bob asks for it all the same (his copy still thought it free): he is told it is taken
    // and may choose again.
    bob.seat(1)->setEnabled(true);
    Lobby::choose(bob, 1);
    Lobby::waitUntil([&] { return !bob.seat(1)->isEnabled(); });
    QCOMPARE(bob.seat(1)->value(), int(Computer));
    QVERIFY(bob.dialog.cmdOK->isEnabled());
    QCOMPARE(lobby.host.dialog.seatTag(1), QStringLiteral("1"));

    Lobby::choose(bob, 2);
    Lobby::waitUntil([&] { return bob.status() == QStringLiteral("Choice Accepted, Waiting to Start"); });
    QCOMPARE(lobby.host.seat(2)->value(), int(RemoteHuman));
    QCOMPARE(lobby.host.dialog.seatTag(2), QStringLiteral("2"));
    Lobby::waitUntil([&] { return !ada.seat(2)->isEnabled(); });
    // Ada keeps her own seat through the others' news.
    QCOMPARE(ada.seat(1)->value(), int(LocalHuman));

    const NewGameSetup s = lobby.host.dialog.setup();
    QCOMPARE(s.seats[1].type, int16_t(RemoteHuman));
    QCOMPARE(s.seats[1].client, int16_t(1));
    QCOMPARE(s.seats[1].name, QStringLiteral("ada"));
    QCOMPARE(s.seats[2].client, int16_t(2));
    QVERIFY(ada.told.isEmpty() && bob.told.isEmpty());
}

void LobbyTest::hostSeatClicksReachTheGuests()
{
    Lobby lobby;
    lobby.host.seat(2)->setValue(Computer);
    lobby.openHost();
    Copy &g = lobby.joinGuest(QStringLiteral("ada"));
    QVERIFY(g.seat(2)->isEnabled());
    lobby.host.seat(2)->click(); // the host's user takes seat 3
    Lobby::waitUntil([&] { return !g.seat(2)->isEnabled(); });
    lobby.host.seat(2)->click(); // and gives it up again
    Lobby::waitUntil([&] { return g.seat(2)->isEnabled(); });
}

void LobbyTest::playerCountReachesTheGuests()
{
    Lobby lobby;
    lobby.openHost();
    Copy &ada = lobby.joinGuest(QStringLiteral("ada"));
    Copy &bob = lobby.joinGuest(QStringLiteral("bob"));
    Lobby::choose(ada, 3);
    Lobby::waitUntil([&] { return ada.seat(3)->value() == LocalHuman && !ada.dialog.Frame2->isEnabled(); });

    lobby.host.dialog.optPlayers[6]->click(); // eight seats
    for (Copy *g : {&ada, &bob})
        Lobby::waitUntil([&] { return g->dialog.optPlayers[6]->isChecked(); });
    Lobby::waitUntil([&] { return bob.seat(7)->isEnabled(); });
    Lobby::waitUntil([&] { return !bob.seat(3)->isEnabled(); });
    QVERIFY(!bob.seat(0)->isEnabled()); // the host's own seat
    QVERIFY(!bob.seat(8)->isEnabled());
    QVERIFY(bob.seat(5)->isEnabled());
    // The seat holder is granted its seat again after the new layout.
    Lobby::waitUntil([&] { return ada.seat(3)->value() == LocalHuman; });
    QCOMPARE(ada.status(), QStringLiteral("Choice Accepted, Waiting to Start"));

    lobby.host.dialog.optPlayers[0]->click(); // two seats: Ada's seat is no longer in the game
    Lobby::waitUntil([&] { return bob.dialog.optPlayers[0]->isChecked() && !bob.seat(2)->isEnabled(); });
    Lobby::waitUntil([&] { return ada.seat(3)->value() == Computer; });
    QCOMPARE(lobby.host.seat(3)->value(), int(Computer));
    QVERIFY(lobby.host.dialog.seatTag(3).isEmpty());
}

void LobbyTest::removingAGuestAsksFirst()
{
    Lobby lobby;
    lobby.openHost();
    Copy &ada = lobby.joinGuest(QStringLiteral("ada"));
    Copy &bob = lobby.joinGuest(QStringLiteral("bob"));
    Lobby::choose(ada, 1);
    Lobby::waitUntil([&] { return lobby.host.seat(1)->value() == RemoteHuman; });
    Lobby::waitUntil([&] { return !bob.seat(1)->isEnabled(); });

    lobby.host.answer = false;
    lobby.host.seat(1)->click();
    QCOMPARE(lobby.host.asked, QStringList{QStringLiteral("Are you sure you want to remove ada from the game?")});
    QCOMPARE(lobby.host.seat(1)->value(), int(RemoteHuman)); // No keeps her
    QTest::qWait(50);
    QVERIFY(ada.told.isEmpty());

    lobby.host.answer = true;
    lobby.host.seat(1)->click();
    QCOMPARE(lobby.host.seat(1)->value(), int(Computer));
    QVERIFY(lobby.host.dialog.seatTag(1).isEmpty());
    QVERIFY(lobby.host.seat(1)->toolTip().isEmpty());
    Lobby::waitUntil([&] { return ada.told == QStringList{Kicked}; });
    QVERIFY(!ada.dialog.chkNetwork->isChecked());
    QVERIFY(ada.dialog.Frame2->isEnabled());
    Lobby::waitUntil([&] { return bob.seat(1)->isEnabled(); }); // free again
    QCOMPARE(lobby.host.status(), QStringLiteral("Network Connections: 1"));
}

void LobbyTest::wrongVersionIsToldAndDropped()
{
    Lobby lobby;
    lobby.openHost();
    Copy &old = lobby.addGuest(QStringLiteral("old"), QStringLiteral("1.0"));
    Lobby::waitUntil([&] { return old.told.size() == 2; });
    QCOMPARE(old.told, (QStringList{QStringLiteral("You should be running QX 1.1."), Kicked}));
    QVERIFY(!old.dialog.chkNetwork->isChecked());
    QVERIFY(!old.dialog.Guest->IsConnected());
    QTRY_COMPARE(lobby.host.dialog.Host->Connections(), 0);
    // It never counted, and never saw the lobby.
    QCOMPARE(lobby.host.status(), QStringLiteral("Network Connections: 0"));
    QVERIFY(!old.dialog.optPlayers[0]->isChecked());
}

void LobbyTest::wrongTitleIsToldAndDropped()
{
    Lobby lobby;
    lobby.openHost();
    NetClient other;
    QStringList seen;
    connect(&other, &NetClient::RejectTitle, this, [&](const QString &t) { seen << QStringLiteral("title ") + t; });
    connect(&other, &NetClient::ReceiveSetupInfo, this, [&](const QString &s) { seen << QStringLiteral("setup ") + s; });
    connect(&other, &NetClient::Dropped, this, [&] { seen << QStringLiteral("dropped"); });
    other.Connect(QStringLiteral("127.0.0.1"), lobby.port(), QStringLiteral("QY"), NewGameDialog::appVersion());
    QTRY_VERIFY_WITH_TIMEOUT(seen.contains(QStringLiteral("dropped")), LobbyTimeout);
    QCOMPARE(seen, (QStringList{QStringLiteral("title QX"), QStringLiteral("dropped")}));
    QCOMPARE(lobby.host.status(), QStringLiteral("Network Connections: 0"));
}

void LobbyTest::startSendsSeatedGuestsOffAndClosesTheLobby()
{
    Lobby lobby;
    lobby.host.dialog.optPlayers[2]->click(); // four seats
    lobby.openHost();
    Copy &ada = lobby.joinGuest(QStringLiteral("ada"));
    Copy &bob = lobby.joinGuest(QStringLiteral("bob"));
    Copy &cy = lobby.joinGuest(QStringLiteral("cy"));
    Lobby::choose(ada, 1);
    Lobby::choose(bob, 3);
    Lobby::waitUntil([&] { return lobby.host.seat(1)->value() == RemoteHuman && lobby.host.seat(3)->value() == RemoteHuman; });

    lobby.host.dialog.cmdOK->click();
    QVERIFY(!lobby.host.dialog.isVisible());
    QVERIFY(lobby.host.dialog.Tag.isEmpty());
    QCOMPARE(lobby.host.dialog.Host->MaxConnections(), 0);
    QVERIFY(lobby.host.dialog.Host->Hosting()); // the connections carry the game

    for (Copy *g : {&ada, &bob}) {
        Lobby::waitUntil([&] { return !g->dialog.isVisible(); });
        QCOMPARE(g->status(), QStringLiteral("Starting Game"));
        QVERIFY(g->told.isEmpty()); // "C" finds the dialog gone
        QVERIFY(g->dialog.Tag.isEmpty());
        QVERIFY(g->dialog.Guest->IsConnected());
        QCOMPARE(int(g->dialog.setup().netMode), int(NetGuestMode));
    }
    const NewGameSetup adaSetup = ada.dialog.setup();
    QCOMPARE(adaSetup.numPlayers, 4);
    for (int i = 0; i < MaxSeats; ++i)
        QCOMPARE(int(adaSetup.seats[static_cast<size_t>(i)].type), i == 1 ? int(LocalHuman) : int(Computer));

    Lobby::waitUntil([&] { return !cy.told.isEmpty(); });
    QCOMPARE(cy.told, QStringList{QStringLiteral("The game has started without you.")});
    QVERIFY(cy.dialog.isVisible());
    QVERIFY(!cy.dialog.chkNetwork->isChecked());
    QVERIFY(cy.dialog.Frame2->isEnabled());
    QTRY_COMPARE(lobby.host.dialog.Host->Connections(), 2);

    const NewGameSetup hostSetup = lobby.host.dialog.setup();
    QCOMPARE(int(hostSetup.netMode), int(NetHostMode));
    QCOMPARE(hostSetup.seats[3].name, QStringLiteral("bob"));
    QCOMPARE(hostSetup.seats[3].client, int16_t(2));
}

void LobbyTest::nobodyJoinsAfterTheStart()
{
    Lobby lobby;
    lobby.openHost();
    Copy &ada = lobby.joinGuest(QStringLiteral("ada"));
    Copy &bob = lobby.joinGuest(QStringLiteral("bob"));
    Lobby::choose(ada, 1);
    Lobby::waitUntil([&] { return lobby.host.seat(1)->value() == RemoteHuman; });
    lobby.host.dialog.cmdOK->click();
    Lobby::waitUntil([&] { return !ada.dialog.isVisible(); });
    // The guest left without a seat goes, which frees room below the old limit.
    Lobby::waitUntil([&] { return !bob.told.isEmpty() && lobby.host.dialog.Host->Connections() == 1; });

    Copy &late = lobby.addGuest(QStringLiteral("late"));
    Lobby::waitUntil([&] { return !late.dialog.chkNetwork->isChecked(); });
    QVERIFY(!late.dialog.Guest->IsConnected());
    QCOMPARE(lobby.host.dialog.Host->Connections(), 1);
    QCOMPARE(lobby.host.seat(1)->toolTip(), QStringLiteral("ada"));
    QVERIFY(ada.dialog.Guest->IsConnected());
}

void LobbyTest::lobbyIsOnlyForGuestsThatShookHands()
{
    Lobby lobby;
    lobby.openHost();
    QTcpSocket raw;
    QByteArray received;
    connect(&raw, &QTcpSocket::readyRead, this, [&] { received += raw.readAll(); });
    raw.connectToHost(QHostAddress::LocalHost, quint16(lobby.port()));
    QTRY_VERIFY_WITH_TIMEOUT(raw.state() == QAbstractSocket::ConnectedState, LobbyTimeout);
    // Seat requests and data before any title or version; then a wrong title.
    raw.write(link::setupInfoMessage("P1mallory") + link::dataMessage("PLAY100") + link::setupInfoMessage("P2mallory"));
    raw.write(link::titleMessage("QY") + link::versionMessage(link::toWire(NewGameDialog::appVersion()))
              + link::setupInfoMessage("P3mallory"));
    QTRY_VERIFY_WITH_TIMEOUT(raw.state() == QAbstractSocket::UnconnectedState, LobbyTimeout);
    QVERIFY(!received.contains(link::setupInfoMessage("G1")));
    QVERIFY(!received.contains(link::setupInfoMessage("G2")));
    QVERIFY(!received.contains(link::setupInfoMessage("G3")));
    for (int i = 1; i < MaxSeats; ++i)
        QCOMPARE(lobby.host.seat(i)->value(), int(Computer));

    // A guest that shook hands properly still gets its seat.
    Copy &ada = lobby.joinGuest(QStringLiteral("ada"));
    Lobby::choose(ada, 1);
    Lobby::waitUntil([&] { return lobby.host.seat(1)->value() == RemoteHuman; });
}

void LobbyTest::guestLeavingFreesItsSeat()
{
    Lobby lobby;
    lobby.openHost();
    Copy &ada = lobby.joinGuest(QStringLiteral("ada"));
    Copy &bob = lobby.joinGuest(QStringLiteral("bob"));
    Lobby::choose(ada, 2);
    Lobby::waitUntil([&] { return !bob.seat(2)->isEnabled(); });

    ada.dialog.cmdCancel->click();
    QCOMPARE(ada.dialog.Tag, QStringLiteral("CANCEL"));
    QVERIFY(!ada.dialog.Guest->IsConnected());
    Lobby::waitUntil([&] { return lobby.host.seat(2)->value() == Computer; });
    QVERIFY(lobby.host.dialog.seatTag(2).isEmpty());
    QVERIFY(lobby.host.seat(2)->toolTip().isEmpty());
    QCOMPARE(lobby.host.status(), QStringLiteral("Network Connections: 1"));
    Lobby::waitUntil([&] { return bob.seat(2)->isEnabled(); });
    QVERIFY(ada.told.isEmpty()); // her own doing
}

void LobbyTest::hostCancelEndsTheLobby()
{
    Lobby lobby;
    lobby.openHost();
    Copy &ada = lobby.joinGuest(QStringLiteral("ada"));
    Copy &bob = lobby.joinGuest(QStringLiteral("bob"));
    Lobby::choose(ada, 1);
    Lobby::waitUntil([&] { return lobby.host.seat(1)->value() == RemoteHuman; });

    lobby.host.dialog.cmdCancel->click();
    QCOMPARE(lobby.host.dialog.Tag, QStringLiteral("CANCEL"));
    QVERIFY(!lobby.host.dialog.Host->Hosting());
    QVERIFY(!lobby.host.dialog.chkNetwork->isChecked());
    // The seat choices are those the dialog was opened with.
    QCOMPARE(lobby.host.seat(0)->value(), int(LocalHuman));
    QCOMPARE(lobby.host.seat(1)->value(), int(Computer));
    QVERIFY(lobby.host.dialog.seatTag(1).isEmpty());
    for (Copy *g : {&ada, &bob}) {
        Lobby::waitUntil([&] { return !g->told.isEmpty(); });
        QCOMPARE(g->told, QStringList{Kicked});
        QVERIFY(!g->dialog.chkNetwork->isChecked());
        QVERIFY(g->dialog.cmdOK->isEnabled());
        QCOMPARE(g->dialog.cmdOK->text(), QStringLiteral("&OK"));
    }
}

void LobbyTest::guestSelectChecks_data()
{
    QTest::addColumn<QList<int>>("boxes");
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("message");
    QTest::newRow("no seat") << QList<int>{} << QStringLiteral("127.0.0.1")
                             << QStringLiteral("Please choose a human player to be added to the network game.");
    QTest::newRow("two seats") << QList<int>{1, 4} << QStringLiteral("127.0.0.1")
                               << QStringLiteral("Please choose only one human player to be added to the network game.");
    QTest::newRow("no host") << QList<int>{2} << QStringLiteral("  ")
                             << QStringLiteral("Please enter the host's computer name.");
}

void LobbyTest::guestSelectChecks()
{
    QFETCH(QList<int>, boxes);
    QFETCH(QString, host);
    QFETCH(QString, message);
    Copy g;
    g.dialog.optGuest->click();
    g.dialog.chkNetwork->click();
    g.dialog.tmrCheck->stop();
    g.dialog.txtHost->setText(host);
    for (int i = 0; i < MaxSeats; ++i)
        g.seat(i)->setValue(boxes.contains(i) ? LocalHuman : Computer);
    g.dialog.cmdOK->click();
    QCOMPARE(g.told, QStringList{message});
    QVERIFY(g.dialog.isVisible());
}

void LobbyTest::unreachableHostIsAnErrorNotAKick()
{
    // A port nobody listens on: taken and released again.
    int port = 0;
    {
        QTcpServer probe;
        QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
        port = probe.serverPort();
    }
    Copy g;
    g.dialog.setGamePort(port);
    g.dialog.tmrCheck->setInterval(5);
    g.dialog.optGuest->click();
    g.dialog.chkNetwork->click();
    g.dialog.txtHost->setText(QStringLiteral("127.0.0.1"));
    QTRY_VERIFY_WITH_TIMEOUT(!g.dialog.chkNetwork->isChecked(), LobbyTimeout);
    QVERIFY(!g.status().startsWith(QLatin1String("Connecting")));
    QVERIFY(!g.status().isEmpty());
    QVERIFY(!g.dialog.tmrCheck->isActive());
    QVERIFY(g.told.isEmpty());
}

void LobbyTest::busyPortIsToldClearly()
{
    QTcpServer squatter;
    QVERIFY(squatter.listen(QHostAddress::Any, 0));
    Copy c;
    c.dialog.setGamePort(squatter.serverPort());
    c.dialog.chkNetwork->click();
    QVERIFY(!c.dialog.Host->Hosting());
    QVERIFY(!c.dialog.chkNetwork->isChecked());
    QCOMPARE(c.told.size(), 1);
    QVERIFY(c.told[0].startsWith(QLatin1String("This computer cannot host a network game.")));
    QVERIFY(c.told[0].contains(QString::number(squatter.serverPort())));
    QVERIFY(!c.status().startsWith(QLatin1String("Network Connections")));
}

void LobbyTest::damagedLobbyMessagesAreIgnored()
{
    Lobby lobby;
    lobby.openHost();
    NetClient raw;
    QStringList seen;
    connect(&raw, &NetClient::ReceiveSetupInfo, this, [&](const QString &s) { seen << s; });
    raw.Connect(QStringLiteral("127.0.0.1"), lobby.port(), NewGameDialog::AppTitle, NewGameDialog::appVersion());
    QTRY_VERIFY_WITH_TIMEOUT(seen.contains(QStringLiteral("N2")), LobbyTimeout);
    for (const char *bad : {"", "P", "Px", "P-1", "Q1", "G1", "p1"})
        raw.SendSetupInfo(QLatin1String(bad));
    raw.SendSetupInfo(QStringLiteral("P5")); // a seat outside the four: taken
    raw.SendSetupInfo(QStringLiteral("P2")); // a good request after the bad ones, without a name
    QTRY_VERIFY_WITH_TIMEOUT(seen.contains(QStringLiteral("G2")), LobbyTimeout);
    QVERIFY(seen.contains(QStringLiteral("T5")));
    QCOMPARE(lobby.host.seat(2)->value(), int(RemoteHuman));
    for (int i = 0; i < MaxSeats; ++i)
        if (i != 0 && i != 2)
            QCOMPARE(lobby.host.seat(i)->value(), int(Computer));

    // And a guest's copy ignores damaged messages from its host.
    Copy &g = lobby.joinGuest(QStringLiteral("ada"));
    emit g.dialog.Guest->ReceiveSetupInfo(QString());
    for (const char *bad : {"G", "Gx", "T", "N9", "Nx", "F", "X1", "N"})
        emit g.dialog.Guest->ReceiveSetupInfo(QLatin1String(bad));
    QVERIFY(g.dialog.isVisible());
    QVERIFY(g.dialog.optPlayers[2]->isChecked());
}

QTEST_MAIN(LobbyTest)
#include "tst_lobby.moc"
