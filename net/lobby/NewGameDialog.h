#pragma once

#include "NewGameSetup.h"

#include <QCheckBox>
#include <QDialog>
#include <QSet>

#include <array>
#include <functional>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTimer;
class QTreeWidget;

namespace qx {

namespace discovery {
class DiscoveryBrowser;
class DiscoveryResponder;
} // namespace discovery

class NetClient;
class NetHost;

// A seat box of the New Game dialog. Three states: unchecked (the computer plays the seat), checked
// (a person at this computer), grayed (a person at another computer). A click only toggles between
// the computer and a person here; the grayed state is given by the network lobby. A click on a
// grayed box that carries a guest's name does not change it: the dialog asks whether to remove
// that guest (grayedClicked).
class SeatBox : public QCheckBox {
    Q_OBJECT
public:
    SeatBox(const QString &caption, QWidget *parent);
    // 0 unchecked, 1 checked, 2 grayed.
    int value() const;
    void setValue(int value);

signals:
    void grayedClicked();

protected:
    void nextCheckState() override;
};

// frmNewGame: how many seats, which of them people play, and whether the game is played over
// the network. For a network game it is also the lobby: the host's copy listens with Host, each
// guest's copy connects with Guest, guests ask for seats, the host grants them and starts the game.
// The controls carry the names the rest of the program knows them by (their objectName too).
// During a network game the dialog stays alive, hidden, for its connections.
//
// Lobby messages travel as setup information: "P" seat name (guest asks for a seat), "G" seat
// (granted), "T" seat (taken), "F" seat (free again), "N" index (number of players), "S" (start),
// "C" (the lobby is closed). Seats are box indexes 0..9, one digit.
class NewGameDialog : public QDialog {
    Q_OBJECT
public:
    // The handshake: the program's title and its major.minor version.
    static const QString AppTitle;
    static QString appVersion();

    explicit NewGameDialog(QWidget *parent = nullptr);

    QGroupBox *Frame1 = nullptr;
    std::array<QRadioButton *, 9> optPlayers{}; // button i: i + 2 seats
    // Shown while a big table is chosen with a single deck (see updateDecksAdvice).
    QLabel *lblDecksAdvice = nullptr;
    QGroupBox *Frame2 = nullptr;
    std::array<SeatBox *, MaxSeats> chkHuman{}; // box i: seat i + 1
    QCheckBox *chkNetwork = nullptr;
    QRadioButton *optHost = nullptr;
    QRadioButton *optGuest = nullptr;
    QLabel *lblHost = nullptr;
    QLineEdit *txtHost = nullptr;
    QLabel *lblStatus = nullptr;
    QTimer *tmrCheck = nullptr;
    QPushButton *cmdOK = nullptr;
    QPushButton *cmdCancel = nullptr;
    // The connections: this copy hosting, or this copy as a guest. Both live as long as the dialog.
    NetHost *Host = nullptr;
    NetClient *Guest = nullptr;
    // Finding games on the LAN: the host's open lobby answers the guests' queries (Announcer); a
    // guest lists the hosts that answer (Browser, shown in lstHosts) and picks one instead of
    // typing its address.
    QLabel *lblHosts = nullptr;
    QTreeWidget *lstHosts = nullptr;
    discovery::DiscoveryResponder *Announcer = nullptr;
    discovery::DiscoveryBrowser *Browser = nullptr;

    // "CANCEL" after Cancel; emptied whenever the dialog is run.
    QString Tag;

    // Seams that tests replace so that nothing waits for a person.
    // Tells the user something; by default a message box that does not hold the program up.
    std::function<void(const QString &text)> tell;
    // A Yes/No question with a question icon; true unless the answer is No.
    std::function<bool(const QString &text)> ask;

    // The TCP port hosted on and connected to: 1099, or the developer setting QX_PORT from the
    // environment. Tests host on 0 (the system picks a free port, see Host->listeningPort()).
    int gamePort() const { return m_gamePort; }
    void setGamePort(int port) { m_gamePort = port; }
    // The version this copy announces as a guest; tests announce a wrong one.
    QString announcedVersion() const { return m_announcedVersion; }
    void setAnnouncedVersion(const QString &version) { m_announcedVersion = version; }
    // The name a guest gives with its seat request: this computer's name unless set.
    QString computerName() const;
    void setComputerName(const QString &name) { m_computerName = name; }

    // The number of decks this copy would deal with; it decides whether the advice line shows.
    void setNumberOfDecks(int decks);

    // Shows the dialog modally and returns when it is hidden again.
    void runModal();

    // The choices, as the New Game command reads them.
    int playersIndex() const;
    int seatValue(int box) const;
    QString seatToolTip(int box) const;
    QString seatTag(int box) const;
    void setSeatTag(int box, const QString &tag);
    bool networkChecked() const;
    bool hostSelected() const;
    // All of it at once: the number of seats, each seat's kind, name and guest slot (the numeric
    // value of "0" followed by the box's tag), and local game, host or guest.
    NewGameSetup setup() const;

    // The number of players changed: the seat boxes beyond the count are disabled and cleared; a
    // host passes the new layout on to its guests.
    void optPlayers_Click(int index);
    void cmdOK_Click();
    void cmdCancel_Click();
    // The user's clicks on the network controls.
    void chkNetwork_Click();
    void optHost_Click();
    void optGuest_Click();
    // A guest's connection attempt, every five seconds until a connection stands.
    void tmrCheck_Timer();
    // Guest: ends the connection to the host without reporting it as a drop (Take Over).
    void leaveHost();
    // Guest: the host listed in row becomes "Host's Name/IP:" and is called at once; false for a
    // host of another version, which cannot be chosen.
    bool chooseListedHost(int row);

signals:
    // Guest: the host's connection ended while the dialog was hidden and not cancelled, that is
    // during a game (the game decides what follows).
    void hostDropped();

protected:
    void reject() override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    struct SeatSnapshot {
        int value = 0;
        bool enabled = true;
        QString toolTip;
        QString tag;
    };
    void buildPlayersFrame();
    void buildHumansFrame();
    void buildNetworkControls();
    void buildConnections();
    void updateNetworkControls();
    void takeSnapshot();
    void restoreSnapshot();
    void enableSeatsForCount();
    void updateDecksAdvice();
    bool isHosting() const;
    bool isGuestRole() const;

    // Roles (NewGameDialog.cpp).
    void networkToggled(bool checked);
    void leaveNetwork();
    void beginHosting();
    void unlockOwnChoices();
    void becomeGuest();

    // Host side of the lobby (LobbyHost.cpp).
    void hostReceiveTitle(int client, const QString &title);
    void hostReceiveVersion(int client, const QString &version);
    void hostReceiveSetupInfo(int client, const QString &info);
    void hostClientLeft(int client);
    void hostError(int client, int number, const QString &description);
    void seatChanged(int box);
    void removeGuest(int box);
    void showConnections();
    void hostStart();

    // Finding games on the LAN (LobbyDiscovery.cpp).
    void buildHostList();
    void showListedHosts();
    void updateDiscovery();

    // Guest side of the lobby (LobbyGuest.cpp).
    void guestConnected();
    void guestReceiveSetupInfo(const QString &info);
    void guestRejectTitle(const QString &properTitle);
    void guestRejectVersion(const QString &properVersion);
    void guestDropped();
    void guestError(int number, const QString &description);
    void guestSelect();

    int m_savedPlayers = 0;
    int m_numberOfDecks = 1;
    std::array<SeatSnapshot, MaxSeats> m_savedSeats{};
    int m_gamePort = 0;
    QString m_announcedVersion;
    QString m_computerName;
    bool m_leavingHost = false;    // this side is ending the guest connection itself
    bool m_guestReachedHost = false; // the current guest connection was established
    // The status shown while a guest tries to reach its host ("Connecting to ..." in the player's
    // language), so that the host's first message can replace it whatever the language.
    QString m_connectingStatus;
    bool m_guestErrorClosing = false; // an error is closing the connection; its drop follows
    QSet<int> m_titleAccepted;     // host: slots whose guest announced the right title
    QSet<int> m_handshakeAccepted; // host: slots whose guest announced the right title and version
};

} // namespace qx
