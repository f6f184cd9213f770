// The main window as the engine's Table and as the options' target.
#include "MainWindow.h"

#include "AboutBox.h"
#include "BackColor.h"
#include "Animation.h"
#include "CardBackChooser.h"
#include "CardSlot.h"
#include "OptionsCommands.h"
#include "SeatName.h"
#include "StrikesWindow.h"
#include "TableView.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

#include <utility>

namespace qx {

// ---- Card slots ----

void MainWindow::showFace(int slot, int code)
{
    slotOf(slot)->setPicture(CardPicture::face(code));
    m_view->stateChanged();
}

void MainWindow::showBack(int slot)
{
    slotOf(slot)->setPicture(CardPicture::back());
    m_view->stateChanged();
}

void MainWindow::clearSlot(int slot)
{
    slotOf(slot)->clearPicture();
    m_view->stateChanged();
}

bool MainWindow::slotShowsCard(int slot) const { return slotOf(slot)->showsCard(); }

// ---- Texts ----

void MainWindow::setCaption(const QString &text) { setWindowTitle(text); }

QString MainWindow::caption() const { return windowTitle(); }

void MainWindow::showMessage(const QString &text)
{
    noteWinner();
    m_view->setMessage(text);
}

void MainWindow::noteWinner()
{
    // A game has just been won when the turn has gone to nobody while the seats are still
    // there; the one seat still in play is the winner. Counted once a game.
    if (m_state.CurrentPlayer != 0 || m_state.NumPlayers < 2 || m_talliedGame == m_engine->gameSerial())
        return;
    int winner = 0;
    for (int seat = 1; seat <= m_state.NumPlayers; ++seat) {
        if (m_state.isOut(seat))
            continue;
        if (winner != 0)
            return;
        winner = seat;
    }
    if (winner == 0)
        return;
    m_talliedGame = m_engine->gameSerial();
    m_tally.recordWin(seatDisplayName(m_state, winner));
}

void MainWindow::refresh()
{
    m_view->setTallyShown(m_menus.mnuOScore->isChecked());
    m_view->stateChanged();
}

void MainWindow::refreshStrikeMarks() { m_strikes->RefreshStrikeMarks(); }

// ---- Waiting ----

void MainWindow::pause(double seconds) { m_waiter.pause(seconds); }

void MainWindow::processEvents()
{
    if (!m_waiter.released())
        QCoreApplication::processEvents();
}

void MainWindow::waitForResume(const std::function<bool()> &resumed)
{
    QPushButton *resume = m_view->cmdContinue();
    resume->show();
    resume->raise();
    for (QShortcut *key : m_resumeKeys)
        key->setEnabled(true);
    m_view->cmdScapeGoat()->setFocus();
    m_view->stateChanged();
    m_waiter.waitUntil(resumed);
    refresh();
}

void MainWindow::hideResume()
{
    m_view->cmdContinue()->hide();
    for (QShortcut *key : m_resumeKeys)
        key->setEnabled(false);
}

void MainWindow::waitUntil(const std::function<bool()> &done) { m_waiter.waitUntil(done); }

void MainWindow::wake()
{
    m_view->stateChanged();
    m_waiter.wake();
}

// ---- Animations and sounds ----

void MainWindow::animateCardMove(int fromSlot, int toSlot)
{
    m_animator->AnimateCardMove(*slotOf(fromSlot), *slotOf(toSlot));
    m_view->stateChanged();
}

void MainWindow::animateCardFlip(int slot, int code)
{
    m_animator->AnimateCardFlip(*slotOf(slot), code);
    m_view->stateChanged();
}

void MainWindow::beep() { QApplication::beep(); }

void MainWindow::playCheer()
{
    if (cheer)
        cheer();
}

// ---- Menus ----

bool MainWindow::isChecked(Check option) const
{
    switch (option) {
    case Check::Sound: return m_menus.mnuOSound->isChecked();
    case Check::TallyScore: return m_menus.mnuOScore->isChecked();
    case Check::ShowComputerMoves: return m_menus.mnuOShowComputer->isChecked();
    case Check::PauseBeforeHumans: return m_menus.mnuOPSelect[0]->isChecked();
    case Check::PauseBeforeComputers: return m_menus.mnuOPSelect[1]->isChecked();
    case Check::PauseAfterStrikes: return m_menus.mnuOPSelect[2]->isChecked();
    }
    return false;
}

void MainWindow::setTakeOverEnabled(bool enabled) { m_menus.mnuGTakeOver->setEnabled(enabled); }

void MainWindow::setGuestMenusEnabled(bool enabled) { m_optionCommands->setGuestMenusEnabled(enabled); }

// ---- Network waiting indicator ----

void MainWindow::setNetworkTimer(bool enabled)
{
    if (enabled)
        m_tmrNetwork->start();
    else
        m_tmrNetwork->stop();
}

bool MainWindow::networkTimerEnabled() const { return m_tmrNetwork->isActive(); }

void MainWindow::hideWaitIndicator() { m_view->picWait()->hide(); }

// ---- Options ----

void MainWindow::applyBackColor(qint32 value)
{
    m_backColor = value;
    const QColor color = BackColor::toQColor(value);
    // The play area covers the whole client area, so the window's own palette is left alone: the
    // menus and the dialogs, its children, keep the desktop's colours.
    // Every colour dyes the cloth, the desktop's button face ("Match Windows") too; the cloth
    // keeps its shading and the table's marks take the ink that reads on it.
    m_view->setFeltColor(color);
    m_strikes->setBackColor(color);
    QPalette button = m_view->cmdContinue()->palette();
    button.setColor(QPalette::Button, color);
    m_view->cmdContinue()->setPalette(button);
}

int MainWindow::cardBackCount() const
{
    return const_cast<MainWindow *>(this)->cardBackChooser()->count();
}

void MainWindow::setCardBack(int number)
{
    CardBackChooser *chooser = cardBackChooser();
    // Without back files the built-in back stands alone, drawn at each size rather than scaled.
    const QImage picture = chooser->picture(number);
    m_images.setBackPicture(chooser->fileNames().isEmpty() ? QImage() : picture.isNull() ? chooser->picture(0) : picture);
    m_state.CardBack = static_cast<int16_t>(number);
    for (int i = 0; i <= DeckSlot; ++i)
        m_view->slot(i)->update();
}

void MainWindow::repaintTable() { refresh(); }

void MainWindow::abandonGame()
{
    m_engine->AbandonGame();
    refreshStrikeMarks();
}

void MainWindow::showWarning(const QString &text)
{
    if (!m_startedUp) {
        m_startUpMessages.append(text);
        return;
    }
    OptionsTarget::showWarning(text);
}

void MainWindow::showStartUpMessages()
{
    if (m_startedUp)
        return;
    m_startedUp = true;
    for (const QString &text : std::exchange(m_startUpMessages, {}))
        OptionsTarget::showWarning(text);
}

void MainWindow::showCardBackChooser() { cardBackChooser()->exec(); }

void MainWindow::showAbout() { aboutBox()->exec(); }

} // namespace qx
