// The whole host under attack: up to four fake guests reach a hosting New Game dialog over
// loopback and send what the input says (good and bad handshakes, seat requests, play lines, raw
// bytes, floods, file headers), in the lobby and during a game that the host starts and plays on an
// engine with a fake table. After every step the game must still be legal, and memory bounded.
// A crash, a sanitizer report or a broken check is a finding.

#include "FakeTable.h"
#include "LinkProtocol.h"
#include "NetHost.h"
#include "NetworkSession.h"
#include "NewGameDialog.h"
#include "ScriptedRandom.h"
#include "TurnEngine.h"

#include <QApplication>
#include <QCheckBox>
#include <QTcpSocket>
#include <QThread>

#include <sanitizer/allocator_interface.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>

using namespace qx;
using namespace qx::test;

namespace {

// The host's growth that counts as unbounded: a flood may pass through, but never stay.
constexpr size_t MemoryBound = 48u * 1024 * 1024;
constexpr int Guests = 4;

void check(bool ok)
{
    if (!ok)
        std::abort();
}

// Lets the sockets of both ends run until the loopback has nothing more in flight.
void pump(int rounds = 6)
{
    for (int i = 0; i < rounds; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents);
}

template <typename Condition>
void pumpUntil(Condition done)
{
    for (int i = 0; i < 200 && !done(); ++i) {
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        if (!done())
            QThread::usleep(50);
    }
    pump();
}

class Input {
public:
    Input(const uint8_t *data, size_t size) : m_data(data), m_size(size) {}
    bool atEnd() const { return m_pos >= m_size; }
    int byte() { return m_pos < m_size ? m_data[m_pos++] : 0; }
    QByteArray bytes(int count)
    {
        const size_t take = std::min(size_t(count), m_size - std::min(m_pos, m_size));
        QByteArray out(reinterpret_cast<const char *>(m_data + m_pos), qsizetype(take));
        m_pos += take;
        return out;
    }

private:
    const uint8_t *m_data;
    size_t m_size;
    size_t m_pos = 0;
};

struct Host {
    GameState state;
    FakeTable table;
    ScriptedRandom random{7};
    TurnEngine engine{state, table, random};
    NewGameDialog dialog;
    NetworkSession session{engine, table, dialog};
    bool started = false;

    Host()
    {
        table.onResume = [this] { engine.cmdContinue_Click(); };
        dialog.tell = [](const QString &) {};
        dialog.ask = [](const QString &) { return true; };
        dialog.setGamePort(0);
        dialog.Host->setListenAddress(QHostAddress::LocalHost);
        // Not shown: the host's side of the lobby does not depend on it, and nothing is painted.
        dialog.chkNetwork->click();
    }
    int port() const { return dialog.Host->listeningPort(); }

    // The host presses OK, and its New command starts the game from the dialog's choices.
    void start()
    {
        started = true;
        dialog.cmdOK_Click();
        engine.StartNewGame(dialog.setup());
    }

    void checkLegal() const
    {
        check(state.Total >= -1 && state.Total <= TotalLimit);
        check(dialog.Host->Connections() <= NetHost::GameMaxConnections);
        if (!state.gameRunning())
            return;
        check(state.NumPlayers >= 2 && state.NumPlayers <= MaxSeats);
        check(state.CurrentPlayer >= 1 && state.CurrentPlayer <= state.NumPlayers);
        check(state.Direction == 1 || state.Direction == -1);
        for (int seat = 1; seat <= state.NumPlayers; ++seat) {
            check(state.Strikes(seat) >= 0 && state.Strikes(seat) <= StrikesOut);
            for (int slot = 0; slot < 3; ++slot)
                check(state.Hand(slot, seat) >= 0 && state.Hand(slot, seat) < CardsPerPack);
            if (state.PlayerType(seat) == RemoteHuman)
                check(state.PlayerClient(seat) >= 1);
        }
    }
};

QString twoDigits(int n) { return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0')); }

void writeInPieces(QTcpSocket &socket, const QByteArray &bytes)
{
    for (qsizetype at = 0; at < bytes.size() && socket.state() == QAbstractSocket::ConnectedState; at += 16384) {
        socket.write(bytes.mid(at, 16384));
        socket.flush();
        pump(2);
    }
}

void run(Input &in)
{
    Host host;
    check(host.port() > 0);
    std::array<std::unique_ptr<QTcpSocket>, Guests> guests;
    const size_t baseline = __sanitizer_get_current_allocated_bytes();

    while (!in.atEnd()) {
        const int op = in.byte();
        auto &guest = guests[size_t(op % Guests)];
        const bool connected = guest && guest->state() == QAbstractSocket::ConnectedState;
        switch ((op / Guests) % 8) {
        case 0: // a guest connects, announcing itself properly or not
        case 1: {
            if (guest)
                guest->abort();
            guest = std::make_unique<QTcpSocket>();
            guest->connectToHost(QHostAddress::LocalHost, quint16(host.port()));
            QTcpSocket *g = guest.get();
            pumpUntil([g] { return g->state() != QAbstractSocket::ConnectingState
                                   && g->state() != QAbstractSocket::HostLookupState; });
            if ((op / Guests) % 8 == 0 && g->state() == QAbstractSocket::ConnectedState) {
                const QByteArray version = in.byte() % 4 == 0 ? QByteArray("0.9") : link::toWire(NewGameDialog::appVersion());
                g->write(link::announceMessage("QX", version));
            }
            break;
        }
        case 2: // raw bytes
            if (connected)
                guest->write(in.bytes(in.byte()));
            break;
        case 3: // a seat request
            if (connected)
                guest->write(link::setupInfoMessage("P" + QByteArray::number(in.byte() % 12) + "guest"));
            break;
        case 4: { // a play line, often with the card the host drew for it
            const int slot = in.byte() % 4;
            const int choice = in.byte();
            const int refill = choice < 160 ? host.session.lines().lastDrawn() : choice % 60;
            const QByteArray line = choice >= 250 ? QByteArray("DROP")
                                                  : link::toWire(QStringLiteral("PLAY%1").arg(slot) + twoDigits(refill));
            if (connected)
                guest->write(link::dataMessage(line));
            break;
        }
        case 5: // a guest leaves, politely or not
            if (guest) {
                if (op & 0x80)
                    guest->disconnectFromHost();
                else
                    guest->abort();
            }
            break;
        case 6: // the host starts the game, or its own player clicks a card
            if (!host.started)
                host.start();
            else if (host.state.gameRunning())
                host.engine.picCard_Click(FirstHandSlot + in.byte() % 3);
            break;
        case 7: { // a flood: an endless frame, bytes outside frames, or a huge file header
            const int kind = in.byte() % 3;
            const int kib = 1 + in.byte() % 200;
            QByteArray flood;
            if (kind == 0)
                flood = QByteArray(1, link::Marker) + link::LinkData + QByteArray(kib * 1024, 'x');
            else if (kind == 1)
                flood = QByteArray(kib * 1024, 'y');
            else
                flood = link::fileHeaderMessage("big", qint64(kib) * 1024 * 1024) + QByteArray(kib * 64, 'z');
            if (connected)
                writeInPieces(*guest, flood);
            break;
        }
        }
        if (guest)
            guest->flush();
        pump();
        host.checkLegal();
        check(__sanitizer_get_current_allocated_bytes() < baseline + MemoryBound);
    }
    for (auto &guest : guests) {
        if (guest)
            guest->abort();
    }
    pump();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Input in(data, size);
    run(in);
    return 0;
}
