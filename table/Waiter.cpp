#include "Waiter.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace qx {

namespace {
double g_timeScale = 1.0;
} // namespace

void Waiter::setTimeScale(double scale) { g_timeScale = std::max(0.0, scale); }

double Waiter::timeScale() { return g_timeScale; }

void Waiter::timedLoop(double seconds, bool holdUserInput)
{
    if (m_released)
        return;
    const double scaled = std::max(0.0, seconds);
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(static_cast<int>(std::lround(scaled * 1000.0)));
    m_loops.push_back({&loop, false});
    loop.exec(holdUserInput ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
    m_loops.erase(std::find_if(m_loops.begin(), m_loops.end(), [&](const Entry &e) { return e.loop == &loop; }));
}

void Waiter::pause(double seconds) { timedLoop(seconds * g_timeScale, true); }

// A slow machine simply takes longer per frame: the wait ends once the frame period has gone by.
void Waiter::frameWait(double spentSeconds) { timedLoop(FramePeriod * g_timeScale - spentSeconds, false); }

void Waiter::waitUntil(const std::function<bool()> &condition)
{
    while (!m_released && !condition()) {
        QEventLoop loop;
        m_loops.push_back({&loop, true});
        loop.exec();
        m_loops.erase(std::find_if(m_loops.begin(), m_loops.end(), [&](const Entry &e) { return e.loop == &loop; }));
    }
}

void Waiter::wake()
{
    for (const Entry &e : m_loops)
        if (e.wakeable)
            e.loop->quit();
}

void Waiter::release()
{
    m_released = true;
    for (const Entry &e : m_loops)
        e.loop->quit();
}

} // namespace qx
