#include "MainWindow.h"

#include "GameTexts.h"
#include "AboutBox.h"
#include "Animation.h"
#include "CardBackChooser.h"
#include "CardSlot.h"
#include "Netpbm.h"
#include "NetworkSession.h"
#include "NewGameDialog.h"
#include "OptionsCommands.h"
#include "OptionsStore.h"
#include "Reg.h"
#include "Sound.h"
#include "StrikesWindow.h"
#include "TableView.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QResizeEvent>
#include <QScreen>
#include <QShortcut>
#include <QTimer>

namespace qx {

namespace {
// Room for a window manager's title bar and borders round the window.
constexpr QSize WindowFrameAllowance(12, 40);

} // namespace

MainWindow::MainWindow(QWidget *parent, RandomSource *random) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("frmQX"));
    // The build draws the window icon beside the program; drawing it here is the fallback.
    const QImage icon = Netpbm::read(QCoreApplication::applicationDirPath() + QStringLiteral("/qxicon.pam"));
    setWindowIcon(QPixmap::fromImage(icon.isNull() ? CardArt::renderAppIcon(CardArt::WindowIconSize) : icon));

    m_engine = std::make_unique<TurnEngine>(m_state, *this, random ? *random : m_random);
    m_menus = buildMenus(menuBar());

    m_view = new TableView(m_state, m_images, this);
    m_view->setTally(&m_tally);
    setCentralWidget(m_view);
    m_animator = std::make_unique<CardAnimator>(m_state, *picCard(0), *picDeck(), m_waiter);
    picDeck()->setPicture(CardPicture::back());
    for (int i = PileSlot; i <= FirstHandSlot + 2; ++i)
        connect(picCard(i), &CardSlot::clicked, this, &MainWindow::picCard_Click);
    connect(m_view->cmdContinue(), &QPushButton::clicked, this, &MainWindow::cmdContinue_Click);
    buildResumeKeys();

    m_tmrNetwork = new QTimer(this);
    m_tmrNetwork->setObjectName(QStringLiteral("tmrNetwork"));
    m_tmrNetwork->setInterval(1000);
    connect(m_tmrNetwork, &QTimer::timeout, this, &MainWindow::tmrNetwork_Timer);

    m_strikes = new StrikesWindow(m_state, this, m_view);
    // The built-in colour, "Match Windows": the desktop's own, until the settings say otherwise.
    applyBackColor(m_backColor);

    ask = [this](const QString &text) {
        return QMessageBox::question(this, QStringLiteral("QX"), text, QMessageBox::Yes | QMessageBox::No)
               != QMessageBox::No;
    };
    runNewGameDialog = [this] {
        NewGameDialog *dialog = newGameDialog();
        // The keyboard starts on the seat count chosen last: the arrow keys change it at once.
        dialog->optPlayers[static_cast<size_t>(dialog->playersIndex())]->setFocus();
        dialog->runModal();
    };
    quitProgram = [] { QCoreApplication::quit(); };
    networkGuest = [this](const QString &line) { networkSession()->NetworkGuest(line); };
    guestTakeOver = [this] { networkSession()->guestTakeOver(); };
    cheer = [] { PlaySnd(QStringLiteral("CHEER.WAV"), 1); };

    m_options = std::make_unique<OptionsStore>(m_menus, m_state, *this);
    m_optionCommands = new OptionsCommands(m_menus, m_state, *this, *m_options, this);
    connectMenus();

    // The load: the game's start values, the settings, the card size, then the first activation.
    m_state.Frames = 10;
    m_state.NumberOfDecks = 1;
    m_menus.mnuGTakeOver->setEnabled(false);
    setCaption(GameTexts::idleCaption());
    // "&Large" doubles the play area: the first size leaves it room on the desktop. The frame is
    // not known before the window is shown; WindowFrameAllowance stands for it.
    const int menuHeight = menuBar()->sizeHint().height();
    const QSize available = screen() ? screen()->availableGeometry().size() : QSize(1600, 1000);
    const QSize area = TableLayout::startArea(available, WindowFrameAllowance + QSize(0, menuHeight));
    resize(area.width(), area.height() + menuHeight);
    placeOnDesktop();
    saveDefaultsAtStart();
    mnuCSize_Click(2);
    firstActivation();
    m_view->cmdScapeGoat()->setFocus();
}

MainWindow::~MainWindow() = default;

void MainWindow::connectMenus()
{
    connect(m_menus.mnuGNew, &QAction::triggered, this, &MainWindow::mnuGNew_Click);
    connect(m_menus.mnuGTakeOver, &QAction::triggered, this, &MainWindow::mnuGTakeOver_Click);
    connect(m_menus.mnuGExit, &QAction::triggered, this, &MainWindow::mnuGExit_Click);
    for (QAction *item : m_menus.sizeItems) {
        const int index = item->data().toInt();
        connect(item, &QAction::triggered, this, [this, item, index] {
            // Qt has already toggled the item's mark; the command alone decides the marks.
            item->setChecked(!item->isChecked());
            mnuCSize_Click(index);
        });
    }
}

void MainWindow::buildResumeKeys()
{
    // Enter and Esc press "&Resume" while it shows, as a dialog's default and cancel button.
    const QKeySequence keys[] = {QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter),
                                 QKeySequence(Qt::Key_Escape)};
    for (size_t i = 0; i < m_resumeKeys.size(); ++i) {
        m_resumeKeys[i] = new QShortcut(keys[i], this);
        m_resumeKeys[i]->setEnabled(false);
        connect(m_resumeKeys[i], &QShortcut::activated, m_view->cmdContinue(), &QPushButton::click);
    }
}

void MainWindow::placeOnDesktop()
{
    // The window system would choose the first place only once the window is shown, after the
    // "Default" section has been written; QX chooses it itself, the middle of the desktop, so
    // that "Default" holds where the window really opens. (The frame is not known yet.)
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    QRect place(QPoint(), size());
    place.moveCenter(screen->availableGeometry().center());
    move(place.topLeft());
}

void MainWindow::saveDefaultsAtStart()
{
    SetRegApp(QStringLiteral("Brackenfall\\QX"));
    const RegFault fault = m_options->SaveOptions(QLatin1String(DefaultSection));
    // A file that cannot be read is told once, by the load of the "User" section that follows.
    if (fault.kind == RegFault::CannotWrite)
        showWarning(OptionsStore::faultText(fault, OptionsStore::AtStart));
}

void MainWindow::loadUserOptionsAtStart()
{
    const RegFault fault = m_options->LoadOptions(QLatin1String(UserSection));
    if (fault.kind != RegFault::None)
        showWarning(OptionsStore::faultText(fault, OptionsStore::AtStart));
}

void MainWindow::firstActivation()
{
    if (m_activated)
        return;
    m_activated = true;
    if (QLayout *l = layout())
        l->activate();
    // The table's first layout (the resize handling) records the base and checks Medium before
    // the "User" section may change the size; a hidden window's own resize event would come only
    // when it is shown, after the load.
    QResizeEvent laidOut(size(), size());
    resizeEvent(&laidOut);
    loadUserOptionsAtStart();
}

CardBackChooser *MainWindow::cardBackChooser()
{
    if (!m_chooser) {
        m_chooser = new CardBackChooser(this);
        connect(m_chooser, &CardBackChooser::chosen, this, &MainWindow::setCardBack);
    }
    return m_chooser;
}

AboutBox *MainWindow::aboutBox()
{
    if (!m_about)
        m_about = new AboutBox(this);
    return m_about;
}

CardSlot *MainWindow::picCard(int index) const
{
    checkIndex(index >= 0 && index <= FirstHandSlot + 2, "picCard", index);
    return m_view->slot(index);
}

NewGameDialog *MainWindow::newGameDialog()
{
    if (!m_newGame) {
        m_newGame = new NewGameDialog(this);
        // Network play: the game lines on the New Game dialog's connections.
        m_network = new NetworkSession(*m_engine, *this, *m_newGame, this);
        m_network->setParkedLine(&m_networkTag);
        m_network->setGuestSeat(&NetSeat);
    }
    return m_newGame;
}

NetworkSession *MainWindow::networkSession()
{
    newGameDialog();
    return m_network;
}

CardSlot *MainWindow::picDeck() const { return m_view->slot(DeckSlot); }

CardSlot *MainWindow::slotOf(int slot) const { return m_view->slot(slot); }

// ---- Game menu ----

void MainWindow::mnuGNew_Click()
{
    if (m_state.NetMode != LocalGame) {
        if (!ask(tr("Are you sure you want to end this network game?")))
            return;
        // Cancel ends the network session; the dialog's own Tag is not the answer here.
        newGameDialog()->cmdCancel->click();
        newGameDialog()->Tag.clear();
        m_state.NetMode = LocalGame;
    }
    m_networkTag.clear();
    newGameDialog()->setNumberOfDecks(m_state.NumberOfDecks);
    runNewGameDialog();
    if (newGameDialog()->Tag == QLatin1String("CANCEL"))
        return;

    // A strike window the player closed comes back with the new game.
    showStrikeWindow();
    const NewGameSetup setup = newGameDialog()->setup();
    if (setup.netMode == NetGuestMode) {
        // This copy's seat: the highest seat that is not the computer's.
        for (int seat = 1; seat <= MaxSeats; ++seat)
            if (setup.seats[static_cast<size_t>(seat - 1)].type != Computer)
                NetSeat = seat;
    }
    m_engine->StartNewGame(setup);
    refreshStrikeMarks();
    if (setup.netMode == NetGuestMode) {
        setNetworkTimer(true);
        if (!m_networkTag.isEmpty()) {
            const QString line = m_networkTag;
            m_networkTag.clear();
            if (networkGuest)
                networkGuest(line);
        }
    }
}

void MainWindow::mnuGTakeOver_Click()
{
    if (m_state.NetMode != NetGuestMode) {
        m_engine->TakeOver();
        return;
    }
    const int seat = m_state.CurrentPlayer;
    if (seat >= 1 && seat <= MaxSeats && m_state.PlayerType(seat) != Computer && guestTakeOver)
        guestTakeOver();
}

void MainWindow::mnuGExit_Click()
{
    if (!picCard(FirstHandSlot)->showsCard() && m_state.CurrentPlayer < 1) {
        endProgram();
        return;
    }
    if (ask(tr("Are you sure you want to quit?")))
        endProgram();
}

void MainWindow::endProgram()
{
    m_quitting = true;
    // Whatever waits underneath this command must find its game gone and stop at once.
    m_engine->AbandonGame();
    m_waiter.release();
    m_strikes->hide();
    hide();
    quitProgram();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    // The close box goes through Exit; any other close (the session ending) ends at once.
    if (m_quitting || !event->spontaneous()) {
        m_quitting = true;
        m_waiter.release();
        event->accept();
        return;
    }
    event->ignore();
    mnuGExit_Click();
}

// ---- Card size ----

bool MainWindow::inNormalState() const
{
    return !(windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
}

void MainWindow::mnuCSize_Click(int index)
{
    if (!inNormalState())
        return;
    if (m_baseOuterWidth == 0) {
        if (QLayout *l = layout())
            l->activate();
        m_baseOuterWidth = width();
        m_horizontalBorder = width() - m_view->width();
        m_baseOuterHeight = height();
        m_verticalBorder = height() - m_view->height();
    }
    const int w = m_horizontalBorder + qRound((m_baseOuterWidth - m_horizontalBorder) * index / 2.0);
    const int h = m_verticalBorder + qRound((m_baseOuterHeight - m_verticalBorder) * index / 2.0);
    m_commandedSize = QSize(w, h);
    m_commandedIndex = index;
    resize(w, h);
    if (QAction *item = m_menus.mnuCSize(index))
        item->setChecked(true);
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    // A strike window closed through the window manager comes back at the next resize.
    showStrikeWindow();
    if (!inNormalState())
        return;
    // The marks tell only which command last set the size: any other resize clears them.
    for (QAction *item : m_menus.sizeItems)
        item->setChecked(false);
    if (!m_baseLayoutRecorded) {
        m_baseLayoutRecorded = true;
        m_menus.mnuCSize(2)->setChecked(true);
    }
    if (m_commandedSize.isValid()) {
        if (size() == m_commandedSize)
            m_menus.mnuCSize(m_commandedIndex)->setChecked(true);
        else
            m_commandedSize = QSize();
    }
    if (m_strikes->isVisible())
        refreshStrikeMarks();
}

void MainWindow::showStrikeWindow()
{
    if (!isVisible() || isMinimized() || m_quitting || m_strikes->isVisible())
        return;
    refreshStrikeMarks();
    m_strikes->show();
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    // "Match Windows" follows the desktop's colour scheme when it changes.
    const bool newScheme = event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::PaletteChange;
    if (newScheme && (quint32(m_backColor) & 0x80000000u))
        applyBackColor(m_backColor);
    if (event->type() != QEvent::WindowStateChange)
        return;
    // The strike marks go away with a minimised window and come back with it.
    if (isMinimized())
        m_strikes->hide();
    else if (isVisible() && !m_quitting)
        m_strikes->show();
}

void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (!isMinimized() && !m_quitting) {
        refreshStrikeMarks();
        m_strikes->show();
    }
}

// ---- Cards and keys ----

void MainWindow::picCard_Click(int index) { m_engine->picCard_Click(index); }

void MainWindow::Form_KeyPress(int keyAscii)
{
    // Outside a game there is no seat whose keys these could be.
    if (m_state.CurrentPlayer < 1 || m_state.CurrentPlayer > MaxSeats)
        return;
    m_engine->Form_KeyPress(keyAscii);
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    const QString text = event->text();
    if (text.size() == 1 && text[0] >= QLatin1Char('1') && text[0] <= QLatin1Char('3')) {
        Form_KeyPress(text[0].unicode());
        return;
    }
    QMainWindow::keyPressEvent(event);
}

void MainWindow::cmdContinue_Click()
{
    m_engine->cmdContinue_Click();
    m_waiter.wake();
}

void MainWindow::tmrNetwork_Timer()
{
    if (m_state.Pausing)
        return;
    QLabel *wait = m_view->picWait();
    if (!wait->isVisible()) {
        wait->show();
        m_waitPicture = -1;
    }
    if (++m_waitPicture > 3)
        m_waitPicture = 0;
    // Drawn on first use: most games never wait for the network.
    QImage &picture = m_imgWait[static_cast<size_t>(m_waitPicture)];
    if (picture.isNull())
        picture = CardArt::renderWaitPicture(m_waitPicture, QSize(64, 64));
    wait->setPixmap(QPixmap::fromImage(m_imgWait[static_cast<size_t>(m_waitPicture)]));
}

} // namespace qx
