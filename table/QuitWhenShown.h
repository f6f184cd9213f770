#pragma once

// For the start-up benchmark, which launches QX and the bare-window floor alike: with
// QX_QUIT_WHEN_SHOWN set, once the event loop has shown the main window, the program prints
// "shown <steady clock in ns>" (the clock the benchmark reads too) and leaves.

#include <QCoreApplication>
#include <QTimer>

#include <chrono>
#include <cstdio>

namespace qx {

inline void quitWhenShownIfAsked()
{
    if (!qEnvironmentVariableIsSet("QX_QUIT_WHEN_SHOWN"))
        return;
    QTimer::singleShot(0, QCoreApplication::instance(), [] {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        std::printf("shown %lld\n", static_cast<long long>(std::chrono::nanoseconds(now).count()));
        QCoreApplication::quit();
    });
}

} // namespace qx
