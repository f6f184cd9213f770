// A copy of QX operated by a robot player, for network games played end to end between separate
// processes. It builds the program's real main window and works it as a person would: F2, the New
// Game dialog's own controls (Network Play, Host or Guest, the host's address, a seat, the
// buttons), a click on a playable card whenever its seat is to move, "&Resume" whenever it shows,
// and OK on every message box, whose text it notes. After each game it prints one line
//   QXGAME {"role":..., "winner":n, "strikes":[...], "messages":[...], ...}
// and after its last game (or on giving up) the same as QXRESULT {...}; along the way it prints
// QXPORT n (a host, each time it listens) and QXEVENT lines (its own moves).
//
// Options: --role host|guest, --players n (host), --seat n (the seat this copy plays, 1-based),
// --guests n (host: start once n guests hold seats), --host address (guest), --name text (the
// guest's computer name), --pick (guest: choose the host from the New Game dialog's list of games
// on the LAN instead of typing its address), --lan (host: listen on every address, not only the
// loopback), --games n (games in a row; each one starts again with F2 and the
// lobby, as a person would), --time-scale x (the Waiter's), --timeout seconds.
// The port comes from QX_PORT (0 lets a host take any free port); QX_ANNOUNCE_VERSION makes a
// guest announce another version.

#include "CardSlot.h"
#include "MainWindow.h"
#include "NetHost.h"
#include "NewGameDialog.h"
#include "TableView.h"
#include "Waiter.h"

#include <QAction>
#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <cstdio>
#include <functional>

using namespace qx;

namespace {

struct Options {
    bool host = true;
    int players = 4;
    int seat = 1;
    int guests = 0;
    QString hostAddress = QStringLiteral("127.0.0.1");
    bool pick = false;
    bool lan = false;
    QString name;
    int games = 1;
    double timeScale = 0.01;
    int timeoutSeconds = 45;
};

void say(const QString &line)
{
    std::fputs(qPrintable(line + QLatin1Char('\n')), stdout);
    std::fflush(stdout);
}

class Robot : public QObject {
public:
    Robot(MainWindow &w, const Options &o) : m_w(w), m_d(*w.newGameDialog()), m_o(o)
    {
        m_clock.start();
        qApp->installEventFilter(this);
        connect(&m_poll, &QTimer::timeout, this, &Robot::step);
        m_poll.start(10);
    }

    void begin()
    {
        m_sawDialog = false;
        m_networkChosen = false;
        m_started = false;
        m_gameSeen = false;
        m_connectedAt.invalidate();
        m_askedAt.invalidate();
        m_retryAt.invalidate();
        m_pickedAt.invalidate();
        m_messagesBeforeGame = int(m_messages.size());
        m_players = 0;
        m_strikes.fill(0);
        prepareOptions();
        // F2, as a person starts a game; the New command runs the dialog and then the game
        // inside this call.
        m_w.activateWindow();
        QTest::keyClick(&m_w, Qt::Key_F2);
        if (!m_sawDialog)
            m_w.menus().mnuGNew->trigger(); // the key did not reach the menu: the menu item then
    }

private:
    // Pauses off, no animation, no sound: the menu items a player would use to speed a game up.
    void prepareOptions()
    {
        const Menus &m = m_w.menus();
        for (QAction *pause : m.mnuOPSelect)
            if (pause->isChecked())
                pause->trigger();
        if (m.mnuOSound->isChecked())
            m.mnuOSound->trigger();
        if (QAction *none = m.mnuOASpeed(0))
            none->trigger();
    }

    void step()
    {
        if (m_inStep)
            return;
        m_inStep = true;
        dismissMessageBoxes();
        if (m_clock.elapsed() > qint64(m_o.timeoutSeconds) * 1000)
            finish(false, QStringLiteral("timeout"));
        else if (m_d.isVisible())
            lobbyStep();
        else if (m_started)
            gameStep();
        m_inStep = false;
    }

    // Clicks that start the game's work run from the event loop, not inside this robot's poll:
    // the game they start runs nested waits in which the robot must keep playing.
    void act(std::function<void()> action)
    {
        if (m_actionPending)
            return;
        m_actionPending = true;
        QTimer::singleShot(0, this, [this, action] {
            m_actionPending = false;
            action();
        });
    }

    // Message boxes are noted in the order they appear, and each is answered with OK.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            if (auto *box = qobject_cast<QMessageBox *>(watched))
                note(box);
        return false;
    }

    void note(QMessageBox *box)
    {
        if (m_dismissed.contains(box))
            return;
        m_dismissed << box;
        // A box is deleted when closed; another may later be born at the same address.
        connect(box, &QObject::destroyed, this, [this, box] { m_dismissed.remove(box); });
        m_messages << box->text();
        say(QStringLiteral("QXEVENT message ") + box->text());
        QTimer::singleShot(0, box, [box] {
            if (QAbstractButton *ok = box->button(QMessageBox::Ok))
                ok->click();
            else
                box->close();
        });
    }

    void dismissMessageBoxes()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows)
            if (auto *box = qobject_cast<QMessageBox *>(window); box && box->isVisible())
                note(box);
    }

    // ---- The New Game dialog ----

    void lobbyStep()
    {
        m_sawDialog = true;
        if (m_o.host)
            hostLobby();
        else
            guestLobby();
    }

    void setSeats()
    {
        m_d.optPlayers[static_cast<size_t>(m_o.players - 2)]->click();
        for (int i = 0; i < MaxSeats; ++i) {
            SeatBox *box = m_d.chkHuman[static_cast<size_t>(i)];
            const int wanted = i == m_o.seat - 1 ? LocalHuman : Computer;
            if (box->isEnabled() && box->value() != wanted && box->value() != RemoteHuman)
                box->click();
        }
    }

    void hostLobby()
    {
        if (!m_networkChosen) {
            m_networkChosen = true;
            if (!m_o.lan)
                m_d.Host->setListenAddress(QHostAddress::LocalHost);
            setSeats();
            m_d.chkNetwork->click();
            if (!m_d.optHost->isChecked())
                m_d.optHost->click();
            if (!m_d.Host->Hosting()) {
                finish(false, QStringLiteral("cannot host"));
                return;
            }
            say(QStringLiteral("QXPORT %1").arg(m_d.Host->listeningPort()));
            return;
        }
        int seated = 0;
        for (int i = 0; i < MaxSeats; ++i)
            seated += m_d.seatValue(i) == RemoteHuman ? 1 : 0;
        if (seated >= m_o.guests) {
            m_started = true;
            startPlaying();
            act([this] { m_d.cmdOK->click(); });
        }
    }

    void guestLobby()
    {
        if (!m_networkChosen) {
            m_networkChosen = true;
            // A person waits out the five-second retry; the robot has no time for that.
            m_d.tmrCheck->setInterval(50);
            if (!m_o.name.isEmpty())
                m_d.setComputerName(m_o.name);
            const QByteArray version = qgetenv("QX_ANNOUNCE_VERSION");
            if (!version.isEmpty())
                m_d.setAnnouncedVersion(QString::fromLatin1(version));
            m_d.optGuest->click();
            m_d.chkNetwork->click();
            // The box keeps the last game's address: select it all and type over it (or, when
            // the host is to be picked from the list, clear it).
            m_d.txtHost->selectAll();
            if (m_o.pick)
                QTest::keyClick(m_d.txtHost, Qt::Key_Delete);
            else
                QTest::keyClicks(m_d.txtHost, m_o.hostAddress);
            return;
        }
        if (!m_d.chkNetwork->isChecked()) {
            // Turned away, or the lobby closed without us: nothing more to do here.
            if (m_messages.size() > m_messagesBeforeGame) {
                act([this] {
                    m_d.cmdCancel->click();
                    finish(true, QStringLiteral("left the lobby"));
                });
                return;
            }
            // The host is not listening yet (it may still be closing its last game): tick Network
            // Play again a moment later, as a person would.
            if (!m_retryAt.isValid()) {
                m_retryAt.start();
            } else if (m_retryAt.elapsed() > 200) {
                m_retryAt.invalidate();
                m_d.chkNetwork->click();
            }
            return;
        }
        // Until the choice has filled "Host's Name/IP:", look at the list again now and then.
        if (m_o.pick && m_d.txtHost->text().isEmpty()) {
            if (!m_pickedAt.isValid() || m_pickedAt.elapsed() > 300)
                pickListedHost();
            return;
        }
        const QString status = m_d.lblStatus->text();
        const bool connected = status == QStringLiteral("Connection Established") || status == QStringLiteral("Connected");
        if (!connected || !m_d.cmdOK->isEnabled())
            return;
        // Wait a moment for the host's news of taken seats, then ask for ours (or the first free one).
        if (!m_connectedAt.isValid()) {
            m_connectedAt.start();
            return;
        }
        if (m_connectedAt.elapsed() < 100 || (m_askedAt.isValid() && m_askedAt.elapsed() < 300))
            return;
        int want = m_o.seat - 1;
        if (!m_d.chkHuman[static_cast<size_t>(want)]->isEnabled()) {
            want = -1;
            for (int i = 0; i < MaxSeats && want < 0; ++i)
                if (m_d.chkHuman[static_cast<size_t>(i)]->isEnabled())
                    want = i;
            if (want < 0)
                return;
        }
        for (int i = 0; i < MaxSeats; ++i) {
            SeatBox *box = m_d.chkHuman[static_cast<size_t>(i)];
            if (box->isEnabled() && (box->value() == LocalHuman) != (i == want))
                box->click();
        }
        m_askedAt.start();
        m_started = true;
        startPlaying();
        act([this] { m_d.cmdOK->click(); });
    }

    // A click on the first host in the list that may be chosen, once the list shows one.
    void pickListedHost()
    {
        QTreeWidget *list = m_d.lstHosts;
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            QTreeWidgetItem *item = list->topLevelItem(row);
            if (!item->flags().testFlag(Qt::ItemIsEnabled))
                continue;
            m_pickedAt.start();
            say(QStringLiteral("QXEVENT picked ") + item->text(0) + QLatin1Char(' ') + item->text(1));
            const QRect where = list->visualItemRect(item);
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, where.center());
            return;
        }
    }

    // ---- The game ----

    void startPlaying() { m_gameSeen = false; }

    void gameStep()
    {
        const GameState &s = m_w.state();
        if (s.NumPlayers > 0) {
            m_gameSeen = true;
            m_players = s.NumPlayers;
            for (int seat = 1; seat <= m_players; ++seat)
                m_strikes[static_cast<size_t>(seat)] = s.Strikes(seat);
        }
        QPushButton *resume = m_w.playArea()->cmdContinue();
        if (resume->isVisible()) {
            act([resume] {
                if (resume->isVisible())
                    resume->click();
            });
            return;
        }
        if (m_gameSeen && s.NetMode == LocalGame && s.CurrentPlayer == 0 && s.NumPlayers == 0) {
            gameOver();
            return;
        }
        if (m_w.playArea()->humanMayPlay())
            act([this] { playACard(); });
    }

    void playACard()
    {
        if (!m_w.playArea()->humanMayPlay())
            return;
        const GameState &s = m_w.state();
        const int seat = s.CurrentPlayer;
        for (int slot = 0; slot < 3; ++slot) {
            if (!m_w.engine().isLegal(s.Hand(slot, seat)))
                continue;
            ++m_moves;
            say(QStringLiteral("QXEVENT moved %1").arg(m_moves));
            CardSlot *card = m_w.picCard(FirstHandSlot + slot);
            QTest::mouseClick(card, Qt::LeftButton, {}, card->rect().center());
            return;
        }
    }

    void gameOver()
    {
        if (++m_gamesPlayed >= m_o.games) {
            finish(true, QStringLiteral("game over"));
            return;
        }
        say(QStringLiteral("QXGAME ") + resultJson(true, QStringLiteral("game over")));
        m_started = false;
        act([this] { begin(); });
    }

    void finish(bool finished, const QString &why)
    {
        if (m_done)
            return;
        m_done = true;
        dismissMessageBoxes();
        const QString result = resultJson(finished, why);
        if (finished && m_gameSeen)
            say(QStringLiteral("QXGAME ") + result);
        say(QStringLiteral("QXRESULT ") + result);
        // Whatever wait the game sits in ends, and the program with it.
        m_w.waiter().release();
        QCoreApplication::exit(finished ? 0 : 2);
    }

    QString resultJson(bool finished, const QString &why)
    {
        const GameState &s = m_w.state();
        for (int seat = 1; seat <= m_players; ++seat)
            m_strikes[static_cast<size_t>(seat)] = s.Strikes(seat);
        int winner = 0;
        int inPlay = 0;
        QJsonArray strikes;
        for (int seat = 1; seat <= m_players; ++seat) {
            const int n = m_strikes[static_cast<size_t>(seat)];
            strikes.append(n);
            if (n < StrikesOut) {
                winner = seat;
                ++inPlay;
            }
        }
        QJsonObject result;
        result[QStringLiteral("role")] = m_o.host ? QStringLiteral("host") : QStringLiteral("guest");
        result[QStringLiteral("name")] = m_o.name;
        result[QStringLiteral("seat")] = m_o.host ? m_o.seat : m_w.NetSeat;
        result[QStringLiteral("finished")] = finished;
        result[QStringLiteral("why")] = why;
        result[QStringLiteral("played")] = m_gameSeen;
        result[QStringLiteral("players")] = m_players;
        result[QStringLiteral("winner")] = inPlay == 1 ? winner : 0;
        result[QStringLiteral("strikes")] = strikes;
        result[QStringLiteral("messages")] = QJsonArray::fromStringList(m_messages.mid(m_messagesBeforeGame));
        result[QStringLiteral("moves")] = m_moves;
        result[QStringLiteral("game")] = m_gamesPlayed;
        return QString::fromUtf8(QJsonDocument(result).toJson(QJsonDocument::Compact));
    }

    MainWindow &m_w;
    NewGameDialog &m_d;
    Options m_o;
    QTimer m_poll;
    QElapsedTimer m_clock;
    QElapsedTimer m_connectedAt;
    QElapsedTimer m_askedAt;
    QElapsedTimer m_retryAt;
    QElapsedTimer m_pickedAt;
    QSet<QMessageBox *> m_dismissed;
    QStringList m_messages;
    std::array<int, MaxSeats + 1> m_strikes{};
    int m_players = 0;
    int m_moves = 0;
    int m_gamesPlayed = 0;
    int m_messagesBeforeGame = 0;
    bool m_inStep = false;
    bool m_actionPending = false;
    bool m_sawDialog = false;
    bool m_networkChosen = false;
    bool m_started = false;
    bool m_gameSeen = false;
    bool m_done = false;
};

Options parse(const QStringList &args)
{
    QCommandLineParser p;
    p.addOptions({{QStringLiteral("role"), QStringLiteral("host or guest"), QStringLiteral("role")},
                  {QStringLiteral("players"), QStringLiteral("seats in the game"), QStringLiteral("n")},
                  {QStringLiteral("seat"), QStringLiteral("this copy's seat"), QStringLiteral("n")},
                  {QStringLiteral("guests"), QStringLiteral("guests to wait for"), QStringLiteral("n")},
                  {QStringLiteral("host"), QStringLiteral("the host's address"), QStringLiteral("address")},
                  {QStringLiteral("name"), QStringLiteral("the guest's computer name"), QStringLiteral("text")},
                  {QStringLiteral("pick"), QStringLiteral("choose the host from the list of games on the LAN")},
                  {QStringLiteral("lan"), QStringLiteral("host on every address, not only the loopback")},
                  {QStringLiteral("games"), QStringLiteral("games in a row"), QStringLiteral("n")},
                  {QStringLiteral("time-scale"), QStringLiteral("scale of every pause"), QStringLiteral("x")},
                  {QStringLiteral("timeout"), QStringLiteral("seconds before giving up"), QStringLiteral("s")}});
    p.process(args);
    Options o;
    o.host = p.value(QStringLiteral("role")) != QStringLiteral("guest");
    if (p.isSet(QStringLiteral("players")))
        o.players = qBound(2, p.value(QStringLiteral("players")).toInt(), MaxSeats);
    if (p.isSet(QStringLiteral("seat")))
        o.seat = qBound(1, p.value(QStringLiteral("seat")).toInt(), MaxSeats);
    o.guests = p.value(QStringLiteral("guests")).toInt();
    if (p.isSet(QStringLiteral("host")))
        o.hostAddress = p.value(QStringLiteral("host"));
    o.name = p.value(QStringLiteral("name"));
    o.pick = p.isSet(QStringLiteral("pick"));
    o.lan = p.isSet(QStringLiteral("lan"));
    if (p.isSet(QStringLiteral("games")))
        o.games = qMax(1, p.value(QStringLiteral("games")).toInt());
    if (p.isSet(QStringLiteral("time-scale")))
        o.timeScale = p.value(QStringLiteral("time-scale")).toDouble();
    if (p.isSet(QStringLiteral("timeout")))
        o.timeoutSeconds = p.value(QStringLiteral("timeout")).toInt();
    return o;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("QX"));
    const Options options = parse(QApplication::arguments());
    Waiter::setTimeScale(options.timeScale);

    MainWindow window;
    window.show();
    Robot robot(window, options);
    QTimer::singleShot(0, &robot, [&robot] { robot.begin(); });
    return QApplication::exec();
}
