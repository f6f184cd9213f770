#pragma once

// New Game dialogs in one process, talking over loopback: one host, any number of guests. The
// host listens on 127.0.0.1 on a port the system picks; message boxes and questions are recorded
// and answered by the test instead of being shown.

#include "DiscoveryBrowser.h"
#include "DiscoveryResponder.h"
#include "NetClient.h"
#include "NetHost.h"
#include "NewGameDialog.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStringList>
#include <QTimer>
#include <QtTest>

#include <memory>
#include <vector>

namespace qx::test {

constexpr int LobbyTimeout = 10000;

// One copy's New Game dialog with its messages and questions captured.
struct Copy {
    NewGameDialog dialog;
    QStringList told;
    QStringList asked;
    bool answer = true;

    Copy()
    {
        dialog.tell = [this](const QString &text) { told << text; };
        dialog.ask = [this](const QString &text) {
            asked << text;
            return answer;
        };
        // Discovery stays on the loopback, on a port of this test's own (see DiscoverySettings.h).
        dialog.Announcer->setPort(0);
        dialog.Browser->setLoopbackOnly(true);
        // Shown, as the New command shows it, but without a modal loop of its own.
        dialog.show();
    }
    SeatBox *seat(int box) const { return dialog.chkHuman[static_cast<size_t>(box)]; }
    QString status() const { return dialog.lblStatus->text(); }
};

struct Lobby {
    Copy host;
    std::vector<std::unique_ptr<Copy>> guests;

    // The host takes up Network Play as a user does: a click on the box, Host being selected.
    void openHost()
    {
        host.dialog.setGamePort(0);
        host.dialog.Host->setListenAddress(QHostAddress::LocalHost);
        host.dialog.chkNetwork->click();
        QVERIFY(host.dialog.Host->Hosting());
    }
    int port() const { return host.dialog.Host->listeningPort(); }
    quint16 discoveryPort() const { return host.dialog.Announcer->boundPort(); }

    // A guest that chooses Guest, types the host's address and connects. The retry timer is
    // sped up: the test has no five seconds to spare.
    Copy &addGuest(const QString &name, const QString &version = NewGameDialog::appVersion())
    {
        guests.push_back(std::make_unique<Copy>());
        Copy &g = *guests.back();
        g.dialog.setGamePort(port());
        g.dialog.setComputerName(name);
        g.dialog.setAnnouncedVersion(version);
        g.dialog.tmrCheck->setInterval(5);
        g.dialog.optGuest->click();
        g.dialog.chkNetwork->click();
        g.dialog.txtHost->setText(QStringLiteral("127.0.0.1"));
        return g;
    }
    // Adds a guest and waits until the host has counted it in.
    Copy &joinGuest(const QString &name)
    {
        const int before = host.dialog.Host->Connections();
        Copy &g = addGuest(name);
        waitUntil([&] { return host.status() == QStringLiteral("Network Connections: %1").arg(before + 1); });
        return g;
    }
    // A guest ticks one seat box (only that one) and presses "&Select".
    static void choose(Copy &g, int box)
    {
        for (int i = 0; i < MaxSeats; ++i)
            g.seat(i)->setValue(i == box ? LocalHuman : Computer);
        g.dialog.cmdOK->click();
    }
    static void waitUntil(const std::function<bool()> &condition)
    {
        QTRY_VERIFY_WITH_TIMEOUT(condition(), LobbyTimeout);
    }
};

} // namespace qx::test
