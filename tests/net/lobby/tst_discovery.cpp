// Finding games on the LAN: the datagrams read exactly (damaged and foreign ones refused), a flood
// of queries answered once per sender and second, the guest's list aging its silent hosts, and
// New Game dialogs that find each other over loopback, lose a closed lobby and refuse a host of
// another version.

#include "DiscoveredHosts.h"
#include "DiscoveryDatagram.h"
#include "DiscoveryRateLimiter.h"
#include "LobbyFixture.h"

#include <QNetworkDatagram>
#include <QTreeWidget>
#include <QUdpSocket>

using namespace qx;
using namespace qx::discovery;
using namespace qx::test;

class DiscoveryTest : public QObject {
    Q_OBJECT

private slots:
    void datagramsAreReadExactly_data();
    void datagramsAreReadExactly();
    void floodIsAnsweredOncePerSenderAndSecond();
    void listDropsSilentAndDepartedHosts();
    void hostAndGuestFindEachOtherOnTheLoopback();
    void closedLobbyLeavesTheList();
    void otherVersionIsMarkedAndCannotBeChosen();
    void damagedAndFloodingQueriesCostOneAnswer();
};

void DiscoveryTest::datagramsAreReadExactly_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("kind"); // -1: refused
    QTest::addColumn<QString>("version");
    QTest::addColumn<int>("players");
    QTest::addColumn<int>("freeSeats");
    QTest::addColumn<QString>("name");

    QTest::newRow("query") << QByteArray("QX 1.1 QUERY") << int(Kind::Query) << "1.1" << 0 << 0 << "";
    QTest::newRow("query of another version") << QByteArray("QX 2.10 QUERY") << int(Kind::Query) << "2.10" << 0
                                              << 0 << "";
    QTest::newRow("goodbye") << QByteArray("QX 1.1 CLOSED") << int(Kind::Goodbye) << "1.1" << 0 << 0 << "";
    QTest::newRow("answer") << QByteArray("QX 1.1 GAME 4 2 kitchen") << int(Kind::Answer) << "1.1" << 4 << 2
                            << "kitchen";
    QTest::newRow("answer, name with blanks and accents")
        << QByteArray("QX 1.0 GAME 10 0 Zoë's  laptop") << int(Kind::Answer) << "1.0" << 10 << 0
        << QStringLiteral("Zoë's  laptop");
    QTest::newRow("built answer: control characters and length tamed")
        << buildAnswer(QStringLiteral("1.1"), 3, 1, QStringLiteral("a\tb\n") + QString(100, QLatin1Char('x')))
        << int(Kind::Answer) << "1.1" << 3 << 1 << QStringLiteral("a b ") + QString(59, QLatin1Char('x'));

    const auto refused = [](const char *row, const QByteArray &bytes) {
        QTest::newRow(row) << bytes << -1 << "" << 0 << 0 << "";
    };
    refused("empty", QByteArray());
    refused("title only", "QX");
    refused("no word", "QX 1.1");
    refused("no blank after the title", "QX1.1 QUERY");
    refused("lower-case title", "qx 1.1 QUERY");
    refused("another program's title", "QZ 1.1 QUERY");
    refused("trailing blank", "QX 1.1 QUERY ");
    refused("version not a number", "QX 1.x QUERY");
    refused("version without minor", "QX 1 QUERY");
    refused("unknown word", "QX 1.1 HELLO");
    refused("answer without a name", "QX 1.1 GAME 4 2 ");
    refused("answer without counts", "QX 1.1 GAME kitchen");
    refused("one player", "QX 1.1 GAME 1 0 kitchen");
    refused("eleven players", "QX 1.1 GAME 11 2 kitchen");
    refused("more free seats than players", "QX 1.1 GAME 4 5 kitchen");
    refused("negative count", "QX 1.1 GAME 4 -1 kitchen");
    refused("leading zero", "QX 1.1 GAME 04 2 kitchen");
    refused("huge count", "QX 1.1 GAME 99999999999999999999 2 kitchen");
    refused("control character in the name", "QX 1.1 GAME 4 2 kit\x01chen");
    refused("name not UTF-8", "QX 1.1 GAME 4 2 kit\xff\xfe");
    refused("name too long", "QX 1.1 GAME 4 2 " + QByteArray(MaxNameLength + 1, 'n'));
    refused("NUL inside", QByteArray("QX 1.1 QUERY\0x", 14));
    refused("too long", "QX 1.1 GAME 4 2 " + QByteArray(MaxDatagramSize, 'n'));
    refused("another protocol's search", "M-SEARCH * HTTP/1.1\r\nHOST: 239.255.255.250:1900\r\n\r\n");
}

void DiscoveryTest::datagramsAreReadExactly()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, kind);
    const std::optional<Datagram> d = parse(bytes);
    QCOMPARE(d.has_value(), kind >= 0);
    if (!d)
        return;
    QTEST(int(d->kind), "kind");
    QTEST(d->version, "version");
    QTEST(d->players, "players");
    QTEST(d->freeSeats, "freeSeats");
    QTEST(d->name, "name");
}

void DiscoveryTest::floodIsAnsweredOncePerSenderAndSecond()
{
    DiscoveryRateLimiter limiter;
    int answered = 0;
    for (qint64 t = 0; t < 1000; ++t)
        answered += limiter.allow(QStringLiteral("10.0.0.1"), t) ? 1 : 0;
    QCOMPARE(answered, 1);
    QVERIFY(limiter.allow(QStringLiteral("10.0.0.2"), 999)); // each address has its own second
    QVERIFY(limiter.allow(QStringLiteral("10.0.0.1"), 1000)); // and the next second its answer

    // Forged senders by the thousand within a second: the table stays bounded and the answers
    // with it; a second later others are answered again.
    DiscoveryRateLimiter flooded;
    answered = 0;
    for (int i = 0; i < 5000; ++i)
        answered += flooded.allow(QStringLiteral("forged %1").arg(i), 5000 + i / 10) ? 1 : 0;
    QCOMPARE(answered, DiscoveryRateLimiter::MaxSenders);
    QVERIFY(flooded.senders() <= DiscoveryRateLimiter::MaxSenders);
    QVERIFY(flooded.allow(QStringLiteral("10.0.0.3"), 7000));
}

void DiscoveryTest::listDropsSilentAndDepartedHosts()
{
    const auto answer = [](int freeSeats) {
        return *parse(buildAnswer(QStringLiteral("1.1"), 4, freeSeats, QStringLiteral("kitchen")));
    };
    DiscoveredHosts list;
    QVERIFY(list.take(answer(2), QStringLiteral("10.0.0.1"), 0));
    QVERIFY(list.take(answer(2), QStringLiteral("10.0.0.2"), 0));
    QVERIFY(!list.take(answer(2), QStringLiteral("10.0.0.1"), 3000)); // heard again, nothing new
    QVERIFY(list.take(answer(1), QStringLiteral("10.0.0.1"), 4000)); // a seat was taken
    QCOMPARE(list.hosts().size(), 2);
    QCOMPARE(list.hosts()[0].freeSeats, 1);
    QVERIFY(!list.take(*parse(buildQuery(QStringLiteral("1.1"))), QStringLiteral("10.0.0.3"), 4000));

    QVERIFY(!list.expire(5999));
    QVERIFY(list.expire(6000)); // six seconds without a word
    QCOMPARE(list.hosts().size(), 1);
    QCOMPARE(list.hosts()[0].address, QStringLiteral("10.0.0.1"));
    QVERIFY(!list.expire(9999));
    QVERIFY(list.take(*parse(buildGoodbye(QStringLiteral("1.1"))), QStringLiteral("10.0.0.1"), 9999));
    QVERIFY(list.hosts().isEmpty());

    for (int i = 0; i < DiscoveredHosts::MaxHosts + 10; ++i)
        list.take(answer(1), QStringLiteral("10.1.0.%1").arg(i), 0);
    QCOMPARE(list.hosts().size(), DiscoveredHosts::MaxHosts);
}

namespace {
// A guest's dialog browsing the loopback for hosts that answer on port.
Copy &browsingGuest(Lobby &lobby, quint16 port)
{
    lobby.guests.push_back(std::make_unique<Copy>());
    Copy &g = *lobby.guests.back();
    g.dialog.Browser->setPort(port);
    g.dialog.optGuest->click();
    g.dialog.chkNetwork->click();
    return g;
}
QString cell(const Copy &g, int row, int column)
{
    QTreeWidgetItem *item = g.dialog.lstHosts->topLevelItem(row);
    return item ? item->text(column) : QString();
}
} // namespace

void DiscoveryTest::hostAndGuestFindEachOtherOnTheLoopback()
{
    Lobby lobby;
    lobby.host.dialog.setComputerName(QStringLiteral("kitchen"));
    lobby.openHost(); // four seats, the first the host's own
    QVERIFY(lobby.discoveryPort() > 0);
    Copy &g = browsingGuest(lobby, lobby.discoveryPort());
    g.dialog.setGamePort(lobby.port());
    g.dialog.setComputerName(QStringLiteral("ada"));
    Lobby::waitUntil([&] { return g.dialog.lstHosts->topLevelItemCount() == 1; });
    QCOMPARE(cell(g, 0, 0), QStringLiteral("kitchen"));
    QCOMPARE(cell(g, 0, 1), QStringLiteral("127.0.0.1"));
    QCOMPARE(cell(g, 0, 2), QStringLiteral("4"));
    QCOMPARE(cell(g, 0, 3), QStringLiteral("3"));
    QCOMPARE(cell(g, 0, 4), NewGameDialog::appVersion());

    // Choosing the host fills in its address and connects at once.
    QVERIFY(g.dialog.chooseListedHost(0));
    QCOMPARE(g.dialog.txtHost->text(), QStringLiteral("127.0.0.1"));
    Lobby::waitUntil([&] { return lobby.host.status() == QStringLiteral("Network Connections: 1"); });
    Lobby::choose(g, 2);
    Lobby::waitUntil([&] { return g.status() == QStringLiteral("Choice Accepted, Waiting to Start"); });
    // The next answers count the seat as taken.
    Lobby::waitUntil([&] { return cell(g, 0, 3) == QStringLiteral("2"); });
    QVERIFY(g.told.isEmpty());
}

void DiscoveryTest::closedLobbyLeavesTheList()
{
    Lobby lobby;
    lobby.openHost();
    Copy &g = browsingGuest(lobby, lobby.discoveryPort());
    Lobby::waitUntil([&] { return g.dialog.lstHosts->topLevelItemCount() == 1; });
    lobby.host.dialog.cmdOK->click(); // the game starts: nobody else may join
    QVERIFY(!lobby.host.dialog.Announcer->isAnswering());
    Lobby::waitUntil([&] { return g.dialog.lstHosts->topLevelItemCount() == 0; });

    // A host that leaves Network Play closes its lobby too; a guest that leaves it stops looking.
    Lobby next;
    next.openHost();
    Copy &h = browsingGuest(next, next.discoveryPort());
    Lobby::waitUntil([&] { return h.dialog.lstHosts->topLevelItemCount() == 1; });
    next.host.dialog.chkNetwork->click();
    Lobby::waitUntil([&] { return h.dialog.lstHosts->topLevelItemCount() == 0; });
    h.dialog.chkNetwork->click();
    QVERIFY(!h.dialog.Browser->isBrowsing());
}

void DiscoveryTest::otherVersionIsMarkedAndCannotBeChosen()
{
    DiscoveryResponder older(QStringLiteral("1.0"));
    older.setPort(0);
    older.setLobby([] { return DiscoveryResponder::Lobby{3, 2, QStringLiteral("attic")}; });
    QVERIFY(older.start());
    Lobby lobby;
    Copy &g = browsingGuest(lobby, older.boundPort());
    Lobby::waitUntil([&] { return g.dialog.lstHosts->topLevelItemCount() == 1; });
    QTreeWidgetItem *row = g.dialog.lstHosts->topLevelItem(0);
    QCOMPARE(row->text(0), QStringLiteral("attic"));
    QCOMPARE(row->text(4), QStringLiteral("1.0 (other version)"));
    QVERIFY(!row->flags().testFlag(Qt::ItemIsEnabled));
    QVERIFY(!row->flags().testFlag(Qt::ItemIsSelectable));
    QVERIFY(!g.dialog.chooseListedHost(0));
    QVERIFY(g.dialog.txtHost->text().isEmpty());
    QCOMPARE(g.status(), QStringLiteral("Not Connected"));
}

void DiscoveryTest::damagedAndFloodingQueriesCostOneAnswer()
{
    Lobby lobby;
    lobby.openHost();
    const QHostAddress host(QHostAddress::LocalHost);
    const quint16 port = lobby.discoveryPort();
    // Damaged and foreign datagrams, and ours that are no query, from an address of their own.
    QUdpSocket garbage;
    QVERIFY(garbage.bind(QHostAddress(QStringLiteral("127.0.0.3")), 0));
    for (const QByteArray &bad : {QByteArray(), QByteArray("QX"), QByteArray("QX 1.1 QUERY "),
                                  QByteArray("QX 1.1 GAME 4 2 me"), QByteArray("QX 1.1 CLOSED"),
                                  QByteArray("QX 1.1 QUERY") + QByteArray(200, ' '), QByteArray(2000, 'Q'),
                                  QByteArray("\xff\xfe\x00", 3)})
        garbage.writeDatagram(bad, host, port);
    QUdpSocket flooder;
    QVERIFY(flooder.bind(QHostAddress::LocalHost, 0));
    for (int i = 0; i < 200; ++i)
        flooder.writeDatagram(buildQuery(QStringLiteral("1.1")), host, port);

    // A last asker from another loopback address is answered after the garbage and the flood
    // have been read (one socket reads its datagrams in order), so by then every answer to them
    // is out.
    QUdpSocket other;
    QVERIFY(other.bind(QHostAddress(QStringLiteral("127.0.0.2")), 0));
    other.writeDatagram(buildQuery(QStringLiteral("1.0")), host, port); // another version is answered too
    QTRY_VERIFY_WITH_TIMEOUT(other.hasPendingDatagrams(), LobbyTimeout);
    const std::optional<Datagram> answer = parse(other.receiveDatagram().data());
    QVERIFY(answer && answer->kind == Kind::Answer);
    QCOMPARE(answer->version, NewGameDialog::appVersion());

    QTRY_VERIFY_WITH_TIMEOUT(flooder.hasPendingDatagrams(), LobbyTimeout);
    int answers = 0;
    while (flooder.hasPendingDatagrams()) {
        const std::optional<Datagram> d = parse(flooder.receiveDatagram().data());
        answers += d && d->kind == Kind::Answer ? 1 : 0;
    }
    QCOMPARE(answers, 1);
    QVERIFY(!garbage.hasPendingDatagrams());
    QVERIFY(lobby.host.told.isEmpty());
    QCOMPARE(lobby.host.status(), QStringLiteral("Network Connections: 0"));
}

QTEST_MAIN(DiscoveryTest)
#include "tst_discovery.moc"
