#pragma once

#include "CardArt.h"
#include "GameState.h"
#include "Menus.h"
#include "OptionsTarget.h"
#include "RandomSource.h"
#include "ScoreTally.h"
#include "Table.h"
#include "TurnEngine.h"
#include "Waiter.h"

#include <QImage>
#include <QMainWindow>
#include <QStringList>

#include <array>
#include <functional>
#include <memory>

class QShortcut;
class QTimer;

namespace qx {

class AboutBox;
class CardAnimator;
class CardBackChooser;
class CardSlot;
class NetworkSession;
class NewGameDialog;
class OptionsCommands;
class OptionsStore;
class StrikesWindow;
class TableView;

// frmQX: the main window. It owns the game (state, random source, turn engine), the menus, the
// play area and the side windows, and wires them together: commands and clicks go to the engine,
// the engine shows its game through the Table interface, the options reach the window through
// OptionsTarget.
class MainWindow : public QMainWindow, public Table, public OptionsTarget {
    Q_OBJECT
public:
    // The stored value of the desktop's button-face colour ("Match Windows").
    static constexpr qint32 ButtonFaceColor = -2147483633;

    // `random` replaces the clock-seeded source (tests only: whole games that run in a few
    // milliseconds would otherwise reseed from the same clock reading again and again).
    explicit MainWindow(QWidget *parent = nullptr, RandomSource *random = nullptr);
    ~MainWindow() override;

    GameState &state() { return m_state; }
    TurnEngine &engine() { return *m_engine; }
    const Menus &menus() const { return m_menus; }
    TableView *playArea() const { return m_view; }
    // The dialog and the network session on its connections are made at the first New command.
    NewGameDialog *newGameDialog();
    NetworkSession *networkSession();
    StrikesWindow *strikesWindow() const { return m_strikes; }
    CardBackChooser *cardBackChooser();
    AboutBox *aboutBox();
    Waiter &waiter() { return m_waiter; }
    const ScoreTally &tally() const { return m_tally; }
    OptionsStore &optionsStore() { return *m_options; }
    OptionsCommands *optionsCommands() const { return m_optionCommands; }
    CardSlot *picCard(int index) const;
    CardSlot *picDeck() const;
    QTimer *tmrNetwork() const { return m_tmrNetwork; }
    // The Tag of tmrNetwork: a host's line that reached a guest before its game had started.
    QString &networkTag() { return m_networkTag; }
    // On a guest, the seat this copy plays.
    int NetSeat = 0;

    // Seams that a test replaces so that nothing waits for a person or ends the test program.
    // A Yes/No question with a question icon; true unless the answer is No.
    std::function<bool(const QString &text)> ask;
    // Shows frmNewGame modally (its Tag tells whether it was cancelled).
    std::function<void()> runNewGameDialog;
    // Ends the program at once.
    std::function<void()> quitProgram;
    // Seams for network play: a line from the host that a guest's game must replay when it
    // starts (NetworkGuest), and Take Over on a guest (disconnect from the host, end the game).
    std::function<void(const QString &line)> networkGuest;
    std::function<void()> guestTakeOver;
    // Plays the win sound ("CHEER.WAV" from the program's folder).
    std::function<void()> cheer;

    // Game menu and card-size commands.
    void mnuGNew_Click();
    void mnuGTakeOver_Click();
    void mnuGExit_Click();
    void mnuCSize_Click(int index);

    // Messages of the start (trouble with the settings file, values QX cannot use) wait until the
    // splash has gone: the first call shows them over this window; afterwards messages show at once.
    void showStartUpMessages();

    // The slots' clicks and the keys 1 to 3.
    void picCard_Click(int index);
    void Form_KeyPress(int keyAscii);
    void cmdContinue_Click();
    void tmrNetwork_Timer();

    // Table
    void showFace(int slot, int code) override;
    void showBack(int slot) override;
    void clearSlot(int slot) override;
    bool slotShowsCard(int slot) const override;
    void setCaption(const QString &text) override;
    QString caption() const override;
    void showMessage(const QString &text) override;
    void refresh() override;
    void refreshStrikeMarks() override;
    void pause(double seconds) override;
    void processEvents() override;
    void waitForResume(const std::function<bool()> &resumed) override;
    void hideResume() override;
    void waitUntil(const std::function<bool()> &done) override;
    void wake() override;
    void animateCardMove(int fromSlot, int toSlot) override;
    void animateCardFlip(int slot, int code) override;
    void beep() override;
    void playCheer() override;
    bool isChecked(Check option) const override;
    void setTakeOverEnabled(bool enabled) override;
    void setGuestMenusEnabled(bool enabled) override;
    void setNetworkTimer(bool enabled) override;
    bool networkTimerEnabled() const override;
    void hideWaitIndicator() override;

    // OptionsTarget
    QWidget *optionsWindow() override { return this; }
    void applyBackColor(qint32 value) override;
    qint32 backColor() const override { return m_backColor; }
    int cardBackCount() const override;
    void setCardBack(int number) override;
    void repaintTable() override;
    void abandonGame() override;
    void showCardBackChooser() override;
    void showAbout() override;
    bool askYesNo(const QString &text) override { return ask(text); }
    void showWarning(const QString &text) override;

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void connectMenus();
    void buildResumeKeys();
    // The settings of the start: the built-in options written as the "Default" section (before
    // the card size is set), then the player's "User" section (at the first activation).
    void saveDefaultsAtStart();
    void loadUserOptionsAtStart();
    void firstActivation();
    void placeOnDesktop();
    void endProgram();
    void noteWinner();
    bool inNormalState() const;
    // Shows the strike window beside a shown, not minimised main window, if it is not shown.
    void showStrikeWindow();
    CardSlot *slotOf(int slot) const;

    GameState m_state;
    ClockRandom m_random;
    std::unique_ptr<TurnEngine> m_engine;
    Waiter m_waiter;
    CardImages m_images;
    ScoreTally m_tally;
    Menus m_menus;
    std::unique_ptr<OptionsStore> m_options;
    OptionsCommands *m_optionCommands = nullptr;
    TableView *m_view = nullptr;
    std::unique_ptr<CardAnimator> m_animator;
    NewGameDialog *m_newGame = nullptr;
    NetworkSession *m_network = nullptr;
    StrikesWindow *m_strikes = nullptr;
    CardBackChooser *m_chooser = nullptr;
    AboutBox *m_about = nullptr;
    QTimer *m_tmrNetwork = nullptr;
    QString m_networkTag;
    std::array<QImage, 4> m_imgWait;
    int m_waitPicture = -1;
    std::array<QShortcut *, 3> m_resumeKeys{};
    qint32 m_backColor = ButtonFaceColor;
    unsigned m_talliedGame = ~0u;

    // Card size: the base measured the first time a size is chosen (pixels of the window and of
    // its play area), and the size the last size command asked for.
    int m_baseOuterWidth = 0;
    int m_horizontalBorder = 0;
    int m_baseOuterHeight = 0;
    int m_verticalBorder = 0;
    bool m_baseLayoutRecorded = false;
    QSize m_commandedSize;
    int m_commandedIndex = 0;

    bool m_activated = false;
    bool m_startedUp = false;
    QStringList m_startUpMessages;
    bool m_quitting = false;
};

} // namespace qx
