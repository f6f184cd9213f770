#pragma once

#include "NewGameSetup.h"

#include <QCheckBox>
#include <QDialog>

#include <array>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTimer;

namespace qx {

// A seat box of the New Game dialog. Three states: unchecked (the computer plays the seat), checked
// (a person at this computer), grayed (a person at another computer). A click only toggles between
// the computer and a person here; the grayed state is given by the network lobby.
class SeatBox : public QCheckBox {
    Q_OBJECT
public:
    SeatBox(const QString &caption, QWidget *parent);
    // 0 unchecked, 1 checked, 2 grayed.
    int value() const;
    void setValue(int value);

protected:
    void nextCheckState() override;
};

// frmNewGame: how many seats, which of them people play, and whether the game is played over
// the network. The controls carry the names the rest of the program knows them by (their
// objectName too). During a network game the dialog stays alive, hidden, for its connections.
class NewGameDialog : public QDialog {
    Q_OBJECT
public:
    explicit NewGameDialog(QWidget *parent = nullptr);

    QGroupBox *Frame1 = nullptr;
    std::array<QRadioButton *, 9> optPlayers{}; // button i: i + 2 seats
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

    // "CANCEL" after Cancel; emptied whenever the dialog is run.
    QString Tag;

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

    // The number of players changed: the seat boxes beyond the count are disabled and cleared.
    void optPlayers_Click(int index);
    void cmdOK_Click();
    void cmdCancel_Click();

protected:
    void reject() override;

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
    void updateNetworkControls();
    void takeSnapshot();
    void restoreSnapshot();

    int m_savedPlayers = 0;
    std::array<SeatSnapshot, MaxSeats> m_savedSeats{};
};

} // namespace qx
