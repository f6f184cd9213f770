// The table's running costs, measured in the real main window (offscreen unless a display is set):
// CPU and event-loop wake-ups while the game waits for a person, CPU per second of a computer-only
// game with animations, and the real frame interval of a card move at each animation speed.
#include "MainWindow.h"
#include "Menus.h"
#include "NewGameSetup.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cstdio>

#include <sys/resource.h>
#include <unistd.h>

using namespace qx;

namespace {

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
        + double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

struct Idle {
    double cpuShare; // of one core
    double wakeUps;  // per second
};

// The times the program's main thread has gone to sleep and been woken since it started: its
// voluntary context switches, as the kernel counts them.
long mainThreadSleeps()
{
    QFile status(QStringLiteral("/proc/self/task/%1/status").arg(getpid()));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith("voluntary_ctxt_switches:"))
            return line.mid(24).trimmed().toLong();
    return 0;
}

// Lets the program run for `seconds` with nobody touching it: the share of one core it used and
// how often its main thread woke up meanwhile (the benchmark's own end-of-wait timer not counted).
Idle whileIdle(double seconds)
{
    const long sleeps = mainThreadSleeps();
    const double cpu = cpuSeconds();
    QEventLoop loop;
    QTimer::singleShot(int(seconds * 1000), &loop, &QEventLoop::quit);
    loop.exec();
    const double used = cpuSeconds() - cpu;
    return {used / seconds, double(std::max(0L, mainThreadSleeps() - sleeps - 1)) / seconds};
}

void report(const char *what, const Idle &idle)
{
    std::printf("%-28s %5.2f %% of a core, %5.2f wake-ups a second\n", what, 100 * idle.cpuShare, idle.wakeUps);
}

NewGameSetup seats(int players, int humanSeat)
{
    NewGameSetup setup;
    setup.numPlayers = players;
    for (int i = 0; i < players; ++i)
        setup.seats[size_t(i)].type = (i + 1 == humanSeat) ? LocalHuman : Computer;
    return setup;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    MainWindow window;
    window.ask = [](const QString &) { return true; };
    window.show();
    QApplication::processEvents();
    const Menus &menus = window.menus();
    menus.mnuOSound->setChecked(false);
    for (QAction *pause : menus.mnuOPSelect)
        pause->setChecked(false);

    whileIdle(1); // let the start settle
    report("idle before a game:", whileIdle(5));

    window.engine().StartNewGame(seats(4, 1));
    whileIdle(1); // the deal and the first paint
    report("waiting for a human's card:", whileIdle(5));
    window.abandonGame();

    // A computer-only game, moves shown and animated at the default speed, for 20 s of play.
    menus.mnuOShowComputer->setChecked(true);
    menus.mnuOASpeed(10)->trigger();
    const double play = 20;
    QTimer::singleShot(int(play * 1000), &window, [&window] { window.abandonGame(); });
    QElapsedTimer wall;
    wall.start();
    const double cpu = cpuSeconds();
    window.engine().StartNewGame(seats(4, 0));
    const double seconds = double(wall.elapsed()) / 1000;
    std::printf("computer-only game, animated: %5.3f s of CPU per second of play (over %.1f s)\n",
                (cpuSeconds() - cpu) / seconds, seconds);
    if (window.state().gameRunning())
        window.abandonGame();

    // The frame interval of a card move from a hand slot to the pile, at each speed.
    for (int frames : {5, 10, 20}) {
        menus.mnuOASpeed(frames)->trigger();
        const int moves = 10;
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < moves; ++i) {
            window.showFace(FirstHandSlot, i);
            window.animateCardMove(FirstHandSlot, PileSlot);
        }
        const double interval = double(timer.nsecsElapsed()) / 1e9 / (moves * frames);
        std::printf("frame interval at %2d frames:  %5.1f ms (target 40 ms)\n", frames, interval * 1000);
    }
    return 0;
}
