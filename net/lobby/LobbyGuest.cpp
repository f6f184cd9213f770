// The guest's side of the lobby: connecting, asking for a seat, waiting for the start.
#include "LobbyMessages.h"
#include "NetClient.h"
#include "NewGameDialog.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace qx {

void NewGameDialog::guestSelect()
{
    int chosen = -1;
    int count = 0;
    for (int i = 0; i < MaxSeats; ++i) {
        if (seatValue(i) == LocalHuman) {
            chosen = i;
            ++count;
        }
    }
    if (count == 0) {
        tell(tr("Please choose a human player to be added to the network game."));
        return;
    }
    if (count > 1) {
        tell(tr("Please choose only one human player to be added to the network game."));
        return;
    }
    if (txtHost->text().trimmed().isEmpty()) {
        tell(tr("Please enter the host's computer name."));
        return;
    }
    // The dialog stays open until the host starts the game or closes the lobby.
    Guest->SendSetupInfo(QStringLiteral("P%1").arg(chosen) + computerName());
}

void NewGameDialog::guestConnected()
{
    m_guestReachedHost = true;
    tmrCheck->stop();
    lblStatus->setText(tr("Connection Established"));
}

void NewGameDialog::guestReceiveSetupInfo(const QString &info)
{
    if (!m_connectingStatus.isEmpty() && lblStatus->text() == m_connectingStatus)
        lblStatus->setText(tr("Connected"));
    if (info.isEmpty())
        return;
    const int n = lobby::digitAfterCode(info);
    switch (info[0].unicode()) {
    case 'G':
        if (n < 0)
            return;
        for (int i = 0; i < MaxSeats; ++i)
            chkHuman[static_cast<size_t>(i)]->setValue(i == n ? LocalHuman : Computer);
        cmdOK->setEnabled(false);
        Frame2->setEnabled(false);
        lblStatus->setText(tr("Choice Accepted, Waiting to Start"));
        return;
    case 'T':
        if (n < 0)
            return;
        chkHuman[static_cast<size_t>(n)]->setEnabled(false);
        chkHuman[static_cast<size_t>(n)]->setValue(Computer);
        return;
    case 'F':
        if (n >= 0)
            chkHuman[static_cast<size_t>(n)]->setEnabled(true);
        return;
    case 'N':
        if (n < 0 || n >= int(optPlayers.size()))
            return;
        optPlayers[static_cast<size_t>(n)]->setChecked(true);
        optPlayers_Click(n);
        return;
    case 'S':
        // Back to the New command, with this copy's seat the only one checked.
        lblStatus->setText(tr("Starting Game"));
        lblStatus->repaint();
        hide();
        return;
    case 'C':
        // A guest with a seat has already left the dialog when the lobby closes.
        if (!isVisible())
            return;
        Frame2->setEnabled(true);
        chkNetwork->setChecked(false);
        tell(tr("The game has started without you."));
        return;
    default:
        return;
    }
}

void NewGameDialog::guestRejectTitle(const QString &properTitle)
{
    tell(tr("You should be running %1.").arg(properTitle));
}

void NewGameDialog::guestRejectVersion(const QString &properVersion)
{
    tell(tr("You should be running %1 %2.").arg(AppTitle, properVersion));
}

void NewGameDialog::guestError(int, const QString &description)
{
    lblStatus->setText(description);
    // The client closes the connection itself right after its error, and reports the drop.
    m_guestErrorClosing = true;
    chkNetwork->setChecked(false);
}

void NewGameDialog::guestDropped()
{
    const bool ownDoing = m_leavingHost;
    const bool wasIn = m_guestReachedHost;
    m_guestReachedHost = false;
    Frame2->setEnabled(true);
    chkNetwork->setChecked(false);
    m_guestErrorClosing = false;
    if (ownDoing || Tag == QLatin1String("CANCEL"))
        return;
    if (isVisible()) {
        // Still in the lobby: the host removed this guest or turned it away. An attempt that
        // never reached the host has its error in the status already.
        if (wasIn)
            tell(tr("You were kicked out of the game."));
        return;
    }
    emit hostDropped();
}

} // namespace qx
