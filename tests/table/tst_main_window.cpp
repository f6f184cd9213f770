#include "CardBackChooser.h"
#include "StrikesWindow.h"
#include "TableFixture.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace qx;
using namespace qx::test;

// The main window playing real games through the real engine: clicks and keys, the guards
// against a second move, the card sizes, the strike window, the Game menu's commands and whole
// games to their end.
class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init() { Waiter::setTimeScale(0); }
    void startsIdle();
    void legalClickPlaysAndRefills();
    void keyPlaysTheCard_data();
    void keyPlaysTheCard();
    void secondClickDuringTheMoveIsIgnored();
    void illegalClickChangesNothing();
    void resumeKeys_data();
    void resumeKeys();
    void cardSizesScaleFromTheFirstBase();
    void sizeCommandOutsideTheNormalStateDoesNothing_data();
    void sizeCommandOutsideTheNormalStateDoesNothing();
    void strikeWindowRidesTheRightEdge();
    void exitWithoutAGameQuitsAtOnce();
    void exitDuringAGameAsks();
    void exitWithCardsStillShownAsks();
    void newGameDuringALocalGameAsksNothing();
    void newGameDuringANetworkGameAsks();
    void wholeComputerGame_data();
    void wholeComputerGame();
    void takeOverHandsTheSeatToTheComputer();
    void tallyFollowsItsMenuItem();
    void backgroundColourDyesTheCloth();
    void cardBackNumberZeroIsTheFirstFile();
};

namespace {

// Seat 1 holds `card` in hand slot 0, shown, and the next draw is `refill`.
void giveSeatOne(TableFixture &f, int card, int refill)
{
    f.s.Hand(0, 1) = static_cast<int16_t>(card);
    f.w.showFace(FirstHandSlot, card);
    f.s.DeckTag = QString::number(refill);
}

int totalAfter(int total, int card)
{
    const int value = TurnEngine::CardValue(card);
    return value == TurnEngine::NineValue ? 99 : std::max(0, total + value);
}

} // namespace

void MainWindowTest::startsIdle()
{
    TableFixture f;
    QCOMPARE(f.w.windowTitle(), QStringLiteral("Press 'F2' to begin"));
    QCOMPARE(f.w.objectName(), QStringLiteral("frmQX"));
    QCOMPARE(f.s.Frames, int16_t(10));
    QCOMPARE(f.s.NumberOfDecks, int16_t(1));
    QVERIFY(!f.w.menus().mnuGTakeOver->isEnabled());
    QVERIFY(f.w.picDeck()->showsCard());
    QVERIFY(f.w.picCard(0)->isHidden());
    QVERIFY(f.w.playArea()->cmdContinue()->isHidden());
    QCOMPARE(f.w.playArea()->cmdContinue()->text(), QStringLiteral("&Resume"));
    QCOMPARE(f.w.tmrNetwork()->interval(), 1000);
    QVERIFY(!f.w.tmrNetwork()->isActive());
    QVERIFY(f.w.menus().mnuCSize(2)->isChecked());
    // "Match Windows" from the start: the cloth is the desktop's button face.
    QCOMPARE(f.w.backColor(), MainWindow::ButtonFaceColor);
    QCOMPARE(f.w.playArea()->feltColor(), QApplication::palette().color(QPalette::Button));
    // Keys outside a game are ignored.
    f.w.Form_KeyPress('1');
    QCOMPARE(f.s.CurrentPlayer, int16_t(0));
}

void MainWindowTest::legalClickPlaysAndRefills()
{
    TableFixture f;
    f.setPauses(false, false, false);
    f.s.Frames = 0;
    f.startGame({LocalHuman, Computer});
    QCOMPARE(f.s.CurrentPlayer, int16_t(1));
    QVERIFY(f.s.PileTag.isEmpty());
    QVERIFY(f.w.menus().mnuGTakeOver->isEnabled());

    giveSeatOne(f, 1, 40); // a two; the stock gives the queen of spades next
    QTest::mouseClick(f.w.picCard(FirstHandSlot), Qt::LeftButton);

    // The computer has answered and it is seat 1's turn again, the played slot refilled.
    QCOMPARE(f.s.CurrentPlayer, int16_t(1));
    QVERIFY(f.s.PileTag.isEmpty());
    QCOMPARE(f.s.Hand(0, 1), int16_t(40));
    QCOMPARE(f.slot(FirstHandSlot), CardPicture::face(40));
    QCOMPARE(f.slot(FirstHandSlot + 1), CardPicture::face(f.s.Hand(1, 1)));
    QCOMPARE(f.slot(PileSlot), CardPicture::face(f.s.PileCard));
    QCOMPARE(f.s.Total, int16_t(totalAfter(2, f.s.PileCard)));
    QVERIFY(f.w.picCard(0)->isHidden());
    QVERIFY(f.w.playArea()->humanMayPlay());
}

void MainWindowTest::keyPlaysTheCard_data()
{
    QTest::addColumn<char>("key");
    QTest::addColumn<int>("slot");
    QTest::newRow("1") << '1' << 0;
    QTest::newRow("2") << '2' << 1;
    QTest::newRow("3") << '3' << 2;
}

void MainWindowTest::keyPlaysTheCard()
{
    QFETCH(char, key);
    QFETCH(int, slot);
    TableFixture f;
    f.setPauses(false, false, false);
    f.s.Frames = 5;
    f.startGame({LocalHuman, LocalHuman});
    f.s.Hand(slot, 1) = 2; // a three
    f.w.showFace(FirstHandSlot + slot, 2);
    f.s.DeckTag = QStringLiteral("7");
    QTest::keyClick(&f.w, key);
    QCOMPARE(f.s.PileCard, int16_t(2));
    QCOMPARE(f.s.Total, int16_t(3));
    QCOMPARE(f.s.Hand(slot, 1), int16_t(7));
    // The next person's cards are on the table now.
    QCOMPARE(f.s.CurrentPlayer, int16_t(2));
    QCOMPARE(f.slot(FirstHandSlot + slot), CardPicture::face(f.s.Hand(slot, 2)));
}

void MainWindowTest::secondClickDuringTheMoveIsIgnored()
{
    TableFixture f;
    f.setPauses(false, false, false);
    f.s.Frames = 5;
    f.startGame({LocalHuman, LocalHuman});
    const int16_t other = f.s.Hand(1, 1);
    giveSeatOne(f, 3, 20); // a four: adds nothing
    f.s.Total = 10;

    Waiter::setTimeScale(0.1);
    bool midMove = false;
    QTimer::singleShot(0, &f.w, [&] {
        midMove = !f.w.picCard(0)->isHidden() && !f.s.PileTag.isEmpty();
        QTest::mouseClick(f.w.picCard(FirstHandSlot + 1), Qt::LeftButton);
        QTest::keyClick(&f.w, '3');
    });
    QTest::mouseClick(f.w.picCard(FirstHandSlot), Qt::LeftButton);
    QVERIFY(midMove);
    QCOMPARE(f.s.Hand(1, 1), other);
    QCOMPARE(f.s.Hand(0, 1), int16_t(20));
    QCOMPARE(f.s.PileCard, int16_t(3));
    QCOMPARE(f.s.Total, int16_t(10));
    QCOMPARE(f.s.CurrentPlayer, int16_t(2));
}

void MainWindowTest::illegalClickChangesNothing()
{
    TableFixture f;
    f.setPauses(false, false, false);
    f.startGame({LocalHuman, Computer});
    giveSeatOne(f, 7, 30); // an eight on 95 would pass 99
    f.s.Total = 95;
    const CardPicture pile = f.slot(PileSlot);
    const int16_t deckPos = f.s.DeckPos;
    QTest::mouseClick(f.w.picCard(FirstHandSlot), Qt::LeftButton);
    QTest::keyClick(&f.w, '1');
    QCOMPARE(f.s.Total, int16_t(95));
    QCOMPARE(f.s.Hand(0, 1), int16_t(7));
    QCOMPARE(f.slot(FirstHandSlot), CardPicture::face(7));
    QCOMPARE(f.slot(PileSlot), pile);
    QCOMPARE(f.s.DeckPos, deckPos);
    QCOMPARE(f.s.DeckTag, QStringLiteral("30"));
    QVERIFY(f.s.PileTag.isEmpty());
    QCOMPARE(f.s.CurrentPlayer, int16_t(1));
    // A click on the pile is no play either.
    QTest::mouseClick(f.w.picCard(PileSlot), Qt::LeftButton);
    QCOMPARE(f.s.Total, int16_t(95));
}

void MainWindowTest::resumeKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("keypad Enter") << int(Qt::Key_Enter);
    QTest::newRow("Esc") << int(Qt::Key_Escape);
}

void MainWindowTest::resumeKeys()
{
    QFETCH(int, key);
    TableFixture f;
    f.setPauses(true, false, false);
    f.w.show();
    f.w.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&f.w));
    bool shown = false;
    bool focused = false;
    QTimer::singleShot(0, &f.w, [&] {
        shown = !f.w.playArea()->cmdContinue()->isHidden();
        focused = f.w.playArea()->cmdScapeGoat()->hasFocus();
        QTest::keyClick(&f.w, static_cast<Qt::Key>(key));
    });
    // Seat 1 is announced and paused for; the key ends the pause and the command returns.
    f.startGame({LocalHuman, Computer});
    QVERIFY(shown);
    QVERIFY(focused);
    QVERIFY(!f.s.Pausing);
    QVERIFY(f.w.playArea()->cmdContinue()->isHidden());
    QCOMPARE(f.w.playArea()->message(), QStringLiteral("Player 1's Turn"));
    // Without "&Resume" showing the keys do nothing.
    QTest::keyClick(&f.w, static_cast<Qt::Key>(key));
    QCOMPARE(f.s.CurrentPlayer, int16_t(1));
}

void MainWindowTest::cardSizesScaleFromTheFirstBase()
{
    TableFixture f;
    f.w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.w));
    const Menus &m = f.w.menus();
    QTRY_VERIFY(m.mnuCSize(2)->isChecked());
    const int base = f.w.playArea()->width();

    f.w.mnuCSize_Click(1);
    QTRY_COMPARE(f.w.playArea()->width(), base / 2);
    QTRY_VERIFY(m.mnuCSize(1)->isChecked());
    QVERIFY(!m.mnuCSize(2)->isChecked());
    const int small = f.w.playArea()->width();

    f.w.mnuCSize_Click(4);
    QTRY_COMPARE(f.w.playArea()->width(), 4 * small);
    QTRY_VERIFY(m.mnuCSize(4)->isChecked());
    QVERIFY(!m.mnuCSize(1)->isChecked());
    QVERIFY(!m.mnuCSize(2)->isChecked());
    // The cards grew with the table.
    QCOMPARE(f.w.picDeck()->width(), f.w.playArea()->tableLayout().card.width());

    // A size reached by dragging the border leaves no size checked.
    f.w.resize(f.w.width() - 37, f.w.height() - 11);
    QTRY_VERIFY(!m.mnuCSize(4)->isChecked());
    QVERIFY(!m.mnuCSize(1)->isChecked() && !m.mnuCSize(2)->isChecked());

    f.w.mnuCSize_Click(2);
    QTRY_COMPARE(f.w.playArea()->width(), base);
    QTRY_VERIFY(m.mnuCSize(2)->isChecked());
}

void MainWindowTest::sizeCommandOutsideTheNormalStateDoesNothing_data()
{
    QTest::addColumn<Qt::WindowState>("state");
    QTest::newRow("maximised") << Qt::WindowMaximized;
    QTest::newRow("minimised") << Qt::WindowMinimized;
}

void MainWindowTest::sizeCommandOutsideTheNormalStateDoesNothing()
{
    QFETCH(Qt::WindowState, state);
    TableFixture f;
    f.w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.w));
    f.w.setWindowState(state);
    QTRY_VERIFY(f.w.windowState() & state);
    QTest::qWait(20);
    const QSize before = f.w.size();
    const bool marks[3] = {f.w.menus().mnuCSize(1)->isChecked(), f.w.menus().mnuCSize(2)->isChecked(),
                           f.w.menus().mnuCSize(4)->isChecked()};
    // Chosen from the menu, as a player does: not even the items' own marks change.
    for (int index : {1, 4, 2})
        f.w.menus().mnuCSize(index)->trigger();
    QTest::qWait(50);
    QCOMPARE(f.w.size(), before);
    QCOMPARE(f.w.menus().mnuCSize(1)->isChecked(), marks[0]);
    QCOMPARE(f.w.menus().mnuCSize(2)->isChecked(), marks[1]);
    QCOMPARE(f.w.menus().mnuCSize(4)->isChecked(), marks[2]);
}

void MainWindowTest::strikeWindowRidesTheRightEdge()
{
    TableFixture f;
    f.w.move(60, 40);
    f.w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.w));
    StrikesWindow *strikes = f.w.strikesWindow();
    QTRY_VERIFY(strikes->isVisible());
    auto beside = [&] { return QPoint(f.w.frameGeometry().right() + 1, f.w.frameGeometry().top()); };
    QTRY_COMPARE_WITH_TIMEOUT(strikes->pos(), beside(), 1000);
    f.w.move(300, 200);
    QTRY_COMPARE_WITH_TIMEOUT(strikes->pos(), beside(), 1000);
    f.w.mnuCSize_Click(1);
    QTRY_COMPARE_WITH_TIMEOUT(strikes->pos(), beside(), 1000);
    QCOMPARE(strikes->fontSize(), StrikesWindow::fontSizeFor(f.w.playArea()->size()));
    // It goes with a minimised main window and comes back with it.
    f.w.showMinimized();
    QTRY_VERIFY(!strikes->isVisible());
    f.w.showNormal();
    QTRY_VERIFY(strikes->isVisible());
    // Closed through the window manager, it comes back at the next resize or the next game.
    strikes->close();
    QVERIFY(!strikes->isVisible());
    f.w.mnuCSize_Click(2);
    QTRY_VERIFY(strikes->isVisible());
    strikes->close();
    f.setPauses(false, false, false);
    f.startGame({LocalHuman, Computer});
    QVERIFY(strikes->isVisible());
}

void MainWindowTest::exitWithoutAGameQuitsAtOnce()
{
    TableFixture f;
    f.w.mnuGExit_Click();
    QVERIFY(f.asked.isEmpty());
    QCOMPARE(f.quits, 1);
}

void MainWindowTest::exitDuringAGameAsks()
{
    TableFixture f;
    f.setPauses(false, false, false);
    f.startGame({LocalHuman, Computer});
    f.answer = false;
    f.w.mnuGExit_Click();
    QCOMPARE(f.asked, QStringList{QStringLiteral("Are you sure you want to quit?")});
    QCOMPARE(f.quits, 0);
    QCOMPARE(f.s.CurrentPlayer, int16_t(1));
    QVERIFY(f.w.picCard(FirstHandSlot)->showsCard());

    f.answer = true;
    f.w.mnuGExit_Click();
    QCOMPARE(f.asked.size(), 2);
    QCOMPARE(f.quits, 1);
    QVERIFY(f.w.waiter().released());
}

void MainWindowTest::exitWithCardsStillShownAsks()
{
    TableFixture f;
    // After a game the last cards may still lie in the hand: that counts as a game on the table.
    f.w.showFace(FirstHandSlot, 5);
    f.answer = false;
    f.w.mnuGExit_Click();
    QCOMPARE(f.asked.size(), 1);
    QCOMPARE(f.quits, 0);
}

void MainWindowTest::newGameDuringALocalGameAsksNothing()
{
    TableFixture f;
    f.setPauses(false, false, false);
    f.startGame({LocalHuman, Computer});
    const int16_t card = f.s.Hand(0, 1);
    f.cancelDialog = true;
    f.w.mnuGNew_Click();
    QVERIFY(f.asked.isEmpty());
    QCOMPARE(f.w.newGameDialog()->Tag, QStringLiteral("CANCEL"));
    QCOMPARE(f.s.CurrentPlayer, int16_t(1));
    QCOMPARE(f.s.Hand(0, 1), card);
    QCOMPARE(f.slot(FirstHandSlot), CardPicture::face(card));
}

void MainWindowTest::newGameDuringANetworkGameAsks()
{
    TableFixture f;
    f.s.NetMode = NetHostMode;
    f.answer = false;
    f.cancelDialog = true;
    f.w.mnuGNew_Click();
    QCOMPARE(f.asked, QStringList{QStringLiteral("Are you sure you want to end this network game?")});
    QCOMPARE(f.s.NetMode, int16_t(NetHostMode));

    f.answer = true;
    f.w.newGameDialog()->chkNetwork->setChecked(true);
    f.w.mnuGNew_Click();
    QCOMPARE(f.asked.size(), 2);
    QCOMPARE(f.s.NetMode, int16_t(LocalGame));
    QVERIFY(!f.w.newGameDialog()->chkNetwork->isChecked());
}

void MainWindowTest::wholeComputerGame_data()
{
    QTest::addColumn<int>("seats");
    QTest::addColumn<bool>("showMoves");
    QTest::addColumn<int>("frames");
    QTest::addColumn<bool>("onScreen");
    // Painting every frame of a long game costs more than the game: the long ones run unshown.
    QTest::newRow("2 seats, moves hidden") << 2 << false << 0 << true;
    QTest::newRow("4 seats, moves shown, animated") << 4 << true << 5 << true;
    QTest::newRow("10 seats, moves shown, animated") << 10 << true << 5 << false;
    QTest::newRow("10 seats, moves hidden") << 10 << false << 10 << false;
}

void MainWindowTest::wholeComputerGame()
{
    QFETCH(int, seats);
    QFETCH(bool, showMoves);
    QFETCH(int, frames);
    QFETCH(bool, onScreen);
    TableFixture f;
    f.setPauses(false, false, false);
    f.w.menus().mnuOShowComputer->setChecked(showMoves);
    f.s.Frames = static_cast<int16_t>(frames);
    if (onScreen)
        f.w.show();
    ResumePresser presser(f.w);

    NewGameDialog *d = f.w.newGameDialog();
    d->optPlayers[static_cast<size_t>(seats - 2)]->setChecked(true);
    d->optPlayers_Click(seats - 2);
    for (SeatBox *box : d->chkHuman)
        box->setValue(Computer);
    // The whole game runs inside the New command and ends on the table's idle state.
    f.w.mnuGNew_Click();

    QCOMPARE(f.s.CurrentPlayer, int16_t(0));
    QCOMPARE(f.s.NumPlayers, int16_t(0));
    QCOMPARE(f.s.Total, int16_t(-1));
    QCOMPARE(f.w.windowTitle(), QStringLiteral("Press 'F2' to begin"));
    QVERIFY(!f.w.picCard(FirstHandSlot)->showsCard());
    QVERIFY(!f.w.picCard(PileSlot)->showsCard());
    QVERIFY(f.w.picCard(0)->isHidden());
    QVERIFY(presser.presses >= 1); // the result waited for "&Resume"

    const QRegularExpression win(QStringLiteral("^Player (\\d+) wins!$"));
    const auto match = win.match(f.w.playArea()->message());
    QVERIFY2(match.hasMatch(), qPrintable(f.w.playArea()->message()));
    const int winner = match.captured(1).toInt();
    QVERIFY(winner >= 1 && winner <= seats);
    QCOMPARE(f.w.tally().gamesPlayed(), 1);
    QCOMPARE(f.w.tally().wins(QStringLiteral("Computer %1").arg(winner)), 1);
}

void MainWindowTest::takeOverHandsTheSeatToTheComputer()
{
    TableFixture f;
    f.setPauses(false, false, false);
    f.startGame({LocalHuman, Computer});
    ResumePresser presser(f.w);
    QVERIFY(f.w.menus().mnuGTakeOver->isEnabled());
    f.w.menus().mnuGTakeOver->trigger();
    // Both seats are the computer's now, so the game plays itself to the end.
    QCOMPARE(f.s.CurrentPlayer, int16_t(0));
    QCOMPARE(f.w.tally().gamesPlayed(), 1);
    QVERIFY(!f.w.menus().mnuGTakeOver->isEnabled());
}

void MainWindowTest::tallyFollowsItsMenuItem()
{
    TableFixture f;
    QVERIFY(f.w.playArea()->tallyShown());
    f.w.menus().mnuOScore->trigger();
    QVERIFY(!f.w.playArea()->tallyShown());
    f.w.menus().mnuOScore->trigger();
    QVERIFY(f.w.playArea()->tallyShown());
}

void MainWindowTest::backgroundColourDyesTheCloth()
{
    TableFixture f;
    QCOMPARE(f.w.backColor(), MainWindow::ButtonFaceColor);
    f.w.applyBackColor(12632256); // light grey
    QCOMPARE(f.w.backColor(), 12632256);
    QCOMPARE(f.w.playArea()->feltColor(), QColor(192, 192, 192));
    f.w.applyBackColor(0x00FF0080); // stored as 0x00BBGGRR
    QCOMPARE(f.w.playArea()->feltColor(), QColor(0x80, 0x00, 0xFF));
    // "Match Windows": the desktop's button face, light or dark, and it follows a change of scheme.
    const QPalette desktop = QApplication::palette();
    f.w.applyBackColor(MainWindow::ButtonFaceColor);
    QCOMPARE(f.w.playArea()->feltColor(), desktop.color(QPalette::Button));
    QPalette dark = desktop;
    dark.setColor(QPalette::Button, QColor(53, 53, 53));
    dark.setColor(QPalette::Window, QColor(45, 45, 45));
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    QCOMPARE(f.w.playArea()->feltColor(), QColor(53, 53, 53));
    QApplication::setPalette(desktop);
    QCoreApplication::processEvents();
    QCOMPARE(f.w.playArea()->feltColor(), desktop.color(QPalette::Button));
}

void MainWindowTest::cardBackNumberZeroIsTheFirstFile()
{
    QTemporaryDir dir;
    for (const auto &[name, colour] : {std::pair{"deckB.bmp", Qt::blue}, std::pair{"deckA.bmp", Qt::red}}) {
        QImage back(71, 96, QImage::Format_RGB32);
        back.fill(colour);
        QVERIFY(back.save(dir.filePath(QLatin1String(name)), "BMP"));
    }
    TableFixture f;
    f.w.cardBackChooser()->setFolder(dir.path());
    QCOMPARE(f.w.cardBackCount(), 2);
    auto middleOfTheStock = [&] {
        const QImage shown = f.w.picDeck()->grab().toImage();
        return shown.pixelColor(shown.width() / 2, shown.height() / 2);
    };
    f.w.setCardBack(0);
    QCOMPARE(middleOfTheStock(), QColor(Qt::red));
    f.w.setCardBack(1);
    QCOMPARE(middleOfTheStock(), QColor(Qt::blue));
}

QTEST_MAIN(MainWindowTest)
#include "tst_main_window.moc"
