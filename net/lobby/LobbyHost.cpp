// The host's side of the lobby: accepting guests, granting seats, starting the game.
#include "LobbyMessages.h"
#include "NetHost.h"
#include "NewGameDialog.h"

#include <QLabel>

namespace qx {

void NewGameDialog::showConnections()
{
    lblStatus->setText(lobby::connectionsStatus(Host->Connections()));
}

void NewGameDialog::hostReceiveTitle(int client, const QString &title)
{
    if (title == AppTitle) {
        m_titleAccepted.insert(client);
        return;
    }
    Host->SendProperTitle(client, AppTitle);
    Host->Kick(client);
}

void NewGameDialog::hostReceiveVersion(int client, const QString &version)
{
    if (version != appVersion()) {
        Host->SendProperVersion(client, appVersion());
        Host->Kick(client);
        return;
    }
    // A guest turned away for its title a moment ago has no lobby to be shown.
    if (Host->ClientIP(client).isEmpty() || !m_titleAccepted.contains(client))
        return;
    m_handshakeAccepted.insert(client);
    // Only now does the guest count: it is told the lobby as it stands.
    Host->SendSetupInfo(client, QStringLiteral("N%1").arg(playersIndex()));
    for (int i = 0; i < MaxSeats; ++i) {
        if (seatValue(i) != Computer)
            Host->SendSetupInfo(client, QStringLiteral("T%1").arg(i));
    }
    showConnections();
}

void NewGameDialog::hostReceiveSetupInfo(int client, const QString &info)
{
    // Only a guest that has shown it runs this program may ask for a seat.
    if (!m_handshakeAccepted.contains(client) || !info.startsWith(QLatin1Char('P')))
        return;
    const int seat = lobby::digitAfterCode(info);
    if (seat < 0)
        return;
    SeatBox *box = chkHuman[static_cast<size_t>(seat)];
    // A seat outside the game counts as taken, too.
    if (box->value() != Computer || !box->isEnabled()) {
        Host->SendSetupInfo(client, QStringLiteral("T%1").arg(seat));
        return;
    }
    Host->SendSetupInfo(client, QStringLiteral("G%1").arg(seat));
    // The tag first: the seat's change is passed on to every guest but its holder.
    setSeatTag(seat, QString::number(client));
    box->setValue(RemoteHuman);
    box->setToolTip(info.mid(2));
}

void NewGameDialog::seatChanged(int box)
{
    if (!isHosting())
        return;
    const bool taken = seatValue(box) != Computer;
    const int holder = seatTag(box).toInt();
    const int to = taken && holder > 0 ? -holder : 0;
    Host->SendSetupInfo(to, (taken ? QStringLiteral("T%1") : QStringLiteral("F%1")).arg(box));
}

void NewGameDialog::removeGuest(int box)
{
    SeatBox *seat = chkHuman[static_cast<size_t>(box)];
    const QString name = seat->toolTip();
    if (name.isEmpty())
        return;
    if (!ask(tr("Are you sure you want to remove %1 from the game?").arg(name)))
        return;
    seat->setToolTip(QString());
    const int client = seatTag(box).toInt();
    if (client > 0)
        Host->Kick(client);
    setSeatTag(box, QString());
    seat->setValue(Computer);
}

void NewGameDialog::hostClientLeft(int client)
{
    // The game's side of a guest leaving is the network session's; here the lobby forgets it.
    m_titleAccepted.remove(client);
    m_handshakeAccepted.remove(client);
    const QString tag = QString::number(client);
    for (int i = 0; i < MaxSeats; ++i) {
        if (seatTag(i) != tag)
            continue;
        setSeatTag(i, QString());
        chkHuman[static_cast<size_t>(i)]->setToolTip(QString());
        chkHuman[static_cast<size_t>(i)]->setValue(Computer);
    }
    if (Host->Hosting())
        showConnections();
}

void NewGameDialog::hostError(int client, int, const QString &description)
{
    // A guest's socket failing is followed by its ClientLeft; only a failure to listen is news.
    if (client != 0)
        return;
    lblStatus->setText(description);
    chkNetwork->setChecked(false);
    tell(tr("This computer cannot host a network game.\n%1.\n"
                        "Another program, or another copy of QX, may be using TCP port %2.")
             .arg(description)
             .arg(m_gamePort));
}

void NewGameDialog::hostStart()
{
    // Nobody joins a game that has begun, not even into the room a seatless guest leaves.
    Host->setMaxConnections(0);
    for (int i = 0; i < MaxSeats; ++i) {
        const int client = seatTag(i).toInt();
        if (seatValue(i) == RemoteHuman && client > 0)
            Host->SendSetupInfo(client, QStringLiteral("S"));
    }
    Host->SendSetupInfo(0, QStringLiteral("C"));
}

} // namespace qx
