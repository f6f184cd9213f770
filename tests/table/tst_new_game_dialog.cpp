#include "NewGameDialog.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <QFile>

using namespace qx;

// frmNewGame as a local game uses it: captions, seat boxes, the result and Cancel.
class NewGameDialogTest : public QObject {
    Q_OBJECT

private slots:
    void controlsCarryTheirNamesAndCaptions();
    void seatBoxesBeyondTheCountAreDisabledAndCleared();
    void seatBoxClickTogglesComputerAndPerson();
    void setupReadsEveryChoice();
    void setupNetworkModes_data();
    void setupNetworkModes();
    void cancelRestoresTheSeatsAndTagsTheDialog();
    void escapeCancelsAndEnterConfirms();
    void decksAdviceForBigTablesWithOneDeck_data();
    void decksAdviceForBigTablesWithOneDeck();
};

void NewGameDialogTest::controlsCarryTheirNamesAndCaptions()
{
    NewGameDialog d;
    QCOMPARE(d.Frame1->title(), QStringLiteral("Number of Players"));
    QCOMPARE(d.Frame2->title(), QStringLiteral("Human Players"));
    for (int i = 0; i < 9; ++i) {
        QCOMPARE(d.optPlayers[static_cast<size_t>(i)]->text(), QString::number(i + 2));
        QCOMPARE(d.findChild<QRadioButton *>(QStringLiteral("optPlayers%1").arg(i)), d.optPlayers[static_cast<size_t>(i)]);
    }
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(d.chkHuman[static_cast<size_t>(i)]->text(), QString::number(i + 1));
        QVERIFY(d.chkHuman[static_cast<size_t>(i)]->isTristate());
        QCOMPARE(d.findChild<QCheckBox *>(QStringLiteral("chkHuman%1").arg(i)), d.chkHuman[static_cast<size_t>(i)]);
    }
    QCOMPARE(d.chkNetwork->text(), QStringLiteral("Network Play"));
    QCOMPARE(d.optHost->text(), QStringLiteral("Host"));
    QCOMPARE(d.optGuest->text(), QStringLiteral("Guest"));
    QCOMPARE(d.lblHost->text(), QStringLiteral("Host's Name/IP:"));
    QCOMPARE(d.cmdOK->text(), QStringLiteral("&OK"));
    QCOMPARE(d.cmdCancel->text(), QStringLiteral("&Cancel"));
    QCOMPARE(d.tmrCheck->interval(), 5000);
    QVERIFY(!d.tmrCheck->isActive());
    for (const char *name : {"chkNetwork", "optHost", "optGuest", "lblHost", "txtHost", "lblStatus", "tmrCheck",
                             "cmdOK", "cmdCancel", "Frame1", "Frame2"})
        QVERIFY2(d.findChild<QObject *>(QLatin1String(name)), name);
}

void NewGameDialogTest::seatBoxesBeyondTheCountAreDisabledAndCleared()
{
    NewGameDialog d;
    for (SeatBox *box : d.chkHuman)
        box->setEnabled(true);
    d.chkHuman[6]->setValue(LocalHuman);
    d.chkHuman[2]->setValue(RemoteHuman);
    d.optPlayers[3]->click(); // five seats
    for (int i = 0; i < 10; ++i)
        QCOMPARE(d.chkHuman[static_cast<size_t>(i)]->isEnabled(), i < 5);
    QCOMPARE(d.seatValue(6), int(Computer));
    QCOMPARE(d.seatValue(2), int(RemoteHuman));
    d.optPlayers[8]->click();
    for (SeatBox *box : d.chkHuman)
        QVERIFY(box->isEnabled());
}

void NewGameDialogTest::seatBoxClickTogglesComputerAndPerson()
{
    NewGameDialog d;
    SeatBox *box = d.chkHuman[1];
    QCOMPARE(box->value(), int(Computer));
    box->click();
    QCOMPARE(box->value(), int(LocalHuman));
    box->click();
    QCOMPARE(box->value(), int(Computer));
    // The grayed state comes only from the lobby.
    box->setValue(RemoteHuman);
    QCOMPARE(box->checkState(), Qt::PartiallyChecked);
    box->click();
    QCOMPARE(box->value(), int(Computer));
}

void NewGameDialogTest::setupReadsEveryChoice()
{
    NewGameDialog d;
    d.optPlayers[1]->click(); // three seats
    d.chkHuman[0]->setValue(Computer);
    d.chkHuman[1]->setValue(LocalHuman);
    d.chkHuman[2]->setValue(RemoteHuman);
    d.chkHuman[2]->setToolTip(QStringLiteral("ada-laptop"));
    d.setSeatTag(2, QStringLiteral("4"));
    d.setSeatTag(1, QStringLiteral("x"));
    const NewGameSetup s = d.setup();
    QCOMPARE(d.playersIndex(), 1);
    QCOMPARE(s.numPlayers, 3);
    QCOMPARE(s.seats[0].type, int16_t(Computer));
    QCOMPARE(s.seats[1].type, int16_t(LocalHuman));
    QCOMPARE(s.seats[2].type, int16_t(RemoteHuman));
    QCOMPARE(s.seats[2].name, QStringLiteral("ada-laptop"));
    QCOMPARE(s.seats[2].client, int16_t(4));
    // "0" followed by a tag that is no number reads as 0.
    QCOMPARE(s.seats[1].client, int16_t(0));
    QCOMPARE(s.seats[0].client, int16_t(0));
    QCOMPARE(s.netMode, int16_t(LocalGame));
}

void NewGameDialogTest::setupNetworkModes_data()
{
    QTest::addColumn<bool>("network");
    QTest::addColumn<bool>("host");
    QTest::addColumn<int>("mode");
    QTest::newRow("local, host selected") << false << true << int(LocalGame);
    QTest::newRow("local, guest selected") << false << false << int(LocalGame);
    QTest::newRow("hosting") << true << true << int(NetHostMode);
    QTest::newRow("guest") << true << false << int(NetGuestMode);
}

void NewGameDialogTest::setupNetworkModes()
{
    QFETCH(bool, network);
    QFETCH(bool, host);
    QFETCH(int, mode);
    NewGameDialog d;
    d.chkNetwork->setChecked(network);
    (host ? d.optHost : d.optGuest)->setChecked(true);
    QCOMPARE(d.networkChecked(), network);
    QCOMPARE(d.hostSelected(), host);
    QCOMPARE(int(d.setup().netMode), mode);
}

void NewGameDialogTest::cancelRestoresTheSeatsAndTagsTheDialog()
{
    NewGameDialog d;
    QTimer::singleShot(0, &d, [&] {
        d.optPlayers[7]->click();
        d.chkHuman[0]->setValue(Computer);
        d.chkHuman[5]->setValue(LocalHuman);
        d.chkHuman[5]->setToolTip(QStringLiteral("changed"));
        d.chkNetwork->setChecked(true);
        d.cmdCancel->click();
    });
    d.runModal();
    QCOMPARE(d.Tag, QStringLiteral("CANCEL"));
    QVERIFY(!d.isVisible());
    QVERIFY(!d.chkNetwork->isChecked());
    QCOMPARE(d.playersIndex(), 2);
    QCOMPARE(d.seatValue(0), int(LocalHuman));
    QCOMPARE(d.seatValue(5), int(Computer));
    QVERIFY(!d.chkHuman[5]->isEnabled());
    QVERIFY(d.seatToolTip(5).isEmpty());

    // The next run starts with an empty Tag; OK keeps the choices.
    QTimer::singleShot(0, &d, [&] {
        QVERIFY(d.Tag.isEmpty());
        d.optPlayers[0]->click();
        d.cmdOK->click();
    });
    d.runModal();
    QVERIFY(d.Tag.isEmpty());
    QCOMPARE(d.setup().numPlayers, 2);
}

void NewGameDialogTest::escapeCancelsAndEnterConfirms()
{
    NewGameDialog d;
    QTimer::singleShot(0, &d, [&] { QTest::keyClick(&d, Qt::Key_Escape); });
    d.runModal();
    QCOMPARE(d.Tag, QStringLiteral("CANCEL"));
    QTimer::singleShot(0, &d, [&] { QTest::keyClick(&d, Qt::Key_Return); });
    d.runModal();
    QVERIFY(d.Tag.isEmpty());
}

void NewGameDialogTest::decksAdviceForBigTablesWithOneDeck_data()
{
    QTest::addColumn<int>("players");
    QTest::addColumn<int>("decks");
    QTest::addColumn<bool>("guest");
    QTest::addColumn<bool>("shown");
    QTest::newRow("10 players, 1 deck") << 10 << 1 << false << true;
    QTest::newRow("9 players, 1 deck") << 9 << 1 << false << true;
    QTest::newRow("8 players, 1 deck") << 8 << 1 << false << false;
    QTest::newRow("10 players, 2 decks") << 10 << 2 << false << false;
    QTest::newRow("a guest deals nothing") << 10 << 1 << true << false;
}

void NewGameDialogTest::decksAdviceForBigTablesWithOneDeck()
{
    QFETCH(int, players);
    QFETCH(int, decks);
    QFETCH(bool, guest);
    QFETCH(bool, shown);
    NewGameDialog d;
    d.setNumberOfDecks(decks);
    d.optPlayers[static_cast<size_t>(players - 2)]->click();
    if (guest) {
        d.tell = [](const QString &) {};
        d.setGamePort(1); // nobody listens there: the attempt is refused at once
        d.txtHost->setText(QStringLiteral("127.0.0.1"));
        d.optGuest->click();
        d.chkNetwork->click();
    }
    d.show();
    const QString advice = QStringLiteral("With 9 or 10 players, choose 2 or more decks (Options > Number Of Decks): "
                                          "with one deck a round may never end.");
    QCOMPARE(d.lblDecksAdvice->text(), advice);
    QCOMPARE(d.lblDecksAdvice->isVisible(), shown);

    // Help > Rules gives the same advice.
    QFile rules(QStringLiteral(QX_RULES_PAGE));
    QVERIFY(rules.open(QIODevice::ReadOnly));
    QTextDocument page;
    page.setHtml(QString::fromUtf8(rules.readAll()));
    QVERIFY(page.toPlainText().simplified().contains(advice));
}

QTEST_MAIN(NewGameDialogTest)
#include "tst_new_game_dialog.moc"
