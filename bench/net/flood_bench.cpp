// What a hostile peer costs a host in its lobby: the host's memory after a 200 MiB frame with no
// end marker and after a file header announcing 2 GB, whether the peer was cut off and how soon,
// whether the next guest is still served, and a burst of 500 connections opened and closed.
// The host is the New Game dialog's, as in the game; the peers are plain sockets on a thread of
// their own, so their buffers do not count against the host's memory.
#include "LinkProtocol.h"
#include "NetClient.h"
#include "NetHost.h"
#include "NewGameDialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTimer>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <thread>

using namespace qx;

namespace {

// Resident and peak resident memory of this process, in KiB.
long statusKiB(const char *field)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : file.readAll().split('\n'))
        if (line.startsWith(field))
            return line.mid(qsizetype(qstrlen(field))).trimmed().split(' ').first().toLong();
    return -1;
}
long rssKiB() { return statusKiB("VmRSS:"); }
long peakKiB() { return statusKiB("VmHWM:"); }
void resetPeak()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

// Runs the event loop until `done`, looking every few milliseconds; at most `limitMs`.
void runUntil(const std::function<bool()> &done, int limitMs = 60000)
{
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (done())
            loop.quit();
    });
    QTimer::singleShot(limitMs, &loop, &QEventLoop::quit);
    poll.start(2);
    if (!done())
        loop.exec();
}

int connectTo(int port)
{
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(quint16(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::connect(fd, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

// A peer on its own thread: sends `head`, then `total` bytes of `fill` in 64 KiB pieces until the
// host cuts it off; reports how much went out.
struct Flood {
    std::atomic<bool> finished{false};
    std::atomic<long long> sent{0};
    std::atomic<bool> cutOff{false};
    std::thread thread;

    Flood(int port, QByteArray head, long long total, char fill)
    {
        thread = std::thread([this, port, head, total, fill] {
            const int fd = connectTo(port);
            if (fd >= 0) {
                const QByteArray piece(64 * 1024, fill);
                long long left = total;
                bool ok = ::send(fd, head.constData(), size_t(head.size()), MSG_NOSIGNAL) == head.size();
                while (ok && left > 0) {
                    const size_t n = size_t(std::min<long long>(left, piece.size()));
                    const ssize_t w = ::send(fd, piece.constData(), n, MSG_NOSIGNAL);
                    ok = w > 0;
                    if (ok) {
                        left -= w;
                        sent += w;
                    }
                }
                cutOff = !ok;
                if (ok) { // everything went out: wait for the host to close
                    char buffer[256];
                    while (::recv(fd, buffer, sizeof buffer, 0) > 0) {
                    }
                    cutOff = true;
                }
                ::close(fd);
            }
            finished = true;
        });
    }
    ~Flood() { thread.join(); }
};

void flood(int port, const char *what, const QByteArray &head, long long total, char fill)
{
    const long before = rssKiB();
    resetPeak();
    QElapsedTimer timer;
    timer.start();
    Flood peer(port, head, total, fill);
    runUntil([&] { return peer.finished.load(); });
    const double ms = double(timer.nsecsElapsed()) / 1e6;
    runUntil([] { return false; }, 200); // let the host finish closing
    std::printf("%s: peer %s after %.1f KiB in %.1f ms; host memory %+.2f MiB after, peak %+.2f MiB\n", what,
                peer.cutOff ? "cut off" : "NOT cut off", double(peer.sent) / 1024.0, ms,
                double(rssKiB() - before) / 1024.0, double(peakKiB() - before) / 1024.0);
}

void nextGuestServed(NewGameDialog &host)
{
    NetClient guest;
    bool lobbyShown = false;
    QObject::connect(&guest, &NetClient::ReceiveSetupInfo, [&](const QString &info) {
        lobbyShown = lobbyShown || info.startsWith(QLatin1Char('N'));
    });
    QElapsedTimer timer;
    timer.start();
    guest.Connect(QStringLiteral("127.0.0.1"), host.Host->listeningPort(), NewGameDialog::AppTitle,
                  NewGameDialog::appVersion());
    runUntil([&] { return lobbyShown; }, 10000);
    std::printf("  next guest: %s in %.2f ms\n", lobbyShown ? "shown the lobby" : "NOT SERVED",
                double(timer.nsecsElapsed()) / 1e6);
    guest.Disconnect();
    runUntil([&] { return host.Host->Connections() == 0; }, 10000);
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    NewGameDialog host;
    host.tell = [](const QString &) {};
    host.setGamePort(0);
    host.Host->setListenAddress(QHostAddress::LocalHost);
    host.show();
    host.chkNetwork->click();
    const int port = host.Host->listeningPort();
    runUntil([] { return false; }, 200);
    std::printf("host in its lobby on loopback port %d, %.1f MiB resident\n", port, double(rssKiB()) / 1024.0);

    const QByteArray frameStart = QByteArray(1, link::Marker) + link::LinkData;
    flood(port, "200 MiB frame without end marker", frameStart, 200LL * 1024 * 1024, 'x');
    nextGuestServed(host);
    flood(port, "2 GB file header, content following", link::fileHeaderMessage("big", 2000000000LL),
          200LL * 1024 * 1024, 'z');
    nextGuestServed(host);

    const long before = rssKiB();
    resetPeak();
    std::atomic<bool> done{false};
    std::atomic<int> opened{0};
    QElapsedTimer timer;
    timer.start();
    std::thread burst([&] {
        // Ten waves of fifty connections held open together, then all closed.
        for (int wave = 0; wave < 10; ++wave) {
            int fds[50];
            for (int &fd : fds) {
                fd = connectTo(port);
                opened += fd >= 0 ? 1 : 0;
            }
            for (int fd : fds)
                if (fd >= 0)
                    ::close(fd);
        }
        done = true;
    });
    runUntil([&] { return done.load() && host.Host->Connections() == 0; });
    burst.join();
    std::printf("burst of 500 connections (%d opened) and closed: %.1f ms until the host had none left; "
                "host memory %+.2f MiB after, peak %+.2f MiB\n",
                opened.load(), double(timer.nsecsElapsed()) / 1e6, double(rssKiB() - before) / 1024.0,
                double(peakKiB() - before) / 1024.0);
    nextGuestServed(host);
    return 0;
}
