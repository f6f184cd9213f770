#pragma once

#include "CardSlot.h"
#include "MainWindow.h"
#include "NewGameDialog.h"
#include "TableView.h"

#include <QAction>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <initializer_list>
#include <random>

namespace qx::test {

// A random source that starts a new sequence at every shuffle, as the clock does in play, but
// from a counter: games run in milliseconds here, and every run of a test plays the same games.
class SteppingRandom : public RandomSource {
public:
    explicit SteppingRandom(unsigned first = 1) : m_seed(first) { m_engine.seed(m_seed); }
    double next() override { return m_uniform(m_engine); }
    void seedFromClock() override { m_engine.seed(++m_seed * 7919u); }

private:
    unsigned m_seed;
    std::mt19937 m_engine;
    std::uniform_real_distribution<double> m_uniform{0.0, 1.0};
};

// The real main window with its real engine, made safe for tests: questions are answered by the
// test, nothing ends the test program, the New Game dialog is filled in without being shown,
// and every pause is shrunk to nothing.
struct TableFixture {
    SteppingRandom random;
    MainWindow w{nullptr, &random};
    GameState &s = w.state();
    QStringList asked;
    bool answer = true;
    int quits = 0;
    bool cancelDialog = false;

    TableFixture()
    {
        Waiter::setTimeScale(0);
        w.ask = [this](const QString &text) {
            asked << text;
            return answer;
        };
        w.quitProgram = [this] { ++quits; };
        w.runNewGameDialog = [this] {
            if (cancelDialog)
                w.newGameDialog()->cmdCancel->click();
            else
                w.newGameDialog()->Tag.clear();
        };
    }

    // The three "&Pause Game" items: before humans, before computers, after strikes.
    void setPauses(bool humans, bool computers, bool strikes)
    {
        w.menus().mnuOPSelect[0]->setChecked(humans);
        w.menus().mnuOPSelect[1]->setChecked(computers);
        w.menus().mnuOPSelect[2]->setChecked(strikes);
    }

    // Chooses the seats in the dialog (one kind per seat) and runs the New command.
    void startGame(std::initializer_list<int> kinds)
    {
        NewGameDialog *d = w.newGameDialog();
        const int index = static_cast<int>(kinds.size()) - 2;
        d->optPlayers[static_cast<size_t>(index)]->setChecked(true);
        d->optPlayers_Click(index);
        int box = 0;
        for (int kind : kinds)
            d->chkHuman[static_cast<size_t>(box++)]->setValue(kind);
        w.mnuGNew_Click();
    }

    CardPicture slot(int index) const { return w.picCard(index)->picture(); }
};

// Presses "&Resume" whenever it shows, for games that run to their end on their own.
class ResumePresser : public QObject {
public:
    explicit ResumePresser(MainWindow &w)
    {
        connect(&m_timer, &QTimer::timeout, this, [&w, this] {
            if (!w.playArea()->cmdContinue()->isHidden()) {
                ++presses;
                w.playArea()->cmdContinue()->click();
            }
        });
        m_timer.start(2);
    }
    int presses = 0;

private:
    QTimer m_timer;
};

} // namespace qx::test
