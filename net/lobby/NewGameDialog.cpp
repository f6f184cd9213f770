#include "NewGameDialog.h"

#include "NetClient.h"
#include "NetHost.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace qx {

namespace {
const char TagProperty[] = "Tag";
constexpr int DefaultPlayersIndex = 2; // four seats

// The port of a network game: the game's own, unless a developer runs several copies on one
// machine and names another in QX_PORT.
int portFromEnvironment()
{
    bool ok = false;
    const int port = qEnvironmentVariableIntValue("QX_PORT", &ok);
    return ok && port >= 0 && port <= 65535 ? port : NetHost::GamePort;
}
} // namespace

const QString NewGameDialog::AppTitle = QStringLiteral("QX");

QString NewGameDialog::appVersion()
{
    return QStringLiteral("%1.%2").arg(QX_VERSION_MAJOR).arg(QX_VERSION_MINOR);
}

SeatBox::SeatBox(const QString &caption, QWidget *parent) : QCheckBox(caption, parent)
{
    setTristate(true);
}

int SeatBox::value() const
{
    switch (checkState()) {
    case Qt::Checked: return LocalHuman;
    case Qt::PartiallyChecked: return RemoteHuman;
    default: return Computer;
    }
}

void SeatBox::setValue(int value)
{
    setCheckState(value == LocalHuman ? Qt::Checked : value == RemoteHuman ? Qt::PartiallyChecked : Qt::Unchecked);
}

void SeatBox::nextCheckState()
{
    // A guest's seat is given up only through the question the dialog asks.
    if (checkState() == Qt::PartiallyChecked && !toolTip().isEmpty()) {
        emit grayedClicked();
        return;
    }
    setCheckState(checkState() == Qt::Unchecked ? Qt::Checked : Qt::Unchecked);
}

NewGameDialog::NewGameDialog(QWidget *parent)
    : QDialog(parent), m_gamePort(portFromEnvironment()), m_announcedVersion(appVersion())
{
    setObjectName(QStringLiteral("frmNewGame"));
    setWindowTitle(tr("New Game"));
    setModal(true);

    tell = [this](const QString &text) {
        // Shown without a modal loop of its own, so that the lobby and the game go on meanwhile.
        auto *box = new QMessageBox(QMessageBox::Information, AppTitle, text, QMessageBox::Ok, this);
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->setModal(false);
        box->show();
    };
    ask = [this](const QString &text) {
        return QMessageBox::question(this, AppTitle, text, QMessageBox::Yes | QMessageBox::No) != QMessageBox::No;
    };

    Host = new NetHost(this);
    Host->setObjectName(tr("Host"));
    Host->setLocalPort(m_gamePort);
    Host->setMaxConnections(NetHost::GameMaxConnections);
    Guest = new NetClient(this);
    Guest->setObjectName(tr("Guest"));

    buildPlayersFrame();
    buildHumansFrame();
    buildNetworkControls();
    buildHostList();

    cmdOK = new QPushButton(tr("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(tr("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cmdOK, &QPushButton::clicked, this, &NewGameDialog::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &NewGameDialog::cmdCancel_Click);

    auto *network = new QGridLayout;
    network->addWidget(chkNetwork, 0, 0, 1, 2);
    network->addWidget(optHost, 1, 0);
    network->addWidget(optGuest, 1, 1);
    network->addWidget(lblHost, 2, 0);
    network->addWidget(txtHost, 2, 1);
    network->addWidget(lblHosts, 3, 0, 1, 2);
    network->addWidget(lstHosts, 4, 0, 1, 2);
    network->addWidget(lblStatus, 5, 0, 1, 2);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);

    auto *main = new QVBoxLayout(this);
    main->addWidget(Frame1);
    main->addWidget(Frame2);
    main->addLayout(network);
    main->addLayout(buttons);

    optPlayers[DefaultPlayersIndex]->setChecked(true);
    optPlayers_Click(DefaultPlayersIndex);
    chkHuman[0]->setValue(LocalHuman);
    updateNetworkControls();
    takeSnapshot();
    buildConnections();
}

void NewGameDialog::buildPlayersFrame()
{
    Frame1 = new QGroupBox(tr("Number of Players"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto *grid = new QGridLayout(Frame1);
    auto *group = new QButtonGroup(this);
    for (int i = 0; i < 9; ++i) {
        auto *button = new QRadioButton(QString::number(i + 2), Frame1);
        button->setObjectName(QStringLiteral("optPlayers%1").arg(i));
        optPlayers[static_cast<size_t>(i)] = button;
        group->addButton(button, i);
        grid->addWidget(button, 0, i);
        connect(button, &QRadioButton::clicked, this, [this, i] { optPlayers_Click(i); });
    }
    lblDecksAdvice = new QLabel(tr("With 9 or 10 players, choose 2 or more decks (Options > "
                                               "Number Of Decks): with one deck a round may never end."),
                                Frame1);
    lblDecksAdvice->setObjectName(QStringLiteral("lblDecksAdvice"));
    lblDecksAdvice->setWordWrap(true);
    // Its place is kept while it is hidden, so the dialog never jumps when the count changes.
    QSizePolicy keepPlace = lblDecksAdvice->sizePolicy();
    keepPlace.setRetainSizeWhenHidden(true);
    lblDecksAdvice->setSizePolicy(keepPlace);
    lblDecksAdvice->hide();
    grid->addWidget(lblDecksAdvice, 1, 0, 1, 9);
}

void NewGameDialog::setNumberOfDecks(int decks)
{
    m_numberOfDecks = decks;
    updateDecksAdvice();
}

void NewGameDialog::updateDecksAdvice()
{
    // A stock of one deck rebuilt during a round with 27 or 30 cards in hand holds nothing but
    // kings, and such a round never ends. A guest deals nothing, so the advice is the host's.
    const bool bigTable = playersIndex() + 2 >= 9;
    const bool shown = bigTable && m_numberOfDecks == 1 && !isGuestRole();
    lblDecksAdvice->setVisible(shown);
}

void NewGameDialog::buildHumansFrame()
{
    Frame2 = new QGroupBox(tr("Human Players"), this);
    Frame2->setObjectName(QStringLiteral("Frame2"));
    auto *grid = new QGridLayout(Frame2);
    for (int i = 0; i < MaxSeats; ++i) {
        auto *box = new SeatBox(QString::number(i + 1), Frame2);
        box->setObjectName(QStringLiteral("chkHuman%1").arg(i));
        box->setProperty(TagProperty, QString());
        chkHuman[static_cast<size_t>(i)] = box;
        grid->addWidget(box, i / 5, i % 5);
    }
}

void NewGameDialog::buildNetworkControls()
{
    chkNetwork = new QCheckBox(tr("Network Play"), this);
    chkNetwork->setObjectName(QStringLiteral("chkNetwork"));
    optHost = new QRadioButton(tr("Host"), this);
    optHost->setObjectName(QStringLiteral("optHost"));
    optHost->setChecked(true);
    optGuest = new QRadioButton(tr("Guest"), this);
    optGuest->setObjectName(QStringLiteral("optGuest"));
    lblHost = new QLabel(tr("Host's Name/IP:"), this);
    lblHost->setObjectName(QStringLiteral("lblHost"));
    txtHost = new QLineEdit(this);
    txtHost->setObjectName(QStringLiteral("txtHost"));
    lblHost->setBuddy(txtHost);
    lblStatus = new QLabel(this);
    lblStatus->setObjectName(QStringLiteral("lblStatus"));
    tmrCheck = new QTimer(this);
    tmrCheck->setObjectName(QStringLiteral("tmrCheck"));
    tmrCheck->setInterval(5000);
}

void NewGameDialog::buildConnections()
{
    // Taking up a role follows the user's clicks; leaving network play follows every change of
    // the box, since Cancel and the lobby clear it too.
    connect(chkNetwork, &QCheckBox::toggled, this, &NewGameDialog::networkToggled);
    connect(chkNetwork, &QCheckBox::clicked, this, &NewGameDialog::chkNetwork_Click);
    connect(optHost, &QRadioButton::clicked, this, &NewGameDialog::optHost_Click);
    connect(optGuest, &QRadioButton::clicked, this, &NewGameDialog::optGuest_Click);
    connect(optGuest, &QRadioButton::toggled, this, &NewGameDialog::updateNetworkControls);
    connect(tmrCheck, &QTimer::timeout, this, &NewGameDialog::tmrCheck_Timer);
    for (int i = 0; i < MaxSeats; ++i) {
        SeatBox *box = chkHuman[static_cast<size_t>(i)];
        connect(box, &QCheckBox::stateChanged, this, [this, i] { seatChanged(i); });
        connect(box, &SeatBox::grayedClicked, this, [this, i] { removeGuest(i); });
    }

    // The lobby's handlers run inside the components' signals: none of them waits.
    connect(Host, &NetHost::ReceiveTitle, this, &NewGameDialog::hostReceiveTitle);
    connect(Host, &NetHost::ReceiveVersion, this, &NewGameDialog::hostReceiveVersion);
    connect(Host, &NetHost::ReceiveSetupInfo, this, &NewGameDialog::hostReceiveSetupInfo);
    connect(Host, &NetHost::ClientLeft, this, &NewGameDialog::hostClientLeft);
    connect(Host, &NetHost::Error, this, &NewGameDialog::hostError);
    connect(Guest, &NetClient::Connected, this, &NewGameDialog::guestConnected);
    connect(Guest, &NetClient::ReceiveSetupInfo, this, &NewGameDialog::guestReceiveSetupInfo);
    connect(Guest, &NetClient::RejectTitle, this, &NewGameDialog::guestRejectTitle);
    connect(Guest, &NetClient::RejectVersion, this, &NewGameDialog::guestRejectVersion);
    connect(Guest, &NetClient::Dropped, this, &NewGameDialog::guestDropped);
    connect(Guest, &NetClient::Error, this, &NewGameDialog::guestError);
}

void NewGameDialog::updateNetworkControls()
{
    // The role can be chosen before Network Play is ticked, so that a guest never starts hosting
    // on the way (which would fail on a computer that already hosts, and be told).
    const bool network = chkNetwork->isChecked();
    const bool guest = network && optGuest->isChecked();
    lblHost->setEnabled(guest);
    txtHost->setEnabled(guest);
    lblHosts->setEnabled(guest);
    lstHosts->setEnabled(guest);
    updateDecksAdvice();
}

void NewGameDialog::runModal()
{
    Tag.clear();
    takeSnapshot();
    exec();
}

int NewGameDialog::playersIndex() const
{
    for (int i = 0; i < 9; ++i)
        if (optPlayers[static_cast<size_t>(i)]->isChecked())
            return i;
    return 0;
}

int NewGameDialog::seatValue(int box) const { return chkHuman.at(static_cast<size_t>(box))->value(); }

QString NewGameDialog::seatToolTip(int box) const { return chkHuman.at(static_cast<size_t>(box))->toolTip(); }

QString NewGameDialog::seatTag(int box) const
{
    return chkHuman.at(static_cast<size_t>(box))->property(TagProperty).toString();
}

void NewGameDialog::setSeatTag(int box, const QString &tag)
{
    chkHuman.at(static_cast<size_t>(box))->setProperty(TagProperty, tag);
}

bool NewGameDialog::networkChecked() const { return chkNetwork->isChecked(); }

bool NewGameDialog::hostSelected() const { return optHost->isChecked(); }

NewGameSetup NewGameDialog::setup() const
{
    NewGameSetup s;
    s.numPlayers = playersIndex() + 2;
    for (int i = 0; i < MaxSeats; ++i) {
        SeatChoice &seat = s.seats[static_cast<size_t>(i)];
        seat.type = static_cast<int16_t>(seatValue(i));
        seat.name = seatToolTip(i);
        // The numeric value of "0" followed by the tag: 0 for an empty or unreadable tag.
        seat.client = static_cast<int16_t>((QStringLiteral("0") + seatTag(i)).toInt());
    }
    s.netMode = !networkChecked() ? LocalGame : hostSelected() ? NetHostMode : NetGuestMode;
    return s;
}

void NewGameDialog::optPlayers_Click(int index)
{
    updateDecksAdvice();
    for (int i = 0; i < MaxSeats; ++i) {
        SeatBox *box = chkHuman[static_cast<size_t>(i)];
        const bool inGame = i < index + 2;
        box->setEnabled(inGame);
        if (!inGame && box->value() != Computer) {
            // A guest's seat that is no longer in the game is no longer that guest's.
            if (box->value() == RemoteHuman) {
                setSeatTag(i, QString());
                box->setToolTip(QString());
            }
            box->setValue(Computer);
        }
    }
    if (!isHosting())
        return;
    // Every guest sees the new layout, each with its own seat still granted.
    Host->SendSetupInfo(0, QStringLiteral("N%1").arg(index));
    for (int i = 0; i < MaxSeats; ++i) {
        const int value = seatValue(i);
        if (value == Computer)
            continue;
        Host->SendSetupInfo(0, QStringLiteral("T%1").arg(i));
        if (value == RemoteHuman)
            Host->SendSetupInfo(seatTag(i).toInt(), QStringLiteral("G%1").arg(i));
    }
}

void NewGameDialog::enableSeatsForCount()
{
    const int count = playersIndex() + 2;
    for (int i = 0; i < MaxSeats; ++i)
        chkHuman[static_cast<size_t>(i)]->setEnabled(i < count);
}

void NewGameDialog::cmdOK_Click()
{
    if (networkChecked() && optGuest->isChecked()) {
        guestSelect();
        return;
    }
    if (networkChecked())
        hostStart();
    Tag.clear();
    hide();
}

void NewGameDialog::cmdCancel_Click()
{
    Tag = QStringLiteral("CANCEL");
    chkNetwork->setChecked(false);
    restoreSnapshot();
    hide();
}

void NewGameDialog::reject()
{
    // The close box and Esc cancel, as the Cancel button does.
    cmdCancel_Click();
}

void NewGameDialog::takeSnapshot()
{
    m_savedPlayers = playersIndex();
    for (int i = 0; i < MaxSeats; ++i) {
        const SeatBox *box = chkHuman[static_cast<size_t>(i)];
        m_savedSeats[static_cast<size_t>(i)] = {box->value(), box->isEnabled(), box->toolTip(), seatTag(i)};
    }
}

void NewGameDialog::restoreSnapshot()
{
    optPlayers[static_cast<size_t>(m_savedPlayers)]->setChecked(true);
    for (int i = 0; i < MaxSeats; ++i) {
        SeatBox *box = chkHuman[static_cast<size_t>(i)];
        const SeatSnapshot &saved = m_savedSeats[static_cast<size_t>(i)];
        box->setValue(saved.value);
        box->setEnabled(saved.enabled);
        box->setToolTip(saved.toolTip);
        setSeatTag(i, saved.tag);
    }
}

} // namespace qx
