// Network latency on loopback with ten guests: from a guest sending its play line to every guest
// having applied the host's next game line. The host answers each play with a game line of a
// ten-seat game, as it does after every move; each guest applies it with ProcessNetLine.
#include "GameLines.h"
#include "NetClient.h"
#include "NetHost.h"
#include "NullTable.h"
#include "RandomSource.h"
#include "Table.h"
#include "TurnEngine.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

using namespace qx;

namespace {

using bench::NullTable;

struct Copy {
    GameState state;
    NullTable table;
    ClockRandom random;
    TurnEngine engine{state, table, random};
    GameLines lines{engine, table};
};

// The loop the benchmark waits in; whatever makes its condition true quits it.
QEventLoop *waiting = nullptr;

void runUntil(const std::function<bool()> &done)
{
    QEventLoop loop;
    waiting = &loop;
    QTimer::singleShot(10000, &loop, &QEventLoop::quit); // a lost line must not hang the benchmark
    if (!done())
        loop.exec();
    waiting = nullptr;
}

void check(const std::function<bool()> &done)
{
    if (waiting && done())
        waiting->quit();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const int guests = 10;
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 500;

    Copy host;
    host.state.NumPlayers = 10;
    host.state.CurrentPlayer = 3;
    host.state.NumberOfDecks = 4;
    host.state.Total = 42;
    host.engine.ShuffleDeck();

    NetHost server;
    server.setMaxConnections(guests);
    server.BeginHost();
    std::vector<std::unique_ptr<NetClient>> clients;
    std::vector<std::unique_ptr<Copy>> copies;
    int applied = 0;
    for (int g = 0; g < guests; ++g) {
        clients.push_back(std::make_unique<NetClient>());
        copies.push_back(std::make_unique<Copy>());
        Copy *copy = copies.back().get();
        copy->state.NetMode = NetGuestMode;
        QObject::connect(clients.back().get(), &NetClient::ReceiveData, [copy, &applied](const QString &line) {
            QString rest = line;
            if (copy->lines.ProcessNetLine(rest) && ++applied == guests && waiting)
                waiting->quit();
        });
        clients.back()->Connect(QStringLiteral("127.0.0.1"), server.listeningPort(), QStringLiteral("QX"),
                                QStringLiteral("1.1"));
    }
    const auto allJoined = [&] { return server.Connections() == guests; };
    QObject::connect(&server, &NetHost::ReceiveVersion, [&] { check(allJoined); });
    runUntil(allJoined);
    QObject::connect(&server, &NetHost::ReceiveData, [&](int, const QString &) {
        server.SendData(0, host.lines.CreateNetLine());
    });

    std::vector<double> latencies;
    for (int i = 0; i < rounds; ++i) {
        applied = 0;
        QElapsedTimer timer;
        timer.start();
        clients[size_t(i % guests)]->SendData(QStringLiteral("PLAY107"));
        runUntil([&] { return applied == guests; });
        latencies.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(latencies.begin(), latencies.end());
    std::printf("play line to ten guests applying the next game line, %d rounds on loopback:\n", rounds);
    std::printf("  median %.3f ms, 90th percentile %.3f ms, worst %.3f ms\n", latencies[latencies.size() / 2],
                latencies[latencies.size() * 9 / 10], latencies.back());
    return 0;
}
