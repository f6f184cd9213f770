// Taking up a role in a network game, and leaving it: hosting, or joining a host as a guest.
#include "NetClient.h"
#include "NetHost.h"
#include "NewGameDialog.h"

#include <QGroupBox>
#include <QHostInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace qx {

bool NewGameDialog::isHosting() const { return networkChecked() && optHost->isChecked() && Host->Hosting(); }

bool NewGameDialog::isGuestRole() const { return networkChecked() && optGuest->isChecked(); }

QString NewGameDialog::computerName() const
{
    return m_computerName.isEmpty() ? QHostInfo::localHostName() : m_computerName;
}

void NewGameDialog::chkNetwork_Click()
{
    if (!networkChecked())
        return;
    if (optGuest->isChecked())
        becomeGuest();
    else
        beginHosting();
}

void NewGameDialog::optHost_Click()
{
    if (networkChecked())
        beginHosting();
}

void NewGameDialog::optGuest_Click()
{
    if (networkChecked())
        becomeGuest();
}

void NewGameDialog::networkToggled(bool checked)
{
    updateNetworkControls();
    if (!checked)
        leaveNetwork();
    updateDiscovery();
}

void NewGameDialog::leaveNetwork()
{
    tmrCheck->stop();
    if (Host->Hosting())
        Host->StopHost();
    leaveHost();
    unlockOwnChoices();
}

void NewGameDialog::unlockOwnChoices()
{
    // Outside a guest's role this copy chooses the seats again, and OK starts a game.
    cmdOK->setText(tr("&OK"));
    cmdOK->setEnabled(true);
    Frame1->setEnabled(true);
    Frame2->setEnabled(true);
    enableSeatsForCount();
}

void NewGameDialog::leaveHost()
{
    tmrCheck->stop();
    // An error is already closing the connection; the drop that follows it is the host's news.
    if (m_guestErrorClosing)
        return;
    m_leavingHost = true;
    Guest->Disconnect();
    m_leavingHost = false;
}

void NewGameDialog::beginHosting()
{
    leaveHost();
    unlockOwnChoices();
    if (!Host->Hosting()) {
        Host->setMaxConnections(NetHost::GameMaxConnections);
        Host->setLocalPort(m_gamePort);
        Host->BeginHost();
        if (!Host->Hosting())
            return; // the failure has been told
    }
    showConnections();
    updateDiscovery();
}

void NewGameDialog::becomeGuest()
{
    if (Host->Hosting())
        Host->StopHost();
    cmdOK->setText(tr("&Select"));
    cmdOK->setEnabled(true);
    // The host decides the number of players.
    Frame1->setEnabled(false);
    Frame2->setEnabled(true);
    m_guestReachedHost = false;
    lblStatus->setText(tr("Not Connected"));
    tmrCheck->start();
    updateDiscovery();
}

void NewGameDialog::tmrCheck_Timer()
{
    if (!isGuestRole()) {
        tmrCheck->stop();
        return;
    }
    if (Guest->IsConnected()) {
        lblStatus->setText(tr("Connected"));
        tmrCheck->stop();
        return;
    }
    const QString host = txtHost->text().trimmed();
    if (host.isEmpty())
        return;
    m_connectingStatus = tr("Connecting to %1...").arg(host);
    lblStatus->setText(m_connectingStatus);
    // A call while an attempt is under way is ignored by the client.
    Guest->Connect(host, m_gamePort, AppTitle, m_announcedVersion);
}

} // namespace qx
