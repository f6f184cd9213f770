// Network games end to end: separate processes of the real program (qx_netdriver), one host and
// its guests on a loopback port the host's system picks, each copy played by its robot. Every copy
// must end with the same winner and the same strikes for every seat, computer seats included;
// a guest that dies, a host that dies and a guest of the wrong version are played out too, and a
// soak of several games in a row in which one guest leaves between games and another comes in.
// Guests find their host in the New Game dialog's list of games on the LAN, as a person does; once
// across two network namespaces joined by a veth pair, where the machine allows it.

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QUdpSocket>
#include <QtTest>

#include <unistd.h>

#include <memory>
#include <vector>

namespace {

constexpr int GameTimeoutMs = 50000;
const QString Dropped = QStringLiteral("The connection to the host has dropped.");

// One copy of the program and what it printed.
class Copy : public QObject {
public:
    // The copy runs with env, inside the network namespace netns when one is named.
    Copy(const QString &name, const QStringList &args, const QProcessEnvironment &env, const QString &netns = QString())
        : m_name(name)
    {
        m_process.setProcessEnvironment(env);
        m_process.setProcessChannelMode(QProcess::SeparateChannels);
        connect(&m_process, &QProcess::readyReadStandardOutput, this, &Copy::read);
        if (netns.isEmpty())
            m_process.start(QStringLiteral(QX_NETDRIVER_PATH), args);
        else
            m_process.start(QStringLiteral("ip"),
                            QStringList{QStringLiteral("netns"), QStringLiteral("exec"), netns,
                                        QStringLiteral(QX_NETDRIVER_PATH)}
                                + args);
    }

    // A copy on a computer of its own: the game's port (0 lets a host pick any), discovery on the
    // loopback on discoveryPort (so that tests side by side never list each other's hosts), and
    // its options in configDir.
    static QProcessEnvironment environment(int port, quint16 discoveryPort, const QString &configDir,
                                           const QString &announceVersion = QString())
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("qt.*=false"));
        env.insert(QStringLiteral("QX_PORT"), QString::number(port));
        env.insert(QStringLiteral("QX_DISCOVERY_PORT"), QString::number(discoveryPort));
        env.insert(QStringLiteral("QX_DISCOVERY_LOOPBACK"), QStringLiteral("1"));
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), configDir);
        if (!announceVersion.isEmpty())
            env.insert(QStringLiteral("QX_ANNOUNCE_VERSION"), announceVersion);
        return env;
    }
    ~Copy() override
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished(5000);
        }
    }

    bool running() const { return m_process.state() != QProcess::NotRunning; }
    bool hasResult() const { return !m_result.isEmpty(); }
    // The program's exit code once it has ended by itself; -1 while it runs or after a crash.
    int exitCode() const
    {
        return m_process.state() == QProcess::NotRunning && m_process.exitStatus() == QProcess::NormalExit
                   ? m_process.exitCode()
                   : -1;
    }
    // Every game this copy saw to its end, in order.
    const QList<QJsonObject> &games() const { return m_games; }
    int port() const { return m_port; }
    int moves() const { return m_moves; }
    // The address of the host this guest picked from its list, or empty.
    const QString &picked() const { return m_picked; }
    const QJsonObject &result() const { return m_result; }
    QString log() const { return m_name + QStringLiteral(":\n") + m_lines.join(QLatin1Char('\n')) + QLatin1Char('\n')
                                 + QString::fromLocal8Bit(m_stderr); }
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished(5000);
    }
    QStringList messages() const { return messagesOf(m_result); }
    QList<int> strikes() const { return strikesOf(m_result); }
    int winner() const { return m_result.value(QStringLiteral("winner")).toInt(); }
    bool finished() const { return m_result.value(QStringLiteral("finished")).toBool(); }

    static QStringList messagesOf(const QJsonObject &result)
    {
        QStringList out;
        for (const QJsonValue &m : result.value(QStringLiteral("messages")).toArray())
            out << m.toString();
        return out;
    }
    static QList<int> strikesOf(const QJsonObject &result)
    {
        QList<int> out;
        for (const QJsonValue &n : result.value(QStringLiteral("strikes")).toArray())
            out << n.toInt();
        return out;
    }

private:
    void read()
    {
        m_stderr += m_process.readAllStandardError();
        m_pending += m_process.readAllStandardOutput();
        for (qsizetype end = m_pending.indexOf('\n'); end >= 0; end = m_pending.indexOf('\n')) {
            const QString line = QString::fromUtf8(m_pending.left(end));
            m_pending.remove(0, end + 1);
            m_lines << line;
            if (line.startsWith(QLatin1String("QXPORT ")))
                m_port = line.mid(7).toInt();
            else if (line.startsWith(QLatin1String("QXEVENT picked ")))
                m_picked = line.section(QLatin1Char(' '), -1);
            else if (line.startsWith(QLatin1String("QXEVENT moved ")))
                m_moves = line.mid(14).toInt();
            else if (line.startsWith(QLatin1String("QXGAME ")))
                m_games << QJsonDocument::fromJson(line.mid(7).toUtf8()).object();
            else if (line.startsWith(QLatin1String("QXRESULT ")))
                m_result = QJsonDocument::fromJson(line.mid(9).toUtf8()).object();
        }
    }

    QString m_name;
    QProcess m_process;
    QByteArray m_pending;
    QByteArray m_stderr;
    QStringList m_lines;
    QJsonObject m_result;
    QList<QJsonObject> m_games;
    QString m_picked;
    int m_port = 0;
    int m_moves = 0;
};

// Two network namespaces joined by a veth pair, with addresses of this test's own (10.199.7.1 the
// host's, 10.199.7.2 the guest's) that exist nowhere but inside them; removed again at the end.
class NamespacePair {
public:
    NamespacePair()
        : host(QStringLiteral("qxh%1").arg(::getpid())), guest(QStringLiteral("qxg%1").arg(::getpid()))
    {
    }
    ~NamespacePair()
    {
        for (const QString &ns : {host, guest})
            QProcess::execute(QStringLiteral("ip"), {QStringLiteral("netns"), QStringLiteral("delete"), ns});
    }
    // Empty when both stand, else why they cannot.
    QString create()
    {
        if (::geteuid() != 0)
            return QStringLiteral("network namespaces need root");
        if (QStandardPaths::findExecutable(QStringLiteral("ip")).isEmpty()
            && QStandardPaths::findExecutable(QStringLiteral("ip"), {QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")})
                   .isEmpty())
            return QStringLiteral("iproute2 (ip) is not installed");
        const QList<QStringList> steps{
            {QStringLiteral("netns"), QStringLiteral("add"), host},
            {QStringLiteral("netns"), QStringLiteral("add"), guest},
            {QStringLiteral("link"), QStringLiteral("add"), host, QStringLiteral("type"), QStringLiteral("veth"),
             QStringLiteral("peer"), QStringLiteral("name"), guest},
            {QStringLiteral("link"), QStringLiteral("set"), host, QStringLiteral("netns"), host},
            {QStringLiteral("link"), QStringLiteral("set"), guest, QStringLiteral("netns"), guest},
            {QStringLiteral("-n"), host, QStringLiteral("addr"), QStringLiteral("add"), QStringLiteral("10.199.7.1/24"),
             QStringLiteral("dev"), host},
            {QStringLiteral("-n"), guest, QStringLiteral("addr"), QStringLiteral("add"), QStringLiteral("10.199.7.2/24"),
             QStringLiteral("dev"), guest},
            {QStringLiteral("-n"), host, QStringLiteral("link"), QStringLiteral("set"), host, QStringLiteral("up")},
            {QStringLiteral("-n"), guest, QStringLiteral("link"), QStringLiteral("set"), guest, QStringLiteral("up")},
            {QStringLiteral("-n"), host, QStringLiteral("link"), QStringLiteral("set"), QStringLiteral("lo"),
             QStringLiteral("up")},
            {QStringLiteral("-n"), guest, QStringLiteral("link"), QStringLiteral("set"), QStringLiteral("lo"),
             QStringLiteral("up")},
        };
        for (const QStringList &step : steps) {
            QProcess ip;
            ip.start(QStringLiteral("ip"), step);
            if (!ip.waitForFinished(10000) || ip.exitStatus() != QProcess::NormalExit || ip.exitCode() != 0)
                return QStringLiteral("\"ip %1\" failed: %2")
                    .arg(step.join(QLatin1Char(' ')), QString::fromLocal8Bit(ip.readAllStandardError()).trimmed());
        }
        return QString();
    }
    const QString host;
    const QString guest;
};

} // namespace

class NetworkEndToEndTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void everyCopyAgreesOnTheGame();
    void guestLeavingMidGameIsPlayedByTheComputer();
    void hostLeavingMidGameEndsTheGuests();
    void guestOfAnotherVersionIsTurnedAway();
    void severalGamesInARowWithAGuestChangingBetweenThem();
    void guestFindsItsHostAcrossTwoNetworkNamespaces();

private:
    Copy &startHost(int players, int guests, const QStringList &more = {}, int port = 0);
    Copy &startGuest(const QString &name, int seat, const QString &version = QString(),
                     const QStringList &more = {});
    bool waitFor(const std::function<bool()> &condition, int timeoutMs = GameTimeoutMs);
    QString logs() const;
    void expectSameGame(const Copy &a, const Copy &b);

    QTemporaryDir m_config;
    std::vector<std::unique_ptr<Copy>> m_copies;
    int m_port = 0;
    quint16 m_discoveryPort = 0;
};

void NetworkEndToEndTest::init()
{
    // A discovery port of this test's own, the same for the host and its guests through every
    // lobby the host opens (a host given port 0 would pick a new one each time).
    QUdpSocket probe;
    QVERIFY(probe.bind(QHostAddress::LocalHost, 0));
    m_discoveryPort = probe.localPort();
}

void NetworkEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        qWarning().noquote() << logs();
    m_copies.clear(); // kills whatever still runs
}

QString NetworkEndToEndTest::logs() const
{
    QString out;
    for (const auto &c : m_copies)
        out += c->log() + QLatin1Char('\n');
    return out;
}

bool NetworkEndToEndTest::waitFor(const std::function<bool()> &condition, int timeoutMs)
{
    QDeadlineTimer deadline(timeoutMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QTest::qWait(20);
    }
    return true;
}

Copy &NetworkEndToEndTest::startHost(int players, int guests, const QStringList &more, int port)
{
    const QString dir = m_config.filePath(QStringLiteral("host"));
    QDir().mkpath(dir);
    m_copies.push_back(std::make_unique<Copy>(
        QStringLiteral("host"),
        QStringList{QStringLiteral("--role"), QStringLiteral("host"), QStringLiteral("--players"),
                    QString::number(players), QStringLiteral("--seat"), QStringLiteral("1"),
                    QStringLiteral("--guests"), QString::number(guests)}
            + more,
        Copy::environment(port, m_discoveryPort, dir)));
    Copy &host = *m_copies.back();
    m_port = 0;
    if (waitFor([&] { return host.port() > 0 || !host.running(); }, 20000))
        m_port = host.port();
    return host;
}

Copy &NetworkEndToEndTest::startGuest(const QString &name, int seat, const QString &version,
                                      const QStringList &more)
{
    const QString dir = m_config.filePath(name);
    QDir().mkpath(dir);
    m_copies.push_back(std::make_unique<Copy>(
        name,
        QStringList{QStringLiteral("--role"), QStringLiteral("guest"), QStringLiteral("--pick"),
                    QStringLiteral("--name"), name, QStringLiteral("--seat"), QString::number(seat)}
            + more,
        Copy::environment(m_port, m_discoveryPort, dir, version)));
    return *m_copies.back();
}

void NetworkEndToEndTest::expectSameGame(const Copy &a, const Copy &b)
{
    QVERIFY2(a.finished() && b.finished(), qPrintable(logs()));
    QCOMPARE(b.strikes(), a.strikes());
    QCOMPARE(b.winner(), a.winner());
}

void NetworkEndToEndTest::everyCopyAgreesOnTheGame()
{
    Copy &host = startHost(4, 2);
    QVERIFY2(m_port > 0, qPrintable(logs()));
    Copy &ada = startGuest(QStringLiteral("ada"), 2);
    Copy &bob = startGuest(QStringLiteral("bob"), 3);
    QVERIFY2(waitFor([&] { return host.hasResult() && ada.hasResult() && bob.hasResult(); }), qPrintable(logs()));

    QCOMPARE(host.strikes().size(), 4);
    int inPlay = 0;
    for (int n : host.strikes())
        inPlay += n < 3 ? 1 : 0;
    QCOMPARE(inPlay, 1);
    QVERIFY(host.winner() >= 1 && host.winner() <= 4);
    expectSameGame(host, ada);
    expectSameGame(host, bob);
    QCOMPARE(ada.picked(), QStringLiteral("127.0.0.1"));
    QCOMPARE(ada.result().value(QStringLiteral("seat")).toInt(), 2);
    QCOMPARE(bob.result().value(QStringLiteral("seat")).toInt(), 3);
    for (const Copy *c : {&host, &ada, &bob})
        QVERIFY2(c->messages().isEmpty(), qPrintable(c->log()));
}

void NetworkEndToEndTest::guestLeavingMidGameIsPlayedByTheComputer()
{
    Copy &host = startHost(4, 2);
    QVERIFY2(m_port > 0, qPrintable(logs()));
    Copy &ada = startGuest(QStringLiteral("ada"), 2);
    Copy &bob = startGuest(QStringLiteral("bob"), 3);
    QVERIFY2(waitFor([&] { return bob.moves() >= 1 || bob.hasResult(); }), qPrintable(logs()));
    QVERIFY2(!bob.hasResult(), qPrintable(logs()));
    bob.kill();

    QVERIFY2(waitFor([&] { return host.hasResult() && ada.hasResult(); }), qPrintable(logs()));
    QVERIFY2(host.messages().contains(QStringLiteral("bob left the game and will be run by the computer.")),
             qPrintable(logs()));
    QVERIFY(host.winner() >= 1);
    expectSameGame(host, ada);
    QVERIFY2(!ada.messages().contains(Dropped), qPrintable(logs()));
}

void NetworkEndToEndTest::hostLeavingMidGameEndsTheGuests()
{
    Copy &host = startHost(4, 2);
    QVERIFY2(m_port > 0, qPrintable(logs()));
    Copy &ada = startGuest(QStringLiteral("ada"), 2);
    Copy &bob = startGuest(QStringLiteral("bob"), 3);
    QVERIFY2(waitFor([&] { return ada.moves() >= 1 || ada.hasResult(); }), qPrintable(logs()));
    QVERIFY2(!host.hasResult(), qPrintable(logs()));
    host.kill();

    QVERIFY2(waitFor([&] { return ada.hasResult() && bob.hasResult(); }), qPrintable(logs()));
    for (const Copy *guest : {&ada, &bob}) {
        QVERIFY2(guest->finished(), qPrintable(guest->log()));
        QCOMPARE(guest->messages(), QStringList{Dropped});
        QCOMPARE(guest->result().value(QStringLiteral("why")).toString(), QStringLiteral("game over"));
    }
}

void NetworkEndToEndTest::guestOfAnotherVersionIsTurnedAway()
{
    Copy &host = startHost(3, 1);
    QVERIFY2(m_port > 0, qPrintable(logs()));
    Copy &old = startGuest(QStringLiteral("old"), 2, QStringLiteral("1.0"));
    QVERIFY2(waitFor([&] { return old.hasResult(); }), qPrintable(logs()));
    QVERIFY2(old.finished(), qPrintable(old.log()));
    QVERIFY(!old.result().value(QStringLiteral("played")).toBool());
    QVERIFY2(old.messages().value(0) == QStringLiteral("You should be running QX 1.1."), qPrintable(old.log()));

    // The lobby goes on as if it had never called.
    Copy &ada = startGuest(QStringLiteral("ada"), 2);
    QVERIFY2(waitFor([&] { return host.hasResult() && ada.hasResult(); }), qPrintable(logs()));
    expectSameGame(host, ada);
    QCOMPARE(host.strikes().size(), 3);
}

void NetworkEndToEndTest::severalGamesInARowWithAGuestChangingBetweenThem()
{
    // Every game opens a new lobby on the same port, as a host that keeps its settings does.
    int port = 0;
    {
        QTcpServer probe;
        QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
        port = probe.serverPort();
    }
    const QStringList threeGames{QStringLiteral("--games"), QStringLiteral("3"), QStringLiteral("--timeout"),
                                 QStringLiteral("150")};
    Copy &host = startHost(4, 2, threeGames, port);
    QVERIFY2(m_port == port, qPrintable(logs()));
    Copy &ada = startGuest(QStringLiteral("ada"), 2, QString(), threeGames);
    Copy &bob = startGuest(QStringLiteral("bob"), 3); // one game, then closes the program

    QVERIFY2(waitFor([&] { return bob.exitCode() >= 0; }), qPrintable(logs()));
    Copy &cy = startGuest(QStringLiteral("cy"), 3, QString(),
                          {QStringLiteral("--games"), QStringLiteral("2"), QStringLiteral("--timeout"),
                           QStringLiteral("150")});
    QVERIFY2(waitFor([&] { return host.hasResult() && ada.hasResult() && cy.hasResult(); }, 3 * GameTimeoutMs),
             qPrintable(logs()));
    QVERIFY2(waitFor([&] { return !host.running() && !ada.running() && !cy.running(); }, 20000), qPrintable(logs()));

    // Each program ended by itself and cleanly: under the sanitizers a leak or an error would
    // change its exit code.
    for (const Copy *c : {&host, &ada, &bob, &cy})
        QVERIFY2(c->exitCode() == 0, qPrintable(c->log()));
    QCOMPARE(host.games().size(), 3);
    QCOMPARE(ada.games().size(), 3);
    QCOMPARE(bob.games().size(), 1);
    QCOMPARE(cy.games().size(), 2);
    for (int game = 0; game < 3; ++game) {
        const QJsonObject &mine = host.games().at(game);
        const QJsonObject &third = game == 0 ? bob.games().at(0) : cy.games().at(game - 1);
        int inPlay = 0;
        for (int n : Copy::strikesOf(mine))
            inPlay += n < 3 ? 1 : 0;
        QVERIFY2(inPlay == 1 && Copy::strikesOf(mine).size() == 4, qPrintable(logs()));
        for (const QJsonObject &theirs : {ada.games().at(game), third}) {
            QCOMPARE(Copy::strikesOf(theirs), Copy::strikesOf(mine));
            QCOMPARE(theirs.value(QStringLiteral("winner")), mine.value(QStringLiteral("winner")));
            QCOMPARE(theirs.value(QStringLiteral("players")).toInt(), 4);
        }
        QCOMPARE(ada.games().at(game).value(QStringLiteral("seat")).toInt(), 2);
        QCOMPARE(third.value(QStringLiteral("seat")).toInt(), 3);
        for (const QJsonObject &result : {mine, ada.games().at(game), third})
            QVERIFY2(Copy::messagesOf(result).isEmpty(), qPrintable(logs()));
    }
}

void NetworkEndToEndTest::guestFindsItsHostAcrossTwoNetworkNamespaces()
{
    NamespacePair net;
    if (const QString why = net.create(); !why.isEmpty())
        QSKIP(qPrintable(QStringLiteral("Skipped: a host and a guest in two network namespaces need root and "
                                        "iproute2 (") + why + QStringLiteral(")")));
    // Inside namespaces of its own the game uses its real ports, TCP and UDP 1099, and the guest
    // asks on every interface that can broadcast, as on a LAN.
    const auto lan = [this](const QString &name) {
        const QString dir = m_config.filePath(name);
        QDir().mkpath(dir);
        QProcessEnvironment env = Copy::environment(0, 0, dir);
        for (const char *key : {"QX_PORT", "QX_DISCOVERY_PORT", "QX_DISCOVERY_LOOPBACK"})
            env.remove(QLatin1String(key));
        return env;
    };
    m_copies.push_back(std::make_unique<Copy>(
        QStringLiteral("host"),
        QStringList{QStringLiteral("--role"), QStringLiteral("host"), QStringLiteral("--lan"), QStringLiteral("--players"),
                    QStringLiteral("3"), QStringLiteral("--seat"), QStringLiteral("1"), QStringLiteral("--guests"),
                    QStringLiteral("1")},
        lan(QStringLiteral("host")), net.host));
    Copy &host = *m_copies.back();
    QVERIFY2(waitFor([&] { return host.port() > 0 || !host.running(); }, 20000), qPrintable(logs()));
    QCOMPARE(host.port(), 1099);
    m_copies.push_back(std::make_unique<Copy>(
        QStringLiteral("ada"),
        QStringList{QStringLiteral("--role"), QStringLiteral("guest"), QStringLiteral("--pick"), QStringLiteral("--name"),
                    QStringLiteral("ada"), QStringLiteral("--seat"), QStringLiteral("2")},
        lan(QStringLiteral("ada")), net.guest));
    Copy &ada = *m_copies.back();
    QVERIFY2(waitFor([&] { return host.hasResult() && ada.hasResult(); }), qPrintable(logs()));
    QCOMPARE(ada.picked(), QStringLiteral("10.199.7.1"));
    expectSameGame(host, ada);
    QCOMPARE(ada.result().value(QStringLiteral("seat")).toInt(), 2);
}

QTEST_GUILESS_MAIN(NetworkEndToEndTest)
#include "tst_network_e2e.moc"
