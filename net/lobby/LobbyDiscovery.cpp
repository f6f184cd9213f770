// Finding games on the LAN: the host's open lobby answers the guests' queries, and a guest's
// dialog lists the hosts that answer, so that nobody needs to know an address.
#include "DiscoveryBrowser.h"
#include "DiscoveryResponder.h"
#include "NetClient.h"
#include "NetHost.h"
#include "NewGameDialog.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTimer>
#include <QTreeWidget>

namespace qx {

namespace {
enum Column { NameColumn, AddressColumn, PlayersColumn, FreeColumn, VersionColumn };
} // namespace

void NewGameDialog::buildHostList()
{
    Announcer = new discovery::DiscoveryResponder(appVersion(), this);
    Announcer->setObjectName(QStringLiteral("Announcer"));
    // Only what the guests' list shows: the number of players, the free seats, this computer's name.
    Announcer->setLobby([this] {
        const int players = playersIndex() + 2;
        int freeSeats = 0;
        for (int i = 0; i < players; ++i)
            freeSeats += chkHuman[static_cast<size_t>(i)]->isEnabled() && seatValue(i) == Computer ? 1 : 0;
        return discovery::DiscoveryResponder::Lobby{players, freeSeats, computerName()};
    });
    Browser = new discovery::DiscoveryBrowser(appVersion(), this);
    Browser->setObjectName(QStringLiteral("Browser"));
    connect(Browser, &discovery::DiscoveryBrowser::hostsChanged, this, &NewGameDialog::showListedHosts);

    lblHosts = new QLabel(tr("Games on the LAN:"), this);
    lblHosts->setObjectName(QStringLiteral("lblHosts"));
    lstHosts = new QTreeWidget(this);
    lstHosts->setObjectName(QStringLiteral("lstHosts"));
    lstHosts->setRootIsDecorated(false);
    lstHosts->setHeaderLabels({tr("Computer"), tr("Address"), tr("Players"),
                               tr("Free Seats"), tr("Version")});
    // Wide enough for a long computer name, any address and a marked version without scrolling;
    // a longer name gives way (elided) before the other columns do.
    lstHosts->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lstHosts->header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    lstHosts->header()->setStretchLastSection(false);
    const QFontMetrics metrics = fontMetrics();
    lstHosts->setMinimumWidth(metrics.horizontalAdvance(QStringLiteral("kitchen-computer 255.255.255.255 Players "
                                                                       "Free Seats 1.0 (other version)"))
                              + 12 * metrics.averageCharWidth());
    lstHosts->setMinimumHeight(metrics.height() * 6);
    lblHosts->setBuddy(lstHosts);
    // The choice runs after the click has been handled: giving up an attempt under way rebuilds
    // the list, and the clicked item with it.
    const auto choose = [this](QTreeWidgetItem *item) {
        const int row = lstHosts->indexOfTopLevelItem(item);
        QTimer::singleShot(0, this, [this, row] { chooseListedHost(row); });
    };
    connect(lstHosts, &QTreeWidget::itemClicked, this, choose);
    connect(lstHosts, &QTreeWidget::itemActivated, this, choose);
}

void NewGameDialog::updateDiscovery()
{
    // A host is found only while its lobby is open on the screen; a guest looks only while it
    // is choosing.
    if (isHosting() && isVisible())
        Announcer->start();
    else
        Announcer->stop();
    if (isGuestRole() && isVisible())
        Browser->start();
    else
        Browser->stop();
}

void NewGameDialog::showListedHosts()
{
    const QString chosen = txtHost->text().trimmed();
    lstHosts->clear();
    for (const discovery::ListedHost &h : Browser->hosts()) {
        auto *item = new QTreeWidgetItem(lstHosts);
        item->setText(NameColumn, h.name);
        item->setText(AddressColumn, h.address);
        item->setText(PlayersColumn, QString::number(h.players));
        item->setText(FreeColumn, QString::number(h.freeSeats));
        for (int column : {PlayersColumn, FreeColumn})
            item->setTextAlignment(column, Qt::AlignCenter);
        if (h.joinable(appVersion())) {
            item->setText(VersionColumn, h.version);
            item->setSelected(h.address == chosen);
            continue;
        }
        // Listed, so that the guest sees why the game it expected cannot be joined.
        item->setText(VersionColumn, tr("%1 (other version)").arg(h.version));
        item->setToolTip(VersionColumn, tr("This host runs %1 %2 and cannot be joined from %1 %3.").arg(AppTitle, h.version, appVersion()));
        item->setFlags(Qt::NoItemFlags);
    }
}

bool NewGameDialog::chooseListedHost(int row)
{
    const QList<discovery::ListedHost> &hosts = Browser->hosts();
    if (!isGuestRole() || row < 0 || row >= hosts.size() || !hosts[row].joinable(appVersion()))
        return false;
    const QString address = hosts[row].address;
    if (Guest->IsConnected())
        return address == txtHost->text().trimmed();
    if (Guest->Busy() && address != txtHost->text().trimmed()) {
        // An attempt on another address is still under way: it gives way to the chosen host.
        leaveHost();
        chkNetwork->setChecked(true);
        becomeGuest();
    }
    txtHost->setText(address);
    tmrCheck->start();
    tmrCheck_Timer();
    return true;
}

void NewGameDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    updateDiscovery();
}

void NewGameDialog::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    updateDiscovery();
}

} // namespace qx
