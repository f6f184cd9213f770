#pragma once

#include <functional>
#include <vector>

class QEventLoop;

namespace qx {

// The one place where the program waits. Every wait runs a local event loop on a timer or on a
// wake-up call, so the window keeps painting, timers and sockets keep running, and the program
// idles at no CPU cost. Waits nest: each one owns its loop, and an outer wait that is over while
// an inner one still runs returns as soon as the inner one has.
class Waiter {
public:
    // The animation's frame period, in seconds.
    static constexpr double FramePeriod = 0.04;

    // Scales the length of every pause and frame wait of every Waiter. 1 in the program; the tests
    // shrink it so that whole games run in moments. Not an option of the player.
    static void setTimeScale(double scale);
    static double timeScale();

    // A timed standstill: timers, painting and sockets run, user input is held back until it ends
    // (it is delivered afterwards, not lost).
    void pause(double seconds);
    // Waits out the rest of one animation frame, `spentSeconds` of which have already gone on
    // drawing; everything runs meanwhile.
    void frameWait(double spentSeconds = 0.0);
    // Returns once `condition` holds. The condition is looked at again only when wake() is called.
    void waitUntil(const std::function<bool()> &condition);
    // Something a waitUntil may be waiting for has changed.
    void wake();

    // The program is ending: every wait under way ends, and every later wait returns at once.
    void release();
    bool released() const { return m_released; }

    // How many waits are under way (nested ones included).
    int depth() const { return static_cast<int>(m_loops.size()); }

private:
    // Runs a local event loop for `seconds` (already scaled).
    void timedLoop(double seconds, bool holdUserInput);

    struct Entry {
        QEventLoop *loop;
        bool wakeable;
    };
    std::vector<Entry> m_loops;
    bool m_released = false;
};

} // namespace qx
