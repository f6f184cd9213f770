#include "NetworkSession.h"

#include "GameState.h"
#include "NetClient.h"
#include "NetHost.h"
#include "NewGameDialog.h"
#include "Table.h"
#include "TurnEngine.h"

namespace qx {

NetworkSession::NetworkSession(TurnEngine &engine, Table &table, NewGameDialog &dialog, QObject *parent)
    : QObject(parent), m_engine(engine), m_state(engine.state()), m_table(table), m_dialog(dialog),
      m_lines(engine, table)
{
    NetHost *host = dialog.Host;
    NetClient *guest = dialog.Guest;
    m_lines.setSendToGuests([host](const QString &line) { host->SendData(0, line); });
    m_lines.setSendToHost([guest](const QString &line) { guest->SendData(line); });
    m_lines.setEndSession([&dialog] { dialog.cmdCancel_Click(); });
    engine.setNetworkHooks(&m_lines);

    connect(host, &NetHost::ReceiveData, this, &NetworkSession::hostReceiveData, Qt::QueuedConnection);
    connect(host, &NetHost::ClientLeft, this, &NetworkSession::hostClientLeft, Qt::QueuedConnection);
    connect(guest, &NetClient::ReceiveData, this, &NetworkSession::guestReceiveData, Qt::QueuedConnection);
    connect(&dialog, &NewGameDialog::hostDropped, this, &NetworkSession::guestLostHost, Qt::QueuedConnection);
}

void NetworkSession::hostReceiveData(int client, const QString &line)
{
    // Only the guest who plays the seat to move has a say.
    const int seat = m_state.CurrentPlayer;
    if (seat < 1 || seat > MaxSeats || client < 1 || m_state.PlayerClient(seat) != client)
        return;
    // A guest's departure is told by its connection, never by the guest itself.
    if (line == QLatin1String("DROP"))
        return;
    m_lines.NetworkHost(line);
}

void NetworkSession::hostClientLeft(int client)
{
    // A running game hands the seat over at once, even under an open New Game dialog.
    if (!m_state.gameRunning() || client < 1)
        return;
    bool itsTurn = false;
    for (int seat = 1; seat <= MaxSeats; ++seat) {
        if (m_state.PlayerClient(seat) != client)
            continue;
        const QString name = m_state.PlayerName(seat).isEmpty() ? tr("Player %1").arg(seat)
                                                                : m_state.PlayerName(seat);
        m_dialog.tell(tr("%1 left the game and will be run by the computer.").arg(name));
        m_state.PlayerType(seat) = Computer;
        m_state.PlayerName(seat).clear();
        m_state.PlayerClient(seat) = 0;
        itsTurn = itsTurn || seat == m_state.CurrentPlayer;
    }
    m_table.refresh();
    if (itsTurn)
        m_lines.dropCurrentSeat();
}

void NetworkSession::guestReceiveData(const QString &line)
{
    if (m_state.NetMode != NetGuestMode) {
        // Kept for the start of this copy's game; only the last one counts.
        if (m_parked)
            *m_parked = line;
        return;
    }
    NetworkGuest(line);
}

void NetworkSession::NetworkGuest(const QString &line)
{
    const int seat = m_guestSeat ? *m_guestSeat : 0;
    if (seat >= 1 && seat <= MaxSeats && m_lines.NetSeat() != seat)
        m_lines.startGuestGame(seat);
    m_lines.NetworkGuest(line);
}

void NetworkSession::guestTakeOver()
{
    m_dialog.leaveHost();
    m_engine.GameOver();
}

void NetworkSession::guestLostHost()
{
    if (m_state.NetMode != NetGuestMode || !m_state.gameRunning())
        return;
    m_dialog.tell(tr("The connection to the host has dropped."));
    m_engine.GameOver();
}

} // namespace qx
